#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

/**
 * Makes `bytes` the whole content of the file `path`. A failure leaves the old file as it was and returns
 * the system's description of the error; success returns nothing.
 *
 * The bytes are written beside the file and renamed over it. Where that would break something (a hard link,
 * another owner) or is not allowed (a folder that cannot be written), they are written in place, and the old
 * content is put back when that fails. Permissions and symbolic links survive; a device or pipe is written
 * to.
 */
[[nodiscard]] std::optional<QString> WriteWholeFile(const QString& path, const QByteArray& bytes);
