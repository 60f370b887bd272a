#include "outline/Contour.h"

#include <algorithm>
#include <array>

namespace {

/** A way along the edges of pixels, and where the pixels ahead lie seen from the corner that was reached. */
struct EdgeWay
{
    QPoint step;
    QPoint leftAhead;
    QPoint rightAhead;
};

/** Clockwise, so that the next one is a turn to the right. */
constexpr std::array<EdgeWay, 4> edgeWays = { { { { 1, 0 }, { 0, -1 }, { 0, 0 } },
                                                { { 0, 1 }, { 0, 0 }, { -1, 0 } },
                                                { { -1, 0 }, { -1, 0 }, { -1, -1 } },
                                                { { 0, -1 }, { -1, -1 }, { 0, -1 } } } };
constexpr std::size_t turnRight = 1;
constexpr std::size_t turnLeft = edgeWays.size() - 1;

struct ContourSide
{
    std::size_t number;
    QPoint from;
    QPoint to;

    [[nodiscard]] int Left() const { return std::min(from.x(), to.x()); }
    [[nodiscard]] int Right() const { return std::max(from.x(), to.x()); }

    /** On which hand of the side a place is; 0 on the line through it. */
    [[nodiscard]] int HandOf(QPoint place) const
    {
        const qint64 turn = qint64(to.x() - from.x()) * (place.y() - from.y()) -
                            qint64(to.y() - from.y()) * (place.x() - from.x());
        return turn > 0 ? 1 : turn < 0 ? -1 : 0;
    }

    [[nodiscard]] bool Holds(QPoint place) const
    {
        return HandOf(place) == 0 && place.x() >= Left() && place.x() <= Right() &&
               place.y() >= std::min(from.y(), to.y()) && place.y() <= std::max(from.y(), to.y());
    }
};

/** Whether a side and the one behind it share more than their corner. */
bool TurnsBack(const ContourSide& side, const ContourSide& next)
{
    return side.Holds(next.to) || next.Holds(side.from);
}

/** Whether two sides of a line with `count` corners share more than the line says. */
bool DoSidesMeet(const ContourSide& one, const ContourSide& other, std::size_t count)
{
    if ((one.number + 1) % count == other.number) {
        return TurnsBack(one, other);
    }
    if ((other.number + 1) % count == one.number) {
        return TurnsBack(other, one);
    }
    const bool doCross = one.HandOf(other.from) * one.HandOf(other.to) < 0 &&
                         other.HandOf(one.from) * other.HandOf(one.to) < 0;
    return doCross || one.Holds(other.from) || one.Holds(other.to) || other.Holds(one.from) ||
           other.Holds(one.to);
}

} // namespace

Contour ContourOf(const PixelMask& mask, QPoint first, PixelMark mark, const StopSign& stop)
{
    Contour contour{ first };
    std::size_t way = 0;
    QPoint corner = first + edgeWays[way].step;
    while (corner != first && !stop.IsUpFor(1)) {
        const EdgeWay& ahead = edgeWays[way];
        std::size_t turn = 0;
        if (mask.Has(corner + ahead.leftAhead, mark)) {
            turn = turnLeft;
        } else if (!mask.Has(corner + ahead.rightAhead, mark)) {
            turn = turnRight;
        }
        if (turn != 0) {
            contour.push_back(corner);
            way = (way + turn) % edgeWays.size();
        }
        corner += edgeWays[way].step;
    }
    return contour;
}

qint64 TwiceAreaOf(const Contour& contour)
{
    qint64 area = 0;
    QPoint from = contour.empty() ? QPoint() : contour.back();
    for (const QPoint to : contour) {
        area += qint64(from.x()) * to.y() - qint64(to.x()) * from.y();
        from = to;
    }
    return area;
}

bool KeepsOffItself(const Contour& contour)
{
    constexpr std::size_t fewest = 3;
    std::vector<ContourSide> sides;
    for (std::size_t i = 0; i < contour.size(); ++i) {
        sides.push_back({ i, contour[i], contour[(i + 1) % contour.size()] });
    }
    // Sides that have no column in common need not be compared.
    std::ranges::sort(sides, {}, &ContourSide::Left);
    for (auto one = sides.begin(); one != sides.end(); ++one) {
        for (auto other = one + 1; other != sides.end() && other->Left() <= one->Right(); ++other) {
            if (DoSidesMeet(*one, *other, sides.size())) {
                return false;
            }
        }
    }
    return contour.size() >= fewest;
}
