#pragma once

#include "mapback/MapUpdate.h"

#include <functional>

/** What a page has at a place; cut where the page ends. */
using TextAtPlace = std::function<QString(const HtmlSpan& place)>;

/**
 * As UpdateMap(), from the map and its picture's tag alone, so that the page's length does not count. Nothing
 * for what only the whole page tells: this program's forms for today's browsers, another name or picture of
 * the map, and a map that what is around it has a part in.
 */
[[nodiscard]] std::optional<MapUpdate> UpdateMapAlone(
    const TextAtPlace& textAt, const ReturnedMap& was, JSMode mode, const MapSource& now,
    const TodayPage& context);
