// Pictures that are cut off or damaged.

#include "tests/imagemap/PictureFileTest.h"

#include <QElapsedTimer>
#include <QTest>
#include <random>

class tst_damagedpictures : public PictureFileTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { Begin(); }

    void truncatedPictureGivesNoPicture_data();
    void truncatedPictureGivesNoPicture();
    void endOfAnExifThumbnailIsNotTheEnd();
    void bytesBehindTheEndDoNoHarm_data();
    void bytesBehindTheEndDoNoHarm();
    void damagedPictureGivesNoPicture_data();
    void damagedPictureGivesNoPicture();
    void randomDamageNeverCrashes_data();
    void randomDamageNeverCrashes();
};

void tst_damagedpictures::truncatedPictureGivesNoPicture_data()
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

void tst_damagedpictures::truncatedPictureGivesNoPicture()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const qsizetype, end);
    for (qsizetype length = 0; length < bytes.size(); ++length) {
        const bool isPicture = !Load(bytes.first(length)).isNull();
        QVERIFY2(isPicture == (length >= end), qPrintable(QString::number(length)));
    }
}

void tst_damagedpictures::endOfAnExifThumbnailIsNotTheEnd()
{
    const QByteArray thumbnail = Segment('\xE1', QByteArray("Exif\0\0", 6) + Fixture("grey.jpg"));
    const QByteArray jpeg = WithSegments(Fixture("colour.jpg"), thumbnail);
    QVERIFY(AreNear(CornersOf(Load(jpeg)), uprightCorners));
    for (const qsizetype missing : { 3, 100, 400 }) {
        QVERIFY(Load(jpeg.chopped(missing)).isNull());
    }
}

void tst_damagedpictures::bytesBehindTheEndDoNoHarm_data()
{
    QTest::addColumn<QString>("name");
    for (const QString name : fixtures) {
        QTest::newRow(qPrintable(name)) << name;
    }
}

void tst_damagedpictures::bytesBehindTheEndDoNoHarm()
{
    QFETCH(const QString, name);
    const QByteArray bytes = Fixture(name);
    const QImage picture = Load(bytes);
    QCOMPARE(Load(bytes + QByteArray(5000, '\xA5')), picture);
    QCOMPARE(Load(bytes + QByteArray(5000, '\0')), picture);
    QCOMPARE(Load(bytes + bytes.first(bytes.size() / 2)), picture);
}

void tst_damagedpictures::damagedPictureGivesNoPicture_data()
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

void tst_damagedpictures::damagedPictureGivesNoPicture()
{
    QFETCH(const QByteArray, bytes);
    QVERIFY(Load(bytes).isNull());
}

void tst_damagedpictures::randomDamageNeverCrashes_data()
{
    QTest::addColumn<QByteArray>("bytes");
    for (const QString name : fixtures) {
        QTest::newRow(qPrintable(name)) << Fixture(name);
    }
    AddRow("JPEG with EXIF", WithOrientation(Fixture("colour.jpg"), 6));
}

void tst_damagedpictures::randomDamageNeverCrashes()
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

QTEST_GUILESS_MAIN(tst_damagedpictures)

#include "tst_damagedpictures.moc"
