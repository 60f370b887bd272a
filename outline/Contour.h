#pragma once

#include "outline/PixelMask.h"
#include "outline/StopSign.h"

#include <QPoint>
#include <vector>

/**
 * A closed line around pixels, along their edges: the corner (x, y) is where the pixel of that place begins,
 * so a single pixel has the corners (x, y) to (x + 1, y + 1). The first corner follows the last.
 */
using Contour = std::vector<QPoint>;

/**
 * The line around the pixels with `mark` that hang together with `first`, the leftmost of their topmost row:
 * clockwise, with a corner wherever it turns. What they enclose is inside of it, also where only the corners
 * of two pixels close the ring; so it never touches itself. No other pixel that has the mark touches theirs.
 */
[[nodiscard]] Contour
ContourOf(const PixelMask& mask, QPoint first, PixelMark mark, const StopSign& stop = {});

/** What the line encloses, in pixels; twice as much, since corners are whole numbers but halves come out. */
[[nodiscard]] qint64 TwiceAreaOf(const Contour& contour);

/** Whether the line neither crosses nor touches itself. */
[[nodiscard]] bool KeepsOffItself(const Contour& contour);
