#include "imagemap/picture/PictureLimits.h"

namespace {

/** Qt's own limit of 128 MB: a claim up to here is taken on trust, since it costs little when it is a lie. */
constexpr qint64 pixelsTaken = 32 * bytesPerMegabyte;

} // namespace

qint64 PixelsOf(QSize size)
{
    return qint64(size.width()) * size.height();
}

bool IsCredible(QSize size, qint64 dataBytes, qint64 pixelsPerByte)
{
    const qint64 pixels = PixelsOf(size);
    return !size.isEmpty() && pixels <= pixelsAtMost &&
           (pixels <= pixelsTaken || dataBytes >= pixels / pixelsPerByte);
}
