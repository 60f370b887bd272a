#pragma once

#include "shared/PageDocument.h"

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
 * What comes in place of a match: `by`, in which a regular expression's "\1" to "\9" stand for its groups,
 * "\0" for the whole match, "\n" and "\t" for a line end and a tab, and "\\" for a backslash.
 */
[[nodiscard]] QString
ReplacementFor(const QString& lines, const TextSpan& match, const SearchTerms& terms, const QString& by);
