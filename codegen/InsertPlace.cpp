#include "codegen/InsertPlace.h"

#include "codegen/PageFrame.h"
#include "codegen/PageNesting.h"

#include <QStringBuilder>
#include <algorithm>
#include <numeric>

namespace {

using Kind = HtmlToken::Kind;

constexpr QStringView openEndTag = u"</";

/** Reads a page once, and finds where a paragraph can stand that a user wants at the caret. */
class PlaceFinder
{
public:
    PlaceFinder(QStringView page, qsizetype caret)
        : page_(page)
        , caret_(caret)
        , nesting_(page)
        , frame_(page)
    {
    }

    void Run();

    [[nodiscard]] std::optional<InsertRefusal> Refusal() const { return refusal_; }
    [[nodiscard]] qsizetype Place() const;

    /** Where the tag begins of the element that the place is in; -1 in the body itself. */
    [[nodiscard]] qsizetype Container() const { return container_; }

    [[nodiscard]] const PageFrame& Frame() const { return frame_; }
    [[nodiscard]] const ConstantBlock& Style() const { return style_; }
    [[nodiscard]] const ConstantBlock& Script() const { return script_; }

private:
    [[nodiscard]] std::optional<InsertRefusal>
    RefusalIn(const HtmlToken& token, const HtmlState& before) const;
    void PassCaret();
    void LookForEnd(const HtmlToken& token);

    QStringView page_;
    qsizetype caret_;
    PageNesting nesting_;
    PageFrame frame_;
    ConstantBlock style_ = StyleBlock();
    ConstantBlock script_ = ScriptBlock();

    qsizetype safeEnd_ = 0; ///< up to here the page is markup, and no text of an element that never ends
    bool isCaretPassed_ = false;
    std::optional<InsertRefusal> refusal_ = {};
    std::optional<qsizetype> place_ = {};
    qsizetype container_ = -1;
    std::size_t awaitedLevel_ = 0;      ///< of the element behind which the place is, while there is none
    PageNesting::Element awaited_ = {}; ///< that element
};

std::optional<InsertRefusal> RefusalInText(HtmlContent content)
{
    switch (content) {
    case HtmlContent::Markup:
    case HtmlContent::CData:
        return std::nullopt;
    case HtmlContent::Style:
    case HtmlContent::Script:
        return InsertRefusal::InScript;
    default:
        return InsertRefusal::InText;
    }
}

bool IsMarkup(const HtmlState& state)
{
    return state.mode == HtmlMode::Data || state.mode == HtmlMode::CData;
}

/** What a place is in front of which the page has been read up to `state`. */
std::optional<InsertRefusal> RefusalBehind(const HtmlState& state)
{
    return IsMarkup(state) ? std::nullopt : RefusalInText(ContentOf(state.tag));
}

std::optional<InsertRefusal> PlaceFinder::RefusalIn(const HtmlToken& token, const HtmlState& before) const
{
    if (token.whole.offset >= caret_ || token.kind == Kind::CData) {
        return RefusalBehind(before);
    }
    if (token.kind == Kind::Text) {
        return RefusalInText(token.content);
    }
    return token.kind == Kind::Comment ? InsertRefusal::InComment : InsertRefusal::InTag;
}

void PlaceFinder::Run()
{
    HtmlTokens tokens(page_);
    HtmlToken token;
    HtmlState before;
    while (tokens.Next(token)) {
        // One that the page ends in goes on behind it.
        const bool goesOn = !token.isClosed && token.kind != Kind::Text;
        if (!isCaretPassed_ && (caret_ < token.whole.End() || goesOn)) {
            refusal_ = RefusalIn(token, before);
            PassCaret();
        }
        style_.Take(page_, token);
        script_.Take(page_, token);
        const bool wasNested = !nesting_.Open().empty();
        nesting_.Take(token, tokens.State());
        frame_.Take(token, wasNested && !nesting_.Open().empty());
        LookForEnd(token);
        before = tokens.State();
        if (token.isClosed || token.kind == Kind::Text) {
            safeEnd_ = IsMarkup(before) ? token.whole.End() : safeEnd_;
        }
    }
    // With something behind it, this text would be a tag or a comment.
    const qsizetype openEnd = page_.endsWith(openEndTag) ? page_.size() - openEndTag.size() : page_.size();
    safeEnd_ = std::min(safeEnd_, openEnd);
    if (!isCaretPassed_) {
        refusal_ = RefusalBehind(before);
        PassCaret();
    }
    if (!refusal_ && caret_ > openEnd) {
        refusal_ = InsertRefusal::InTag;
    }
}

/** Finds, by the elements that are open at the caret, the innermost that takes paragraphs. */
void PlaceFinder::PassCaret()
{
    isCaretPassed_ = true;
    const std::vector<PageNesting::Element>& open = nesting_.Open();
    const bool isInLink = std::any_of(
        open.begin(), open.end(), [](const PageNesting::Element& element) { return element.isLink; });
    if (!refusal_ && isInLink) {
        refusal_ = InsertRefusal::InLink;
    }
    std::size_t level = 0;
    for (std::size_t i = 0; i < open.size(); ++i) {
        const ElementHolds holds = ContentOfElement(open[i].name);
        if (holds == ElementHolds::Phrasing) {
            break;
        }
        level = holds == ElementHolds::Flow ? i + 1 : level;
    }
    container_ = level == 0 ? -1 : open[level - 1].start;
    if (level == open.size()) {
        place_ = caret_;
    } else {
        awaitedLevel_ = level;
        awaited_ = open[level];
    }
}

void PlaceFinder::LookForEnd(const HtmlToken& token)
{
    const std::vector<PageNesting::Element>& open = nesting_.Open();
    const bool isStillOpen = open.size() > awaitedLevel_ && open[awaitedLevel_] == awaited_;
    if (!isCaretPassed_ || place_ || isStillOpen) {
        return;
    }
    // Another tag may end it by what it opens or ends itself.
    const bool isOwnEnd = token.kind == Kind::EndTag && open.size() == awaitedLevel_;
    place_ = isOwnEnd ? token.whole.End() : token.whole.offset;
}

qsizetype PlaceFinder::Place() const
{
    const qsizetype bodyEnd = frame_.BodyEnd().value_or(safeEnd_);
    return std::max(std::min(place_.value_or(bodyEnd), bodyEnd), frame_.BodyStart());
}

bool IsLineEnd(QChar character)
{
    return character == u'\n' || character == u'\r';
}

bool BeginsLine(QStringView page, qsizetype offset)
{
    return offset == 0 || IsLineEnd(page[offset - 1]);
}

TextReplacement Replacement(HtmlSpan place, const QString& text)
{
    return { { place.offset, place.length }, text };
}

/** `text` on lines of its own at the place. */
QString OnOwnLines(QStringView page, HtmlSpan place, QString text, const QString& lineEnd)
{
    const bool endsLine = place.End() < page.size() && IsLineEnd(page[place.End()]);
    if (endsLine && text.endsWith(u'\n')) {
        text.chop(1);
    }
    text.replace(u'\n', lineEnd);
    return BeginsLine(page, place.offset) ? text : QString(lineEnd % text);
}

/** Puts a block in the place of its older version, or to those that go into the head. */
void AddBlock(
    const ConstantBlock& block, const QString& lineEnd, QList<TextReplacement>& changes, QString& missing)
{
    if (block.IsCurrent()) {
        return;
    }
    if (!block.Older()) {
        missing += block.Markup();
        return;
    }
    QString markup = block.Markup();
    markup.chop(1);
    changes << Replacement(*block.Older(), markup.replace(u'\n', lineEnd));
}

} // namespace

InsertPlace FindInsertPlace(QStringView page, HtmlSpan selection)
{
    PlaceFinder last(page, selection.End());
    last.Run();
    InsertPlace place{ .map = { last.Place(), 0 },
                       .head = last.Frame().HeadEnd(),
                       .hasHead = last.Frame().HasHead(),
                       .style = last.Style(),
                       .script = last.Script(),
                       .refusal = last.Refusal() };
    if (selection.length > 0) {
        PlaceFinder first(page, selection.offset);
        first.Run();
        const bool isWhole = !first.Refusal() && first.Place() == selection.offset &&
                             last.Place() == selection.End() && first.Container() == last.Container() &&
                             !last.Style().IsIn(selection) && !last.Script().IsIn(selection);
        place.map = isWhole ? selection : place.map;
    }
    return place;
}

MapInsertion InsertMap(
    QStringView page, const InsertPlace& place, const QString& markup, NeededBlocks needed,
    const QString& lineEnd)
{
    QList<TextReplacement> changes;
    QString missing;
    if (needed.style) {
        AddBlock(place.style, lineEnd, changes, missing);
    }
    if (needed.script) {
        AddBlock(place.script, lineEnd, changes, missing);
    }
    const HtmlSpan head{ place.head, 0 };
    // Two changes at one place would have no order.
    const QString ahead = place.head == place.map.offset ? missing : QString();
    if (!missing.isEmpty() && ahead.isEmpty()) {
        changes << Replacement(head, OnOwnLines(page, head, missing, lineEnd));
    }
    const auto linesAdded = [page](qsizetype lines, const TextReplacement& change) {
        const QStringView replaced = page.sliced(change.Place.Start, change.Place.Length);
        return lines + change.Text.count(u'\n') - replaced.count(u'\n');
    };
    const auto isAbove = [&place](const TextReplacement& change) {
        return change.Place.Start < place.map.offset;
    };
    const auto above = std::stable_partition(changes.begin(), changes.end(), isAbove);
    const qsizetype line = std::accumulate(
        changes.begin(), above, 1 + page.first(place.map.offset).count(u'\n') + ahead.count(u'\n'),
        linesAdded);
    changes << Replacement(place.map, OnOwnLines(page, place.map, ahead + markup, lineEnd));
    std::sort(changes.begin(), changes.end(), [](const TextReplacement& one, const TextReplacement& other) {
        return one.Place.Start < other.Place.Start;
    });
    return { changes, int(line) + (BeginsLine(page, place.map.offset) ? 0 : 1) };
}
