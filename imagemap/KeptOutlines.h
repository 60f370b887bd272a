#pragma once

#include "imagemap/drawing/SelectionView.h"

#include <QColor>
#include <QImage>
#include <QTransform>

class QPainter;

/**
 * The outlines of many selected areas, kept as they were painted, in the pixels of the screen: when all of
 * them move alike, a step shifts the picture of them instead of painting every line anew.
 */
class KeptOutlines
{
public:
    /** For when few areas are selected, or none. */
    void Forget() { *this = {}; }

    /** Paints the areas of `selection`, at least what is `visible` of them. While they follow the mouse they
     * may be half a pixel of the screen from where they belong. */
    void Paint(
        QPainter& painter, const SelectionPicture& selection, double zoom, const QColor& color,
        const QRect& visible);

private:
    [[nodiscard]] std::optional<QPointF> ShiftTo(
        const SelectionPicture& selection, double zoom, const QColor& color,
        const QTransform& toScreen) const;
    void
    Keep(const SelectionPicture& selection, double zoom, const QColor& color, const QTransform& toScreen);

    MapAreas areas_;
    double zoom_ = 0;
    QColor color_;
    QTransform toScreen_; ///< from the widget to the screen, when they were painted
    QImage picture_;
    QPoint place_; ///< of the picture on the screen
};
