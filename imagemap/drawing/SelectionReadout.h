#pragma once

#include "imagemap/drawing/DrawingView.h"
#include "imagemap/model/MapArea.h"

/** Position and size of `areas` in one line, of a circle its centre and radius. */
[[nodiscard]] QString NoteOf(const MapAreas& areas);

/** Shows the box around `areas`, or a circle's radius, beside the picture; leaves the labels for none. */
void ShowPlaceOf(DrawingStatus& status, const MapAreas& areas);
