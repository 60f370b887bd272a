#include "shared/SystemWriting.h"

#include <QFile>
#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace {

/** How long the other side may leave what it was given untouched, in milliseconds. */
constexpr int patience = 2000;

bool BecomesReady(int device)
{
    pollfd wanted = { .fd = device, .events = POLLOUT, .revents = 0 };
    return poll(&wanted, 1, patience) > 0;
}

/** Leaves the reason of a failure in errno. */
bool WriteAll(int device, const QByteArray& bytes)
{
    qsizetype written = 0;
    while (written < bytes.size()) {
        const ssize_t piece =
            write(device, bytes.constData() + written, static_cast<std::size_t>(bytes.size() - written));
        if (piece > 0) {
            written += piece;
        } else if (piece == 0 || (errno == EAGAIN && !BecomesReady(device))) {
            errno = EAGAIN;
            return false;
        } else if (errno != EAGAIN && errno != EINTR) {
            return false;
        }
    }
    return true;
}

} // namespace

std::optional<QString> WriteToDevice(const QString& path, const QByteArray& bytes)
{
    // Opening a pipe would otherwise wait until somebody reads it.
    const int device =
        open(QFile::encodeName(path).constData(), O_WRONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (device < 0) {
        return qt_error_string(errno);
    }
    const bool isWritten = WriteAll(device, bytes);
    const int error = errno;
    const bool isClosed = close(device) == 0;
    if (isWritten && isClosed) {
        return std::nullopt;
    }
    return qt_error_string(isWritten ? errno : error);
}

std::optional<QString> SyncToDisk(int handle)
{
    while (fsync(handle) != 0) {
        if (errno == EINVAL || errno == ENOTSUP || errno == EBADF) {
            break;
        }
        if (errno != EINTR) {
            return qt_error_string(errno);
        }
    }
    return std::nullopt;
}

std::optional<qsizetype> LongestFileName(const QString& folder)
{
    const long longest = pathconf(QFile::encodeName(folder).constData(), _PC_NAME_MAX);
    return longest > 0 ? std::optional<qsizetype>(longest) : std::nullopt;
}
