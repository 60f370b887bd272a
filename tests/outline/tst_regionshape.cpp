#include "imagemap/model/AreaGeometry.h"
#include "outline/RegionChoice.h"
#include "outline/RegionShape.h"
#include "tests/outline/ContourChecks.h"

#include <QPainter>
#include <QTest>
#include <numbers>
#include <random>

namespace {

/** The contour of the pixels that `belongs` accepts, which hang together. */
template<class Belongs> Contour ContourOfPixels(QSize size, Belongs belongs)
{
    PixelMask mask(size);
    QPoint first(-1, -1);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            if (belongs(x, y)) {
                mask.Row(y)[x] = MarkPiece;
                first = first.x() < 0 ? QPoint(x, y) : first;
            }
        }
    }
    return ContourOf(mask, first, MarkPiece);
}

Contour CornersOfShape(const RegionShape& shape)
{
    const QList<QPoint> corners = CornersOf(shape.area);
    return { corners.begin(), corners.end() };
}

/** A coast: round, with bays at random. */
Contour Coast(unsigned seed, int size, double roughness)
{
    std::mt19937 random(seed);
    std::vector<double> waves;
    for (int i = 0; i < 12; ++i) {
        waves.push_back(double(random() % 1000) / 1000);
    }
    return ContourOfPixels({ size, size }, [&waves, size, roughness](int x, int y) {
        const double middle = size / 2.0;
        const double angle = std::atan2(y - middle, x - middle);
        double reach = 0.6;
        for (std::size_t i = 0; i < waves.size(); ++i) {
            reach += roughness * waves[i] * std::sin(double(i + 2) * angle + 6 * waves[i]) / double(i + 2);
        }
        return std::hypot(x - middle, y - middle) < reach * middle;
    });
}

} // namespace

class tst_regionshape : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void boxOfPixelsIsARectangle_data();
    void boxOfPixelsIsARectangle();
    void rectangleWithRoundCornersIsOne();
    void pixelThatSticksOutDoesNotEnlargeIt();
    void frameThatIsNotClosedIsNoRectangle();
    void discIsACircle_data();
    void discIsACircle();
    void ringThatIsNotClosedIsNoCircle();
    void slantedSideIsOneSide();
    void stepsOfSmoothingAreNoCorners();
    void formOfFewCornersKeepsThem();
    void moreThanHalfOfTheCornersAreSpared();
    void polygonKeepsToTheRegion_data();
    void polygonKeepsToTheRegion();
    void precisionGivesWayToTheMostCorners();
    void spiralStaysApartFromItself();
    void noCornerIsLostAtNoPrecision();
    void placesBeyondSixteenBitsAreKept();
};

void tst_regionshape::boxOfPixelsIsARectangle_data()
{
    QTest::addColumn<QRect>("box");
    QTest::newRow("one pixel") << QRect(3, 4, 1, 1);
    QTest::newRow("a line") << QRect(2, 5, 30, 1);
    QTest::newRow("a line down") << QRect(7, 1, 2, 35);
    QTest::newRow("a box") << QRect(5, 6, 20, 13);
    QTest::newRow("the whole picture") << QRect(0, 0, 40, 40);
}

void tst_regionshape::boxOfPixelsIsARectangle()
{
    QFETCH(const QRect, box);
    const RegionShape shape =
        ShapeOf(ContourOfPixels({ 40, 40 }, [&box](int x, int y) { return box.contains(x, y); }));
    QCOMPARE(shape.area.Shape, AreaShape::Rectangle);
    QCOMPARE(
        shape.area.Coordinates,
        QList<int>({ box.left(), box.top(), box.left() + box.width(), box.top() + box.height() }));
    QCOMPARE(shape.deviation, 0.0);
}

void tst_regionshape::rectangleWithRoundCornersIsOne()
{
    const QRect box(4, 4, 30, 20);
    const auto isInside = [&box](int x, int y) {
        const bool isCorner = (x == box.left() || x == box.right()) && (y == box.top() || y == box.bottom());
        return box.contains(x, y) && !isCorner;
    };
    const Contour contour = ContourOfPixels({ 40, 40 }, isInside);
    const RegionShape shape = ShapeOf(contour);
    QCOMPARE(shape.area.Shape, AreaShape::Rectangle);
    QCOMPARE(shape.area.Coordinates, QList<int>({ 4, 4, 34, 24 }));
    QCOMPARE(shape.deviation, 1.0);
    QCOMPARE(ShapeOf(contour, 0.5).area.Shape, AreaShape::Polygon);
}

void tst_regionshape::pixelThatSticksOutDoesNotEnlargeIt()
{
    const QRect box(4, 4, 30, 20);
    const RegionShape shape = ShapeOf(ContourOfPixels(
        { 40, 40 }, [&box](int x, int y) { return box.contains(x, y) || (x == 34 && y == 10); }));
    QCOMPARE(shape.area.Shape, AreaShape::Rectangle);
    QCOMPARE(shape.area.Coordinates, QList<int>({ 4, 4, 34, 24 }));
    QCOMPARE(shape.deviation, 1.0);
}

void tst_regionshape::frameThatIsNotClosedIsNoRectangle()
{
    const Contour frame = ContourOfPixels({ 40, 40 }, [](int x, int y) {
        return (x == 0 || y == 0 || x == 39 || y == 39) && !(x == 0 && y == 20);
    });
    QCOMPARE(ShapeOf(frame).area.Shape, AreaShape::Polygon);
}

void tst_regionshape::discIsACircle_data()
{
    QTest::addColumn<double>("x");
    QTest::addColumn<double>("y");
    QTest::addColumn<double>("radius");
    QTest::addColumn<double>("precision");
    QTest::newRow("small") << 20.0 << 20.0 << 5.0 << usualPrecision;
    QTest::newRow("large") << 100.0 << 99.0 << 90.0 << usualPrecision;
    // Centres are whole numbers, so this one lies two thirds of a pixel off.
    constexpr double moreThanUsual = 1.5;
    QTest::newRow("around a pixel") << 30.5 << 40.5 << 20.0 << moreThanUsual;
}

void tst_regionshape::discIsACircle()
{
    QFETCH(const double, x);
    QFETCH(const double, y);
    QFETCH(const double, radius);
    QFETCH(const double, precision);
    const Contour contour = ContourOfPixels({ 200, 200 }, [x, y, radius](int atX, int atY) {
        return std::hypot(atX + 0.5 - x, atY + 0.5 - y) <= radius;
    });
    const RegionShape shape = ShapeOf(contour, precision);
    QCOMPARE(shape.area.Shape, AreaShape::Circle);
    QVERIFY(shape.deviation <= precision);
    QVERIFY(std::abs(shape.area.Coordinates[0] - x) <= 0.5);
    QVERIFY(std::abs(shape.area.Coordinates[1] - y) <= 0.5);
    QVERIFY(std::abs(shape.area.Coordinates[2] - radius) <= 1);
}

void tst_regionshape::ringThatIsNotClosedIsNoCircle()
{
    const Contour ring = ContourOfPixels({ 100, 100 }, [](int x, int y) {
        const double reach = std::hypot(x - 49.5, y - 49.5);
        return reach < 40 && reach > 38.5 && !(x < 49 && y == 50);
    });
    QCOMPARE(ShapeOf(ring).area.Shape, AreaShape::Polygon);
}

void tst_regionshape::slantedSideIsOneSide()
{
    const RegionShape shape = ShapeOf(ContourOfPixels(
        { 200, 100 }, [](int x, int y) { return y >= 10 && y < 90 && 2 * x > y && x < 150 + y / 3; }));
    QCOMPARE(shape.area.Shape, AreaShape::Polygon);
    QCOMPARE(CornersOf(shape.area).size(), 4);
}

void tst_regionshape::stepsOfSmoothingAreNoCorners()
{
    QImage picture(300, 260, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::darkRed);
    painter.drawPolygon(QPolygonF({ { 20.3, 40.6 }, { 271.2, 11.8 }, { 240.4, 243.1 }, { 55.7, 171.9 } }));
    painter.end();
    for (const double tolerance : { 0.0, usualTolerance, 30.0 }) {
        RegionChoice choice(picture);
        choice.Take({ 150, 100 }, RegionTaking::Alone, tolerance);
        const auto pieces = choice.Pieces(PieceHoles::Ignored);
        QCOMPARE(pieces.size(), 1U);
        QVERIFY(pieces[0].contour.size() > 300);
        constexpr qsizetype drawn = 4;
        QVERIFY(CornersOf(ShapeOf(pieces[0].contour).area).size() <= 3 * drawn);
    }
}

void tst_regionshape::formOfFewCornersKeepsThem()
{
    // A slanted side would do with five, but nobody would draw it.
    const Contour corner = { { 0, 0 }, { 10, 0 }, { 10, 24 }, { 1, 24 }, { 1, 28 }, { 0, 28 } };
    QVERIFY(FewestCorners(corner, usualPrecision) < corner.size());
    QCOMPARE(CornersOfShape(ShapeOf(corner)), corner);
}

void tst_regionshape::moreThanHalfOfTheCornersAreSpared()
{
    // Of steps nearly as large as the precision, and of half as many good corners.
    const Contour steps = { { 1, 0 }, { 2, 0 },  { 2, 1 },   { 3, 1 },   { 3, 3 },  { 2, 3 }, { 2, 8 },
                            { 3, 8 }, { 3, 21 }, { 34, 21 }, { 34, 34 }, { 0, 34 }, { 0, 2 }, { 1, 2 } };
    const Contour corners = CornersOfShape(ShapeOf(steps));
    QVERIFY(2 * corners.size() <= steps.size());
    QVERIFY(IsSimple(corners));
    QVERIFY(FurthestFrom(steps, corners) <= usualPrecision);
}

void tst_regionshape::polygonKeepsToTheRegion_data()
{
    QTest::addColumn<double>("precision");
    for (const double precision : { 0.0, 0.5, 1.0, 2.0, 3.0 }) {
        QTest::addRow("%g", precision) << precision;
    }
}

void tst_regionshape::polygonKeepsToTheRegion()
{
    QFETCH(const double, precision);
    for (unsigned seed = 0; seed < 4; ++seed) {
        const Contour coast = Coast(seed, 70, 0.4);
        QVERIFY(IsSimple(coast));
        const RegionShape shape = ShapeOf(coast, precision);
        const Contour corners = CornersOfShape(shape);
        QCOMPARE(shape.area.Shape, AreaShape::Polygon);
        QVERIFY(!shape.HasGivenWay(precision));
        QVERIFY(IsSimple(corners));
        QVERIFY(TwiceAreaOf(corners) > 0);
        constexpr double rounding = 1e-9;
        QVERIFY(FurthestFrom(corners, coast) <= shape.deviation + rounding);
        QVERIFY(FurthestFrom(coast, corners) <= shape.deviation + rounding);
    }
}

void tst_regionshape::precisionGivesWayToTheMostCorners()
{
    // A comb with more teeth than there may be corners.
    const Contour comb =
        ContourOfPixels({ 1100, 20 }, [](int x, int y) { return y >= 18 || (x % 4 < 2 && y >= x % 16); });
    QVERIFY(comb.size() > 2 * std::size_t(mostCorners));
    const RegionShape shape = ShapeOf(comb);
    QCOMPARE(CornersOf(shape.area).size(), mostCorners);
    QVERIFY(shape.HasGivenWay(usualPrecision));
    QVERIFY(IsSimple(CornersOfShape(shape)));
    constexpr double rounding = 1e-9;
    QVERIFY(FurthestFrom(CornersOfShape(shape), comb) <= shape.deviation + rounding);
    QVERIFY(FurthestFrom(comb, CornersOfShape(shape)) <= shape.deviation + rounding);
}

void tst_regionshape::spiralStaysApartFromItself()
{
    // Two turns apart by a pixel, so what may be left off would let them run into each other.
    constexpr int size = 61;
    PixelMask mask({ size, size });
    QPoint place(0, 0);
    QPoint step(1, 0);
    int length = size - 1;
    mask.Row(0)[0] = MarkPiece;
    for (int side = 0; length > 0; ++side) {
        for (int i = 0; i < length; ++i) {
            place += step;
            mask.Row(place.y())[place.x()] = MarkPiece;
        }
        step = QPoint(-step.y(), step.x());
        length -= side % 2 == 0 && side > 0 ? 2 : 0;
    }
    const Contour spiral = ContourOf(mask, { 0, 0 }, MarkPiece);
    QVERIFY(spiral.size() > 50);
    const Contour corners = CornersOfShape(ShapeOf(spiral, 1.5));
    QVERIFY(IsSimple(corners));
    QVERIFY(FurthestFrom(corners, spiral) <= 1.5);
}

void tst_regionshape::noCornerIsLostAtNoPrecision()
{
    const Contour coast = Coast(7, 60, 0.5);
    QCOMPARE(CornersOfShape(ShapeOf(coast, 0)), coast);
}

void tst_regionshape::placesBeyondSixteenBitsAreKept()
{
    constexpr int width = 70000;
    const RegionShape whole = ShapeOf(ContourOfPixels({ width, 4 }, [](int, int) { return true; }));
    QCOMPARE(whole.area.Coordinates, QList<int>({ 0, 0, width, 4 }));
    const Contour wedge = ContourOfPixels({ width, 40 }, [](int x, int y) { return x > width - 80 + 2 * y; });
    const RegionShape shape = ShapeOf(wedge);
    QCOMPARE(shape.area.Shape, AreaShape::Polygon);
    QCOMPARE(BoundsOf(shape.area).right(), width);
    QVERIFY(IsSimple(CornersOfShape(shape)));
}

QTEST_GUILESS_MAIN(tst_regionshape)
#include "tst_regionshape.moc"
