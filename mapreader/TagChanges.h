#pragma once

#include "mapreader/PageTag.h"
#include "shared/PageDocument.h"

/** An attribute that a tag shall have. */
struct AttributeWish
{
    QString name;  ///< in small letters
    QString value; ///< as browsers shall see it; the null string: there shall be none

    bool operator==(const AttributeWish&) const = default;
};

/**
 * What has to be replaced in a page so that a tag has the wished attributes, in ascending order; all else in
 * the tag stays as it is. A value that is the wished one already is left alone, however it is written. One
 * that is changed keeps its quotes if it can. One that is added stands behind the others, in their case and
 * quotes; one that is removed takes its namesakes and a blank in front along. Nothing if the tag cannot have
 * them: a name or value that no tag can hold, or code in the tag that ends it early.
 */
[[nodiscard]] std::optional<QList<TextReplacement>>
ChangeTag(const PageTag& tag, const QList<AttributeWish>& wishes);

/** A text with replacements made, whose places count from `offset` on. */
[[nodiscard]] QString
Replaced(QStringView text, const QList<TextReplacement>& replacements, qsizetype offset = 0);

/** Whether the last names or words are in capitals only. */
[[nodiscard]] bool IsInCapitals(QStringView name);

/** The attribute as it is written behind a blank: in capitals or not, and with that kind of quotes if it can
 * be. */
[[nodiscard]] QString
WrittenAttribute(const QString& name, const QString& value, bool inCapitals, char16_t quote);
