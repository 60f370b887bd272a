#pragma once

#include "mapback/MapUpdate.h"
#include "mapback/NewMapPlace.h"

/** The picture whose tag is there, which no map of the page belongs to, as the map that it may get. */
[[nodiscard]] ReturnedMap ReadPicture(QStringView page, const HtmlSpan& tag);

/**
 * The name that a new map gets when that one is wanted: it, where no map of the page has it and the picture
 * asks for it; else one that nothing in the page has (UniqueMapName()).
 */
[[nodiscard]] QString NameOfNewMap(QStringView page, const ReturnedMap& picture, const QString& wanted);

/**
 * UpdateMap() for a picture without a map. Its tag gets `usemap`, and a `map` goes to where FindNewMapPlace()
 * tells, both written as the tag is. The name must be that of NameOfNewMap(). Nothing is given for a picture
 * that is refused there, too.
 */
[[nodiscard]] std::optional<MapUpdate> AddMap(
    QStringView page, const ReturnedMap& picture, JSMode mode, const MapSource& now,
    const TodayPage& context);
