#pragma once

#include "mapback/MapUpdate.h"

/** UpdateMap() for a map that somebody else has written, or that was changed by hand. */
[[nodiscard]] std::optional<MapUpdate> UpdatePageMap(
    QStringView page, const ReturnedMap& was, JSMode mode, const MapSource& now, const TodayPage& context);
