#pragma once

#include <QFlags>
#include <QStringView>
#include <string_view>

// What the tree construction of the HTML standard (html.spec.whatwg.org) knows of elements, as far as it
// tells which elements are open.

enum class NestingTrait : quint32 {
    Void = 1U << 0U,          ///< it has no content
    IsText = 1U << 1U,        ///< its content is text up to its end tag
    Special = 1U << 2U,       ///< stops an end tag that the standard has no rule for
    Formatting = 1U << 3U,    ///< its end tag ends it across others
    Block = 1U << 4U,         ///< its end tag ends it wherever it is in scope
    EndsParagraph = 1U << 5U, ///< its start tag ends a paragraph
    Scope = 1U << 6U,         ///< end tags inside do not reach what is outside
    ButtonScope = 1U << 7U,   ///< those of paragraphs do not either
    ListScope = 1U << 8U,     ///< those of list items do not either
    Marker = 1U << 9U,        ///< formatting inside has nothing to do with that outside
    Heading = 1U << 10U,
    Term = 1U << 11U,
    RubyText = 1U << 12U,
    Option = 1U << 13U,
    Cell = 1U << 14U,
    Row = 1U << 15U,
    RowGroup = 1U << 16U,
    ColumnGroup = 1U << 17U,
    Caption = 1U << 18U,
    Table = 1U << 19U,
    Frame = 1U << 20U,       ///< of the page, such as `body`; not kept
    Transparent = 1U << 21U, ///< special, but a list item inside ends the one outside
    Map = 1U << 22U,
    Template = 1U << 23U,
    ForeignRoot = 1U << 24U, ///< SVG or MathML
    Area = 1U << 25U,
    Picture = 1U << 26U,
    Base = 1U << 27U
};
Q_DECLARE_FLAGS(NestingTraits, NestingTrait)
Q_DECLARE_OPERATORS_FOR_FLAGS(NestingTraits)

struct NestingRule
{
    std::string_view name; ///< in small letters
    NestingTraits traits;
};

/** What is known of the element of that name, in letters of either case; nullptr if it is like any other. */
[[nodiscard]] const NestingRule* FindNestingRule(QStringView name);
