#include "html/HtmlScanner.h"

#include <array>

namespace {

constexpr int endOfPage = -1;

constexpr QLatin1String commentOpen("<!--");
constexpr QLatin1String doctypeOpen("<!doctype");
constexpr QLatin1String cdataOpen("<![CDATA[");

} // namespace

HtmlScanner::HtmlScanner(QStringView text, HtmlState state, HtmlEnd end)
    : text_(text)
    , state_(state)
    , behind_(end == HtmlEnd::OfLine ? '\n' : endOfPage)
{
}

HtmlScanner::Step HtmlScanner::StepOf(HtmlMode mode)
{
    static constexpr std::array steps = {
        &HtmlScanner::ReadData,
        &HtmlScanner::ReadRawText,
        &HtmlScanner::ReadScript,
        &HtmlScanner::ReadScript,
        &HtmlScanner::ReadScript,
        &HtmlScanner::ReadPlainText,
        &HtmlScanner::ReadCData,
        &HtmlScanner::ReadTagName,
        &HtmlScanner::ReadTextEndTagName,
        &HtmlScanner::ReadInTag,
        &HtmlScanner::ReadAfterAttributeName,
        &HtmlScanner::ReadBeforeValue,
        &HtmlScanner::ReadQuotedValue,
        &HtmlScanner::ReadQuotedValue,
        &HtmlScanner::ReadAfterQuotedValue,
        &HtmlScanner::ReadSelfClosed,
        &HtmlScanner::ReadCommentStart,
        &HtmlScanner::ReadComment,
        &HtmlScanner::ReadBogusComment,
        &HtmlScanner::ReadDoctype,
    };
    static_assert(steps.size() == std::size_t(HtmlMode::Doctype) + 1);
    return steps[std::size_t(mode)];
}

bool HtmlScanner::Next(HtmlPart& part)
{
    while (at_ < text_.size()) {
        if ((this->*StepOf(state_.mode))()) {
            part = part_;
            return true;
        }
    }
    if (behind_ != endOfPage) {
        PassLineEnd();
    }
    return false;
}

/** What a line end makes of the modes that do not outlast it; all others were left in sight of it. */
void HtmlScanner::PassLineEnd()
{
    if (state_.mode == HtmlMode::AfterQuotedValue) {
        state_.mode = HtmlMode::InTag;
    } else if (state_.mode == HtmlMode::CommentStart) {
        state_.mode = HtmlMode::Comment;
    }
}

/** The character there, or `behind_` at the end. */
int HtmlScanner::At(qsizetype index) const
{
    return index < text_.size() ? text_[index].unicode() : behind_;
}

bool HtmlScanner::HasWord(qsizetype at, QLatin1String word) const
{
    return text_.size() - at >= word.size() && IsName(text_.sliced(at, word.size()), word);
}

bool HtmlScanner::Emit(HtmlPartKind kind, qsizetype length, HtmlMode next)
{
    part_ = { .place = { at_, length }, .kind = kind };
    at_ += length;
    state_.mode = next;
    return true;
}

bool HtmlScanner::EmitError(HtmlPartKind kind, qsizetype length, HtmlMode next)
{
    (void)Emit(kind, length, next);
    part_.isError = true;
    return true;
}

/** Makes a text of what stands before `end`, without a change of mode. */
bool HtmlScanner::EmitText(HtmlContent content, qsizetype end)
{
    (void)Emit(HtmlPartKind::Text, end - at_, state_.mode);
    part_.content = content;
    return true;
}

/** Makes a part of the text up to `end`, and when there is none, of what closes it. */
bool HtmlScanner::ReadUpTo(HtmlPartKind kind, qsizetype end, HtmlPartKind closing, qsizetype closingLength)
{
    return end > at_ ? Emit(kind, end - at_, state_.mode) : Emit(closing, closingLength, HtmlMode::Data);
}

/** Whether a "<" begins markup, by what is behind it. */
bool HtmlScanner::StartsMarkup(qsizetype behindAngle) const
{
    const int first = At(behindAngle);
    const bool isEndTag = first == '/' && At(behindAngle + 1) != endOfPage;
    return IsAsciiLetter(first) || isEndTag || first == '!' || first == '?';
}

bool HtmlScanner::ReadData()
{
    qsizetype angle = text_.indexOf(u'<', at_);
    while (angle >= 0 && !StartsMarkup(angle + 1)) {
        angle = text_.indexOf(u'<', angle + 1);
    }
    if (angle == at_) {
        return ReadMarkup();
    }
    return Emit(HtmlPartKind::Text, OrEnd(angle) - at_, HtmlMode::Data);
}

/** What a "<" begins that StartsMarkup(). */
bool HtmlScanner::ReadMarkup()
{
    switch (At(at_ + 1)) {
    case '!':
        return ReadDeclaration();
    case '?':
        return EmitError(HtmlPartKind::CommentOpen, 1, HtmlMode::BogusComment);
    case '/':
        return ReadEndTagOpen();
    default:
        state_.isEndTag = false;
        return Emit(HtmlPartKind::TagOpen, 1, HtmlMode::TagName);
    }
}

bool HtmlScanner::ReadEndTagOpen()
{
    constexpr qsizetype length = 2;
    const int first = At(at_ + length);
    if (!IsAsciiLetter(first) && first != '>') {
        return EmitError(HtmlPartKind::CommentOpen, length, HtmlMode::BogusComment);
    }
    state_.isEndTag = true;
    return first == '>' ? EmitError(HtmlPartKind::EndTagOpen, length, HtmlMode::InTag)
                        : Emit(HtmlPartKind::EndTagOpen, length, HtmlMode::TagName);
}

bool HtmlScanner::ReadDeclaration()
{
    constexpr qsizetype bogusLength = 2;
    if (HasWord(at_, commentOpen)) {
        return Emit(HtmlPartKind::CommentOpen, commentOpen.size(), HtmlMode::CommentStart);
    }
    if (HasWord(at_, doctypeOpen)) {
        return Emit(HtmlPartKind::DoctypeOpen, doctypeOpen.size(), HtmlMode::Doctype);
    }
    if (state_.foreign.IsForeign() && text_.sliced(at_).startsWith(cdataOpen)) {
        return Emit(HtmlPartKind::CDataOpen, cdataOpen.size(), HtmlMode::CData);
    }
    return EmitError(HtmlPartKind::CommentOpen, bogusLength, HtmlMode::BogusComment);
}

bool HtmlScanner::ReadCData()
{
    const qsizetype end = Find(u"]]>");
    return end > at_ ? EmitText(HtmlContent::CData, end) : Emit(HtmlPartKind::CDataClose, 3, HtmlMode::Data);
}

bool HtmlScanner::ReadCommentStart()
{
    const qsizetype dash = At(at_) == '-' ? 1 : 0;
    if (At(at_ + dash) == '>') {
        return EmitError(HtmlPartKind::CommentClose, dash + 1, HtmlMode::Data);
    }
    state_.mode = HtmlMode::Comment;
    return false;
}

/** A comment ends at "-->", and at "--!>" as well. */
bool HtmlScanner::ReadComment()
{
    qsizetype end = Find(u"--");
    while (end < text_.size()) {
        const qsizetype bang = At(end + 2) == '!' ? 1 : 0;
        if (At(end + 2 + bang) == '>') {
            break;
        }
        end = OrEnd(text_.indexOf(u"--", end + 1));
    }
    const qsizetype closing = At(end + 2) == '!' ? 4 : 3;
    return ReadUpTo(HtmlPartKind::Comment, end, HtmlPartKind::CommentClose, closing);
}

bool HtmlScanner::ReadBogusComment()
{
    return ReadUpTo(HtmlPartKind::Comment, Find(u'>'), HtmlPartKind::CommentClose, 1);
}

/** Nothing in it hides its end, not even quotes. */
bool HtmlScanner::ReadDoctype()
{
    return ReadUpTo(HtmlPartKind::Doctype, Find(u'>'), HtmlPartKind::DoctypeClose, 1);
}
