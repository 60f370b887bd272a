#include "imagemap/picture/PictureFile.h"

#include "imagemap/picture/PictureCheck.h"
#include "imagemap/picture/PictureDecoding.h"
#include "imagemap/picture/PictureLimits.h"

#include <QBuffer>
#include <QFile>
#include <QtEndian>
#include <algorithm>
#include <array>
#include <optional>

namespace {

/**
 * What a decoder takes for more of a scan that has not ended, and passes over behind one that has: `bits`,
 * and the marks of all restarts with some more behind each.
 */
QByteArray MoreOfAScan(const QByteArray& bits)
{
    constexpr int pieces = 16;
    constexpr int restarts = 8;
    constexpr int firstRestart = 0xD0;
    QByteArray more = bits.repeated(pieces);
    for (int piece = 0; piece < pieces; ++piece) {
        more.append('\xFF').append(static_cast<char>(firstRestart + piece % restarts)).append(bits);
    }
    return more;
}

QImage DecodeBytes(QByteArray bytes, const QByteArray& format)
{
    QBuffer buffer(&bytes);
    return buffer.open(QIODevice::ReadOnly) ? DecodePicture(buffer, format) : QImage();
}

/** Decodes a JPEG that lacks its end mark, and nothing else: more of its last scan would make no difference.
 */
QImage DecodeWithoutEndMark(QFile& file)
{
    static constexpr std::array moreBits = { "fedba7f36de4913bc25ba7136de4913b",
                                             "5ba7136de4913bc25ba7136de4913bfe" };
    const QByteArray endMark = QByteArrayLiteral("\xFF\xD9");
    QByteArray bytes = file.readAll();
    if (bytes.endsWith('\xFF')) {
        // Half of the end mark, or a byte of a scan: that is written with a nought behind it.
        bytes.append('\0');
    }
    const auto hashOf = [](QImage image) {
        // Rows of other formats end in bytes that mean nothing.
        image.convertTo(QImage::Format_RGB32);
        return qHashBits(image.constBits(), static_cast<size_t>(image.sizeInBytes()));
    };
    // A decoder goes on with noughts. The code that is cut off may mean the same with one other continuation,
    // but not with two that differ from their first bits on.
    std::array<size_t, 2> withMore = {};
    std::transform(moreBits.begin(), moreBits.end(), withMore.begin(), [&](const char* bits) {
        return hashOf(DecodeBytes(bytes + MoreOfAScan(QByteArray::fromHex(bits)) + endMark, "jpeg"));
    });
    QImage image = DecodeBytes(bytes + endMark, "jpeg");
    const size_t hash = hashOf(image);
    return std::all_of(withMore.begin(), withMore.end(), [hash](size_t other) { return other == hash; })
               ? image
               : QImage();
}

QImage DecodeJpeg(QFile& file, const PictureOutline& outline)
{
    QImage image = outline.lacksEndMark ? DecodeWithoutEndMark(file) : DecodePicture(file, "jpeg");
    if (image.size() != outline.size && image.size() != outline.size.transposed()) {
        return {};
    }
    // A file named photo@2x.jpg would come with half its size in device-independent pixels.
    image.setDevicePixelRatio(1);
    image.convertTo(QImage::Format_RGB32);
    return image;
}

/** The file up to the end of its first frame, on the canvas that browsers would give to the frame. */
QByteArray FirstFrameBytes(QFile& file, const PictureOutline& outline)
{
    constexpr qsizetype canvasOffset = 6;
    QByteArray bytes = file.read(outline.dataEnd);
    if (bytes.size() != outline.dataEnd) {
        return {};
    }
    bytes.append('\0').append(';');
    qToLittleEndian(static_cast<quint16>(outline.size.width()), bytes.data() + canvasOffset);
    qToLittleEndian(static_cast<quint16>(outline.size.height()), bytes.data() + canvasOffset + 2);
    return bytes;
}

constexpr QRgb nothingBehind = 0;
constexpr QRgb whiteBehind = 0xFFFFFFFF;

/** Makes what `image` lets through `behind`, in place: the pixels of a large picture are not copied lightly.
 */
void PutBehind(QRgb behind, QImage& image, const QRect& frame)
{
    constexpr QRgb opaque = 0xFF000000;
    const bool isSeeThrough = image.hasAlphaChannel();
    const auto over = [isSeeThrough, behind](QRgb pixel) {
        return isSeeThrough && qAlpha(pixel) == 0 ? behind : pixel | opaque;
    };
    for (int y = 0; y < image.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
        const bool isCovered = y >= frame.top() && y <= frame.bottom();
        QRgb* first = row + (isCovered ? frame.left() : 0);
        QRgb* last = first + (isCovered ? frame.width() : 0);
        std::fill(row, first, behind);
        std::transform(first, last, first, over);
        std::fill(last, row + image.width(), behind);
    }
}

QImage DecodeGif(QFile& file, const PictureOutline& outline, QRgb behind)
{
    QImage image;
    {
        QByteArray bytes = FirstFrameBytes(file, outline);
        QBuffer buffer(&bytes);
        if (bytes.isEmpty() || !buffer.open(QIODevice::ReadOnly)) {
            return {};
        }
        image = DecodePicture(buffer, "gif");
    }
    if (image.size() != outline.size || image.depth() != 32) {
        return {};
    }
    PutBehind(behind, image, outline.firstFrame);
    image.reinterpretAsFormat(behind == nothingBehind ? QImage::Format_ARGB32 : QImage::Format_RGB32);
    return image;
}

QImage LoadOn(QRgb behind, const QString& path)
{
    if (!MayBePicture(path)) {
        return {};
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    const std::optional<PictureOutline> outline = CheckPicture(file);
    if (!outline || !file.seek(0)) {
        return {};
    }
    return outline->kind == PictureKind::Jpeg ? DecodeJpeg(file, *outline)
                                              : DecodeGif(file, *outline, behind);
}

} // namespace

QImage LoadPicture(const QString& path)
{
    return LoadOn(whiteBehind, path);
}

QImage LoadSeeThroughPicture(const QString& path)
{
    return LoadOn(nothingBehind, path);
}
