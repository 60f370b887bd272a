#include "codegen/PaintingOrder.h"

#include <QTest>

Q_DECLARE_METATYPE(MapArea)

namespace {

MapArea Shape(AreaShape shape, const QList<int>& numbers)
{
    return { .Shape = shape, .Coordinates = numbers, .Link = {}, .Target = {}, .Message = {} };
}

MapArea Rectangle(int left, int top, int right, int bottom)
{
    return Shape(AreaShape::Rectangle, { left, top, right, bottom });
}

MapArea Circle(int x, int y, int radius)
{
    return Shape(AreaShape::Circle, { x, y, radius });
}

MapArea Polygon(const QList<int>& numbers)
{
    return Shape(AreaShape::Polygon, numbers);
}

} // namespace

class tst_paintingorder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void overlapIsMoreThanABorder_data();
    void overlapIsMoreThanABorder();
    void areasApartKeepTheirOrder();
    void upperOfTwoIsPaintedLater();
    void onlyThoseThatOverlapChangePlaces();
    void everyAreaIsPaintedOnce();
};

void tst_paintingorder::overlapIsMoreThanABorder_data()
{
    QTest::addColumn<MapArea>("one");
    QTest::addColumn<MapArea>("other");
    QTest::addColumn<bool>("overlap");
    QTest::newRow("apart") << Rectangle(0, 0, 10, 10) << Rectangle(20, 0, 30, 10) << false;
    QTest::newRow("common side") << Rectangle(0, 0, 10, 10) << Rectangle(10, 0, 20, 10) << false;
    QTest::newRow("a pixel") << Rectangle(0, 0, 10, 10) << Rectangle(9, 0, 20, 10) << false;
    QTest::newRow("corners in each other") << Rectangle(0, 0, 10, 10) << Rectangle(5, 5, 20, 20) << true;
    QTest::newRow("a cross") << Rectangle(0, 10, 30, 20) << Rectangle(10, 0, 20, 30) << true;
    QTest::newRow("the same") << Rectangle(0, 0, 10, 10) << Rectangle(0, 0, 10, 10) << true;
    QTest::newRow("drawn the other way") << Rectangle(10, 10, 0, 0) << Rectangle(5, 5, 20, 20) << true;
    QTest::newRow("one inside") << Rectangle(0, 0, 30, 30) << Circle(15, 15, 5) << true;
    QTest::newRow("circles") << Circle(10, 10, 10) << Circle(24, 10, 10) << true;
    QTest::newRow("circles that touch") << Circle(10, 10, 10) << Circle(30, 10, 10) << false;
    QTest::newRow("circle at a corner") << Circle(10, 10, 10) << Rectangle(18, 18, 30, 30) << false;
    QTest::newRow("in a notch") << Polygon({ 0, 0, 30, 0, 30, 30, 20, 30, 20, 10, 10, 10, 10, 30, 0, 30 })
                                << Rectangle(11, 12, 19, 30) << false;
    QTest::newRow("same triangles") << Polygon({ 0, 0, 30, 0, 0, 30 }) << Polygon({ 0, 0, 30, 0, 0, 30 })
                                    << true;
    QTest::newRow("two halves") << Polygon({ 0, 0, 30, 0, 0, 30 }) << Polygon({ 30, 0, 30, 30, 0, 30 })
                                << false;
    QTest::newRow("halves a pixel off")
        << Polygon({ 0, 0, 30, 0, 0, 30 }) << Polygon({ 30, 0, 30, 30, 0, 29 }) << false;
    QTest::newRow("nothing") << Polygon({}) << Rectangle(0, 0, 10, 10) << false;
    QTest::newRow("a point") << Polygon({ 5, 5 }) << Rectangle(0, 0, 10, 10) << false;
}

void tst_paintingorder::overlapIsMoreThanABorder()
{
    QFETCH(const MapArea, one);
    QFETCH(const MapArea, other);
    QFETCH(const bool, overlap);
    QCOMPARE(DoOverlap(one, other), overlap);
    QCOMPARE(DoOverlap(other, one), overlap);
}

void tst_paintingorder::areasApartKeepTheirOrder()
{
    QCOMPARE(PaintingOrder({}), QList<qsizetype>());
    QCOMPARE(
        PaintingOrder({ Rectangle(20, 0, 30, 10), Rectangle(0, 0, 10, 10), Circle(50, 50, 5) }),
        (QList<qsizetype>{ 0, 1, 2 }));
}

void tst_paintingorder::upperOfTwoIsPaintedLater()
{
    const MapArea below = Rectangle(0, 0, 100, 100);
    QCOMPARE(PaintingOrder({ Circle(50, 50, 20), below }), (QList<qsizetype>{ 1, 0 }));
    QCOMPARE(PaintingOrder({ below, below, below }), (QList<qsizetype>{ 2, 1, 0 }));
}

void tst_paintingorder::onlyThoseThatOverlapChangePlaces()
{
    QCOMPARE(
        PaintingOrder({ Rectangle(200, 0, 210, 10), Circle(50, 50, 20), Rectangle(300, 0, 310, 10),
                        Rectangle(0, 0, 100, 100), Rectangle(400, 0, 410, 10) }),
        (QList<qsizetype>{ 0, 2, 3, 1, 4 }));
}

void tst_paintingorder::everyAreaIsPaintedOnce()
{
    MapAreas areas;
    for (int i = 0; i < 60; ++i) {
        areas << Circle(i * 37 % 200, i * 53 % 200, 10 + i % 20);
    }
    QList<qsizetype> order = PaintingOrder(areas);
    for (qsizetype i = 0; i < order.size(); ++i) {
        for (qsizetype later = i + 1; later < order.size(); ++later) {
            QVERIFY(order[i] > order[later] || !DoOverlap(areas[order[i]], areas[order[later]]));
        }
    }
    std::sort(order.begin(), order.end());
    for (qsizetype i = 0; i < areas.size(); ++i) {
        QCOMPARE(order.value(i, -1), i);
    }
}

QTEST_GUILESS_MAIN(tst_paintingorder)

#include "tst_paintingorder.moc"
