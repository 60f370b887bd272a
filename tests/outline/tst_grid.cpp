#include "outline/Grid.h"

#include "imagemap/model/AreaGeometry.h"

#include <QTest>

namespace {

QList<QList<int>> Places(const MapAreas& areas)
{
    QList<QList<int>> places;
    for (const MapArea& area : areas) {
        places << area.Coordinates;
    }
    return places;
}

} // namespace

/** How a rectangle is divided into cells. */
class tst_grid : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cellsFollowRowByRow();
    void theRoomOfAPictureGoesUpToItsSize();
    void gapsAndMarginsAreExact();
    void whatDoesNotDivideIsSpread();
    void withoutRoomThereAreNoCells_data();
    void withoutRoomThereAreNoCells();
    void cellsAreRectanglesWithoutLinks();
};

void tst_grid::cellsFollowRowByRow()
{
    const GridPlan plan{ .Rows = 2, .Columns = 2, .GapX = 0, .GapY = 0, .Margins = {} };
    QCOMPARE(
        Places(GridAreas(plan, QRect(QPoint(10, 20), QPoint(50, 40)))),
        (QList<QList<int>>{
            { 10, 20, 30, 30 }, { 30, 20, 50, 30 }, { 10, 30, 30, 40 }, { 30, 30, 50, 40 } }));
}

void tst_grid::theRoomOfAPictureGoesUpToItsSize()
{
    const GridPlan one{ .Rows = 1, .Columns = 1, .GapX = 5, .GapY = 5, .Margins = {} };
    QCOMPARE(Places(GridAreas(one, RoomOf({ 300, 200 }))), (QList<QList<int>>{ { 0, 0, 300, 200 } }));
}

void tst_grid::gapsAndMarginsAreExact()
{
    const GridPlan plan{ .Rows = 1, .Columns = 3, .GapX = 10, .GapY = 7, .Margins = { 5, 6, 15, 16 } };
    QCOMPARE(
        Places(GridAreas(plan, RoomOf({ 130, 100 }))),
        (QList<QList<int>>{ { 5, 6, 35, 84 }, { 45, 6, 75, 84 }, { 85, 6, 115, 84 } }));
}

void tst_grid::whatDoesNotDivideIsSpread()
{
    const GridPlan plan{ .Rows = 7, .Columns = 13, .GapX = 3, .GapY = 2, .Margins = { 1, 2, 3, 4 } };
    const MapAreas areas = GridAreas(plan, RoomOf({ 1000, 777 }));
    QCOMPARE(areas.size(), qsizetype(7 * 13));
    QCOMPARE(areas.constFirst().Coordinates.first(2), (QList<int>{ 1, 2 }));
    QCOMPARE(areas.constLast().Coordinates.sliced(2), (QList<int>{ 997, 773 }));
    int least = 1000;
    int most = 0;
    for (qsizetype i = 0; i < areas.size(); ++i) {
        const QList<int>& place = areas[i].Coordinates;
        least = std::min(least, place[2] - place[0]);
        most = std::max(most, place[2] - place[0]);
        if (i % 13 > 0) {
            QCOMPARE(place[0] - areas[i - 1].Coordinates[2], 3);
        }
        if (i >= 13) {
            QCOMPARE(place[1] - areas[i - 13].Coordinates[3], 2);
        }
    }
    QVERIFY(most - least <= 1);
}

void tst_grid::withoutRoomThereAreNoCells_data()
{
    QTest::addColumn<GridPlan>("plan");
    QTest::addColumn<QSize>("picture");
    const QSize small(20, 20);
    QTest::newRow("cells thinner than a pixel") << GridPlan{ 1, 21, 0, 0, {} } << small;
    QTest::newRow("gaps take it all") << GridPlan{ 1, 3, 10, 0, {} } << small;
    QTest::newRow("margins take it all") << GridPlan{ 1, 1, 0, 0, { 10, 0, 10, 0 } } << small;
    QTest::newRow("margins beyond each other") << GridPlan{ 1, 1, 0, 9, { 0, 300, 0, 300 } } << small;
    QTest::newRow("the widest") << GridPlan{ 100,
                                             100,
                                             GridPlan::widestGap,
                                             GridPlan::widestGap,
                                             { GridPlan::widestGap, GridPlan::widestGap, GridPlan::widestGap,
                                               GridPlan::widestGap } }
                                << small;
    QTest::newRow("no picture") << GridPlan{ 1, 1, 0, 0, {} } << QSize(0, 0);
}

void tst_grid::withoutRoomThereAreNoCells()
{
    QFETCH(const GridPlan, plan);
    QFETCH(const QSize, picture);
    QCOMPARE(GridAreas(plan, RoomOf(picture)), MapAreas());
}

void tst_grid::cellsAreRectanglesWithoutLinks()
{
    for (const MapArea& area : GridAreas({}, RoomOf({ 90, 90 }))) {
        QCOMPARE(area.Shape, AreaShape::Rectangle);
        QVERIFY(IsWhole(area));
        QVERIFY(area.Link.isEmpty());
    }
}

QTEST_GUILESS_MAIN(tst_grid)

#include "tst_grid.moc"
