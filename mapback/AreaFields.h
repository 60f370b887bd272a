#pragma once

#include "imagemap/model/JSMode.h"
#include "imagemap/model/MapArea.h"

// What the attributes of an area's tag say, as the members of an area that the editor knows, and back. A
// member counts only where it says something else than its attribute, so nothing is written that nobody has
// changed.

/** How many pixels of the picture are one of those that a page counts in. */
struct PictureScale
{
    double x = 1;
    double y = 1;

    bool operator==(const PictureScale&) const = default;
};

/** Sets all members of the area that its attributes tell of. What cannot be drawn gets no coordinates. */
void SetFields(MapArea& area, const PictureScale& scale);

/**
 * All attributes that the area's tag shall have, in their order: its own with what has been changed since, or
 * those of a new area. Code is left as it is.
 */
[[nodiscard]] QList<AreaAttribute> AttributesFor(const MapArea& area, JSMode mode, const PictureScale& scale);

/** Whether something was changed that code says in the page, so that it cannot be written. */
[[nodiscard]] bool IsAgainstCode(const MapArea& area, const PictureScale& scale);

/**
 * Gives the area's tag an attribute, or takes it away where `value` is the null string, and sets the members
 * that it tells of. False, and nothing is changed, for code and for what is no name.
 */
bool SetAttribute(
    MapArea& area, const QString& name, const QString& value, JSMode mode, const PictureScale& scale);
