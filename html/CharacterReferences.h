#pragma once

#include "html/HtmlPart.h"

#include <QString>
#include <array>
#include <optional>

/** Where a text stands: in values, names without a semicolon count for less, so that addresses keep their
 * "&". */
enum class ReferenceIn { Text, Value };

/** A character reference, such as "&amp;" or "&#38;", and the characters it stands for. */
struct CharacterReference
{
    HtmlSpan place;
    std::array<char32_t, 2> characters{}; ///< mostly one; the second is nought then
};

/** The first reference at or behind `from`, as the HTML standard (html.spec.whatwg.org) reads them. */
[[nodiscard]] std::optional<CharacterReference>
NextReference(QStringView text, qsizetype from, ReferenceIn where);

/** What a text between tags, or in `title` and `textarea`, is to a reader: references resolved, line ends as
 * LF. */
[[nodiscard]] QString DecodedText(QStringView text);

/** What an attribute's value, taken from between its quotes, is to a browser. */
[[nodiscard]] QString DecodedValue(QStringView value);

/** Whether a value can be written without quotes. */
[[nodiscard]] bool CanStandUnquoted(QStringView value);

/**
 * The value as it has to be written between quotes of that kind: DecodedValue() of the result is the value.
 * Every "&" is written as a reference, which is right in all versions of HTML. With no `quote` (0), it must
 * be one that CanStandUnquoted(). Only a character U+0000, which no page can hold, does not come back.
 */
[[nodiscard]] QString EscapedFor(char16_t quote, QStringView value);
