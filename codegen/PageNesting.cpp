#include "codegen/PageNesting.h"

#include <algorithm>
#include <array>

namespace {

struct ElementRow
{
    QLatin1String name;
    ElementHolds holds;
};

using enum ElementHolds;

/** Elements that are not here hold paragraphs too. */
constexpr auto elementRows = std::to_array<ElementRow>({
    { QLatin1String("a"), Phrasing },         { QLatin1String("abbr"), Phrasing },
    { QLatin1String("acronym"), Phrasing },   { QLatin1String("area"), Nothing },
    { QLatin1String("audio"), Phrasing },     { QLatin1String("b"), Phrasing },
    { QLatin1String("base"), Nothing },       { QLatin1String("bdi"), Phrasing },
    { QLatin1String("bdo"), Phrasing },       { QLatin1String("big"), Phrasing },
    { QLatin1String("br"), Nothing },         { QLatin1String("button"), Phrasing },
    { QLatin1String("canvas"), Phrasing },    { QLatin1String("cite"), Phrasing },
    { QLatin1String("code"), Phrasing },      { QLatin1String("col"), Nothing },
    { QLatin1String("colgroup"), Structure }, { QLatin1String("data"), Phrasing },
    { QLatin1String("datalist"), Phrasing },  { QLatin1String("dfn"), Phrasing },
    { QLatin1String("dir"), Structure },      { QLatin1String("dl"), Structure },
    { QLatin1String("em"), Phrasing },        { QLatin1String("embed"), Nothing },
    { QLatin1String("font"), Phrasing },      { QLatin1String("frame"), Nothing },
    { QLatin1String("frameset"), Structure }, { QLatin1String("h1"), Phrasing },
    { QLatin1String("h2"), Phrasing },        { QLatin1String("h3"), Phrasing },
    { QLatin1String("h4"), Phrasing },        { QLatin1String("h5"), Phrasing },
    { QLatin1String("h6"), Phrasing },        { QLatin1String("hgroup"), Structure },
    { QLatin1String("hr"), Nothing },         { QLatin1String("i"), Phrasing },
    { QLatin1String("img"), Nothing },        { QLatin1String("input"), Nothing },
    { QLatin1String("kbd"), Phrasing },       { QLatin1String("keygen"), Nothing },
    { QLatin1String("label"), Phrasing },     { QLatin1String("legend"), Phrasing },
    { QLatin1String("link"), Nothing },       { QLatin1String("map"), Phrasing },
    { QLatin1String("mark"), Phrasing },      { QLatin1String("math"), Phrasing },
    { QLatin1String("menu"), Structure },     { QLatin1String("meta"), Nothing },
    { QLatin1String("meter"), Phrasing },     { QLatin1String("object"), Phrasing },
    { QLatin1String("ol"), Structure },       { QLatin1String("optgroup"), Structure },
    { QLatin1String("option"), Phrasing },    { QLatin1String("output"), Phrasing },
    { QLatin1String("p"), Phrasing },         { QLatin1String("param"), Nothing },
    { QLatin1String("picture"), Structure },  { QLatin1String("pre"), Phrasing },
    { QLatin1String("progress"), Phrasing },  { QLatin1String("q"), Phrasing },
    { QLatin1String("rp"), Phrasing },        { QLatin1String("rt"), Phrasing },
    { QLatin1String("ruby"), Phrasing },      { QLatin1String("s"), Phrasing },
    { QLatin1String("samp"), Phrasing },      { QLatin1String("select"), Structure },
    { QLatin1String("slot"), Phrasing },      { QLatin1String("small"), Phrasing },
    { QLatin1String("source"), Nothing },     { QLatin1String("span"), Phrasing },
    { QLatin1String("strike"), Phrasing },    { QLatin1String("strong"), Phrasing },
    { QLatin1String("sub"), Phrasing },       { QLatin1String("summary"), Phrasing },
    { QLatin1String("sup"), Phrasing },       { QLatin1String("svg"), Phrasing },
    { QLatin1String("table"), Structure },    { QLatin1String("tbody"), Structure },
    { QLatin1String("textarea"), Phrasing },  { QLatin1String("tfoot"), Structure },
    { QLatin1String("thead"), Structure },    { QLatin1String("time"), Phrasing },
    { QLatin1String("tr"), Structure },       { QLatin1String("track"), Nothing },
    { QLatin1String("tt"), Phrasing },        { QLatin1String("u"), Phrasing },
    { QLatin1String("ul"), Structure },       { QLatin1String("var"), Phrasing },
    { QLatin1String("video"), Phrasing },     { QLatin1String("wbr"), Nothing },
});

/** A start tag that ends an open element, up to one that shields it. */
struct ImpliedEnd
{
    QLatin1String opening;
    QLatin1String closed;
};

constexpr auto impliedEnds = std::to_array<ImpliedEnd>({
    { QLatin1String("li"), QLatin1String("li") },
    { QLatin1String("dt"), QLatin1String("dt") },
    { QLatin1String("dt"), QLatin1String("dd") },
    { QLatin1String("dd"), QLatin1String("dt") },
    { QLatin1String("dd"), QLatin1String("dd") },
    { QLatin1String("option"), QLatin1String("option") },
    { QLatin1String("optgroup"), QLatin1String("option") },
    { QLatin1String("optgroup"), QLatin1String("optgroup") },
    { QLatin1String("td"), QLatin1String("td") },
    { QLatin1String("td"), QLatin1String("th") },
    { QLatin1String("th"), QLatin1String("td") },
    { QLatin1String("th"), QLatin1String("th") },
    { QLatin1String("tr"), QLatin1String("tr") },
    { QLatin1String("tbody"), QLatin1String("tbody") },
    { QLatin1String("tbody"), QLatin1String("thead") },
    { QLatin1String("tfoot"), QLatin1String("tbody") },
    { QLatin1String("thead"), QLatin1String("tbody") },
    { QLatin1String("a"), QLatin1String("a") },
    { QLatin1String("button"), QLatin1String("button") },
});

/** Start tags that end an open paragraph. */
constexpr auto endsOfParagraphs = std::to_array<QLatin1String>({
    QLatin1String("address"),    QLatin1String("article"),    QLatin1String("aside"),
    QLatin1String("blockquote"), QLatin1String("center"),     QLatin1String("dd"),
    QLatin1String("details"),    QLatin1String("dialog"),     QLatin1String("dir"),
    QLatin1String("div"),        QLatin1String("dl"),         QLatin1String("dt"),
    QLatin1String("fieldset"),   QLatin1String("figcaption"), QLatin1String("figure"),
    QLatin1String("footer"),     QLatin1String("form"),       QLatin1String("h1"),
    QLatin1String("h2"),         QLatin1String("h3"),         QLatin1String("h4"),
    QLatin1String("h5"),         QLatin1String("h6"),         QLatin1String("header"),
    QLatin1String("hgroup"),     QLatin1String("hr"),         QLatin1String("li"),
    QLatin1String("main"),       QLatin1String("menu"),       QLatin1String("nav"),
    QLatin1String("ol"),         QLatin1String("p"),          QLatin1String("pre"),
    QLatin1String("search"),     QLatin1String("section"),    QLatin1String("summary"),
    QLatin1String("table"),      QLatin1String("ul"),         QLatin1String("xmp"),
});

/** Elements that nothing inside them ends from outside, or closes by opening. */
constexpr auto shields = std::to_array<QLatin1String>({
    QLatin1String("button"),
    QLatin1String("caption"),
    QLatin1String("object"),
    QLatin1String("svg"),
    QLatin1String("math"),
    QLatin1String("table"),
    QLatin1String("td"),
    QLatin1String("template"),
    QLatin1String("th"),
    QLatin1String("ul"),
    QLatin1String("ol"),
    QLatin1String("dl"),
    QLatin1String("select"),
});

/** Elements of a table whose content only the table's own end tags end. */
constexpr auto cells =
    std::to_array<QLatin1String>({ QLatin1String("td"), QLatin1String("th"), QLatin1String("caption") });
constexpr auto partsOfTables = std::to_array<QLatin1String>({
    QLatin1String("table"),
    QLatin1String("tbody"),
    QLatin1String("tfoot"),
    QLatin1String("thead"),
    QLatin1String("tr"),
});

/** Elements that are always the page's own and never nest. */
constexpr auto frames = std::to_array<QLatin1String>({
    QLatin1String("html"),
    QLatin1String("head"),
    QLatin1String("body"),
});

template<class Names> bool IsOneOf(QStringView name, const Names& names)
{
    return std::any_of(
        names.begin(), names.end(), [name](QLatin1String other) { return IsName(name, other); });
}

} // namespace

ElementHolds ContentOfElement(QStringView name)
{
    const auto* const row =
        std::find_if(elementRows.begin(), elementRows.end(), [name](const ElementRow& one) {
            return IsName(name, one.name);
        });
    return row == elementRows.end() ? Flow : row->holds;
}

void PageNesting::Take(const HtmlToken& token, const HtmlState& state)
{
    if (!token.isClosed) {
        return;
    }
    if (token.kind == HtmlToken::Kind::StartTag) {
        TakeStart(token, state.foreign.IsForeign());
    } else if (token.kind == HtmlToken::Kind::EndTag) {
        TakeEnd(token);
    }
}

void PageNesting::TakeStart(const HtmlToken& token, bool isForeign)
{
    const QStringView name = token.name.In(page_);
    const bool isForeignRoot = IsName(name, QLatin1String("svg")) || IsName(name, QLatin1String("math"));
    if (IsOneOf(name, frames) || (token.slash >= 0 && (isForeign || isForeignRoot))) {
        return;
    }
    if (!isForeign) {
        CloseImplied(name);
        if (ContentOfElement(name) == Nothing) {
            return;
        }
    }
    const bool isLink =
        IsName(name, QLatin1String("a")) && token.Find(page_, QLatin1String("href")) != nullptr;
    open_.push_back({ name, token.whole.offset, isLink });
}

void PageNesting::CloseImplied(QStringView opening)
{
    const bool endsParagraph = IsOneOf(opening, endsOfParagraphs);
    for (std::size_t i = open_.size(); i > 0; --i) {
        const QStringView name = open_[i - 1].name;
        const bool isEnded =
            (endsParagraph && IsName(name, QLatin1String("p"))) ||
            std::any_of(impliedEnds.begin(), impliedEnds.end(), [opening, name](const ImpliedEnd& row) {
                return IsName(opening, row.opening) && IsName(name, row.closed);
            });
        if (isEnded) {
            open_.resize(i - 1, Element{ {}, 0, false });
        } else if (IsOneOf(name, shields)) {
            return;
        }
    }
}

void PageNesting::TakeEnd(const HtmlToken& token)
{
    const QStringView name = token.name.In(page_);
    for (std::size_t i = open_.size(); i > 0; --i) {
        if (IsSameName(open_[i - 1].name, name)) {
            open_.resize(i - 1, Element{ {}, 0, false });
            return;
        }
        const QStringView inside = open_[i - 1].name;
        if (IsOneOf(inside, cells) && !IsOneOf(name, partsOfTables)) {
            return;
        }
    }
}
