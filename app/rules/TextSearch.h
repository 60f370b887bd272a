#pragma once

#include "shared/PageDocument.h"

#include <QRegularExpression>

/** What is looked for. */
struct SearchTerms
{
    QString What;
    bool IsCaseSensitive = false;
    bool AreWholeWords = false;
    bool IsRegex = false;

    bool operator==(const SearchTerms&) const = default;
};

/** Where it is. */
struct SearchResult
{
    QList<TextSpan> Matches; ///< in ascending order
    bool AreMore = false;    ///< whether there are more than are told, `most` of them
    QString Trouble;         ///< why nothing can be found: an expression with a fault, or one that never ends

    static constexpr qsizetype most = 1'000'000;
};

/**
 * All places of `terms` in a part of `lines`, a text with line feeds as line ends. Without case, a letter of
 * ASCII is its capital too, and no other character. A regular expression takes each line for itself where it
 * says "^" or "$"; one that tries too much is given up.
 */
[[nodiscard]] SearchResult FindAll(const QString& lines, const SearchTerms& terms, const TextSpan& within);

/**
 * What comes in place of the matches of `terms` in `lines`, which FindAll() has found: `by`, in which a
 * regular expression's "\1" to "\9" stand for its groups, "\0" for the whole match, "\n" and "\t" for a line
 * end and a tab, and "\\" for a backslash.
 */
class MatchReplacement
{
public:
    MatchReplacement(const QString& lines, const SearchTerms& terms, const QString& by);

    [[nodiscard]] QString Of(const TextSpan& match) const;

private:
    QString lines_;
    QString by_;
    QString searched_;              ///< where the expression looks for its groups
    QRegularExpression expression_; ///< none when `by_` names no groups
};

/** Moves the places of `replacements` in `lines`, in ascending order, to where they are when a line end
 * counts as two characters. */
void CountLineEndsAsTwo(const QString& lines, QList<TextReplacement>& replacements);
