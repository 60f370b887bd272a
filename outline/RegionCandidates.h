#pragma once

#include "outline/AreaCandidate.h"
#include "outline/PictureRegions.h"

/**
 * The area that could be made of a region, the `number`th that was found, with a shape that keeps within
 * `precision` pixels of it. What seems to be nothing to click at is not ticked, and the note says why.
 */
[[nodiscard]] AreaCandidate
CandidateOf(const PictureRegion& region, qsizetype number, double precision, const StopSign& stop = {});
