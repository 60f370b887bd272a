#include "html/HtmlScanner.h"

#include <array>

namespace {

constexpr QLatin1String commentOpen("<!--");
constexpr QLatin1String doctypeOpen("<!doctype");
constexpr QLatin1String cdataOpen("<![CDATA[");

/** Whether a "<" begins markup, by what is behind it. */
bool StartsMarkup(const HtmlCursor& cursor, qsizetype behindAngle)
{
    const int first = cursor.At(behindAngle);
    const bool isEndTag = first == '/' && cursor.At(behindAngle + 1) != HtmlCursor::endOfPage;
    return IsAsciiLetter(first) || isEndTag || first == '!' || first == '?';
}

} // namespace

HtmlScanner::HtmlScanner(QStringView text, HtmlState state, HtmlEnd end)
    : HtmlReading(text, state, end)
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
        &HtmlScanner::CloseTag,
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
    while (!cursor_.IsAtEnd()) {
        if ((this->*StepOf(state_.mode))()) {
            part = part_;
            return true;
        }
    }
    if (cursor_.behind != HtmlCursor::endOfPage) {
        PassLineEnd();
    }
    return false;
}

bool HtmlScanner::ReadData()
{
    qsizetype angle = cursor_.Find(u'<');
    while (angle < cursor_.text.size() && !StartsMarkup(cursor_, angle + 1)) {
        angle = cursor_.Find(u'<', angle + 1);
    }
    if (angle == cursor_.at) {
        return ReadMarkup();
    }
    return Emit(HtmlPartKind::Text, angle - cursor_.at, HtmlMode::Data);
}

/** What a "<" begins that StartsMarkup(). */
bool HtmlScanner::ReadMarkup()
{
    switch (cursor_.At(cursor_.at + 1)) {
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
    const int first = cursor_.At(cursor_.at + length);
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
    if (cursor_.HasWord(cursor_.at, commentOpen)) {
        return Emit(HtmlPartKind::CommentOpen, commentOpen.size(), HtmlMode::CommentStart);
    }
    if (cursor_.HasWord(cursor_.at, doctypeOpen)) {
        return Emit(HtmlPartKind::DoctypeOpen, doctypeOpen.size(), HtmlMode::Doctype);
    }
    if (state_.foreign.IsForeign() && cursor_.Rest().startsWith(cdataOpen)) {
        return Emit(HtmlPartKind::CDataOpen, cdataOpen.size(), HtmlMode::CData);
    }
    return EmitError(HtmlPartKind::CommentOpen, bogusLength, HtmlMode::BogusComment);
}

bool HtmlScanner::ReadCData()
{
    const qsizetype end = cursor_.Find(u"]]>");
    return end > cursor_.at ? EmitText(HtmlContent::CData, end)
                            : Emit(HtmlPartKind::CDataClose, 3, HtmlMode::Data);
}

bool HtmlScanner::ReadCommentStart()
{
    const qsizetype dash = cursor_.At(cursor_.at) == '-' ? 1 : 0;
    if (cursor_.At(cursor_.at + dash) == '>') {
        return EmitError(HtmlPartKind::CommentClose, dash + 1, HtmlMode::Data);
    }
    state_.mode = HtmlMode::Comment;
    return false;
}

/** A comment ends at "-->", and at "--!>" as well. */
bool HtmlScanner::ReadComment()
{
    qsizetype end = cursor_.Find(u"--");
    while (end < cursor_.text.size()) {
        const qsizetype bang = cursor_.At(end + 2) == '!' ? 1 : 0;
        if (cursor_.At(end + 2 + bang) == '>') {
            break;
        }
        end = cursor_.Find(u"--", end + 1);
    }
    const qsizetype closing = cursor_.At(end + 2) == '!' ? 4 : 3;
    return EmitUpTo(HtmlPartKind::Comment, end, HtmlPartKind::CommentClose, closing);
}

bool HtmlScanner::ReadBogusComment()
{
    return EmitUpTo(HtmlPartKind::Comment, cursor_.Find(u'>'), HtmlPartKind::CommentClose, 1);
}

/** Nothing in it hides its end, not even quotes. */
bool HtmlScanner::ReadDoctype()
{
    return EmitUpTo(HtmlPartKind::Doctype, cursor_.Find(u'>'), HtmlPartKind::DoctypeClose, 1);
}
