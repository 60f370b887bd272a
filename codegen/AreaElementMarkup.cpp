// Maps as a picture with a `map`: in a fixed size, because coordinates do not scale with it.

#include "codegen/TodayPieces.h"

#include <QStringBuilder>
#include <algorithm>
#include <array>
#include <cmath>

namespace {

/** How much larger the picture is shown than it is. */
struct Scale
{
    double x = 1;
    double y = 1;
};

Scale ScaleOf(const TodayMap& map)
{
    return map.Own.isEmpty() ? Scale()
                             : Scale{ double(map.Shown.width()) / map.Own.width(),
                                      double(map.Shown.height()) / map.Own.height() };
}

int Scaled(int number, double factor)
{
    constexpr double half = 0.5;
    return int(std::floor(number * factor + half));
}

QString Joined(const QList<int>& numbers)
{
    QStringList texts;
    for (const int number : numbers) {
        texts << QString::number(number);
    }
    return texts.join(u',');
}

/** Left above right and top above bottom, and at least a pixel of each. */
QList<int> RectangleCoords(const QList<int>& numbers, Scale scale, QSize)
{
    if (numbers.size() < 4) {
        return {};
    }
    const auto [left, right] = std::minmax({ Scaled(numbers[0], scale.x), Scaled(numbers[2], scale.x) });
    const auto [top, bottom] = std::minmax({ Scaled(numbers[1], scale.y), Scaled(numbers[3], scale.y) });
    return { left, top, std::max(right, left + 1), std::max(bottom, top + 1) };
}

QList<int> CircleCoords(const QList<int>& numbers, Scale scale, QSize)
{
    if (numbers.size() < 3) {
        return {};
    }
    // A circle stays one in a picture that is shown distorted.
    const int radius = Scaled(std::abs(numbers[2]), std::min(scale.x, scale.y));
    return { Scaled(numbers[0], scale.x), Scaled(numbers[1], scale.y), std::max(radius, 1) };
}

/** At least three corners, the last one as often as it takes. */
QList<int> PolygonCoords(const QList<int>& numbers, Scale scale, QSize)
{
    constexpr qsizetype leastNumbers = 6;
    QList<int> coords;
    for (qsizetype i = 0; i + 1 < numbers.size(); i += 2) {
        coords << Scaled(numbers[i], scale.x) << Scaled(numbers[i + 1], scale.y);
    }
    while (!coords.isEmpty() && coords.size() < leastNumbers) {
        coords << coords[coords.size() - 2] << coords[coords.size() - 1];
    }
    return coords;
}

/** The corners of the picture, since a shape that needs none is no shape in older browsers. */
QList<int> DefaultCoords(const QList<int>&, Scale, QSize shown)
{
    return { 0, 0, shown.width(), shown.height() };
}

struct AreaWord
{
    AreaShape shape;
    QStringView word;
    QList<int> (*coords)(const QList<int>& numbers, Scale scale, QSize shown);
};

constexpr std::array<AreaWord, areaShapeNames.size()> areaWords = { {
    { AreaShape::Rectangle, u"rect", RectangleCoords },
    { AreaShape::Circle, u"circle", CircleCoords },
    { AreaShape::Polygon, u"poly", PolygonCoords },
    { AreaShape::Default, u"rect", DefaultCoords },
} };
static_assert(std::equal(
    areaWords.begin(), areaWords.end(), areaShapeNames.begin(),
    [](const AreaWord& row, const AreaShapeName& name) { return row.shape == name.shape; }));

QString AreaTag(const TodayMap& map, const TodayArea& area)
{
    const AreaWord& row = areaWords[static_cast<std::size_t>(area.Shape)];
    const QList<int> coords = row.coords(area.Coordinates, ScaleOf(map), map.Shown);
    if (coords.isEmpty()) {
        return {};
    }
    // An area without an address covers those behind it, and may have no text.
    const QString alt = area.Address.isEmpty() ? QString() : Attribute(u"alt", area.Label, map.Charset);
    const QString tip = LinesOfMessage(area.Message).join(u'\n');
    return u"<area shape=\"" % row.word % u"\" coords=\"" % Joined(coords) % u'"' %
           LinkAttributes(area, map.Charset) % alt % Attribute(u"title", tip, map.Charset) % u">\n";
}

} // namespace

QString GenerateTodayMapElement(JSMode, const TodayMap& map)
{
    if (map.Areas.isEmpty()) {
        return PictureAlone(map);
    }
    const QString more = u" usemap=\"#" % map.Name % u'"' % Attribute(u"class", map.AlignClass, map.Charset);
    QString text = u"<p>" % PictureTag(map, more) % u"</p>\n<map name=\"" % map.Name % u"\">\n";
    // What is left to the whole picture comes behind all others, which it would cover.
    for (const bool isLast : { false, true }) {
        for (const TodayArea& area : map.Areas) {
            text += (area.Shape == AreaShape::Default) == isLast ? AreaTag(map, area) : QString();
        }
    }
    return text % u"</map>\n";
}
