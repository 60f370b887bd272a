// Pictures through the check and the decoders.

#include "FuzzTarget.h"
#include "InputFile.h"
#include "imagemap/picture/PictureCheck.h"
#include "imagemap/picture/PictureFile.h"

#include <QBuffer>
#include <QImageReader>

namespace {

/** Larger claims cost a second each: one in `largeOnes` is tried. */
constexpr qint64 pixelsAtEase = 1 << 20;
constexpr std::size_t largeOnes = 32;

std::optional<PictureOutline> OutlineOf(QByteArrayView bytes)
{
    QByteArray copy = bytes.toByteArray();
    QBuffer device(&copy);
    device.open(QIODevice::ReadOnly);
    return CheckPicture(device);
}

void CheckPixels(const QImage& image, const PictureOutline& outline)
{
    const bool isTurned = outline.kind == PictureKind::Jpeg && image.size() == outline.size.transposed();
    Demand(image.size() == outline.size || isTurned, "a picture is as large as its file says");
    Demand(image.format() == QImage::Format_RGB32, "a picture has plain opaque pixels");
    Demand(image.devicePixelRatio() == 1.0, "a picture's pixels are its own");
    const QRgb first = image.pixel(0, 0);
    const QRgb last = image.pixel(image.width() - 1, image.height() - 1);
    Demand(qAlpha(first) == 255 && qAlpha(last) == 255, "nothing shines through a picture");
}

void IgnoreMessage(QtMsgType, const QMessageLogContext&, const QString&) {}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    // The decoders have a word to say on every second input.
    static const QtMessageHandler messages = qInstallMessageHandler(IgnoreMessage);
    Q_UNUSED(messages);

    const QByteArrayView bytes = BytesOf(data, size);
    const std::optional<PictureOutline> outline = OutlineOf(bytes);
    const bool isLarge = outline && qint64(outline->size.width()) * outline->size.height() > pixelsAtEase;
    if (isLarge && size % largeOnes != 0) {
        return 0;
    }
    const int limit = QImageReader::allocationLimit();
    InputFile file(bytes);
    const QImage image = LoadPicture(file.Path());
    Demand(QImageReader::allocationLimit() == limit, "the limit for other pictures is left alone");
    Demand(outline || image.isNull(), "what fails the check is never decoded");
    if (!image.isNull()) {
        CheckPixels(image, *outline);
    }
    return 0;
}
