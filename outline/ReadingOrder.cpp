#include "outline/ReadingOrder.h"

#include <algorithm>
#include <numeric>
#include <optional>
#include <utility>

namespace {

/** Whether the pixel lies inside of the contour. */
bool IsAround(const Contour& contour, QPoint pixel)
{
    bool isInside = false;
    QPoint from = contour.back();
    for (const QPoint to : contour) {
        const bool isUpright = from.x() == to.x() && from.x() > pixel.x();
        isInside = isInside != (isUpright && (from.y() > pixel.y()) != (to.y() > pixel.y()));
        from = to;
    }
    return isInside;
}

/** Puts the regions with these numbers line by line. */
void SortLineByLine(const PictureRegions& regions, std::vector<std::size_t>& order)
{
    const auto boxOf = [&regions](std::size_t i) -> const QRect& { return regions[i].region.box; };
    const auto isHigher = [&boxOf](std::size_t one, std::size_t other) {
        return std::pair(boxOf(one).top(), boxOf(one).left()) <
               std::pair(boxOf(other).top(), boxOf(other).left());
    };
    const auto isFurtherLeft = [&boxOf](std::size_t one, std::size_t other) {
        return std::pair(boxOf(one).left(), boxOf(one).top()) <
               std::pair(boxOf(other).left(), boxOf(other).top());
    };
    std::sort(order.begin(), order.end(), isHigher);
    auto line = order.begin();
    while (line != order.end()) {
        const int bottom = boxOf(*line).bottom();
        const auto end = std::stable_partition(
            line, order.end(), [&boxOf, bottom](std::size_t i) { return boxOf(i).center().y() <= bottom; });
        std::sort(line, end, isFurtherLeft);
        line = end;
    }
}

/** Which region lies next around each of `regions`; none for those that no other encloses. */
std::vector<std::optional<std::size_t>> AroundEach(const PictureRegions& regions, const StopSign& stop)
{
    const auto roomOf = [&regions](std::size_t i) {
        const QRect& box = regions[i].region.box;
        return qint64(box.width()) * box.height();
    };
    // What encloses another one has a larger box: pictures with many regions have few of those.
    std::vector<std::size_t> largestFirst(regions.size());
    std::iota(largestFirst.begin(), largestFirst.end(), std::size_t(0));
    std::sort(largestFirst.begin(), largestFirst.end(), [&roomOf](std::size_t one, std::size_t other) {
        return roomOf(one) > roomOf(other);
    });
    std::vector<qint64> areas;
    for (const PictureRegion& region : regions) {
        areas.push_back(TwiceAreaOf(region.contour));
    }
    std::vector<std::optional<std::size_t>> around(regions.size());
    for (std::size_t i = 0; i < regions.size() && !stop.IsUp(); ++i) {
        const Region& inner = regions[i].region;
        const qint64 room = roomOf(i);
        for (const std::size_t j : largestFirst) {
            if (roomOf(j) <= room || stop.IsUpFor(1)) {
                break;
            }
            const bool isNearer = !around[i] || areas[j] < areas[*around[i]];
            if (isNearer && regions[j].region.box.contains(inner.box) &&
                !stop.IsUpFor(qint64(regions[j].contour.size())) &&
                IsAround(regions[j].contour, inner.first)) {
                around[i] = j;
            }
        }
    }
    return around;
}

} // namespace

PictureRegions InReadingOrder(PictureRegions regions, const StopSign& stop)
{
    const auto around = AroundEach(regions, stop);
    if (stop.IsUp()) {
        return {};
    }
    std::vector<std::vector<std::size_t>> inside(regions.size());
    std::vector<std::size_t> waiting;
    for (std::size_t i = 0; i < regions.size(); ++i) {
        (around[i] ? inside[*around[i]] : waiting).push_back(i);
    }
    SortLineByLine(regions, waiting);
    for (std::vector<std::size_t>& siblings : inside) {
        SortLineByLine(regions, siblings);
    }
    // From the last one back: each is written behind what lies in it, so in front of that from this side.
    std::vector<std::size_t> fromLast;
    while (!waiting.empty()) {
        const std::size_t next = waiting.back();
        waiting.pop_back();
        fromLast.push_back(next);
        waiting.insert(waiting.end(), inside[next].begin(), inside[next].end());
    }
    PictureRegions ordered;
    ordered.reserve(regions.size());
    for (auto i = fromLast.rbegin(); i != fromLast.rend(); ++i) {
        ordered.push_back(std::move(regions[*i]));
    }
    return ordered;
}
