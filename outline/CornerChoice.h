#pragma once

#include "outline/Contour.h"

/**
 * Which corners of a contour make a good polygon within `precision` of it: few sides, and these close to the
 * corners that they pass by; `costOfSide` says how many squares of distances in pixels one side less is
 * worth. Whether sides cross each other is not looked at, and a side that passes by a place where the contour
 * turns back may be further off.
 */
[[nodiscard]] std::vector<bool>
BestCorners(const Contour& contour, double precision, double costOfSide, const StopSign& stop = {});
