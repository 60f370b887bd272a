#pragma once

#include "outline/Contour.h"

/** How far a contour may be left, in pixels, unless something else is asked for. */
inline constexpr double usualPrecision = 1.0;

/** The most corners that an area is given. */
inline constexpr int mostCorners = 500;

/** A contour with fewer corners. */
struct ThinContour
{
    Contour corners;      ///< some of those that it had, in their order
    double deviation = 0; ///< how far it leaves the contour at most, in pixels
};

/**
 * The contour with as few corners as keep it within `precision` of what it was, or, where these are still
 * more than `most`, as keep it as near as so many can. Like the contour, it never crosses nor touches itself.
 */
[[nodiscard]] ThinContour
Thinned(const Contour& contour, double precision, int most = mostCorners, const StopSign& stop = {});
