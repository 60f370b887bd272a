#pragma once

#include "html/ForeignNesting.h"
#include "html/HtmlCursor.h"
#include "html/HtmlPart.h"

/** Where the scanner stands: the states of the HTML standard's tokenizer, less those that one look ahead
 * spares. */
enum class HtmlMode : quint8 {
    Data,
    RawText,
    Script,
    ScriptEscaped,       ///< behind "<!--"
    ScriptDoubleEscaped, ///< and then "<script"
    PlainText,
    CData,
    TagName,
    TextEndTagName,
    InTag,
    AfterAttributeName,
    BeforeValue,
    DoubleQuotedValue,
    SingleQuotedValue,
    AfterQuotedValue,
    SelfClosed,
    CommentStart,
    Comment,
    BogusComment,
    Doctype
};

/** What has to be known of the lines before to go on with the next. From equal states, all goes on alike. */
struct HtmlState
{
    HtmlMode mode = HtmlMode::Data;
    HtmlTag tag = HtmlTag::Other; ///< the one that is being read, or whose text this is
    bool isEndTag = false;
    bool isHtmlFont = false; ///< of `font`: whether it has one of the attributes that make it HTML's
    ForeignNesting foreign;

    bool operator==(const HtmlState&) const = default;
};
// One is kept for every line of a document.
static_assert(sizeof(HtmlState) == 16);

/** How far a scanner is: where it reads, in what state, and the part that it made last. */
class HtmlReading
{
public:
    /** The state behind the part that came last; behind the whole text once that has been read. */
    [[nodiscard]] const HtmlState& State() const { return state_; }

protected:
    HtmlReading(QStringView text, const HtmlState& state, HtmlEnd end)
        : cursor_(text, end)
        , state_(state)
    {
    }

    // Each makes a part of what comes next, and is true.

    bool Emit(HtmlPartKind kind, qsizetype length, HtmlMode next)
    {
        part_ = { .place = { cursor_.at, length }, .kind = kind };
        cursor_.at += length;
        state_.mode = next;
        return true;
    }

    bool EmitError(HtmlPartKind kind, qsizetype length, HtmlMode next)
    {
        (void)Emit(kind, length, next);
        part_.isError = true;
        return true;
    }

    /** Makes a text of what stands before `end`, without a change of mode. */
    bool EmitText(HtmlContent content, qsizetype end)
    {
        (void)Emit(HtmlPartKind::Text, end - cursor_.at, state_.mode);
        part_.content = content;
        return true;
    }

    /** Makes a part of the text up to `end`, and when there is none, of what closes it. */
    bool EmitUpTo(HtmlPartKind kind, qsizetype end, HtmlPartKind closing, qsizetype closingLength)
    {
        return end > cursor_.at ? Emit(kind, end - cursor_.at, state_.mode)
                                : Emit(closing, closingLength, HtmlMode::Data);
    }

    /** What a line end makes of the modes that do not outlast it; all others were left in sight of it. */
    void PassLineEnd()
    {
        if (state_.mode == HtmlMode::AfterQuotedValue) {
            state_.mode = HtmlMode::InTag;
        } else if (state_.mode == HtmlMode::CommentStart) {
            state_.mode = HtmlMode::Comment;
        }
    }

    HtmlCursor cursor_;
    HtmlState state_;
    HtmlPart part_;
};
