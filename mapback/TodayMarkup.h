#pragma once

#include "codegen/TodayMap.h"

#include <optional>
#include <vector>

/** An area as it stands among the shapes. */
struct PaintedArea
{
    TodayArea area;
    int number = 0; ///< of its message, which is that of the list, from 1; nought if it has none
};

/** Everything that is read of a map before it is put together. */
struct TodayPieces
{
    TodayMap map;
    std::vector<PaintedArea> painted;
    bool isElement = false; ///< of `map` and `area`
    bool isFigure = false;
    bool hasTitles = false;
    bool arePictures = false;
    bool areTips = false;
    bool hasMessages = false;
};

/**
 * Reads the markup of a map for today's browsers that begins at `start`, as far as it is what the generators
 * write; whether it is all of it, is not looked after. Nothing if it does not begin or end like one.
 */
[[nodiscard]] std::optional<TodayPieces> ReadTodayMarkup(QStringView page, qsizetype start);
