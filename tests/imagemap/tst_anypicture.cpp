#include "AnyPictureTest.h"

namespace {

constexpr QStringView tooLarge = u"The picture has more pixels than can be believed !";
constexpr QStringView unknown = u"This is no picture in one of the forms JPG, GIF, PNG, BMP, WebP and SVG !";

QByteArray FourCornersSvg()
{
    return Svg("<rect width='20' height='15' fill='#f00'/><rect x='20' width='20' height='15' fill='#0f0'/>"
               "<rect y='15' width='20' height='15' fill='#00f'/>"
               "<rect x='20' y='15' width='20' height='15' fill='#ff0'/>");
}

/** Replaces the bytes from `place` on. */
QByteArray Forged(QByteArray bytes, qsizetype place, const QByteArray& by)
{
    return bytes.replace(place, by.size(), by);
}

QByteArray Chunk(const QByteArray& name, const QByteArray& data)
{
    constexpr quint32 reversedPolynomial = 0xEDB88320;
    quint32 sum = ~0U;
    for (const char byte : QByteArray(name + data)) {
        sum ^= static_cast<uchar>(byte);
        for (int bit = 0; bit < 8; ++bit) {
            sum = sum >> 1 ^ (sum % 2 != 0 ? reversedPolynomial : 0);
        }
    }
    const auto number = [](quint32 value) -> QByteArray {
        return Word(int(value >> 16)) + Word(int(value & 0xFFFF));
    };
    return number(quint32(data.size())) + name + data + number(~sum);
}

/** A PNG with a block of EXIF, in front of its first chunk `before`. */
QByteArray ExifPng(const QByteArray& exif, const QByteArray& before = "IDAT")
{
    QByteArray png = Written(FourCorners(), "png");
    return png.insert(png.indexOf(before) - 4, Chunk("eXIf", exif));
}

/** A WebP with a block of EXIF. */
QByteArray ExifWebP(const QByteArray& exif)
{
    const QByteArray pixels = Written(FourCorners(), "webp").sliced(12);
    const QByteArray size = LittleWord(39) + '\0' + LittleWord(29) + '\0';
    const QByteArray header = "VP8X" + LittleWord(10) + LittleWord(0) + QByteArray("\x08\0\0\0", 4) + size;
    const QByteArray block = "EXIF" + LittleWord(int(exif.size())) + LittleWord(0) + exif;
    const QByteArray contents = "WEBP" + header + pixels + block;
    return "RIFF" + LittleWord(int(contents.size())) + LittleWord(0) + contents;
}

/** A BMP of 8 bits a pixel in runs: `rows` rows of four pixels, and the mark of its end. */
QByteArray RunsBmp(int rows, bool hasEnd)
{
    QByteArray palette(256 * 4, '\0');
    palette.replace(4, 4, QByteArray("\0\0\xFF\0", 4));
    QByteArray data;
    for (int i = 0; i < rows; ++i) {
        data += QByteArray("\4\1\0\0", 4);
    }
    data += hasEnd ? QByteArray("\0\1", 2) : QByteArray();
    const auto number = [](int value) -> QByteArray { return LittleWord(value) + LittleWord(0); };
    return "BM" + number(0) + number(0) + number(14 + 40 + 1024) + number(40) + number(4) + number(3) +
           LittleWord(1) + LittleWord(8) + number(1) + number(0) + number(0) + number(0) + number(0) +
           number(0) + palette + data;
}

} // namespace

/** Pictures of the forms that only new commands open. */
class tst_anypicture : public AnyPictureTest
{
    Q_OBJECT

private Q_SLOTS:
    void everyFormIsRead_data();
    void everyFormIsRead();
    void exifOrientationIsAppliedAsBrowsersDo_data();
    void exifOrientationIsAppliedAsBrowsersDo();
    void otherExifTurnsNothing_data();
    void otherExifTurnsNothing();
    void whatIsCutOffIsTold_data();
    void whatIsCutOffIsTold();
    void aClaimIsNotTakenOnTrust_data();
    void aClaimIsNotTakenOnTrust();
    void aFormWithoutReaderIsTold();
    void otherFilesAreToldFromPictures_data();
    void otherFilesAreToldFromPictures();
    void noFileIsTold();
    void whatIsSeenThroughIsWhite_data();
    void whatIsSeenThroughIsWhite();
    void whatIsSeenThroughCanBeAskedFor_data();
    void whatIsSeenThroughCanBeAskedFor();
    void whatIsReadSeeThroughIsCheckedToo();
    void runsAreFollowedToTheirEnd();
    void theNameGivesNoScale();
};

void tst_anypicture::everyFormIsRead_data()
{
    QTest::addColumn<QByteArray>("bytes");

    for (const char* const format : { "png", "bmp", "webp", "jpg" }) {
        AddRow(format, Written(FourCorners(), format));
    }
    AddRow("bmp, 4 bits", Written(FourCorners().convertToFormat(QImage::Format_Indexed8), "bmp"));
    AddRow("png, 16 bits", Written(FourCorners().convertToFormat(QImage::Format_RGBA64), "png"));
    AddRow("png, palette", Written(FourCorners().convertToFormat(QImage::Format_Indexed8), "png"));
    AddRow("webp, seen through", Written(FourCorners().convertToFormat(QImage::Format_ARGB32), "webp"));
    AddRow("svg", FourCornersSvg());
    AddRow("svg, mark", "\xEF\xBB\xBF" + FourCornersSvg());
}

void tst_anypicture::everyFormIsRead()
{
    QFETCH(const QByteArray, bytes);
    if (bytes.isEmpty() || (bytes.contains("<svg") && !IsReadable("svg"))) {
        QSKIP("this system has no reader for it");
    }
    const PictureReading reading = Read(bytes);
    QCOMPARE(reading.Problem, QString());
    QCOMPARE(reading.Picture.size(), QSize(40, 30));
    QCOMPARE(reading.Picture.format(), QImage::Format_RGB32);
    QVERIFY(AreNear(CornersOf(reading.Picture), uprightCorners));
}

void tst_anypicture::exifOrientationIsAppliedAsBrowsersDo_data()
{
    AddOrientationRows();
}

void tst_anypicture::exifOrientationIsAppliedAsBrowsersDo()
{
    QFETCH(const int, orientation);
    QFETCH(const bool, isTurned);
    QFETCH(const Corners, corners);
    for (const bool isLittleEndian : { false, true }) {
        const PictureReading reading = Read(ExifPng(ExifBlock(orientation, isLittleEndian)));
        QCOMPARE(reading.Problem, QString());
        QCOMPARE(reading.Picture.size(), isTurned ? QSize(30, 40) : QSize(40, 30));
        QVERIFY(AreNear(CornersOf(reading.Picture), corners));
    }
}

void tst_anypicture::otherExifTurnsNothing_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const QByteArray turned = ExifBlock(6);
    AddRow("behind the pixels", ExifPng(turned, "IEND"));
    AddRow("marked as in a JPEG", ExifPng(QByteArray("Exif\0\0", 6) + turned));
    AddRow("orientation 0", ExifPng(ExifBlock(0)));
    AddRow("orientation 9", ExifPng(ExifBlock(9)));
    AddRow("nothing", ExifPng({}));
    AddRow("another tag", ExifPng(Forged(turned, 10, Word(0x010F))));
    AddRow("another form", ExifPng(Forged(turned, 12, Word(4))));
    AddRow("directory beyond the end", ExifPng(Forged(turned, 4, QByteArray(4, '\xFF'))));
    AddRow("more entries than there are", ExifPng(Forged(Forged(turned, 10, Word(0)), 8, Word(0xFFFF))));
    for (qsizetype length = 1; length < 20; ++length) {
        const QByteArray name = "cut off after " + QByteArray::number(length);
        AddRow(name.constData(), ExifPng(turned.first(length)));
    }
    if (IsReadable("webp")) {
        // Browsers leave these as they are.
        AddRow("webp", ExifWebP(turned));
    }
}

void tst_anypicture::otherExifTurnsNothing()
{
    QFETCH(const QByteArray, bytes);
    const PictureReading reading = Read(bytes);
    QCOMPARE(reading.Problem, QString());
    QCOMPARE(reading.Picture.size(), QSize(40, 30));
    QVERIFY(AreNear(CornersOf(reading.Picture), uprightCorners));
}

void tst_anypicture::whatIsCutOffIsTold_data()
{
    everyFormIsRead_data();
    AddRow("bmp, runs", RunsBmp(3, true));
}

void tst_anypicture::whatIsCutOffIsTold()
{
    QFETCH(const QByteArray, bytes);
    // Line ends behind a drawing and the padding of the last chunk are no loss, nor is a JPEG's end mark.
    constexpr qsizetype noLoss = 3;
    constexpr qsizetype startLength = 60;
    constexpr qsizetype step = 9;
    for (qsizetype length = 0; length < bytes.size() - noLoss; length += length < startLength ? 1 : step) {
        const PictureReading reading = Read(bytes.first(length));
        QVERIFY2(reading.Picture.isNull(), qPrintable(QString::number(length)));
        QVERIFY2(reading.Problem.endsWith(u'!'), qPrintable(QString::number(length)));
    }
}

void tst_anypicture::aClaimIsNotTakenOnTrust_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("problem");

    const QByteArray png = Written(FourCorners(), "png");
    const QByteArray bmp = Written(FourCorners(), "bmp");
    const QByteArray large("\0\0\xFF\xFF\0\0\xFF\xFF", 8);
    const QByteArray largest("\x7F\xFF\xFF\xFF\x7F\xFF\xFF\xFF", 8);
    const QByteArray largestLittle("\xFF\xFF\xFF\x7F\xFF\xFF\xFF\x7F", 8);
    QTest::newRow("png, large") << Forged(png, 16, large) << tooLarge.toString();
    QTest::newRow("png, largest") << Forged(png, 16, largest) << tooLarge.toString();
    QTest::newRow("png, beyond") << Forged(png, 16, QByteArray(8, '\xFF')) << damaged.toString();
    QTest::newRow("png, no size") << Forged(png, 16, QByteArray(8, '\0')) << damaged.toString();
    QTest::newRow("png, no such colour") << Forged(png, 25, QByteArray("\1", 1)) << damaged.toString();
    QTest::newRow("png, wrong checksum")
        << Forged(png, 16, QByteArray("\0\0\0\x27", 4)) << damaged.toString();
    QTest::newRow("bmp, largest") << Forged(bmp, 18, largestLittle) << damaged.toString();
    QTest::newRow("bmp, upside down") << Forged(bmp, 22, QByteArray("\0\0\0\x80", 4)) << damaged.toString();
    QTest::newRow("bmp, no such form") << Forged(bmp, 30, QByteArray("\5", 1)) << damaged.toString();
    if (IsReadable("svg")) {
        QTest::newRow("svg") << Svg("", "width='60000' height='60000'") << tooLarge.toString();
    }
}

void tst_anypicture::aClaimIsNotTakenOnTrust()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const QString, problem);
    const PictureReading reading = Read(bytes);
    QVERIFY(reading.Picture.isNull());
    QCOMPARE(reading.Problem, problem);
}

void tst_anypicture::aFormWithoutReaderIsTold()
{
    constexpr QStringView noReader = u"Pictures of this form cannot be read on this system !";
    const PictureReading reading =
        ReadAnyPicture(Write(Written(FourCorners(), "bmp")), { "png", "webp", "svg" });
    QVERIFY(reading.Picture.isNull());
    QCOMPARE(reading.Problem, noReader);
    QCOMPARE(ReadAnyPicture(Write(Svg("")), { "png" }).Problem, noReader);
    QCOMPARE(ReadAnyPicture(Write("<!DOCTYPE html><html></html>"), { "png" }).Problem, unknown.toString());
}

void tst_anypicture::otherFilesAreToldFromPictures_data()
{
    QTest::addColumn<QByteArray>("bytes");

    AddRow("text", "once upon a time");
    AddRow("page", "<!DOCTYPE html><html><body>picture</body></html>");
    AddRow("sound", "RIFF\x10\0\0\0WAVEfmt ");
    AddRow("noughts", QByteArray(500, '\0'));
    AddRow("icon", QByteArray("\0\0\1\0\1\0", 6));
}

void tst_anypicture::otherFilesAreToldFromPictures()
{
    QFETCH(const QByteArray, bytes);
    QCOMPARE(Read(bytes).Problem, unknown.toString());
}

void tst_anypicture::noFileIsTold()
{
    const QString problem = QStringLiteral("The picture is not there, is empty, or is larger than 512 MB !");
    QCOMPARE(ReadAnyPicture(folder_.filePath("none.png")).Problem, problem);
    QCOMPARE(ReadAnyPicture(folder_.path()).Problem, problem);
    QCOMPARE(Read({}).Problem, problem);
    QCOMPARE(ReadAnyPicture({}).Problem, problem);
}

void tst_anypicture::whatIsSeenThroughIsWhite_data()
{
    QTest::addColumn<QByteArray>("bytes");

    QImage glass(40, 30, QImage::Format_ARGB32);
    glass.fill(Qt::transparent);
    AddRow("png", Written(glass, "png"));
    AddRow("webp", Written(glass, "webp"));
    AddRow("svg", Svg(""));
}

void tst_anypicture::whatIsSeenThroughIsWhite()
{
    QFETCH(const QByteArray, bytes);
    if (bytes.isEmpty() || (bytes.contains("<svg") && !IsReadable("svg"))) {
        QSKIP("this system has no reader for it");
    }
    QImage white(40, 30, QImage::Format_RGB32);
    white.fill(Qt::white);
    QCOMPARE(Read(bytes).Picture, white);
}

void tst_anypicture::whatIsSeenThroughCanBeAskedFor_data()
{
    QTest::addColumn<QByteArray>("bytes");

    QImage half(40, 30, QImage::Format_ARGB32);
    half.fill(Qt::transparent);
    for (int y = 0; y < half.height(); ++y) {
        for (int x = half.width() / 2; x < half.width(); ++x) {
            half.setPixelColor(x, y, Qt::red);
        }
    }
    AddRow("png", Written(half, "png"));
    AddRow("webp", Written(half, "webp"));
    AddRow("svg", Svg("<rect x='20' width='20' height='30' fill='#f00'/>"));
    AddRow("gif", RedGif({ 40, 30 }, { 20, 0, 20, 30 }));
}

void tst_anypicture::whatIsSeenThroughCanBeAskedFor()
{
    QFETCH(const QByteArray, bytes);
    if (bytes.isEmpty() || (bytes.contains("<svg") && !IsReadable("svg"))) {
        QSKIP("this system has no reader for it");
    }
    const PictureReading reading = ReadSeeThroughPicture(Write(bytes));
    QCOMPARE(reading.Problem, QString());
    QCOMPARE(reading.Picture.size(), QSize(40, 30));
    QCOMPARE(reading.Picture.pixelColor(10, 15).alpha(), 0);
    QVERIFY(IsNear(reading.Picture.pixelColor(30, 15), Qt::red));
    QCOMPARE(reading.Picture.pixelColor(30, 15).alpha(), 255);
}

void tst_anypicture::whatIsReadSeeThroughIsCheckedToo()
{
    const QByteArray png = Written(FourCorners(), "png");
    QCOMPARE(ReadSeeThroughPicture(Write(png.chopped(20))).Problem, damaged);
    const PictureReading reading = ReadSeeThroughPicture(Write(Written(FourCorners(), "jpg")));
    QVERIFY(!reading.Picture.hasAlphaChannel());
    QVERIFY(AreNear(CornersOf(reading.Picture), uprightCorners));
}

void tst_anypicture::runsAreFollowedToTheirEnd()
{
    QCOMPARE(Read(RunsBmp(3, true)).Picture.pixelColor(1, 1), QColor(Qt::red));
    QCOMPARE(Read(RunsBmp(3, false)).Problem, QString());
    QCOMPARE(Read(RunsBmp(2, false)).Problem, damaged.toString());
}

void tst_anypicture::theNameGivesNoScale()
{
    const PictureReading reading = Read(Written(FourCorners(), "png"), "picture@2x.png");
    QCOMPARE(reading.Picture.devicePixelRatio(), 1.0);
    QCOMPARE(reading.Picture.size(), QSize(40, 30));
}

QTEST_MAIN(tst_anypicture)
#include "tst_anypicture.moc"
