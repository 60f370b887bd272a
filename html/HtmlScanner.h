#pragma once

#include "html/HtmlReading.h"

/**
 * Takes HTML to pieces as the tokenizer of the HTML standard (html.spec.whatwg.org) does, one part after the
 * other, in one pass, and without a copy of the text. Nothing is ever wrong: every text has its parts, all in
 * order.
 *
 * A text may be read line by line: give the state behind one to the scanner of the next. The parts are then
 * those of the whole text, cut at the line ends. The line end that is taken to follow changes nothing behind
 * a blank or a ">", so a long line may be cut there too.
 */
class HtmlScanner : public HtmlReading
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

    bool ReadTextUpTo(qsizetype end);
    bool CloseTag();
};
