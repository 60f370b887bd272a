#pragma once

#include "imagemap/model/MapArea.h"

#include <QMargins>
#include <QRect>

/** How a rectangle is divided into areas; gaps and margins are in picture pixels. */
struct GridPlan
{
    int Rows = 3;
    int Columns = 3;
    int GapX = 0; ///< between neighbours in a row
    int GapY = 0; ///< between neighbours in a column
    QMargins Margins;

    /** More rows or columns than these are typed by mistake. */
    static constexpr int mostLines = 100;
    /** No gap or margin is larger than a coordinate of 16 bits. */
    static constexpr int widestGap = 32'767;

    bool operator==(const GridPlan&) const = default;
};

/** The whole of a picture as the edges of rectangles have it: up to its width and height. */
[[nodiscard]] inline QRect RoomOf(QSize picture)
{
    return { QPoint(0, 0), QPoint(picture.width(), picture.height()) };
}

/**
 * The cells of a grid, row by row, as rectangles without links. `room` goes from the left and top to the
 * right and bottom coordinate, both included. Without gaps neighbours share their border. What does not
 * divide evenly is spread over the cells, none of which differs from another by more than a pixel. Returns no
 * cells where one of them would have no inside.
 */
[[nodiscard]] MapAreas GridAreas(const GridPlan& plan, const QRect& room);
