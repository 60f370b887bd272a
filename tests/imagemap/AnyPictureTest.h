#pragma once

#include "PictureFileTest.h"
#include "imagemap/picture/AnyPicture.h"

#include <QBuffer>
#include <QPainter>

inline constexpr QStringView damaged = u"The picture is cut off or damaged !";

/** A picture of 40 by 30 pixels with a corner of each colour. */
inline QImage FourCorners()
{
    QImage picture(40, 30, QImage::Format_RGB32);
    QPainter painter(&picture);
    painter.fillRect(0, 0, 20, 15, uprightCorners[0]);
    painter.fillRect(20, 0, 20, 15, uprightCorners[1]);
    painter.fillRect(0, 15, 20, 15, uprightCorners[2]);
    painter.fillRect(20, 15, 20, 15, uprightCorners[3]);
    return picture;
}

/** Whether the Qt of this system has a reader for pictures of that form. */
inline bool IsReadable(const char* format)
{
    return QImageReader::supportedImageFormats().contains(format);
}

inline QByteArray Written(const QImage& picture, const char* format)
{
    if (!IsReadable(format)) {
        return {};
    }
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (!buffer.open(QIODevice::WriteOnly) || !picture.save(&buffer, format, 100)) {
        qFatal("cannot write %s", format);
    }
    return bytes;
}

inline QByteArray Svg(const QByteArray& contents, const QByteArray& size = "width='40' height='30'")
{
    return "<?xml version='1.0'?>\n<svg xmlns='http://www.w3.org/2000/svg' "
           "xmlns:xlink='http://www.w3.org/1999/xlink' " +
           size + ">" + contents + "</svg>\n";
}

/** Pictures of the forms that only new commands open. */
class AnyPictureTest : public PictureFileTest
{
protected:
    PictureReading Read(const QByteArray& bytes, const QString& name = QStringLiteral("picture"))
    {
        return ReadAnyPicture(Write(bytes, name));
    }
};
