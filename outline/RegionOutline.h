#pragma once

#include "imagemap/model/MapArea.h"
#include "outline/ContourThinning.h"
#include "outline/RegionChoice.h"

/** How areas are made of the regions that are chosen. */
struct OutlinePlan
{
    double Precision = usualPrecision; ///< how far an outline may leave its region, in pixels
    bool AreHolesLeftOut = false; ///< an area in front of each hole, or they belong to what encloses them
    bool IsLargestAlone = false;  ///< of several islands the largest, or each of them

    bool operator==(const OutlinePlan&) const = default;
};

/** One of the areas that are made. */
struct OutlinedArea
{
    MapArea Area;        ///< with its shape and coordinates alone
    bool IsHole = false; ///< lies in front of a hole, and leads nowhere
};

/** The areas of the regions that are chosen. */
struct RegionOutline
{
    QList<OutlinedArea> Areas; ///< the first one in front, the largest last
    double Deviation = 0;      ///< how far an outline leaves its region at most, in pixels

    [[nodiscard]] bool IsEmpty() const { return Areas.isEmpty(); }

    /** The areas alone. */
    [[nodiscard]] MapAreas Plain() const;
};

/** Holes of fewer pixels are specks, and belong to what encloses them. */
inline constexpr int leastHolePixels = 16;

/** Of more islands than so many, those are made that are largest. */
inline constexpr qsizetype mostIslands = 200;

/** The areas of what is chosen; none where nothing is. */
[[nodiscard]] RegionOutline
OutlineOf(RegionChoice& choice, const OutlinePlan& plan, const StopSign& stop = {});
