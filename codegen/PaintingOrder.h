#pragma once

#include "imagemap/model/MapArea.h"

/**
 * The order in which areas are painted, as indexes of `areas`, so that of two that overlap the one further up
 * in the list lies on top. All others keep the order of the list, which is the one of the Tab key. What is no
 * more than the width of a pixel does not count as overlap: neighbours share their border.
 */
[[nodiscard]] QList<qsizetype> PaintingOrder(const MapAreas& areas);

/** Whether two areas have more in common than a border. */
[[nodiscard]] bool DoOverlap(const MapArea& one, const MapArea& other);
