#pragma once

#include "outline/Contour.h"
#include "outline/RegionFill.h"

#include <functional>

/** One connected part of what is marked in a mask. */
struct RegionPiece
{
    Region region;
    Contour contour;            ///< around it and what it encloses
    std::vector<Contour> holes; ///< around what it encloses, each clockwise as seen from inside the hole
};

/** Whether the holes of pieces are asked for. */
enum class PieceHoles { Ignored, Found };

/**
 * The connected parts of those pixels of `box` that `belongs` accepts by their marks, the one with the
 * topmost row first. For this time the mask has other marks too, which `belongs` does not look at. Time is
 * linear in the box, and for holes in the boxes of the pieces.
 */
[[nodiscard]] std::vector<RegionPiece> PiecesOf(
    PixelMask& mask, const QRect& box, const std::function<bool(quint8)>& belongs, PieceHoles holes,
    const StopSign& stop = {});
