#pragma once

#include "imagemap/model/MapArea.h"

#include <functional>

/**
 * Which of a map's areas in its page each of the editor's was, by index; -1 for those that are new. They are
 * known by their source; those that have none by what `saysTheSame` of the two, else by standing behind the
 * same area.
 */
[[nodiscard]] QList<qsizetype> MatchedAreas(
    const MapAreas& inPage, const MapAreas& inEditor,
    const std::function<bool(const MapArea& inPage, const MapArea& inEditor)>& saysTheSame);
