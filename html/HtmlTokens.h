#pragma once

#include "html/HtmlScanner.h"

#include <vector>

/** An attribute in the source. */
struct HtmlAttribute
{
    HtmlSpan whole; ///< from its name to its closing quote
    HtmlSpan name;
    qsizetype equals = -1;    ///< where its "=" is, if it has one
    char16_t quote = 0;       ///< the kind of its quotes, if it has them
    HtmlSpan value;           ///< without the quotes; empty behind the name or the "=" if there is none
    bool isDuplicate = false; ///< another one of that name stands before it, so browsers do not see this one
    bool hasError = false;    ///< whether the standard calls something in it a parse error
};

/** A tag, a comment or a run of text, with the places of what it is made of. */
struct HtmlToken
{
    enum class Kind : quint8 { Text, StartTag, EndTag, Comment, Doctype, CData };

    Kind kind = Kind::Text;
    HtmlSpan whole;
    HtmlSpan name;                             ///< of a tag; that of "</>" is empty
    std::vector<HtmlAttribute> attributes;     ///< of a tag
    qsizetype slash = -1;                      ///< where the slash is that closes a tag with itself
    HtmlSpan inside;                           ///< what a comment, DOCTYPE or section holds, or the text
    HtmlContent content = HtmlContent::Markup; ///< what a text is
    bool hasError = false;                     ///< a parse error of the tag, outside its attributes
    bool isClosed = false;                     ///< false if the page ends before it does; then a tag is none

    /** The attribute of that name, in small letters, as browsers find it; nullptr if there is none. */
    [[nodiscard]] const HtmlAttribute* Find(QStringView text, QLatin1String attribute) const;
};

/** What is read of tags. */
enum class HtmlTags : quint8 {
    Whole,
    Names ///< without attributes, and without the errors and the slash among them: for whoever asks for few
};

/** The tokens of a page, one after the other: the parts that HtmlScanner finds, put together. */
class HtmlTokens
{
public:
    /** `text` must outlive this. From a state within a tag or comment, what is left of that comes as texts.
     */
    explicit HtmlTokens(QStringView text, const HtmlState& state = {}, HtmlTags tags = HtmlTags::Whole);

    /** Puts the next token into `token`, whose memory it uses again; false at the end. */
    bool Next(HtmlToken& token);

    /** How the text goes on behind the token that came last. */
    [[nodiscard]] const HtmlState& State() const { return scanner_.State(); }

private:
    QStringView text_;
    HtmlScanner scanner_;
    HtmlTags tags_;
};
