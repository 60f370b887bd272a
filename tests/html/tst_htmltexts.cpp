// What stands between the tags of a page, and pages as a whole.

#include "html/CharacterReferences.h"
#include "html/HtmlTokens.h"
#include "tests/html/TokenLists.h"

#include <QDir>
#include <QTest>

Q_DECLARE_METATYPE(HtmlContent)

namespace {

/** Reads text, values and all. */
qsizetype ReadAll(const QString& text)
{
    qsizetype length = 0;
    HtmlTokens reader(text);
    for (HtmlToken token; reader.Next(token);) {
        length += DecodedText(token.inside.In(text)).size();
        for (const HtmlAttribute& attribute : token.attributes) {
            length += DecodedValue(attribute.value.In(text)).size();
        }
    }
    return length;
}

} // namespace

class tst_htmltexts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textsSayWhatTheyAre_data();
    void textsSayWhatTheyAre();
    void commentsHoldWhatIsBetweenTheirMarks_data();
    void commentsHoldWhatIsBetweenTheirMarks();
    void everyPageIsCoveredByItsTokens();
    void hostileTextTakesLinearTime_data();
    void hostileTextTakesLinearTime();
};

void tst_htmltexts::textsSayWhatTheyAre_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<HtmlContent>("content");
    QTest::newRow("between tags") << "<b>x</b>" << HtmlContent::Markup;
    QTest::newRow("title") << "<title>x</title>" << HtmlContent::Reading;
    QTest::newRow("textarea") << "<textarea>x" << HtmlContent::Reading;
    QTest::newRow("style") << "<style>x</style>" << HtmlContent::Style;
    QTest::newRow("script") << "<script>x</script>" << HtmlContent::Script;
    QTest::newRow("xmp") << "<xmp>x</xmp>" << HtmlContent::Raw;
    QTest::newRow("iframe") << "<iframe>x</iframe>" << HtmlContent::Raw;
    QTest::newRow("noembed") << "<noembed>x</noembed>" << HtmlContent::Raw;
    QTest::newRow("noframes") << "<noframes>x</noframes>" << HtmlContent::Raw;
    QTest::newRow("plaintext") << "<plaintext>x" << HtmlContent::PlainText;
    QTest::newRow("style of SVG") << "<svg><style>x</style>" << HtmlContent::Markup;
}

void tst_htmltexts::textsSayWhatTheyAre()
{
    QFETCH(const QString, text);
    const QList<HtmlToken> tokens = TokensOf(text);
    const auto found = std::ranges::find_if(
        tokens, [](const HtmlToken& token) { return token.kind == HtmlToken::Kind::Text; });
    QVERIFY(found != tokens.end());
    QCOMPARE(found->inside.In(text), u"x");
    QTEST(found->content, "content");
}

void tst_htmltexts::commentsHoldWhatIsBetweenTheirMarks_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("inside");
    QTest::addColumn<QString>("rest");
    QTest::newRow("plain") << "<!-- a -->b"
                           << " a "
                           << "b";
    QTest::newRow("empty") << "<!---->b"
                           << ""
                           << "b";
    QTest::newRow("closed at once") << "<!-->b"
                                    << ""
                                    << "b";
    QTest::newRow("closed at once with a dash") << "<!--->b"
                                                << ""
                                                << "b";
    QTest::newRow("dashes inside") << "<!-- a -- b ---->c"
                                   << " a -- b --"
                                   << "c";
    QTest::newRow("closed with a bang") << "<!--a--!>b"
                                        << "a"
                                        << "b";
    QTest::newRow("bang alone") << "<!--!>b-->c"
                                << "!>b"
                                << "c";
    QTest::newRow("bang without an angle") << "<!--a--!b-->c"
                                           << "a--!b"
                                           << "c";
    QTest::newRow("comment inside") << "<!--<!--a-->b"
                                    << "<!--a"
                                    << "b";
    QTest::newRow("lines") << "<!--a\r\nb-->"
                           << "a\r\nb"
                           << "";
    QTest::newRow("never closed") << "<!--a>b"
                                  << "a>b"
                                  << "";
    QTest::newRow("instruction") << "<?a?>b"
                                 << "?a?"
                                 << "b";
    QTest::newRow("declaration") << "<!a>b"
                                 << "a"
                                 << "b";
    QTest::newRow("conditional") << "<![if IE]>b"
                                 << "[if IE]"
                                 << "b";
    QTest::newRow("end tag of no letter") << "</ a>b"
                                          << " a"
                                          << "b";
}

void tst_htmltexts::commentsHoldWhatIsBetweenTheirMarks()
{
    QFETCH(const QString, text);
    QFETCH(const QString, rest);
    const HtmlToken comment = TokensOf(text).constFirst();
    QCOMPARE(comment.kind, HtmlToken::Kind::Comment);
    QTEST(comment.inside.In(text).toString(), "inside");
    QCOMPARE(text.sliced(comment.whole.End()), rest);
}

void tst_htmltexts::everyPageIsCoveredByItsTokens()
{
    QDir pages(QStringLiteral(QT_TESTCASE_SOURCEDIR "/pages"));
    const QStringList names = pages.entryList(QDir::Files);
    QVERIFY(names.size() >= 60);
    for (const QString& name : names) {
        QFile file(pages.filePath(name));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QString text = QString::fromUtf8(file.readAll());
        qsizetype end = 0;
        for (const HtmlToken& token : TokensOf(text)) {
            QVERIFY2(token.whole.offset == end, qPrintable(name));
            end = token.whole.End();
        }
        // Only blanks can be left over, in a tag that the page ends in.
        QVERIFY2(QStringView(text).sliced(end).trimmed().isEmpty(), qPrintable(name));
    }
}

void tst_htmltexts::hostileTextTakesLinearTime_data()
{
    QTest::addColumn<QString>("beginning");
    QTest::addColumn<QString>("repeated");
    QTest::newRow("angles") << ""
                            << "<";
    QTest::newRow("open tags") << ""
                               << "<a";
    QTest::newRow("open comments") << ""
                                   << "<!--";
    QTest::newRow("dashes in a comment") << "<!--"
                                         << "-";
    QTest::newRow("bangs in a comment") << "<!--"
                                        << "--!";
    QTest::newRow("open end tags in a script") << "<script>"
                                               << "</script";
    QTest::newRow("comments in a script") << "<script>"
                                          << "<!--<script>--";
    QTest::newRow("open end tags in a title") << "<title>"
                                              << "</title";
    QTest::newRow("open sections") << "<svg>"
                                   << "<![CDATA[]]";
    QTest::newRow("levels of SVG") << ""
                                   << "<svg><desc>";
    QTest::newRow("end tags in SVG") << "<svg>"
                                     << "</svg>";
    QTest::newRow("attributes of one name") << "<a"
                                            << " b";
    QTest::newRow("quotes") << "<a b="
                            << "\"'";
    QTest::newRow("slashes") << "<a"
                             << "/";
    QTest::newRow("a long value") << "<a b='"
                                  << "x";
    QTest::newRow("ampersands") << ""
                                << "&";
    QTest::newRow("numbers") << "&#"
                             << "1";
    QTest::newRow("names without an end") << ""
                                          << "&CounterClockwiseContourIntegra";
}

void tst_htmltexts::hostileTextTakesLinearTime()
{
    QFETCH(const QString, beginning);
    QFETCH(const QString, repeated);
    constexpr qsizetype length = 1'000'000;
    // What is not linear runs into the time that a test program has at most.
    const QString text = beginning + repeated.repeated(length / repeated.size());
    QVERIFY(ReadAll(text) <= text.size());
}

QTEST_GUILESS_MAIN(tst_htmltexts)

#include "tst_htmltexts.moc"
