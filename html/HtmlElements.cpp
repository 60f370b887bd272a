#include "html/HtmlElements.h"

#include <algorithm>
#include <array>

namespace {

/**
 * The elements of the HTML standard (html.spec.whatwg.org) and those that were in use before it. Start tags
 * end paragraphs, items and the like where the standard says so.
 */
constexpr auto knownElements = std::to_array<HtmlElement>({
    { "a" },
    { "abbr" },
    { "abbrev" },
    { "acronym" },
    { "address", HtmlEndTag::Needed, HtmlRole::Plain, true },
    { "applet", HtmlEndTag::Needed, HtmlRole::Scope },
    { "area", HtmlEndTag::None },
    { "article", HtmlEndTag::Needed, HtmlRole::Plain, true },
    { "aside", HtmlEndTag::Needed, HtmlRole::Plain, true },
    { "audio" },
    { "b" },
    { "base", HtmlEndTag::None },
    { "basefont", HtmlEndTag::None },
    { "bdi" },
    { "bdo" },
    { "bgsound", HtmlEndTag::None },
    { "bgsoundsrc", HtmlEndTag::None },
    { "big" },
    { "blink" },
    { "blockquote", HtmlEndTag::Needed, HtmlRole::Plain, true },
    { "body", HtmlEndTag::Optional, HtmlRole::Body },
    { "br", HtmlEndTag::None },
    { "button", HtmlEndTag::Needed, HtmlRole::Scope },
    { "canvas" },
    { "caption", HtmlEndTag::Optional, HtmlRole::Caption },
    { "center", HtmlEndTag::Needed, HtmlRole::Plain, true },
    { "cite" },
    { "code" },
    { "col", HtmlEndTag::None },
    { "colgroup", HtmlEndTag::Optional, HtmlRole::ColumnGroup },
    { "command", HtmlEndTag::None },
    { "content" },
    { "credit" },
    { "data" },
    { "datalist" },
    { "dd", HtmlEndTag::Optional, HtmlRole::Term, true },
    { "del" },
    { "details", HtmlEndTag::Needed, HtmlRole::Plain, true },
    { "dfn" },
    { "dialog", HtmlEndTag::Needed, HtmlRole::Plain, true },
    { "dir", HtmlEndTag::Needed, HtmlRole::List, true },
    { "div", HtmlEndTag::Needed, HtmlRole::Plain, true },
    { "dl", HtmlEndTag::Needed, HtmlRole::List, true },
    { "dt", HtmlEndTag::Optional, HtmlRole::Term, true },
    { "em" },
    { "embed", HtmlEndTag::None },
    { "fieldset", HtmlEndTag::Needed, HtmlRole::Plain, true },
    { "fig" },
    { "figcaption", HtmlEndTag::Needed, HtmlRole::Plain, true },
    { "figure", HtmlEndTag::Needed, HtmlRole::Plain, true },
    { "fn" },
    { "font" },
    { "footer", HtmlEndTag::Needed, HtmlRole::Plain, true },
    { "form", HtmlEndTag::Needed, HtmlRole::Plain, true },
    { "frame", HtmlEndTag::None },
    { "frameset", HtmlEndTag::Needed, HtmlRole::Body },
    { "h1", HtmlEndTag::Needed, HtmlRole::Plain, true },
    { "h2", HtmlEndTag::Needed, HtmlRole::Plain, true },
    { "h3", HtmlEndTag::Needed, HtmlRole::Plain, true },
    { "h4", HtmlEndTag::Needed, HtmlRole::Plain, true },
    { "h5", HtmlEndTag::Needed, HtmlRole::Plain, true },
    { "h6", HtmlEndTag::Needed, HtmlRole::Plain, true },
    { "head", HtmlEndTag::Optional, HtmlRole::Head },
    { "header", HtmlEndTag::Needed, HtmlRole::Plain, true },
    { "hgroup", HtmlEndTag::Needed, HtmlRole::Plain, true },
    { "hr", HtmlEndTag::None, HtmlRole::Plain, true },
    { "html", HtmlEndTag::Optional, HtmlRole::Page },
    { "i" },
    { "iframe" },
    { "ilayer" },
    { "image", HtmlEndTag::None },
    { "img", HtmlEndTag::None },
    { "input", HtmlEndTag::None },
    { "ins" },
    { "isindex", HtmlEndTag::None },
    { "kbd" },
    { "keygen", HtmlEndTag::None },
    { "label" },
    { "layer" },
    { "legend" },
    { "lh", HtmlEndTag::Optional, HtmlRole::Item },
    { "li", HtmlEndTag::Optional, HtmlRole::Item, true },
    { "link", HtmlEndTag::None },
    { "listing", HtmlEndTag::Needed, HtmlRole::Plain, true },
    { "main", HtmlEndTag::Needed, HtmlRole::Plain, true },
    { "map" },
    { "mark" },
    { "marquee", HtmlEndTag::Needed, HtmlRole::Scope },
    { "math", HtmlEndTag::Needed, HtmlRole::Scope },
    { "menu", HtmlEndTag::Needed, HtmlRole::List, true },
    { "menuitem" },
    { "meta", HtmlEndTag::None },
    { "meter" },
    { "multicol" },
    { "nav", HtmlEndTag::Needed, HtmlRole::Plain, true },
    { "nextid", HtmlEndTag::None },
    { "nobr" },
    { "noembed" },
    { "noframes" },
    { "nolayer" },
    { "noscript" },
    { "note" },
    { "object", HtmlEndTag::Needed, HtmlRole::Scope },
    { "ol", HtmlEndTag::Needed, HtmlRole::List, true },
    { "optgroup", HtmlEndTag::Optional, HtmlRole::OptionGroup },
    { "option", HtmlEndTag::Optional, HtmlRole::Option },
    { "output" },
    { "p", HtmlEndTag::Optional, HtmlRole::Paragraph, true },
    { "param", HtmlEndTag::None },
    { "picture" },
    { "plaintext", HtmlEndTag::Optional, HtmlRole::Plain, true },
    { "portal" },
    { "pre", HtmlEndTag::Needed, HtmlRole::Plain, true },
    { "progress" },
    { "prompt" },
    { "q" },
    { "range", HtmlEndTag::None },
    { "rb", HtmlEndTag::Optional, HtmlRole::RubyText },
    { "rp", HtmlEndTag::Optional, HtmlRole::RubyText },
    { "rt", HtmlEndTag::Optional, HtmlRole::RubyText },
    { "rtc", HtmlEndTag::Optional, HtmlRole::RubyText },
    { "ruby" },
    { "s" },
    { "samp" },
    { "script" },
    { "search", HtmlEndTag::Needed, HtmlRole::Plain, true },
    { "section", HtmlEndTag::Needed, HtmlRole::Plain, true },
    { "select", HtmlEndTag::Needed, HtmlRole::Scope },
    { "server" },
    { "shadow" },
    { "slot" },
    { "small" },
    { "source", HtmlEndTag::None },
    { "spacer", HtmlEndTag::None },
    { "span" },
    { "strike" },
    { "strong" },
    { "style" },
    { "sub" },
    { "summary", HtmlEndTag::Needed, HtmlRole::Plain, true },
    { "sup" },
    { "svg", HtmlEndTag::Needed, HtmlRole::Scope },
    { "table", HtmlEndTag::Needed, HtmlRole::Table, true },
    { "tbody", HtmlEndTag::Optional, HtmlRole::RowGroup },
    { "td", HtmlEndTag::Optional, HtmlRole::Cell },
    { "template", HtmlEndTag::Needed, HtmlRole::Scope },
    { "textarea" },
    { "tfoot", HtmlEndTag::Optional, HtmlRole::RowGroup },
    { "th", HtmlEndTag::Optional, HtmlRole::Cell },
    { "thead", HtmlEndTag::Optional, HtmlRole::RowGroup },
    { "time" },
    { "title" },
    { "tr", HtmlEndTag::Optional, HtmlRole::Row },
    { "track", HtmlEndTag::None },
    { "tt" },
    { "u" },
    { "ul", HtmlEndTag::Needed, HtmlRole::List, true },
    { "var" },
    { "video" },
    { "wbr", HtmlEndTag::None },
    { "xbm" },
    { "xmp", HtmlEndTag::Needed, HtmlRole::Plain, true },
});

constexpr bool AreElementsInOrder()
{
    for (std::size_t i = 1; i < knownElements.size(); ++i) {
        if (knownElements[i - 1].name >= knownElements[i].name) {
            return false;
        }
    }
    return true;
}
static_assert(AreElementsInOrder());

/** Below nought if `known`, in small letters, comes before `written`, nought if it is that name. */
int Compare(std::string_view known, QStringView written)
{
    const auto length = static_cast<qsizetype>(known.size());
    const qsizetype common = std::min(length, written.size());
    for (qsizetype i = 0; i < common; ++i) {
        const int difference =
            int(known[static_cast<std::size_t>(i)]) - int(NameCharacter(written[i].unicode()));
        if (difference != 0) {
            return difference;
        }
    }
    return length < written.size() ? -1 : length > written.size() ? 1 : 0;
}

/** Whether an element of that role is a part of a table, or the table. */
constexpr bool IsOfTable(HtmlRole role)
{
    return role == HtmlRole::Cell || role == HtmlRole::Row || role == HtmlRole::RowGroup ||
           role == HtmlRole::ColumnGroup || role == HtmlRole::Caption || role == HtmlRole::Table;
}

} // namespace

std::span<const HtmlElement> HtmlElements()
{
    return knownElements;
}

const HtmlElement* FindElement(QStringView name)
{
    const auto* const found =
        std::partition_point(knownElements.begin(), knownElements.end(), [name](const HtmlElement& one) {
            return Compare(one.name, name) < 0;
        });
    return found != knownElements.end() && Compare(found->name, name) == 0 ? found : nullptr;
}

bool IsEndedBy(const HtmlElement& open, const HtmlElement& next)
{
    switch (open.role) {
    case HtmlRole::Paragraph:
        return next.endsParagraph;
    case HtmlRole::Item:
    case HtmlRole::Term:
    case HtmlRole::RubyText:
        return next.role == open.role;
    case HtmlRole::Option:
    case HtmlRole::OptionGroup:
        return next.role == HtmlRole::OptionGroup || next.role == open.role;
    case HtmlRole::Cell:
        return next.role == HtmlRole::Cell || next.role == HtmlRole::Row || next.role == HtmlRole::RowGroup;
    case HtmlRole::Row:
        return next.role == HtmlRole::Row || next.role == HtmlRole::RowGroup;
    case HtmlRole::RowGroup:
        return next.role == HtmlRole::RowGroup;
    case HtmlRole::Caption:
    case HtmlRole::ColumnGroup:
        return next.role == HtmlRole::ColumnGroup || next.role == HtmlRole::Cell ||
               next.role == HtmlRole::Row || next.role == HtmlRole::RowGroup;
    case HtmlRole::Head:
        return next.role == HtmlRole::Body;
    default:
        return false;
    }
}

bool Shields(const HtmlElement& around, const HtmlElement* inside)
{
    const HtmlRole role = inside != nullptr ? inside->role : HtmlRole::Plain;
    if (role == HtmlRole::Body || role == HtmlRole::Page) {
        return false;
    }
    switch (around.role) {
    case HtmlRole::Scope:
        return true;
    case HtmlRole::List:
        return role == HtmlRole::Item || role == HtmlRole::Term;
    case HtmlRole::Table:
        return role != HtmlRole::Table;
    case HtmlRole::Cell:
    case HtmlRole::Caption:
        return !IsOfTable(role);
    default:
        return false;
    }
}
