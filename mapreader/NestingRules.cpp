#include "mapreader/NestingRules.h"

#include "html/HtmlNames.h"

#include <algorithm>
#include <array>

namespace {

using enum NestingTrait;

constexpr NestingTraits block = Special | Block | EndsParagraph;
constexpr NestingTraits object = Special | Block | Scope | Marker;
constexpr NestingTraits voidOne = Void | Special;
constexpr NestingTraits textOne = IsText;

constexpr auto rules = std::to_array<NestingRule>({
    { "a", Formatting },
    { "address", block | Transparent },
    { "applet", object },
    { "area", voidOne },
    { "article", block },
    { "aside", block },
    { "b", Formatting },
    { "base", voidOne },
    { "basefont", voidOne },
    { "bgsound", voidOne },
    { "big", Formatting },
    { "blockquote", block },
    { "body", Frame },
    { "br", voidOne },
    { "button", Special | Block | ButtonScope },
    { "caption", Special | Scope | Marker | Caption },
    { "center", block },
    { "code", Formatting },
    { "col", Void | ColumnGroup },
    { "colgroup", Special | ColumnGroup },
    { "dd", Special | EndsParagraph | Term },
    { "details", block },
    { "dialog", Block | EndsParagraph },
    { "dir", block },
    { "div", block | Transparent },
    { "dl", block },
    { "dt", Special | EndsParagraph | Term },
    { "em", Formatting },
    { "embed", voidOne },
    { "fieldset", block },
    { "figcaption", block },
    { "figure", block },
    { "font", Formatting },
    { "footer", block },
    { "form", Special | EndsParagraph },
    { "frame", Frame },
    { "frameset", Frame },
    { "h1", Special | EndsParagraph | Heading },
    { "h2", Special | EndsParagraph | Heading },
    { "h3", Special | EndsParagraph | Heading },
    { "h4", Special | EndsParagraph | Heading },
    { "h5", Special | EndsParagraph | Heading },
    { "h6", Special | EndsParagraph | Heading },
    { "head", Frame },
    { "header", block },
    { "hgroup", block },
    { "hr", voidOne | EndsParagraph },
    { "html", Frame },
    { "i", Formatting },
    { "iframe", textOne },
    { "image", voidOne },
    { "img", voidOne },
    { "input", voidOne },
    { "keygen", voidOne },
    { "li", Special | EndsParagraph },
    { "link", voidOne },
    { "listing", block },
    { "main", block },
    { "marquee", object },
    { "menu", block },
    { "meta", voidOne },
    { "nav", block },
    { "nobr", Formatting },
    { "noembed", textOne },
    { "noframes", textOne },
    { "noscript", Special },
    { "object", object },
    { "ol", block | ListScope },
    { "optgroup", Option },
    { "option", Option },
    { "p", Special | EndsParagraph | Transparent },
    { "param", voidOne },
    { "plaintext", textOne | EndsParagraph },
    { "pre", block },
    { "rb", RubyText },
    { "rp", RubyText },
    { "rt", RubyText },
    { "rtc", RubyText },
    { "s", Formatting },
    { "script", textOne },
    { "search", block },
    { "section", block },
    { "select", Special | Block },
    { "small", Formatting },
    { "source", voidOne },
    { "strike", Formatting },
    { "strong", Formatting },
    { "style", textOne },
    { "summary", block },
    { "table", Special | EndsParagraph | Scope | Table },
    { "tbody", Special | RowGroup },
    { "td", Special | Scope | Marker | Cell },
    { "textarea", textOne },
    { "tfoot", Special | RowGroup },
    { "th", Special | Scope | Marker | Cell },
    { "thead", Special | RowGroup },
    { "title", textOne },
    { "tr", Special | Row },
    { "track", voidOne },
    { "tt", Formatting },
    { "u", Formatting },
    { "ul", block | ListScope },
    { "wbr", voidOne },
    { "xmp", textOne | EndsParagraph },
});

static_assert(std::ranges::is_sorted(rules, {}, &NestingRule::name));

/** Whether `known` comes before `written` in the order of the table. */
bool IsBefore(std::string_view known, QStringView written)
{
    return std::lexicographical_compare(
        known.begin(), known.end(), written.begin(), written.end(), [](auto one, auto other) {
            const auto unit = [](auto character) {
                if constexpr (std::is_same_v<decltype(character), char>) {
                    return char16_t(character);
                } else {
                    return NameCharacter(character.unicode());
                }
            };
            return unit(one) < unit(other);
        });
}

} // namespace

const NestingRule* FindNestingRule(QStringView name)
{
    const auto* const found = std::partition_point(
        rules.begin(), rules.end(), [name](const NestingRule& rule) { return IsBefore(rule.name, name); });
    const bool isIt = found != rules.end() &&
                      IsName(name, QLatin1String(found->name.data(), qsizetype(found->name.size())));
    return isIt ? found : nullptr;
}
