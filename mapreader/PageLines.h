#pragma once

#include "html/HtmlPart.h"

#include <QString>

// Lines of a page, with line ends of any kind.

/** Whether there is nothing but blanks and line ends. */
[[nodiscard]] bool IsBlankText(QStringView text);

/** Whether only blanks stand before the place on its line. */
[[nodiscard]] bool BeginsItsLine(QStringView page, qsizetype offset);

/** Whether only blanks stand behind the place on its line. */
[[nodiscard]] bool EndsItsLine(QStringView page, qsizetype offset);

/** The blanks that the line of the place begins with. */
[[nodiscard]] QString IndentAt(QStringView page, qsizetype offset);

/** The line end in front of the line of the place; of the first line, that behind it. */
[[nodiscard]] QString LineEndAt(QStringView page, qsizetype offset);

/** A place with the whole lines that it is on, if nothing else is; at the end of a line, with the blanks in
 * front. */
[[nodiscard]] HtmlSpan WithItsLine(QStringView page, const HtmlSpan& place);

/** The end of the line if only a comment stands there behind the place; else the place. */
[[nodiscard]] qsizetype BehindComment(QStringView page, qsizetype offset);
