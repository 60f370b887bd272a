#pragma once

#include "codegen/MarkupForm.h"
#include "codegen/TodayMap.h"
#include "mapback/AreaFields.h"
#include "mapback/MapPlaces.h"

#include <optional>

/** A map of a page as the editor has it. */
struct ReturnedMap
{
    /** Of this program's own outputs, which the generator writes again to the character; none for all other
     * maps. */
    std::optional<MarkupForm> form;
    /** Of other maps, JSStatusBar if an area has a title, which is its message then; else JSDisabled. */
    JSMode mode = JSDisabled;
    /** The areas, and the fields about the whole map; of other maps, those of the first picture that uses it.
     */
    MapSource source;
    HtmlSpan place; ///< of this map in the page; empty for a picture that has none yet
    /** What the page's coordinates refer to: the size in which it shows the picture. Empty for HTML 4 of this
     * program, where it is the picture's own, and where the page does not say it. */
    QSize coordinateSize;
    QSize
        pictureSize;  ///< what those of the areas refer to, once FitToPicture() was told; else as in the page
    TodayMap today;   ///< of the forms for today's browsers: what it is written from
    HtmlSpan picture; ///< of other maps, the tag of the first picture that uses it; empty if there is none

    [[nodiscard]] bool IsInPage() const { return place.length > 0; }

    /** What the map has of the page: its place, or the tag of the picture that shall get it. */
    [[nodiscard]] HtmlSpan Held() const { return IsInPage() ? place : picture; }
};

/**
 * Reads a map. What is like this program's output, but would not be written so again, is read like any other
 * map; nothing if that cannot be, since it has no `map`: shapes over a picture that somebody has changed.
 */
[[nodiscard]] std::optional<ReturnedMap>
ReadMap(QStringView page, const PageMaps& maps, const MapPlace& place);

/** Reads the output of this program that is in that part of a page, but for blanks and line ends around it.
 */
[[nodiscard]] std::optional<ReturnedMap> ReadOwnMap(QStringView page, const HtmlSpan& place);

/**
 * Turns the areas' coordinates into the pixels of a picture of that size, and fills in the width and height
 * that the page does not give. Whether the coordinates were in others.
 */
bool FitToPicture(ReturnedMap& map, QSize picture);

/** How many pixels of the picture are one of those that the page's coordinates count in. */
[[nodiscard]] PictureScale ScaleOf(const ReturnedMap& map);

/** The attributes that an area of the map will have, in their order; nothing for this program's own forms. */
[[nodiscard]] QList<AreaAttribute> AttributesFor(const MapArea& area, const ReturnedMap& map);

/** As the other SetAttribute(), for an area of that map. */
bool SetAttribute(MapArea& area, const QString& name, const QString& value, const ReturnedMap& map);
