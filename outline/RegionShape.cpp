#include "outline/RegionShape.h"

#include "imagemap/model/AreaGeometry.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numbers>
#include <optional>

namespace {

constexpr double tooFar = std::numeric_limits<double>::infinity();

/** A rectangle by its edges, not by its pixels. */
struct EdgeBox
{
    int left;
    int top;
    int right;
    int bottom;
};

EdgeBox EdgesOf(const Contour& contour)
{
    EdgeBox box{ contour.front().x(), contour.front().y(), contour.front().x(), contour.front().y() };
    for (const QPoint corner : contour) {
        box.left = std::min(box.left, corner.x());
        box.top = std::min(box.top, corner.y());
        box.right = std::max(box.right, corner.x());
        box.bottom = std::max(box.bottom, corner.y());
    }
    return box;
}

/** Calls `use(from, to)` for every side of the contour. */
template<class Use> void ForSides(const Contour& contour, Use use)
{
    QPoint from = contour.back();
    for (const QPoint to : contour) {
        use(from, to);
        from = to;
    }
}

double DistanceToSide(double x, double y, QPoint a, QPoint b)
{
    // Sides go along or down, so the nearest place is found for each direction alone.
    const double nearestX = std::clamp(x, double(std::min(a.x(), b.x())), double(std::max(a.x(), b.x())));
    const double nearestY = std::clamp(y, double(std::min(a.y(), b.y())), double(std::max(a.y(), b.y())));
    return std::hypot(x - nearestX, y - nearestY);
}

/** Whether the contour goes around the place. */
bool Surrounds(const Contour& contour, double x, double y)
{
    bool isInside = false;
    ForSides(contour, [x, y, &isInside](QPoint from, QPoint to) {
        const bool isCrossed = from.x() == to.x() && from.x() > x && (from.y() > y) != (to.y() > y);
        isInside = isInside != isCrossed;
    });
    return isInside;
}

/**
 * The line along which the contour goes furthest in one direction, of those no further than `reach` from the
 * outermost one `from`: single pixels that stick out do not make the rectangle larger. `inwards` is 1 or -1.
 */
template<class LengthAlong> int LongestLine(int from, int inwards, int reach, LengthAlong lengthAlong)
{
    int longest = from;
    qint64 most = 0;
    for (int step = 0; step <= reach; ++step) {
        const qint64 length = lengthAlong(from + inwards * step);
        if (length > most) {
            most = length;
            longest = from + inwards * step;
        }
    }
    return longest;
}

/** How long the contour goes along the line at `place`, in the direction of a clockwise side. */
struct SideLengths
{
    const Contour& contour;
    bool isUpright;
    int direction; ///< 1 where x or y grows

    qint64 operator()(int place) const
    {
        qint64 length = 0;
        ForSides(contour, [this, place, &length](QPoint from, QPoint to) {
            const bool isAlong =
                isUpright ? from.x() == place && to.x() == place : from.y() == place && to.y() == place;
            const int way = (isUpright ? to.y() - from.y() : to.x() - from.x()) * direction;
            length += isAlong && way > 0 ? way : 0;
        });
        return length;
    }
};

EdgeBox BestBox(const Contour& contour, double precision)
{
    const EdgeBox box = EdgesOf(contour);
    const int reach = static_cast<int>(2 * precision);
    constexpr bool upright = true;
    constexpr bool level = false;
    return { LongestLine(box.left, 1, reach, SideLengths{ contour, upright, -1 }),
             LongestLine(box.top, 1, reach, SideLengths{ contour, level, 1 }),
             LongestLine(box.right, -1, reach, SideLengths{ contour, upright, 1 }),
             LongestLine(box.bottom, -1, reach, SideLengths{ contour, level, -1 }) };
}

/** How far the place is from the nearest side of the box. */
double DistanceToBox(const EdgeBox& box, QPoint place)
{
    const int outX = std::max({ box.left - place.x(), place.x() - box.right, 0 });
    const int outY = std::max({ box.top - place.y(), place.y() - box.bottom, 0 });
    if (outX > 0 || outY > 0) {
        return std::hypot(outX, outY);
    }
    return std::min(
        { place.x() - box.left, box.right - place.x(), place.y() - box.top, box.bottom - place.y() });
}

/** Whether a side of the contour passes through the box made smaller by `margin`. */
bool CrossesInside(const Contour& contour, const EdgeBox& box, double margin)
{
    bool isCrossed = false;
    ForSides(contour, [&box, margin, &isCrossed](QPoint from, QPoint to) {
        isCrossed = isCrossed || (std::max(from.x(), to.x()) > box.left + margin &&
                                  std::min(from.x(), to.x()) < box.right - margin &&
                                  std::max(from.y(), to.y()) > box.top + margin &&
                                  std::min(from.y(), to.y()) < box.bottom - margin);
    });
    return isCrossed;
}

/**
 * How far contour and box are apart; too far where there is no telling. The contour that keeps within a band
 * along the sides and goes around the middle has each place of a side next to it, but for the corners, which
 * are looked at.
 */
double DeviationOf(const Contour& contour, const EdgeBox& box, double precision)
{
    double deviation = 0;
    for (const QPoint corner : contour) {
        deviation = std::max(deviation, DistanceToBox(box, corner));
    }
    const bool isNarrow = std::min(box.right - box.left, box.bottom - box.top) <= 2 * precision;
    constexpr std::size_t cornersOfBox = 4;
    if (isNarrow) {
        return contour.size() == cornersOfBox ? deviation : tooFar;
    }
    if (deviation > precision || CrossesInside(contour, box, precision) ||
        !Surrounds(contour, (box.left + box.right) / 2.0, (box.top + box.bottom) / 2.0)) {
        return tooFar;
    }
    for (const QPoint corner : { QPoint(box.left, box.top), QPoint(box.right, box.top),
                                 QPoint(box.right, box.bottom), QPoint(box.left, box.bottom) }) {
        double distance = tooFar;
        ForSides(contour, [corner, &distance](QPoint from, QPoint to) {
            distance = std::min(distance, DistanceToSide(corner.x(), corner.y(), from, to));
        });
        deviation = std::max(deviation, distance);
    }
    return deviation;
}

struct EdgeCircle
{
    int x;
    int y;
    int radius;
};

double DeviationOf(const Contour& contour, const EdgeCircle& circle)
{
    double deviation = 0;
    ForSides(contour, [&circle, &deviation](QPoint from, QPoint to) {
        const double furthest = std::hypot(to.x() - circle.x, to.y() - circle.y);
        const double nearest = DistanceToSide(circle.x, circle.y, from, to);
        deviation = std::max({ deviation, furthest - circle.radius, circle.radius - nearest });
    });
    return deviation;
}

/** Whether the contour keeps so close to the sides of the smallest box around it that it may be one. */
bool KeepsToItsBox(const Contour& contour, double precision)
{
    // A side of BestBox() may be twice the precision within, and the contour the precision within that.
    const EdgeBox box = EdgesOf(contour);
    return std::all_of(contour.begin(), contour.end(), [&box, precision](QPoint corner) {
        return DistanceToBox(box, corner) <= 3 * precision;
    });
}

RegionShape RectangleOf(const Contour& contour, double precision)
{
    if (!KeepsToItsBox(contour, precision)) {
        return { {}, tooFar };
    }
    const EdgeBox box = BestBox(contour, precision);
    MapArea area;
    area.Shape = AreaShape::Rectangle;
    area.Coordinates = { box.left, box.top, box.right, box.bottom };
    return { area, DeviationOf(contour, box, precision) };
}

/** The whole numbers on both sides of `number`. */
std::array<int, 2> Beside(double number)
{
    return { static_cast<int>(std::floor(number)), static_cast<int>(std::ceil(number)) };
}

RegionShape CircleOf(const Contour& contour, double precision, const StopSign& stop)
{
    const EdgeBox box = EdgesOf(contour);
    const double x = (box.left + box.right) / 2.0;
    const double y = (box.top + box.bottom) / 2.0;
    const double radius = std::sqrt(double(TwiceAreaOf(contour)) / 2 / std::numbers::pi);
    RegionShape best{ {}, tooFar };
    // What is hardly wider than what may be left off is no circle, and a long one takes no measuring.
    if (radius <= 2 * precision ||
        std::abs((box.right - box.left) - (box.bottom - box.top)) > 4 * precision ||
        !Surrounds(contour, x, y)) {
        return best;
    }
    for (const int atX : Beside(x)) {
        for (const int atY : Beside(y)) {
            for (const int reach : Beside(radius)) {
                if (stop.IsUpFor(qint64(contour.size()))) {
                    return best;
                }
                const double deviation = DeviationOf(contour, EdgeCircle{ atX, atY, reach });
                if (deviation < best.deviation) {
                    best.area.Coordinates = { atX, atY, reach };
                    best.deviation = deviation;
                }
            }
        }
    }
    best.area.Shape = AreaShape::Circle;
    return best;
}

} // namespace

RegionShape ShapeOf(const Contour& contour, double precision, const StopSign& stop)
{
    const RegionShape rectangle = RectangleOf(contour, precision);
    const RegionShape circle = CircleOf(contour, precision, stop);
    const RegionShape& plain = circle.deviation < rectangle.deviation ? circle : rectangle;
    if (plain.deviation <= precision) {
        return plain;
    }
    const ThinContour thin = Thinned(contour, precision, mostCorners, stop);
    MapArea area;
    area.Shape = AreaShape::Polygon;
    area.Coordinates = CoordinatesOf(QList<QPoint>(thin.corners.begin(), thin.corners.end()));
    return { area, thin.deviation };
}
