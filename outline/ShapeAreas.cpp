#include "outline/ShapeAreas.h"

#include "imagemap/model/AreaGeometry.h"
#include "outline/OutlineCorners.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

/** What whole pixels can't tell apart. */
constexpr double halfPixel = 0.5;
/** No curve is cut into more pieces. */
constexpr int mostPieces = 1'000;
/** Curves of an outline with more corners are not cut any further. */
constexpr qsizetype mostFlatCorners = 100'000;
/** Fewer corners on a circle are meant as corners. */
constexpr qsizetype leastCircleCorners = 8;
/** Comparing more outlines of one path with each other would take too long. */
constexpr qsizetype mostCompared = 2'000;

QPointF CurveAt(const std::array<QPointF, 4>& points, double t)
{
    const double s = 1 - t;
    return s * s * s * points[0] + 3 * s * s * t * points[1] + 3 * s * t * t * points[2] +
           t * t * t * points[3];
}

/** Adds the curve as lines. Its distance from them grows with how far it bends. */
void AddCurve(QPolygonF& outline, const std::array<QPointF, 4>& points)
{
    const QPointF first = points[0] - 2 * points[1] + points[2];
    const QPointF second = points[1] - 2 * points[2] + points[3];
    const double bend = std::max(std::hypot(first.x(), first.y()), std::hypot(second.x(), second.y()));
    const double pieces = std::ceil(std::sqrt(0.75 * bend / outlinePrecision));
    const int most = outline.size() > mostFlatCorners ? 1 : mostPieces;
    const int count = std::clamp(int(std::min(pieces, double(most))), 1, most);
    for (int piece = 1; piece <= count; ++piece) {
        outline << CurveAt(points, double(piece) / count);
    }
}

QList<QPolygonF> FlatOutlines(const QPainterPath& path)
{
    QList<QPolygonF> outlines;
    for (int i = 0; i < path.elementCount(); ++i) {
        const QPointF place = path.elementAt(i);
        if (path.elementAt(i).isMoveTo() || outlines.isEmpty()) {
            outlines << QPolygonF();
            outlines.last() << place;
        } else if (path.elementAt(i).isLineTo()) {
            outlines.last() << place;
        } else if (path.elementAt(i).isCurveTo() && i + 2 < path.elementCount()) {
            AddCurve(
                outlines.last(),
                { outlines.constLast().constLast(), place, path.elementAt(i + 1), path.elementAt(i + 2) });
            i += 2;
        }
    }
    return outlines;
}

/** How far inside of one side of a room a place is. */
using InsideOfSide = double (*)(QPointF place, const QRectF& room);

constexpr std::array<InsideOfSide, 4> sidesOfRoom = {
    [](QPointF place, const QRectF& room) { return place.x() - room.left(); },
    [](QPointF place, const QRectF& room) { return place.y() - room.top(); },
    [](QPointF place, const QRectF& room) { return room.right() - place.x(); },
    [](QPointF place, const QRectF& room) { return room.bottom() - place.y(); },
};

/** The outline without what is beyond that side. */
QPolygonF CutAt(InsideOfSide inside, const QPolygonF& outline, const QRectF& room)
{
    QPolygonF cut;
    for (qsizetype i = 0; i < outline.size(); ++i) {
        const QPointF place = outline[i];
        const QPointF before = outline[(i + outline.size() - 1) % outline.size()];
        const double here = inside(place, room);
        const double there = inside(before, room);
        if ((here < 0) != (there < 0)) {
            cut << before + (place - before) * (there / (there - here));
        }
        if (here >= 0) {
            cut << place;
        }
    }
    return cut;
}

double SurfaceOf(const QPolygonF& outline)
{
    double twice = 0;
    for (qsizetype i = 0; i < outline.size(); ++i) {
        const QPointF from = outline[i];
        const QPointF to = outline[(i + 1) % outline.size()];
        twice += from.x() * to.y() - to.x() * from.y();
    }
    return std::abs(twice) / 2;
}

bool IsInsideAny(const QList<QPolygonF>& outlines, const QList<QRectF>& bounds, qsizetype which)
{
    for (qsizetype i = 0; i < outlines.size(); ++i) {
        if (i != which && bounds[i].contains(bounds[which]) && bounds[i] != bounds[which] &&
            outlines[i].containsPoint(outlines[which].constFirst(), Qt::OddEvenFill)) {
            return true;
        }
    }
    return false;
}

/** Tells holes from what they are in. */
ShapeOutlines Sorted(const QList<QPolygonF>& outlines)
{
    QList<QRectF> bounds;
    for (const QPolygonF& outline : outlines) {
        bounds << outline.boundingRect();
    }
    ShapeOutlines sorted;
    for (qsizetype i = 0; i < outlines.size(); ++i) {
        if (outlines.size() > mostCompared || !IsInsideAny(outlines, bounds, i)) {
            sorted.Outer << outlines[i];
        } else {
            sorted.Holes << bounds[i];
        }
    }
    return sorted;
}

/** Whether the outline keeps to the sides of the box that it lies in, as its corners do. */
bool IsBox(const QPolygonF& outline)
{
    const QRectF box = outline.boundingRect();
    const bool keepsToSides = std::all_of(outline.begin(), outline.end(), [&box](QPointF place) {
        return std::min(place.x() - box.left(), box.right() - place.x()) <= halfPixel ||
               std::min(place.y() - box.top(), box.bottom() - place.y()) <= halfPixel;
    });
    // What is cut off at a corner would be along the sides as well.
    return keepsToSides && SurfaceOf(outline) >= box.width() * box.height() -
                                                     halfPixel * (box.width() + box.height()) / 2 - 1e-6;
}

bool IsRound(const QPolygonF& outline, QPointF centre, double radius)
{
    for (qsizetype i = 0; i < outline.size(); ++i) {
        const QPointF middle = (outline[i] + outline[(i + 1) % outline.size()]) / 2;
        for (const QPointF place : { outline[i], middle }) {
            const QPointF off = place - centre;
            if (std::abs(std::hypot(off.x(), off.y()) - radius) > halfPixel) {
                return false;
            }
        }
    }
    return outline.size() >= leastCircleCorners;
}

} // namespace

ShapeOutlines OutlinesOf(const QPainterPath& path, const QRectF& room)
{
    QList<QPolygonF> outlines;
    for (QPolygonF outline : FlatOutlines(path)) {
        for (const InsideOfSide side : sidesOfRoom) {
            outline = CutAt(side, outline, room);
        }
        if (SurfaceOf(outline) >= 1) {
            outlines << outline;
        }
    }
    return Sorted(outlines);
}

MapArea AreaOfOutline(const QPolygonF& outline)
{
    MapArea area;
    const QRectF box = outline.boundingRect();
    const QList<QPoint> ends = WholePixels(QPolygonF({ box.topLeft(), box.bottomRight() }));
    if (ends.constFirst().x() == ends.constLast().x() || ends.constFirst().y() == ends.constLast().y()) {
        return area;
    }
    if (IsBox(outline)) {
        area.Coordinates = { ends[0].x(), ends[0].y(), ends[1].x(), ends[1].y() };
        return area;
    }
    const double radius = (box.width() + box.height()) / 4;
    if (IsRound(outline, box.center(), radius)) {
        area.Shape = AreaShape::Circle;
        const QPoint centre = WholePixels(QPolygonF({ box.center() })).constFirst();
        area.Coordinates = { centre.x(), centre.y(), std::max(int(std::lround(radius)), 1) };
        return area;
    }
    area.Shape = AreaShape::Polygon;
    const QList<QPoint> corners = CornersAround(outline);
    if (corners.size() >= leastCorners) {
        area.Coordinates = CoordinatesOf(corners);
    }
    return area;
}
