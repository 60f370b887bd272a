#include "mapreader/AttributeWishes.h"

#include "html/HtmlNames.h"

#include <algorithm>

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
