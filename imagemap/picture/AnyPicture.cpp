#include "imagemap/picture/AnyPicture.h"

#include "imagemap/picture/ExifTurning.h"
#include "imagemap/picture/OtherPictureCheck.h"
#include "imagemap/picture/PictureDecoding.h"
#include "imagemap/picture/PictureFile.h"
#include "imagemap/picture/PictureLimits.h"
#include "imagemap/picture/SvgCheck.h"

#include <QBuffer>
#include <QFile>
#include <QPainter>
#include <algorithm>
#include <array>

namespace {

constexpr QStringView noFileText = u"The picture is not there, is empty, or is larger than 512 MB !";
constexpr QStringView unknownText =
    u"This is no picture in one of the forms JPG, GIF, PNG, BMP, WebP and SVG !";
constexpr QStringView damagedText = u"The picture is cut off or damaged !";
constexpr QStringView tooLargeText = u"The picture has more pixels than can be believed !";
constexpr QStringView noReaderText = u"Pictures of this form cannot be read on this system !";

/** No drawing made by hand or by a program comes near it. */
constexpr qint64 svgBytesAtMost = 16 * bytesPerMegabyte;
constexpr qsizetype longestStart = 12;

using Check = std::optional<OtherOutline> (*)(QIODevice&);

/** A form of picture: how its files begin, and how they are checked. */
struct PictureForm
{
    const char* format; ///< its name in Qt
    bool (*begins)(const QByteArray& start);
    Check check; ///< none for a text
};

bool BeginsAsText(const QByteArray& start)
{
    const QByteArray text = start.startsWith("\xEF\xBB\xBF") ? start.sliced(3) : start;
    const bool isWide = start.startsWith("\xFF\xFE<") || start.startsWith(QByteArray("\xFE\xFF\0<", 4));
    return isWide || text.trimmed().startsWith('<') || text.trimmed().isEmpty();
}

constexpr std::array<PictureForm, 4> pictureForms = { {
    { "png", [](const QByteArray& start) { return start.startsWith("\x89PNG\r\n\x1A\n"); }, &CheckPng },
    { "bmp", [](const QByteArray& start) { return start.startsWith("BM"); }, &CheckBmp },
    { "webp", [](const QByteArray& start) { return start.startsWith("RIFF") && start.endsWith("WEBP"); },
      &CheckWebP },
    { "svg", &BeginsAsText, nullptr },
} };

PictureReading Failure(QStringView text)
{
    return { {}, text.toString() };
}

/** What came of decoding, with pixels of its own. */
PictureReading Decoded(QImage picture)
{
    picture.setDevicePixelRatio(1);
    return picture.isNull() ? Failure(damagedText) : PictureReading{ picture, {} };
}

/** What was read as it is shown: its pixels opaque, on white. */
PictureReading OnWhite(PictureReading reading)
{
    QImage& picture = reading.Picture;
    if (picture.isNull()) {
        return reading;
    }
    if (picture.hasAlphaChannel()) {
        QImage onWhite(picture.size(), QImage::Format_RGB32);
        onWhite.fill(Qt::white);
        QPainter(&onWhite).drawImage(0, 0, picture);
        picture = onWhite;
    }
    picture.convertTo(QImage::Format_RGB32);
    return reading;
}

/** A page begins like a drawing, but is none whether these can be read or not. */
PictureReading ReadDrawing(QFile& file, bool isReadable)
{
    if (file.size() > svgBytesAtMost) {
        return Failure(tooLargeText);
    }
    const QByteArray text = file.readAll();
    std::optional<QByteArray> drawing = HarmlessSvg(text);
    if (!drawing) {
        return Failure(text.contains("svg") ? damagedText : unknownText);
    }
    if (!isReadable) {
        return Failure(noReaderText);
    }
    QBuffer buffer(&*drawing);
    if (!buffer.open(QIODevice::ReadOnly)) {
        return Failure(damagedText);
    }
    // How much is painted does not show in the length of a drawing.
    const QSize size = QImageReader(&buffer, "svg").size();
    if (!size.isEmpty() && !IsCredible(size, 0, 1)) {
        return Failure(tooLargeText);
    }
    buffer.seek(0);
    return Decoded(DecodePicture(buffer, "svg"));
}

PictureReading ReadPixels(QFile& file, const PictureForm& form)
{
    const std::optional<OtherOutline> outline = form.check(file);
    if (!outline || !file.seek(0)) {
        return Failure(damagedText);
    }
    if (!IsCredible(outline->size, outline->dataBytes, outline->pixelsPerByte)) {
        return Failure(tooLargeText);
    }
    const QImage picture = DecodePicture(file, form.format);
    return picture.size() == outline->size ? Decoded(TurnedUpright(picture, outline->orientation))
                                           : Failure(damagedText);
}

/** `loadFirstForms` is what reads a JPEG or GIF. */
PictureReading
ReadByContent(const QString& path, const QByteArrayList& readable, QImage (*loadFirstForms)(const QString&))
{
    QFile file(path);
    if (!MayBePicture(path) || !file.open(QIODevice::ReadOnly)) {
        return Failure(noFileText);
    }
    const QByteArray start = file.peek(longestStart);
    if (start.startsWith("\xFF\xD8\xFF") || start.startsWith("GIF8")) {
        return Decoded(loadFirstForms(path));
    }
    const auto form =
        std::find_if(pictureForms.begin(), pictureForms.end(), [&start](const PictureForm& one) {
            return one.begins(start);
        });
    if (form == pictureForms.end()) {
        return Failure(unknownText);
    }
    const bool isReadable = readable.contains(form->format);
    if (form->check == nullptr) {
        return ReadDrawing(file, isReadable);
    }
    return isReadable ? ReadPixels(file, *form) : Failure(noReaderText);
}

} // namespace

PictureReading ReadAnyPicture(const QString& path, const QByteArrayList& readable)
{
    return OnWhite(ReadByContent(path, readable, &LoadPicture));
}

PictureReading ReadSeeThroughPicture(const QString& path)
{
    return ReadByContent(path, QImageReader::supportedImageFormats(), &LoadSeeThroughPicture);
}
