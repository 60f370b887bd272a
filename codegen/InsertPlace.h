#pragma once

#include "codegen/ConstantBlocks.h"
#include "codegen/TodayMap.h"
#include "shared/PageDocument.h"

#include <optional>

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

/**
 * Where a map goes whose user has selected `selection` (an empty one is the caret). A paragraph may stand
 * there: inside one, behind it; in the head or behind the body, in the body. A selection is replaced if it
 * begins and ends in one and the same such place, else it stays.
 */
[[nodiscard]] InsertPlace FindInsertPlace(QStringView page, HtmlSpan selection);

/** What putting a map into a page changes. */
struct MapInsertion
{
    QList<TextReplacement> changes; ///< as PageDocument takes them
    int line = 0;                   ///< on which the map begins afterwards, from 1
};

/**
 * Puts `markup`, whose lines end in LF, and the blocks that it needs into the page, with lines that end in
 * `lineEnd`.
 */
[[nodiscard]] MapInsertion InsertMap(
    QStringView page, const InsertPlace& place, const QString& markup, NeededBlocks needed,
    const QString& lineEnd);
