#pragma once

#include "imagemap/drawing/DrawingView.h"

#include <QImage>
#include <QRect>
#include <QRgb>

class QColor;
class QPainter;

/** The pixels that the outline of `figure` can touch. */
[[nodiscard]] QRect BoundsOf(const PaintedFigure& figure);

/** Paints the outline of `figure`, one pixel wide. */
void PaintOutline(QPainter& painter, const PaintedFigure& figure, const QColor& color);

/**
 * Paints what lies next to the outline of `figure` on its outside, one pixel wide; on both sides of a line.
 * Some of it can be on the outline itself.
 */
void PaintEdge(QPainter& painter, const PaintedFigure& figure, const QColor& color);

/** The colour of the figure that follows the mouse over `ground`: the inverted one where that can be seen. */
[[nodiscard]] QRgb RubberColor(QRgb ground);

/** Whether an outline in the colour `outline` needs a light edge to be seen on `ground`. */
[[nodiscard]] bool NeedsLightEdge(QRgb ground, QRgb outline);

inline constexpr QRgb lightEdge = 0xFFFFFFFF;

/** Some pixels out of a picture: one bit for each, which painting in maskColor sets. */
[[nodiscard]] QImage EmptyMask(QSize size);
inline constexpr Qt::GlobalColor maskColor = Qt::white;

/** Calls `visit(x, y)` for every pixel of `mask` that is set and lies in `part`, which lies in the mask. */
template<class Visit> void ForEachPixel(const QImage& mask, const QRect& part, Visit visit)
{
    constexpr int bits = 8;
    for (int y = part.top(); y <= part.bottom(); ++y) {
        const uchar* const row = mask.constScanLine(y);
        int x = part.left();
        while (x <= part.right()) {
            const int byte = row[x / bits];
            if (byte == 0) {
                x += bits - x % bits;
                continue;
            }
            if ((byte >> x % bits & 1) != 0) {
                visit(x, y);
            }
            ++x;
        }
    }
}

/** Paints `figures` in `color`, with the light edges that they need, on `part`, which shows the picture from
 * `place` on. */
void PaintFigures(QImage& part, QPoint place, const PaintedFigures& figures, const QColor& color);

/** Paints the figure that follows the mouse on `part`, which shows the picture from `place` on. */
void PaintRubber(QImage& part, QPoint place, const PaintedFigure& figure);
