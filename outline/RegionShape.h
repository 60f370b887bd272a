#pragma once

#include "imagemap/model/MapArea.h"
#include "outline/ContourThinning.h"

/** The shape that stands for a region. */
struct RegionShape
{
    MapArea area;         ///< with its shape and coordinates alone
    double deviation = 0; ///< how far its outline and the region's contour are apart at most, in pixels

    /** Whether `precision` could not be kept, since an area has no more than mostCorners. */
    [[nodiscard]] bool HasGivenWay(double precision) const { return deviation > precision; }
};

/**
 * The shape of a region with this contour: a rectangle or a circle where one keeps within `precision` pixels
 * of it, or else a polygon, clockwise. Coordinates are those of the pixels' edges.
 */
[[nodiscard]] RegionShape
ShapeOf(const Contour& contour, double precision = usualPrecision, const StopSign& stop = {});
