#include "codegen/PaintingOrder.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <queue>
#include <vector>

namespace {

struct Point
{
    double x = 0;
    double y = 0;
};

/** An area as its corners and the box around them. */
struct Outline
{
    std::vector<Point> corners;
    Point least;
    Point most;
};

/** What two areas may share without overlapping, in pixels. */
constexpr double borderWidth = 1.0;

/** Corners of the polygon that stands for a circle; it leaves one of radius 200 nowhere by half a pixel. */
constexpr int circleCorners = 48;

std::vector<Point> CornersOf(const MapArea& area)
{
    const QList<int>& numbers = area.Coordinates;
    std::vector<Point> corners;
    if (area.Shape == AreaShape::Circle && numbers.size() >= 3) {
        for (int i = 0; i < circleCorners; ++i) {
            const double angle = 2 * std::numbers::pi * i / circleCorners;
            corners.push_back(
                { numbers[0] + numbers[2] * std::cos(angle), numbers[1] + numbers[2] * std::sin(angle) });
        }
    } else if (area.Shape == AreaShape::Rectangle && numbers.size() >= 4) {
        for (const auto& [x, y] : { std::pair(0, 1), std::pair(2, 1), std::pair(2, 3), std::pair(0, 3) }) {
            corners.push_back({ double(numbers[x]), double(numbers[y]) });
        }
    } else if (area.Shape == AreaShape::Polygon) {
        for (qsizetype i = 0; i + 1 < numbers.size(); i += 2) {
            corners.push_back({ double(numbers[i]), double(numbers[i + 1]) });
        }
    }
    return corners;
}

Outline OutlineOf(const MapArea& area)
{
    constexpr double far = std::numeric_limits<double>::max();
    Outline outline{ CornersOf(area), { far, far }, { -far, -far } };
    for (const Point& corner : outline.corners) {
        outline.least = { std::min(outline.least.x, corner.x), std::min(outline.least.y, corner.y) };
        outline.most = { std::max(outline.most.x, corner.x), std::max(outline.most.y, corner.y) };
    }
    return outline;
}

/** Whether the boxes share more than a border; nothing does with an outline that has no corners. */
bool DoBoxesOverlap(const Outline& one, const Outline& other)
{
    return std::min(one.most.x, other.most.x) - std::max(one.least.x, other.least.x) > borderWidth &&
           std::min(one.most.y, other.most.y) - std::max(one.least.y, other.least.y) > borderWidth;
}

double DistanceToSide(const Point& point, const Point& from, const Point& to)
{
    const double length = std::hypot(to.x - from.x, to.y - from.y);
    const double along =
        length == 0 ? 0
                    : std::clamp(
                          ((point.x - from.x) * (to.x - from.x) + (point.y - from.y) * (to.y - from.y)) /
                              (length * length),
                          0.0, 1.0);
    return std::hypot(point.x - from.x - along * (to.x - from.x), point.y - from.y - along * (to.y - from.y));
}

/** Whether the point is inside by more than a border, by the even-odd rule as browsers fill areas. */
bool IsDeepInside(const Point& point, const Outline& outline)
{
    bool isInside = false;
    const std::vector<Point>& corners = outline.corners;
    for (std::size_t i = 0, before = corners.size() - 1; i < corners.size(); before = i++) {
        const Point& from = corners[before];
        const Point& to = corners[i];
        if (DistanceToSide(point, from, to) <= borderWidth) {
            return false;
        }
        if ((from.y > point.y) != (to.y > point.y) &&
            point.x < from.x + (point.y - from.y) / (to.y - from.y) * (to.x - from.x)) {
            isInside = !isInside;
        }
    }
    return isInside;
}

/** On which side of the line from `from` to `to` the point is, and how far: negative on one, positive beyond.
 */
double SideOf(const Point& point, const Point& from, const Point& to)
{
    const double length = std::hypot(to.x - from.x, to.y - from.y);
    const double cross = (to.x - from.x) * (point.y - from.y) - (to.y - from.y) * (point.x - from.x);
    return length == 0 ? 0 : cross / length;
}

bool IsSplit(double one, double other)
{
    return std::min(one, other) < -borderWidth && std::max(one, other) > borderWidth;
}

/** Whether two sides cross, and leave the crossing by more than a border at each end. */
bool DoSidesCross(const Point& a, const Point& b, const Point& c, const Point& d)
{
    return IsSplit(SideOf(a, c, d), SideOf(b, c, d)) && IsSplit(SideOf(c, a, b), SideOf(d, a, b));
}

bool DoSidesCross(const Outline& one, const Outline& other)
{
    const auto isBeside = [&other](const Point& a, const Point& b) {
        return std::max(a.x, b.x) < other.least.x || std::min(a.x, b.x) > other.most.x ||
               std::max(a.y, b.y) < other.least.y || std::min(a.y, b.y) > other.most.y;
    };
    for (std::size_t i = 0, before = one.corners.size() - 1; i < one.corners.size(); before = i++) {
        const Point& a = one.corners[before];
        const Point& b = one.corners[i];
        if (isBeside(a, b)) {
            continue;
        }
        for (std::size_t j = 0, last = other.corners.size() - 1; j < other.corners.size(); last = j++) {
            if (DoSidesCross(a, b, other.corners[last], other.corners[j])) {
                return true;
            }
        }
    }
    return false;
}

/** For outlines that lie on each other corner for corner: the middles of their ears are inside both. */
bool HasEarIn(const Outline& one, const Outline& other)
{
    constexpr double earCorners = 3;
    const std::vector<Point>& corners = one.corners;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const Point& b = corners[(i + 1) % corners.size()];
        const Point& c = corners[(i + 2) % corners.size()];
        const Point middle{ (corners[i].x + b.x + c.x) / earCorners,
                            (corners[i].y + b.y + c.y) / earCorners };
        if (IsDeepInside(middle, one) && IsDeepInside(middle, other)) {
            return true;
        }
    }
    return false;
}

bool HasCornerIn(const Outline& one, const Outline& other)
{
    return std::any_of(one.corners.begin(), one.corners.end(), [&other](const Point& corner) {
        return IsDeepInside(corner, other);
    });
}

bool DoOverlap(const Outline& one, const Outline& other)
{
    return DoBoxesOverlap(one, other) &&
           (HasCornerIn(one, other) || HasCornerIn(other, one) || DoSidesCross(one, other) ||
            HasEarIn(one, other) || HasEarIn(other, one));
}

} // namespace

bool DoOverlap(const MapArea& one, const MapArea& other)
{
    return DoOverlap(OutlineOf(one), OutlineOf(other));
}

QList<qsizetype> PaintingOrder(const MapAreas& areas)
{
    std::vector<Outline> outlines;
    outlines.reserve(std::size_t(areas.size()));
    for (const MapArea& area : areas) {
        outlines.push_back(OutlineOf(area));
    }
    // Which areas lie on each, and how many of those below each are still to be painted.
    std::vector<std::vector<std::size_t>> above(outlines.size());
    std::vector<int> waiting(outlines.size());
    for (std::size_t upper = 0; upper < outlines.size(); ++upper) {
        for (std::size_t lower = upper + 1; lower < outlines.size(); ++lower) {
            if (DoOverlap(outlines[upper], outlines[lower])) {
                above[lower].push_back(upper);
                ++waiting[upper];
            }
        }
    }
    std::priority_queue<std::size_t, std::vector<std::size_t>, std::greater<>> free;
    for (std::size_t i = 0; i < waiting.size(); ++i) {
        if (waiting[i] == 0) {
            free.push(i);
        }
    }
    QList<qsizetype> order;
    while (!free.empty()) {
        const std::size_t next = free.top();
        free.pop();
        order << qsizetype(next);
        for (const std::size_t upper : above[next]) {
            if (--waiting[upper] == 0) {
                free.push(upper);
            }
        }
    }
    return order;
}
