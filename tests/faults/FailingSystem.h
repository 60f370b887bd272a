#pragma once

#include <QString>

/**
 * Lets calls to the system that concern files fail, as far as the program and Qt make them. What a call is
 * counted for: open64(), read(), write(), fdatasync(), fsync(), ftruncate(), linkat(), rename(), fchmod() and
 * close() of files below one folder.
 */
namespace FailingSystem {

/** From now on calls for files below `folder` count, from nought. */
void Watch(const QString& folder);

/** The call of number `call` and, if `isLasting`, all later ones fail with `error`. */
void Fail(int call, int error, bool isLasting);

/** Whatever is to be brought to the disk fails with `error`, as on a disk in the network that has become
 * full. */
void FailSync(int error);

/** Each call takes so many milliseconds, and writes and reads do no more than `bytes` at once. */
void SlowDown(int milliseconds, qint64 bytes);

/** Everything works again; returns how many calls there were. */
int Stop();

} // namespace FailingSystem
