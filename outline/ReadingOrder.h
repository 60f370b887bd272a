#pragma once

#include "outline/PictureRegions.h"

/**
 * The regions line by line: the topmost one begins a line, of which are all whose middle is no lower than its
 * bottom, from left to right. What lies inside of another has such an order of its own and stands in front of
 * that other one, since the first area of a map gets the click.
 */
[[nodiscard]] PictureRegions InReadingOrder(PictureRegions regions, const StopSign& stop = {});
