#include "outline/ContourThinning.h"
#include "outline/PictureRegions.h"
#include "outline/RegionChoice.h"
#include "outline/RegionShape.h"

#include <QTest>
#include <algorithm>
#include <random>

/** Work on pictures that is not wanted any longer. */
class tst_stopping : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void signIsAskedOnceForManySteps();
    void signThatIsUpStaysSo();
    void stoppedRegionIsLeftUnfinished();
    void stoppedRegionGoesOnWhereItEnded();
    void stoppedRegionTakesAnyOtherTolerance();
    void stoppedEdgesAreGoneOver();
    void stoppedOutlineLeavesNoMark_data();
    void stoppedOutlineLeavesNoMark();
    void stoppedContourEnds();
    void stoppedThinningHasNoCorners();
    void searchStopsWithinItsOnlyRegion();
    void searchOfIslandsStopsWithinItsOnlyOne();
};

namespace {

constexpr QSize size(900, 700);
constexpr QPoint middle(450, 350);

/** Greys at random, of which most belong together at a large tolerance, in runs of a pixel or two. */
const QImage& Noise()
{
    static const QImage noise = [] {
        constexpr int greys = 256;
        std::mt19937 random(1);
        QImage picture(size, QImage::Format_RGB32);
        for (int y = 0; y < size.height(); ++y) {
            auto* const row = reinterpret_cast<QRgb*>(picture.scanLine(y));
            std::generate_n(row, size.width(), [&random] {
                const int grey = int(random() % greys);
                return qRgb(grey, grey, grey);
            });
        }
        picture.setPixel(middle, qRgb(greys / 2, greys / 2, greys / 2));
        return picture;
    }();
    return noise;
}
constexpr double mostOfNoise = 40;

/** A sign that comes up when it is asked for the `count`th time. */
StopSign UpAt(int count)
{
    return StopSign([count, asked = 0]() mutable { return ++asked >= count; });
}

/** How often work that is not stopped asks. */
template<class Work> int AsksOf(Work work)
{
    int asked = 0;
    work(StopSign([&asked] {
        ++asked;
        return false;
    }));
    return asked;
}

bool AreSameMarks(const PixelMask& one, const PixelMask& other, quint8 marks)
{
    const auto isSame = [marks](quint8 a, quint8 b) { return (a & marks) == (b & marks); };
    for (int y = 0; y < one.Size().height(); ++y) {
        if (!std::equal(one.Row(y), one.Row(y) + one.Size().width(), other.Row(y), isSame)) {
            return false;
        }
    }
    return true;
}

/** Whether the region is the one that is found without a stop. */
bool IsWhole(const ColourRegion& region, const PixelMask& mask, double tolerance)
{
    PixelMask anew(size);
    ColourRegion other(Noise(), anew, middle);
    other.SetTolerance(tolerance);
    return AreSameMarks(mask, anew, MarkNew) && region.Found().pixels == other.Found().pixels &&
           region.Found().box == other.Found().box && region.Found().first == other.Found().first;
}

/** A comb of so many teeth, which makes a contour of four corners each. */
Contour CombContour(int teeth, const StopSign& stop)
{
    constexpr int pitch = 5;
    constexpr int height = 20;
    PixelMask mask({ pitch * teeth, height });
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < pitch * teeth; ++x) {
            const bool isTooth = y + 1 < height && x % pitch < 2;
            mask.Row(y)[x] = isTooth || y + 1 == height ? MarkNew : 0;
        }
    }
    return ContourOf(mask, { 0, 0 }, MarkNew, stop);
}

} // namespace

void tst_stopping::signIsAskedOnceForManySteps()
{
    int asked = 0;
    const StopSign stop([&asked] { return ++asked > 100; });
    for (qint64 i = 0; i < 3 * StopSign::stepsBetween; ++i) {
        QVERIFY(!stop.IsUpFor(1));
    }
    QCOMPARE(asked, 2);
    QVERIFY(!stop.IsUpFor(10 * StopSign::stepsBetween));
    QCOMPARE(asked, 3);
    QVERIFY(!StopSign().IsUpFor(10 * StopSign::stepsBetween));
}

void tst_stopping::signThatIsUpStaysSo()
{
    int asked = 0;
    const StopSign stop([&asked] { return ++asked == 1; });
    QVERIFY(!stop.IsUp());
    QVERIFY(stop.IsUpNow());
    QVERIFY(stop.IsUp());
    QVERIFY(stop.IsUpFor(1));
    QVERIFY(stop.IsUpNow());
    QCOMPARE(asked, 1);
}

void tst_stopping::stoppedRegionIsLeftUnfinished()
{
    PixelMask mask(size);
    ColourRegion region(Noise(), mask, middle);
    region.SetTolerance(mostOfNoise, UpAt(1));
    QVERIFY(region.Found().pixels <= StopSign::stepsBetween);
    QVERIFY(!IsWhole(region, mask, mostOfNoise));
}

void tst_stopping::stoppedRegionGoesOnWhereItEnded()
{
    PixelMask mask(size);
    ColourRegion region(Noise(), mask, middle);
    int parts = 0;
    qint64 before = -1;
    while (region.Found().pixels > before) {
        before = region.Found().pixels;
        ++parts;
        region.SetTolerance(mostOfNoise, UpAt(1));
    }
    QVERIFY(parts > 5);
    region.SetTolerance(mostOfNoise);
    QVERIFY(IsWhole(region, mask, mostOfNoise));
}

void tst_stopping::stoppedRegionTakesAnyOtherTolerance()
{
    PixelMask mask(size);
    ColourRegion region(Noise(), mask, middle);
    for (const double tolerance : { 44.0, 40.0, 30.0, 44.0 }) {
        region.SetTolerance(42, UpAt(3));
        region.SetTolerance(tolerance);
        QVERIFY(IsWhole(region, mask, tolerance));
        region.Clear();
    }
}

void tst_stopping::stoppedEdgesAreGoneOver()
{
    PixelMask mask(size);
    ColourRegion region(Noise(), mask, middle);
    region.SetTolerance(mostOfNoise);
    // More and more is added, so it is stopped among the edges of the region as it was.
    for (double tolerance = mostOfNoise + 1; tolerance < mostOfNoise + 6; ++tolerance) {
        region.SetTolerance(tolerance, UpAt(2));
    }
    region.SetTolerance(mostOfNoise + 6);
    QVERIFY(IsWhole(region, mask, mostOfNoise + 6));
}

void tst_stopping::stoppedOutlineLeavesNoMark_data()
{
    QTest::addColumn<PieceHoles>("holes");
    QTest::newRow("without holes") << PieceHoles::Ignored;
    QTest::newRow("with holes") << PieceHoles::Found;
}

void tst_stopping::stoppedOutlineLeavesNoMark()
{
    QFETCH(const PieceHoles, holes);
    const QSize part = size / 2;
    RegionChoice choice(Noise().copy(QRect(middle - QPoint(part.width(), part.height()) / 2, part)));
    choice.Take(QRect(QPoint(), part).center(), RegionTaking::Alone, mostOfNoise);
    choice.Take({ 0, 0 }, RegionTaking::Joined, mostOfNoise);
    const auto pieces = choice.Pieces(holes);
    const int asks = AsksOf([&](const StopSign& stop) { (void)choice.Pieces(holes, stop); });
    QVERIFY(asks > 10);
    for (int at = 1; at <= asks; at += std::max(asks / 4, 1)) {
        (void)choice.Pieces(holes, UpAt(at));
        const auto again = choice.Pieces(holes);
        QCOMPARE(again.size(), pieces.size());
        QVERIFY(again.front().contour == pieces.front().contour);
        QVERIFY(again.front().holes == pieces.front().holes);
    }
}

void tst_stopping::stoppedContourEnds()
{
    constexpr int teeth = 8000;
    constexpr std::size_t corners = 4 * teeth;
    QVERIFY(CombContour(teeth, StopSign()).size() >= corners);
    QVERIFY(CombContour(teeth, UpAt(1)).size() < corners / 2);
    QVERIFY(CombContour(teeth, UpAt(2)).size() < corners);
}

void tst_stopping::stoppedThinningHasNoCorners()
{
    const Contour contour = CombContour(20'000, StopSign());
    const int asks =
        AsksOf([&contour](const StopSign& stop) { (void)Thinned(contour, 1, mostCorners, stop); });
    // Of all that it does: choosing corners, and taking off the others.
    QVERIFY(asks > 50);
    for (int at = 1; at < asks; at += asks / 7) {
        QVERIFY(Thinned(contour, 1, mostCorners, UpAt(at)).corners.empty());
    }
}

void tst_stopping::searchStopsWithinItsOnlyRegion()
{
    QImage plain(size, QImage::Format_RGB32);
    plain.fill(Qt::red);
    int rows = 0;
    int asked = 0;
    const RegionSearch search{ .within = {},
                               .stop = StopSign([&asked] { return ++asked == 4; }),
                               .passRow = [&rows] { ++rows; } };
    QVERIFY(RegionsOf(plain, search).empty());
    QCOMPARE(asked, 4);
    QCOMPARE(rows, 1);
}

void tst_stopping::searchOfIslandsStopsWithinItsOnlyOne()
{
    int rows = 0;
    const RegionSearch search{ .within = {}, .stop = UpAt(20), .passRow = [&rows] { ++rows; } };
    QVERIFY(OpaqueIslandsOf(Noise(), search).empty());
    QVERIFY(rows < size.height() / 2);
}

QTEST_GUILESS_MAIN(tst_stopping)
#include "tst_stopping.moc"
