#pragma once

#include <QString>

/** Where the copy of a document that was never saved goes; `ending` is without its dot. */
[[nodiscard]] QString TemporaryCopyOfNew(const QString& programFolder, const QString& ending);

/**
 * Where the copy of the document `path` goes: beside it, but everything from the first dot of the whole path
 * on is replaced. A path without a dot gives a name alone.
 */
[[nodiscard]] QString TemporaryCopyOf(const QString& path, const QString& ending);
