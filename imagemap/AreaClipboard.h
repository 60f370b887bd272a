#pragma once

#include "imagemap/model/MapArea.h"

/** Puts `areas` on the clipboard, for this program and, their coordinates as text, for others. */
void CopyAreas(const MapAreas& areas);

/** The areas on the clipboard; none if something else is there, or what is there makes no areas. */
[[nodiscard]] MapAreas AreasOnClipboard();

[[nodiscard]] bool HasAreasOnClipboard();
