#pragma once

#include "imagemap/model/MapArea.h"

#include <QSize>
#include <QStringList>

/** Fingers and unsteady hands miss what is smaller, in pixels. */
inline constexpr int leastTargetSize = 24;

/**
 * What keeps visitors from using the area `number` of a map over a picture of `size`, a sentence each: areas
 * above cover it, it lies outside of the picture, it has no link, it is too small.
 */
[[nodiscard]] QStringList FaultsOf(const MapAreas& areas, qsizetype number, QSize picture);
