#pragma once

#include "html/HtmlPart.h"
#include "shared/PageDocument.h"

/**
 * How far `page` says the same as `text` from `start` on, where line ends of any kind are the same; nothing
 * if it says something else. `text` has LF alone.
 */
[[nodiscard]] std::optional<qsizetype> LengthOfSame(QStringView page, qsizetype start, QStringView text);

/**
 * What has to be replaced in a page so that `place` says what `text` does, few and small pieces in ascending
 * order: lines that are there already stay with their line ends, and of a line that is changed what it has in
 * common with the new one at both ends.
 */
[[nodiscard]] QList<TextReplacement> DifferencesOf(QStringView page, const HtmlSpan& place, QStringView text);
