#pragma once

#include "imagemap/model/MapArea.h"

// Areas of every shape for the tests of what is done with areas.

inline MapArea Rectangle(const QList<int>& numbers)
{
    return { AreaShape::Rectangle, numbers, "a.htm", {}, {} };
}

inline MapArea Circle(const QList<int>& numbers)
{
    return { AreaShape::Circle, numbers, "a.htm", {}, {} };
}

inline MapArea Polygon(const QList<int>& numbers)
{
    return { AreaShape::Polygon, numbers, "a.htm", {}, {} };
}

inline const MapArea box = Rectangle({ 10, 20, 110, 70 });
inline const MapArea disc = Circle({ 100, 100, 50 });
/** An arrow head: its last corner is pushed in. */
inline const MapArea head = Polygon({ 50, 0, 100, 100, 50, 60, 0, 100 });
