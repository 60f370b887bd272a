#include "html/HtmlNames.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace {

struct KnownTag
{
    std::string_view name;
    HtmlTag tag;
};

/**
 * The tags that the HTML standard names where it says how text elements and foreign content are read.
 * `noscript` is not among them: to a browser that runs scripts it holds text, but its author wrote markup for
 * the others.
 */
constexpr std::array<KnownTag, 63> knownTags = { {
    { "b", HtmlTag::Html },
    { "big", HtmlTag::Html },
    { "blockquote", HtmlTag::Html },
    { "body", HtmlTag::Html },
    { "br", HtmlTag::Html },
    { "center", HtmlTag::Html },
    { "code", HtmlTag::Html },
    { "dd", HtmlTag::Html },
    { "desc", HtmlTag::Desc },
    { "div", HtmlTag::Html },
    { "dl", HtmlTag::Html },
    { "dt", HtmlTag::Html },
    { "em", HtmlTag::Html },
    { "embed", HtmlTag::Html },
    { "font", HtmlTag::Font },
    { "foreignobject", HtmlTag::ForeignObject },
    { "h1", HtmlTag::Html },
    { "h2", HtmlTag::Html },
    { "h3", HtmlTag::Html },
    { "h4", HtmlTag::Html },
    { "h5", HtmlTag::Html },
    { "h6", HtmlTag::Html },
    { "head", HtmlTag::Html },
    { "hr", HtmlTag::Html },
    { "i", HtmlTag::Html },
    { "iframe", HtmlTag::Iframe },
    { "img", HtmlTag::Html },
    { "li", HtmlTag::Html },
    { "listing", HtmlTag::Html },
    { "math", HtmlTag::Math },
    { "menu", HtmlTag::Html },
    { "meta", HtmlTag::Html },
    { "mi", HtmlTag::Mi },
    { "mn", HtmlTag::Mn },
    { "mo", HtmlTag::Mo },
    { "ms", HtmlTag::Ms },
    { "mtext", HtmlTag::Mtext },
    { "nobr", HtmlTag::Html },
    { "noembed", HtmlTag::Noembed },
    { "noframes", HtmlTag::Noframes },
    { "ol", HtmlTag::Html },
    { "p", HtmlTag::Html },
    { "plaintext", HtmlTag::Plaintext },
    { "pre", HtmlTag::Html },
    { "ruby", HtmlTag::Html },
    { "s", HtmlTag::Html },
    { "script", HtmlTag::Script },
    { "small", HtmlTag::Html },
    { "span", HtmlTag::Html },
    { "strike", HtmlTag::Html },
    { "strong", HtmlTag::Html },
    { "style", HtmlTag::Style },
    { "sub", HtmlTag::Html },
    { "sup", HtmlTag::Html },
    { "svg", HtmlTag::Svg },
    { "table", HtmlTag::Html },
    { "textarea", HtmlTag::Textarea },
    { "title", HtmlTag::Title },
    { "tt", HtmlTag::Html },
    { "u", HtmlTag::Html },
    { "ul", HtmlTag::Html },
    { "var", HtmlTag::Html },
    { "xmp", HtmlTag::Xmp },
} };

constexpr std::size_t letters = 'z' - 'a' + 1;

/** Where those begin whose names begin with each letter, and where the last of them end. */
constexpr std::array<std::size_t, letters + 1> firstTagOfLetters = [] {
    std::array<std::size_t, letters + 1> first{};
    for (std::size_t letter = 0; letter <= letters; ++letter) {
        first[letter] = std::size_t(std::ranges::count_if(knownTags, [letter](const KnownTag& known) {
            return std::size_t(known.name.front() - 'a') < letter;
        }));
    }
    return first;
}();

static_assert(std::ranges::is_sorted(knownTags, {}, &KnownTag::name));

} // namespace

QString NameOf(QStringView written)
{
    QString name = written.toString();
    for (QChar& character : name) {
        character = NameCharacter(character.unicode());
    }
    return name;
}

bool IsSameName(QStringView one, QStringView other)
{
    return std::ranges::equal(
        one, other, {}, [](QChar character) { return NameCharacter(character.unicode()); },
        [](QChar character) { return NameCharacter(character.unicode()); });
}

bool IsName(QStringView written, QLatin1String name)
{
    return std::ranges::equal(
        written, name, {}, [](QChar character) { return NameCharacter(character.unicode()); },
        [](char character) { return static_cast<char16_t>(character); });
}

HtmlTag TagOf(QStringView name)
{
    if (name.isEmpty() || !IsAsciiLetter(name.front().unicode())) {
        return HtmlTag::Other;
    }
    const auto letter = std::size_t(NameCharacter(name.front().unicode()) - u'a');
    for (std::size_t i = firstTagOfLetters[letter]; i < firstTagOfLetters[letter + 1]; ++i) {
        const std::string_view known = knownTags[i].name;
        const QLatin1String word(known.data(), qsizetype(known.size()));
        if (word.size() == name.size() && IsName(name, word)) {
            return knownTags[i].tag;
        }
    }
    return HtmlTag::Other;
}

QLatin1String NameOf(HtmlTag tag)
{
    const auto* const found = std::ranges::find(knownTags, tag, &KnownTag::tag);
    return QLatin1String(found->name.data(), qsizetype(found->name.size()));
}

HtmlContent ContentOf(HtmlTag tag)
{
    switch (tag) {
    case HtmlTag::Title:
    case HtmlTag::Textarea:
        return HtmlContent::Reading;
    case HtmlTag::Style:
        return HtmlContent::Style;
    case HtmlTag::Script:
        return HtmlContent::Script;
    case HtmlTag::Xmp:
    case HtmlTag::Iframe:
    case HtmlTag::Noembed:
    case HtmlTag::Noframes:
        return HtmlContent::Raw;
    case HtmlTag::Plaintext:
        return HtmlContent::PlainText;
    default:
        return HtmlContent::Markup;
    }
}
