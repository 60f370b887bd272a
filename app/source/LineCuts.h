#pragma once

#include <QList>
#include <QStringView>

// Where a line that is too long to be laid out at once is cut into pieces.

/** Lines with fewer characters are never cut. */
inline constexpr qsizetype longLine = 10'000;
/** No piece of a longer one has more characters than this, nor fewer than the least but where it must. */
inline constexpr qsizetype mostInPiece = 512;
inline constexpr qsizetype leastInPiece = 64;
/** So many characters before a cut tell whether it is a good one. */
inline constexpr qsizetype seenBeforeCut = 40;

/**
 * Whether a line may be cut between `before`, of which the end matters, and `after`: not inside what is one
 * character to a reader, and where whoever reads the pieces as lines of HTML reads the same.
 */
[[nodiscard]] bool IsGoodCut(QStringView before, QStringView after);

/** Whether a line end behind `before` is nothing to whoever reads HTML. */
[[nodiscard]] bool IsBetweenWords(QStringView before);

/** Where `text` is cut, in ascending order; nowhere if it is short enough for one piece. */
[[nodiscard]] QList<qsizetype> CutsOf(QStringView text);

/** A text with its long lines in pieces. */
struct LinesInPieces
{
    QString Lines;     ///< with LF behind lines and pieces
    QList<int> Joints; ///< which of these are behind pieces that are not the last of their lines
};

/** `lines`, which have LF at their ends, with the long ones cut. */
[[nodiscard]] LinesInPieces WithCuts(const QString& lines);
