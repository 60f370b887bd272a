#pragma once

#include <QImage>
#include <QString>

/**
 * Reads the JPEG or GIF picture in the file `path`, told by its content, as a browser shows it on a white
 * page: turned the way its camera was held, and of an animation the first frame. The result has the format
 * RGB32 and no transparency. It is null when the file is anything but a whole picture of these two kinds.
 */
[[nodiscard]] QImage LoadPicture(const QString& path);

/** Reads the same picture with what is transparent in it; a GIF has the format ARGB32 then. */
[[nodiscard]] QImage LoadSeeThroughPicture(const QString& path);
