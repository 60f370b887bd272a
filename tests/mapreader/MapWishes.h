#pragma once

#include "mapreader/MapChanges.h"
#include "mapreader/PageMaps.h"

// Wishes for a map, as tests make them.

/** The attribute `name` of `area`, which gets it if it has none. */
inline QString& Value(AreaWish& area, const QString& name)
{
    for (AttributeWish& one : area.attributes) {
        if (one.name == name) {
            return one.value;
        }
    }
    area.attributes << AttributeWish{ name, {} };
    return area.attributes.last().value;
}

inline AreaWish NewArea()
{
    return { -1,
             { { "shape", "circle" }, { "coords", "5,6,7" }, { "href", "n?a&b" }, { "alt", "new one" } } };
}
