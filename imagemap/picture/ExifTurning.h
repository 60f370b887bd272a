#pragma once

#include <QByteArray>
#include <QImage>

/**
 * How the camera was held, as the EXIF block `exif` tells it: 1 upright, 2 to 8 mirrored or turned as the
 * standard counts them. 1 too where the block says nothing of it or is damaged.
 */
[[nodiscard]] int ExifOrientation(const QByteArray& exif);

/** `picture` with what is up at the top. */
[[nodiscard]] QImage TurnedUpright(const QImage& picture, int orientation);
