#pragma once

#include <QByteArrayList>
#include <QImage>
#include <QImageReader>
#include <QString>

/** A picture that was read, or what is to be told about it. */
struct PictureReading
{
    QImage Picture;  ///< null when there is none
    QString Problem; ///< a sentence for the user; empty when all is well
};

/**
 * Reads the picture in the file `path`: besides JPEG and GIF also PNG, BMP, WebP and SVG, told by its content
 * and checked before anything is decoded. Only forms among `readable` can be decoded. It is on white, in the
 * format RGB32.
 */
[[nodiscard]] PictureReading
ReadAnyPicture(const QString& path, const QByteArrayList& readable = QImageReader::supportedImageFormats());

/** Reads the same picture as large, but not on white: what is transparent in the file is so in it. */
[[nodiscard]] PictureReading ReadSeeThroughPicture(const QString& path);
