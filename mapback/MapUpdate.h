#pragma once

#include "mapback/ReturnedMap.h"
#include "shared/PageDocument.h"

/** What bringing a map of a page to what the editor has changes. */
struct MapUpdate
{
    /** As PageDocument takes them; none if the page says all that already. */
    QList<TextReplacement> changes;
    ReturnedMap after; ///< what stands in the page once they are made, for the next update
};

/**
 * What has to be replaced in `page` so that its map `was` becomes what the editor has: `now` with its areas,
 * in `mode`; nothing else in the page changes. The areas' sources tell which of the map's they were.
 *
 * This program's own output is generated anew, and only what differs is replaced; what nobody has changed
 * keeps its reference. Style and script come into the head where the map needs them for the first time. Of
 * all other maps the tags that must change are, and that of the first picture. A picture without a map gets
 * one (AddMap()).
 *
 * `context` counts for references and for pictures, its text for nothing. Nothing is given for what cannot be
 * written: what code says in the page, or a mode that the map's form has no room for.
 */
[[nodiscard]] std::optional<MapUpdate> UpdateMap(
    QStringView page, const ReturnedMap& was, JSMode mode, const MapSource& now, const TodayPage& context);
