#pragma once

#include <QStringView>

/** A place in a text, in UTF-16 units. */
struct HtmlSpan
{
    qsizetype offset = 0;
    qsizetype length = 0;

    [[nodiscard]] constexpr qsizetype End() const { return offset + length; }
    [[nodiscard]] QStringView In(QStringView text) const { return text.sliced(offset, length); }

    bool operator==(const HtmlSpan&) const = default;
};

/** What a part of the source is. Blanks between the parts of a tag belong to none. */
enum class HtmlPartKind : quint8 {
    Text,
    TagOpen,    ///< "<"
    EndTagOpen, ///< "</"
    TagName,    ///< only "</>" has none
    AttributeName,
    Equals,
    OpeningQuote,
    AttributeValue, ///< without its quotes; an empty one is no part
    ClosingQuote,
    StraySlash,  ///< one that no ">" follows
    SelfClosing, ///< the slash of "/>"
    TagClose,    ///< ">"
    CommentOpen, ///< "<!--", or "<!", "<", "</" of what browsers take for a comment
    Comment,
    CommentClose, ///< "-->", "--!>", or whatever else closes it
    DoctypeOpen,
    Doctype,
    DoctypeClose,
    CDataOpen,
    CDataClose
};

/** What a text is, which decides what ends it and whether character references are read in it. */
enum class HtmlContent : quint8 {
    Markup,  ///< between tags
    Reading, ///< of `title` and `textarea`: references, but no tags
    Style,
    Script,
    Raw,       ///< of the other elements in which everything up to their end tag is text
    PlainText, ///< all that follows `plaintext`
    CData
};

/** Whether a text holds character references. */
[[nodiscard]] constexpr bool HoldsReferences(HtmlContent content)
{
    return content == HtmlContent::Markup || content == HtmlContent::Reading;
}

struct HtmlPart
{
    HtmlSpan place;
    HtmlPartKind kind = HtmlPartKind::Text;
    HtmlContent content = HtmlContent::Markup; ///< of `Text`
    bool isError = false; ///< whether the HTML standard calls it a parse error in its place
};
