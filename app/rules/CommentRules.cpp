#include "app/rules/CommentRules.h"

#include "app/rules/CommentMarks.h"
#include "html/HtmlTokens.h"

#include <algorithm>

namespace {

/** In front of every page, where something is selected. */
constexpr qsizetype noCaret = -1;

/** A part of a page. */
struct Region
{
    qsizetype Start = 0;
    qsizetype End = 0;

    [[nodiscard]] bool IsWithin(qsizetype start, qsizetype end) const { return start <= Start && End <= end; }

    [[nodiscard]] bool IsCutBy(qsizetype start, qsizetype end) const
    {
        return (start < Start && Start < end) || (start < End && End < end);
    }

    void TakeIn(qsizetype start, qsizetype end)
    {
        Start = std::min(Start, start);
        End = std::max(End, end);
    }

    [[nodiscard]] TextSpan Span() const { return { Start, End - Start }; }
};

/** Where a part of a page lies. */
struct Surroundings
{
    enum class Kind { Markup, Comment, Style, Script };

    Kind What = Kind::Markup;
    Region Place;    ///< the part, as much as is needed
    HtmlSpan Around; ///< the comment, or the text of the style or script
};

/** The selection, or the line, without blanks around it. */
Region RegionOf(QStringView page, const TextSpan& place)
{
    Region region{ place.Start, place.Start + place.Length };
    if (place.Length == 0) {
        region.Start = page.first(place.Start).lastIndexOf(u'\n') + 1;
        const qsizetype lineEnd = page.indexOf(u'\r', place.Start);
        region.End = lineEnd < 0 ? page.size() : lineEnd;
    }
    const auto isBlank = [page](qsizetype at) { return IsHtmlSpace(page[at].unicode()); };
    while (region.Start < region.End && isBlank(region.End - 1)) {
        --region.End;
    }
    while (region.Start < region.End && isBlank(region.Start)) {
        ++region.Start;
    }
    return region.Start < region.End ? region : Region{ place.Start, place.Start };
}

bool IsProperComment(const HtmlToken& token, QStringView page)
{
    const QStringView text = token.whole.In(page);
    return token.kind == HtmlToken::Kind::Comment && text.startsWith(u"<!--") && text.endsWith(u"-->") &&
           token.inside.End() + 3 == token.whole.End();
}

/** Whether what follows is the text of an element that holds nothing else. */
bool IsInText(const HtmlState& state)
{
    return state.mode == HtmlMode::RawText || state.mode == HtmlMode::Script ||
           state.mode == HtmlMode::PlainText;
}

/** An element that holds text alone. */
struct TextElement
{
    HtmlTag Tag = HtmlTag::Other;
    qsizetype Start = 0; ///< of its start tag
    qsizetype TextStart = 0;
    qsizetype TextEnd = 0;
    qsizetype End = 0; ///< of its end tag

    [[nodiscard]] bool HoldsPlace(qsizetype place) const { return TextStart <= place && place <= TextEnd; }
};

/** Reads on from the start tag `token` to the end of its element. */
TextElement ReadTextElement(HtmlTokens& tokens, HtmlToken& token)
{
    TextElement element{ .Tag = tokens.State().tag,
                         .Start = token.whole.offset,
                         .TextStart = token.whole.End(),
                         .TextEnd = token.whole.End(),
                         .End = token.whole.End() };
    while (tokens.Next(token)) {
        element.End = token.whole.End();
        if (token.kind != HtmlToken::Kind::Text) {
            break;
        }
        element.TextEnd = element.End;
    }
    return element;
}

/** How much more of the page `region` has to be, and where it lies; `caret` is the caret where nothing is
 * selected. */
Surroundings SurroundingsOf(QStringView page, Region region, qsizetype caret)
{
    using enum Surroundings::Kind;
    HtmlTokens tokens(page);
    for (HtmlToken token; tokens.Next(token) && token.whole.offset <= region.End;) {
        const qsizetype start = token.whole.offset;
        const qsizetype end = token.whole.End();
        const bool isCaretIn = start < caret && caret < end;
        if (IsProperComment(token, page) && (isCaretIn || region.IsWithin(start, end))) {
            return { Comment, region, token.whole };
        }
        if (token.kind != HtmlToken::Kind::Text && region.IsCutBy(start, end)) {
            region.TakeIn(start, end);
        }
        if (token.kind == HtmlToken::Kind::StartTag && IsInText(tokens.State())) {
            const TextElement element = ReadTextElement(tokens, token);
            const bool isStyle = element.Tag == HtmlTag::Style;
            if ((isStyle || element.Tag == HtmlTag::Script) && element.HoldsPlace(region.Start) &&
                element.HoldsPlace(region.End)) {
                return { isStyle ? Style : Script,
                         region,
                         { element.TextStart, element.TextEnd - element.TextStart } };
            }
            if (element.HoldsPlace(region.Start) || element.HoldsPlace(region.End) ||
                region.IsCutBy(element.TextEnd, element.End)) {
                region.TakeIn(element.Start, element.End);
            }
        }
    }
    return { Markup, region, {} };
}

/** The first comment of a style, from `start` on; empty at the end if there is none. */
Region StyleComment(QStringView page, qsizetype start, qsizetype end)
{
    QChar quote;
    for (qsizetype i = start; i < end; ++i) {
        const QChar one = page[i];
        if (!quote.isNull()) {
            i += one == u'\\' ? 1 : 0;
            quote = one == quote || one == u'\n' ? QChar() : quote;
        } else if (one == u'"' || one == u'\'') {
            quote = one;
        } else if (one == u'/' && i + 1 < end && page[i + 1] == u'*') {
            const qsizetype closing = page.first(end).indexOf(u"*/", i + 2);
            return { i, closing < 0 ? end : closing + 2 };
        }
    }
    return { end, end };
}

QList<TextReplacement> ToggleInStyle(QStringView page, const HtmlSpan& style, Region& region, qsizetype caret)
{
    Region comment = StyleComment(page, style.offset, style.End());
    while (comment.Start < region.End) {
        const bool isWhole = comment.End - comment.Start >= 4 && page.first(comment.End).endsWith(u"*/");
        const bool isCaretIn = comment.Start < caret && caret < comment.End;
        if ((isCaretIn || region.IsWithin(comment.Start, comment.End)) && isWhole) {
            region = comment;
            return TakeOffMarks(page, comment.Span(), CommentMarks::Style);
        }
        if (region.IsCutBy(comment.Start, comment.End)) {
            region.TakeIn(comment.Start, comment.End);
        }
        comment = StyleComment(page, comment.End, style.End());
    }
    return PutBetweenMarks(page, region.Span(), CommentMarks::Style);
}

/** Where the lines of a script begin, behind their blanks; those of blanks are none. */
QList<qsizetype> LineStarts(QStringView page, const Region& region)
{
    QList<qsizetype> starts;
    bool isBefore = true;
    for (qsizetype i = region.Start; i < region.End; ++i) {
        if (page[i] == u'\n') {
            isBefore = true;
        } else if (isBefore && !IsHtmlSpace(page[i].unicode())) {
            starts << i;
            isBefore = false;
        }
    }
    return starts.isEmpty() ? QList<qsizetype>{ region.Start } : starts;
}

QList<TextReplacement> ToggleInScript(QStringView page, const HtmlSpan& script, Region& region)
{
    // A line is a comment from its beginning or not at all.
    const QStringView before = page.first(region.Start);
    region.Start = std::max(before.lastIndexOf(u'\n') + 1, script.offset);
    constexpr QStringView mark = u"//";
    const QList<qsizetype> starts = LineStarts(page, region);
    const bool areAll = std::ranges::all_of(
        starts, [&](qsizetype at) { return page.first(script.End()).sliced(at).startsWith(mark); });
    QList<TextReplacement> replacements;
    for (const qsizetype at : starts) {
        if (areAll) {
            const bool isBlankBehind = at + mark.size() < script.End() && page[at + mark.size()] == u' ';
            replacements << TextReplacement{ { at, mark.size() + (isBlankBehind ? 1 : 0) }, QString() };
        } else {
            replacements << TextReplacement{ { at, 0 }, mark + u" " };
        }
    }
    return replacements;
}

/** `region` as long as the replacements make it. */
TextSpan Grown(const Region& region, const QList<TextReplacement>& replacements)
{
    TextSpan span = region.Span();
    for (const TextReplacement& one : replacements) {
        span.Length += one.Text.size() - one.Place.Length;
    }
    return span;
}

} // namespace

CommentChange ToggleComment(const QString& page, const TextSpan& place)
{
    const qsizetype caret = place.Length == 0 ? place.Start : noCaret;
    Surroundings there = SurroundingsOf(page, RegionOf(page, place), caret);
    Region& region = there.Place;
    CommentChange change;
    switch (there.What) {
    case Surroundings::Kind::Comment:
        region = { there.Around.offset, there.Around.End() };
        change.Replacements = TakeOffMarks(page, region.Span(), CommentMarks::Markup);
        break;
    case Surroundings::Kind::Style:
        change.Replacements = ToggleInStyle(page, there.Around, region, caret);
        break;
    case Surroundings::Kind::Script:
        change.Replacements = ToggleInScript(page, there.Around, region);
        break;
    case Surroundings::Kind::Markup:
        change.Replacements = PutBetweenMarks(page, region.Span(), CommentMarks::Markup);
        break;
    }
    const bool isBetweenMarks = region.Start == region.End && change.Replacements.size() == 1;
    if (isBetweenMarks) {
        const QString& marks = change.Replacements.first().Text;
        change.Selection = TextSpan{ region.Start + marks.indexOf(u' ') + 1, 0 };
    } else if (place.Length > 0) {
        change.Selection = Grown(region, change.Replacements);
    }
    return change;
}
