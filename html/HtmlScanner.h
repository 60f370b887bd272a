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

/**
 * Takes HTML to pieces as the tokenizer of the HTML standard (html.spec.whatwg.org) does, one part after the
 * other, in one pass, and without a copy of the text. Nothing is ever wrong: every text has its parts, all in
 * order.
 *
 * A text may be read line by line: give the state behind one to the scanner of the next. The parts are then
 * those of the whole text, cut at the line ends. The line end that is taken to follow changes nothing behind
 * a blank or a ">", so a long line may be cut there too.
 */
class HtmlScanner
{
public:
    /** `text` must outlive the scanner. */
    explicit HtmlScanner(QStringView text, HtmlState state = {}, HtmlEnd end = HtmlEnd::OfPage);

    /** Puts the next part into `part`; false at the end. */
    bool Next(HtmlPart& part);

    /**
     * Behind the name of a tag, passes over its attributes, so that the part that comes next is the ">" that
     * ends it. Does nothing where they count for how the text goes on, or where there is no such ">".
     */
    void PassAttributes();

    /** The state behind the part that came last; behind the whole text once Next() was false. */
    [[nodiscard]] const HtmlState& State() const { return state_; }

private:
    using Step = bool (HtmlScanner::*)();
    static Step StepOf(HtmlMode mode);

    // Each goes on from the cursor: true when that made a part, false when it made only another mode.
    bool ReadData();
    bool ReadMarkup();
    bool ReadEndTagOpen();
    bool ReadDeclaration();
    bool ReadCData();
    bool ReadPlainText();
    bool ReadRawText();
    bool ReadScript();
    bool ReadCommentStart();
    bool ReadComment();
    bool ReadBogusComment();
    bool ReadDoctype();
    bool ReadTagName();
    bool ReadTextEndTagName();
    bool ReadInTag();
    bool ReadSlash();
    bool ReadAttributeName();
    bool ReadAfterAttributeName();
    bool ReadBeforeValue();
    bool ReadUnquotedValue();
    bool ReadQuotedValue();
    bool ReadAfterQuotedValue();

    bool ReadUpTo(HtmlPartKind kind, qsizetype end, HtmlPartKind closing, qsizetype closingLength);
    bool ReadTextUpTo(qsizetype end);
    bool CloseTag();

    bool Emit(HtmlPartKind kind, qsizetype length, HtmlMode next);
    bool EmitError(HtmlPartKind kind, qsizetype length, HtmlMode next);
    bool EmitText(HtmlContent content, qsizetype end);
    void PassLineEnd();

    HtmlCursor cursor_;
    HtmlState state_;
    HtmlPart part_;
};
