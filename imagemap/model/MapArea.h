#pragma once

#include <QList>
#include <QString>
#include <array>

/** The shape of an area. */
enum class AreaShape {
    Rectangle,
    Circle,
    Polygon,
};

/** One linked area of a map. */
struct MapArea
{
    AreaShape Shape = AreaShape::Rectangle;
    /**
     * Picture pixels: left, top, right and bottom of a rectangle; centre and radius of a circle; the corners
     * of a polygon, a pair each.
     */
    QList<int> Coordinates;
    QString Link;      ///< the address the area leads to
    QString Target;    ///< the frame it opens in, or empty
    QString Message;   ///< what the mode in force shows for the area
    QString Text = {}; ///< what screen readers say in its place

    bool operator==(const MapArea&) const = default;
};

/** The areas of a map in their order in the page. */
using MapAreas = QList<MapArea>;

/** What a shape is called on screen. */
struct AreaShapeName
{
    AreaShape shape;
    QStringView name;
};

inline constexpr std::array<AreaShapeName, 3> areaShapeNames = { {
    { AreaShape::Rectangle, u"Rectangle" },
    { AreaShape::Circle, u"Circle" },
    { AreaShape::Polygon, u"Polygon" },
} };

static_assert(
    [] {
        for (std::size_t i = 0; i < areaShapeNames.size(); ++i) {
            if (areaShapeNames[i].shape != static_cast<AreaShape>(i)) {
                return false;
            }
        }
        return true;
    }(),
    "the rows stand in the order of the shapes");

/** What the area list and the link dialog call the area `index` of a map, counted from 0. */
[[nodiscard]] QString TitleOf(const MapArea& area, qsizetype index);

/** The area's coordinates as they are shown and written, joined by ", ". */
[[nodiscard]] QString CoordinatesText(const MapArea& area);
