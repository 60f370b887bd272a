#include "html/HtmlTokens.h"

#include <QSet>
#include <algorithm>

namespace {

/** A name as the key of a set. */
struct AttributeName
{
    QStringView written;

    bool operator==(const AttributeName& other) const { return IsSameName(written, other.written); }
};

std::size_t qHash(const AttributeName& name, std::size_t seed)
{
    for (const QChar character : name.written) {
        seed = ::qHash(NameCharacter(character.unicode()), seed);
    }
    return seed;
}

/** Marks those that have a namesake before them. */
void MarkDuplicates(std::vector<HtmlAttribute>& attributes, QStringView text)
{
    // A few are compared faster than they are put into a set.
    constexpr std::size_t few = 12;
    if (attributes.size() > few) {
        QSet<AttributeName> known;
        known.reserve(qsizetype(attributes.size()));
        for (HtmlAttribute& attribute : attributes) {
            const qsizetype before = known.size();
            known.insert({ attribute.name.In(text) });
            attribute.isDuplicate = known.size() == before;
        }
        return;
    }
    for (auto one = attributes.begin(); one != attributes.end(); ++one) {
        one->isDuplicate = std::any_of(attributes.begin(), one, [&](const HtmlAttribute& other) {
            return IsSameName(other.name.In(text), one->name.In(text));
        });
    }
}

HtmlToken::Kind KindOf(HtmlPartKind opening)
{
    switch (opening) {
    case HtmlPartKind::TagOpen:
        return HtmlToken::Kind::StartTag;
    case HtmlPartKind::EndTagOpen:
        return HtmlToken::Kind::EndTag;
    case HtmlPartKind::CommentOpen:
        return HtmlToken::Kind::Comment;
    case HtmlPartKind::DoctypeOpen:
        return HtmlToken::Kind::Doctype;
    case HtmlPartKind::CDataOpen:
        return HtmlToken::Kind::CData;
    default:
        return HtmlToken::Kind::Text;
    }
}

bool IsClosing(HtmlPartKind kind)
{
    return kind == HtmlPartKind::TagClose || kind == HtmlPartKind::CommentClose ||
           kind == HtmlPartKind::DoctypeClose || kind == HtmlPartKind::CDataClose;
}

/** Makes `token` begin with its first part; a text is whole with it. */
void Begin(HtmlToken& token, const HtmlPart& part)
{
    token.attributes.clear();
    token.kind = KindOf(part.kind);
    const bool isText = token.kind == HtmlToken::Kind::Text;
    token.whole = part.place;
    token.name = { part.place.End(), 0 };
    token.slash = -1;
    token.inside = isText ? part.place : token.name;
    token.content = isText ? part.content : HtmlContent::Markup;
    token.hasError = part.isError;
    token.isClosed = isText;
}

void AddToAttribute(HtmlAttribute& attribute, const HtmlPart& part, QStringView text)
{
    attribute.whole.length = part.place.End() - attribute.whole.offset;
    attribute.hasError = attribute.hasError || part.isError;
    switch (part.kind) {
    case HtmlPartKind::Equals:
        attribute.equals = part.place.offset;
        attribute.value = { part.place.End(), 0 };
        break;
    case HtmlPartKind::OpeningQuote:
        attribute.quote = text[part.place.offset].unicode();
        attribute.value = { part.place.End(), 0 };
        break;
    case HtmlPartKind::AttributeValue:
        attribute.value = part.place;
        break;
    default:
        break;
    }
}

/** Adds a part that neither begins nor ends the token. */
void Add(HtmlToken& token, const HtmlPart& part, QStringView text)
{
    switch (part.kind) {
    case HtmlPartKind::TagName:
        token.name = part.place;
        break;
    case HtmlPartKind::AttributeName:
        token.attributes.push_back({ .whole = part.place,
                                     .name = part.place,
                                     .value = { part.place.End(), 0 },
                                     .hasError = part.isError });
        break;
    case HtmlPartKind::SelfClosing:
        token.slash = part.place.offset;
        break;
    case HtmlPartKind::StraySlash:
        token.hasError = true;
        break;
    case HtmlPartKind::Text:
    case HtmlPartKind::Comment:
    case HtmlPartKind::Doctype:
        token.inside = part.place;
        break;
    default:
        AddToAttribute(token.attributes.back(), part, text);
        break;
    }
}

} // namespace

const HtmlAttribute* HtmlToken::Find(QStringView text, QLatin1String attribute) const
{
    const auto found = std::ranges::find_if(
        attributes, [&](const HtmlAttribute& one) { return IsName(one.name.In(text), attribute); });
    return found == attributes.end() ? nullptr : &*found;
}

HtmlTokens::HtmlTokens(QStringView text, const HtmlState& state, HtmlTags tags)
    : text_(text)
    , scanner_(text, state)
    , tags_(tags)
{
}

bool HtmlTokens::Next(HtmlToken& token)
{
    HtmlPart part;
    if (!scanner_.Next(part)) {
        return false;
    }
    Begin(token, part);
    while (!token.isClosed && scanner_.Next(part)) {
        if (tags_ == HtmlTags::Names && part.kind == HtmlPartKind::TagName) {
            scanner_.PassAttributes();
        }
        token.isClosed = IsClosing(part.kind);
        token.hasError = token.hasError || (token.isClosed && part.isError);
        if (!token.isClosed) {
            Add(token, part, text_);
        }
        token.whole.length = part.place.End() - token.whole.offset;
    }
    MarkDuplicates(token.attributes, text_);
    return true;
}
