#include "mapreader/TagChanges.h"

#include "html/CharacterReferences.h"

#include <QStringBuilder>
#include <algorithm>

namespace {

constexpr char16_t usualQuote = u'"';
constexpr QStringView emptyValue = u"\"\"";

bool IsBlank(QChar character)
{
    return IsHtmlSpace(character.unicode());
}

/** The value with the quotes around that it needs, of the wished kind; none if it is 0. */
QString Quoted(const QString& value, char16_t quote)
{
    if (quote == 0 && CanStandUnquoted(value)) {
        return EscapedFor(0, value);
    }
    const char16_t needed = quote == 0 ? usualQuote : quote;
    return QString(QChar(needed) % EscapedFor(needed, value) % QChar(needed));
}

/** The kind of quotes that an attribute added to the tag gets. */
char16_t QuoteOf(const PageTag& tag)
{
    const auto& attributes = tag.Attributes();
    const auto last = std::find_if(attributes.rbegin(), attributes.rend(), [](const HtmlAttribute& one) {
        return one.quote != 0 || one.value.length > 0;
    });
    return last == attributes.rend() ? usualQuote : last->quote;
}

/** Where the attributes end, or the name if there are none. */
qsizetype EndOfAttributes(const PageTag& tag)
{
    return tag.Attributes().empty() ? tag.Token().name.End() : tag.Attributes().back().whole.End();
}

bool IsInCapitals(QStringView name)
{
    const auto isSmall = [](QChar one) { return one >= u'a' && one <= u'z'; };
    const auto isLetter = [](QChar one) { return IsAsciiLetter(one.unicode()); };
    return std::ranges::any_of(name, isLetter) && std::ranges::none_of(name, isSmall);
}

/** What stands between the attributes of a tag: a line end where each has a line of its own. */
QString SeparatorOf(const PageTag& tag)
{
    const auto& attributes = tag.Attributes();
    QString separator(u' ');
    for (std::size_t i = 1; i < attributes.size(); ++i) {
        const qsizetype end = attributes[i - 1].whole.End();
        const QStringView between = tag.Page().sliced(end, attributes[i].whole.offset - end);
        const bool isLine = between.contains(u'\n') || between.contains(u'\r');
        if (!isLine || !std::ranges::all_of(between, IsBlank)) {
            return QString(u' ');
        }
        separator = between.toString();
    }
    return separator;
}

/** Makes the replacements of one tag. */
class TagChanger
{
public:
    explicit TagChanger(const PageTag& tag)
        : tag_(tag)
        , page_(tag.Page())
        , style_(StyleOf(tag))
    {
    }

    QList<TextReplacement> Run(const QList<AttributeWish>& wishes)
    {
        QString added;
        for (const AttributeWish& wish : wishes) {
            const HtmlAttribute* const attribute = Find(wish.name);
            if (attribute == nullptr) {
                added += wish.value.isNull() ? QString() : style_.separator + Written(wish, style_);
            } else if (wish.value.isNull()) {
                Remove(wish.name);
            } else if (tag_.ValueOf(*attribute) != wish.value) {
                SetValue(*attribute, wish.value);
            }
        }
        if (!added.isEmpty()) {
            Add(added);
        }
        std::ranges::sort(changes_, {}, [](const TextReplacement& one) { return one.Place.Start; });
        return changes_;
    }

private:
    [[nodiscard]] const HtmlAttribute* Find(const QString& name) const
    {
        const auto found = std::ranges::find_if(tag_.Attributes(), [&](const HtmlAttribute& attribute) {
            return IsSameName(attribute.name.In(page_), name);
        });
        return found == tag_.Attributes().end() ? nullptr : &*found;
    }

    void SetValue(const HtmlAttribute& attribute, const QString& value)
    {
        const TextSpan place{ attribute.value.offset, attribute.value.length };
        if (attribute.quote != 0) {
            changes_ << TextReplacement{ place, EscapedFor(attribute.quote, value) };
        } else if (attribute.equals < 0) {
            changes_ << TextReplacement{ place, u'=' + Quoted(value, style_.quote) };
        } else {
            changes_ << TextReplacement{ place, Quoted(value, 0) };
        }
    }

    void Remove(const QString& name)
    {
        for (const HtmlAttribute& attribute : tag_.Attributes()) {
            if (IsSameName(attribute.name.In(page_), name)) {
                const qsizetype start = attribute.whole.offset - BlankBefore(attribute);
                changes_ << TextReplacement{ { start, attribute.whole.End() - start }, {} };
            }
        }
    }

    /** The length of the blank in front of an attribute that can go with it. */
    [[nodiscard]] qsizetype BlankBefore(const HtmlAttribute& attribute) const
    {
        const QChar behind = page_[attribute.whole.End()];
        const bool isApart = IsBlank(behind) || behind == u'>' || behind == u'/';
        const qsizetype at = attribute.whole.offset;
        if (!isApart || !IsBlank(page_[at - 1])) {
            return 0;
        }
        return page_.first(at).endsWith(u"\r\n") ? 2 : 1;
    }

    /** Adds behind the last attribute, as part of what replaces its end if that is changed too. */
    void Add(const QString& added)
    {
        const qsizetype end = EndOfAttributes(tag_);
        const auto touching = std::ranges::find_if(changes_, [end](const TextReplacement& one) {
            return one.Place.Start + one.Place.Length == end;
        });
        if (touching == changes_.end()) {
            // Behind a "=" without a value, what is added would become one.
            const bool needsValue = page_[end - 1] == u'=' && !tag_.Attributes().empty() &&
                                    tag_.Attributes().back().equals == end - 1;
            changes_ << TextReplacement{ { end, 0 }, needsValue ? QString(emptyValue % added) : added };
        } else {
            touching->Text += added;
        }
    }

    const PageTag& tag_;
    QStringView page_;
    TagStyle style_;
    QList<TextReplacement> changes_;
};

/** The attributes of a tag as browsers see them, with all wishes fulfilled. */
QList<AttributeWish> Fulfilled(const PageTag& tag, const QList<AttributeWish>& wishes)
{
    QList<AttributeWish> attributes = AttributesOf(tag);
    for (const AttributeWish& wish : wishes) {
        const auto found = std::ranges::find(attributes, wish.name, &AttributeWish::name);
        if (found == attributes.end()) {
            attributes << wish;
        } else {
            found->value = wish.value;
        }
    }
    attributes.removeIf([](const AttributeWish& one) { return one.value.isNull(); });
    return attributes;
}

} // namespace

TagStyle StyleOf(const PageTag& tag)
{
    const QStringView page = tag.Page();
    const auto& attributes = tag.Attributes();
    const HtmlSpan& lastName = attributes.empty() ? tag.Token().name : attributes.back().name;
    const qsizetype end = EndOfAttributes(tag);
    const QStringView ending = page.sliced(end, tag.Token().whole.End() - end);
    const auto isOfEnding = [](QChar one) { return IsBlank(one) || one == u'/' || one == u'>'; };
    TagStyle style{ .inCapitals = IsInCapitals(lastName.In(page)),
                    .quote = QuoteOf(tag),
                    .separator = SeparatorOf(tag) };
    if (std::ranges::all_of(ending, isOfEnding)) {
        style.ending = ending.toString();
    }
    // A slash right behind would become part of a value without quotes.
    if (style.quote == 0 && style.ending.startsWith(u'/')) {
        style.quote = usualQuote;
    }
    return style;
}

QString Written(const AttributeWish& attribute, const TagStyle& style)
{
    const QString name = style.inCapitals ? attribute.name.toUpper() : attribute.name;
    return QString(name % u'=' % Quoted(attribute.value, style.quote));
}

QString Replaced(QStringView text, const QList<TextReplacement>& replacements, qsizetype offset)
{
    QString replaced;
    qsizetype at = 0;
    for (const TextReplacement& one : replacements) {
        replaced += text.sliced(at, one.Place.Start - offset - at);
        replaced += one.Text;
        at = one.Place.Start - offset + one.Place.Length;
    }
    return replaced += text.sliced(at);
}

std::optional<QList<TextReplacement>> ChangeTag(const PageTag& tag, const QList<AttributeWish>& wishes)
{
    const HtmlSpan& place = tag.Token().whole;
    QList<TextReplacement> changes = TagChanger(tag).Run(wishes);
    if (changes.isEmpty()) {
        return changes;
    }
    if (tag.Template() == TemplateCode::Cut) {
        return std::nullopt;
    }
    // Whatever is odd in the tag: what comes out has to be one tag, with what was wished for and all else as
    // it was.
    const QString changed = Replaced(place.In(tag.Page()), changes, place.offset);
    HtmlTokens tokens(changed);
    HtmlToken token;
    const bool isOne = tokens.Next(token) && token.isClosed && token.whole.length == changed.size();
    if (!isOne || (token.slash >= 0) != (tag.Token().slash >= 0)) {
        return std::nullopt;
    }
    const bool isAsWished = Fulfilled(PageTag(changed, token.whole), {}) == Fulfilled(tag, wishes);
    return isAsWished ? std::optional(changes) : std::nullopt;
}
