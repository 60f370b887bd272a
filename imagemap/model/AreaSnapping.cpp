#include "imagemap/model/AreaSnapping.h"

#include "imagemap/model/AreaGeometry.h"

#include <cstdlib>

namespace {

QList<int> Stops(int first, int last)
{
    return { first, (first + last) / 2, last };
}

int StepToLine(const QList<int>& lines, const QList<int>& stops, int reach)
{
    int best = reach + 1;
    for (const int line : lines) {
        for (const int stop : stops) {
            best = std::abs(line - stop) < std::abs(best) ? line - stop : best;
        }
    }
    return std::abs(best) <= reach ? best : 0;
}

} // namespace

SnapLines SnapLinesOf(const MapAreas& others, QSize picture)
{
    SnapLines lines = { Stops(0, picture.width()), Stops(0, picture.height()) };
    for (const MapArea& area : others) {
        if (IsWhole(area)) {
            const QRect bounds = BoundsOf(area);
            lines.across << Stops(bounds.left(), bounds.right());
            lines.down << Stops(bounds.top(), bounds.bottom());
        }
    }
    return lines;
}

QPoint StepToLines(const SnapLines& lines, const QRect& bounds, int reach)
{
    return { StepToLine(lines.across, Stops(bounds.left(), bounds.right()), reach),
             StepToLine(lines.down, Stops(bounds.top(), bounds.bottom()), reach) };
}

QList<QLine> LinesTouched(const SnapLines& lines, const QRect& bounds, QSize picture)
{
    QList<QLine> touched;
    for (const int stop : Stops(bounds.left(), bounds.right())) {
        if (lines.across.contains(stop)) {
            touched << QLine(stop, 0, stop, picture.height());
        }
    }
    for (const int stop : Stops(bounds.top(), bounds.bottom())) {
        if (lines.down.contains(stop)) {
            touched << QLine(0, stop, picture.width(), stop);
        }
    }
    return touched;
}
