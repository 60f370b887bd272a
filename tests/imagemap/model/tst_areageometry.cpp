#include "SampleAreas.h"
#include "imagemap/model/AreaConversion.h"
#include "imagemap/model/AreaGeometry.h"

#include <QTest>

namespace {

AreaHandle HandleOf(const MapArea& area, HandleKind kind, int index)
{
    for (const AreaHandle& handle : HandlesOf(area)) {
        if (handle.kind == kind && handle.index == index) {
            return handle;
        }
    }
    qFatal("no such handle");
}

} // namespace

/** Where areas lie, and how they are moved and reshaped. */
class tst_areageometry : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aClickHitsWhatItWouldInABrowser_data();
    void aClickHitsWhatItWouldInABrowser();
    void anAreaWithoutItsNumbersIsNowhere();
    void theFirstAreaIsTopmost();
    void shapesHaveTheirHandles();
    void aCornerIsPulledInEveryDirection_data();
    void aCornerIsPulledInEveryDirection();
    void aSideIsPulledAcrossTheOther();
    void proportionsAreKept();
    void aRimSetsTheRadius();
    void aVertexMovesAndAMiddleBecomesOne();
    void cornersGoUntilThreeAreLeft();
    void aStepStaysWithinThePicture_data();
    void aStepStaysWithinThePicture();
    void shapesAreMoved();
    void shapesAreResizedToAPixelAtLeast();
};

void tst_areageometry::aClickHitsWhatItWouldInABrowser_data()
{
    QTest::addColumn<MapArea>("area");
    QTest::addColumn<QPoint>("place");
    QTest::addColumn<bool>("isHit");

    QTest::newRow("rectangle, top left") << box << QPoint(10, 20) << true;
    QTest::newRow("rectangle, bottom right") << box << QPoint(110, 70) << true;
    QTest::newRow("rectangle, left of it") << box << QPoint(9, 40) << false;
    QTest::newRow("rectangle, right of it") << box << QPoint(111, 40) << false;
    QTest::newRow("rectangle, above") << box << QPoint(50, 19) << false;
    QTest::newRow("rectangle, below") << box << QPoint(50, 71) << false;
    QTest::newRow("rectangle, corners swapped") << Rectangle({ 110, 70, 10, 20 }) << QPoint(50, 40) << true;
    QTest::newRow("circle, its right end") << disc << QPoint(150, 100) << true;
    QTest::newRow("circle, its top end") << disc << QPoint(100, 50) << true;
    QTest::newRow("circle, beyond its left end") << disc << QPoint(49, 100) << false;
    QTest::newRow("circle, in its box's corner") << disc << QPoint(140, 140) << false;
    QTest::newRow("polygon, inside") << head << QPoint(50, 30) << true;
    QTest::newRow("polygon, in its notch") << head << QPoint(50, 80) << false;
    QTest::newRow("polygon, on its notch") << head << QPoint(50, 60) << true;
    QTest::newRow("polygon, a wing") << head << QPoint(90, 90) << true;
    QTest::newRow("polygon, at a corner's height beside it") << head << QPoint(10, 60) << false;
    QTest::newRow("polygon, on its closing side") << head << QPoint(25, 50) << true;
    const MapArea crossed = Polygon({ 0, 0, 90, 0, 90, 60, 30, 60, 30, 30, 60, 30, 60, 90, 0, 90 });
    QTest::newRow("polygon over itself, crossed twice") << crossed << QPoint(45, 45) << false;
    QTest::newRow("polygon over itself, crossed once") << crossed << QPoint(80, 40) << true;
    QTest::newRow("beyond 16 bits") << Circle({ 90000, 90000, 40000 }) << QPoint(60000, 70000) << true;
}

void tst_areageometry::aClickHitsWhatItWouldInABrowser()
{
    QFETCH(const MapArea, area);
    QFETCH(const QPoint, place);
    QTEST(Contains(area, place), "isHit");
}

void tst_areageometry::anAreaWithoutItsNumbersIsNowhere()
{
    for (const MapArea& area :
         { Rectangle({ 0, 0, 10 }), Circle({ 5, 5 }), Circle({ 5, 5, -1 }), Polygon({ 0, 0, 9, 9 }),
           Polygon({}), MapArea{ AreaShape::Default, {}, "rest.html", "", "" } }) {
        QVERIFY(!Contains(area, { 5, 5 }));
        QVERIFY(HandlesOf(area).isEmpty());
        QCOMPARE(Resized(area, { 3, 3 }), area);
        QCOMPARE(Converted(area, AreaShape::Rectangle), area);
    }
}

void tst_areageometry::theFirstAreaIsTopmost()
{
    const MapAreas areas = { head, box, disc };
    QCOMPARE(AreasAt(areas, { 60, 60 }), (QList<qsizetype>{ 0, 1 }));
    QCOMPARE(AreasAt(areas, { 100, 65 }), (QList<qsizetype>{ 1, 2 }));
    QVERIFY(AreasAt(areas, { 300, 300 }).isEmpty());
}

void tst_areageometry::shapesHaveTheirHandles()
{
    QCOMPARE(HandlesOf(box).size(), 8);
    QCOMPARE(HandleOf(box, HandleKind::Corner, 2).place, QPoint(110, 70));
    QCOMPARE(HandleOf(box, HandleKind::Side, 3).place, QPoint(10, 45));
    QCOMPARE(HandlesOf(disc).size(), 4);
    QCOMPARE(HandleOf(disc, HandleKind::Rim, 1).place, QPoint(100, 150));
    QCOMPARE(HandlesOf(head).size(), 8);
    QCOMPARE(HandleOf(head, HandleKind::Vertex, 2).place, QPoint(50, 60));
    QCOMPARE(HandleOf(head, HandleKind::Middle, 3).place, QPoint(25, 50));
}

void tst_areageometry::aCornerIsPulledInEveryDirection_data()
{
    QTest::addColumn<int>("corner");
    QTest::addColumn<QPoint>("to");
    QTest::addColumn<QList<int>>("expected");

    QTest::newRow("top left, out") << 0 << QPoint(5, 6) << QList{ 5, 6, 110, 70 };
    QTest::newRow("top right, in") << 1 << QPoint(100, 30) << QList{ 10, 30, 100, 70 };
    QTest::newRow("bottom right, out") << 2 << QPoint(200, 90) << QList{ 10, 20, 200, 90 };
    QTest::newRow("bottom left, in") << 3 << QPoint(30, 60) << QList{ 30, 20, 110, 60 };
    QTest::newRow("turned over") << 2 << QPoint(2, 3) << QList{ 2, 3, 10, 20 };
}

void tst_areageometry::aCornerIsPulledInEveryDirection()
{
    QFETCH(const int, corner);
    QFETCH(const QPoint, to);
    QTEST(Reshaped(box, HandleOf(box, HandleKind::Corner, corner), to).Coordinates, "expected");
}

void tst_areageometry::aSideIsPulledAcrossTheOther()
{
    QCOMPARE(
        Reshaped(box, HandleOf(box, HandleKind::Side, 0), { 50, 5 }).Coordinates, (QList{ 10, 5, 110, 70 }));
    QCOMPARE(
        Reshaped(box, HandleOf(box, HandleKind::Side, 1), { 150, 5 }).Coordinates,
        (QList{ 10, 20, 150, 70 }));
    QCOMPARE(
        Reshaped(box, HandleOf(box, HandleKind::Side, 2), { 50, 10 }).Coordinates,
        (QList{ 10, 10, 110, 20 }));
    QCOMPARE(
        Reshaped(box, HandleOf(box, HandleKind::Side, 3), { 120, 5 }).Coordinates,
        (QList{ 110, 20, 120, 70 }));
}

void tst_areageometry::proportionsAreKept()
{
    const AreaHandle corner = HandleOf(box, HandleKind::Corner, 2);
    QCOMPARE(Reshaped(box, corner, { 210, 30 }, true).Coordinates, (QList{ 10, 20, 210, 120 }));
    QCOMPARE(Reshaped(box, corner, { 20, 120 }, true).Coordinates, (QList{ 10, 20, 210, 120 }));
    QCOMPARE(Reshaped(box, corner, { -40, 10 }, true).Coordinates, (QList{ -40, -5, 10, 20 }));
}

void tst_areageometry::aRimSetsTheRadius()
{
    const AreaHandle rim = HandleOf(disc, HandleKind::Rim, 0);
    QCOMPARE(Reshaped(disc, rim, { 103, 104 }).Coordinates, (QList{ 100, 100, 5 }));
    QCOMPARE(Reshaped(disc, rim, { 100, 100 }).Coordinates, (QList{ 100, 100, 1 }));
}

void tst_areageometry::aVertexMovesAndAMiddleBecomesOne()
{
    QCOMPARE(
        Reshaped(head, HandleOf(head, HandleKind::Vertex, 0), { 55, 5 }).Coordinates,
        (QList{ 55, 5, 100, 100, 50, 60, 0, 100 }));
    QCOMPARE(
        Reshaped(head, HandleOf(head, HandleKind::Middle, 3), { 20, 40 }).Coordinates,
        (QList{ 50, 0, 100, 100, 50, 60, 0, 100, 20, 40 }));
}

void tst_areageometry::cornersGoUntilThreeAreLeft()
{
    const MapArea three = WithoutCorner(head, 2);
    QCOMPARE(three.Coordinates, (QList{ 50, 0, 100, 100, 0, 100 }));
    QCOMPARE(WithoutCorner(three, 0), three);
    QCOMPARE(WithoutCorner(head, 4), head);
    QCOMPARE(WithoutCorner(box, 0), box);
}

void tst_areageometry::aStepStaysWithinThePicture_data()
{
    QTest::addColumn<QRect>("bounds");
    QTest::addColumn<QPoint>("by");
    QTest::addColumn<QPoint>("expected");

    const QRect inside(QPoint(10, 20), QPoint(110, 70));
    QTest::newRow("free") << inside << QPoint(5, -6) << QPoint(5, -6);
    QTest::newRow("left") << inside << QPoint(-30, 0) << QPoint(-10, 0);
    QTest::newRow("up") << inside << QPoint(0, -30) << QPoint(0, -20);
    QTest::newRow("right") << inside << QPoint(500, 0) << QPoint(290, 0);
    QTest::newRow("down") << inside << QPoint(0, 500) << QPoint(0, 230);
    const QRect outside(QPoint(-20, 20), QPoint(80, 320));
    QTest::newRow("no further out") << outside << QPoint(-5, 5) << QPoint(0, 0);
    QTest::newRow("back in") << outside << QPoint(30, -15) << QPoint(30, -15);
}

void tst_areageometry::aStepStaysWithinThePicture()
{
    QFETCH(const QRect, bounds);
    QFETCH(const QPoint, by);
    QTEST(StepWithin(bounds, by, { 400, 300 }), "expected");
}

void tst_areageometry::shapesAreMoved()
{
    QCOMPARE(Moved(box, { 3, -4 }).Coordinates, (QList{ 13, 16, 113, 66 }));
    QCOMPARE(Moved(disc, { 3, -4 }).Coordinates, (QList{ 103, 96, 50 }));
    QCOMPARE(Moved(head, { 1, 2 }).Coordinates, (QList{ 51, 2, 101, 102, 51, 62, 1, 102 }));
    QCOMPARE(Moved(box, { 2 * coordinateLimit, 0 }).Coordinates[0], coordinateLimit);
}

void tst_areageometry::shapesAreResizedToAPixelAtLeast()
{
    QCOMPARE(Resized(box, { 5, -5 }).Coordinates, (QList{ 10, 20, 115, 65 }));
    QCOMPARE(Resized(box, { -500, -500 }).Coordinates, (QList{ 10, 20, 11, 21 }));
    QCOMPARE(Resized(disc, { -500, 0 }).Coordinates, (QList{ 100, 100, 1 }));
    QCOMPARE(Resized(head, { 100, 0 }).Coordinates, (QList{ 100, 0, 200, 100, 100, 60, 0, 100 }));
}

QTEST_GUILESS_MAIN(tst_areageometry)
#include "tst_areageometry.moc"
