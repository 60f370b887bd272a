// A map changed in its page, and nothing else in the page.

#include "MapWishes.h"

#include <QTest>

namespace {

/** The first map of a page with changes made to it by `change`. */
template<class Change> QString Changed(const QString& page, Change change)
{
    const PageMaps maps = ReadPageMaps(page);
    MapWish wish = WishOf(page, maps, 0);
    change(wish);
    const auto changes = ChangeMap(page, maps, 0, wish);
    return changes ? Replaced(page, *changes) : QStringLiteral("cannot");
}

/** A text of `lines` with that line end. */
QString Joined(const QStringList& lines, const QString& lineEnd)
{
    return lines.join(lineEnd) + lineEnd;
}
} // namespace

class tst_mapchanges : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void anAreaThatGoesTakesItsLineAlong_data();
    void anAreaThatGoesTakesItsLineAlong();
    void aNewAreaIsWrittenLikeItsNeighbour_data();
    void aNewAreaIsWrittenLikeItsNeighbour();
    void aMapWithoutAreasGetsThemOnTheirLines_data();
    void aMapWithoutAreasGetsThemOnTheirLines();
    void otherAreasComeInThePlaceOfAll();
    void anotherWayToSayTheSameIsWrittenAsWished();
    void aShapeIsWrittenWhereItIsAnother();
    void areasChangePlaces();
    void anotherNameGoesWhereItCounts_data();
    void anotherNameGoesWhereItCounts();
    void whatCodeCutsIsLeftAlone();
    void whatIsNoAreaOfTheMapIsRefused();
};

void tst_mapchanges::anAreaThatGoesTakesItsLineAlong_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("changed");
    for (const char* const end : { "\r\n", "\n", "\r" }) {
        const QString lineEnd = QLatin1String(end);
        QTest::addRow("lines ended by %d characters from %d", int(lineEnd.size()), int(end[0]))
            << Joined({ "<map>", "  <area a=1>", "  <area a=2>\t", "  <area a=3>", "</map>" }, lineEnd)
            << Joined({ "<map>", "  <area a=1>", "  <area a=3>", "</map>" }, lineEnd);
    }
    const auto row = [](const char* name, const QString& page, const QString& changed) {
        QTest::newRow(name) << page << changed;
    };
    row("in one line", "<map><area a=1><area a=2><area a=3></map>", "<map><area a=1><area a=3></map>");
    row("at the end of a line", "<map><area a=1>  <area a=2>\n<area a=3></map>",
        "<map><area a=1>\n<area a=3></map>");
    row("before another on its line", "<map>\n <area a=1>\n <area a=2><area a=3>\n</map>",
        "<map>\n <area a=1>\n <area a=3>\n</map>");
    row("beside a comment", "<map>\n<area a=1>\n<area a=2> <!-- two -->\n<area a=3></map>",
        "<map>\n<area a=1>\n <!-- two -->\n<area a=3></map>");
    row("over several lines", "<map>\n<area a=1>\n  <area a=2\n    b=3\n  >\n<area a=3></map>",
        "<map>\n<area a=1>\n<area a=3></map>");
    row("with its end tag", "<map>\n<area a=1/>\n<area a=2></area>\n<area a=3></map>",
        "<map>\n<area a=1/>\n<area a=3></map>");
}

void tst_mapchanges::anAreaThatGoesTakesItsLineAlong()
{
    QFETCH(const QString, page);
    QTEST(Changed(page, [](MapWish& wish) { wish.areas.removeAt(1); }), "changed");
}

void tst_mapchanges::aNewAreaIsWrittenLikeItsNeighbour_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("changed");
    const auto row = [](const char* name, const char* page, const char* changed) {
        QTest::newRow(name) << QString::fromUtf8(page) << QString::fromUtf8(changed);
    };
    row("on its line", "<map>\n  <area href=\"a\">\n</map>",
        "<map>\n  <area href=\"a\">\n  <area href=\"n?a&amp;b\" shape=\"circle\" coords=\"5,6,7\" alt=\"new "
        "one\">\n"
        "</map>");
    row("in one line", "<map><area></map>",
        "<map><area><area shape=\"circle\" coords=\"5,6,7\" href=\"n?a&amp;b\" alt=\"new one\"></map>");
    row("closed by itself", "<map>\r\n\t<area alt='a' coords='1' />\r\n</map>",
        "<map>\r\n\t<area alt='a' coords='1' />\r\n\t<area alt='new one' coords='5,6,7' shape='circle' "
        "href='n?a&amp;b' />\r\n</map>");
    row("in capitals", "<MAP>\r<AREA COORDS=\"1\">\r</MAP>",
        "<MAP>\r<AREA COORDS=\"1\">\r<AREA COORDS=\"5,6,7\" SHAPE=\"circle\" HREF=\"n?a&amp;b\" ALT=\"new "
        "one\">"
        "\r</MAP>");
    row("without quotes", "<map><area coords=1></map>",
        "<map><area coords=1><area coords=5,6,7 shape=circle href=n?a&amp;b alt=\"new one\"></map>");
    row("over several lines", "<map>\n<area coords='1'\n      alt='2'\n></map>",
        "<map>\n<area coords='1'\n      alt='2'\n>\n<area\n      coords='5,6,7'\n      alt='new one'\n      "
        "shape='circle'\n      href='n?a&amp;b'\n></map>");
    row("behind a comment", "<map>\n<area> <!-- one -->\n</map>",
        "<map>\n<area> <!-- one -->\n<area shape=\"circle\" coords=\"5,6,7\" href=\"n?a&amp;b\" alt=\"new "
        "one\">\n"
        "</map>");
    row("with an end tag", "<map><area alt='x'></area></map>",
        "<map><area alt='x'></area><area alt='new one' shape='circle' coords='5,6,7' "
        "href='n?a&amp;b'></area></map>");
}

void tst_mapchanges::aNewAreaIsWrittenLikeItsNeighbour()
{
    QFETCH(const QString, page);
    QTEST(Changed(page, [](MapWish& wish) { wish.areas << NewArea(); }), "changed");
}

void tst_mapchanges::aMapWithoutAreasGetsThemOnTheirLines_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("changed");
    QTest::newRow("on one line")
        << "<p>\r\n <map name='m'></map>"
        << "<p>\r\n <map name='m'>\r\n   <area alt='a'>\r\n   <area alt='b'>\r\n </map>";
    QTest::newRow("on two") << "<MAP NAME=m>\n</MAP>"
                            << "<MAP NAME=m>\n  <AREA ALT=a>\n  <AREA ALT=b>\n</MAP>";
    QTest::newRow("at the end") << "<map>"
                                << "<map>\n  <area alt=\"a\">\n  <area alt=\"b\">";
}

void tst_mapchanges::aMapWithoutAreasGetsThemOnTheirLines()
{
    QFETCH(const QString, page);
    const auto add = [](MapWish& wish) {
        wish.areas = { { -1, { { "alt", "a" } } }, { -1, { { "alt", "b" } } } };
    };
    QTEST(Changed(page, add), "changed");
}

void tst_mapchanges::otherAreasComeInThePlaceOfAll()
{
    const auto replace = [](MapWish& wish) {
        wish.areas = { { -1, { { "alt", "a" } } }, { -1, { { "alt", "b" } } } };
    };
    QCOMPARE(
        Changed("<map>\n  <area alt='1' />\n  <area alt='2' />\n</map>", replace),
        QStringLiteral("<map>\n  <area alt='a' />\n  <area alt='b' />\n</map>"));
}

void tst_mapchanges::anotherWayToSayTheSameIsWrittenAsWished()
{
    const auto change = [](MapWish& wish) {
        Value(wish.areas[0], "shape") = "poly";
        Value(wish.areas[0], "coords") = "1,2,3,4,5,6";
    };
    QCOMPARE(
        Changed("<map><area shape=POLYGON coords=' 1, 2;3 04\n5.0,6px'></map>", change),
        QStringLiteral("<map><area shape=poly coords='1,2,3,4,5,6'></map>"));
    QCOMPARE(
        Changed("<map><area></map>", [](MapWish& wish) { Value(wish.areas[0], "shape") = "rect"; }),
        QStringLiteral("<map><area shape=\"rect\"></map>"));
    QCOMPARE(
        Changed("<map><area></map>", [](MapWish& wish) { Value(wish.areas[0], "shape") = ""; }),
        QStringLiteral("<map><area shape=\"\"></map>"));
}

void tst_mapchanges::aShapeIsWrittenWhereItIsAnother()
{
    const auto change = [](MapWish& wish) {
        Value(wish.areas[0], "shape") = "circle";
        Value(wish.areas[0], "coords") = "1,2,3";
    };
    QCOMPARE(
        Changed("<map><area coords='1,2,3,4' href=x></map>", change),
        QStringLiteral("<map><area coords='1,2,3' href=x shape=circle></map>"));
    QCOMPARE(
        Changed("<map><area shape=square coords=' 1,2,3'></map>", change),
        QStringLiteral("<map><area shape=circle coords='1,2,3'></map>"));
}

void tst_mapchanges::areasChangePlaces()
{
    const auto turnRound = [](MapWish& wish) {
        std::ranges::reverse(wish.areas);
        Value(wish.areas[0], "alt") = "4";
    };
    QCOMPARE(
        Changed("<map>\n <area  alt=1> <!-- a -->\n <AREA ALT='2'/>\n <area alt=\"3\">\n</map>", turnRound),
        QStringLiteral("<map>\n <area alt=\"4\"> <!-- a -->\n <AREA ALT='2'/>\n <area  alt=1>\n</map>"));
}

void tst_mapchanges::anotherNameGoesWhereItCounts_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("changed");
    const auto row = [](const char* name, const char* page, const char* changed) {
        QTest::newRow(name) << QString::fromUtf8(page) << QString::fromUtf8(changed);
    };
    row("to its pictures", "<img usemap=#m><img usemap='p.html#m'><img usemap=#o><map name=m></map>",
        "<img usemap=\"#new one\"><img usemap='p.html#new one'><img usemap=#o><map name=\"new one\"></map>");
    row("into its id", "<map id='m' name='m'></map><img usemap='#m'>",
        "<map id='new one' name='new one'></map><img usemap='#new one'>");
    row("not into another id", "<map id='i' name='m'></map><img usemap='#m'><img usemap='#i'>",
        "<map id='i' name='new one'></map><img usemap='#new one'><img usemap='#i'>");
    row("not to pictures of a namesake", "<map name='m'></map><map name='m'></map><img usemap='#m'>",
        "<map name='new one'></map><map name='m'></map><img usemap='#new one'>");
    row("where there was none", "<map></map><img usemap='#'>",
        "<map name=\"new one\"></map><img usemap='#'>");
}

void tst_mapchanges::anotherNameGoesWhereItCounts()
{
    QFETCH(const QString, page);
    const auto rename = [](MapWish& wish) {
        const auto found = std::ranges::find(wish.attributes, QLatin1String("name"), &AttributeWish::name);
        if (found == wish.attributes.end()) {
            wish.attributes << AttributeWish{ "name", "new one" };
        } else {
            found->value = "new one";
        }
    };
    QTEST(Changed(page, rename), "changed");
}

void tst_mapchanges::whatCodeCutsIsLeftAlone()
{
    const QString page = QStringLiteral("<map>\n<area href=<?php $a->b ?> alt=x>\n<area alt=y>\n</map>");
    QCOMPARE(Changed(page, [](MapWish& wish) { wish.areas.removeFirst(); }), QStringLiteral("cannot"));
    QCOMPARE(Changed(page, [](MapWish& wish) { wish.areas.insert(1, NewArea()); }), QStringLiteral("cannot"));
    QCOMPARE(
        Changed(page, [](MapWish& wish) { Value(wish.areas[0], "alt") = "z"; }), QStringLiteral("cannot"));
    QCOMPARE(
        Changed(page, [](MapWish& wish) { Value(wish.areas[1], "alt") = "z"; }),
        QString(page).replace("alt=y", "alt=z"));
}

void tst_mapchanges::whatIsNoAreaOfTheMapIsRefused()
{
    const QString page = QStringLiteral("<map><area></map><map><area></map>");
    QCOMPARE(Changed(page, [](MapWish& wish) { wish.areas[0].source = 1; }), QStringLiteral("cannot"));
    QCOMPARE(Changed(page, [](MapWish& wish) { wish.areas << wish.areas[0]; }), QStringLiteral("cannot"));
}

QTEST_GUILESS_MAIN(tst_mapchanges)
#include "tst_mapchanges.moc"
