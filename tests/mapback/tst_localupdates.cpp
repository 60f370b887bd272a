// Updates of one map in a page that may be very long.

#include "AloneAndWhole.h"
#include "OwnMaps.h"

#include <QTest>

namespace {

/** A page of many pictures, each with a map of two areas behind it. */
QString LongPage()
{
    const QString text = QStringLiteral("<p>Text around</p>\r\n").repeated(50);
    QString page;
    for (int i = 0; i < 200; ++i) {
        page += text + QStringLiteral("<img src=\"plan.png\" usemap=\"#m%1\">\r\n<map name=\"m%1\">\r\n"
                                      "<area coords=\"1,2,3,4\" href=\"a.html\">\r\n"
                                      "<area coords=\"5,6,7,8\" href=\"b.html\">\r\n</map>\r\n")
                           .arg(i);
    }
    return page;
}

ReturnedMap MapOf(const QString& page, std::size_t number)
{
    const PageMaps maps = ReadPageMaps(page);
    return ReadMap(page, maps, MapPlacesOf(page, maps).at(number)).value();
}

} // namespace

class tst_localupdates : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void updateAsksForTheMapAndItsPictureAlone();
    void updateOfAMapOfThisProgramIsTheSame();
    void whatThePageDecidesTakesTheWholePage();
    void aPageThatEndsBeforeIsNotTaken();
    void whatWouldMakeATagOfTextIsRefused();
};

void tst_localupdates::updateAsksForTheMapAndItsPictureAlone()
{
    const QString page = LongPage();
    const ReturnedMap map = MapOf(page, 100);
    MapSource now = map.source;
    now.Areas[1].Link = QStringLiteral("new.html");
    now.Areas.removeFirst();
    qsizetype asked = 0;
    const auto count = [&](const HtmlSpan& place) {
        asked += place.length;
        return PlacesIn(page)(place);
    };
    const auto update = UpdateMapAlone(count, map, map.mode, now, SomePage());
    QVERIFY(update);
    QVERIFY(!update->changes.isEmpty());
    QVERIFY2(asked < 500, qPrintable(QString::number(asked)));
    const auto whole = UpdateMap(page, map, map.mode, now, SomePage());
    QVERIFY(IsSameAlone(page, map, now, SomePage(), whole));
    const QString changed = Replaced(page, update->changes);
    QCOMPARE(MapOf(changed, 100).source.Areas.size(), 1);
    // The next one starts from there.
    const auto same = UpdateMapAlone(PlacesIn(changed), update->after, map.mode, now, SomePage());
    QVERIFY(same);
    QVERIFY(same->changes.isEmpty());
}

void tst_localupdates::updateOfAMapOfThisProgramIsTheSame()
{
    const MapSource source = OddSource(JSDisabled, 4, QStringLiteral("a text"), true);
    const QString page =
        LongPage() + GenerateMapFor(JSDisabled, source) + QStringLiteral("\r\n<p>Behind</p>\r\n");
    const PageMaps maps = ReadPageMaps(page);
    const ReturnedMap map = ReadMap(page, maps, MapPlacesOf(page, maps).back()).value();
    QVERIFY(map.form == MarkupForm::Html4);
    MapSource now = map.source;
    now.Areas[0].Link = QStringLiteral("new.html");
    const auto alone = UpdateMapAlone(PlacesIn(page), map, map.mode, now, SomePage());
    QVERIFY(alone);
    QVERIFY(!alone->changes.isEmpty());
    QVERIFY(IsSameAlone(page, map, now, SomePage(), UpdateMap(page, map, map.mode, now, SomePage())));
}

void tst_localupdates::whatThePageDecidesTakesTheWholePage()
{
    const QString page = LongPage();
    const ReturnedMap map = MapOf(page, 3);
    MapSource renamed = map.source;
    renamed.MapName = QStringLiteral("other");
    QVERIFY(!UpdateMapAlone(PlacesIn(page), map, map.mode, renamed, SomePage()));
    MapSource elsewhere = map.source;
    elsewhere.PictureReference = QStringLiteral("other.png");
    QVERIFY(!UpdateMapAlone(PlacesIn(page), map, map.mode, elsewhere, SomePage()));
    // A map that is closed by what is around it.
    const QString open = QStringLiteral("<p><b><map name=m><area coords='1,2,3,4' href=a></p></b>");
    const ReturnedMap unclosed = OnlyMap(open).value();
    MapSource moved = unclosed.source;
    moved.Areas[0].Link = QStringLiteral("b");
    QVERIFY(IsSameAlone(
        open, unclosed, moved, SomePage(), UpdateMap(open, unclosed, unclosed.mode, moved, SomePage())));
}

void tst_localupdates::aPageThatEndsBeforeIsNotTaken()
{
    const QString page = LongPage();
    const ReturnedMap map = MapOf(page, 199);
    const QString shorter = page.chopped(20);
    QVERIFY(!UpdateMapAlone(PlacesIn(shorter), map, map.mode, map.source, SomePage()));
}

/** Without the area between them, the bracket and the letter would begin a tag that swallows the next area.
 */
void tst_localupdates::whatWouldMakeATagOfTextIsRefused()
{
    const QString page = QStringLiteral("<map name=m><<area href=a>b<area href=c></map>");
    const ReturnedMap map = OnlyMap(page).value();
    QCOMPARE(map.source.Areas.size(), 2);
    MapSource now = map.source;
    now.Areas.removeFirst();
    QVERIFY(!UpdateMap(page, map, map.mode, now, SomePage()));
    QVERIFY(!UpdateMapAlone(PlacesIn(page), map, map.mode, now, SomePage()));
    now = map.source;
    now.Areas.removeLast();
    QVERIFY(UpdateMap(page, map, map.mode, now, SomePage()));
}

QTEST_GUILESS_MAIN(tst_localupdates)

#include "tst_localupdates.moc"
