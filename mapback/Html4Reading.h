#pragma once

#include "codegen/MapMarkup.h"
#include "html/HtmlPart.h"

#include <optional>

/** A map in HTML 4 that this program has written. */
struct Html4Output
{
    JSMode mode = JSDisabled;
    MapSource source; ///< from which the generator writes the same characters again
    HtmlSpan place;   ///< without line ends behind it
};

/** How many characters are looked through for the end of a map that is not there. */
inline constexpr qsizetype longestOutput = 20'000'000;

/**
 * Reads the map whose first comment begins at `start`. Texts stand in these maps as they were typed, so one
 * that looks like markup of the map's own may be taken for that; what is read is written the same all the
 * same. Nothing if the generator would not write what is there.
 *
 * Of a border of nought and of none, of texts of a mode without them and of folders that were left out only
 * the one that is written is known.
 */
[[nodiscard]] std::optional<Html4Output> ReadHtml4Output(QStringView page, qsizetype start);
