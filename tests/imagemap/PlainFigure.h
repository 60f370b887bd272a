#pragma once

#include <QPoint>
#include <QSize>
#include <algorithm>
#include <cstdlib>

/** The tools in the order of their menu entries, the neutral one first. */
enum class PlainTool { Cursor, Rectangle, Circle, Line };

/** The picture that the plain map is drawn on. */
inline constexpr QSize plainPicture = { 300, 200 };

/** A figure, or a side of a polygon, from where the mouse began it to where it was last. */
struct PlainFigure
{
    PlainTool kind = PlainTool::Rectangle;
    QPoint from;
    QPoint to;

    /** Where it ends on the picture. */
    [[nodiscard]] QPoint End() const
    {
        return { std::clamp(to.x(), 0, plainPicture.width()), std::clamp(to.y(), 0, plainPicture.height()) };
    }

    [[nodiscard]] int Radius() const
    {
        const QPoint end = End();
        return end.y() < end.x() ? std::abs(end.x() - from.x()) : std::abs(end.y() - from.y());
    }
};
