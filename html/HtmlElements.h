#pragma once

#include "html/HtmlNames.h"

#include <span>
#include <string_view>

/** Whether an element has an end tag. */
enum class HtmlEndTag : quint8 {
    Needed,
    Optional, ///< what comes next tells where it ends
    None      ///< it is its start tag
};

/** What an element is to those around it, as far as one's start tag tells where another ends. */
enum class HtmlRole : quint8 {
    Plain,
    Paragraph,
    Item, ///< of a list
    Term, ///< of a list of definitions, and what it means
    RubyText,
    Option,
    OptionGroup,
    Cell,
    Row,
    RowGroup,
    ColumnGroup,
    Caption,
    Table,
    List,
    Scope, ///< nothing inside it ends what is outside
    Head,
    Body,
    Page
};

/** An element of HTML, be it of today or of old. */
struct HtmlElement
{
    std::string_view name; ///< in small letters
    HtmlEndTag end = HtmlEndTag::Needed;
    HtmlRole role = HtmlRole::Plain;
    bool endsParagraph = false; ///< whether its start tag ends an open paragraph
};

/** All elements that are known, in the order of their names. */
[[nodiscard]] std::span<const HtmlElement> HtmlElements();

/** The element of that name, in letters of either case; nullptr if none is known. */
[[nodiscard]] const HtmlElement* FindElement(QStringView name);

/** Whether the start tag of `next` ends `open`, an element whose end tag may be left out. */
[[nodiscard]] bool IsEndedBy(const HtmlElement& open, const HtmlElement& next);

/** Whether the start or end tag of `inside` is nothing to what is outside of `around`. */
[[nodiscard]] bool Shields(const HtmlElement& around, const HtmlElement* inside);
