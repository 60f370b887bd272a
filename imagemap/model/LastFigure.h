#pragma once

#include "imagemap/model/MapArea.h"

#include <optional>

struct FigureStore;
struct LinkEntry;

/** The shape of the figure that the tool in force has drawn; nothing while that tool draws none. */
[[nodiscard]] std::optional<AreaShape> ShapeOfLastFigure(const FigureStore& figures);

/** The figure drawn last as an area, with the link that the ledger keeps for it; nothing where there is none.
 */
[[nodiscard]] std::optional<MapArea> AreaOfLastFigure(const FigureStore& figures);

/** Writes what was entered, and the `message` made of it, to the figure drawn last, a polygon's end mark too.
 */
void LinkLastFigure(FigureStore& figures, const LinkEntry& entry, const QString& message);
