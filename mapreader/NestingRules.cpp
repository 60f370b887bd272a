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
    { "area", voidTraits | Area },
    { "article", blockTraits },
    { "aside", blockTraits },
    { "b", Formatting },
    { "base", voidTraits | Base },
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
    { "image", voidTraits | Picture },
    { "img", voidTraits | Picture },
    { "input", voidTraits },
    { "keygen", voidTraits },
    { "li", Special | EndsParagraph },
    { "link", voidTraits },
    { "listing", blockTraits },
    { "main", blockTraits },
    { "map", Map },
    { "marquee", objectTraits },
    { "math", ForeignRoot },
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
    { "svg", ForeignRoot },
    { "table", Special | EndsParagraph | Scope | Table },
    { "tbody", Special | RowGroup },
    { "td", Special | Scope | Marker | Cell },
    { "template", Template },
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

constexpr std::size_t letters = 'z' - 'a' + 1;

/** Where the rules begin whose names begin with each letter, and where the last of them end. */
constexpr std::array<std::size_t, letters + 1> firstOfLetters = [] {
    std::array<std::size_t, letters + 1> first{};
    for (std::size_t letter = 0; letter <= letters; ++letter) {
        const auto isBefore = [letter](const NestingRule& rule) {
            return std::size_t(rule.name.front() - 'a') < letter;
        };
        first[letter] = std::size_t(std::ranges::count_if(rules, isBefore));
    }
    return first;
}();
static_assert(rules[firstOfLetters['m' - 'a']].name == "main");
static_assert(firstOfLetters.front() == 0 && firstOfLetters.back() == rules.size());

} // namespace

const NestingRule* FindNestingRule(QStringView name)
{
    if (name.isEmpty() || !IsAsciiLetter(name.front().unicode())) {
        return nullptr;
    }
    const auto letter = std::size_t(NameCharacter(name.front().unicode()) - u'a');
    const auto* const end = rules.data() + firstOfLetters[letter + 1];
    const auto* const found =
        std::find_if(rules.data() + firstOfLetters[letter], end, [name](const NestingRule& rule) {
            return qsizetype(rule.name.size()) == name.size() &&
                   IsName(name, QLatin1String(rule.name.data(), name.size()));
        });
    return found == end ? nullptr : found;
}
