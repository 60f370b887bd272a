#include "outline/ContourThinning.h"
#include "outline/ShapeAreas.h"

#include "imagemap/model/AreaGeometry.h"
#include "tests/outline/ContourChecks.h"

#include <QRandomGenerator>
#include <QTest>
#include <QTransform>
#include <cmath>

namespace {

constexpr QRectF wholePicture(0, 0, 400, 300);

MapArea OnlyAreaOf(const QPainterPath& path)
{
    const QList<QPolygonF> outlines = OutlinesOf(path, wholePicture).Outer;
    return outlines.size() == 1 ? AreaOfOutline(outlines.constFirst()) : MapArea();
}

QPainterPath Rectangle(const QRectF& place)
{
    QPainterPath path;
    path.addRect(place);
    return path;
}

/** A place at so many pixels from the middle of the picture, after so many turns. */
QPointF Around(double radius, double turns)
{
    const double angle = 2 * M_PI * turns;
    return { 200 + radius * std::cos(angle), 150 + radius * std::sin(angle) };
}

Contour ContourIn(const QPolygonF& outline)
{
    const QPolygon whole = outline.toPolygon();
    return { whole.begin(), whole.end() };
}

} // namespace

/** Outlines as areas of a map. */
class tst_shapeareas : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rectanglesStayRectangles_data();
    void rectanglesStayRectangles();
    void circlesStayCircles();
    void otherOutlinesArePolygons_data();
    void otherOutlinesArePolygons();
    void curvesAreMetToThePrecision();
    void manyCornersGiveWay();
    void polygonsDoNotCrossThemselves_data();
    void polygonsDoNotCrossThemselves();
    void outlinesThatCrossThemselvesStayWhatTheyAre();
    void whatIsBeyondThePictureIsCutOff();
    void holesBelongToTheArea();
    void whatIsTooSmallIsLeftOut();
    void linesThatMeetThemselvesAreTold();
};

void tst_shapeareas::rectanglesStayRectangles_data()
{
    QTest::addColumn<QPainterPath>("path");
    QTest::addColumn<QList<int>>("place");
    QPainterPath rounded;
    rounded.addRoundedRect(QRectF(10, 20, 50, 30), 1, 1);
    QPainterPath corners;
    corners.addPolygon(QPolygonF({ { 10, 20 }, { 10, 50 }, { 60, 50 }, { 60, 20 } }));
    QTest::newRow("rectangle") << Rectangle({ 10, 20, 50, 30 }) << QList<int>{ 10, 20, 60, 50 };
    QTest::newRow("between pixels") << Rectangle({ 10.4, 19.6, 50.2, 30 }) << QList<int>{ 10, 20, 61, 50 };
    QTest::newRow("by its corners") << corners << QList<int>{ 10, 20, 60, 50 };
    QTest::newRow("hardly rounded") << rounded << QList<int>{ 10, 20, 60, 50 };
    QTest::newRow("a pixel") << Rectangle({ 5, 5, 1, 1 }) << QList<int>{ 5, 5, 6, 6 };
}

void tst_shapeareas::rectanglesStayRectangles()
{
    QFETCH(const QPainterPath, path);
    const MapArea area = OnlyAreaOf(path);
    QCOMPARE(area.Shape, AreaShape::Rectangle);
    QTEST(area.Coordinates, "place");
}

void tst_shapeareas::circlesStayCircles()
{
    for (const double radius : { 5.0, 12.3, 100.0 }) {
        QPainterPath path;
        path.addEllipse(QPointF(150.2, 140), radius, radius);
        const MapArea area = OnlyAreaOf(path);
        QCOMPARE(area.Shape, AreaShape::Circle);
        QCOMPARE(area.Coordinates, (QList<int>{ 150, 140, int(std::lround(radius)) }));
    }
}

void tst_shapeareas::otherOutlinesArePolygons_data()
{
    QTest::addColumn<QPainterPath>("path");
    QPainterPath ellipse;
    ellipse.addEllipse(QPointF(150, 140), 50, 40);
    QPainterPath rounded;
    rounded.addRoundedRect(QRectF(10, 20, 50, 30), 8, 8);
    QPainterPath diamond;
    diamond.addPolygon(QPolygonF({ { 20, 0 }, { 40, 20 }, { 20, 40 }, { 0, 20 } }));
    QPainterPath angle;
    angle.addPolygon(QPolygonF({ { 0, 0 }, { 40, 0 }, { 40, 10 }, { 10, 10 }, { 10, 40 }, { 0, 40 } }));
    QPainterPath half;
    half.moveTo(100, 100);
    half.arcTo(QRectF(50, 50, 100, 100), 0, 180);
    QTest::newRow("ellipse") << ellipse;
    QTest::newRow("rounded") << rounded;
    QTest::newRow("diamond") << diamond;
    QTest::newRow("angle along the sides") << angle;
    QTest::newRow("half a circle") << half;
}

void tst_shapeareas::otherOutlinesArePolygons()
{
    QFETCH(const QPainterPath, path);
    const MapArea area = OnlyAreaOf(path);
    QCOMPARE(area.Shape, AreaShape::Polygon);
    QVERIFY(IsWhole(area));
}

void tst_shapeareas::curvesAreMetToThePrecision()
{
    QPainterPath path;
    path.addEllipse(QPointF(200, 150), 180, 120);
    const MapArea area = OnlyAreaOf(path);
    const QList<QPoint> corners = CornersOf(area);
    QVERIFY(corners.size() > 20);
    QVERIFY(corners.size() < 120);
    for (qsizetype i = 0; i < corners.size(); ++i) {
        const QPointF middle = QPointF(corners[i] + corners[(i + 1) % corners.size()]) / 2;
        // How far it is off the ellipse, along the line from its middle.
        const QPointF off = middle - QPointF(200, 150);
        const double share = std::hypot(off.x() / 180, off.y() / 120);
        QVERIFY(std::hypot(off.x(), off.y()) * std::abs(1 - 1 / share) < 1.5);
    }
}

void tst_shapeareas::manyCornersGiveWay()
{
    QPolygonF star;
    constexpr int spikes = 20'000;
    for (int i = 0; i < spikes; ++i) {
        const double angle = 2 * M_PI * i / spikes;
        const double radius = i % 2 == 0 ? 140 : 90 + i % 40;
        star << QPointF(200 + radius * std::cos(angle), 150 + radius * std::sin(angle));
    }
    QPainterPath path;
    path.addPolygon(star);
    const MapArea area = OnlyAreaOf(path);
    QCOMPARE(area.Shape, AreaShape::Polygon);
    QVERIFY(CornersOf(area).size() <= mostCorners);
    QVERIFY(CornersOf(area).size() >= leastCorners);
}

void tst_shapeareas::polygonsDoNotCrossThemselves_data()
{
    QTest::addColumn<QPolygonF>("outline");
    // A band that is wound up, a few pixels wide and its edges a little rough.
    QPolygonF band;
    constexpr int places = 1000;
    constexpr double turns = 14;
    for (int i = 0; i < 2 * places; ++i) {
        const int place = i < places ? i : 2 * places - 1 - i;
        const double roughness = i * 7 % 9 / 15.0;
        const double radius = 10 + 130.0 * place / places + (i < places ? 0 : 4.6) + roughness;
        band << Around(radius, turns * place / places);
    }
    QTest::newRow("band of many corners") << band;
    QPolygonF waves;
    for (int i = 0; i < 506; ++i) {
        waves << Around(84.6 + 35.4 * std::sin(39 * 2 * M_PI * i / 506), i / 506.0);
    }
    QTest::newRow("waves") << waves;
}

void tst_shapeareas::polygonsDoNotCrossThemselves()
{
    QFETCH(const QPolygonF, outline);
    constexpr double parts = 64;
    QVERIFY(IsSimple(ContourIn(QTransform::fromScale(parts, parts).map(outline))));
    QPainterPath path;
    path.addPolygon(outline);
    const MapArea area = OnlyAreaOf(path);
    QCOMPARE(area.Shape, AreaShape::Polygon);
    const QList<QPoint> corners = CornersOf(area);
    const Contour contour(corners.begin(), corners.end());
    QVERIFY(IsSimple(contour));
    const double share = ShareOf(contour, ContourIn(outline));
    QVERIFY2(share > 0.7, qPrintable(QString::number(share)));
}

void tst_shapeareas::outlinesThatCrossThemselvesStayWhatTheyAre()
{
    const QPolygonF star({ { 100, 10 }, { 150, 160 }, { 20, 60 }, { 180, 60 }, { 50, 160 } });
    QPainterPath path;
    path.addPolygon(star);
    QCOMPARE(CornersOf(OnlyAreaOf(path)), star.toPolygon().toList());
}

void tst_shapeareas::whatIsBeyondThePictureIsCutOff()
{
    QCOMPARE(OnlyAreaOf(Rectangle({ -50, -60, 100, 100 })).Coordinates, (QList<int>{ 0, 0, 50, 40 }));
    QCOMPARE(OnlyAreaOf(Rectangle({ -1e8, -1e8, 2e8, 2e8 })).Coordinates, (QList<int>{ 0, 0, 400, 300 }));
    QVERIFY(OutlinesOf(Rectangle({ 400, 0, 50, 50 }), wholePicture).Outer.isEmpty());
    QVERIFY(OutlinesOf(Rectangle({ -60, -60, 50, 50 }), wholePicture).Outer.isEmpty());
    QPainterPath triangle;
    triangle.addPolygon(QPolygonF({ { 350, 100 }, { 450, 150 }, { 350, 200 } }));
    QCOMPARE(
        CornersOf(OnlyAreaOf(triangle)),
        (QList<QPoint>{ { 350, 100 }, { 400, 125 }, { 400, 175 }, { 350, 200 } }));
}

void tst_shapeareas::holesBelongToTheArea()
{
    QPainterPath ring = Rectangle({ 10, 10, 100, 100 });
    ring.addRect({ 30, 30, 20, 20 });
    QCOMPARE(OutlinesOf(ring, wholePicture).Outer.size(), 1);
    QCOMPARE(OutlinesOf(ring, wholePicture).Holes, (QList<QRectF>{ { 30, 30, 20, 20 } }));
    QPainterPath islands = Rectangle({ 10, 10, 100, 100 });
    islands.addRect({ 200, 30, 20, 20 });
    QCOMPARE(OutlinesOf(islands, wholePicture).Outer.size(), 2);
}

void tst_shapeareas::whatIsTooSmallIsLeftOut()
{
    QVERIFY(OutlinesOf(Rectangle({ 10, 10, 0.5, 0.5 }), wholePicture).Outer.isEmpty());
    QPainterPath line;
    line.moveTo(10, 10);
    line.lineTo(100, 100);
    QVERIFY(OutlinesOf(line, wholePicture).Outer.isEmpty());
    QVERIFY(OutlinesOf({}, wholePicture).Outer.isEmpty());
    // Longer than a pixel is wide, but thinner: nothing is left between whole pixels.
    const QList<QPolygonF> thin = OutlinesOf(Rectangle({ 10, 10.1, 100, 0.2 }), wholePicture).Outer;
    QCOMPARE(thin.size(), 1);
    QVERIFY(!IsWhole(AreaOfOutline(thin.constFirst())));
}

void tst_shapeareas::linesThatMeetThemselvesAreTold()
{
    QRandomGenerator random(5);
    int apart = 0;
    constexpr int rounds = 20'000;
    for (int round = 0; round < rounds; ++round) {
        Contour line;
        for (int i = random.bounded(1, 8); i > 0; --i) {
            line.emplace_back(random.bounded(6), random.bounded(6));
        }
        QCOMPARE(KeepsOffItself(line), IsSimple(line));
        apart += KeepsOffItself(line) ? 1 : 0;
    }
    QVERIFY(apart > rounds / 20 && apart < rounds / 2);
}

QTEST_GUILESS_MAIN(tst_shapeareas)

#include "tst_shapeareas.moc"
