#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

/**
 * Writes `bytes` to something that has no content of its own to lose: a device or a pipe. Returns the
 * system's description of the error, or nothing when all went well. One that takes nothing, such as a pipe
 * that nobody reads, is an error and not waited for longer than a moment.
 */
[[nodiscard]] std::optional<QString> WriteToDevice(const QString& path, const QByteArray& bytes);
