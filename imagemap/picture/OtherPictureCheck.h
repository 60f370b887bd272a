#pragma once

#include <QSize>
#include <QtGlobal>
#include <optional>

class QIODevice;

/** What the structure of a picture file tells before any pixel is decoded. */
struct OtherOutline
{
    QSize size;
    qint64 dataBytes = 0;     ///< what the pixels are compressed to
    qint64 pixelsPerByte = 1; ///< that a byte of it can stand for at best
    int orientation = 1;      ///< as EXIF counts them, where browsers go by it
};

// Each of these walks through a file that `device` stands at the start of, decoding nothing, and returns
// nothing unless it is such a picture and is there up to its end.

[[nodiscard]] std::optional<OtherOutline> CheckPng(QIODevice& device);
[[nodiscard]] std::optional<OtherOutline> CheckBmp(QIODevice& device);
[[nodiscard]] std::optional<OtherOutline> CheckWebP(QIODevice& device);
