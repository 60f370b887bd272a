#include "imagemap/model/AreaArranging.h"

#include "imagemap/model/AreaGeometry.h"

#include <algorithm>

namespace {

/** Moves each of the areas one place towards the first, or the last; those that have no room stay. */
ArrangedAreas ByOne(const MapAreas& areas, const AreaNumbers& which, int step)
{
    ArrangedAreas arranged = { areas, which };
    AreaNumbers& moved = arranged.moved;
    const auto count = moved.size();
    for (qsizetype i = 0; i < count; ++i) {
        const qsizetype at = step < 0 ? i : count - 1 - i;
        const qsizetype next = moved[at] + step;
        if (next >= 0 && next < areas.size() && !moved.contains(next)) {
            arranged.areas.swapItemsAt(moved[at], next);
            moved[at] = next;
        }
    }
    return arranged;
}

ArrangedAreas ToTheEnd(const MapAreas& areas, const AreaNumbers& which, bool isFront)
{
    ArrangedAreas arranged;
    const MapAreas chosen = Chosen(areas, which);
    const MapAreas others = Without(areas, which);
    arranged.areas = isFront ? chosen + others : others + chosen;
    for (qsizetype i = 0; i < which.size(); ++i) {
        arranged.moved << (isFront ? i : others.size() + i);
    }
    return arranged;
}

QPoint WayTo(const QRect& from, const QRect& to, Alignment alignment)
{
    switch (alignment) {
    case Alignment::Left:
        return { to.left() - from.left(), 0 };
    case Alignment::Centre:
        return { (to.left() + to.right() - from.left() - from.right()) / 2, 0 };
    case Alignment::Right:
        return { to.right() - from.right(), 0 };
    case Alignment::Top:
        return { 0, to.top() - from.top() };
    case Alignment::Middle:
        return { 0, (to.top() + to.bottom() - from.top() - from.bottom()) / 2 };
    case Alignment::Bottom:
        return { 0, to.bottom() - from.bottom() };
    default:
        return {};
    }
}

MapArea SizedLike(const MapArea& area, const QRect& to, Alignment alignment)
{
    const QRect from = BoundsOf(area);
    QPoint growth(to.width() - from.width(), to.height() - from.height());
    if (alignment == Alignment::SameWidth) {
        growth.setY(0);
    } else if (alignment == Alignment::SameHeight) {
        growth.setX(0);
    }
    if (area.Shape == AreaShape::Circle) {
        const int wanted =
            alignment == Alignment::SameSize ? std::min(growth.x(), growth.y()) : growth.x() + growth.y();
        growth = QPoint(wanted / 2, 0);
    }
    return Resized(area, growth);
}

} // namespace

ArrangedAreas Reordered(const MapAreas& areas, const AreaNumbers& which, OrderChange change)
{
    switch (change) {
    case OrderChange::Up:
        return ByOne(areas, which, -1);
    case OrderChange::Down:
        return ByOne(areas, which, 1);
    case OrderChange::InFront:
        return ToTheEnd(areas, which, true);
    case OrderChange::Behind:
        break;
    }
    return ToTheEnd(areas, which, false);
}

MapAreas Aligned(MapAreas areas, const AreaNumbers& which, Alignment alignment)
{
    if (which.isEmpty()) {
        return areas;
    }
    const QRect model = BoundsOf(areas.at(which.constFirst()));
    if (model.isNull()) {
        return areas;
    }
    for (const qsizetype number : which) {
        MapArea& area = areas[number];
        if (number != which.constFirst() && IsWhole(area)) {
            area = alignment >= Alignment::SameWidth ? SizedLike(area, model, alignment)
                                                     : Moved(area, WayTo(BoundsOf(area), model, alignment));
        }
    }
    return areas;
}

MapAreas Chosen(const MapAreas& areas, const AreaNumbers& which)
{
    MapAreas chosen;
    for (const qsizetype number : which) {
        chosen << areas.at(number);
    }
    return chosen;
}

MapAreas Without(const MapAreas& areas, const AreaNumbers& which)
{
    MapAreas others;
    for (qsizetype i = 0; i < areas.size(); ++i) {
        if (!which.contains(i)) {
            others << areas.at(i);
        }
    }
    return others;
}
