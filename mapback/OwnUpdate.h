#pragma once

#include "mapback/MapUpdate.h"

/** UpdateMap() for what the generator of HTML 4 has written. */
[[nodiscard]] MapUpdate
UpdateHtml4Map(QStringView page, const ReturnedMap& was, JSMode mode, const MapSource& now);

/** UpdateMap() for what the generators of today's forms have written. */
[[nodiscard]] std::optional<MapUpdate> UpdateTodayMap(
    QStringView page, const ReturnedMap& was, JSMode mode, const MapSource& now, const TodayPage& context);
