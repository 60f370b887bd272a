#pragma once

#include "imagemap/drawing/SelectionView.h"

#include <QRect>

class KeptOutlines;
class QColor;
class QPainter;
class QPalette;

/** What of the screen the selection can touch; `zoom` is how many pixels a pixel of the picture takes. */
[[nodiscard]] QRect BoundsOf(const SelectionPicture& selection, double zoom);

/** Paints the selected areas whole, with their handles, the frame and the lines, inside of `visible`; `kept`
 * is what was kept of the last time. */
void PaintSelection(
    QPainter& painter, const SelectionPicture& selection, double zoom, const QPalette& palette,
    const QRect& visible, KeptOutlines& kept);

/** Paints the outlines of selected areas, as few or many as there are, where they lie in `visible`. */
void PaintOutlines(
    QPainter& painter, const MapAreas& areas, double zoom, const QColor& color, const QRect& visible);

/** Paints every area closed and filled, with its number, where it lies in `exposed`. */
void PaintAreas(
    QPainter& painter, const MapAreas& areas, double zoom, const QPalette& palette, const QRect& exposed);

/** Paints the cross by which figures are drawn with the keys. */
void PaintCross(QPainter& painter, QPoint place, double zoom);
[[nodiscard]] QRect CrossBounds(QPoint place, double zoom);
