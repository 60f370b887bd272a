#include "imagemap/picture/PictureFile.h"

#include <QBuffer>
#include <QElapsedTimer>
#include <QFile>
#include <QImageReader>
#include <QImageWriter>
#include <QLoggingCategory>
#include <QTemporaryDir>
#include <QTest>
#include <QtEndian>
#include <algorithm>
#include <array>
#include <initializer_list>
#include <random>
#include <vector>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

namespace {

/** The four corners of a picture: top left, top right, bottom left, bottom right. */
using Corners = std::array<QColor, 4>;

const Corners uprightCorners{ Qt::red, Qt::green, Qt::blue, Qt::yellow };
const std::initializer_list<const char*> fixtures{
    "colour.jpg", "progressive.jpg", "grey.jpg",        "cmyk.jpg",     "ycck.jpg",
    "plain.gif",  "interlaced.gif",  "transparent.gif", "animated.gif",
};

QString FixturePath(const QString& name)
{
    return QFINDTESTDATA("data/" + name);
}

QByteArray Fixture(const QString& name)
{
    QFile file(FixturePath(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray Word(int value)
{
    QByteArray bytes(2, '\0');
    qToBigEndian(static_cast<quint16>(value), bytes.data());
    return bytes;
}

QByteArray LittleWord(int value)
{
    QByteArray bytes = Word(value);
    std::reverse(bytes.begin(), bytes.end());
    return bytes;
}

QByteArray Segment(char marker, const QByteArray& body)
{
    return QByteArray("\xFF") + marker + Word(static_cast<int>(body.size()) + 2) + body;
}

QByteArray WithSegments(const QByteArray& jpeg, const QByteArray& segments)
{
    return jpeg.first(2) + segments + jpeg.sliced(2);
}

/** `jpeg` as a camera writes it that was held in the way `orientation`, 1 to 8, stands for. */
QByteArray WithOrientation(const QByteArray& jpeg, int orientation, bool isLittleEndian = false)
{
    const auto word = isLittleEndian ? LittleWord : Word;
    const auto doubleWord = [&](int value) -> QByteArray {
        return isLittleEndian ? word(value) + word(0) : word(0) + word(value);
    };
    const QByteArray entry = word(0x0112) + word(3) + doubleWord(1) + word(orientation) + word(0);
    const QByteArray directory = word(1) + entry + doubleWord(0);
    const QByteArray start = QByteArray("Exif\0\0", 6) + (isLittleEndian ? "II" : "MM") + word(42);
    return WithSegments(jpeg, Segment('\xE1', start + doubleWord(8) + directory));
}

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

/** The data of a frame in the portions that a GIF carries it in. */
QByteArray InSubBlocks(const QByteArray& data)
{
    QByteArray blocks;
    for (qsizetype at = 0; at < data.size(); at += 255) {
        const QByteArray block = data.mid(at, 255);
        blocks += static_cast<char>(block.size()) + block;
    }
    return blocks + '\0';
}

constexpr int lzwClear = 4;
constexpr int lzwEnd = 5;

/** The data of a frame of four colours, from codes that are to stay three bits wide. */
QByteArray FrameData(const std::vector<int>& codes)
{
    QByteArray bytes;
    int bits = 0;
    int bitCount = 0;
    for (const int code : codes) {
        bits |= code << bitCount;
        for (bitCount += 3; bitCount >= 8; bitCount -= 8) {
            bytes += static_cast<char>(bits & 0xFF);
            bits >>= 8;
        }
    }
    bytes += static_cast<char>(bits);
    return '\x02' + InSubBlocks(bytes);
}

/** So many red pixels. The table of runs is cleared after every second one, which keeps the codes narrow. */
std::vector<int> RedPixels(int count)
{
    std::vector<int> codes;
    for (int pixel = 0; pixel < count; ++pixel) {
        if (pixel % 2 == 0) {
            codes.push_back(lzwClear);
        }
        codes.push_back(0);
    }
    codes.push_back(lzwEnd);
    return codes;
}

/** A GIF of one frame; its palette is red, green, blue and black. */
QByteArray Gif(const QSize& canvas, const QRect& frame, const std::vector<int>& codes)
{
    const QByteArray palette("\xFF\0\0\0\xFF\0\0\0\xFF\0\0\0", 12);
    return "GIF89a" + LittleWord(canvas.width()) + LittleWord(canvas.height()) + QByteArray("\x81\0\0", 3) +
           palette + ',' + LittleWord(frame.x()) + LittleWord(frame.y()) + LittleWord(frame.width()) +
           LittleWord(frame.height()) + '\0' + FrameData(codes) + ';';
}

QByteArray RedGif(const QSize& canvas, const QRect& frame)
{
    return Gif(canvas, frame, RedPixels(frame.width() * frame.height()));
}

/** `gif` with green as the colour that lets the page through. */
QByteArray WithTransparentGreen(QByteArray gif)
{
    return gif.insert(6 + 7 + 12, QByteArray("\x21\xF9\x04\x01\0\0\x01\0", 8));
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

bool IsNear(const QColor& one, const QColor& other)
{
    constexpr int tolerance = 12;
    return std::abs(one.red() - other.red()) <= tolerance &&
           std::abs(one.green() - other.green()) <= tolerance &&
           std::abs(one.blue() - other.blue()) <= tolerance;
}

Corners CornersOf(const QImage& picture)
{
    const int right = picture.width() - 3;
    const int bottom = picture.height() - 3;
    return { picture.pixelColor(2, 2), picture.pixelColor(right, 2), picture.pixelColor(2, bottom),
             picture.pixelColor(right, bottom) };
}

bool AreNear(const Corners& one, const Corners& other)
{
    return std::equal(one.begin(), one.end(), other.begin(), IsNear);
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

void AddRow(const char* name, const QByteArray& bytes)
{
    QTest::newRow(name) << bytes;
}

} // namespace

class TestPictureFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

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
    void bothGifVersionsAreRead();

    void largePhotographsLoad_data();
    void largePhotographsLoad();
    void allocationLimitIsPutBack();

    void truncatedPictureGivesNoPicture_data();
    void truncatedPictureGivesNoPicture();
    void endOfAnExifThumbnailIsNotTheEnd();
    void bytesBehindTheEndDoNoHarm_data();
    void bytesBehindTheEndDoNoHarm();
    void damagedPictureGivesNoPicture_data();
    void damagedPictureGivesNoPicture();
    void randomDamageNeverCrashes_data();
    void randomDamageNeverCrashes();

    void claimsBeyondTheFileGiveNoPicture_data();
    void claimsBeyondTheFileGiveNoPicture();
    void claimUpTo32MegapixelsIsTaken();
    void manyScansOfALargePictureAreRefusedAtOnce();
    void swarmsOfCommentsAreRefused();
    void pixelsBehindAFullFrameAreNotUnfolded();
    void fileOfUnreasonableSizeIsRefused();

private:
    QString Write(const QByteArray& bytes, const QString& name = QStringLiteral("picture"));
    QImage Load(const QByteArray& bytes) { return LoadPicture(Write(bytes)); }

    QTemporaryDir folder_;
};

QString TestPictureFile::Write(const QByteArray& bytes, const QString& name)
{
    const QString path = folder_.filePath(name);
    QFile file(path);
    const bool written = file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush();
    return written ? path : QString();
}

void TestPictureFile::initTestCase()
{
    // Thousands of damaged pictures are read here, and Qt would complain of each.
    QLoggingCategory::setFilterRules("qt.gui.imageio*=false");
    QVERIFY(folder_.isValid());
    for (const char* name : fixtures) {
        QVERIFY2(!Fixture(name).isEmpty(), name);
    }
}

void TestPictureFile::everyKindOfPictureShowsItsColours_data()
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

void TestPictureFile::everyKindOfPictureShowsItsColours()
{
    QFETCH(const QString, name);
    QFETCH(const Corners, corners);

    const QImage picture = LoadPicture(FixturePath(name));

    QCOMPARE(picture.size(), QSize(96, 64));
    QVERIFY(IsOpaque(picture));
    QVERIFY(AreNear(CornersOf(picture), corners));
}

void TestPictureFile::progressiveAndInterlacedPicturesEqualTheirPlainOnes()
{
    QCOMPARE(LoadPicture(FixturePath("progressive.jpg")), LoadPicture(FixturePath("colour.jpg")));
    QCOMPARE(LoadPicture(FixturePath("interlaced.gif")), LoadPicture(FixturePath("plain.gif")));
}

void TestPictureFile::contentAndNotTheNameTellsTheKind_data()
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

void TestPictureFile::contentAndNotTheNameTellsTheKind()
{
    QFETCH(const QString, fixture);
    QFETCH(const QString, name);
    QVERIFY(AreNear(CornersOf(LoadPicture(Write(Fixture(fixture), name))), uprightCorners));
}

void TestPictureFile::doubledSizeInTheFileNameMeansNothing()
{
    for (const char* fixture : { "colour.jpg", "plain.gif" }) {
        const QImage picture = LoadPicture(Write(Fixture(fixture), "photo@2x.jpg"));
        QCOMPARE(picture.size(), QSize(96, 64));
        QCOMPARE(picture.devicePixelRatio(), 1.0);
    }
}

void TestPictureFile::otherContentGivesNoPicture_data()
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

void TestPictureFile::otherContentGivesNoPicture()
{
    QFETCH(const QByteArray, bytes);
    QVERIFY(Load(bytes).isNull());
}

void TestPictureFile::onlyRegularFilesAreOpened_data()
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

void TestPictureFile::onlyRegularFilesAreOpened()
{
    QFETCH(const QString, path);
    QVERIFY(LoadPicture(path).isNull());
}

void TestPictureFile::linksToPicturesAreFollowed()
{
#ifdef Q_OS_UNIX
    const QString link = folder_.filePath("link.jpg");
    QVERIFY(QFile::link(FixturePath("colour.jpg"), link));
    QCOMPARE(LoadPicture(link).size(), QSize(96, 64));
#else
    QSKIP("Links of this kind exist on Unix only.");
#endif
}

void TestPictureFile::exifOrientationIsAppliedAsBrowsersDo_data()
{
    QTest::addColumn<int>("orientation");
    QTest::addColumn<bool>("isTurned");
    QTest::addColumn<Corners>("corners");
    const auto [topLeft, topRight, bottomLeft, bottomRight] = uprightCorners;
    QTest::newRow("1 upright") << 1 << false << uprightCorners;
    QTest::newRow("2 mirrored") << 2 << false << Corners{ topRight, topLeft, bottomRight, bottomLeft };
    QTest::newRow("3 upside down") << 3 << false << Corners{ bottomRight, bottomLeft, topRight, topLeft };
    QTest::newRow("4 flipped") << 4 << false << Corners{ bottomLeft, bottomRight, topLeft, topRight };
    QTest::newRow("5 transposed") << 5 << true << Corners{ topLeft, bottomLeft, topRight, bottomRight };
    QTest::newRow("6 turned clockwise") << 6 << true << Corners{ bottomLeft, topLeft, bottomRight, topRight };
    QTest::newRow("7 transversed") << 7 << true << Corners{ bottomRight, topRight, bottomLeft, topLeft };
    QTest::newRow("8 turned back") << 8 << true << Corners{ topRight, bottomRight, topLeft, bottomLeft };
}

void TestPictureFile::exifOrientationIsAppliedAsBrowsersDo()
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

void TestPictureFile::unknownExifOrientationTurnsNothing_data()
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

void TestPictureFile::unknownExifOrientationTurnsNothing()
{
    QFETCH(const QByteArray, bytes);
    QVERIFY(AreNear(CornersOf(Load(bytes)), uprightCorners));
}

void TestPictureFile::transparentPixelsBecomeWhite()
{
    const QImage picture = LoadPicture(FixturePath("transparent.gif"));
    QVERIFY(IsOpaque(picture));
    QCOMPARE(picture.pixelColor(60, 5), QColor(Qt::white));
    QCOMPARE(picture.pixelColor(72, 32), QColor(Qt::blue));
    QCOMPARE(picture.pixelColor(20, 32), QColor(Qt::red));
}

void TestPictureFile::animationShowsItsFirstFrame()
{
    QImage red(96, 64, QImage::Format_RGB32);
    red.fill(Qt::red);
    QCOMPARE(LoadPicture(FixturePath("animated.gif")), red);
}

void TestPictureFile::canvasAroundTheFirstFrameIsWhite_data()
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

void TestPictureFile::canvasAroundTheFirstFrameIsWhite()
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

void TestPictureFile::bothGifVersionsAreRead()
{
    const QByteArray gif = RedGif(QSize(4, 3), QRect(0, 0, 4, 3));
    QCOMPARE(Load(gif).size(), QSize(4, 3));
    QCOMPARE(Load(QByteArray(gif).replace("GIF89a", "GIF87a")), Load(gif));
}

void TestPictureFile::largePhotographsLoad_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("24 megapixels") << QSize(6000, 4000);
    QTest::newRow("100 megapixels") << QSize(11600, 8700);
}

void TestPictureFile::largePhotographsLoad()
{
    QFETCH(const QSize, size);
    const QString path = folder_.filePath("large.jpg");
    QVERIFY(QImageWriter(path, "jpeg").write(LargePicture(size)));

    const QImage picture = LoadPicture(path);

    QCOMPARE(picture.size(), size);
    QCOMPARE(picture.format(), QImage::Format_RGB32);
    QVERIFY(AreNear(CornersOf(picture), Corners{ Qt::red, Qt::red, Qt::blue, Qt::blue }));
}

void TestPictureFile::allocationLimitIsPutBack()
{
    constexpr int limitOfOthers = 77;
    const int before = QImageReader::allocationLimit();
    QImageReader::setAllocationLimit(limitOfOthers);
    QVERIFY(!LoadPicture(FixturePath("colour.jpg")).isNull());
    QVERIFY(Load(Fixture("colour.jpg").chopped(100)).isNull());
    QCOMPARE(QImageReader::allocationLimit(), limitOfOthers);
    QImageReader::setAllocationLimit(before);
}

void TestPictureFile::truncatedPictureGivesNoPicture_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<qsizetype>("end");
    for (const QString name : fixtures) {
        const QByteArray bytes = Fixture(name);
        // Of an animation the first frame is enough; the next one starts with its graphic control block.
        const qsizetype first = bytes.indexOf("\x21\xF9", 0);
        const qsizetype second = name == "animated.gif" ? bytes.indexOf("\x21\xF9", first + 2) : -1;
        // A JPEG's end mark, as a GIF's, tells nothing that a decoder needs.
        const qsizetype end = second > 0 ? second : bytes.size() - (name.endsWith("gif") ? 1 : 2);
        QTest::newRow(qPrintable(name)) << bytes << end;
    }
    const QByteArray turned = WithOrientation(Fixture("colour.jpg"), 6);
    QTest::newRow("JPEG with EXIF") << turned << turned.size() - 2;
}

void TestPictureFile::truncatedPictureGivesNoPicture()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const qsizetype, end);
    for (qsizetype length = 0; length < bytes.size(); ++length) {
        const bool isPicture = !Load(bytes.first(length)).isNull();
        QVERIFY2(isPicture == (length >= end), qPrintable(QString::number(length)));
    }
}

void TestPictureFile::endOfAnExifThumbnailIsNotTheEnd()
{
    const QByteArray thumbnail = Segment('\xE1', QByteArray("Exif\0\0", 6) + Fixture("grey.jpg"));
    const QByteArray jpeg = WithSegments(Fixture("colour.jpg"), thumbnail);
    QVERIFY(AreNear(CornersOf(Load(jpeg)), uprightCorners));
    for (const qsizetype missing : { 3, 100, 400 }) {
        QVERIFY(Load(jpeg.chopped(missing)).isNull());
    }
}

void TestPictureFile::bytesBehindTheEndDoNoHarm_data()
{
    QTest::addColumn<QString>("name");
    for (const QString name : fixtures) {
        QTest::newRow(qPrintable(name)) << name;
    }
}

void TestPictureFile::bytesBehindTheEndDoNoHarm()
{
    QFETCH(const QString, name);
    const QByteArray bytes = Fixture(name);
    const QImage picture = Load(bytes);
    QCOMPARE(Load(bytes + QByteArray(5000, '\xA5')), picture);
    QCOMPARE(Load(bytes + QByteArray(5000, '\0')), picture);
    QCOMPARE(Load(bytes + bytes.first(bytes.size() / 2)), picture);
}

void TestPictureFile::damagedPictureGivesNoPicture_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const QByteArray jpeg = Fixture("colour.jpg");
    const QByteArray progressive = Fixture("progressive.jpg");
    const qsizetype scan = jpeg.indexOf("\xFF\xDA");
    const qsizetype secondScan = progressive.indexOf("\xFF\xDA", progressive.indexOf("\xFF\xDA") + 2);
    AddRow("JPEG without a scan", jpeg.first(scan) + "\xFF\xD9");
    AddRow("JPEG with two frames", WithSegments(jpeg, jpeg.sliced(jpeg.indexOf("\xFF\xC0"), 19)));
    AddRow("JPEG with two starts", WithSegments(jpeg, "\xFF\xD8"));
    AddRow(
        "JPEG with an impossible code table",
        QByteArray(jpeg).replace(jpeg.indexOf("\xFF\xC4") + 5, 16, QByteArray(16, '\xFF')));
    AddRow("JPEG with a failing second scan", QByteArray(progressive).replace(secondScan + 7, 2, "\x3F\x01"));
    AddRow("JPEG with a segment shorter than its length", WithSegments(jpeg, QByteArray("\xFF\xE5\0\1", 4)));
    AddRow("JPEG of twelve bits", QByteArray(jpeg).replace(jpeg.indexOf("\xFF\xC0") + 4, 1, "\x0C"));

    const QSize size(4, 4);
    const QRect frame(QPoint(), size);
    AddRow("GIF of too few pixels", Gif(size, frame, RedPixels(15)));
    AddRow("GIF with a code that means nothing", Gif(size, frame, { lzwClear, 0, 7, 7, 7, 0, 0, 0 }));
    AddRow("GIF frame of no size", Gif(size, QRect(0, 0, 0, 0), RedPixels(0)));
    AddRow("GIF frame of no width", Gif(size, QRect(0, 0, 0, 4), RedPixels(0)));
    AddRow("GIF frame out of reach", RedGif(size, QRect(65533, 0, 4, 4)));
    AddRow("GIF with an unknown block", RedGif(size, frame).insert(25, "!?"));
    AddRow("GIF of an impossible depth", RedGif(size, frame).replace(35, 1, "\x0D"));
}

void TestPictureFile::damagedPictureGivesNoPicture()
{
    QFETCH(const QByteArray, bytes);
    QVERIFY(Load(bytes).isNull());
}

void TestPictureFile::randomDamageNeverCrashes_data()
{
    QTest::addColumn<QByteArray>("bytes");
    for (const QString name : fixtures) {
        QTest::newRow(qPrintable(name)) << Fixture(name);
    }
    AddRow("JPEG with EXIF", WithOrientation(Fixture("colour.jpg"), 6));
}

void TestPictureFile::randomDamageNeverCrashes()
{
    QFETCH(const QByteArray, bytes);
    constexpr int rounds = 2000;
    constexpr qint64 millisecondsAtMost = 800;
    std::mt19937 random(20240229);
    const auto below = [&random](qsizetype limit) {
        return qsizetype(random() % static_cast<quint32>(limit));
    };
    QElapsedTimer timer;
    timer.start();
    // A sanitizer's slow build does fewer rounds and still ends in good time.
    for (int round = 0; round < rounds && timer.elapsed() < millisecondsAtMost; ++round) {
        QByteArray damaged = bytes;
        for (qsizetype changes = 1 + below(4); changes > 0; --changes) {
            damaged[below(damaged.size())] = static_cast<char>(random() & 0xFF);
        }
        const QImage picture = Load(damaged);
        QVERIFY(picture.isNull() || picture.format() == QImage::Format_RGB32);
    }
}

void TestPictureFile::claimsBeyondTheFileGiveNoPicture_data()
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

void TestPictureFile::claimsBeyondTheFileGiveNoPicture()
{
    QFETCH(const QByteArray, bytes);
    QElapsedTimer timer;
    timer.start();
    QVERIFY(Load(bytes).isNull());
    QVERIFY(timer.elapsed() < 3000);
}

void TestPictureFile::claimUpTo32MegapixelsIsTaken()
{
    QCOMPARE(Load(WithSize(Fixture("grey.jpg"), 8192, 4096)).size(), QSize(8192, 4096));
    QVERIFY(Load(WithSize(Fixture("grey.jpg"), 8192, 4097)).isNull());
}

void TestPictureFile::manyScansOfALargePictureAreRefusedAtOnce()
{
    const QByteArray small = Fixture("progressive.jpg");
    QCOMPARE(Load(WithRepeatedScan(small, 1000)).size(), QSize(96, 64));
    QVERIFY(Load(WithRepeatedScan(small, 20'000)).isNull());

    QElapsedTimer timer;
    timer.start();
    QVERIFY(Load(WithRepeatedScan(WithSize(small, 5600, 5600), 5000)).isNull());
    QVERIFY(timer.elapsed() < 3000);
}

void TestPictureFile::swarmsOfCommentsAreRefused()
{
    const QByteArray jpeg = Fixture("colour.jpg");
    QVERIFY(!Load(WithSegments(jpeg, Segment('\xFE', "").repeated(1000))).isNull());
    QVERIFY(Load(WithSegments(jpeg, Segment('\xFE', "").repeated(100'000))).isNull());
    QVERIFY(!Load(WithSegments(jpeg, Segment('\xE1', QByteArray(60'000, 'x')).repeated(100))).isNull());
    QVERIFY(Load(WithSegments(jpeg, Segment('\xE1', QByteArray(60'000, 'x')).repeated(1200))).isNull());
}

void TestPictureFile::pixelsBehindAFullFrameAreNotUnfolded()
{
    // Unfolded, this would be some ten thousand million pixels in a frame of ten thousand.
    QByteArray gif = RedGif(QSize(100, 100), QRect(0, 0, 100, 100));
    gif.truncate(6 + 7 + 12 + 10);
    gif += '\x02' + InSubBlocks(EndlessRuns(4'000'000)) + ';';
    QElapsedTimer timer;
    timer.start();
    const QImage picture = Load(gif);
    QVERIFY(timer.elapsed() < 3000);
    QCOMPARE(picture.size(), QSize(100, 100));
    QVERIFY(AreNear(CornersOf(picture), Corners{ Qt::red, Qt::red, Qt::red, Qt::red }));
}

void TestPictureFile::fileOfUnreasonableSizeIsRefused()
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

QTEST_GUILESS_MAIN(TestPictureFile)

#include "tst_picturefile.moc"
