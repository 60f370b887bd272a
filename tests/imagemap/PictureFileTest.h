#pragma once

#include "imagemap/picture/PictureFile.h"

#include <QFile>
#include <QLoggingCategory>
#include <QTemporaryDir>
#include <QTest>
#include <QtEndian>
#include <algorithm>
#include <array>
#include <initializer_list>
#include <vector>

/** The four corners of a picture: top left, top right, bottom left, bottom right. */
using Corners = std::array<QColor, 4>;

inline const Corners uprightCorners{ Qt::red, Qt::green, Qt::blue, Qt::yellow };

inline const std::initializer_list<const char*> fixtures{
    "colour.jpg", "progressive.jpg", "grey.jpg",        "cmyk.jpg",     "ycck.jpg",
    "plain.gif",  "interlaced.gif",  "transparent.gif", "animated.gif",
};

inline QString FixturePath(const QString& name)
{
    return QFINDTESTDATA("data/" + name);
}

inline QByteArray Fixture(const QString& name)
{
    QFile file(FixturePath(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

inline QByteArray Word(int value)
{
    QByteArray bytes(2, '\0');
    qToBigEndian(static_cast<quint16>(value), bytes.data());
    return bytes;
}

inline QByteArray LittleWord(int value)
{
    QByteArray bytes = Word(value);
    std::reverse(bytes.begin(), bytes.end());
    return bytes;
}

inline QByteArray Segment(char marker, const QByteArray& body)
{
    return QByteArray("\xFF") + marker + Word(static_cast<int>(body.size()) + 2) + body;
}

inline QByteArray WithSegments(const QByteArray& jpeg, const QByteArray& segments)
{
    return jpeg.first(2) + segments + jpeg.sliced(2);
}

/** What a camera writes of itself that was held in the way `orientation`, 1 to 8, stands for. */
inline QByteArray ExifBlock(int orientation, bool isLittleEndian = false)
{
    const auto word = isLittleEndian ? LittleWord : Word;
    const auto doubleWord = [&](int value) -> QByteArray {
        return isLittleEndian ? word(value) + word(0) : word(0) + word(value);
    };
    const QByteArray entry = word(0x0112) + word(3) + doubleWord(1) + word(orientation) + word(0);
    const QByteArray directory = word(1) + entry + doubleWord(0);
    return QByteArray(isLittleEndian ? "II" : "MM") + word(42) + doubleWord(8) + directory;
}

/** `jpeg` as that camera writes it. */
inline QByteArray WithOrientation(const QByteArray& jpeg, int orientation, bool isLittleEndian = false)
{
    const QByteArray mark("Exif\0\0", 6);
    return WithSegments(jpeg, Segment('\xE1', mark + ExifBlock(orientation, isLittleEndian)));
}

/** How a picture with uprightCorners is shown, by what the camera has written. */
inline void AddOrientationRows()
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

/** The data of a frame in the portions that a GIF carries it in. */
inline QByteArray InSubBlocks(const QByteArray& data)
{
    QByteArray blocks;
    for (qsizetype at = 0; at < data.size(); at += 255) {
        const QByteArray block = data.mid(at, 255);
        blocks += static_cast<char>(block.size()) + block;
    }
    return blocks + '\0';
}

inline constexpr int lzwClear = 4;

inline constexpr int lzwEnd = 5;

/** The data of a frame of four colours, from codes that are to stay three bits wide. */
inline QByteArray FrameData(const std::vector<int>& codes)
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
inline std::vector<int> RedPixels(int count)
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
inline QByteArray Gif(const QSize& canvas, const QRect& frame, const std::vector<int>& codes)
{
    const QByteArray palette("\xFF\0\0\0\xFF\0\0\0\xFF\0\0\0", 12);
    return "GIF89a" + LittleWord(canvas.width()) + LittleWord(canvas.height()) + QByteArray("\x81\0\0", 3) +
           palette + ',' + LittleWord(frame.x()) + LittleWord(frame.y()) + LittleWord(frame.width()) +
           LittleWord(frame.height()) + '\0' + FrameData(codes) + ';';
}

inline QByteArray RedGif(const QSize& canvas, const QRect& frame)
{
    return Gif(canvas, frame, RedPixels(frame.width() * frame.height()));
}

inline bool IsNear(const QColor& one, const QColor& other)
{
    constexpr int tolerance = 12;
    return std::abs(one.red() - other.red()) <= tolerance &&
           std::abs(one.green() - other.green()) <= tolerance &&
           std::abs(one.blue() - other.blue()) <= tolerance;
}

inline Corners CornersOf(const QImage& picture)
{
    const int right = picture.width() - 3;
    const int bottom = picture.height() - 3;
    return { picture.pixelColor(2, 2), picture.pixelColor(right, 2), picture.pixelColor(2, bottom),
             picture.pixelColor(right, bottom) };
}

inline bool AreNear(const Corners& one, const Corners& other)
{
    return std::equal(one.begin(), one.end(), other.begin(), IsNear);
}

inline void AddRow(const char* name, const QByteArray& bytes)
{
    QTest::newRow(name) << bytes;
}

/** Writes pictures, true and forged ones, and reads them as the program does. */
class PictureFileTest : public QObject
{
protected:
    void Begin();
    QString Write(const QByteArray& bytes, const QString& name = QStringLiteral("picture"));
    QImage Load(const QByteArray& bytes) { return LoadPicture(Write(bytes)); }

    QTemporaryDir folder_;
};

inline QString PictureFileTest::Write(const QByteArray& bytes, const QString& name)
{
    const QString path = folder_.filePath(name);
    QFile file(path);
    const bool written = file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush();
    return written ? path : QString();
}

inline void PictureFileTest::Begin()
{
    // Thousands of damaged pictures are read here, and Qt would complain of each.
    QLoggingCategory::setFilterRules("qt.gui.imageio*=false");
    QVERIFY(folder_.isValid());
    for (const char* name : fixtures) {
        QVERIFY2(!Fixture(name).isEmpty(), name);
    }
}
