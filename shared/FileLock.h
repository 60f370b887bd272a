#pragma once

#include <QString>
#include <memory>

class QLockFile;

/** The lock that the file `path` stands for, until it is let go; nothing while a running program has it. */
[[nodiscard]] std::shared_ptr<QLockFile> TakeLock(const QString& path);
