#pragma once

#include <QSize>
#include <QtGlobal>

/**
 * The most memory the pixels of one picture may take. A 100-megapixel photograph decodes to 400 MB and the
 * largest camera backs make half as much again, while a forged header cannot claim the machine's memory.
 */
inline constexpr int pictureMegabytesAtMost = 1024;

inline constexpr qint64 bytesPerMegabyte = qint64(1) << 20;

/** What a pixel takes once it is decoded. */
inline constexpr qint64 bytesPerPixel = 4;

/** The most pixels that one picture may have. */
inline constexpr qint64 pixelsAtMost = pictureMegabytesAtMost * bytesPerMegabyte / bytesPerPixel;

/** The pixels of a picture of this size. */
[[nodiscard]] qint64 PixelsOf(QSize size);

/**
 * Whether a picture of this size may be in so many bytes of compressed data, of which each stands for
 * `pixelsPerByte` at best.
 */
[[nodiscard]] bool IsCredible(QSize size, qint64 dataBytes, qint64 pixelsPerByte);
