#pragma once

#include "imagemap/model/MapArea.h"

#include <vector>

/** The area as it is apart from where it came from. */
[[nodiscard]] MapArea WithoutSource(MapArea area);

/**
 * Which of `before` each of `now` is, -1 for what is none of them: the one that it is the same as, else one
 * with the same place or the same link. No area is taken twice.
 */
[[nodiscard]] std::vector<qsizetype> MatchAreas(const MapAreas& before, const MapAreas& now);

/**
 * Gives the areas of a page that were there `before` the sources that they had, and the others such as
 * neither those nor what is `shown` has.
 */
void KeepSources(MapAreas& page, const MapAreas& before, const MapAreas& shown);
