// Pictures that claim more than they hold.

#include "imagemap/picture/PictureCheck.h"
#include "imagemap/picture/PictureOutline.h"
#include "tests/imagemap/PictureFileTest.h"

#include <QBuffer>
#include <QFile>
#include <QTest>
#include <algorithm>
#include <optional>
#include <vector>

namespace {

/** `jpeg` claiming another size than it has pixels for. */
QByteArray WithSize(QByteArray jpeg, int width, int height)
{
    qsizetype frame = jpeg.indexOf("\xFF\xC0");
    frame = frame < 0 ? jpeg.indexOf("\xFF\xC2") : frame;
    return jpeg.replace(frame + 5, 4, QByteArray(Word(height) + Word(width)));
}

/** `jpeg` with its last scan said again and again. */
QByteArray WithRepeatedScan(const QByteArray& jpeg, int times)
{
    const QByteArray scan = jpeg.sliced(jpeg.lastIndexOf("\xFF\xDA")).chopped(2);
    return jpeg.chopped(2) + scan.repeated(times) + jpeg.last(2);
}

/** Wide runs of red that would go on long after a frame of any size is full. */
QByteArray EndlessRuns(qsizetype bytes)
{
    // The codes 0, 6, 7, 8 and so on name one longer run each, until the table is full at 4095.
    QByteArray data;
    quint64 bits = lzwClear;
    int bitCount = 3;
    int width = 3;
    int next = 5;
    for (int code = 0; data.size() < bytes; code = std::min(next, 4095)) {
        bits |= static_cast<quint64>(code) << bitCount;
        bitCount += width;
        next = std::min(next + 1, 4096);
        width = next >= 1 << width && width < 12 ? width + 1 : width;
        for (; bitCount >= 8; bitCount -= 8) {
            data += static_cast<char>(bits & 0xFF);
            bits >>= 8;
        }
    }
    return data;
}

/** What is known of a picture before anything of it is decoded; nothing where nothing will be. */
std::optional<PictureOutline> OutlineOf(QByteArray bytes)
{
    QBuffer buffer(&bytes);
    return buffer.open(QIODevice::ReadOnly) ? CheckPicture(buffer) : std::nullopt;
}

} // namespace

class tst_forgedpictures : public PictureFileTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { Begin(); }

    void claimsBeyondTheFileGiveNoPicture_data();
    void claimsBeyondTheFileGiveNoPicture();
    void claimUpTo32MegapixelsIsTaken();
    void manyScansOfALargePictureAreNotDecoded();
    void swarmsOfCommentsAreRefused();
    void pixelsBehindAFullFrameAreNotUnfolded();
    void fileOfUnreasonableSizeIsRefused();
};

void tst_forgedpictures::claimsBeyondTheFileGiveNoPicture_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const QByteArray jpeg = Fixture("colour.jpg");
    const QByteArray grey = Fixture("grey.jpg");
    const std::vector<int> pixels = RedPixels(100);
    AddRow("JPEG of the largest size", WithSize(jpeg, 65500, 65500));
    AddRow("grey JPEG of the largest size", WithSize(grey, 65500, 65500));
    AddRow("JPEG of 100 megapixels", WithSize(jpeg, 11600, 8700));
    AddRow("progressive JPEG of 100 megapixels", WithSize(Fixture("progressive.jpg"), 11600, 8700));
    AddRow("JPEG of 100 megapixels before much else", WithSize(jpeg, 11600, 8700) + QByteArray(400'000, 'x'));
    AddRow(
        "progressive JPEG of more coefficients than memory",
        WithSize(Fixture("progressive.jpg"), 14000, 14000).chopped(2) + QByteArray(500'000, 'x') +
            "\xFF\xD9");
    AddRow("JPEG of no width", WithSize(jpeg, 0, 64));
    AddRow("JPEG of no height", WithSize(jpeg, 96, 0));
    AddRow("JPEG of no size", WithSize(jpeg, 0, 0));
    AddRow("GIF of the largest size", Gif(QSize(65535, 65535), QRect(0, 0, 65535, 65535), pixels));
    AddRow("GIF canvas of the largest size", Gif(QSize(65535, 65535), QRect(0, 0, 10, 10), pixels));
    AddRow("GIF canvas of 100 megapixels", Gif(QSize(11600, 8700), QRect(0, 0, 10, 10), pixels));
    AddRow("GIF frame far outside", Gif(QSize(10, 10), QRect(65500, 65500, 10, 10), pixels));
}

void tst_forgedpictures::claimsBeyondTheFileGiveNoPicture()
{
    QFETCH(const QByteArray, bytes);
    QVERIFY(!OutlineOf(bytes));
    QVERIFY(Load(bytes).isNull());
}

void tst_forgedpictures::claimUpTo32MegapixelsIsTaken()
{
    QCOMPARE(Load(WithSize(Fixture("grey.jpg"), 8192, 4096)).size(), QSize(8192, 4096));
    QVERIFY(Load(WithSize(Fixture("grey.jpg"), 8192, 4097)).isNull());
}

void tst_forgedpictures::manyScansOfALargePictureAreNotDecoded()
{
    const QByteArray small = Fixture("progressive.jpg");
    QCOMPARE(Load(WithRepeatedScan(small, 1000)).size(), QSize(96, 64));
    QVERIFY(Load(WithRepeatedScan(small, 20'000)).isNull());
    const QByteArray large = WithRepeatedScan(WithSize(small, 5600, 5600), 5000);
    QVERIFY(!OutlineOf(large));
    QVERIFY(Load(large).isNull());
}

void tst_forgedpictures::swarmsOfCommentsAreRefused()
{
    const QByteArray jpeg = Fixture("colour.jpg");
    QVERIFY(!Load(WithSegments(jpeg, Segment('\xFE', "").repeated(1000))).isNull());
    QVERIFY(Load(WithSegments(jpeg, Segment('\xFE', "").repeated(100'000))).isNull());
    QVERIFY(!Load(WithSegments(jpeg, Segment('\xE1', QByteArray(60'000, 'x')).repeated(100))).isNull());
    QVERIFY(Load(WithSegments(jpeg, Segment('\xE1', QByteArray(60'000, 'x')).repeated(1200))).isNull());
}

void tst_forgedpictures::pixelsBehindAFullFrameAreNotUnfolded()
{
    // Unfolded, this would be some ten thousand million pixels in a frame of ten thousand.
    QByteArray gif = RedGif(QSize(100, 100), QRect(0, 0, 100, 100));
    gif.truncate(6 + 7 + 12 + 10);
    gif += '\x02' + InSubBlocks(EndlessRuns(4'000'000)) + ';';
    const std::optional<PictureOutline> outline = OutlineOf(gif);
    QVERIFY(outline && outline->dataEnd < 1000);
    const QImage picture = Load(gif);
    QCOMPARE(picture.size(), QSize(100, 100));
    QVERIFY(AreNear(CornersOf(picture), Corners{ Qt::red, Qt::red, Qt::red, Qt::red }));
}

void tst_forgedpictures::fileOfUnreasonableSizeIsRefused()
{
    const QString path = Write(Fixture("colour.jpg"), "unreasonable.jpg");
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadWrite));
    // Only the length grows: the file system keeps no bytes for what was never written.
    if (!file.resize(512LL * 1024 * 1024)) {
        QSKIP("The file system has no room for the length.");
    }
    QVERIFY(!LoadPicture(path).isNull());
    QVERIFY(file.resize(file.size() + 1));
    QVERIFY(LoadPicture(path).isNull());
}

QTEST_GUILESS_MAIN(tst_forgedpictures)

#include "tst_forgedpictures.moc"
