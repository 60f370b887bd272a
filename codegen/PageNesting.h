#pragma once

#include "html/HtmlTokens.h"

#include <vector>

/** What may stand in an element, as far as it matters for putting a paragraph into a page. */
enum class ElementHolds {
    Flow,      ///< paragraphs and all else
    Phrasing,  ///< text with its marks, but no paragraph
    Structure, ///< only elements of its own kind, such as the rows of a table
    Nothing,   ///< it has no end tag
};

[[nodiscard]] ElementHolds ContentOfElement(QStringView name);

/**
 * Which elements are open in a page, token by token. Missing end tags are taken for given where the HTML
 * standard (html.spec.whatwg.org) does; wrongly nested ones close what they find.
 */
class PageNesting
{
public:
    struct Element
    {
        QStringView name; ///< as written
        qsizetype start;  ///< where its tag begins
        bool isLink;      ///< `a` that leads somewhere

        bool operator==(const Element&) const = default;
    };

    /** `page` must outlive this. */
    explicit PageNesting(QStringView page)
        : page_(page)
    {
    }

    /** Takes the next token; `state` is the reader's behind it. */
    void Take(const HtmlToken& token, const HtmlState& state);

    /** From the outermost to the innermost; `html`, `head` and `body` are none of them. */
    [[nodiscard]] const std::vector<Element>& Open() const { return open_; }

private:
    void TakeStart(const HtmlToken& token, bool isForeign);
    void TakeEnd(const HtmlToken& token);
    void CloseImplied(QStringView opening);

    QStringView page_;
    std::vector<Element> open_;
};
