#include "imagemap/model/AreaGeometry.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace {

/** Positive where `c` lies to the right of the way from `a` to `b`, as the picture is seen. */
qint64 Turn(QPoint a, QPoint b, QPoint c)
{
    return qint64(b.x() - a.x()) * (c.y() - a.y()) - qint64(b.y() - a.y()) * (c.x() - a.x());
}

bool IsBetween(int a, int b, int value)
{
    return value >= std::min(a, b) && value <= std::max(a, b);
}

bool IsOnSide(QPoint a, QPoint b, QPoint place)
{
    return Turn(a, b, place) == 0 && IsBetween(a.x(), b.x(), place.x()) && IsBetween(a.y(), b.y(), place.y());
}

/** Whether a way from `place` to the right crosses the side. */
bool IsCrossed(QPoint a, QPoint b, QPoint place)
{
    if ((a.y() > place.y()) == (b.y() > place.y())) {
        return false;
    }
    return (Turn(a, b, place) > 0) == (b.y() > a.y());
}

bool PolygonContains(const QList<QPoint>& corners, QPoint place)
{
    bool isInside = false;
    for (qsizetype i = 0; i < corners.size(); ++i) {
        const QPoint a = corners[i];
        const QPoint b = corners[(i + 1) % corners.size()];
        if (IsOnSide(a, b, place)) {
            return true;
        }
        isInside = isInside != IsCrossed(a, b, place);
    }
    return isInside;
}

bool CircleContains(const QList<int>& circle, QPoint place)
{
    const qint64 x = place.x() - circle[0];
    const qint64 y = place.y() - circle[1];
    const qint64 radius = circle[2];
    return radius >= 0 && x * x + y * y <= radius * radius;
}

/** A box with both its corners in it, whichever they are. */
QRect BoxOf(QPoint a, QPoint b)
{
    return { QPoint(std::min(a.x(), b.x()), std::min(a.y(), b.y())),
             QPoint(std::max(a.x(), b.x()), std::max(a.y(), b.y())) };
}

QList<int> CoordinatesOf(const QRect& box)
{
    return { box.left(), box.top(), box.right(), box.bottom() };
}

QPoint MiddleOf(QPoint a, QPoint b)
{
    return (a + b) / 2;
}

/** The corners of a box from its top left one clockwise. */
QList<QPoint> CornersOfBox(const QRect& box)
{
    return { box.topLeft(), box.topRight(), box.bottomRight(), box.bottomLeft() };
}

/** `to`, moved along so that the box to `fixed` has the proportions of `box`. */
QPoint Proportioned(const QRect& box, QPoint fixed, QPoint to)
{
    const double width = std::max(box.right() - box.left(), 1);
    const double height = std::max(box.bottom() - box.top(), 1);
    const double growth =
        std::max(std::abs(to.x() - fixed.x()) / width, std::abs(to.y() - fixed.y()) / height);
    const auto away = [growth](int from, int towards, double length) {
        const int whole = static_cast<int>(std::lround(growth * length));
        return towards < from ? from - whole : from + whole;
    };
    return { away(fixed.x(), to.x(), width), away(fixed.y(), to.y(), height) };
}

QList<int> PulledCorner(const QRect& box, int index, QPoint to, bool keepProportions)
{
    constexpr int opposite = 2;
    const QList<QPoint> corners = CornersOfBox(box);
    const QPoint fixed = corners[(index + opposite) % corners.size()];
    return CoordinatesOf(BoxOf(fixed, keepProportions ? Proportioned(box, fixed, to) : to));
}

QList<int> PulledSide(const QRect& box, int index, QPoint to)
{
    constexpr int right = 1;
    constexpr int left = 3;
    QPoint first = box.topLeft();
    QPoint last = box.bottomRight();
    QPoint& pulled = index == right || index == right + 1 ? last : first;
    if (index == left || index == right) {
        pulled.setX(to.x());
    } else {
        pulled.setY(to.y());
    }
    return CoordinatesOf(BoxOf(first, last));
}

int DistanceOf(QPoint a, QPoint b)
{
    return static_cast<int>(std::lround(std::hypot(double(a.x()) - b.x(), double(a.y()) - b.y())));
}

int StepWithin(int from, int to, int by, int size)
{
    const int least = std::min(0, -from);
    return std::clamp(by, least, std::max(size - to, 0));
}

/** The positions from `low` on with their length grown by `by`, as far as one pixel allows. */
int Stretched(int position, int low, int high, int by)
{
    const int length = high - low;
    if (length <= 0) {
        return position == low ? position : position + by;
    }
    const double grown = std::max(length + by, 1);
    return low + static_cast<int>(std::lround((position - low) * grown / length));
}

} // namespace

bool IsWhole(const MapArea& area)
{
    switch (area.Shape) {
    case AreaShape::Rectangle:
        return area.Coordinates.size() == rectangleNumbers;
    case AreaShape::Circle:
        return area.Coordinates.size() == circleNumbers && area.Coordinates.constLast() >= 0;
    case AreaShape::Default:
        return false;
    case AreaShape::Polygon:
        break;
    }
    return area.Coordinates.size() >= qsizetype(2) * leastCorners;
}

QList<QPoint> CornersOf(const MapArea& polygon)
{
    QList<QPoint> corners;
    corners.reserve(polygon.Coordinates.size() / 2);
    for (qsizetype i = 0; i + 1 < polygon.Coordinates.size(); i += 2) {
        corners << QPoint(polygon.Coordinates[i], polygon.Coordinates[i + 1]);
    }
    return corners;
}

QList<int> CoordinatesOf(const QList<QPoint>& corners)
{
    QList<int> coordinates;
    coordinates.reserve(2 * corners.size());
    for (const QPoint corner : corners) {
        coordinates << corner.x() << corner.y();
    }
    return coordinates;
}

bool Contains(const MapArea& area, QPoint place)
{
    if (!BoundsOf(area).contains(place)) {
        return false;
    }
    switch (area.Shape) {
    case AreaShape::Rectangle:
        return true;
    case AreaShape::Circle:
        return CircleContains(area.Coordinates, place);
    case AreaShape::Polygon:
    case AreaShape::Default:
        break;
    }
    return PolygonContains(CornersOf(area), place);
}

QList<qsizetype> AreasAt(const MapAreas& areas, QPoint place)
{
    QList<qsizetype> found;
    for (qsizetype i = 0; i < areas.size(); ++i) {
        if (Contains(areas[i], place)) {
            found << i;
        }
    }
    return found;
}

QRect BoundsOf(const MapArea& area)
{
    if (!IsWhole(area)) {
        return {};
    }
    const QList<int>& numbers = area.Coordinates;
    switch (area.Shape) {
    case AreaShape::Rectangle:
        return BoxOf({ numbers[0], numbers[1] }, { numbers[2], numbers[3] });
    case AreaShape::Circle: {
        const QPoint reach(numbers[2], numbers[2]);
        return { QPoint(numbers[0], numbers[1]) - reach, QPoint(numbers[0], numbers[1]) + reach };
    }
    case AreaShape::Polygon:
    case AreaShape::Default:
        break;
    }
    // Every step of the mouse asks for it, with all corners of all areas that are moved.
    const int* const first = numbers.constData();
    const int* const end = first + numbers.size() / 2 * 2;
    int left = first[0];
    int right = left;
    int top = first[1];
    int bottom = top;
    for (const int* number = first; number != end; number += 2) {
        left = std::min(left, number[0]);
        right = std::max(right, number[0]);
        top = std::min(top, number[1]);
        bottom = std::max(bottom, number[1]);
    }
    return { QPoint(left, top), QPoint(right, bottom) };
}

QRect BoundsOf(const MapAreas& areas)
{
    QRect bounds;
    for (const MapArea& area : areas) {
        bounds |= BoundsOf(area);
    }
    return bounds;
}

QList<AreaHandle> HandlesOf(const MapArea& area)
{
    QList<AreaHandle> handles;
    if (!IsWhole(area)) {
        return handles;
    }
    if (area.Shape == AreaShape::Circle) {
        const QPoint centre(area.Coordinates[0], area.Coordinates[1]);
        const int radius = area.Coordinates[2];
        int index = 0;
        for (const QPoint end :
             { QPoint(radius, 0), QPoint(0, radius), QPoint(-radius, 0), QPoint(0, -radius) }) {
            handles << AreaHandle{ HandleKind::Rim, index++, centre + end };
        }
        return handles;
    }
    const bool isBox = area.Shape == AreaShape::Rectangle;
    const QList<QPoint> corners = isBox ? CornersOfBox(BoundsOf(area)) : CornersOf(area);
    const auto count = static_cast<int>(corners.size());
    for (int i = 0; i < count; ++i) {
        handles << AreaHandle{ isBox ? HandleKind::Corner : HandleKind::Vertex, i, corners[i] };
    }
    for (int i = 0; i < count; ++i) {
        const QPoint middle = MiddleOf(corners[i], corners[(i + 1) % count]);
        handles << AreaHandle{ isBox ? HandleKind::Side : HandleKind::Middle, i, middle };
    }
    return handles;
}

MapArea Reshaped(const MapArea& area, const AreaHandle& handle, QPoint to, bool keepProportions)
{
    MapArea reshaped = area;
    QList<QPoint> corners = CornersOf(area);
    switch (handle.kind) {
    case HandleKind::Corner:
        reshaped.Coordinates = PulledCorner(BoundsOf(area), handle.index, to, keepProportions);
        break;
    case HandleKind::Side:
        reshaped.Coordinates = PulledSide(BoundsOf(area), handle.index, to);
        break;
    case HandleKind::Rim:
        reshaped.Coordinates[2] = std::max(DistanceOf({ area.Coordinates[0], area.Coordinates[1] }, to), 1);
        break;
    case HandleKind::Vertex:
        corners[handle.index] = to;
        reshaped.Coordinates = CoordinatesOf(corners);
        break;
    case HandleKind::Middle:
        corners.insert(handle.index + 1, to);
        reshaped.Coordinates = CoordinatesOf(corners);
        break;
    }
    return reshaped;
}

MapArea Moved(MapArea area, QPoint by)
{
    const qsizetype places = area.Shape == AreaShape::Circle ? 2 : area.Coordinates.size();
    for (qsizetype i = 0; i < std::min(places, area.Coordinates.size()); ++i) {
        const int moved = area.Coordinates[i] + (i % 2 == 0 ? by.x() : by.y());
        area.Coordinates[i] = std::clamp(moved, -coordinateLimit, coordinateLimit);
    }
    return area;
}

QPoint StepWithin(const QRect& bounds, QPoint by, QSize size)
{
    return { StepWithin(bounds.left(), bounds.right(), by.x(), size.width()),
             StepWithin(bounds.top(), bounds.bottom(), by.y(), size.height()) };
}

MapArea Resized(const MapArea& area, QPoint by)
{
    if (!IsWhole(area)) {
        return area;
    }
    const QRect bounds = BoundsOf(area);
    MapArea resized = area;
    if (area.Shape == AreaShape::Circle) {
        resized.Coordinates[2] = std::max(area.Coordinates[2] + by.x() + by.y(), 1);
    } else if (area.Shape == AreaShape::Rectangle) {
        resized.Coordinates = { bounds.left(), bounds.top(),
                                std::max(bounds.right() + by.x(), bounds.left() + 1),
                                std::max(bounds.bottom() + by.y(), bounds.top() + 1) };
    } else {
        for (qsizetype i = 0; i + 1 < area.Coordinates.size(); i += 2) {
            resized.Coordinates[i] = Stretched(area.Coordinates[i], bounds.left(), bounds.right(), by.x());
            resized.Coordinates[i + 1] =
                Stretched(area.Coordinates[i + 1], bounds.top(), bounds.bottom(), by.y());
        }
    }
    return resized;
}

MapArea WithoutCorner(const MapArea& polygon, int index)
{
    QList<QPoint> corners = CornersOf(polygon);
    if (polygon.Shape != AreaShape::Polygon || corners.size() <= leastCorners || index < 0 ||
        index >= corners.size()) {
        return polygon;
    }
    MapArea smaller = polygon;
    corners.removeAt(index);
    smaller.Coordinates = CoordinatesOf(corners);
    return smaller;
}
