#include "html/OpenElements.h"

#include <algorithm>

namespace {

/** So many levels are looked through for what a tag ends: browsers nest no deeper. */
constexpr std::size_t deepest = 512;

bool IsForeignRoot(QStringView name)
{
    return IsName(name, QLatin1String("svg")) || IsName(name, QLatin1String("math"));
}

/** Whether an element of SVG or MathML holds HTML. */
bool HoldsHtml(QStringView name)
{
    const HtmlTag tag = TagOf(name);
    return tag == HtmlTag::Title || (tag >= HtmlTag::ForeignObject && tag <= HtmlTag::Mtext);
}

} // namespace

OpenElements::Effect OpenElements::Take(const HtmlToken& token, const HtmlState& state)
{
    ended_.clear();
    if (!token.isClosed || token.name.length == 0) {
        return Effect::None;
    }
    if (token.kind == HtmlToken::Kind::StartTag) {
        const QStringView name = token.name.In(page_);
        const bool isInForeign = !open_.empty() && open_.back().isForeign;
        return TakeStart(
            token, state.foreign.IsForeign() || IsForeignRoot(name) || (isInForeign && HoldsHtml(name)));
    }
    return token.kind == HtmlToken::Kind::EndTag ? TakeEnd(token) : Effect::None;
}

OpenElements::Effect OpenElements::TakeStart(const HtmlToken& token, bool isForeign)
{
    const HtmlElement* const kind = FindElement(token.name.In(page_));
    if (isForeign) {
        if (token.slash >= 0) {
            return Effect::Stands;
        }
    } else if (kind != nullptr) {
        EndByStartOf(*kind);
        if (kind->end == HtmlEndTag::None) {
            return Effect::Stands;
        }
    }
    open_.push_back({ token.whole, token.name, kind, isForeign });
    return Effect::Opens;
}

void OpenElements::EndByStartOf(const HtmlElement& next)
{
    std::size_t depth = open_.size();
    const std::size_t last = depth > deepest ? depth - deepest : 0;
    for (std::size_t i = depth; i > last; --i) {
        const HtmlElement* const kind = open_[i - 1].kind;
        if (kind != nullptr && IsEndedBy(*kind, next)) {
            depth = i - 1;
        } else if (kind != nullptr && Shields(*kind, &next)) {
            break;
        }
    }
    EndDownTo(depth);
}

OpenElements::Effect OpenElements::TakeEnd(const HtmlToken& token)
{
    const QStringView name = token.name.In(page_);
    const HtmlElement* const kind = FindElement(name);
    const std::size_t last = open_.size() > deepest ? open_.size() - deepest : 0;
    for (std::size_t i = open_.size(); i > last; --i) {
        const Element& element = open_[i - 1];
        if (IsNamed(element, name, kind)) {
            EndDownTo(i);
            ended_.push_back({ element, End::Given });
            open_.pop_back();
            return Effect::Ends;
        }
        if (element.kind != nullptr && Shields(*element.kind, kind)) {
            break;
        }
    }
    return Effect::IsStray;
}

/** Ends the innermost elements without end tags, until `depth` are left. */
void OpenElements::EndDownTo(std::size_t depth)
{
    while (open_.size() > depth) {
        ended_.push_back({ open_.back(), AtEndOfPage(open_.back()) });
        open_.pop_back();
    }
}

OpenElements::End OpenElements::AtEndOfPage(const Element& element)
{
    const bool isImplied =
        !element.isForeign && element.kind != nullptr && element.kind->end == HtmlEndTag::Optional;
    return isImplied ? End::Implied : End::Missing;
}

bool OpenElements::IsNamed(const Element& element, QStringView name, const HtmlElement* kind) const
{
    return kind != nullptr || element.kind != nullptr ? element.kind == kind
                                                      : IsSameName(element.name.In(page_), name);
}
