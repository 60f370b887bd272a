#pragma once

#include "html/HtmlNames.h"

/**
 * Which elements of SVG and MathML are open. Inside them the HTML standard (html.spec.whatwg.org) lets CDATA
 * sections stand and takes `style`, `title` and their like for ordinary elements, but for a few places where
 * HTML goes on.
 *
 * Only the elements that matter are kept, sixteen levels deep, so that it is small and quick to compare. The
 * HTML elements that are open are not known. Browsers go by these too in pages that nest wrongly; here an end
 * tag of HTML always ends SVG and MathML, and where HTML goes on there are no CDATA sections, not even in
 * front of its first element. The place for HTML in `annotation-xml` is not known either.
 */
class ForeignNesting
{
public:
    /** Whether what comes next is inside SVG or MathML, and not HTML again. */
    [[nodiscard]] bool IsForeign() const { return Top() == HtmlTag::Svg || Top() == HtmlTag::Math; }

    /** Takes a start tag; true if it is one of HTML. `isHtmlFont` says that of a `font`. */
    bool Open(HtmlTag tag, bool isHtmlFont, bool isSelfClosing);

    /** Takes an end tag. */
    void Close(HtmlTag tag);

    bool operator==(const ForeignNesting&) const = default;

private:
    [[nodiscard]] HtmlTag Top() const;
    void Push(HtmlTag tag);
    void Pop() { levels_ >>= bitsALevel; }
    void LeaveForeign();
    void CloseNearest(HtmlTag tag);

    static constexpr int bitsALevel = 4;

    quint64 levels_ = 0; ///< the innermost in the lowest bits
};
