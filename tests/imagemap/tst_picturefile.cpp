// The pictures that are taken, and what is shown of them.

#include "tests/imagemap/PictureFileTest.h"

#include <QBuffer>
#include <QFile>
#include <QImageReader>
#include <QImageWriter>
#include <QTest>
#include <algorithm>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

namespace {

/** `gif` with green as the colour that lets the page through. */
QByteArray WithTransparentGreen(QByteArray gif)
{
    return gif.insert(6 + 7 + 12, QByteArray("\x21\xF9\x04\x01\0\0\x01\0", 8));
}

bool IsOpaque(const QImage& picture)
{
    for (int y = 0; y < picture.height(); ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
        if (!std::all_of(row, row + picture.width(), [](QRgb pixel) { return qAlpha(pixel) == 255; })) {
            return false;
        }
    }
    return picture.format() == QImage::Format_RGB32;
}

/** A picture of two colours, one above the other. */
QImage LargePicture(const QSize& size)
{
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(Qt::red);
    for (int y = size.height() / 2; y < size.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(picture.scanLine(y));
        std::fill(row, row + size.width(), qRgb(0, 0, 255));
    }
    return picture;
}

} // namespace

class tst_picturefile : public PictureFileTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { Begin(); }

    void everyKindOfPictureShowsItsColours_data();
    void everyKindOfPictureShowsItsColours();
    void progressiveAndInterlacedPicturesEqualTheirPlainOnes();
    void contentAndNotTheNameTellsTheKind_data();
    void contentAndNotTheNameTellsTheKind();
    void doubledSizeInTheFileNameMeansNothing();
    void otherContentGivesNoPicture_data();
    void otherContentGivesNoPicture();
    void onlyRegularFilesAreOpened_data();
    void onlyRegularFilesAreOpened();
    void linksToPicturesAreFollowed();

    void exifOrientationIsAppliedAsBrowsersDo_data();
    void exifOrientationIsAppliedAsBrowsersDo();
    void unknownExifOrientationTurnsNothing_data();
    void unknownExifOrientationTurnsNothing();

    void transparentPixelsBecomeWhite();
    void animationShowsItsFirstFrame();
    void canvasAroundTheFirstFrameIsWhite_data();
    void canvasAroundTheFirstFrameIsWhite();
    void whatAGifLetsThroughCanBeAskedFor();
    void bothGifVersionsAreRead();

    void largePhotographsLoad_data();
    void largePhotographsLoad();
    void allocationLimitIsPutBack();
};

void tst_picturefile::everyKindOfPictureShowsItsColours_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<Corners>("corners");
    const auto grey = [](int value) { return QColor(value, value, value); };
    QTest::newRow("JPEG") << "colour.jpg" << uprightCorners;
    QTest::newRow("progressive JPEG") << "progressive.jpg" << uprightCorners;
    QTest::newRow("JPEG of four inks") << "cmyk.jpg" << uprightCorners;
    QTest::newRow("JPEG of brightness, colour and black") << "ycck.jpg" << uprightCorners;
    QTest::newRow("grey JPEG") << "grey.jpg" << Corners{ grey(76), grey(150), grey(29), grey(226) };
    QTest::newRow("GIF") << "plain.gif" << uprightCorners;
    QTest::newRow("interlaced GIF") << "interlaced.gif" << uprightCorners;
    QTest::newRow("transparent GIF") << "transparent.gif"
                                     << Corners{ Qt::red, Qt::white, Qt::red, Qt::white };
    QTest::newRow("animated GIF") << "animated.gif" << Corners{ Qt::red, Qt::red, Qt::red, Qt::red };
}

void tst_picturefile::everyKindOfPictureShowsItsColours()
{
    QFETCH(const QString, name);
    QFETCH(const Corners, corners);

    const QImage picture = LoadPicture(FixturePath(name));

    QCOMPARE(picture.size(), QSize(96, 64));
    QVERIFY(IsOpaque(picture));
    QVERIFY(AreNear(CornersOf(picture), corners));
}

void tst_picturefile::progressiveAndInterlacedPicturesEqualTheirPlainOnes()
{
    QCOMPARE(LoadPicture(FixturePath("progressive.jpg")), LoadPicture(FixturePath("colour.jpg")));
    QCOMPARE(LoadPicture(FixturePath("interlaced.gif")), LoadPicture(FixturePath("plain.gif")));
}

void tst_picturefile::contentAndNotTheNameTellsTheKind_data()
{
    QTest::addColumn<QString>("fixture");
    QTest::addColumn<QString>("name");
    QTest::newRow("JPEG named as a GIF") << "colour.jpg"
                                         << "picture.gif";
    QTest::newRow("GIF named as a JPEG") << "plain.gif"
                                         << "picture.jpg";
    QTest::newRow("JPEG named as a page") << "colour.jpg"
                                          << "picture.html";
    QTest::newRow("GIF without a suffix") << "plain.gif"
                                          << "picture";
    QTest::newRow("JPEG named as a PNG") << "colour.jpg"
                                         << "picture.png";
    QTest::newRow("name beyond ASCII") << "colour.jpg" << QString::fromUtf8("Zürich – 東京.jpg");
}

void tst_picturefile::contentAndNotTheNameTellsTheKind()
{
    QFETCH(const QString, fixture);
    QFETCH(const QString, name);
    QVERIFY(AreNear(CornersOf(LoadPicture(Write(Fixture(fixture), name))), uprightCorners));
}

void tst_picturefile::doubledSizeInTheFileNameMeansNothing()
{
    for (const char* fixture : { "colour.jpg", "plain.gif" }) {
        const QImage picture = LoadPicture(Write(Fixture(fixture), "photo@2x.jpg"));
        QCOMPARE(picture.size(), QSize(96, 64));
        QCOMPARE(picture.devicePixelRatio(), 1.0);
    }
}

void tst_picturefile::otherContentGivesNoPicture_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const QImage image = LargePicture(QSize(8, 8));
    for (const char* format : { "png", "bmp", "ppm", "xpm" }) {
        QByteArray bytes;
        QBuffer buffer(&bytes);
        QVERIFY(buffer.open(QIODevice::WriteOnly) && image.save(&buffer, format));
        QTest::newRow(format) << bytes;
    }
    AddRow("nothing", "");
    AddRow("one byte", "G");
    AddRow("text", "GIF pictures are explained here");
    AddRow("start of a JPEG", "\xFF\xD8\xFF");
    AddRow("start and end of a JPEG", "\xFF\xD8\xFF\xD9");
    AddRow("start of a GIF", "GIF89a");
    AddRow("GIF of an unknown version", Fixture("plain.gif").replace("GIF89a", "GIF90a"));
    AddRow("JPEG behind a blank", ' ' + Fixture("colour.jpg"));
    AddRow("GIF that is only an end", Fixture("plain.gif").first(6) + QByteArray("\1\0\1\0\0\0\0;", 8));
}

void tst_picturefile::otherContentGivesNoPicture()
{
    QFETCH(const QByteArray, bytes);
    QVERIFY(Load(bytes).isNull());
}

void tst_picturefile::onlyRegularFilesAreOpened_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("no path") << QString();
    QTest::newRow("no such file") << folder_.filePath("missing.jpg");
    QTest::newRow("no such folder") << folder_.filePath("missing/missing.jpg");
    QTest::newRow("folder") << folder_.path();
#ifdef Q_OS_UNIX
    QTest::newRow("endless device") << "/dev/zero";
    QTest::newRow("empty device") << "/dev/null";
    const QString pipe = folder_.filePath("pipe.jpg");
    QVERIFY(::mkfifo(QFile::encodeName(pipe).constData(), 0600) == 0);
    QTest::newRow("pipe nobody writes to") << pipe;
    const QString link = folder_.filePath("pipelink.jpg");
    QVERIFY(QFile::link(pipe, link));
    QTest::newRow("link to a pipe") << link;
#endif
}

void tst_picturefile::onlyRegularFilesAreOpened()
{
    QFETCH(const QString, path);
    QVERIFY(LoadPicture(path).isNull());
}

void tst_picturefile::linksToPicturesAreFollowed()
{
#ifdef Q_OS_UNIX
    const QString link = folder_.filePath("link.jpg");
    QVERIFY(QFile::link(FixturePath("colour.jpg"), link));
    QCOMPARE(LoadPicture(link).size(), QSize(96, 64));
#else
    QSKIP("Links of this kind exist on Unix only.");
#endif
}

void tst_picturefile::exifOrientationIsAppliedAsBrowsersDo_data()
{
    AddOrientationRows();
}

void tst_picturefile::exifOrientationIsAppliedAsBrowsersDo()
{
    QFETCH(const int, orientation);
    QFETCH(const bool, isTurned);
    QFETCH(const Corners, corners);

    for (const char* name : { "colour.jpg", "progressive.jpg", "cmyk.jpg" }) {
        for (const bool isLittleEndian : { false, true }) {
            const QImage picture = Load(WithOrientation(Fixture(name), orientation, isLittleEndian));
            QCOMPARE(picture.size(), isTurned ? QSize(64, 96) : QSize(96, 64));
            QVERIFY(IsOpaque(picture));
            QVERIFY(AreNear(CornersOf(picture), corners));
        }
    }
}

void tst_picturefile::unknownExifOrientationTurnsNothing_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const QByteArray jpeg = Fixture("colour.jpg");
    AddRow("orientation 0", WithOrientation(jpeg, 0));
    AddRow("orientation 9", WithOrientation(jpeg, 9));
    AddRow("empty segment", WithSegments(jpeg, Segment('\xE1', "")));
    AddRow("no directory", WithSegments(jpeg, Segment('\xE1', QByteArray("Exif\0\0MM\0*", 10))));
    AddRow(
        "directory at itself", WithSegments(jpeg, Segment('\xE1', QByteArray("Exif\0\0MM\0*\0\0\0\0", 14))));
    AddRow(
        "another application's segment", WithSegments(jpeg, Segment('\xE1', "http://ns.adobe.com/xap/1.0/")));
}

void tst_picturefile::unknownExifOrientationTurnsNothing()
{
    QFETCH(const QByteArray, bytes);
    QVERIFY(AreNear(CornersOf(Load(bytes)), uprightCorners));
}

void tst_picturefile::transparentPixelsBecomeWhite()
{
    const QImage picture = LoadPicture(FixturePath("transparent.gif"));
    QVERIFY(IsOpaque(picture));
    QCOMPARE(picture.pixelColor(60, 5), QColor(Qt::white));
    QCOMPARE(picture.pixelColor(72, 32), QColor(Qt::blue));
    QCOMPARE(picture.pixelColor(20, 32), QColor(Qt::red));
}

void tst_picturefile::animationShowsItsFirstFrame()
{
    QImage red(96, 64, QImage::Format_RGB32);
    red.fill(Qt::red);
    QCOMPARE(LoadPicture(FixturePath("animated.gif")), red);
}

void tst_picturefile::canvasAroundTheFirstFrameIsWhite_data()
{
    QTest::addColumn<QSize>("canvas");
    QTest::addColumn<QRect>("frame");
    QTest::addColumn<QSize>("size");
    QTest::newRow("frame fills the canvas") << QSize(4, 3) << QRect(0, 0, 4, 3) << QSize(4, 3);
    QTest::newRow("frame within the canvas") << QSize(20, 10) << QRect(5, 2, 4, 3) << QSize(20, 10);
    QTest::newRow("canvas much larger") << QSize(5000, 3000) << QRect(5, 2, 4, 3) << QSize(5000, 3000);
    QTest::newRow("very wide canvas") << QSize(65535, 4) << QRect(40000, 1, 4, 3) << QSize(65535, 4);
    QTest::newRow("frame partly outside") << QSize(6, 4) << QRect(5, 2, 4, 3) << QSize(9, 5);
    QTest::newRow("frame wholly outside") << QSize(6, 4) << QRect(50, 20, 4, 3) << QSize(54, 23);
    QTest::newRow("canvas of no size") << QSize(0, 0) << QRect(5, 2, 4, 3) << QSize(9, 5);
}

void tst_picturefile::canvasAroundTheFirstFrameIsWhite()
{
    QFETCH(const QSize, canvas);
    QFETCH(const QRect, frame);
    QFETCH(const QSize, size);

    QImage expected(size, QImage::Format_RGB32);
    expected.fill(Qt::white);
    for (int y = frame.top(); y <= frame.bottom(); ++y) {
        for (int x = frame.left(); x <= frame.right(); ++x) {
            expected.setPixelColor(x, y, Qt::red);
        }
    }
    for (const QByteArray& gif : { RedGif(canvas, frame), WithTransparentGreen(RedGif(canvas, frame)) }) {
        const QImage picture = Load(gif);
        QVERIFY(IsOpaque(picture));
        QCOMPARE(picture, expected);
    }
}

void tst_picturefile::whatAGifLetsThroughCanBeAskedFor()
{
    const auto at = [this](const QByteArray& gif, QPoint place) {
        return LoadSeeThroughPicture(Write(gif)).pixelColor(place);
    };
    // Red and green pixels take turns.
    const QByteArray striped = Gif({ 5, 4 }, { 1, 0, 2, 2 }, { lzwClear, 0, 1, lzwClear, 0, 1, lzwEnd });
    for (const QByteArray& gif : { striped, WithTransparentGreen(striped) }) {
        QCOMPARE(at(gif, { 1, 1 }), QColor(Qt::red));
        QCOMPARE(at(gif, { 0, 0 }).alpha(), 0);
        QCOMPARE(at(gif, { 4, 3 }).alpha(), 0);
    }
    QCOMPARE(at(striped, { 2, 1 }), QColor(Qt::green));
    QCOMPARE(at(WithTransparentGreen(striped), { 2, 1 }).alpha(), 0);
}

void tst_picturefile::bothGifVersionsAreRead()
{
    const QByteArray gif = RedGif(QSize(4, 3), QRect(0, 0, 4, 3));
    QCOMPARE(Load(gif).size(), QSize(4, 3));
    QCOMPARE(Load(QByteArray(gif).replace("GIF89a", "GIF87a")), Load(gif));
}

void tst_picturefile::largePhotographsLoad_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("24 megapixels") << QSize(6000, 4000);
    QTest::newRow("100 megapixels") << QSize(11600, 8700);
}

void tst_picturefile::largePhotographsLoad()
{
    QFETCH(const QSize, size);
    const QString path = folder_.filePath("large.jpg");
    QVERIFY(QImageWriter(path, "jpeg").write(LargePicture(size)));

    const QImage picture = LoadPicture(path);

    QCOMPARE(picture.size(), size);
    QCOMPARE(picture.format(), QImage::Format_RGB32);
    QVERIFY(AreNear(CornersOf(picture), Corners{ Qt::red, Qt::red, Qt::blue, Qt::blue }));
}

void tst_picturefile::allocationLimitIsPutBack()
{
    constexpr int limitOfOthers = 77;
    const int before = QImageReader::allocationLimit();
    QImageReader::setAllocationLimit(limitOfOthers);
    QVERIFY(!LoadPicture(FixturePath("colour.jpg")).isNull());
    QVERIFY(Load(Fixture("colour.jpg").chopped(100)).isNull());
    QCOMPARE(QImageReader::allocationLimit(), limitOfOthers);
    QImageReader::setAllocationLimit(before);
}

QTEST_GUILESS_MAIN(tst_picturefile)

#include "tst_picturefile.moc"
