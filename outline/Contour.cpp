#include "outline/Contour.h"

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

} // namespace

Contour ContourOf(const PixelMask& mask, QPoint first, PixelMark mark)
{
    Contour contour{ first };
    std::size_t way = 0;
    QPoint corner = first + edgeWays[way].step;
    while (corner != first) {
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
