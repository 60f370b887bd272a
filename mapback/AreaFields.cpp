#include "mapback/AreaFields.h"

#include "codegen/AreaTexts.h"
#include "html/HtmlNames.h"
#include "imagemap/model/AreaGeometry.h"
#include "mapreader/PageShapes.h"
#include "mapreader/PageTag.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr QStringView shapeAttribute = u"shape";
constexpr QStringView coordsAttribute = u"coords";
constexpr QStringView addressAttribute = u"href";
constexpr QStringView altAttribute = u"alt";

/** A member that is the value of an attribute. */
struct TextField
{
    QStringView attribute;
    QString MapArea::*member;
    bool goesWhenEmpty; ///< the attribute; else its value becomes empty
};

constexpr std::array<TextField, 4> textFields = { {
    { addressAttribute, &MapArea::Link, true },
    { u"target", &MapArea::Target, true },
    { altAttribute, &MapArea::Text, false },
    { u"title", &MapArea::Message, true },
} };

/** The shapes of a page in the order of PageShape. */
constexpr std::array<AreaShape, 4> shapesOfPage = { AreaShape::Rectangle, AreaShape::Circle,
                                                    AreaShape::Polygon, AreaShape::Default };
static_assert(std::size_t(PageShape::Default) + 1 == shapesOfPage.size());

/** The words of new areas in the order of AreaShape. */
constexpr std::array<QStringView, areaShapeNames.size()> wordsOfShapes = { u"rect", u"circle", u"poly",
                                                                           u"default" };

const AreaAttribute* Find(const QList<AreaAttribute>& attributes, QStringView name)
{
    const auto found = std::ranges::find(attributes, name, &AreaAttribute::Name);
    return found == attributes.end() ? nullptr : &*found;
}

QString ValueIn(const QList<AreaAttribute>& attributes, QStringView name)
{
    const AreaAttribute* const found = Find(attributes, name);
    return found == nullptr ? QString() : found->Value;
}

int Rounded(double number)
{
    constexpr double half = 0.5;
    return int(std::floor(number + half));
}

/** Which way a number of a shape counts. */
double FactorOf(AreaShape shape, qsizetype index, const PictureScale& scale)
{
    constexpr qsizetype radius = 2;
    if (shape == AreaShape::Circle && index == radius) {
        return std::min(scale.x, scale.y);
    }
    return index % 2 == 0 ? scale.x : scale.y;
}

/** How many of `count` numbers a shape takes. */
qsizetype NumbersTaken(PageShape shape, qsizetype count)
{
    return shape == PageShape::Polygon ? count / 2 * 2 : FewestCoordinates(shape);
}

struct Geometry
{
    AreaShape shape = AreaShape::Rectangle;
    QList<int> numbers; ///< of the picture; empty if it cannot be drawn

    bool operator==(const Geometry&) const = default;
};

Geometry GeometryOf(const QList<AreaAttribute>& attributes, const PictureScale& scale)
{
    const AreaAttribute* const word = Find(attributes, shapeAttribute);
    const PageShape pageShape = ShapeOfWord(word == nullptr ? QStringView() : word->Value).shape;
    Geometry geometry{ .shape = shapesOfPage[std::size_t(pageShape)], .numbers = {} };
    const AreaAttribute* const coords = Find(attributes, coordsAttribute);
    if (geometry.shape == AreaShape::Default || coords == nullptr || coords->IsCode) {
        return geometry;
    }
    const std::vector<PageCoordinate> numbers = CoordinatesIn(coords->Value);
    const auto count = qsizetype(numbers.size());
    if (count < FewestCoordinates(pageShape)) {
        return geometry;
    }
    constexpr double farthest = 32767;
    for (qsizetype i = 0; i < NumbersTaken(pageShape, count); ++i) {
        const double number = numbers[std::size_t(i)].number * FactorOf(geometry.shape, i, scale);
        if (!(std::abs(number) <= farthest)) {
            return { .shape = geometry.shape, .numbers = {} };
        }
        geometry.numbers << Rounded(number);
    }
    MapArea drawn;
    drawn.Shape = geometry.shape;
    drawn.Coordinates = geometry.numbers;
    // An emptied list keeps its room, which the sanitizers do not let Qt compare with none.
    return IsWhole(drawn) ? geometry : Geometry{ .shape = geometry.shape, .numbers = {} };
}

/** What stands between the numbers of a list: within a pair, and between pairs. */
std::array<QString, 2> SeparatorsOf(const QString& list)
{
    const std::vector<PageCoordinate> numbers = CoordinatesIn(list);
    std::array<QString, 2> separators = { QStringLiteral(","), QStringLiteral(",") };
    for (std::size_t i = 0; i < separators.size() && i + 1 < numbers.size(); ++i) {
        const qsizetype end = numbers[i].offset + numbers[i].length;
        separators[i] = list.mid(end, numbers[i + 1].offset - end);
        separators[1] = separators[i];
    }
    return separators;
}

QString NumberFor(int number, double factor)
{
    return QString::number(Rounded(number / factor));
}

/** The list of coordinates with those that have changed; where their count is the same, all else stays. */
QString ListFor(const MapArea& area, const Geometry& before, const QString& list, const PictureScale& scale)
{
    const std::vector<PageCoordinate> written = CoordinatesIn(list);
    const bool isAlike = before.shape == area.Shape && !before.numbers.isEmpty() &&
                         before.numbers.size() == area.Coordinates.size();
    QString text;
    if (!isAlike) {
        const std::array<QString, 2> separators = SeparatorsOf(list);
        for (qsizetype i = 0; i < area.Coordinates.size(); ++i) {
            text += i == 0 ? QString() : separators[std::size_t((i + 1) % 2)];
            text += NumberFor(area.Coordinates[i], FactorOf(area.Shape, i, scale));
        }
        return text;
    }
    qsizetype at = 0;
    for (qsizetype i = 0; i < area.Coordinates.size(); ++i) {
        const PageCoordinate& place = written[std::size_t(i)];
        if (area.Coordinates[i] != before.numbers[i]) {
            text += list.mid(at, place.offset - at);
            text += NumberFor(area.Coordinates[i], FactorOf(area.Shape, i, scale));
            at = place.offset + place.length;
        }
    }
    return text + list.mid(at);
}

/** Sets an attribute where it is, or behind the others. */
void Put(QList<AreaAttribute>& attributes, QStringView name, const QString& value)
{
    const auto found = std::ranges::find(attributes, name, &AreaAttribute::Name);
    if (found == attributes.end()) {
        attributes << AreaAttribute{ .Name = name.toString(), .Value = value };
    } else if (!found->IsCode) {
        found->Value = value;
    }
}

void Remove(QList<AreaAttribute>& attributes, QStringView name)
{
    attributes.removeIf([name](const AreaAttribute& one) { return one.Name == name && !one.IsCode; });
}

void PutGeometry(QList<AreaAttribute>& attributes, const MapArea& area, const PictureScale& scale)
{
    const Geometry before = GeometryOf(attributes, scale);
    if (before == Geometry{ area.Shape, area.Coordinates }) {
        return;
    }
    if (before.shape != area.Shape) {
        Put(attributes, shapeAttribute, wordsOfShapes[std::size_t(area.Shape)].toString());
    }
    if (area.Shape == AreaShape::Default) {
        Remove(attributes, coordsAttribute);
    } else if (!area.Coordinates.isEmpty()) {
        Put(attributes, coordsAttribute, ListFor(area, before, ValueIn(attributes, coordsAttribute), scale));
    }
}

/** The attributes of an area that stands in no page yet. */
QList<AreaAttribute> AttributesOfNew(const MapArea& area, JSMode mode, const PictureScale& scale)
{
    QList<AreaAttribute> attributes;
    Put(attributes, shapeAttribute, wordsOfShapes[std::size_t(area.Shape)].toString());
    if (!area.Coordinates.isEmpty()) {
        Put(attributes, coordsAttribute, ListFor(area, {}, {}, scale));
    }
    for (const TextField& field : textFields) {
        const bool isAlt = field.attribute == altAttribute;
        const QString value = isAlt && !area.Link.isEmpty() ? LabelOf(area, mode) : area.*field.member;
        if (!value.isEmpty()) {
            Put(attributes, field.attribute, value);
        }
    }
    return attributes;
}

bool IsSoundName(QStringView name)
{
    const auto isOdd = [](QChar one) {
        return IsHtmlSpace(one.unicode()) || one.isNull() || QStringView(u"\"'<>/=").contains(one);
    };
    return !name.isEmpty() && std::ranges::none_of(name, isOdd);
}

} // namespace

void SetFields(MapArea& area, const PictureScale& scale)
{
    const Geometry geometry = GeometryOf(area.Attributes, scale);
    area.Shape = geometry.shape;
    area.Coordinates = geometry.numbers;
    for (const TextField& field : textFields) {
        area.*field.member = ValueIn(area.Attributes, field.attribute);
    }
}

QList<AreaAttribute> AttributesFor(const MapArea& area, JSMode mode, const PictureScale& scale)
{
    if (area.Attributes.isEmpty() && area.Source < 0) {
        return AttributesOfNew(area, mode, scale);
    }
    QList<AreaAttribute> attributes = area.Attributes;
    PutGeometry(attributes, area, scale);
    for (const TextField& field : textFields) {
        const QString& value = area.*field.member;
        if (value == ValueIn(attributes, field.attribute)) {
            continue;
        }
        if (value.isEmpty() && field.goesWhenEmpty) {
            Remove(attributes, field.attribute);
        } else {
            Put(attributes, field.attribute, value);
        }
    }
    return attributes;
}

bool IsAgainstCode(const MapArea& area, const PictureScale& scale)
{
    const auto isCode = [&area](QStringView name) {
        const AreaAttribute* const attribute = Find(area.Attributes, name);
        return attribute != nullptr && attribute->IsCode;
    };
    const bool isTextChanged = std::ranges::any_of(textFields, [&](const TextField& field) {
        return isCode(field.attribute) && area.*field.member != ValueIn(area.Attributes, field.attribute);
    });
    const bool isGeometryChanged =
        GeometryOf(area.Attributes, scale) != Geometry{ area.Shape, area.Coordinates };
    return isTextChanged || (isGeometryChanged && (isCode(shapeAttribute) || isCode(coordsAttribute)));
}

bool SetAttribute(
    MapArea& area, const QString& name, const QString& value, JSMode mode, const PictureScale& scale)
{
    const QString known = NameOf(name);
    QList<AreaAttribute> attributes = AttributesFor(area, mode, scale);
    const AreaAttribute* const old = Find(attributes, known);
    const bool isCode = (old != nullptr && old->IsCode) || TemplateCodeIn(value) != TemplateCode::None;
    if (!IsSoundName(known) || isCode || IsAgainstCode(area, scale)) {
        return false;
    }
    if (value.isNull()) {
        Remove(attributes, known);
    } else {
        Put(attributes, known, value);
    }
    area.Attributes = attributes;
    SetFields(area, scale);
    return true;
}
