#pragma once

#include "imagemap/model/FigureStore.h"
#include "imagemap/model/MapArea.h"

/**
 * The ledger that drawing `areas` one after the other would leave: a rectangle or circle is one figure, a
 * polygon of n corners n-2 sides, the last of them its end mark. It is as long as it takes. What does not fit
 * its 16 bits, or has too few corners for a side, has no entry.
 */
[[nodiscard]] FigureStore LedgerOf(const MapAreas& areas);
