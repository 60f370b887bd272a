#include "tests/faults/FailingSystem.h"

#include <QDir>
#include <QFile>
#include <array>
#include <cerrno>
#include <climits>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <string>
#include <sys/types.h>
#include <unistd.h>

namespace {

struct State
{
    std::string folder;
    int calls = 0;
    int failing = INT_MAX;
    int error = 0;
    bool isLasting = false;
    int syncError = 0;
    int milliseconds = 0;
    std::size_t bytes = SSIZE_MAX;
};

State& Now()
{
    static State state;
    return state;
}

/** The system's own function of that name. */
template<class Function> Function* Real(const char* name)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

bool IsBelow(const char* path)
{
    const std::string& folder = Now().folder;
    return !folder.empty() && std::strncmp(path, folder.c_str(), folder.size()) == 0;
}

bool IsBelow(int file)
{
    if (Now().folder.empty()) {
        return false;
    }
    std::array<char, 32> link{};
    std::array<char, PATH_MAX> path{};
    std::snprintf(link.data(), link.size(), "/proc/self/fd/%d", file);
    return readlink(link.data(), path.data(), path.size() - 1) > 0 && IsBelow(path.data());
}

/** Counts a call; true when it is to fail. */
template<class Which> bool Fails(Which file)
{
    State& state = Now();
    if (!IsBelow(file)) {
        return false;
    }
    if (state.milliseconds > 0) {
        usleep(static_cast<useconds_t>(state.milliseconds) * 1000);
    }
    const int call = state.calls++;
    if (call != state.failing && !(state.isLasting && call > state.failing)) {
        return false;
    }
    errno = state.error;
    return true;
}

bool SyncFails(int file)
{
    if (Now().syncError != 0 && IsBelow(file)) {
        errno = Now().syncError;
        return true;
    }
    return Fails(file);
}

template<class Which> std::size_t AtOnce(Which file, std::size_t bytes)
{
    return IsBelow(file) ? std::min(bytes, Now().bytes) : bytes;
}

} // namespace

namespace FailingSystem {

void Watch(const QString& folder)
{
    Now() = State();
    Now().folder = QFile::encodeName(QDir(folder).canonicalPath()).toStdString();
}

void Fail(int call, int error, bool isLasting)
{
    Now().failing = call;
    Now().error = error;
    Now().isLasting = isLasting;
}

void FailSync(int error)
{
    Now().syncError = error;
}

void SlowDown(int milliseconds, qint64 bytes)
{
    Now().milliseconds = milliseconds;
    Now().bytes = static_cast<std::size_t>(bytes);
}

int Stop()
{
    const int calls = Now().calls;
    Now() = State();
    return calls;
}

} // namespace FailingSystem

// These come before the system's own for every library of the process, since the program itself has them.
extern "C" {

int open64(const char* path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const auto mode = (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(arguments, mode_t) : mode_t(0);
    va_end(arguments);
    return Fails(path) ? -1 : Real<int(const char*, int, ...)>("open64")(path, flags, mode);
}

ssize_t write(int file, const void* bytes, std::size_t count)
{
    return Fails(file)
               ? -1
               : Real<ssize_t(int, const void*, std::size_t)>("write")(file, bytes, AtOnce(file, count));
}

ssize_t read(int file, void* bytes, std::size_t count)
{
    return Fails(file) ? -1
                       : Real<ssize_t(int, void*, std::size_t)>("read")(file, bytes, AtOnce(file, count));
}

int fdatasync(int file)
{
    return SyncFails(file) ? -1 : Real<int(int)>("fdatasync")(file);
}

int fsync(int file)
{
    return SyncFails(file) ? -1 : Real<int(int)>("fsync")(file);
}

int ftruncate64(int file, off64_t size) noexcept
{
    return Fails(file) ? -1 : Real<int(int, off64_t)>("ftruncate64")(file, size);
}

int linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags) noexcept
{
    return Fails(to) ? -1
                     : Real<int(int, const char*, int, const char*, int)>("linkat")(
                           fromFolder, from, toFolder, to, flags);
}

int rename(const char* from, const char* to) noexcept
{
    return Fails(to) ? -1 : Real<int(const char*, const char*)>("rename")(from, to);
}

int fchmod(int file, mode_t mode) noexcept
{
    return Fails(file) ? -1 : Real<int(int, mode_t)>("fchmod")(file, mode);
}

int close(int file)
{
    // What fails here has closed the file all the same, as the system does.
    const bool fails = Fails(file);
    const int error = errno;
    const int result = Real<int(int)>("close")(file);
    errno = fails ? error : errno;
    return fails ? -1 : result;
}
}
