#include "html/TagPairs.h"

#include "html/HtmlSyntax.h"

#include <QRandomGenerator>
#include <QTest>

class tst_tagpairs : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pairsAreFound_data();
    void pairsAreFound();
    void partOfAPageIsEnough();
    void anyTextHasItsPairs();
};

void tst_tagpairs::pairsAreFound_data()
{
    QTest::addColumn<QString>("page");   // with "|" at the caret
    QTest::addColumn<QString>("marked"); // with "_" in place of what is marked
    const auto row = [](const char* page, const char* marked) {
        QTest::newRow(page) << QString::fromLatin1(page) << QString::fromLatin1(marked);
    };
    row("", "");
    row("te|xt<p></p>", "text<p></p>");
    row("|<div id=a>b</div>", "____ id=a_b______");
    row("<di|v>b</div>", "_____b______");
    row("<div>|b</div>", "_____b______");
    row("<div>b|</div>", "_____b______");
    row("<div>b</div>|", "_____b______");
    row("<div>b|c</div>", "<div>bc</div>");
    row("<i><b>a|</b></i>", "<i>___a____</i>");
    row("<i>a</i>|<b>c</b>", "<i>a</i>___c____");
    row("<div><div>|a</div></div>", "<div>_____a______</div>");
    row("<ul><li>a<li>|b</ul>", "<ul><li>a<li>b</ul>");
    row("|<ul><li>a<li>b</ul>", "____<li>a<li>b_____");
    row("<br>|a", "<br>a");
    row("|<b>a", "<b>a");
    row("a</b>|", "a</b>");
    row("<b>a|<!-- </b> --></b>", "<b>a<!-- </b> --></b>");
    row("<script>f|(a[1]);</script>", "<script>f_a[1]_;</script>");
    row("<script>f(a[1])|;</script>", "<script>f_a[1]_;</script>");
    row("<script>f|(')', /*)*/ a) //)</script>", "<script>f_')', /*)*/ a_ //)</script>");
    row("<script>f|(a;</script>", "<script>f(a;</script>");
    row("<script>|if (a) { b }</script>", "________if (a) { b }_________");
    row("<style>p {|} a { }</style>", "<style>p __ a { }</style>");
    row("<p>(a|)</p>", "<p>(a)</p>");
}

void tst_tagpairs::pairsAreFound()
{
    QFETCH(QString, page);
    QFETCH(const QString, marked);
    const qsizetype caret = std::max<qsizetype>(page.indexOf(u'|'), 0);
    page.remove(u'|');
    const QString text = page;
    for (const HtmlSpan& place : PairAt(text, {}, caret)) {
        page.replace(place.offset, place.length, QString(place.length, u'_'));
    }
    QCOMPARE(page, marked);
}

void tst_tagpairs::partOfAPageIsEnough()
{
    HtmlState state;
    PassLine(u"<!-- a", state);
    const QString rest = QStringLiteral("b --><p>c</p>");
    QCOMPARE(PairAt(rest, state, 6).size(), 4U);
    QCOMPARE(PairAt(rest, state, 2).size(), 0U);
    state = {};
    PassLine(u"<script>", state);
    QCOMPARE(PairAt(u"f(a)", state, 1).size(), 2U);
    state = {};
    PassLine(u"<img alt='", state);
    QCOMPARE(PairAt(u"a=' b='c'><p></p>", state, 11).size(), 4U);
}

/** Whatever it reads, from whatever state, places lie in the text, in their order. */
void tst_tagpairs::anyTextHasItsPairs()
{
    const QStringList pieces = { QStringLiteral("<p>"),       QStringLiteral("</p>"),
                                 QStringLiteral("<b a='"),    QStringLiteral("'>"),
                                 QStringLiteral("</b>"),      QStringLiteral("<script>"),
                                 QStringLiteral("(\")\")"),   QStringLiteral("}"),
                                 QStringLiteral("</script>"), QStringLiteral("<!--"),
                                 QStringLiteral("-->"),       QStringLiteral("\n") };
    QRandomGenerator random(3);
    for (int round = 0; round < 2000; ++round) {
        QStringList halves(2);
        for (int i = 0; i < 24; ++i) {
            halves[i / 12] += pieces[random.bounded(int(pieces.size()))];
        }
        HtmlState state;
        PassLine(halves[0], state);
        const qsizetype caret = random.bounded(int(halves[1].size()) + 1);
        qsizetype last = 0;
        for (const HtmlSpan& place : PairAt(halves[1], state, caret)) {
            QVERIFY(place.offset >= last && place.length > 0 && place.End() <= halves[1].size());
            last = place.End();
        }
    }
}

QTEST_GUILESS_MAIN(tst_tagpairs)
#include "tst_tagpairs.moc"
