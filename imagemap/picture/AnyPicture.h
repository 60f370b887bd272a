#pragma once

#include <QByteArrayList>
#include <QImage>
#include <QImageReader>
#include <QString>

/** A picture that was read, or what is to be told about it. */
struct PictureReading
{
    QImage Picture;  ///< in the format RGB32, on white; null when there is none
    QString Problem; ///< a sentence for the user; empty when all is well
};

/**
 * Reads the picture in the file `path`: besides JPEG and GIF also PNG, BMP, WebP and SVG, told by its content
 * and checked before anything is decoded. Only forms among `readable` can be decoded.
 */
[[nodiscard]] PictureReading
ReadAnyPicture(const QString& path, const QByteArrayList& readable = QImageReader::supportedImageFormats());
