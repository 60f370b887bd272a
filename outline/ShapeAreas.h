#pragma once

#include "imagemap/model/MapArea.h"

#include <QPainterPath>
#include <QPolygonF>
#include <QRectF>

// Outlines with curves as areas of a map, in picture pixels.

/** The outlines of a path. */
struct ShapeOutlines
{
    QList<QPolygonF> Outer;
    QList<QRectF> Holes; ///< the boxes of the outlines that lie wholly inside of another one
};

/**
 * The closed outlines of `path`, each with curves as lines that keep within the precision, and cut off at the
 * edges of `room`. Those that enclose less than a pixel are left out.
 */
[[nodiscard]] ShapeOutlines OutlinesOf(const QPainterPath& path, const QRectF& room);

/**
 * The area that the outline encloses: a rectangle or a circle where it is one to half a pixel, else a polygon
 * with as few corners as the precision allows, which gives way where they are too many. Without coordinates
 * where nothing is left of it in whole pixels.
 */
[[nodiscard]] MapArea AreaOfOutline(const QPolygonF& outline);
