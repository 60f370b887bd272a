#pragma once

#include "imagemap/model/MapArea.h"

#include <QStringView>
#include <array>

// How areas stand to each other: their order, in which the first is topmost, and how they are lined up.

/** Numbers of areas in a map, counted from 0, in rising order. */
using AreaNumbers = QList<qsizetype>;

/** The areas in another order, and where those that were to be moved are now. */
struct ArrangedAreas
{
    MapAreas areas;
    AreaNumbers moved;

    bool operator==(const ArrangedAreas&) const = default;
};

enum class OrderChange { Up, Down, InFront, Behind };

[[nodiscard]] ArrangedAreas Reordered(const MapAreas& areas, const AreaNumbers& which, OrderChange change);

/** What areas are lined up by; the first of those selected stays, the others follow it. */
enum class Alignment { Left, Centre, Right, Top, Middle, Bottom, SameWidth, SameHeight, SameSize };
inline constexpr int alignmentCount = 9;

/**
 * The areas with those of `which` lined up by the first of them. Circles keep round: they take the smaller of
 * two sizes.
 */
[[nodiscard]] MapAreas Aligned(MapAreas areas, const AreaNumbers& which, Alignment alignment);

[[nodiscard]] MapAreas Chosen(const MapAreas& areas, const AreaNumbers& which);
[[nodiscard]] MapAreas Without(const MapAreas& areas, const AreaNumbers& which);
