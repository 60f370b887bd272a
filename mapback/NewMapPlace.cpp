#include "mapback/NewMapPlace.h"

#include "codegen/PageNesting.h"
#include "mapreader/PageLines.h"
#include "mapreader/PageTag.h"

#include <algorithm>
#include <vector>

namespace {

using Element = PageNesting::Element;

/** An element around the picture. */
struct Surrounding
{
    Element element;
    qsizetype end = -1; ///< behind its end tag; -1 if it has none
};

bool IsPictureElement(const Element& element)
{
    return IsName(element.name, QLatin1String("picture"));
}

/** Whether a map in it would be no good: it shows every blank, or one picture of several, or would have the
 * areas itself. */
bool TakesNoMap(const Element& element)
{
    return IsPictureElement(element) || IsName(element.name, QLatin1String("pre")) ||
           IsName(element.name, QLatin1String("map"));
}

bool TakesClicks(const Element& element)
{
    return element.isLink || IsName(element.name, QLatin1String("button"));
}

/** Reads a page up to where the elements around a picture end. */
class NewMapPlaceFinder
{
public:
    NewMapPlaceFinder(QStringView page, const HtmlSpan& picture)
        : page_(page)
        , picture_(picture)
        , nesting_(page)
    {
    }

    NewMapPlace Run();

private:
    void TakeSurroundings();
    void LookForEnds(const HtmlToken& token);
    [[nodiscard]] NewMapPlace Best() const;

    QStringView page_;
    HtmlSpan picture_;
    PageNesting nesting_;
    std::size_t level_ = 0;                 ///< how many elements are around those that count
    std::vector<Surrounding> surroundings_; ///< from the outermost to the innermost
};

NewMapPlace NewMapPlaceFinder::Run()
{
    HtmlTokens tokens(page_);
    HtmlToken token;
    bool isBehind = false;
    while ((!isBehind || nesting_.Open().size() > level_) && tokens.Next(token)) {
        if (token.whole.offset == picture_.offset) {
            isBehind = true;
            if (std::ranges::any_of(nesting_.Open(), TakesClicks)) {
                return { .refusal = NewMapRefusal::InLink, .line = {} };
            }
            TakeSurroundings();
        }
        nesting_.Take(token, tokens.State());
        LookForEnds(token);
    }
    return Best();
}

/** Those that hold text alone, up to one that holds more. */
void NewMapPlaceFinder::TakeSurroundings()
{
    const std::vector<Element>& open = nesting_.Open();
    level_ = open.size();
    const auto isOfText = [](const Element& element) {
        return ContentOfElement(element.name) == ElementHolds::Phrasing || IsPictureElement(element);
    };
    while (level_ > 0 && isOfText(open[level_ - 1])) {
        --level_;
    }
    for (std::size_t i = level_; i < open.size(); ++i) {
        surroundings_.push_back({ open[i] });
    }
}

/** An element counts that its own end tag ends. */
void NewMapPlaceFinder::LookForEnds(const HtmlToken& token)
{
    const std::size_t ended = nesting_.Open().size() - std::min(level_, nesting_.Open().size());
    const bool isEnd = token.kind == HtmlToken::Kind::EndTag && ended < surroundings_.size();
    if (isEnd && surroundings_[ended].end < 0 &&
        IsSameName(token.name.In(page_), surroundings_[ended].element.name)) {
        surroundings_[ended].end = token.whole.End();
    }
}

NewMapPlace NewMapPlaceFinder::Best() const
{
    NewMapPlace best{ .refusal = {}, .offset = -1, .line = {} };
    std::size_t inside = surroundings_.size();
    qsizetype start = picture_.offset;
    qsizetype end = picture_.End();
    while (true) {
        const bool isGood = end >= 0 && std::none_of(
                                            surroundings_.begin(), surroundings_.begin() + qsizetype(inside),
                                            [](const Surrounding& one) { return TakesNoMap(one.element); });
        const qsizetype behind = end < 0 ? end : BehindComment(page_, end);
        if (isGood && EndsItsLine(page_, behind)) {
            return { .refusal = {},
                     .offset = behind,
                     .line = LineEndAt(page_, start) + IndentAt(page_, start) };
        }
        best.offset = isGood && best.offset < 0 ? end : best.offset;
        if (inside == 0) {
            break;
        }
        --inside;
        start = surroundings_[inside].element.start;
        end = surroundings_[inside].end;
    }
    best.offset = best.offset < 0 ? picture_.End() : best.offset;
    return best;
}

} // namespace

NewMapPlace FindNewMapPlace(QStringView page, const HtmlSpan& picture)
{
    if (PageTag(page, picture).Find(QLatin1String("ismap")) != nullptr) {
        return { .refusal = NewMapRefusal::OnServer, .line = {} };
    }
    return NewMapPlaceFinder(page, picture).Run();
}
