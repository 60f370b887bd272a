// The modes inside tags.

#include "html/HtmlScanner.h"

#include <algorithm>
#include <array>

namespace {

/** The attributes that make a `font` one of HTML's wherever it stands. */
constexpr std::array<QLatin1String, 3> fontAttributes = { QLatin1String("color"), QLatin1String("face"),
                                                          QLatin1String("size") };

bool EndsTagName(QChar character)
{
    return character == u'/' || character == u'>' || IsHtmlSpace(character.unicode());
}

bool EndsAttributeName(QChar character)
{
    return character == u'=' || EndsTagName(character);
}

bool EndsUnquotedValue(QChar character)
{
    return character == u'>' || IsHtmlSpace(character.unicode());
}

bool IsOddInName(QChar character)
{
    return character == u'"' || character == u'\'' || character == u'<';
}

bool IsOddInValue(QChar character)
{
    return IsOddInName(character) || character == u'=' || character == u'`';
}

/** How many characters of `text`, from its beginning, do not fulfil `isEnd`. */
template<class IsEnd> qsizetype LengthBefore(QStringView text, IsEnd isEnd)
{
    return std::ranges::find_if(text, isEnd) - text.begin();
}

bool IsFontAttribute(QStringView name)
{
    return std::ranges::any_of(
        fontAttributes, [name](QLatin1String attribute) { return IsName(name, attribute); });
}

/** How the content of an element is read. */
HtmlMode ModeOf(HtmlContent content)
{
    switch (content) {
    case HtmlContent::Reading:
    case HtmlContent::Style:
    case HtmlContent::Raw:
        return HtmlMode::RawText;
    case HtmlContent::Script:
        return HtmlMode::Script;
    case HtmlContent::PlainText:
        return HtmlMode::PlainText;
    default:
        return HtmlMode::Data;
    }
}

} // namespace

bool HtmlScanner::ReadTagName()
{
    const qsizetype length = LengthBefore(text_.sliced(at_), EndsTagName);
    state_.tag = TagOf(text_.sliced(at_, length));
    state_.isHtmlFont = false;
    return Emit(HtmlPartKind::TagName, length, HtmlMode::InTag);
}

/** The name of an end tag that ended a text, of which nothing else is to be known. */
bool HtmlScanner::ReadTextEndTagName()
{
    const qsizetype length = NameOf(state_.tag).size();
    state_.tag = HtmlTag::Other;
    return Emit(HtmlPartKind::TagName, length, HtmlMode::InTag);
}

void HtmlScanner::PassSpaces()
{
    while (at_ < text_.size() && IsHtmlSpace(text_[at_].unicode())) {
        ++at_;
    }
}

bool HtmlScanner::ReadInTag()
{
    PassSpaces();
    switch (At(at_)) {
    case '/':
        return ReadSlash();
    case '>':
        return CloseTag();
    default:
        return at_ < text_.size() && ReadAttributeName();
    }
}

bool HtmlScanner::ReadSlash()
{
    return At(at_ + 1) == '>' ? Emit(HtmlPartKind::SelfClosing, 1, HtmlMode::SelfClosed)
                              : EmitError(HtmlPartKind::StraySlash, 1, HtmlMode::InTag);
}

bool HtmlScanner::ReadSelfClosed()
{
    return CloseTag();
}

bool HtmlScanner::ReadAttributeName()
{
    // A "=" in front is taken for a part of the name.
    const qsizetype length = 1 + LengthBefore(text_.sliced(at_ + 1), EndsAttributeName);
    const QStringView name = text_.sliced(at_, length);
    state_.isHtmlFont = state_.isHtmlFont || (state_.tag == HtmlTag::Font && IsFontAttribute(name));
    (void)Emit(HtmlPartKind::AttributeName, length, HtmlMode::AfterAttributeName);
    part_.isError = name.front() == u'=' || std::ranges::any_of(name, IsOddInName);
    return true;
}

bool HtmlScanner::ReadAfterAttributeName()
{
    PassSpaces();
    if (At(at_) == '=') {
        return Emit(HtmlPartKind::Equals, 1, HtmlMode::BeforeValue);
    }
    if (at_ < text_.size()) {
        state_.mode = HtmlMode::InTag;
    }
    return false;
}

bool HtmlScanner::ReadBeforeValue()
{
    PassSpaces();
    if (at_ == text_.size()) {
        return false;
    }
    switch (At(at_)) {
    case '"':
        return Emit(HtmlPartKind::OpeningQuote, 1, HtmlMode::DoubleQuotedValue);
    case '\'':
        return Emit(HtmlPartKind::OpeningQuote, 1, HtmlMode::SingleQuotedValue);
    case '>':
        (void)CloseTag();
        part_.isError = true;
        return true;
    default:
        return ReadUnquotedValue();
    }
}

bool HtmlScanner::ReadUnquotedValue()
{
    const qsizetype length = LengthBefore(text_.sliced(at_), EndsUnquotedValue);
    (void)Emit(HtmlPartKind::AttributeValue, length, HtmlMode::InTag);
    part_.isError = std::ranges::any_of(part_.place.In(text_), IsOddInValue);
    return true;
}

bool HtmlScanner::ReadQuotedValue()
{
    const qsizetype end = Find(state_.mode == HtmlMode::DoubleQuotedValue ? u'"' : u'\'');
    return end > at_ ? Emit(HtmlPartKind::AttributeValue, end - at_, state_.mode)
                     : Emit(HtmlPartKind::ClosingQuote, 1, HtmlMode::AfterQuotedValue);
}

bool HtmlScanner::ReadAfterQuotedValue()
{
    state_.mode = HtmlMode::InTag;
    if (IsHtmlSpace(At(at_)) || !ReadInTag()) {
        return false;
    }
    // An attribute should have a blank in front.
    part_.isError = part_.isError || part_.kind == HtmlPartKind::AttributeName;
    return true;
}

/** Makes a part of the ">" that ends a tag, behind which the text goes on as the tag says. */
bool HtmlScanner::CloseTag()
{
    const HtmlTag tag = state_.tag;
    const bool isSelfClosing = state_.mode == HtmlMode::SelfClosed;
    const bool isHtml = !state_.isEndTag && state_.foreign.Open(tag, state_.isHtmlFont, isSelfClosing);
    if (state_.isEndTag) {
        state_.foreign.Close(tag);
    }
    const HtmlMode next = isHtml ? ModeOf(ContentOf(tag)) : HtmlMode::Data;
    if (next == HtmlMode::Data) {
        state_.tag = HtmlTag::Other;
    }
    state_.isEndTag = false;
    state_.isHtmlFont = false;
    return Emit(HtmlPartKind::TagClose, 1, next);
}
