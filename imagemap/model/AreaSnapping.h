#pragma once

#include "imagemap/model/MapArea.h"

#include <QLine>
#include <QPoint>
#include <QRect>
#include <QSize>

/** Where what is moved likes to stop: edges and centres of the other areas and of the picture, in pixels. */
struct SnapLines
{
    QList<int> across; ///< distances from the left
    QList<int> down;   ///< distances from the top
};

[[nodiscard]] SnapLines SnapLinesOf(const MapAreas& others, QSize picture);

/** The step that brings an edge or the centre of `bounds` onto the nearest line that is no further away than
 * `reach`, in each direction; 0 where there is none. */
[[nodiscard]] QPoint StepToLines(const SnapLines& lines, const QRect& bounds, int reach);

/** Those of `lines` that edges or centre of `bounds` are on, as long as the picture. */
[[nodiscard]] QList<QLine> LinesTouched(const SnapLines& lines, const QRect& bounds, QSize picture);
