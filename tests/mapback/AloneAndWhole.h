#pragma once

#include "mapback/LocalUpdate.h"

#include <algorithm>

/** Gives the places of `page`. */
inline TextAtPlace PlacesIn(const QString& page)
{
    return [&page](const HtmlSpan& place) { return page.mid(place.offset, place.length); };
}

/** Whether the map alone tells of its update what `whole` does, where it tells anything. */
inline bool IsSameAlone(
    const QString& page, const ReturnedMap& map, const MapSource& now, const TodayPage& context,
    const std::optional<MapUpdate>& whole)
{
    const auto alone = UpdateMapAlone(PlacesIn(page), map, map.mode, now, context);
    if (!alone) {
        return true;
    }
    const auto isSame = [](const TextReplacement& one, const TextReplacement& other) {
        return one.Place == other.Place && one.Text == other.Text;
    };
    return whole && std::ranges::equal(alone->changes, whole->changes, isSame) &&
           alone->after.place == whole->after.place && alone->after.picture == whole->after.picture &&
           alone->after.source.Areas == whole->after.source.Areas;
}
