#pragma once

#include <QString>

/** The end tag of the innermost element that is open at `caret`; empty if none is, or within a tag or
 * comment. */
[[nodiscard]] QString EndTagAt(const QString& page, qsizetype caret);
