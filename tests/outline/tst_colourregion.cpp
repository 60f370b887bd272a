#include "outline/ColourRegion.h"
#include "tests/outline/Pictures.h"

#include <QTest>
#include <queue>
#include <random>

namespace {

/** The pixels of the region, '#' each, as the mask has them. */
QStringList Marked(const PixelMask& mask)
{
    QStringList rows;
    for (int y = 0; y < mask.Size().height(); ++y) {
        QString row;
        for (int x = 0; x < mask.Size().width(); ++x) {
            row += mask.Has({ x, y }, MarkNew) ? u'#' : u'.';
        }
        rows << row;
    }
    return rows;
}

/** The same region by the definition: from pixel to neighbour, as long as the colours are like the first one.
 */
QStringList Expected(const QImage& picture, QPoint seed, double tolerance)
{
    QStringList rows(picture.height(), QString(picture.width(), u'.'));
    std::queue<QPoint> waiting({ seed });
    while (!waiting.empty()) {
        const QPoint pixel = waiting.front();
        waiting.pop();
        if (!picture.rect().contains(pixel) || rows[pixel.y()][pixel.x()] == u'#' ||
            DifferenceOf(picture.pixel(seed), picture.pixel(pixel)) > tolerance) {
            continue;
        }
        rows[pixel.y()][pixel.x()] = u'#';
        for (const QPoint step : { QPoint(1, 0), QPoint(-1, 0), QPoint(0, 1), QPoint(0, -1) }) {
            waiting.push(pixel + step);
        }
    }
    return rows;
}

/** A picture of few greys at random, so that regions have every form. */
QImage Random(unsigned seed, QSize size)
{
    constexpr int greys = 6;
    constexpr int step = 30;
    std::mt19937 random(seed);
    QImage picture(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            const int grey = int(random() % greys) * step;
            picture.setPixel(x, y, qRgb(grey, grey, grey));
        }
    }
    return picture;
}

} // namespace

class tst_colourregion : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void regionEndsWhereTheColourDoes();
    void cornersOfPixelsDoNotConnect();
    void likeColoursBelongWithTheTolerance();
    void onePixelIsARegion();
    void wholePictureIsARegion();
    void placeOutsideHasNoRegion();
    void regionIsThatOfTheDefinition();
    void otherToleranceIsAsIfTakenAnew();
    void clearingLeavesNoMark();
    void transparentPixelsAreOneColour();
    void picturesOfAnyFormatAreRead();
};

void tst_colourregion::regionEndsWhereTheColourDoes()
{
    const QImage picture = Drawn({ "..#..", ".##..", "..#..", "..###" });
    PixelMask mask(picture.size());
    ColourRegion region(picture, mask, { 2, 0 });
    region.SetTolerance(0);
    QCOMPARE(Marked(mask), QStringList({ "..#..", ".##..", "..#..", "..###" }));
    QCOMPARE(region.Found().box, QRect(1, 0, 4, 4));
    QCOMPARE(region.Found().pixels, 7);
    QCOMPARE(region.Found().first, QPoint(2, 0));
}

void tst_colourregion::cornersOfPixelsDoNotConnect()
{
    const QImage picture = Drawn({ "#.", ".#" });
    PixelMask mask(picture.size());
    ColourRegion region(picture, mask, { 1, 1 });
    region.SetTolerance(usualTolerance);
    QCOMPARE(Marked(mask), QStringList({ "..", ".#" }));
}

void tst_colourregion::likeColoursBelongWithTheTolerance()
{
    const QImage picture = Drawn({ "rro.", "r.o#" });
    PixelMask mask(picture.size());
    ColourRegion region(picture, mask, { 0, 0 });
    region.SetTolerance(0);
    QCOMPARE(Marked(mask), QStringList({ "##..", "#..." }));
    region.SetTolerance(usualTolerance);
    QCOMPARE(Marked(mask), QStringList({ "###.", "#.#." }));
    region.SetTolerance(mostTolerance);
    QCOMPARE(Marked(mask), Expected(picture, { 0, 0 }, mostTolerance));
}

void tst_colourregion::onePixelIsARegion()
{
    const QImage picture = Drawn({ "...", ".#.", "..." });
    PixelMask mask(picture.size());
    ColourRegion region(picture, mask, { 1, 1 });
    region.SetTolerance(usualTolerance);
    QCOMPARE(region.Found().box, QRect(1, 1, 1, 1));
    QCOMPARE(region.Found().pixels, 1);
}

void tst_colourregion::wholePictureIsARegion()
{
    QImage picture(300, 200, QImage::Format_RGB32);
    picture.fill(Qt::darkGreen);
    PixelMask mask(picture.size());
    ColourRegion region(picture, mask, { 299, 199 });
    region.SetTolerance(0);
    QCOMPARE(region.Found().box, picture.rect());
    QCOMPARE(region.Found().pixels, 60000);
}

void tst_colourregion::placeOutsideHasNoRegion()
{
    const QImage picture = Drawn({ "##" });
    PixelMask mask(picture.size());
    for (const QPoint seed : { QPoint(-1, 0), QPoint(2, 0), QPoint(0, 1), QPoint(0, -1) }) {
        ColourRegion region(picture, mask, seed);
        region.SetTolerance(mostTolerance);
        QVERIFY(region.Found().IsEmpty());
        QCOMPARE(Marked(mask), QStringList({ ".." }));
    }
}

void tst_colourregion::regionIsThatOfTheDefinition()
{
    for (unsigned number = 0; number < 60; ++number) {
        const QImage picture = Random(number, { 17 + int(number) % 9, 19 });
        PixelMask mask(picture.size());
        const QPoint seed(int(number) % picture.width(), int(number) % picture.height());
        const double tolerance = number % 5 * 12;
        ColourRegion region(picture, mask, seed);
        region.SetTolerance(tolerance);
        QCOMPARE(Marked(mask), Expected(picture, seed, tolerance));
        QCOMPARE(region.Found().pixels, Marked(mask).join(QString()).count(u'#'));
    }
}

void tst_colourregion::otherToleranceIsAsIfTakenAnew()
{
    for (unsigned number = 0; number < 30; ++number) {
        const QImage picture = Random(number, { 31, 23 });
        PixelMask mask(picture.size());
        ColourRegion region(picture, mask, { 15, 11 });
        for (const double tolerance : { 10.0, 12.0, 35.0, 24.0, 0.0, 13.0, 60.0 }) {
            region.SetTolerance(tolerance);
            PixelMask anew(picture.size());
            ColourRegion other(picture, anew, { 15, 11 });
            other.SetTolerance(tolerance);
            QCOMPARE(Marked(mask), Marked(anew));
            QCOMPARE(region.Found().box, other.Found().box);
            QCOMPARE(region.Found().pixels, other.Found().pixels);
            QCOMPARE(region.Found().first, other.Found().first);
        }
    }
}

void tst_colourregion::clearingLeavesNoMark()
{
    const QImage picture = Random(1, { 40, 30 });
    PixelMask mask(picture.size());
    ColourRegion region(picture, mask, { 20, 15 });
    region.SetTolerance(25);
    QVERIFY(region.Found().pixels > 1);
    region.Clear();
    for (int y = 0; y < picture.height(); ++y) {
        QVERIFY(
            std::all_of(mask.Row(y), mask.Row(y) + picture.width(), [](quint8 marks) { return marks == 0; }));
    }
}

void tst_colourregion::transparentPixelsAreOneColour()
{
    QImage picture(4, 1, QImage::Format_ARGB32);
    picture.setPixel(0, 0, qRgba(255, 0, 0, 0));
    picture.setPixel(1, 0, qRgba(0, 255, 0, 0));
    picture.setPixel(2, 0, qRgba(0, 255, 0, 255));
    picture.setPixel(3, 0, qRgba(0, 255, 0, 0));
    for (const QImage& form : { picture, picture.convertToFormat(QImage::Format_ARGB32_Premultiplied) }) {
        PixelMask mask(form.size());
        ColourRegion region(form, mask, { 0, 0 });
        region.SetTolerance(0);
        QCOMPARE(Marked(mask), QStringList({ "##.." }));
    }
}

void tst_colourregion::picturesOfAnyFormatAreRead()
{
    const QImage picture = Drawn({ "##.", "#..", "###" });
    for (const QImage::Format format :
         { QImage::Format_Mono, QImage::Format_Indexed8, QImage::Format_RGB888, QImage::Format_RGB32,
           QImage::Format_ARGB32_Premultiplied, QImage::Format_RGBA64, QImage::Format_Grayscale8 }) {
        const QImage whole = WithWholePixels(picture.convertToFormat(format));
        PixelMask mask(whole.size());
        ColourRegion region(whole, mask, { 0, 0 });
        region.SetTolerance(1);
        QCOMPARE(Marked(mask), QStringList({ "##.", "#..", "###" }));
    }
    QCOMPARE(WithWholePixels(picture).constBits(), picture.constBits());
}

QTEST_GUILESS_MAIN(tst_colourregion)
#include "tst_colourregion.moc"
