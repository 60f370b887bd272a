#include "codegen/PageFrame.h"

#include "codegen/PageNesting.h"

#include <algorithm>
#include <array>

namespace {

using Kind = HtmlToken::Kind;

/** Elements that stand in a page's head, or around it. */
constexpr auto headElements = std::to_array<QLatin1String>({
    QLatin1String("html"),
    QLatin1String("head"),
    QLatin1String("base"),
    QLatin1String("link"),
    QLatin1String("meta"),
    QLatin1String("noscript"),
    QLatin1String("script"),
    QLatin1String("style"),
    QLatin1String("template"),
    QLatin1String("title"),
});

} // namespace

bool PageFrame::IsTag(const HtmlToken& token, Kind kind, QLatin1String name) const
{
    return token.kind == kind && IsName(token.name.In(page_), name);
}

bool PageFrame::IsOfHead(const HtmlToken& token) const
{
    if (token.kind == Kind::Text) {
        return token.content != HtmlContent::Markup || token.inside.In(page_).trimmed().isEmpty();
    }
    if (token.kind != Kind::StartTag && token.kind != Kind::EndTag) {
        return true;
    }
    const QStringView name = token.name.In(page_);
    return std::any_of(headElements.begin(), headElements.end(), [name](QLatin1String element) {
        return IsName(name, element);
    });
}

/** Whether the element ends with a tag of its own; one that is missing makes text of all that follows. */
bool PageFrame::HasEndTag(const HtmlToken& token) const
{
    const QStringView name = token.name.In(page_);
    return !IsName(name, QLatin1String("html")) && !IsName(name, QLatin1String("head")) &&
           ContentOfElement(name) != ElementHolds::Nothing;
}

void PageFrame::Take(const HtmlToken& token, bool isNested)
{
    const bool isEnd = IsTag(token, Kind::EndTag, QLatin1String("body")) ||
                       IsTag(token, Kind::EndTag, QLatin1String("html"));
    if (isEnd && isInBody_ && !bodyEnd_) {
        bodyEnd_ = token.whole.offset;
    }
    // What is inside an element of the head is the head's.
    if (!isInBody_ && !isNested) {
        TakeHead(token);
    }
}

void PageFrame::TakeHead(const HtmlToken& token)
{
    if (IsTag(token, Kind::StartTag, QLatin1String("body"))) {
        EndHead(token.whole.offset);
        isInBody_ = true;
        bodyStart_ = token.whole.End();
    } else if (IsTag(token, Kind::EndTag, QLatin1String("head"))) {
        EndHead(token.whole.offset);
        bodyStart_ = token.whole.End();
    } else if (!IsOfHead(token)) {
        isInBody_ = true;
    } else if (token.kind == Kind::StartTag && HasEndTag(token)) {
        hasHead_ = true;
    } else if (token.kind != Kind::Text && token.kind != Kind::Comment && token.kind != Kind::CData) {
        hasHead_ = true;
        headEnd_ = isHeadEnded_ ? headEnd_ : token.whole.End();
        bodyStart_ = token.whole.End();
    }
}

void PageFrame::EndHead(qsizetype end)
{
    headEnd_ = isHeadEnded_ ? headEnd_ : end;
    isHeadEnded_ = true;
    hasHead_ = true;
}
