#pragma once

#include "codegen/TodayMap.h"
#include "mapback/AreaFields.h"

/** The fields of the editor from which a map for today's browsers may have been made. */
[[nodiscard]] MapSource SourceOf(JSMode mode, const TodayMap& map);

/** Coordinates of a shape in pixels so many times as large. */
[[nodiscard]] QList<int> Scaled(AreaShape shape, const QList<int>& numbers, const PictureScale& scale);
