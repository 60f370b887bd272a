#pragma once

#include <QString>

// Moving single lines in and out.

/** How the lines of a page are moved in: by a tab, or by so many blanks, as `line`, one that is, tells; empty
 * if it is not. */
[[nodiscard]] QString IndentOf(QStringView line);

/** What a line that nothing is known of is moved in by. */
[[nodiscard]] QString UsualIndent();

/** How many characters at the beginning of `line` go when it is moved out by `indent`. */
[[nodiscard]] qsizetype OutdentLength(QStringView line, QStringView indent);
