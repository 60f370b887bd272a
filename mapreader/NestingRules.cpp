#include "mapreader/NestingRules.h"

#include "html/HtmlNames.h"

#include <algorithm>
#include <array>

namespace {

using enum NestingTrait;

constexpr NestingTraits blockTraits = Special | Block | EndsParagraph;
constexpr NestingTraits objectTraits = Special | Block | Scope | Marker;
constexpr NestingTraits voidTraits = Void | Special;
constexpr NestingTraits textTraits = IsText;

constexpr auto rules = std::to_array<NestingRule>({
    { "a", Formatting },
    { "address", blockTraits | Transparent },
    { "applet", objectTraits },
    { "area", voidTraits },
    { "article", blockTraits },
    { "aside", blockTraits },
    { "b", Formatting },
    { "base", voidTraits },
    { "basefont", voidTraits },
    { "bgsound", voidTraits },
    { "big", Formatting },
    { "blockquote", blockTraits },
    { "body", Frame },
    { "br", voidTraits },
    { "button", Special | Block | ButtonScope },
    { "caption", Special | Scope | Marker | Caption },
    { "center", blockTraits },
    { "code", Formatting },
    { "col", Void | ColumnGroup },
    { "colgroup", Special | ColumnGroup },
    { "dd", Special | EndsParagraph | Term },
    { "details", blockTraits },
    { "dialog", Block | EndsParagraph },
    { "dir", blockTraits },
    { "div", blockTraits | Transparent },
    { "dl", blockTraits },
    { "dt", Special | EndsParagraph | Term },
    { "em", Formatting },
    { "embed", voidTraits },
    { "fieldset", blockTraits },
    { "figcaption", blockTraits },
    { "figure", blockTraits },
    { "font", Formatting },
    { "footer", blockTraits },
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
    { "header", blockTraits },
    { "hgroup", blockTraits },
    { "hr", voidTraits | EndsParagraph },
    { "html", Frame },
    { "i", Formatting },
    { "iframe", textTraits },
    { "image", voidTraits },
    { "img", voidTraits },
    { "input", voidTraits },
    { "keygen", voidTraits },
    { "li", Special | EndsParagraph },
    { "link", voidTraits },
    { "listing", blockTraits },
    { "main", blockTraits },
    { "marquee", objectTraits },
    { "menu", blockTraits },
    { "meta", voidTraits },
    { "nav", blockTraits },
    { "nobr", Formatting },
    { "noembed", textTraits },
    { "noframes", textTraits },
    { "noscript", Special },
    { "object", objectTraits },
    { "ol", blockTraits | ListScope },
    { "optgroup", Option },
    { "option", Option },
    { "p", Special | EndsParagraph | Transparent },
    { "param", voidTraits },
    { "plaintext", textTraits | EndsParagraph },
    { "pre", blockTraits },
    { "rb", RubyText },
    { "rp", RubyText },
    { "rt", RubyText },
    { "rtc", RubyText },
    { "s", Formatting },
    { "script", textTraits },
    { "search", blockTraits },
    { "section", blockTraits },
    { "select", Special | Block },
    { "small", Formatting },
    { "source", voidTraits },
    { "strike", Formatting },
    { "strong", Formatting },
    { "style", textTraits },
    { "summary", blockTraits },
    { "table", Special | EndsParagraph | Scope | Table },
    { "tbody", Special | RowGroup },
    { "td", Special | Scope | Marker | Cell },
    { "textarea", textTraits },
    { "tfoot", Special | RowGroup },
    { "th", Special | Scope | Marker | Cell },
    { "thead", Special | RowGroup },
    { "title", textTraits },
    { "tr", Special | Row },
    { "track", voidTraits },
    { "tt", Formatting },
    { "u", Formatting },
    { "ul", blockTraits | ListScope },
    { "wbr", voidTraits },
    { "xmp", textTraits | EndsParagraph },
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
