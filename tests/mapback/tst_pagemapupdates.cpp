// Maps of any page as the editor has them, and what changes in the page when they change there.

#include "AloneAndWhole.h"
#include "OpenedMaps.h"

#include <QDir>
#include <QFile>
#include <QTest>
#include <algorithm>
#include <array>

namespace {

/** The pages that are written for reading maps; CARTOLEN_MAP_PAGES=FOLDER adds those in a folder. */
QStringList PagePaths()
{
    const QString tests = QStringLiteral(QT_TESTCASE_SOURCEDIR);
    QStringList folders = { tests + u"/../mapreader/pages", tests + u"/../html/pages" };
    if (const QString others = qEnvironmentVariable("CARTOLEN_MAP_PAGES"); !others.isEmpty()) {
        folders << others;
    }
    QStringList paths;
    for (const QString& folder : folders) {
        const QDir pages(folder);
        for (const QString& name : pages.entryList(QDir::Files, QDir::Name)) {
            paths << pages.filePath(name);
        }
    }
    return paths;
}

using Editing = void (*)(MapSource&, qsizetype area);

struct Edit
{
    const char* name;
    Editing edit;
    qsizetype mostChanges;
};

const std::array<Edit, 8> edits = { {
    { "nothing", [](MapSource&, qsizetype) {}, 0 },
    { "move",
      [](MapSource& now, qsizetype area) {
          for (int& number : now.Areas[area].Coordinates) {
              number += 3;
          }
      },
      1 },
    { "link", [](MapSource& now, qsizetype area) { now.Areas[area].Link = "a new \"place\"?x&y"; }, 1 },
    { "text", [](MapSource& now, qsizetype area) { now.Areas[area].Text = "it's <new>"; }, 1 },
    { "no target", [](MapSource& now, qsizetype area) { now.Areas[area].Target.clear(); }, 1 },
    { "delete", [](MapSource& now, qsizetype area) { now.Areas.removeAt(area); }, 1 },
    { "duplicate", [](MapSource& now, qsizetype area) { now.Areas.insert(area, now.Areas[area]); }, 1 },
    { "another",
      [](MapSource& now, qsizetype area) {
          now.Areas.insert(area + 1, OddArea(1, QStringLiteral("new & \"odd\""), JSDisabled));
      },
      1 },
} };

/** Whether there may be code in the page, which not all can be done to. */
bool MayHoldCode(QStringView page)
{
    return page.contains(u"<?") || page.contains(u"<%") || page.contains(u'{') || page.contains(u"<#");
}

} // namespace

class tst_pagemapupdates : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tagSaysWhatTheEditorShows_data();
    void tagSaysWhatTheEditorShows();
    void mapTakesItsFieldsFromItsPicture();
    void everyEditOfEveryPageChangesLittle_data();
    void everyEditOfEveryPageChangesLittle();
    void onlyWhatWasChangedIsWritten_data();
    void onlyWhatWasChangedIsWritten();
    void coordinatesAreOfTheShownSize();
    void otherSizeScalesTheCoordinates();
    void fieldsGoIntoThePicturesTag();
    void anotherNameReachesThePictureToo();
    void updatesFollowEachOther();
    void modeThatNeedsAScriptIsRefused();
};

void tst_pagemapupdates::tagSaysWhatTheEditorShows_data()
{
    QTest::addColumn<QString>("tag");
    QTest::addColumn<int>("shape");
    QTest::addColumn<QList<int>>("numbers");
    const auto row = [](const char* tag, AreaShape shape, const QList<int>& numbers) {
        QTest::newRow(tag) << QString::fromLatin1(tag) << int(shape) << numbers;
    };
    row("<area coords='1,2,3,4'>", AreaShape::Rectangle, { 1, 2, 3, 4 });
    row("<area shape=rect coords='9,8,3,4'>", AreaShape::Rectangle, { 9, 8, 3, 4 });
    row("<area shape=CIRC coords='1.4 2.5;3.6'>", AreaShape::Circle, { 1, 3, 4 });
    row("<area shape=polygon coords='1,2 3,4 5,6 7'>", AreaShape::Polygon, { 1, 2, 3, 4, 5, 6 });
    row("<area shape=what coords='1,2,3,4,5,6'>", AreaShape::Rectangle, { 1, 2, 3, 4 });
    row("<area shape=default coords='1,2'>", AreaShape::Default, {});
    row("<area shape=rect coords='1,2,3'>", AreaShape::Rectangle, {});
    row("<area shape=rect>", AreaShape::Rectangle, {});
    row("<area shape=circle coords='1,2,-3'>", AreaShape::Circle, {});
    row("<area shape=rect coords='1,2,8051230,4'>", AreaShape::Rectangle, {});
    row("<area shape=rect coords='1,2,50%,x'>", AreaShape::Rectangle, { 1, 2, 50, 0 });
    row("<area shape=rect coords='{{ c }}'>", AreaShape::Rectangle, {});
}

void tst_pagemapupdates::tagSaysWhatTheEditorShows()
{
    QFETCH(const QString, tag);
    const ReturnedMap map = Opened(u"<map name=m>" + tag + u"</map>");
    QCOMPARE(map.source.Areas.size(), 1);
    const MapArea& area = map.source.Areas[0];
    QTEST(int(area.Shape), "shape");
    QFETCH(const QList<int>, numbers);
    // Qt compares the places of empty lists, which the sanitizers do not allow.
    QVERIFY(numbers.isEmpty() ? area.Coordinates.isEmpty() : area.Coordinates == numbers);
    QCOMPARE(
        CoordinatesText(area).isEmpty(),
        area.Coordinates.isEmpty() && !tag.contains(QLatin1String("coords")));
}

void tst_pagemapupdates::mapTakesItsFieldsFromItsPicture()
{
    const ReturnedMap map =
        Opened("<img src='a&amp;b.png' width=200 height=100 alt=\"A &quot;plan&quot;\" border=2 hspace=3 "
               "align=left usemap=#m><map id=m><area href='?a&amp;b' target=t alt=T title='Say &lt;' "
               "data-x=1 ONCLICK='f()'></map>");
    QVERIFY(!map.form.has_value());
    QCOMPARE(map.mode, JSStatusBar);
    QCOMPARE(map.source.MapName, QStringLiteral("m"));
    QCOMPARE(map.source.PictureReference, QStringLiteral("a&b.png"));
    QCOMPARE(map.source.AltText, QStringLiteral("A \"plan\""));
    QCOMPARE(map.source.Width + map.source.Height, QStringLiteral("200100"));
    QCOMPARE(map.source.Border + map.source.HorizontalSpace, QStringLiteral("23"));
    QCOMPARE(map.coordinateSize, QSize(200, 100));
    const MapArea& area = map.source.Areas[0];
    QCOMPARE(area.Link, QStringLiteral("?a&b"));
    QCOMPARE(area.Target + area.Text, QStringLiteral("tT"));
    QCOMPARE(area.Message, QStringLiteral("Say <"));
    QCOMPARE(area.Attributes.size(), 6);
    QCOMPARE(area.Attributes.constLast(), (AreaAttribute{ "onclick", "f()", false }));
}

void tst_pagemapupdates::everyEditOfEveryPageChangesLittle_data()
{
    QTest::addColumn<QString>("path");
    for (const QString& path : PagePaths()) {
        QTest::newRow(qPrintable(path.section(u'/', -3))) << path;
    }
}

void tst_pagemapupdates::everyEditOfEveryPageChangesLittle()
{
    QFETCH(const QString, path);
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QString page = QString::fromLatin1(file.readAll());
    const PageMaps maps = ReadPageMaps(page);
    const std::vector<MapPlace> places = MapPlacesOf(page, maps);
    QCOMPARE(places.size(), maps.maps.size());
    for (std::size_t i = 0; i < places.size(); i += 1 + places.size() / 6) {
        const auto map = ReadMap(page, maps, places[i]);
        QVERIFY(map);
        const qsizetype areas = map->source.Areas.size();
        for (qsizetype area = 0; area < areas; area += 1 + areas / 4) {
            for (const Edit& edit : edits) {
                MapSource now = map->source;
                edit.edit(now, area);
                const auto update = UpdateMap(page, *map, map->mode, now, SomePage());
                const QByteArray what = path.toUtf8() + ", " + edit.name;
                QVERIFY2(update || MayHoldCode(page), what.constData());
                QVERIFY2(IsSameAlone(page, *map, now, SomePage(), update), what.constData());
                if (!update) {
                    continue;
                }
                QVERIFY2(update->changes.size() <= edit.mostChanges, what.constData());
                const QString changed = Replaced(page, update->changes);
                const auto read = ReadMap(changed, ReadPageMaps(changed), places[i]);
                QVERIFY2(read, what.constData());
                const auto same = UpdateMap(changed, update->after, map->mode, now, SomePage());
                QVERIFY2(same && same->changes.isEmpty(), what.constData());
                // What screen readers say of a new link, is written with it.
                if (qstrcmp(edit.name, "another") != 0) {
                    QVERIFY2(Bare(read->source.Areas) == Bare(now.Areas), what.constData());
                }
            }
        }
    }
}

void tst_pagemapupdates::onlyWhatWasChangedIsWritten_data()
{
    QTest::addColumn<QString>("tag");
    QTest::addColumn<QString>("changed");
    const auto row = [](const char* tag, const char* changed) {
        QTest::newRow(tag) << QString::fromLatin1(tag) << QString::fromLatin1(changed);
    };
    // The left side is moved by one pixel.
    row("<AREA COORDS=' 10.5, 20 ;030 40,' x>", "<AREA COORDS=' 12, 20 ;030 40,' x>");
    row("<area coords=10,20,30,40,50 alt>", "<area coords=11,20,30,40,50 alt>");
    row("<area shape=circle coords=\"10\n20\n30\"/>", "<area shape=circle coords=\"11\n20\n30\"/>");
    row("<area shape=poly coords=\"10,20 30,40 50,60\"/>", "<area shape=poly coords=\"11,20 30,40 50,60\"/>");
}

void tst_pagemapupdates::onlyWhatWasChangedIsWritten()
{
    QFETCH(const QString, tag);
    QFETCH(const QString, changed);
    const QString start = QStringLiteral("<map name=m>");
    QCOMPARE(Changed(start + tag, [](MapSource& now) { ++now.Areas[0].Coordinates[0]; }), start + changed);
}

void tst_pagemapupdates::coordinatesAreOfTheShownSize()
{
    const QString page =
        QStringLiteral("<img src=p width=200 height=50 usemap=#m><map name=m><area coords=10,10,21,20 "
                       "href=a><area shape=circle coords=50,20,10></map>");
    ReturnedMap map = *OnlyMap(page);
    QVERIFY(FitToPicture(map, { 400, 200 }));
    QCOMPARE(map.source.Areas[0].Coordinates, (QList<int>{ 20, 40, 42, 80 }));
    QCOMPARE(map.source.Areas[1].Coordinates, (QList<int>{ 100, 80, 20 }));
    const QSize picture(400, 200);
    QCOMPARE(
        Changed(
            page, [](MapSource&) {}, picture),
        page);
    const auto pull = [](MapSource& now) { now.Areas[0].Coordinates[2] = 101; };
    QCOMPARE(Changed(page, pull, picture), QString(page).replace("10,10,21,20", "10,10,51,20"));
    ReturnedMap own = *OnlyMap(page);
    QVERIFY(!FitToPicture(own, { 200, 50 }));
}

void tst_pagemapupdates::otherSizeScalesTheCoordinates()
{
    const QString page = QStringLiteral("<img src=p width=200 height=100 usemap=#m><map name=m><area "
                                        "coords=10,10,20,20></map>");
    const auto enlarge = [](MapSource& now) { now.Width = now.Height = QStringLiteral("400"); };
    QCOMPARE(
        Changed(page, enlarge, { 200, 100 }),
        QStringLiteral("<img src=p width=400 height=400 usemap=#m><map name=m><area "
                       "coords=20,40,40,80></map>"));
    // A picture of which the page says one side has the other in proportion.
    const QString half =
        QStringLiteral("<img width=200 usemap=#m><map name=m><area coords=10,10,20,20></map>");
    ReturnedMap map = *OnlyMap(half);
    QVERIFY(FitToPicture(map, { 400, 300 }));
    QCOMPARE(map.source.Height, QStringLiteral("150"));
    QCOMPARE(map.source.Areas[0].Coordinates, (QList<int>{ 20, 20, 40, 40 }));
    QCOMPARE(Changed(half, [](MapSource&) {}, { 400, 300 }), half);
}

void tst_pagemapupdates::fieldsGoIntoThePicturesTag()
{
    const QString page = QStringLiteral("<IMG SRC=p ALT='x' BORDER=0 USEMAP=#m><map name=m></map>");
    const auto change = [](MapSource& now) {
        now.AltText = QStringLiteral("a \"new\" one");
        now.Border.clear();
        now.Align = QStringLiteral("LEFT");
    };
    QCOMPARE(
        Changed(page, change),
        QStringLiteral("<IMG SRC=p ALT='a \"new\" one' USEMAP=#m ALIGN=LEFT><map name=m></map>"));
}

void tst_pagemapupdates::anotherNameReachesThePictureToo()
{
    const QString page =
        QStringLiteral("<img usemap='#m' alt=x><img usemap=#m><map id=m name=m><area></map>");
    const auto change = [](MapSource& now) {
        now.MapName = QStringLiteral("n");
        now.AltText = QStringLiteral("y");
    };
    QCOMPARE(
        Changed(page, change),
        QStringLiteral("<img usemap='#n' alt=y><img usemap=#n><map id=n name=n><area></map>"));
    QCOMPARE(
        Changed("<map id=m></map>", [](MapSource& now) { now.MapName = QStringLiteral("n"); }),
        QStringLiteral("<map id=n></map>"));
}

void tst_pagemapupdates::updatesFollowEachOther()
{
    QString page = QStringLiteral(
        "<p>x</p>\n<img src=p alt='x' usemap=#m>\n<map name=m>\n <area href=a alt=1>\n <area href=b "
        "alt=2>\n <area href=c alt=3>\n</map>\n<p>y</p>");
    const QString first = page;
    ReturnedMap map = *OnlyMap(page);
    const MapSource opened = map.source;
    MapSource now = opened;
    const auto update = [&] {
        const auto made = UpdateMap(page, map, map.mode, now, SomePage());
        QVERIFY(made);
        page = Replaced(page, made->changes);
        map = made->after;
        QCOMPARE(map.place, OnlyMap(page)->place);
        QCOMPARE(map.picture, OnlyMap(page)->picture);
    };
    now.Areas.removeAt(1);
    update();
    QCOMPARE(page, QString(first).remove(" <area href=b alt=2>\n"));
    now.Areas << OddArea(0, QStringLiteral("new"), JSDisabled);
    now.AltText = QStringLiteral("A longer text");
    update();
    QVERIFY(page.contains("p0.html?q=new"));
    now.Areas.last().Link = QStringLiteral("other.html");
    const QString before = page;
    update();
    QCOMPARE(page, QString(before).replace("p0.html?q=new", "other.html"));
    // All that is undone in the editor.
    now = opened;
    update();
    QCOMPARE(page, first);
}

void tst_pagemapupdates::modeThatNeedsAScriptIsRefused()
{
    const QString page = QStringLiteral("<map name=m><area href=a></map>");
    const ReturnedMap map = Opened(page);
    QVERIFY(UpdateMap(page, map, JSStatusBar, map.source, SomePage()));
    QVERIFY(!UpdateMap(page, map, JSTextArea, map.source, SomePage()));
}

QTEST_GUILESS_MAIN(tst_pagemapupdates)
#include "tst_pagemapupdates.moc"
