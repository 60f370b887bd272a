#pragma once

#include "mapreader/AttributeWishes.h"
#include "shared/PageDocument.h"

#include <optional>

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

/** How the attributes of a tag are written, for others in it and for tags beside it. */
struct TagStyle
{
    bool inCapitals = false;
    char16_t quote = u'"';                   ///< 0 for none, where they are not needed
    QString separator = QStringLiteral(" "); ///< in front of each
    QString ending = QStringLiteral(">");    ///< behind the last
};

[[nodiscard]] TagStyle StyleOf(const PageTag& tag);

/** The attribute as it is written in that style, without its separator. */
[[nodiscard]] QString Written(const AttributeWish& attribute, const TagStyle& style);
