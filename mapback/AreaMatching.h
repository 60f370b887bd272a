#pragma once

#include "imagemap/model/MapArea.h"

#include <functional>

/**
 * Which of a map's areas in its page each of the editor's was by its source, by index; -1 for those that do
 * not say it. Of an area and its copies, the one that is as it was is it, else the first.
 */
[[nodiscard]] QList<qsizetype> MatchedSources(const MapAreas& inPage, const MapAreas& inEditor);

/**
 * Which of a map's areas in its page each of the editor's was, by index; -1 for those that are new. They are
 * known by their source; those that have none by what `saysTheSame` of the two, else by standing behind the
 * same area.
 */
[[nodiscard]] QList<qsizetype> MatchedAreas(
    const MapAreas& inPage, const MapAreas& inEditor,
    const std::function<bool(const MapArea& inPage, const MapArea& inEditor)>& saysTheSame);
