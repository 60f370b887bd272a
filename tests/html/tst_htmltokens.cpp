// The tags of a page and their parts.

#include "html/HtmlTokens.h"
#include "tests/html/TokenLists.h"

#include <QTest>

namespace {

/** The first tag of a text. */
HtmlToken TagIn(QStringView text)
{
    const QList<HtmlToken> tokens = TokensOf(text);
    const auto found = std::ranges::find_if(
        tokens, [](const HtmlToken& token) { return token.kind == HtmlToken::Kind::StartTag; });
    return found == tokens.end() ? HtmlToken() : *found;
}

/** Every token in a few words: its kind and its source. */
QStringList Shown(const QString& text)
{
    static const QStringList kinds = { "text", "start", "end", "comment", "doctype", "cdata" };
    QStringList shown;
    for (const HtmlToken& token : TokensOf(text)) {
        shown += kinds[int(token.kind)] + u' ' + token.whole.In(text) + (token.isClosed ? u"" : u" (open)");
    }
    return shown;
}

} // namespace

class tst_htmltokens : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tokensFollowEachOther_data();
    void tokensFollowEachOther();
    void everyPartOfATagHasItsPlace();
    void attributesHaveTheirPlaces_data();
    void attributesHaveTheirPlaces();
    void theFirstOfSeveralNamesakesIsTheAttribute_data();
    void theFirstOfSeveralNamesakesIsTheAttribute();
    void errorsAreToldWhereTheyAre_data();
    void errorsAreToldWhereTheyAre();
};

void tst_htmltokens::tokensFollowEachOther_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("shown");
    QTest::newRow("nothing") << "" << QStringList();
    QTest::newRow("tags and text") << "a<b>c</b>"
                                   << QStringList{ "text a", "start <b>", "text c", "end </b>" };
    QTest::newRow("angles in text") << "1 < 2 <3 <> <" << QStringList{ "text 1 < 2 <3 <> <" };
    QTest::newRow("end tag without a name") << "a</>b" << QStringList{ "text a", "end </>", "text b" };
    QTest::newRow("end tag cut off") << "a</" << QStringList{ "text a</" };
    QTest::newRow("tag cut off") << "a<b c='d" << QStringList{ "text a", "start <b c='d (open)" };
    QTest::newRow("angle in a tag") << "<a <b>" << QStringList{ "start <a <b>" };
    QTest::newRow("angle in a value") << "<a b='>'>" << QStringList{ "start <a b='>'>" };
    QTest::newRow("doctype ends in its quotes")
        << "<!DOCTYPE a 'b>'" << QStringList{ "doctype <!DOCTYPE a 'b>", "text '" };
    QTest::newRow("doctype of any case") << "<!DocType>" << QStringList{ "doctype <!DocType>" };
    QTest::newRow("template of a server")
        << "<?php a ?><% b %>" << QStringList{ "comment <?php a ?>", "text <% b %>" };
    QTest::newRow("title") << "<title><b></title >"
                           << QStringList{ "start <title>", "text <b>", "end </title >" };
    QTest::newRow("other end tag in a title")
        << "<title></titles>" << QStringList{ "start <title>", "text </titles>" };
    QTest::newRow("end tag of a title cut off")
        << "<title>a</title" << QStringList{ "start <title>", "text a</title" };
    QTest::newRow("upper case text element")
        << "<XMP><b></xmp>" << QStringList{ "start <XMP>", "text <b>", "end </xmp>" };
    QTest::newRow("text element closed by itself")
        << "<style/><b>" << QStringList{ "start <style/>", "text <b>" };
    QTest::newRow("noscript holds markup")
        << "<noscript><b>" << QStringList{ "start <noscript>", "start <b>" };
    QTest::newRow("plaintext never ends")
        << "<plaintext><b></plaintext>" << QStringList{ "start <plaintext>", "text <b></plaintext>" };
    QTest::newRow("script with a tag in a comment")
        << "<script><!--<script></script>--></script>a"
        << QStringList{ "start <script>", "text <!--<script></script>-->", "end </script>", "text a" };
    QTest::newRow("script with an end in a comment")
        << "<script><!--</script>-->"
        << QStringList{ "start <script>", "text <!--", "end </script>", "text -->" };
    QTest::newRow("section in HTML") << "<![CDATA[a>b]]>"
                                     << QStringList{ "comment <![CDATA[a>", "text b]]>" };
    QTest::newRow("section in SVG") << "<svg><![CDATA[a>b]]></svg><![CDATA[c>"
                                    << QStringList{ "start <svg>", "cdata <![CDATA[a>b]]>", "end </svg>",
                                                    "comment <![CDATA[c>" };
    QTest::newRow("title in SVG") << "<svg><title><b></title>"
                                  << QStringList{ "start <svg>", "start <title>", "start <b>",
                                                  "end </title>" };
    QTest::newRow("style in SVG") << "<svg><style><g>"
                                  << QStringList{ "start <svg>", "start <style>", "start <g>" };
    QTest::newRow("style behind SVG that closed itself")
        << "<svg/><style><g>" << QStringList{ "start <svg/>", "start <style>", "text <g>" };
    QTest::newRow("style in HTML in SVG")
        << "<svg><desc><style><g>"
        << QStringList{ "start <svg>", "start <desc>", "start <style>", "text <g>" };
    QTest::newRow("style behind what ends SVG")
        << "<math><p><style><g>" << QStringList{ "start <math>", "start <p>", "start <style>", "text <g>" };
    QTest::newRow("font of SVG") << "<svg><font><style><g>"
                                 << QStringList{ "start <svg>", "start <font>", "start <style>",
                                                 "start <g>" };
    QTest::newRow("font of HTML") << "<svg><font size=1><style><g>"
                                  << QStringList{ "start <svg>", "start <font size=1>", "start <style>",
                                                  "text <g>" };
}

void tst_htmltokens::tokensFollowEachOther()
{
    QFETCH(const QString, text);
    QFETCH(const QStringList, shown);
    QCOMPARE(Shown(text), shown);
}

void tst_htmltokens::everyPartOfATagHasItsPlace()
{
    const QString text = QStringLiteral("x<area\r\n shape = 'rect'\thref=a&amp;b alt nohref=\"\" />y");
    const HtmlToken tag = TagIn(text);
    QVERIFY(tag.isClosed);
    QVERIFY(!tag.hasError);
    QCOMPARE(tag.whole.In(text), text.sliced(1).chopped(1));
    QCOMPARE(tag.name.In(text), u"area");
    QCOMPARE(tag.slash, text.indexOf(u'/'));
    QCOMPARE(tag.attributes.size(), 4U);

    const HtmlAttribute& shape = tag.attributes[0];
    QCOMPARE(shape.name.In(text), u"shape");
    QCOMPARE(shape.equals, text.indexOf(u'='));
    QCOMPARE(shape.quote, u'\'');
    QCOMPARE(shape.value.In(text), u"rect");
    QCOMPARE(shape.whole.In(text), u"shape = 'rect'");

    const HtmlAttribute& href = tag.attributes[1];
    QCOMPARE(href.quote, u'\0');
    QCOMPARE(href.value.In(text), u"a&amp;b");
    QCOMPARE(href.whole.In(text), u"href=a&amp;b");

    const HtmlAttribute& alt = tag.attributes[2];
    QCOMPARE(alt.equals, -1);
    QCOMPARE(alt.whole.In(text), u"alt");
    QCOMPARE(alt.value, (HtmlSpan{ alt.name.End(), 0 }));

    const HtmlAttribute& nohref = tag.attributes[3];
    QCOMPARE(nohref.quote, u'"');
    QCOMPARE(nohref.value, (HtmlSpan{ text.indexOf(u'"') + 1, 0 }));
    QCOMPARE(nohref.whole.In(text), u"nohref=\"\"");
}

void tst_htmltokens::attributesHaveTheirPlaces_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("attributes");
    QTest::newRow("no value") << "<a b c>" << QStringList{ "b", "c" };
    QTest::newRow("no value behind the equals sign") << "<a b=>" << QStringList{ "b=" };
    QTest::newRow("value behind blanks") << "<a b = \n c>" << QStringList{ "b = \n c" };
    QTest::newRow("slash in an unquoted value") << "<a b=c/>" << QStringList{ "b=c/" };
    QTest::newRow("slashes between") << "<a/b/c='d'/e>" << QStringList{ "b", "c='d'", "e" };
    QTest::newRow("no blanks between") << "<a b='c'd=\"e\"f>" << QStringList{ "b='c'", "d=\"e\"", "f" };
    QTest::newRow("semicolon between") << "<a b=\"c\"; d=\"e\">" << QStringList{ "b=\"c\"", ";", "d=\"e\"" };
    QTest::newRow("equals sign in front") << "<a =b=c>" << QStringList{ "=b=c" };
    QTest::newRow("quotes in an unquoted value") << "<a b=c\"d'e>" << QStringList{ "b=c\"d'e" };
    QTest::newRow("other quotes inside") << "<a b='\"' c=\"'\">" << QStringList{ "b='\"'", "c=\"'\"" };
    QTest::newRow("quote as a name") << "<a \"b\">" << QStringList{ "\"b\"" };
    QTest::newRow("names of Angular")
        << "<a *b=\"c\" [d]='e' (f)=g #h>" << QStringList{ "*b=\"c\"", "[d]='e'", "(f)=g", "#h" };
    QTest::newRow("value cut off") << "<a b='c" << QStringList{ "b='c" };
    QTest::newRow("cut off behind a quote") << "<a b='" << QStringList{ "b='" };
    QTest::newRow("end tag") << "<i></i b=c>" << QStringList();
}

void tst_htmltokens::attributesHaveTheirPlaces()
{
    QFETCH(const QString, text);
    QFETCH(const QStringList, attributes);
    QStringList found;
    for (const HtmlAttribute& attribute : TagIn(text).attributes) {
        found += attribute.whole.In(text).toString();
    }
    QCOMPARE(found, attributes);
}

void tst_htmltokens::theFirstOfSeveralNamesakesIsTheAttribute_data()
{
    QTest::addColumn<int>("others");
    QTest::newRow("few attributes") << 3;
    QTest::newRow("many attributes") << 300;
}

void tst_htmltokens::theFirstOfSeveralNamesakesIsTheAttribute()
{
    QFETCH(const int, others);
    QString text = QStringLiteral("<area HREF=1 \u212A=k ");
    for (int index = 0; index < others; ++index) {
        text += QStringLiteral("data-%1=x ").arg(index);
    }
    text += QStringLiteral("k=2 href=3 Data-0=y>");
    const HtmlToken tag = TagIn(text);
    QList<qsizetype> duplicates;
    for (std::size_t index = 0; index < tag.attributes.size(); ++index) {
        if (tag.attributes[index].isDuplicate) {
            duplicates += qsizetype(index);
        }
    }
    // The Kelvin sign is not a "k", although it is one in small letters.
    QCOMPARE(duplicates, (QList<qsizetype>{ others + 3, others + 4 }));
    QCOMPARE(tag.Find(text, QLatin1String("href"))->value.In(text), u"1");
    QCOMPARE(tag.Find(text, QLatin1String("k"))->value.In(text), u"2");
    QCOMPARE(tag.Find(text, QLatin1String("alt")), nullptr);
}

void tst_htmltokens::errorsAreToldWhereTheyAre_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("inTag");
    QTest::addColumn<bool>("inAttribute");
    QTest::newRow("none") << "<a b='c' d=e f/>" << false << false;
    QTest::newRow("no blank in front") << "<a b='c'd>" << false << true;
    QTest::newRow("quote in a name") << "<a b\">" << false << true;
    QTest::newRow("angle in a name") << "<a <b>" << false << true;
    QTest::newRow("equals sign in front") << "<a =b>" << false << true;
    QTest::newRow("equals sign in an unquoted value") << "<a b=c=d>" << false << true;
    QTest::newRow("slash in between") << "<a / b>" << true << false;
    QTest::newRow("slash and blank at the end") << "<a b / >" << true << false;
    QTest::newRow("no value") << "<a b=>" << true << false;
    QTest::newRow("equals sign in a quoted value") << "<a b='=<'>" << false << false;
}

void tst_htmltokens::errorsAreToldWhereTheyAre()
{
    QFETCH(const QString, text);
    const HtmlToken tag = TagIn(text);
    QTEST(tag.hasError, "inTag");
    QTEST(std::ranges::any_of(tag.attributes, &HtmlAttribute::hasError), "inAttribute");
}

QTEST_GUILESS_MAIN(tst_htmltokens)

#include "tst_htmltokens.moc"
