#include "shared/DeviceWriting.h"

#include <QFile>

std::optional<QString> WriteToDevice(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    const bool isWritten = file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) &&
                           file.write(bytes) == bytes.size() && file.flush();
    return isWritten ? std::nullopt : std::optional(file.errorString());
}
