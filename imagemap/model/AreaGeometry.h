#pragma once

#include "imagemap/model/MapArea.h"

#include <QPoint>
#include <QRect>
#include <QSize>

// Where the areas of a map are, and how they are moved and reshaped. Positions are picture pixels, whole
// ones.

/** No coordinate of an area is further from 0 than this; what is computed with them fits 64 bits then. */
inline constexpr int coordinateLimit = 1 << 24;

/** How many numbers give the place of a rectangle, and of a circle. */
inline constexpr int rectangleNumbers = 4;
inline constexpr int circleNumbers = 3;
/** A polygon with fewer corners has no inside. */
inline constexpr int leastCorners = 3;

/** Whether the area has the numbers that its shape takes, so that it can be drawn. */
[[nodiscard]] bool IsWhole(const MapArea& area);

/** The corners of a polygon; an odd number at the end counts for nothing, as in browsers. */
[[nodiscard]] QList<QPoint> CornersOf(const MapArea& polygon);
[[nodiscard]] QList<int> CoordinatesOf(const QList<QPoint>& corners);

/** Whether `place` lies in the area or on its outline: what browsers send a click there to. */
[[nodiscard]] bool Contains(const MapArea& area, QPoint place);

/** The areas at `place`; the topmost, which is the first of them in the page, comes first. */
[[nodiscard]] QList<qsizetype> AreasAt(const MapAreas& areas, QPoint place);

/** The smallest box that holds the area, its right and bottom pixels included; null for one without place. */
[[nodiscard]] QRect BoundsOf(const MapArea& area);
[[nodiscard]] QRect BoundsOf(const MapAreas& areas);

/** What a handle of an area changes. */
enum class HandleKind {
    Corner, ///< of a rectangle, from its top left one clockwise
    Side,   ///< of a rectangle, from its top one clockwise
    Rim,    ///< of a circle, from its right end clockwise
    Vertex, ///< of a polygon
    Middle, ///< of the side that begins at the corner with the same index
};

/** A place by which an area is reshaped. */
struct AreaHandle
{
    HandleKind kind = HandleKind::Corner;
    int index = 0;
    QPoint place;

    bool operator==(const AreaHandle&) const = default;
};

/** The handles of the area; of those at one place the first counts. */
[[nodiscard]] QList<AreaHandle> HandlesOf(const MapArea& area);

/**
 * The area with one of its handles pulled to `to`. A rectangle that is pulled over itself is turned over; a
 * middle becomes a corner; a circle keeps a radius of 1 at least. With `keepProportions` a rectangle's corner
 * keeps to the shape that it had.
 */
[[nodiscard]] MapArea
Reshaped(const MapArea& area, const AreaHandle& handle, QPoint to, bool keepProportions = false);

[[nodiscard]] MapArea Moved(MapArea area, QPoint by);

/** As much of the step `by` as leaves what `bounds` holds in a picture of `size`, or no further out than it
 * is. */
[[nodiscard]] QPoint StepWithin(const QRect& bounds, QPoint by, QSize size);

/** The area with its right and lower side, or its rim, moved by `by`; no smaller than one pixel. */
[[nodiscard]] MapArea Resized(const MapArea& area, QPoint by);

/** The polygon without the corner `index`; the same as before where it would have too few left. */
[[nodiscard]] MapArea WithoutCorner(const MapArea& polygon, int index);
