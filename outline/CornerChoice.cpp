#include "outline/CornerChoice.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

/** So many corners may one side pass by; more would take too long to try. */
constexpr std::size_t mostPassed = 400;
/** As many pixels could be looked at while sides from one corner are tried. */
constexpr int stepsOfCorner = 64;

struct Way
{
    double x = 0;
    double y = 0;
};

double Cross(const Way& one, const Way& other)
{
    return one.x * other.y - one.y * other.x;
}

Way TurnedBy(const Way& way, double sine, double cosine)
{
    return { way.x * cosine - way.y * sine, way.x * sine + way.y * cosine };
}

/** The ways from a place that pass others within some distance. */
class WaysPast
{
public:
    explicit WaysPast(double distance)
        : distance_(distance)
    {
    }

    [[nodiscard]] bool Holds(const Way& way) const
    {
        return !isBounded_ || (Cross(least_, way) >= 0 && Cross(way, most_) >= 0);
    }

    /** Leaves those that pass what lies in the direction `way`; false when there are none. */
    bool Pass(const Way& way)
    {
        const double length = std::hypot(way.x, way.y);
        if (length <= distance_) {
            return true;
        }
        const double sine = distance_ / length;
        const double cosine = std::sqrt(1 - sine * sine);
        const Way lowest = TurnedBy(way, -sine, cosine);
        const Way highest = TurnedBy(way, sine, cosine);
        if (!isBounded_) {
            isBounded_ = true;
            least_ = lowest;
            most_ = highest;
            return true;
        }
        if (Cross(least_, lowest) > 0) {
            least_ = lowest;
        }
        if (Cross(highest, most_) > 0) {
            most_ = highest;
        }
        return Cross(least_, most_) >= 0;
    }

private:
    double distance_;
    bool isBounded_ = false;
    Way least_; ///< the ways between these two are left, once it is bounded
    Way most_;
};

/** Sums over the corners in front of one, by which the squares of distances from a line are found at once. */
struct CornerSums
{
    double x = 0;
    double y = 0;
    double xx = 0;
    double xy = 0;
    double yy = 0;
};

class SideCosts
{
public:
    explicit SideCosts(const Contour& contour)
        : contour_(contour)
        , sums_(contour.size() + 1)
    {
        for (std::size_t i = 0; i < contour.size(); ++i) {
            const Way place = PlaceOf(i);
            const CornerSums& sum = sums_[i];
            sums_[i + 1] = { sum.x + place.x, sum.y + place.y, sum.xx + place.x * place.x,
                             sum.xy + place.x * place.y, sum.yy + place.y * place.y };
        }
    }

    /** The squared distances of the corners between two from the line through these. */
    [[nodiscard]] double Between(std::size_t from, std::size_t to) const
    {
        const Way start = PlaceOf(from);
        const Way way = WayTo(from, to);
        const CornerSums& before = sums_[from + 1];
        const CornerSums& end = sums_[to];
        const auto count = double(to - from - 1);
        const double x = end.x - before.x;
        const double y = end.y - before.y;
        const double xx = end.xx - before.xx - 2 * start.x * x + count * start.x * start.x;
        const double yy = end.yy - before.yy - 2 * start.y * y + count * start.y * start.y;
        const double xy = end.xy - before.xy - start.x * y - start.y * x + count * start.x * start.y;
        const double length = way.x * way.x + way.y * way.y;
        return std::max((way.y * way.y * xx - 2 * way.x * way.y * xy + way.x * way.x * yy) / length, 0.0);
    }

    [[nodiscard]] Way WayTo(std::size_t from, std::size_t to) const
    {
        const Way start = PlaceOf(from);
        const Way end = PlaceOf(to % contour_.size());
        return { end.x - start.x, end.y - start.y };
    }

private:
    /** Seen from the first corner, so that numbers stay small. */
    [[nodiscard]] Way PlaceOf(std::size_t corner) const
    {
        const QPoint place = contour_[corner] - contour_.front();
        return { double(place.x()), double(place.y()) };
    }

    const Contour& contour_;
    std::vector<CornerSums> sums_;
};

struct BestWay
{
    double cost = std::numeric_limits<double>::infinity();
    std::size_t from = 0;
};

} // namespace

std::vector<bool>
BestCorners(const Contour& contour, double precision, double costOfSide, const StopSign& stop)
{
    const std::size_t count = contour.size();
    const SideCosts costs(contour);
    std::vector<BestWay> best(count + 1);
    best[0].cost = 0;
    for (std::size_t from = 0; from < count && !stop.IsUpFor(stepsOfCorner); ++from) {
        WaysPast ways(precision);
        // A side that comes back to where it began is none.
        const std::size_t last = std::min(from + mostPassed, from == 0 ? count - 1 : count);
        for (std::size_t to = from + 1; to <= last; ++to) {
            const Way way = costs.WayTo(from, to);
            if (to == from + 1 || ways.Holds(way)) {
                const double cost = best[from].cost + costOfSide + costs.Between(from, to);
                if (cost < best[to].cost) {
                    best[to] = { cost, from };
                }
            }
            if (!ways.Pass(way)) {
                break;
            }
        }
    }
    std::vector<bool> isCorner(count, false);
    for (std::size_t corner = best[count].from; corner != 0; corner = best[corner].from) {
        isCorner[corner] = true;
    }
    isCorner[0] = true;
    return isCorner;
}
