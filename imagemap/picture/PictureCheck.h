#pragma once

#include <QRect>
#include <QSize>
#include <QtGlobal>
#include <optional>

class QIODevice;

/**
 * The most memory the pixels of one picture may take. A 100-megapixel photograph decodes to 400 MB and the
 * largest camera backs make half as much again, while a forged header cannot claim the machine's memory.
 */
inline constexpr int pictureMegabytesAtMost = 1024;

enum class PictureKind { Jpeg, Gif };

/** What the structure of a picture file tells before any pixel is decoded. */
struct PictureOutline
{
    PictureKind kind = PictureKind::Jpeg;
    QSize size;       ///< before any turning; a GIF's canvas is widened until it holds the first frame
    QRect firstFrame; ///< the part of the picture that the file has pixels for
    bool lacksEndMark =
        false;          ///< a JPEG that ends behind its scans; only decoding tells whether these are whole
    qint64 dataEnd = 0; ///< from this offset on there is nothing that the picture, or its first frame, needs
};

/**
 * Walks through the file behind `device`, which stands at its start, decoding nothing and holding little
 * of it in memory. Returns nothing unless it is a JPEG or GIF picture that is there up to its end, a JPEG's
 * end mark aside, and that cannot make a decoder work or allocate out of all proportion to what a true
 * picture would.
 */
[[nodiscard]] std::optional<PictureOutline> CheckPicture(QIODevice& device);
