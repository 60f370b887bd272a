#include "shared/SystemWriting.h"

#include <QFile>
#include <cerrno>
#include <io.h>

std::optional<QString> WriteToDevice(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    const bool isWritten = file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) &&
                           file.write(bytes) == bytes.size() && file.flush();
    return isWritten ? std::nullopt : std::optional(file.errorString());
}

std::optional<QString> SyncToDisk(int handle)
{
    if (handle < 0 || _commit(handle) == 0 || errno == EBADF) {
        return std::nullopt;
    }
    return qt_error_string(errno);
}

// The system's own dialogs tell it themselves.
std::optional<qsizetype> LongestFileName(const QString&)
{
    return std::nullopt;
}
