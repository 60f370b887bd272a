#include "imagemap/picture/OtherPictureCheck.h"

#include "imagemap/picture/ByteSource.h"
#include "imagemap/picture/ExifTurning.h"

#include <QByteArray>
#include <QIODevice>
#include <algorithm>
#include <array>
#include <cstdlib>

namespace {

constexpr int bitsPerByte = 8;
constexpr int bitsPerWord = 16;

quint32 LittleEndianLong(ByteSource& source)
{
    const int low = source.LittleEndianWord();
    return static_cast<quint32>(low) | static_cast<quint32>(source.LittleEndianWord()) << bitsPerWord;
}

quint32 BigEndianLong(ByteSource& source)
{
    const int high = source.BigEndianWord();
    return static_cast<quint32>(high) << bitsPerWord | static_cast<quint32>(source.BigEndianWord());
}

QByteArray ChunkName(ByteSource& source)
{
    QByteArray name(4, '\0');
    std::generate(name.begin(), name.end(), [&source] { return static_cast<char>(source.Byte()); });
    return name;
}

constexpr int sizeAtMost = 0x7FFFFFFF;

QSize SizeOf(quint32 width, quint32 height)
{
    return width <= sizeAtMost && height <= sizeAtMost
               ? QSize(static_cast<int>(width), static_cast<int>(height))
               : QSize();
}

/** The samples of a pixel in each of PNG's kinds of colour; none in those that there are not. */
constexpr std::array<int, 7> pngSamples = { 1, 0, 3, 1, 2, 0, 4 };

/** What stands at a PNG's beginning: size, depth and kind of colour. */
bool ReadPngHeader(ByteSource& source, OtherOutline& outline)
{
    /** Deflate makes no more than 1032 bytes of one. */
    constexpr qint64 deflateAtMost = 1032;
    const quint32 width = BigEndianLong(source);
    const quint32 height = BigEndianLong(source);
    const int depth = source.Byte();
    const uint colour = source.Byte();
    const int samples = colour < pngSamples.size() ? pngSamples[colour] : 0;
    if (depth == 0 || samples == 0) {
        return false;
    }
    outline.size = SizeOf(width, height);
    outline.pixelsPerByte = std::max<qint64>(1, deflateAtMost * bitsPerByte / (qint64{ depth } * samples));
    constexpr int methods = 3;
    source.Skip(methods);
    return !outline.size.isEmpty();
}

/** The orientation stands near the beginning of the block of EXIF that `source` stands at. */
int ReadOrientation(ByteSource& source, quint32 length)
{
    constexpr quint32 readAtMost = 64 * 1024;
    QByteArray exif(std::min(length, readAtMost), '\0');
    std::generate(exif.begin(), exif.end(), [&source] { return static_cast<char>(source.Byte()); });
    return ExifOrientation(exif);
}

struct BmpHeader
{
    qint64 pixelsAt = 0;
    qint64 width = 0;
    qint64 height = 0; ///< negative where the rows stand from top to bottom
    int bits = 0;
    quint32 compression = 0;
};

constexpr quint32 bmpPlain = 0;
constexpr quint32 bmpRuns8 = 1;
constexpr quint32 bmpRuns4 = 2;
constexpr quint32 bmpMasks = 3;

BmpHeader ReadBmpHeader(ByteSource& source)
{
    constexpr int beforeOffset = 10;
    constexpr quint32 oldHeader = 12;
    BmpHeader header;
    source.Skip(beforeOffset);
    header.pixelsAt = LittleEndianLong(source);
    if (LittleEndianLong(source) == oldHeader) {
        header.width = source.LittleEndianWord();
        header.height = source.LittleEndianWord();
        source.Skip(2);
        header.bits = source.LittleEndianWord();
    } else {
        header.width = static_cast<qint32>(LittleEndianLong(source));
        header.height = static_cast<qint32>(LittleEndianLong(source));
        source.Skip(2);
        header.bits = source.LittleEndianWord();
        header.compression = LittleEndianLong(source);
    }
    return header;
}

/** Whether the runs that `source` stands at go on until they say that they have ended, or all rows are there.
 */
bool AreRunsWhole(ByteSource& source, const BmpHeader& header)
{
    enum Escape { EndOfRow, EndOfPicture, Shift };
    qint64 rows = 0;
    while (!source.HasEnded()) {
        const int count = source.Byte();
        const int value = source.Byte();
        if (count > 0) {
            continue;
        }
        if (value == EndOfPicture || (value == EndOfRow && ++rows == std::abs(header.height))) {
            return !source.HasEnded();
        }
        if (value == Shift) {
            source.Skip(2);
        } else if (value > Shift) {
            const int bytes = header.bits == bitsPerByte ? value : (value + 1) / 2;
            source.Skip(bytes + bytes % 2);
        }
    }
    return false;
}

constexpr quint32 fileTypeLength = 4;

/** The size in the frame of a WebP that `source` stands at; empty where it is no frame. */
QSize WebPFrameSize(ByteSource& source, const QByteArray& chunk)
{
    constexpr int sizeBits = 14;
    constexpr quint32 sizeMask = (1U << sizeBits) - 1;
    if (chunk == "VP8 ") {
        constexpr int beforeSize = 6;
        source.Skip(beforeSize);
        const auto width = static_cast<quint32>(source.LittleEndianWord());
        const auto height = static_cast<quint32>(source.LittleEndianWord());
        return SizeOf(width & sizeMask, height & sizeMask);
    }
    source.Skip(1);
    const quint32 both = LittleEndianLong(source);
    return SizeOf((both & sizeMask) + 1, (both >> sizeBits & sizeMask) + 1);
}

QSize WebPCanvasSize(ByteSource& source)
{
    constexpr int beforeSize = 4;
    source.Skip(beforeSize);
    const auto next = [&source] {
        const int low = source.LittleEndianWord();
        return static_cast<quint32>(low) | static_cast<quint32>(source.Byte()) << bitsPerWord;
    };
    const quint32 width = next() + 1;
    return SizeOf(width, next() + 1);
}

} // namespace

std::optional<OtherOutline> CheckPng(QIODevice& device)
{
    constexpr int signature = 8;
    constexpr int checksum = 4;
    constexpr quint32 headerLength = 13;
    ByteSource source(device);
    source.Skip(signature);
    OtherOutline outline;
    if (BigEndianLong(source) != headerLength || ChunkName(source) != "IHDR" ||
        !ReadPngHeader(source, outline)) {
        return {};
    }
    source.Skip(checksum);
    while (!source.HasEnded()) {
        const quint32 length = BigEndianLong(source);
        const QByteArray name = ChunkName(source);
        const qint64 next = source.Position() + length + checksum;
        // Browsers decide how to show a picture before they come to its pixels.
        if (name == "eXIf" && outline.dataBytes == 0) {
            outline.orientation = ReadOrientation(source, length);
        }
        source.Skip(next - source.Position());
        if (name == "IDAT") {
            outline.dataBytes += length;
        } else if (name == "IEND") {
            return source.HasEnded() || outline.dataBytes == 0 ? std::nullopt : std::optional(outline);
        }
    }
    return {};
}

std::optional<OtherOutline> CheckBmp(QIODevice& device)
{
    constexpr qint64 rowBits = 32;
    constexpr int rowBytes = 4;
    /** A run of two bytes stands for up to 255 pixels. */
    constexpr qint64 runPixelsPerByte = 128;
    const qint64 fileBytes = device.size();
    ByteSource source(device);
    const BmpHeader header = ReadBmpHeader(source);
    const bool isInRuns = header.compression == bmpRuns8 || header.compression == bmpRuns4;
    if (header.width <= 0 || header.height == 0 || header.bits == 0 || source.HasEnded()) {
        return {};
    }
    OtherOutline outline = {
        .size = SizeOf(static_cast<quint32>(header.width), static_cast<quint32>(std::abs(header.height))),
        .dataBytes = fileBytes - header.pixelsAt,
        .pixelsPerByte = runPixelsPerByte
    };
    if (isInRuns) {
        source.Skip(header.pixelsAt - source.Position());
        return AreRunsWhole(source, header) ? std::optional(outline) : std::nullopt;
    }
    const qint64 row = (header.width * header.bits + rowBits - 1) / rowBits * rowBytes;
    const bool isKnown = header.compression == bmpPlain || header.compression == bmpMasks;
    // As a division: a forged product could be beyond 64 bits.
    return isKnown && outline.dataBytes / row >= std::abs(header.height) ? std::optional(outline)
                                                                         : std::nullopt;
}

std::optional<OtherOutline> CheckWebP(QIODevice& device)
{
    constexpr qint64 fileHeader = 8;
    const qint64 fileBytes = device.size();
    ByteSource source(device);
    source.Skip(fileTypeLength);
    const qint64 end = fileHeader + LittleEndianLong(source);
    source.Skip(fileTypeLength);
    // A whole row of one colour takes nothing, so only the usual is known of how much a byte can be.
    OtherOutline outline = { .size = {}, .dataBytes = 0, .pixelsPerByte = 4096 };
    while (source.Position() + fileHeader <= end && end <= fileBytes) {
        const QByteArray name = ChunkName(source);
        const qint64 length = LittleEndianLong(source);
        const qint64 next = source.Position() + length + length % 2;
        // The padding behind the last one is often left out.
        if (next - length % 2 > end) {
            return {};
        }
        if (name == "VP8X") {
            outline.size = WebPCanvasSize(source);
        } else if (name == "VP8 " || name == "VP8L" || name == "ANMF") {
            outline.dataBytes += length;
            outline.size = outline.size.isEmpty() ? WebPFrameSize(source, name) : outline.size;
        }
        source.Skip(next - source.Position());
    }
    return outline.dataBytes > 0 && !outline.size.isEmpty() ? std::optional(outline) : std::nullopt;
}
