#pragma once

#include "mapreader/PageMaps.h"
#include "mapreader/TagChanges.h"

/** An area as it shall be. */
struct AreaWish
{
    qsizetype source = -1;           ///< which of the page's areas it has been; -1 for a new one
    QList<AttributeWish> attributes; ///< all of them

    bool operator==(const AreaWish&) const = default;
};

/** A map as it shall be. */
struct MapWish
{
    QList<AttributeWish> attributes; ///< all of them
    QList<AreaWish> areas;           ///< in their order; those of the map that are not there go

    bool operator==(const MapWish&) const = default;
};

/** A map as it is in the page. */
[[nodiscard]] MapWish WishOf(QStringView page, const PageMaps& maps, qsizetype map);

/**
 * What has to be replaced in a page so that a map becomes as wished, in ascending order and apart from one
 * another; nothing else changes.
 *
 * `shape` and `coords` are only written where another geometry is wished for, not where the same one is
 * written in another way. An area that goes takes its line along if nothing else stands on it; a new one is
 * written like its neighbour, on a line of its own if that has one. Another name goes into `id` where that
 * agreed with the name, and into the `usemap` of every picture that finds the map by it.
 *
 * Nothing is given if a tag that would have to change cannot be: see ChangeTag().
 */
[[nodiscard]] std::optional<QList<TextReplacement>>
ChangeMap(QStringView page, const PageMaps& maps, qsizetype map, const MapWish& wish);
