#pragma once

#include <QRect>
#include <QSize>
#include <QtGlobal>

/** The forms of picture whose files are told by their structure. */
enum class PictureKind { Jpeg, Gif };

/** What the structure of a picture file tells before any pixel is decoded. */
struct PictureOutline
{
    PictureKind kind = PictureKind::Jpeg;
    QSize size;       ///< before any turning; a GIF's canvas is widened until it holds the first frame
    QRect firstFrame; ///< the part of the picture that the file has pixels for
    /** A JPEG that ends behind its scans; only decoding tells whether these are whole. */
    bool lacksEndMark = false;
    qint64 dataEnd = 0; ///< from this offset on there is nothing that the picture, or its first frame, needs
};
