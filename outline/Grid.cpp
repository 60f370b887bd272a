#include "outline/Grid.h"

#include <utility>

namespace {

/** What a cell takes of a line: from its first to its last coordinate. */
using GridSpan = std::pair<int, int>;

/** The spans of `count` cells between two coordinates; none where one of them would be empty. */
QList<GridSpan> SpansOf(int first, int last, int count, int gap)
{
    // As if the last cell had a gap behind it like the others.
    const qint64 whole = qint64(last) - first + gap;
    QList<GridSpan> spans;
    for (int i = 0; i < count; ++i) {
        const auto begin = int(first + whole * i / count);
        const auto end = int(first + whole * (i + 1) / count - gap);
        if (whole <= 0 || end <= begin) {
            return {};
        }
        spans << GridSpan(begin, end);
    }
    return spans;
}

} // namespace

MapAreas GridAreas(const GridPlan& plan, const QRect& room)
{
    const QRect inside = room.marginsRemoved(plan.Margins);
    const QList<GridSpan> columns = SpansOf(inside.left(), inside.right(), plan.Columns, plan.GapX);
    const QList<GridSpan> rows = SpansOf(inside.top(), inside.bottom(), plan.Rows, plan.GapY);
    MapAreas areas;
    areas.reserve(rows.size() * columns.size());
    for (const GridSpan& row : rows) {
        for (const GridSpan& column : columns) {
            MapArea area;
            area.Coordinates = { column.first, row.first, column.second, row.second };
            areas << area;
        }
    }
    return areas;
}
