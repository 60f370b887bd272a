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

/** Looks for the ">" that ends a tag, as the modes inside tags would find it. */
class AttributePasser
{
public:
    /** `at` is behind the tag's name. */
    AttributePasser(QStringView text, qsizetype at)
        : at_(text.begin() + at)
        , begin_(text.begin())
        , end_(text.end())
    {
    }

    /** False if the text ends before. */
    bool Run()
    {
        while (PassSpaces()) {
            if (*at_ == u'>') {
                return true;
            }
            isSelfClosing_ = *at_ == u'/';
            if (isSelfClosing_) {
                ++at_;
                isSelfClosing_ = at_ != end_ && *at_ == u'>';
            } else if (!PassAttribute()) {
                return false;
            }
        }
        return false;
    }

    [[nodiscard]] qsizetype End() const { return at_ - begin_; }
    [[nodiscard]] bool IsSelfClosing() const { return isSelfClosing_; }

private:
    /** False at the end of the text. */
    bool PassSpaces()
    {
        while (at_ != end_ && IsHtmlSpace(at_->unicode())) {
            ++at_;
        }
        return at_ != end_;
    }

    bool PassAttribute()
    {
        // A "=" in front is taken for a part of the name.
        at_ = std::find_if(at_ + 1, end_, EndsAttributeName);
        if (!PassSpaces() || *at_ != u'=') {
            return at_ != end_;
        }
        ++at_;
        return PassSpaces() && PassValue();
    }

    bool PassValue()
    {
        const QChar first = *at_;
        if (first == u'"' || first == u'\'') {
            const QStringView rest(at_ + 1, end_);
            const qsizetype length = rest.indexOf(first);
            at_ = length < 0 ? end_ : rest.begin() + length + 1;
        } else {
            at_ = std::find_if(at_, end_, EndsUnquotedValue);
        }
        return at_ != end_;
    }

    QStringView::const_iterator at_;
    QStringView::const_iterator begin_;
    QStringView::const_iterator end_;
    bool isSelfClosing_ = false;
};

} // namespace

bool HtmlScanner::ReadTagName()
{
    const qsizetype length = LengthBefore(cursor_.Rest(), EndsTagName);
    state_.tag = TagOf(cursor_.text.sliced(cursor_.at, length));
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

bool HtmlScanner::ReadInTag()
{
    cursor_.PassSpaces();
    switch (cursor_.At(cursor_.at)) {
    case '/':
        return ReadSlash();
    case '>':
        return CloseTag();
    default:
        return !cursor_.IsAtEnd() && ReadAttributeName();
    }
}

bool HtmlScanner::ReadSlash()
{
    return cursor_.At(cursor_.at + 1) == '>' ? Emit(HtmlPartKind::SelfClosing, 1, HtmlMode::SelfClosed)
                                             : EmitError(HtmlPartKind::StraySlash, 1, HtmlMode::InTag);
}

bool HtmlScanner::ReadAttributeName()
{
    // A "=" in front is taken for a part of the name.
    const qsizetype length = 1 + LengthBefore(cursor_.text.sliced(cursor_.at + 1), EndsAttributeName);
    const QStringView name = cursor_.text.sliced(cursor_.at, length);
    state_.isHtmlFont = state_.isHtmlFont || (state_.tag == HtmlTag::Font && IsFontAttribute(name));
    (void)Emit(HtmlPartKind::AttributeName, length, HtmlMode::AfterAttributeName);
    part_.isError = name.front() == u'=' || std::ranges::any_of(name, IsOddInName);
    return true;
}

bool HtmlScanner::ReadAfterAttributeName()
{
    cursor_.PassSpaces();
    if (cursor_.At(cursor_.at) == '=') {
        return Emit(HtmlPartKind::Equals, 1, HtmlMode::BeforeValue);
    }
    if (!cursor_.IsAtEnd()) {
        state_.mode = HtmlMode::InTag;
    }
    return false;
}

bool HtmlScanner::ReadBeforeValue()
{
    cursor_.PassSpaces();
    if (cursor_.IsAtEnd()) {
        return false;
    }
    switch (cursor_.At(cursor_.at)) {
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
    const qsizetype length = LengthBefore(cursor_.Rest(), EndsUnquotedValue);
    (void)Emit(HtmlPartKind::AttributeValue, length, HtmlMode::InTag);
    part_.isError = std::ranges::any_of(part_.place.In(cursor_.text), IsOddInValue);
    return true;
}

bool HtmlScanner::ReadQuotedValue()
{
    const qsizetype end = cursor_.Find(state_.mode == HtmlMode::DoubleQuotedValue ? u'"' : u'\'');
    return end > cursor_.at ? Emit(HtmlPartKind::AttributeValue, end - cursor_.at, state_.mode)
                            : Emit(HtmlPartKind::ClosingQuote, 1, HtmlMode::AfterQuotedValue);
}

bool HtmlScanner::ReadAfterQuotedValue()
{
    state_.mode = HtmlMode::InTag;
    if (IsHtmlSpace(cursor_.At(cursor_.at)) || !ReadInTag()) {
        return false;
    }
    // An attribute should have a blank in front.
    part_.isError = part_.isError || part_.kind == HtmlPartKind::AttributeName;
    return true;
}

void HtmlScanner::PassAttributes()
{
    if (state_.mode != HtmlMode::InTag || state_.tag == HtmlTag::Font) {
        return;
    }
    AttributePasser passer(cursor_.text, cursor_.at);
    if (passer.Run()) {
        cursor_.at = passer.End();
        state_.mode = passer.IsSelfClosing() ? HtmlMode::SelfClosed : HtmlMode::InTag;
    }
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
