#include "outline/OutlineCorners.h"

#include "outline/ContourThinning.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

/** Choosing among more corners would take too long; there are far too many then for the area of a map. */
constexpr qsizetype mostCornersChosenFrom = 8'000;
/** The grids on which corners are chosen, by the widths of their cells: on the last one all corners are where
 * the area will have them, so a line that does not cross itself there never will. */
constexpr std::array<double, 3> cellsOfChoice = { outlinePrecision, 2 * outlinePrecision, 1 };

/** Where two corners of a narrow tip are no more than a pixel apart, rounding may make a hook of it; one of
 * them will do there. */
constexpr int leastSideOfHook = 3;

double DistanceFromLine(QPointF place, QPointF from, QPointF to)
{
    const QPointF line = to - from;
    const double length = std::hypot(line.x(), line.y());
    const QPointF way = place - from;
    if (length == 0) {
        return std::hypot(way.x(), way.y());
    }
    const double along = std::clamp(QPointF::dotProduct(way, line) / (length * length), 0.0, 1.0);
    const QPointF off = way - along * line;
    return std::hypot(off.x(), off.y());
}

/** Marks which corners between two kept ones are needed. Goes over the parts of its own list instead of
 * calling itself, since an outline can have very many corners. */
void KeepNeeded(const QPolygonF& outline, qsizetype from, qsizetype to, double precision, QList<bool>& kept)
{
    QList<std::pair<qsizetype, qsizetype>> parts = { { from, to } };
    while (!parts.isEmpty()) {
        const auto [first, last] = parts.takeLast();
        double furthest = precision;
        qsizetype corner = -1;
        for (qsizetype i = first + 1; i < last; ++i) {
            const double distance = DistanceFromLine(outline[i], outline[first], outline[last]);
            if (distance > furthest) {
                furthest = distance;
                corner = i;
            }
        }
        if (corner >= 0) {
            kept[corner] = true;
            parts << std::pair(first, corner) << std::pair(corner, last);
        }
    }
}

/** Every so many-th corner where there are too many to choose from. */
QPolygonF ThinOutline(const QPolygonF& outline)
{
    const qsizetype step = outline.size() / mostCornersChosenFrom + 1;
    QPolygonF thin;
    for (qsizetype i = 0; i < outline.size(); i += step) {
        thin << outline[i];
    }
    return thin;
}

/** The outline, closed at its first corner, with the corners that the precision needs. */
QPolygonF Simplified(QPolygonF outline, double precision)
{
    const QPointF start = outline.constFirst();
    qsizetype opposite = 0;
    double furthest = 0;
    for (qsizetype i = 0; i < outline.size(); ++i) {
        const double distance = std::hypot(outline[i].x() - start.x(), outline[i].y() - start.y());
        opposite = distance > furthest ? i : opposite;
        furthest = std::max(distance, furthest);
    }
    outline << start;
    QList<bool> kept(outline.size(), false);
    kept.first() = kept[opposite] = true;
    KeepNeeded(outline, 0, opposite, precision, kept);
    KeepNeeded(outline, opposite, outline.size() - 1, precision, kept);
    QPolygonF simple;
    for (qsizetype i = 0; i + 1 < outline.size(); ++i) {
        if (kept[i]) {
            simple << outline[i];
        }
    }
    return simple;
}

/** The corners of the outline that are needed to keep within a cell of such a grid. */
QPolygonF ChosenOn(double cell, const QPolygonF& outline)
{
    Contour contour;
    QPolygonF places;
    for (const QPointF place : outline) {
        const QPoint corner(int(std::lround(place.x() / cell)), int(std::lround(place.y() / cell)));
        if (contour.empty() || contour.back() != corner) {
            contour.push_back(corner);
            places << place;
        }
    }
    while (contour.size() > 1 && contour.front() == contour.back()) {
        contour.pop_back();
    }
    const Contour chosen = Thinned(contour, 1, mostCorners).corners;
    QPolygonF kept;
    for (std::size_t i = 0; i < contour.size() && std::size_t(kept.size()) < chosen.size(); ++i) {
        if (contour[i] == chosen[std::size_t(kept.size())]) {
            kept << places[qsizetype(i)];
        }
    }
    return kept;
}

/** Takes off what whole pixels have left of narrow tips: corners at which the line goes back the way that it
 * came. */
QList<QPoint> WithoutTips(QList<QPoint> corners)
{
    for (qsizetype i = 0; i < corners.size();) {
        const qsizetype count = corners.size();
        const QPoint here = corners[i] - corners[(i + count - 1) % count];
        const QPoint on = corners[(i + 1) % count] - corners[i];
        const bool isInLine = qint64(here.x()) * on.y() == qint64(here.y()) * on.x();
        if (isInLine && qint64(here.x()) * on.x() + qint64(here.y()) * on.y() <= 0) {
            corners.removeAt(i);
            i = std::max<qsizetype>(i - 2, 0);
        } else {
            ++i;
        }
    }
    return corners;
}

/** The corners of an outline that crosses itself, or does where it is narrower than a pixel. */
QList<QPoint> CornersOfKnot(const QPolygonF& outline)
{
    // Each time from what was kept the last time: so the whole of a long outline is gone over only once.
    QPolygonF simple = Simplified(outline, outlinePrecision);
    QList<QPoint> corners = WholePixels(simple);
    for (double precision = 2 * outlinePrecision; corners.size() > mostCorners; precision *= 2) {
        simple = Simplified(simple, precision);
        corners = WholePixels(simple);
    }
    return corners;
}

} // namespace

QList<QPoint> WholePixels(const QPolygonF& outline, int apart)
{
    const auto isAtHand = [apart](QPoint one, QPoint other) {
        return (one - other).manhattanLength() < apart;
    };
    QList<QPoint> corners;
    for (const QPointF place : outline) {
        const QPoint corner(int(std::lround(place.x())), int(std::lround(place.y())));
        if (corners.isEmpty() || !isAtHand(corners.constLast(), corner)) {
            corners << corner;
        }
    }
    while (corners.size() > 1 && isAtHand(corners.constFirst(), corners.constLast())) {
        corners.removeLast();
    }
    return corners;
}

QList<QPoint> CornersAround(const QPolygonF& outline)
{
    const QPolygonF thin = ThinOutline(outline);
    for (const double cell : cellsOfChoice) {
        const QPolygonF chosen = ChosenOn(cell, thin);
        for (const int apart : { 1, leastSideOfHook }) {
            QList<QPoint> corners = WithoutTips(WholePixels(chosen, apart));
            if (corners.size() <= mostCorners && KeepsOffItself({ corners.begin(), corners.end() })) {
                return corners;
            }
        }
    }
    return CornersOfKnot(thin);
}
