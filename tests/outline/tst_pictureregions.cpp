#include "outline/PictureRegions.h"
#include "outline/ReadingOrder.h"

#include <QPainter>
#include <QTest>
#include <algorithm>

namespace {

/** A white picture with boxes of colours painted on. */
QImage Painted(QSize size, const QList<std::pair<QRect, QColor>>& boxes)
{
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    for (const auto& [box, colour] : boxes) {
        painter.fillRect(box, colour);
    }
    return picture;
}

QList<QRect> BoxesOf(const PictureRegions& regions, RegionRole role)
{
    QList<QRect> boxes;
    for (const PictureRegion& region : regions) {
        if (region.role == role) {
            boxes << region.region.box;
        }
    }
    return boxes;
}

} // namespace

class tst_pictureregions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyLargeRegionIsFound();
    void eachPixelIsInOneRegion();
    void groundAndLinesAreTold();
    void regionsAreReadLineByLine();
    void whatLiesInsideComesFirst();
    void smoothedEdgeIsNoRegion();
    void partOfThePictureIsSearchedAlone();
    void searchCanBeGivenUp();
    void largestAreKeptOfTooMany_data();
    void largestAreKeptOfTooMany();
    void transparencyIsTold();
    void opaqueIslandsAreFound();
    void searchOfIslandsCanBeGivenUp();
    void pictureWithoutTransparencyIsOneIsland();
    void emptyPictureHasNoRegions();
};

void tst_pictureregions::everyLargeRegionIsFound()
{
    const QRect large(5, 5, 20, 20);
    const QRect small(30, 5, 9, 9);
    const QImage picture = Painted({ 60, 40 }, { { large, Qt::red }, { small, Qt::blue } });
    QCOMPARE(BoxesOf(RegionsOf(picture, {}), RegionRole::Area), QList<QRect>({ large }));
    QCOMPARE(
        BoxesOf(RegionsOf(picture, { .within = {}, .leastPixels = 81 }), RegionRole::Area),
        QList<QRect>({ large, small }));
    QVERIFY(BoxesOf(RegionsOf(picture, { .within = {}, .leastPixels = 3000 }), RegionRole::Area).isEmpty());
}

void tst_pictureregions::eachPixelIsInOneRegion()
{
    QImage picture(50, 40, QImage::Format_RGB32);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            picture.setPixel(x, y, qRgb(x * 5, (x * y) % 256, y * 6));
        }
    }
    qint64 pixels = 0;
    for (const PictureRegion& region : RegionsOf(picture, { .within = {}, .leastPixels = 1 })) {
        pixels += region.region.pixels;
    }
    QCOMPARE(pixels, picture.width() * picture.height());
}

void tst_pictureregions::groundAndLinesAreTold()
{
    const QRect inside(20, 20, 60, 40);
    const QRect pond(40, 30, 10, 20);
    const QImage picture = Painted(
        { 100, 80 },
        { { inside.adjusted(-2, -2, 2, 2), Qt::black }, { inside, Qt::green }, { pond, Qt::white } });
    const PictureRegions regions = RegionsOf(picture, {});
    QCOMPARE(BoxesOf(regions, RegionRole::Area), QList<QRect>({ inside }));
    QCOMPARE(BoxesOf(regions, RegionRole::Line), QList<QRect>({ inside.adjusted(-2, -2, 2, 2) }));
    QCOMPARE(BoxesOf(regions, RegionRole::Ground), QList<QRect>({ pond, picture.rect() }));
}

void tst_pictureregions::regionsAreReadLineByLine()
{
    // A row whose boxes are not quite level, and one below it.
    const QList<QRect> order = {
        { 10, 14, 20, 20 }, { 40, 10, 20, 20 }, { 70, 18, 20, 20 }, { 10, 50, 20, 20 }, { 40, 45, 20, 20 }
    };
    const QImage picture = Painted(
        { 120, 80 }, { { order[3], Qt::red },
                       { order[1], Qt::green },
                       { order[4], Qt::blue },
                       { order[0], Qt::cyan },
                       { order[2], Qt::magenta } });
    QCOMPARE(BoxesOf(RegionsOf(picture, {}), RegionRole::Area), order);
}

void tst_pictureregions::whatLiesInsideComesFirst()
{
    const QRect outer(10, 10, 90, 60);
    const QRect left(20, 20, 30, 40);
    const QRect right(60, 20, 30, 40);
    const QRect innermost(65, 25, 20, 30);
    const QRect beside(105, 10, 30, 60);
    const QImage picture = Painted(
        { 150, 90 }, { { outer, Qt::red },
                       { left, Qt::green },
                       { right, Qt::blue },
                       { innermost, Qt::yellow },
                       { beside, Qt::cyan } });
    QCOMPARE(
        BoxesOf(RegionsOf(picture, {}), RegionRole::Area),
        QList<QRect>({ left, innermost, right, outer, beside }));
}

void tst_pictureregions::smoothedEdgeIsNoRegion()
{
    QImage picture = Painted({ 100, 100 }, {});
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::darkBlue);
    painter.drawEllipse(QPointF(50.3, 49.6), 40, 30);
    painter.end();
    const PictureRegions regions = RegionsOf(picture, { .within = {}, .leastPixels = 8 });
    QCOMPARE(BoxesOf(regions, RegionRole::Area).size(), 1);
    QCOMPARE(BoxesOf(regions, RegionRole::Ground), QList<QRect>({ picture.rect() }));
}

void tst_pictureregions::partOfThePictureIsSearchedAlone()
{
    const QRect box(10, 10, 60, 15);
    const QImage picture = Painted({ 100, 60 }, { { box, Qt::red } });
    const PictureRegions regions =
        RegionsOf(picture, { .within = QRect(40, 0, 200, 200), .leastPixels = 100 });
    QCOMPARE(BoxesOf(regions, RegionRole::Area), QList<QRect>({ QRect(40, 10, 30, 15) }));
    QCOMPARE(BoxesOf(regions, RegionRole::Ground), QList<QRect>({ QRect(40, 0, 60, 60) }));
}

void tst_pictureregions::searchCanBeGivenUp()
{
    const QImage picture = Painted({ 100, 60 }, { { QRect(10, 10, 60, 30), Qt::red } });
    int asked = 0;
    const RegionSearch search{ .within = {}, .stop = StopSign([&asked] { return ++asked > 5; }) };
    QVERIFY(RegionsOf(picture, search).empty());
    QCOMPARE(asked, 6);
}

void tst_pictureregions::largestAreKeptOfTooMany_data()
{
    QTest::addColumn<bool>("areIslands");
    QTest::newRow("of colours") << false;
    QTest::newRow("of islands") << true;
}

void tst_pictureregions::largestAreKeptOfTooMany()
{
    QFETCH(const bool, areIslands);
    // Squares of four pixels and, at the end of each third line of them, a longer one.
    constexpr int squares = 160;
    constexpr int pitch = 3;
    constexpr int lines = 200;
    QImage picture(squares * pitch + pitch, lines * pitch, QImage::Format_ARGB32);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    for (int line = 0; line < lines; ++line) {
        for (int i = 0; i < squares; ++i) {
            const bool isLonger = i + 1 == squares && line % pitch == 0;
            painter.fillRect(i * pitch, line * pitch, isLonger ? 4 : 2, 2, Qt::red);
        }
    }
    painter.end();
    const RegionSearch search{ .within = {}, .leastPixels = 1 };
    const PictureRegions found = areIslands ? OpaqueIslandsOf(picture, search) : RegionsOf(picture, search);
    QCOMPARE(found.size(), mostRegions);
    constexpr qint64 longer = 8;
    QCOMPARE(
        std::count_if(
            found.begin(), found.end(), [](const PictureRegion& one) { return one.region.pixels == longer; }),
        (lines + pitch - 1) / pitch);
}

void tst_pictureregions::transparencyIsTold()
{
    QImage picture(20, 10, QImage::Format_ARGB32);
    picture.fill(QColor(10, 20, 30, 128));
    QVERIFY(!HasTransparency(picture));
    picture.setPixelColor(19, 9, QColor(10, 20, 30, 127));
    QVERIFY(HasTransparency(picture));
    QVERIFY(HasTransparency(picture.convertToFormat(QImage::Format_RGBA64)));
    QVERIFY(!HasTransparency(picture.convertToFormat(QImage::Format_RGB32)));
    QVERIFY(!HasTransparency(QImage()));
}

void tst_pictureregions::searchOfIslandsCanBeGivenUp()
{
    const QImage picture = Painted({ 100, 60 }, {});
    int asked = 0;
    const RegionSearch search{ .within = {}, .stop = StopSign([&asked] { return ++asked > 5; }) };
    QVERIFY(OpaqueIslandsOf(picture, search).empty());
    QCOMPARE(asked, 6);
}

void tst_pictureregions::opaqueIslandsAreFound()
{
    QImage picture(80, 40, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.fillRect(50, 5, 20, 20, QColor(255, 0, 0, 140));
    painter.fillRect(5, 5, 20, 10, Qt::red);
    painter.fillRect(5, 15, 20, 15, Qt::blue);
    painter.fillRect(30, 5, 15, 20, QColor(0, 0, 0, 100));
    painter.end();
    const PictureRegions islands = OpaqueIslandsOf(picture, {});
    QCOMPARE(BoxesOf(islands, RegionRole::Area), QList<QRect>({ { 5, 5, 20, 25 }, { 50, 5, 20, 20 } }));
    QCOMPARE(islands[0].contour.size(), 4U);
    QCOMPARE(islands[0].colour, qRgb(255, 0, 0));
    QCOMPARE(
        BoxesOf(OpaqueIslandsOf(picture, { .within = QRect(40, 0, 40, 40) }), RegionRole::Area),
        QList<QRect>({ { 50, 5, 20, 20 } }));
}

void tst_pictureregions::pictureWithoutTransparencyIsOneIsland()
{
    const QImage picture = Painted({ 80, 40 }, { { QRect(1, 1, 30, 30), Qt::red } });
    QCOMPARE(BoxesOf(OpaqueIslandsOf(picture, {}), RegionRole::Area), QList<QRect>({ picture.rect() }));
}

void tst_pictureregions::emptyPictureHasNoRegions()
{
    QVERIFY(RegionsOf(QImage(), {}).empty());
    QVERIFY(OpaqueIslandsOf(QImage(), {}).empty());
    const QImage picture = Painted({ 80, 40 }, {});
    QVERIFY(RegionsOf(picture, { .within = QRect(100, 100, 10, 10) }).empty());
}

QTEST_GUILESS_MAIN(tst_pictureregions)
#include "tst_pictureregions.moc"
