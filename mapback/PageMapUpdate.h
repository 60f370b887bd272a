#pragma once

#include "mapback/MapUpdate.h"

/** Whether `maps`, read from the text of the map alone, has the map as it was. */
[[nodiscard]] bool IsReadAlone(const PageMaps& maps, QStringView text, const ReturnedMap& was);

/** UpdateMap() for a map that somebody else has written, or that was changed by hand. */
[[nodiscard]] std::optional<MapUpdate> UpdatePageMap(
    QStringView page, const ReturnedMap& was, JSMode mode, const MapSource& now, const TodayPage& context);
