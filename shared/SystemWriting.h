#pragma once

// What writing files takes of the system itself, beyond what Qt offers. There is one source file for each
// system.

#include <QByteArray>
#include <QString>
#include <optional>

/**
 * Writes `bytes` to something that has no content of its own to lose: a device or a pipe. Returns the
 * system's description of the error, or nothing when all went well. One that takes nothing, such as a pipe
 * that nobody reads, is an error and not waited for longer than a moment.
 */
[[nodiscard]] std::optional<QString> WriteToDevice(const QString& path, const QByteArray& bytes);

/**
 * Waits until what was written to the open file `handle` is on the disk, which may tell only now that it is
 * full or broken. Returns the description of the error, or nothing when all went well or the file cannot be
 * waited for.
 */
[[nodiscard]] std::optional<QString> SyncToDisk(int handle);

/** How many bytes the name of a file in `folder` may have; nothing where the system does not tell. */
[[nodiscard]] std::optional<qsizetype> LongestFileName(const QString& folder);
