#include "imagemap/picture/PictureCheck.h"

#include "imagemap/picture/ByteSource.h"
#include "imagemap/picture/GifCheck.h"
#include "imagemap/picture/JpegCheck.h"

#include <QByteArray>
#include <QIODevice>

std::optional<PictureOutline> CheckPicture(QIODevice& device)
{
    const QByteArray start = device.peek(6);
    ByteSource source(device);
    if (start.startsWith("\xFF\xD8\xFF")) {
        source.Skip(2);
        return CheckJpeg(source);
    }
    if (start == "GIF87a" || start == "GIF89a") {
        source.Skip(start.size());
        return CheckGif(source);
    }
    return {};
}
