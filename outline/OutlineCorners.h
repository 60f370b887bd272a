#pragma once

#include <QList>
#include <QPoint>
#include <QPolygonF>

/** Curves and corners are met to so many pixels. */
inline constexpr double outlinePrecision = 0.25;

/** The places of an outline in whole pixels, each at least so many, across and down together, from the one
 * before. */
[[nodiscard]] QList<QPoint> WholePixels(const QPolygonF& outline, int apart = 1);

/**
 * The corners, in whole pixels, that an area around the outline needs: as few as keep within the precision,
 * which gives way where they would be more than an area is given. Their line neither crosses nor touches
 * itself unless the outline does, or is so narrow that whole pixels cannot tell its sides apart.
 */
[[nodiscard]] QList<QPoint> CornersAround(const QPolygonF& outline);
