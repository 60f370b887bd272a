#pragma once

#include <QImage>
#include <QString>

class QIODevice;

/** Whether `path` is that of a file with a content, and not too large a one for a picture. */
[[nodiscard]] bool MayBePicture(const QString& path);

/** Decodes what `device` holds from where it stands, as `format` and nothing else; null when that fails. */
[[nodiscard]] QImage DecodePicture(QIODevice& device, const QByteArray& format);
