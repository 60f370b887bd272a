#pragma once

#include "mapback/ReturnedMap.h"

/** Reads a map of a page as it stands there, whoever has written it. */
[[nodiscard]] ReturnedMap ReadPageMap(QStringView page, const PageMaps& maps, qsizetype map);

/**
 * The size in which a page shows a picture of that size, if it says it in whole pixels; else an empty one. Of
 * one side, browsers know the other by the picture.
 */
[[nodiscard]] QSize SizeInPage(const MapSource& source, QSize picture);

/** Sets the two sizes that coordinates refer to, for `was` once it is what `now` says. */
void SetSizes(ReturnedMap& map, const ReturnedMap& was, const MapSource& now, const TodayPage& context);
