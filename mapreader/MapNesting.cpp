#include "mapreader/MapNesting.h"

#include <algorithm>

namespace {

using enum NestingTrait;

/** So many levels are looked through for what a tag ends: browsers nest no deeper. */
constexpr std::size_t deepest = 512;

/** So often the standard has an end tag of formatting go on. */
constexpr int mostMoves = 8;

constexpr NestingTraits tableParts = Cell | Row | RowGroup | ColumnGroup | Caption;
constexpr NestingTraits ofTables = tableParts | Table;

const NestingRule* RuleOf(QLatin1String name)
{
    return FindNestingRule(QString(name));
}

/** What a part of a table stands in: all inside of these is ended by its start tag. */
NestingTraits ContextOf(NestingTraits part)
{
    if (part & Cell) {
        return Row | RowGroup | Table;
    }
    return part & Row ? RowGroup | Table : NestingTraits(Table);
}

/** Whether an element of SVG or MathML holds HTML. */
bool IsIntegrationPoint(QStringView name)
{
    const HtmlTag tag = TagOf(name);
    return tag == HtmlTag::Title || (tag >= HtmlTag::ForeignObject && tag <= HtmlTag::Mtext);
}

/** Whether a tag of that name ends SVG and MathML. */
bool IsOfHtml(QStringView name)
{
    return TagOf(name) == HtmlTag::Html;
}

} // namespace

void MapNesting::Take(const HtmlToken& token, const HtmlState& state)
{
    isInPage_ = false;
    const bool isTag = token.kind == HtmlToken::Kind::StartTag || token.kind == HtmlToken::Kind::EndTag;
    if (!isTag || !token.isClosed || token.name.length == 0) {
        return;
    }
    const QStringView name = token.name.In(page_);
    const NestingRule* const rule = FindNestingRule(name);
    const NestingTraits traits = rule != nullptr ? rule->traits : NestingTraits();
    const bool isStart = token.kind == HtmlToken::Kind::StartTag;
    const bool isPart = wasForeign_ && (IsIntegrationPoint(name) || !(isStart || IsOfHtml(name)));
    const bool isForeign = state.foreign.IsForeign() || bool(traits & ForeignRoot) || isPart;
    wasForeign_ = state.foreign.IsForeign();
    if (TakeTemplate(token, !isForeign && (traits & Template))) {
        return;
    }
    if (isForeign) {
        TakeForeign(token);
        return;
    }
    LeaveForeign();
    isInPage_ = isStart;
    traits_ = traits;
    if (isStart) {
        TakeStart(token, rule);
    } else {
        TakeEnd(token, rule);
    }
}

/** Whether the token is one of a template, of which only the end matters. */
bool MapNesting::TakeTemplate(const HtmlToken& token, bool isTemplate)
{
    if (isTemplate && token.kind == HtmlToken::Kind::StartTag) {
        ++templates_;
    } else if (isTemplate && templates_ > 0) {
        --templates_;
        return true;
    }
    return isTemplate || templates_ > 0;
}

std::size_t MapNesting::Deepest() const
{
    return open_.size() > deepest ? open_.size() - deepest : 0;
}

void MapNesting::PopTo(std::size_t count)
{
    while (open_.size() > count) {
        if (open_.back().map >= 0) {
            maps_.pop_back();
        }
        open_.pop_back();
    }
}

void MapNesting::Remove(std::size_t index)
{
    if (open_[index].map >= 0) {
        // It is one of the innermost.
        maps_.erase(std::find(maps_.rbegin(), maps_.rend(), open_[index].map).base() - 1);
    }
    open_.erase(open_.begin() + std::ptrdiff_t(index));
}

void MapNesting::Push(const HtmlToken& token, const NestingRule* rule, bool isForeign)
{
    const bool isMap = rule != nullptr && (rule->traits & Map);
    open_.push_back({ token.name, rule, isMap ? count_ : -1, isForeign });
    if (isMap) {
        maps_.push_back(count_++);
    }
}

/** Ends the innermost element that `isIt`, with all inside, unless a barrier is open there. */
template<class IsIt> bool MapNesting::PopInScope(NestingTraits barriers, IsIt isIt)
{
    for (std::size_t i = open_.size(); i > Deepest(); --i) {
        const Element& element = open_[i - 1];
        if (!element.isForeign && isIt(element)) {
            PopTo(i - 1);
            return true;
        }
        const bool isPoint = element.isForeign && IsIntegrationPoint(element.name.In(page_));
        if (element.Has(barriers) || (isPoint && barriers != NestingTraits(Table))) {
            return false;
        }
    }
    return false;
}

void MapNesting::TakeStart(const HtmlToken& token, const NestingRule* rule)
{
    const NestingTraits traits = rule != nullptr ? rule->traits : NestingTraits();
    if (traits & Frame) {
        return;
    }
    if (traits & tableParts) {
        if (!TakeTablePart(traits)) {
            return;
        }
    } else {
        EndBeforeStart(rule, traits);
    }
    if (!(traits & (Void | IsText))) {
        Push(token, rule, false);
    }
}

/** Makes room for a part of a table; false where there is no table, and the tag is passed over. */
bool MapNesting::TakeTablePart(NestingTraits traits)
{
    const NestingTraits context = ContextOf(traits);
    for (std::size_t i = open_.size(); i > Deepest(); --i) {
        if (open_[i - 1].Has(context)) {
            PopTo(i);
            return true;
        }
    }
    return false;
}

void MapNesting::EndBeforeStart(const NestingRule* rule, NestingTraits traits)
{
    static const NestingRule* const paragraph = RuleOf(QLatin1String("p"));
    static const NestingRule* const item = RuleOf(QLatin1String("li"));
    static const NestingRule* const link = RuleOf(QLatin1String("a"));
    static const NestingRule* const nobr = RuleOf(QLatin1String("nobr"));
    static const NestingRule* const button = RuleOf(QLatin1String("button"));
    if (rule == item || traits & Term) {
        EndItems(traits);
    }
    if (traits & EndsParagraph) {
        (void)PopInScope(Scope | ButtonScope, [](const Element& one) { return one.rule == paragraph; });
    }
    if (!open_.empty() && ((traits & Heading && open_.back().Has(Heading)) ||
                           (traits & RubyText && open_.back().Has(RubyText)))) {
        PopTo(open_.size() - 1);
    }
    if (rule == button) {
        (void)PopInScope(Scope, [](const Element& one) { return one.rule == button; });
    }
    if (rule == link || rule == nobr) {
        EndFormatting(rule);
    }
    if (traits & Table) {
        const auto around =
            std::find_if(open_.rbegin(), open_.rend(), [](const Element& one) { return one.Has(ofTables); });
        if (around != open_.rend() && !around->Has(Cell | Caption)) {
            (void)PopInScope(Table, [](const Element& one) { return one.Has(Table); });
        }
    }
}

/** Ends an item of the list, or a term, in front of the next. */
void MapNesting::EndItems(NestingTraits traits)
{
    static const NestingRule* const item = RuleOf(QLatin1String("li"));
    for (std::size_t i = open_.size(); i > Deepest(); --i) {
        const Element& element = open_[i - 1];
        if (traits & Term ? element.Has(Term) : element.rule == item) {
            PopTo(i - 1);
            return;
        }
        if (element.Has(Special) && !element.Has(Transparent)) {
            return;
        }
    }
}

void MapNesting::TakeEnd(const HtmlToken& token, const NestingRule* rule)
{
    static const NestingRule* const paragraph = RuleOf(QLatin1String("p"));
    static const NestingRule* const item = RuleOf(QLatin1String("li"));
    static const NestingRule* const form = RuleOf(QLatin1String("form"));
    const NestingTraits traits = rule != nullptr ? rule->traits : NestingTraits();
    const auto isIt = [rule](const Element& one) { return one.rule == rule; };
    if (traits & (Void | IsText | Frame)) {
        return;
    }
    if (rule == paragraph) {
        (void)PopInScope(Scope | ButtonScope, isIt);
    } else if (rule == item) {
        (void)PopInScope(Scope | ListScope, isIt);
    } else if (rule == form) {
        EndForm();
    } else if (traits & Heading) {
        (void)PopInScope(Scope, [](const Element& one) { return one.Has(Heading); });
    } else if (traits & ofTables) {
        (void)PopInScope(Table, isIt);
    } else if (traits & (Block | Term)) {
        (void)PopInScope(Scope, isIt);
    } else if (traits & Formatting) {
        EndFormatting(rule);
    } else {
        EndAnyOther(token.name.In(page_), rule);
    }
}

/** A form ends alone: what is open inside stays so. */
void MapNesting::EndForm()
{
    static const NestingRule* const form = RuleOf(QLatin1String("form"));
    for (std::size_t i = open_.size(); i > Deepest(); --i) {
        if (open_[i - 1].rule == form) {
            Remove(i - 1);
            return;
        }
        if (open_[i - 1].Has(Scope)) {
            return;
        }
    }
}

/** What the standard calls the adoption agency. */
void MapNesting::EndFormatting(const NestingRule* rule)
{
    for (int move = 0; move < mostMoves; ++move) {
        std::size_t found = open_.size();
        bool isInScope = true;
        while (found > Deepest() && open_[found - 1].rule != rule) {
            if (open_[found - 1].Has(Marker) || open_[found - 1].isForeign) {
                return;
            }
            isInScope = isInScope && !open_[found - 1].Has(Scope);
            --found;
        }
        if (found == Deepest() || !isInScope || !MoveFormatting(found - 1)) {
            return;
        }
    }
}

/** Ends the formatting, or moves it into the outermost block inside; whether it did the latter. */
bool MapNesting::MoveFormatting(std::size_t formatting)
{
    const auto inside = open_.begin() + std::ptrdiff_t(formatting) + 1;
    const auto block = std::find_if(inside, open_.end(), [](const Element& one) { return one.Has(Special); });
    if (block == open_.end()) {
        PopTo(formatting);
        return false;
    }
    const Element moved = open_[formatting];
    auto at = std::size_t(block - open_.begin());
    for (std::size_t i = at; i > formatting + 1; --i) {
        if (!open_[i - 1].Has(Formatting)) {
            Remove(i - 1);
            --at;
        }
    }
    // The block is one further to the front when the formatting has left its old place.
    Remove(formatting);
    open_.insert(open_.begin() + std::ptrdiff_t(at), moved);
    return true;
}

void MapNesting::EndAnyOther(QStringView name, const NestingRule* rule)
{
    for (std::size_t i = open_.size(); i > Deepest(); --i) {
        const Element& element = open_[i - 1];
        const bool isIt = !element.isForeign && (rule != nullptr || element.rule != nullptr
                                                     ? element.rule == rule
                                                     : IsSameName(element.name.In(page_), name));
        if (isIt) {
            PopTo(i - 1);
            return;
        }
        const bool isPoint = element.isForeign && IsIntegrationPoint(element.name.In(page_));
        if (element.Has(Special) || isPoint) {
            return;
        }
    }
}

void MapNesting::TakeForeign(const HtmlToken& token)
{
    const QStringView name = token.name.In(page_);
    if (token.kind == HtmlToken::Kind::StartTag) {
        if (token.slash < 0) {
            Push(token, nullptr, true);
        }
        return;
    }
    for (std::size_t i = open_.size(); i > Deepest() && open_[i - 1].isForeign; --i) {
        if (IsSameName(open_[i - 1].name.In(page_), name)) {
            PopTo(i - 1);
            return;
        }
    }
    TakeEnd(token, FindNestingRule(name));
}

/** Ends what is open of SVG or MathML where a tag of HTML has ended it. */
void MapNesting::LeaveForeign()
{
    while (!open_.empty() && open_.back().isForeign && !IsIntegrationPoint(open_.back().name.In(page_))) {
        PopTo(open_.size() - 1);
    }
}
