#pragma once

#include "shared/PageDocument.h"

#include <QString>
#include <optional>

// What tells two texts with CR LF line ends apart.

/** How many lines of one text are other than in another one. */
struct LineDifference
{
    qsizetype Changed = 0;
    qsizetype Added = 0;
    qsizetype Removed = 0;

    bool operator==(const LineDifference&) const = default;
};

/** What made `now` of `before` with the fewest lines; nothing when that are more than `most`. */
[[nodiscard]] std::optional<LineDifference>
CompareLines(QStringView before, QStringView now, qsizetype most = 1000);

/** Such a difference in words, as in "2 lines changed, 1 line added". */
[[nodiscard]] QString Describe(const std::optional<LineDifference>& difference);

/** The one replacement that makes `now` of `before` and leaves what both begin and end with; nothing when
 * they are alike. */
[[nodiscard]] std::optional<TextReplacement> ReplacementFor(const QString& before, const QString& now);
