#pragma once

#include "html/HtmlTokens.h"

#include <optional>

/** Where the head and the body of a page begin and end, whether their tags are written or not. */
class PageFrame
{
public:
    /** `page` must outlive this. */
    explicit PageFrame(QStringView page)
        : page_(page)
    {
    }

    /** Takes the next token, and whether it is inside an element that is neither of the two. */
    void Take(const HtmlToken& token, bool isNested);

    /** Whether anything says that the page has a head; a fragment has none. */
    [[nodiscard]] bool HasHead() const { return hasHead_; }

    /** The end of the head's content. */
    [[nodiscard]] qsizetype HeadEnd() const { return headEnd_; }

    /** What stands in front of it is in no body. */
    [[nodiscard]] qsizetype BodyStart() const { return bodyStart_; }

    /** The end of the body's content, if a tag tells it. */
    [[nodiscard]] std::optional<qsizetype> BodyEnd() const { return bodyEnd_; }

private:
    void TakeHead(const HtmlToken& token);
    void EndHead(qsizetype end);
    [[nodiscard]] bool HasEndTag(const HtmlToken& token) const;
    [[nodiscard]] bool IsOfHead(const HtmlToken& token) const;
    [[nodiscard]] bool IsTag(const HtmlToken& token, HtmlToken::Kind kind, QLatin1String name) const;

    QStringView page_;
    bool isInBody_ = false;
    bool isHeadEnded_ = false;
    bool hasHead_ = false;
    qsizetype headEnd_ = 0;
    qsizetype bodyStart_ = 0;
    std::optional<qsizetype> bodyEnd_ = {};
};
