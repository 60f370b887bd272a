#pragma once

#include "codegen/MarkupForm.h"
#include "codegen/TodayMap.h"
#include "html/HtmlPart.h"

#include <optional>

/** A map for today's browsers that this program has written. */
struct TodayOutput
{
    MarkupForm form = MarkupForm::Today;
    JSMode mode = JSDisabled;
    TodayMap map; ///< from which the generator writes the same characters again
    HtmlSpan place;
};

/**
 * Reads the map that begins at `start` with its paragraph or figure. Nothing if the generator would not write
 * what is there.
 *
 * The order in which areas stand in the editor's list is that in which they are painted, turned round where
 * they overlap; which of those that do not came first is known of areas with messages alone. The picture of a
 * map element counts as shown in its own size.
 */
[[nodiscard]] std::optional<TodayOutput> ReadTodayOutput(QStringView page, qsizetype start);

/** The output as the generator writes it; lines end in LF. */
[[nodiscard]] QString GenerateToday(MarkupForm form, JSMode mode, const TodayMap& map);
