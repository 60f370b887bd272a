#pragma once

#include "codegen/ConstantBlocks.h"
#include "codegen/TodayMap.h"

#include <QString>
#include <optional>
#include <vector>

/** Why a map cannot be put where the caret is. */
enum class InsertRefusal {
    InTag,
    InComment,
    InScript, ///< or in a style
    InText,   ///< of a title or of another element that holds no markup
    InLink,
};

/** Where a map, and the constant style and script, go in a page. */
struct InsertPlace
{
    HtmlSpan map;         ///< what the map replaces, mostly nothing
    qsizetype head = 0;   ///< where style and script go
    bool hasHead = false; ///< false for a fragment, in which they stand in front of everything
    ConstantBlock style;
    ConstantBlock script;
    std::optional<InsertRefusal> refusal; ///< then nothing else counts
};

/** One of several changes to a text: `place` in the text as it was. */
struct TextReplacement
{
    HtmlSpan place;
    QString text;

    bool operator==(const TextReplacement&) const = default;
};

/**
 * Where a map goes whose user has selected `selection` (an empty one is the caret). A paragraph may stand
 * there: inside one, behind it; in the head or behind the body, in the body. A selection is replaced if it
 * begins and ends in one and the same such place, else it stays.
 */
[[nodiscard]] InsertPlace FindInsertPlace(QStringView page, HtmlSpan selection);

/**
 * The changes that put `markup` and the blocks it needs into the page, in the order of their places; the
 * map's is the last of those at `place.map`. The texts end their lines with `lineEnd`; those of `markup` end
 * in LF.
 */
[[nodiscard]] std::vector<TextReplacement> ReplacementsFor(
    QStringView page, const InsertPlace& place, const QString& markup, NeededBlocks needed,
    const QString& lineEnd);
