#pragma once

#include "html/HtmlElements.h"
#include "html/HtmlTokens.h"

#include <vector>

/**
 * Which elements are open in a page, token by token. An end tag that may be left out is taken for given where
 * the HTML standard (html.spec.whatwg.org) does; one that is missing, where an element around ends. Nesting
 * deeper than some hundred levels is not looked through.
 */
class OpenElements
{
public:
    struct Element
    {
        HtmlSpan tag;            ///< its start tag
        HtmlSpan name;           ///< in it
        const HtmlElement* kind; ///< nullptr if it is none that is known
        bool isForeign;          ///< of SVG or MathML
    };

    /** How an element ended. */
    enum class End {
        Given,   ///< by its end tag
        Implied, ///< without one, and it needs none
        Missing  ///< without one
    };

    struct Ended
    {
        Element element;
        End how;
    };

    /** What a token is to the elements. */
    enum class Effect {
        None,
        Opens,
        Stands, ///< an element that has no content
        Ends,
        IsStray ///< an end tag of nothing that is open
    };

    /** `page` must outlive this. */
    explicit OpenElements(QStringView page)
        : page_(page)
    {
    }

    /** Takes the next token; `state` is the reader's behind it. */
    Effect Take(const HtmlToken& token, const HtmlState& state);

    /** From the outermost to the innermost. */
    [[nodiscard]] const std::vector<Element>& Open() const { return open_; }

    /** What the token that was taken last has ended, from the innermost. */
    [[nodiscard]] const std::vector<Ended>& EndedLast() const { return ended_; }

    /** How an element ends that the page ends in. */
    [[nodiscard]] static End AtEndOfPage(const Element& element);

private:
    Effect TakeStart(const HtmlToken& token, bool isForeign);
    Effect TakeEnd(const HtmlToken& token);
    void EndByStartOf(const HtmlElement& next);
    void EndDownTo(std::size_t depth);
    [[nodiscard]] bool IsNamed(const Element& element, QStringView name, const HtmlElement* kind) const;

    QStringView page_;
    std::vector<Element> open_;
    std::vector<Ended> ended_;
};
