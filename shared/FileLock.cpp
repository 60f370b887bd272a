#include "shared/FileLock.h"

#include <QLockFile>

std::shared_ptr<QLockFile> TakeLock(const QString& path)
{
    auto lock = std::make_shared<QLockFile>(path);
    lock->setStaleLockTime(0); // a lock is not lost by growing old
    if (lock->tryLock(0)) {
        return lock;
    }
    // Numbers of processes come again, in containers above all. The system knows whether the file is held.
    return lock->removeStaleLockFile() && lock->tryLock(0) ? lock : nullptr;
}
