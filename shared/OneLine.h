#pragma once

#include <QString>

/** Whether `text` holds a line end of any kind: CR, LF, VT, FF, NEL and the separators of Unicode. */
[[nodiscard]] bool HasLineEnd(QStringView text);

/** `text` as one line: line ends at its end go, every other, CR LF as one, becomes a blank. */
[[nodiscard]] QString OneLine(QStringView text);
