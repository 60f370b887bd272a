#include "imagemap/model/AreaArranging.h"
#include "imagemap/model/AreaConversion.h"
#include "imagemap/model/AreaFaults.h"
#include "imagemap/model/AreaGeometry.h"

#include <QTest>

namespace {

MapArea Rectangle(const QList<int>& numbers)
{
    return { AreaShape::Rectangle, numbers, "a.htm", {}, {} };
}

MapArea Circle(const QList<int>& numbers)
{
    return { AreaShape::Circle, numbers, "a.htm", {}, {} };
}

MapArea Polygon(const QList<int>& numbers)
{
    return { AreaShape::Polygon, numbers, "a.htm", {}, {} };
}

const MapArea box = Rectangle({ 10, 20, 110, 70 });
const MapArea disc = Circle({ 100, 100, 50 });
/** An arrow head: its last corner is pushed in. */
const MapArea head = Polygon({ 50, 0, 100, 100, 50, 60, 0, 100 });

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
    void shapesAreConverted();
    void aCircleComesBackFromItsPolygon();
    void aCirclesPolygonKeepsClose();
    void coordinatesAreReadInEveryForm_data();
    void coordinatesAreReadInEveryForm();
    void wrongCoordinatesAreTold_data();
    void wrongCoordinatesAreTold();
    void theOrderChanges();
    void areasAreLinedUp();
    void faultsAreTold();
    void coveredByTwoTogetherIsCovered();
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
    for (const MapArea& area : { Rectangle({ 0, 0, 10 }), Circle({ 5, 5 }), Circle({ 5, 5, -1 }),
                                 Polygon({ 0, 0, 9, 9 }), Polygon({}) }) {
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

void tst_areageometry::shapesAreConverted()
{
    QCOMPARE(Converted(box, AreaShape::Polygon).Coordinates, (QList{ 10, 20, 110, 20, 110, 70, 10, 70 }));
    QCOMPARE(Converted(box, AreaShape::Circle).Coordinates, (QList{ 60, 45, 25 }));
    QCOMPARE(Converted(head, AreaShape::Rectangle).Coordinates, (QList{ 0, 0, 100, 100 }));
    QCOMPARE(Converted(disc, AreaShape::Rectangle).Coordinates, (QList{ 50, 50, 150, 150 }));
    QCOMPARE(Converted(box, AreaShape::Polygon).Link, box.Link);
}

void tst_areageometry::aCircleComesBackFromItsPolygon()
{
    const MapArea polygon = Converted(disc, AreaShape::Polygon);
    QCOMPARE(polygon.Shape, AreaShape::Polygon);
    QCOMPARE(Converted(polygon, AreaShape::Circle).Coordinates, disc.Coordinates);
}

void tst_areageometry::aCirclesPolygonKeepsClose()
{
    for (const int radius : { 1, 7, 50, 400 }) {
        const MapArea circle = Circle({ 500, 500, radius });
        const QList<QPoint> corners = CornersOf(Converted(circle, AreaShape::Polygon));
        QVERIFY(corners.size() >= 8);
        for (const QPoint corner : corners) {
            const QPoint away = corner - QPoint(500, 500);
            QVERIFY(std::abs(std::hypot(away.x(), away.y()) - radius) < 1);
        }
    }
}

void tst_areageometry::coordinatesAreReadInEveryForm_data()
{
    QTest::addColumn<AreaShape>("shape");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QList<int>>("expected");

    QTest::newRow("as it is written")
        << AreaShape::Rectangle << "10, 20, 110, 70" << QList{ 10, 20, 110, 70 };
    QTest::newRow("no blanks") << AreaShape::Rectangle << "10,20,110,70" << QList{ 10, 20, 110, 70 };
    QTest::newRow("blanks alone") << AreaShape::Circle << " 10\t20\n5 " << QList{ 10, 20, 5 };
    QTest::newRow("semicolons") << AreaShape::Circle << "10;20;5" << QList{ 10, 20, 5 };
    QTest::newRow("decimals") << AreaShape::Circle << "9.6,20.4,4.5" << QList{ 10, 20, 5 };
    QTest::newRow("negative") << AreaShape::Polygon << "-5,0 10,0 10,+10" << QList{ -5, 0, 10, 0, 10, 10 };
    QTest::newRow("corners swapped") << AreaShape::Rectangle << "110,70,10,20" << QList{ 10, 20, 110, 70 };
    QTest::newRow("exponent") << AreaShape::Circle << "1e2,2E1,5" << QList{ 100, 20, 5 };
}

void tst_areageometry::coordinatesAreReadInEveryForm()
{
    QFETCH(const AreaShape, shape);
    QFETCH(const QString, text);
    const CoordinatesReading reading = ReadCoordinates(shape, text);
    QCOMPARE(reading.problem, QString());
    QTEST(reading.numbers, "expected");
}

void tst_areageometry::wrongCoordinatesAreTold_data()
{
    QTest::addColumn<AreaShape>("shape");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("problem");

    const QString four = QStringLiteral("A rectangle takes four numbers: left, top, right, bottom");
    QTest::newRow("nothing") << AreaShape::Rectangle << "" << four;
    QTest::newRow("one too few") << AreaShape::Rectangle << "1,2,3" << four;
    QTest::newRow("one too many") << AreaShape::Rectangle << "1,2,3,4,5" << four;
    QTest::newRow("a word") << AreaShape::Circle << "1,two,3"
                            << "\"two\" is no number";
    QTest::newRow("per cent") << AreaShape::Circle << "10%,2,3"
                              << "\"10%\" is no number";
    QTest::newRow("infinite") << AreaShape::Circle << "inf,2,3"
                              << "\"inf\" is no number";
    QTest::newRow("far away") << AreaShape::Circle << "1e30,2,3"
                              << "1e30 lies too far away";
    QTest::newRow("no radius") << AreaShape::Circle << "1,2,0"
                               << "A radius is 1 at least";
    QTest::newRow("half a corner") << AreaShape::Polygon << "1,2,3,4,5,6,7"
                                   << "The last corner lacks its second number";
    QTest::newRow("two corners") << AreaShape::Polygon << "1,2,3,4"
                                 << "A polygon takes three corners at least";
}

void tst_areageometry::wrongCoordinatesAreTold()
{
    QFETCH(const AreaShape, shape);
    QFETCH(const QString, text);
    QTEST(ReadCoordinates(shape, text).problem, "problem");
}

void tst_areageometry::theOrderChanges()
{
    MapAreas areas;
    for (int i = 0; i < 5; ++i) {
        areas << Rectangle({ i, 0, i + 1, 1 });
    }
    const auto order = [](const ArrangedAreas& arranged) {
        QList<int> firsts;
        for (const MapArea& area : arranged.areas) {
            firsts << area.Coordinates[0];
        }
        return firsts;
    };
    QCOMPARE(order(Reordered(areas, { 2, 3 }, OrderChange::Up)), (QList{ 0, 2, 3, 1, 4 }));
    QCOMPARE(Reordered(areas, { 2, 3 }, OrderChange::Up).moved, (AreaNumbers{ 1, 2 }));
    QCOMPARE(order(Reordered(areas, { 0, 2 }, OrderChange::Up)), (QList{ 0, 2, 1, 3, 4 }));
    QCOMPARE(order(Reordered(areas, { 0, 1 }, OrderChange::Up)), (QList{ 0, 1, 2, 3, 4 }));
    QCOMPARE(order(Reordered(areas, { 1, 4 }, OrderChange::Down)), (QList{ 0, 2, 1, 3, 4 }));
    QCOMPARE(order(Reordered(areas, { 1, 3 }, OrderChange::InFront)), (QList{ 1, 3, 0, 2, 4 }));
    QCOMPARE(Reordered(areas, { 1, 3 }, OrderChange::Behind).moved, (AreaNumbers{ 3, 4 }));
    QCOMPARE(order(Reordered(areas, { 1, 3 }, OrderChange::Behind)), (QList{ 0, 2, 4, 1, 3 }));
}

void tst_areageometry::areasAreLinedUp()
{
    const MapAreas areas = { box, disc, head };
    const AreaNumbers all = { 0, 1, 2 };
    QCOMPARE(BoundsOf(Aligned(areas, all, Alignment::Left)[1]).left(), 10);
    QCOMPARE(BoundsOf(Aligned(areas, all, Alignment::Right)[2]).right(), 110);
    QCOMPARE(BoundsOf(Aligned(areas, all, Alignment::Top)[1]).top(), 20);
    QCOMPARE(BoundsOf(Aligned(areas, all, Alignment::Bottom)[2]).bottom(), 70);
    QCOMPARE(Aligned(areas, all, Alignment::Centre)[1].Coordinates, (QList{ 60, 100, 50 }));
    QCOMPARE(Aligned(areas, all, Alignment::Middle)[1].Coordinates, (QList{ 100, 45, 50 }));
    QCOMPARE(BoundsOf(Aligned(areas, all, Alignment::SameHeight)[2]).height(), BoundsOf(box).height());
    QCOMPARE(BoundsOf(Aligned(areas, all, Alignment::SameSize)[2]).size(), BoundsOf(box).size());
    QCOMPARE(Aligned(areas, all, Alignment::SameSize)[1].Coordinates, (QList{ 100, 100, 25 }));
    QCOMPARE(Aligned(areas, all, Alignment::SameWidth)[0], box);
    QCOMPARE(Aligned(areas, {}, Alignment::Left), areas);
}

void tst_areageometry::faultsAreTold()
{
    const QSize picture(400, 300);
    QVERIFY(FaultsOf({ box, disc, head }, 1, picture).isEmpty());
    QCOMPARE(
        FaultsOf({ box, Rectangle({ 20, 30, 90, 60 }) }, 1, picture),
        QStringList{ "Areas above cover all of this one" });
    QVERIFY(FaultsOf({ Rectangle({ 20, 30, 90, 60 }), box }, 1, picture).isEmpty());
    QCOMPARE(
        FaultsOf({ Rectangle({ 500, 30, 590, 60 }) }, 0, picture),
        QStringList{ "This area lies outside of the picture" });
    MapArea linkless = disc;
    linkless.Link.clear();
    QCOMPARE(FaultsOf({ linkless }, 0, picture), QStringList{ "This area has no link" });
    QCOMPARE(
        FaultsOf({ Circle({ 100, 100, 10 }) }, 0, picture),
        QStringList{ "This area is smaller than 24 pixels, which is hard to hit" });
    QVERIFY(FaultsOf({ Rectangle({ 0, 0, 23, 23 }) }, 0, picture).isEmpty());
}

void tst_areageometry::coveredByTwoTogetherIsCovered()
{
    const MapArea left = Rectangle({ 0, 0, 60, 100 });
    const MapArea right = Rectangle({ 61, 0, 200, 100 });
    const QSize picture(400, 300);
    QCOMPARE(FaultsOf({ left, right, box }, 2, picture).size(), 1);
    QVERIFY(FaultsOf({ left, Rectangle({ 62, 0, 200, 100 }), box }, 2, picture).isEmpty());
    QCOMPARE(FaultsOf({ Converted(left, AreaShape::Polygon), right, box }, 2, picture).size(), 1);
}

QTEST_GUILESS_MAIN(tst_areageometry)
#include "tst_areageometry.moc"
