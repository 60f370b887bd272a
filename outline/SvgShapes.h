#pragma once

#include "outline/AreaCandidate.h"

#include <QByteArray>
#include <QSize>

/** The shapes of a drawing as areas, or what is to be told about it. */
struct SvgShapesReading
{
    AreaCandidates Shapes; ///< in the order in which they are painted
    QString Problem;       ///< a sentence for the user; empty when all is well

    /** So many at most: there is no map with as many areas. */
    static constexpr qsizetype mostShapes = 20'000;
};

/**
 * The shapes of the SVG drawing `bytes`, fitted to a picture of that size, which shows the whole drawing:
 * what is hidden, only declared, or outside of the picture is left out. Links, texts and targets are taken
 * along; a link that would run a script is not. Lines without an inside, and without a link a
 * ground that covers the picture and what lies where another shape does, are there but not ticked.
 */
[[nodiscard]] SvgShapesReading ReadSvgShapes(const QByteArray& bytes, QSize picture);
