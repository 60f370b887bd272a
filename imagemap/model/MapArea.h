#pragma once

#include <QList>
#include <QString>
#include <array>

/** The shape of an area. */
enum class AreaShape {
    Rectangle,
    Circle,
    Polygon,
    Default, ///< the whole picture, as far as no other area has it; it has no coordinates
};

/** An attribute of an area's tag in a page that its map was read from. */
struct AreaAttribute
{
    QString Name;        ///< in small letters
    QString Value;       ///< as browsers see it
    bool IsCode = false; ///< code for a template or a server stands in it, so it is left alone

    bool operator==(const AreaAttribute&) const = default;
};

/** One linked area of a map. */
struct MapArea
{
    AreaShape Shape = AreaShape::Rectangle;
    /**
     * Picture pixels: left, top, right and bottom of a rectangle; centre and radius of a circle; the corners
     * of a polygon, a pair each. Empty for an area that cannot be drawn.
     */
    QList<int> Coordinates;
    QString Link;      ///< the address the area leads to
    QString Target;    ///< the frame it opens in, or empty
    QString Message;   ///< what the mode in force shows for the area
    QString Text = {}; ///< what screen readers say in its place
    int Source = -1;   ///< which of the areas it was when its map was read from a page; -1 if it is newer
    /**
     * All attributes of its tag there, in their order. What the members above say counts more where it is
     * something else.
     */
    QList<AreaAttribute> Attributes = {};

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

inline constexpr std::array<AreaShapeName, 4> areaShapeNames = { {
    { AreaShape::Rectangle, u"Rectangle" },
    { AreaShape::Circle, u"Circle" },
    { AreaShape::Polygon, u"Polygon" },
    { AreaShape::Default, u"Default" },
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

/** The area's coordinates as they are shown and written, joined by ", ". Of one that cannot be drawn, they
 * are as its page has them. */
[[nodiscard]] QString CoordinatesText(const MapArea& area);
