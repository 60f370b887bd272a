#include "outline/RegionOutline.h"

#include <QTest>

class tst_regionoutline : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nothingChosenHasNoAreas();
    void enclosedPixelsBelongToTheArea();
    void holesLieInFrontOfTheirArea();
    void specksAreNoHoles();
    void islandsAreAnAreaEachTheLargestLast();
    void largestIslandCanStandAlone();
    void islandInALakeLiesInFrontOfIt();
    void cornersTooManyGiveThePrecisionWay();
};

namespace {

constexpr QRgb paper = 0xffffffffU;
constexpr QRgb ink = 0xff2040c0U;

/** A picture of paper with ink in `boxes`, and paper again in `holes`. */
QImage Inked(QSize size, const QList<QRect>& boxes, const QList<QRect>& holes = {})
{
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(paper);
    const auto fill = [&picture](const QList<QRect>& rects, QRgb colour) {
        for (const QRect& rect : rects) {
            for (int y = rect.top(); y <= rect.bottom(); ++y) {
                for (int x = rect.left(); x <= rect.right(); ++x) {
                    picture.setPixel(x, y, colour);
                }
            }
        }
    };
    fill(boxes, ink);
    fill(holes, paper);
    return picture;
}

RegionOutline OutlineAt(const QImage& picture, const QList<QPoint>& seeds, const OutlinePlan& plan = {})
{
    RegionChoice choice(picture);
    for (const QPoint seed : seeds) {
        choice.Take(seed, RegionTaking::Joined, usualTolerance);
    }
    return OutlineOf(choice, plan);
}

} // namespace

void tst_regionoutline::nothingChosenHasNoAreas()
{
    RegionChoice choice(Inked({ 10, 10 }, {}));
    QVERIFY(OutlineOf(choice, {}).IsEmpty());
    choice.Take({ 30, 30 }, RegionTaking::Alone, usualTolerance);
    QVERIFY(OutlineOf(choice, { .AreHolesLeftOut = true }).IsEmpty());
}

void tst_regionoutline::enclosedPixelsBelongToTheArea()
{
    const QImage picture = Inked({ 60, 40 }, { { 5, 5, 40, 30 } }, { { 10, 10, 10, 10 } });
    const RegionOutline outline = OutlineAt(picture, { { 6, 6 } });
    QCOMPARE(outline.Plain().size(), 1);
    QCOMPARE(outline.Plain().constFirst().Shape, AreaShape::Rectangle);
    QCOMPARE(outline.Plain().constFirst().Coordinates, (QList{ 5, 5, 45, 35 }));
    QVERIFY(!outline.Areas.constFirst().IsHole);
}

void tst_regionoutline::holesLieInFrontOfTheirArea()
{
    const QImage picture = Inked({ 60, 40 }, { { 5, 5, 40, 30 } }, { { 10, 10, 10, 10 }, { 30, 10, 8, 9 } });
    const RegionOutline outline = OutlineAt(picture, { { 6, 6 } }, { .AreHolesLeftOut = true });
    QCOMPARE(outline.Areas.size(), 3);
    QVERIFY(outline.Areas[0].IsHole);
    QCOMPARE(outline.Areas[0].Area.Coordinates, (QList{ 10, 10, 20, 20 }));
    QVERIFY(outline.Areas[1].IsHole);
    QCOMPARE(outline.Areas[1].Area.Coordinates, (QList{ 30, 10, 38, 19 }));
    QVERIFY(!outline.Areas[2].IsHole);
    QCOMPARE(outline.Areas[2].Area.Coordinates, (QList{ 5, 5, 45, 35 }));
}

void tst_regionoutline::specksAreNoHoles()
{
    const QImage picture = Inked({ 60, 40 }, { { 5, 5, 40, 30 } }, { { 10, 10, 5, 3 } });
    QCOMPARE(OutlineAt(picture, { { 6, 6 } }, { .AreHolesLeftOut = true }).Areas.size(), 1);
}

void tst_regionoutline::islandsAreAnAreaEachTheLargestLast()
{
    const QImage picture = Inked({ 60, 40 }, { { 5, 5, 20, 20 }, { 40, 5, 10, 10 } });
    const MapAreas areas = OutlineAt(picture, { { 6, 6 }, { 41, 6 } }).Plain();
    QCOMPARE(areas.size(), 2);
    QCOMPARE(areas[0].Coordinates, (QList{ 40, 5, 50, 15 }));
    QCOMPARE(areas[1].Coordinates, (QList{ 5, 5, 25, 25 }));
}

void tst_regionoutline::largestIslandCanStandAlone()
{
    const QImage picture = Inked({ 60, 40 }, { { 5, 5, 20, 20 }, { 40, 5, 10, 10 } });
    const MapAreas areas = OutlineAt(picture, { { 6, 6 }, { 41, 6 } }, { .IsLargestAlone = true }).Plain();
    QCOMPARE(areas.size(), 1);
    QCOMPARE(areas[0].Coordinates, (QList{ 5, 5, 25, 25 }));
}

void tst_regionoutline::islandInALakeLiesInFrontOfIt()
{
    QImage picture = Inked({ 60, 40 }, { { 2, 2, 50, 34 } }, { { 10, 8, 30, 20 } });
    for (int y = 12; y < 22; ++y) {
        for (int x = 15; x < 27; ++x) {
            picture.setPixel(x, y, ink);
        }
    }
    const RegionOutline outline = OutlineAt(picture, { { 3, 3 }, { 16, 13 } }, { .AreHolesLeftOut = true });
    QCOMPARE(outline.Areas.size(), 3);
    QCOMPARE(outline.Areas[0].Area.Coordinates, (QList{ 15, 12, 27, 22 }));
    QVERIFY(outline.Areas[1].IsHole);
    QCOMPARE(outline.Areas[1].Area.Coordinates, (QList{ 10, 8, 40, 28 }));
    QCOMPARE(outline.Areas[2].Area.Coordinates, (QList{ 2, 2, 52, 36 }));
}

void tst_regionoutline::cornersTooManyGiveThePrecisionWay()
{
    // A comb with more teeth than an area has corners for.
    QList<QRect> boxes{ { 0, 60, 3000, 20 } };
    for (int x = 0; x < 3000; x += 10) {
        boxes << QRect(x, 0, 5, 60);
    }
    const RegionOutline outline = OutlineAt(Inked({ 3000, 80 }, boxes), { { 0, 70 } });
    QCOMPARE(outline.Areas.size(), 1);
    QVERIFY(outline.Areas[0].Area.Coordinates.size() <= 2 * mostCorners);
    QVERIFY(outline.Deviation > usualPrecision);
}

QTEST_GUILESS_MAIN(tst_regionoutline)
#include "tst_regionoutline.moc"
