#include "mapreader/AttributeWishes.h"

#include "mapreader/PageShapes.h"

#include "html/HtmlNames.h"

#include <algorithm>

namespace {

constexpr QStringView shapeName = u"shape";
constexpr QStringView coordsName = u"coords";

std::vector<double> NumbersOf(const QString& list)
{
    std::vector<double> numbers;
    for (const PageCoordinate& coordinate : CoordinatesIn(list)) {
        numbers.push_back(coordinate.number);
    }
    return numbers;
}

/** Whether an attribute of an area says the same in both values, though they may be written in two ways. */
bool SaysTheSame(const AttributeWish& wish, const QString& value)
{
    if (wish.name == shapeName) {
        return ShapeOfWord(wish.value).shape == ShapeOfWord(value).shape;
    }
    return wish.name == coordsName && NumbersOf(wish.value) == NumbersOf(value);
}

} // namespace

QList<AttributeWish> AttributesOf(const PageTag& tag)
{
    QList<AttributeWish> attributes;
    for (const HtmlAttribute& attribute : tag.Attributes()) {
        if (!attribute.isDuplicate) {
            attributes << AttributeWish{ NameOf(attribute.name.In(tag.Page())), tag.ValueOf(attribute) };
        }
    }
    return attributes;
}

QString ValueIn(const QList<AttributeWish>& attributes, QStringView name)
{
    const auto found = std::ranges::find(attributes, name, &AttributeWish::name);
    return found == attributes.end() ? QString() : found->value;
}

QList<AttributeWish> DifferencesOf(const PageTag& tag, const QList<AttributeWish>& attributes)
{
    const QList<AttributeWish> before = AttributesOf(tag);
    QList<AttributeWish> wishes;
    for (const AttributeWish& wish : attributes) {
        const QString value = ValueIn(before, wish.name);
        if (wish.value != value || wish.value.isNull() != value.isNull()) {
            wishes << wish;
        }
    }
    for (const AttributeWish& one : before) {
        if (ValueIn(attributes, one.name).isNull()) {
            wishes << AttributeWish{ one.name, {} };
        }
    }
    return wishes;
}

QList<AttributeWish> DifferencesOfArea(const PageTag& tag, const QList<AttributeWish>& attributes)
{
    const QList<AttributeWish> before = AttributesOf(tag);
    QList<AttributeWish> wishes = DifferencesOf(tag, attributes);
    wishes.removeIf([&before](const AttributeWish& wish) {
        return !wish.value.isNull() && SaysTheSame(wish, ValueIn(before, wish.name));
    });
    return wishes;
}
