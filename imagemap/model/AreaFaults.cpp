#include "imagemap/model/AreaFaults.h"

#include "imagemap/model/AreaGeometry.h"

#include <algorithm>

namespace {

constexpr QStringView noLink = u"This area has no link";

/** What is wrong with an area that cannot be drawn. */
QStringList FaultsWithoutPlace(const MapArea& area)
{
    QStringList faults;
    if (area.Shape != AreaShape::Default) {
        faults << QStringLiteral("This area has no coordinates that it could be drawn by");
    }
    if (area.Link.isEmpty()) {
        faults << noLink.toString();
    }
    return faults;
}

/** The last place to the right of `place`, on its height, that `area` is known to hold as well. */
int LastBeside(const MapArea& area, QPoint place)
{
    return area.Shape == AreaShape::Rectangle ? BoundsOf(area).right() : place.x();
}

/** How far to the right of `place`, itself included, `above` hides what is below; nothing if it does not. */
std::optional<int> CoveredUpTo(const MapAreas& above, QPoint place)
{
    for (const MapArea& area : above) {
        if (Contains(area, place)) {
            return LastBeside(area, place);
        }
    }
    return std::nullopt;
}

/** Whether no pixel of `area` within `visible` shows beneath `above`. */
bool IsCovered(const MapArea& area, const MapAreas& above, const QRect& visible)
{
    for (int y = visible.top(); y <= visible.bottom(); ++y) {
        int x = visible.left();
        while (x <= visible.right()) {
            if (const std::optional<int> last = CoveredUpTo(above, { x, y })) {
                x = *last + 1;
            } else if (Contains(area, { x, y })) {
                return false;
            } else {
                ++x;
            }
        }
    }
    return true;
}

/** Those of the areas before `number` that could hide some of what lies in `visible`. */
MapAreas AreasAbove(const MapAreas& areas, qsizetype number, const QRect& visible)
{
    MapAreas above;
    std::copy_if(
        areas.begin(), areas.begin() + number, std::back_inserter(above),
        [&visible](const MapArea& area) { return BoundsOf(area).intersects(visible); });
    return above;
}

} // namespace

QStringList FaultsOf(const MapAreas& areas, qsizetype number, QSize picture)
{
    QStringList faults;
    const MapArea& area = areas.at(number);
    if (area.Coordinates.isEmpty()) {
        return FaultsWithoutPlace(area);
    }
    const QRect bounds = BoundsOf(area);
    const QRect visible = bounds & QRect(QPoint(0, 0), picture);
    if (visible.isEmpty()) {
        faults << QStringLiteral("This area lies outside of the picture");
    } else if (const MapAreas above = AreasAbove(areas, number, visible);
               !above.isEmpty() && IsCovered(area, above, visible)) {
        faults << QStringLiteral("Areas above cover all of this one");
    }
    if (area.Link.isEmpty()) {
        faults << noLink.toString();
    }
    if (std::min(bounds.width(), bounds.height()) < leastTargetSize) {
        faults << QStringLiteral("This area is smaller than %1 pixels, which is hard to hit")
                      .arg(leastTargetSize);
    }
    return faults;
}
