#pragma once

#include "imagemap/model/MapArea.h"

#include <QList>
#include <QRgb>
#include <optional>

/** An area that could be made, for the user to tick. */
struct AreaCandidate
{
    MapArea Area;
    QString Name;                    ///< what it is known by
    QString Note = {};               ///< why it is not ticked at first, or what else is worth knowing
    bool IsTicked = true;            ///< whether it is to be made
    qint64 Pixels = 0;               ///< how many pixels of a picture it stands for
    std::optional<QRgb> Colour = {}; ///< and which colour they have

    bool operator==(const AreaCandidate&) const = default;
};

using AreaCandidates = QList<AreaCandidate>;

/** The areas of those that are ticked, in their order. */
[[nodiscard]] inline MapAreas TickedAreas(const AreaCandidates& candidates)
{
    MapAreas areas;
    for (const AreaCandidate& candidate : candidates) {
        if (candidate.IsTicked) {
            areas << candidate.Area;
        }
    }
    return areas;
}
