#pragma once

#include "imagemap/model/FigureStore.h"
#include "imagemap/model/JSMode.h"
#include "imagemap/model/MapArea.h"

/** A whole map at one moment, while nothing is being drawn. What has not changed is shared between states. */
struct MapState
{
    FigureStore Figures; ///< left empty where it is what drawing the areas would leave
    bool IsLedgerOfAreas = false;
    MapAreas Areas;
    bool AreAreasEdited = false; ///< areas came otherwise than by drawing, or were changed
    JSMode Mode = JSDisabled;
    QString ModeDefault;
    QString MessageHeader;
    QString Picture; ///< path of the picture's file; empty without one

    bool operator==(const MapState&) const = default;
};

/** The ledger that belongs to `state`. */
[[nodiscard]] FigureStore LedgerOf(const MapState& state);

/** Whether a user could not tell the two apart: freed slots of the ledger and labels do not count. */
[[nodiscard]] bool LooksTheSame(const MapState& a, const MapState& b);
