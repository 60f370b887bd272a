#include "outline/RegionOutline.h"

#include "outline/RegionShape.h"

#include <algorithm>

namespace {

/** Adds the shape of `contour` to the outline. */
void AddShape(
    RegionOutline& outline, const Contour& contour, double precision, bool isHole, const StopSign& stop)
{
    const RegionShape shape = ShapeOf(contour, precision, stop);
    outline.Areas << OutlinedArea{ shape.area, isHole };
    outline.Deviation = std::max(outline.Deviation, shape.deviation);
}

} // namespace

MapAreas RegionOutline::Plain() const
{
    MapAreas areas;
    for (const OutlinedArea& outlined : Areas) {
        areas << outlined.Area;
    }
    return areas;
}

RegionOutline OutlineOf(RegionChoice& choice, const OutlinePlan& plan, const StopSign& stop)
{
    std::vector<RegionPiece> islands =
        choice.Pieces(plan.AreHolesLeftOut ? PieceHoles::Found : PieceHoles::Ignored, stop);
    // An island in the lake of another one is smaller, and has to lie in front of it.
    std::stable_sort(islands.begin(), islands.end(), [](const RegionPiece& a, const RegionPiece& b) {
        return a.region.pixels < b.region.pixels;
    });
    const auto count = static_cast<qsizetype>(islands.size());
    const qsizetype left = plan.IsLargestAlone ? count - 1 : count - mostIslands;
    RegionOutline outline;
    for (qsizetype i = std::max(left, qsizetype(0)); i < count && !stop.IsUp(); ++i) {
        const RegionPiece& island = islands[std::size_t(i)];
        for (const Contour& hole : island.holes) {
            if (!stop.IsUpFor(qint64(hole.size())) && TwiceAreaOf(hole) >= qint64(2) * leastHolePixels) {
                AddShape(outline, hole, plan.Precision, true, stop);
            }
        }
        AddShape(outline, island.contour, plan.Precision, false, stop);
    }
    return outline;
}
