#pragma once

#include "html/HtmlPart.h"

#include <QString>

// Names and characters as the tokenizer of the HTML standard (html.spec.whatwg.org) reads them.

/** Blanks and line ends; the carriage return too, which browsers make a line feed before. */
[[nodiscard]] constexpr bool IsHtmlSpace(int character)
{
    return character <= ' ' && (character == ' ' || character == '\n' || character == '\t' ||
                                character == '\r' || character == '\f');
}

[[nodiscard]] constexpr bool IsAsciiLetter(int character)
{
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

/** A character of a name as it counts: small if it is an ASCII letter, and U+FFFD for a nought. */
[[nodiscard]] constexpr char16_t NameCharacter(char16_t character)
{
    constexpr char16_t replacement = 0xFFFD;
    constexpr char16_t toSmall = u'a' - u'A';
    const bool isCapital = character >= u'A' && character <= u'Z';
    return character == 0 ? replacement : isCapital ? char16_t(character + toSmall) : character;
}

/** The name of a tag or an attribute as browsers know it. */
[[nodiscard]] QString NameOf(QStringView written);

/** Whether two names are the same to browsers. */
[[nodiscard]] bool IsSameName(QStringView one, QStringView other);

/** Whether `written` is `name`, which is in small letters. */
[[nodiscard]] bool IsName(QStringView written, QLatin1String name);

/** The tags that change how the text behind them is read. */
enum class HtmlTag : quint8 {
    Other,
    // Their content is text.
    Title,
    Textarea,
    Style,
    Script,
    Xmp,
    Iframe,
    Noembed,
    Noframes,
    Plaintext,
    // Their content is not HTML.
    Svg,
    Math,
    // Inside these two, their content is HTML again. `title` is one of them too.
    ForeignObject,
    Desc,
    Mi,
    Mo,
    Mn,
    Ms,
    Mtext,
    // HTML's own, which are not to be found there.
    Font, ///< with certain attributes
    Html  ///< all others
};

[[nodiscard]] HtmlTag TagOf(QStringView name);

/** The name of a tag that has text as its content. */
[[nodiscard]] QLatin1String NameOf(HtmlTag tag);

/** What the content of an HTML element is. */
[[nodiscard]] HtmlContent ContentOf(HtmlTag tag);
