#include "outline/ContourThinning.h"
#include "outline/ShapeAreas.h"

#include "imagemap/model/AreaGeometry.h"

#include <QTest>
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
    void whatIsBeyondThePictureIsCutOff();
    void holesBelongToTheArea();
    void whatIsTooSmallIsLeftOut();
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

QTEST_GUILESS_MAIN(tst_shapeareas)

#include "tst_shapeareas.moc"
