#pragma once

#include "imagemap/model/MapArea.h"

// Areas given in another shape, and by what a page may have as their coordinates.

/**
 * The area in another shape: a rectangle's corners or those of a polygon that keeps within half a pixel of a
 * circle; the box around an area; the largest circle about the middle of that box that keeps within it.
 */
[[nodiscard]] MapArea Converted(const MapArea& area, AreaShape shape);

/** Coordinates as they were read, or what is wrong with them. */
struct CoordinatesReading
{
    QList<int> numbers;
    QString problem; ///< a sentence for the user; empty where there is nothing wrong
    QString note;    ///< the same where the numbers hold, but something else may have been meant
};

/**
 * Reads the coordinates of a shape in any form that a page may have, as browsers do: numbers, whole or with
 * decimals, which are rounded, parted by commas, semicolons or blanks. What browsers pass over, be it a sign
 * for per cent or a number too many, is noted.
 */
[[nodiscard]] CoordinatesReading ReadCoordinates(AreaShape shape, QStringView text);
