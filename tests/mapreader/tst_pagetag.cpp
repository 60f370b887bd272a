// A tag read again from its place, and the code of templates in it.

#include "mapreader/PageTag.h"

#include <QTest>

namespace {

/** The tag that begins with `opening` in the page. */
PageTag TagIn(QStringView page, QStringView opening)
{
    const qsizetype start = page.indexOf(opening);
    HtmlTokens tokens(page.sliced(start));
    HtmlToken token;
    (void)tokens.Next(token);
    return { page, { start, token.whole.length } };
}

} // namespace

class tst_pagetag : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void placesAreThoseOfThePage();
    void valuesAreWhatBrowsersSee();
    void codeIsFound_data();
    void codeIsFound();
    void codeThatEndsATagIsTold_data();
    void codeThatEndsATagIsTold();
};

void tst_pagetag::placesAreThoseOfThePage()
{
    const QString page = QStringLiteral("<p>x</p>\r\n<AREA Shape = 'rect' nohref href=a/b />");
    const PageTag tag = TagIn(page, u"<AREA");
    QCOMPARE(tag.Token().name.In(page), u"AREA");
    QCOMPARE(tag.Token().whole.In(page), u"<AREA Shape = 'rect' nohref href=a/b />");
    QCOMPARE(page[tag.Token().slash], u'/');
    QCOMPARE(tag.Attributes().size(), 3U);
    QCOMPARE(tag.Attributes()[0].whole.In(page), u"Shape = 'rect'");
    QCOMPARE(tag.Attributes()[0].name.In(page), u"Shape");
    QCOMPARE(tag.Attributes()[0].value.In(page), u"rect");
    QCOMPARE(page[tag.Attributes()[0].equals], u'=');
    QCOMPARE(tag.Attributes()[1].whole.In(page), u"nohref");
    QCOMPARE(tag.Attributes()[1].equals, -1);
    QCOMPARE(tag.Attributes()[2].value.In(page), u"a/b");
}

void tst_pagetag::valuesAreWhatBrowsersSee()
{
    const QString page =
        QStringLiteral("<area alt=\"a &amp; b&quot;\" ALT=x href='?a=1&b=2' nohref title=''>");
    const PageTag tag = TagIn(page, u"<area");
    QCOMPARE(tag.Value(QLatin1String("alt")), QStringLiteral("a & b\""));
    QCOMPARE(tag.Value(QLatin1String("href")), QStringLiteral("?a=1&b=2"));
    QVERIFY(tag.Value(QLatin1String("nohref")).isEmpty() && !tag.Value(QLatin1String("nohref")).isNull());
    QVERIFY(tag.Value(QLatin1String("title")).isEmpty() && !tag.Value(QLatin1String("title")).isNull());
    QVERIFY(tag.Value(QLatin1String("target")).isNull());
    QVERIFY(tag.Attributes()[1].isDuplicate);
}

void tst_pagetag::codeIsFound_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("code");
    const auto row = [](const QString& text, TemplateCode code) {
        QTest::newRow(qPrintable(text)) << text << int(code);
    };
    row("", TemplateCode::None);
    row("a.html?b={c}", TemplateCode::None);
    row("50%", TemplateCode::None);
    row("javascript:a(){}", TemplateCode::None);
    row("<?php echo $x ?>", TemplateCode::Whole);
    row("1,<?= $y ?>,3", TemplateCode::Whole);
    row("<%= x %>", TemplateCode::Whole);
    row("{{ x }}", TemplateCode::Whole);
    row("{% url 'x' %}", TemplateCode::Whole);
    row("{# note #}", TemplateCode::Whole);
    row("${x}", TemplateCode::Whole);
    row("#{x}", TemplateCode::Whole);
    row("{coords}", TemplateCode::Whole);
    row("<?php if ($x->y", TemplateCode::Cut);
    row("<% a %><% b", TemplateCode::Cut);
    row("{{ x", TemplateCode::Cut);
}

void tst_pagetag::codeIsFound()
{
    QFETCH(const QString, text);
    QTEST(int(TemplateCodeIn(text)), "code");
}

void tst_pagetag::codeThatEndsATagIsTold_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<int>("code");
    QTest::newRow("none") << "<area alt='x'>" << int(TemplateCode::None);
    QTest::newRow("in a value") << "<area alt='<?php echo 1 ?>'>" << int(TemplateCode::Whole);
    QTest::newRow("a value of it") << "<area coords={list}>" << int(TemplateCode::Whole);
    QTest::newRow("ends the tag at an arrow")
        << "<area href=<?php echo $a->b ?> alt=x>" << int(TemplateCode::Cut);
    QTest::newRow("between attributes")
        << "<area <% if (a > b) { %> alt=x <% } %>>" << int(TemplateCode::Cut);
    QTest::newRow("ends the tag with itself") << "<area <?php echo 1 ?> alt=x>" << int(TemplateCode::Cut);
    QTest::newRow("is the last value") << "<area alt=<%= 1 %>>" << int(TemplateCode::Cut);
    QTest::newRow("braces at the end") << "<area alt={{x}}>" << int(TemplateCode::Whole);
}

void tst_pagetag::codeThatEndsATagIsTold()
{
    QFETCH(const QString, page);
    QTEST(int(TagIn(page, u"<area").Template()), "code");
}

QTEST_GUILESS_MAIN(tst_pagetag)
#include "tst_pagetag.moc"
