#pragma once

#include "mapreader/PageTag.h"

#include <QList>

/** An attribute that a tag shall have. */
struct AttributeWish
{
    QString name;  ///< in small letters
    QString value; ///< as browsers shall see it; the null string: there shall be none

    bool operator==(const AttributeWish&) const = default;
};

/** The attributes of a tag as browsers see them, in their order. */
[[nodiscard]] QList<AttributeWish> AttributesOf(const PageTag& tag);

/** The value of that name; the null string if there is none. */
[[nodiscard]] QString ValueIn(const QList<AttributeWish>& attributes, QStringView name);

/** What has to be wished of a tag so that it has these attributes and no others. */
[[nodiscard]] QList<AttributeWish> DifferencesOf(const PageTag& tag, const QList<AttributeWish>& attributes);
