#pragma once

#include "html/HtmlTokens.h"
#include "mapreader/NestingRules.h"

#include <vector>

/**
 * Which maps are open in a page, token by token, as the tree construction of the HTML standard
 * (html.spec.whatwg.org) has it. A browser passes over a "</map>" while a paragraph or another block is open
 * inside the map, and ends a map where an element around it ends; so does this.
 *
 * It keeps the elements that are open and builds no tree. In wrongly nested pages browsers move what they
 * have read already, make formatting anew, or drop tags (in `select` and in framesets); there a map is taken
 * for what it is in the source. Nesting deeper than some hundred levels is not looked through.
 */
class MapNesting
{
public:
    /** `page` must outlive this. */
    explicit MapNesting(QStringView page)
        : page_(page)
    {
    }

    /** Takes the next token; `state` is the reader's behind it. */
    void Take(const HtmlToken& token, const HtmlState& state);

    /** Whether the start tag that was taken last is an element of HTML in the page, and in no template. */
    [[nodiscard]] bool IsInPage() const { return isInPage_; }

    /** What that element is, of `Map`, `Area`, `Picture` and `Base`. */
    [[nodiscard]] NestingTraits Traits() const { return traits_; }

    /** The maps that are open, each by its number in the order in which they began, the innermost last. */
    [[nodiscard]] const std::vector<qsizetype>& Open() const { return maps_; }

    /** How many maps have begun. */
    [[nodiscard]] qsizetype Count() const { return count_; }

private:
    struct Element
    {
        HtmlSpan name;
        const NestingRule* rule; ///< nullptr if it is like any other
        qsizetype map;           ///< its number; -1 if it is none
        bool isForeign;

        [[nodiscard]] bool Has(NestingTraits traits) const
        {
            return rule != nullptr && (rule->traits & traits) != NestingTraits();
        }
    };

    void TakeStart(const HtmlToken& token, const NestingRule* rule);
    void TakeEnd(const HtmlToken& token, const NestingRule* rule);
    void TakeForeign(const HtmlToken& token);
    bool TakeTemplate(const HtmlToken& token, bool isTemplate);
    [[nodiscard]] bool TakeTablePart(NestingTraits traits);
    void EndBeforeStart(const NestingRule* rule, NestingTraits traits);
    void EndItems(NestingTraits traits);
    void EndFormatting(const NestingRule* rule);
    bool MoveFormatting(std::size_t formatting);
    void EndAnyOther(QStringView name, const NestingRule* rule);
    void EndForm();
    void LeaveForeign();

    void Push(const HtmlToken& token, const NestingRule* rule, bool isForeign);
    void Remove(std::size_t index);
    void PopTo(std::size_t count);
    template<class IsIt> bool PopInScope(NestingTraits barriers, IsIt isIt);
    [[nodiscard]] std::size_t Deepest() const;

    QStringView page_;
    std::vector<Element> open_;
    std::vector<qsizetype> maps_;
    qsizetype count_ = 0;
    qsizetype templates_ = 0; ///< how many are open, one in the other
    bool wasForeign_ = false;
    bool isInPage_ = false;
    NestingTraits traits_;
};
