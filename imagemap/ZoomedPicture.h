#pragma once

#include "imagemap/drawing/DrawingView.h"

#include <QImage>
#include <QPointF>
#include <QRect>
#include <array>

// The picture and what is drawn on it, so many times as large on the screen as in the picture.

inline constexpr double leastZoom = 0.05;
inline constexpr double greatestZoom = 32;

/** The magnifications that are offered, in per cent. */
inline constexpr std::array<int, 19> zoomSteps = { 5,   10,  25,  33,  50,  67,   75,   100,  125, 150,
                                                   200, 300, 400, 600, 800, 1200, 1600, 2400, 3200 };

/** The step before or behind `zoom`; `zoom` itself at the end of them. */
[[nodiscard]] double NextZoom(double zoom, int direction);

/** From here on lines part the pixels. */
inline constexpr double gridZoom = 8;

/** The size on the screen of a picture of `size`; one pixel at least, none for none. */
[[nodiscard]] QSize Zoomed(QSize size, double zoom);

/** The middle of a pixel of the picture on the screen. */
[[nodiscard]] inline QPointF Zoomed(QPoint pixel, double zoom)
{
    return { (pixel.x() + 1 / 2.0) * zoom, (pixel.y() + 1 / 2.0) * zoom };
}

/** The figure whose outline runs through the middles of the pixels that those of `figure` are. */
[[nodiscard]] PaintedFigure Zoomed(const PaintedFigure& figure, double zoom);

/**
 * What `part` of the screen shows of `picture`: what is enlarged pixel by pixel, what is made smaller mixed
 * of four places each. Takes memory for `part` alone.
 */
[[nodiscard]] QImage ZoomedPart(const QImage& picture, double zoom, const QRect& part);
