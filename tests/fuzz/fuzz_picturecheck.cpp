// The check that stands before the picture decoders.

#include "FuzzTarget.h"
#include "imagemap/picture/PictureCheck.h"
#include "imagemap/picture/PictureLimits.h"

#include <QBuffer>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    QByteArray bytes = BytesOf(data, size).toByteArray();
    QBuffer device(&bytes);
    device.open(QIODevice::ReadOnly);
    const std::optional<PictureOutline> outline = CheckPicture(device);
    if (!outline) {
        return 0;
    }
    const QRect picture(QPoint(), outline->size);
    Demand(!picture.isEmpty(), "a picture has pixels");
    Demand(
        qint64(picture.width()) * picture.height() * 4 <= qint64(pictureMegabytesAtMost) << 20,
        "a picture's pixels have room");
    Demand(
        !outline->firstFrame.isEmpty() && picture.contains(outline->firstFrame),
        "the first frame is in the picture");
    Demand(outline->dataEnd > 0 && outline->dataEnd <= bytes.size(), "the picture is in the file");

    // What lies behind the first frame is of no account, unless the frame must be told to be over.
    bytes.append("\xFF\xD9\0;", 4);
    device.close();
    device.open(QIODevice::ReadOnly);
    const std::optional<PictureOutline> longer = CheckPicture(device);
    Demand(longer && longer->size == outline->size, "a picture stays one with something behind it");
    return 0;
}
