#include "app/rules/PageFormat.h"

#include "html/OpenElements.h"

#include <algorithm>
#include <array>

namespace {

/** Deeper nesting is not moved in any further; it is that of a page whose tags are not closed. */
constexpr int deepest = 40;
/** Steps of so many blanks are told from lines that are lined up. */
constexpr int widestStep = 8;
constexpr int usualStep = 2;

/** A line whose blanks may be others. */
struct Line
{
    TextSpan Blanks;
    int Depth = 0;
    bool IsEmpty = false; ///< but for blanks
};

bool IsBlank(QChar one)
{
    return one == u' ' || one == u'\t';
}

/** Whether the blanks of an element are seen. */
bool KeepsBlanks(const OpenElements::Element& element, QStringView page)
{
    const QStringView tag = element.tag.In(page);
    const bool isPre =
        element.kind != nullptr && (element.kind->name == "pre" || element.kind->name == "listing");
    return isPre || tag.contains(u"white-space", Qt::CaseInsensitive) ||
           tag.contains(u"xml:space", Qt::CaseInsensitive);
}

/** Whether an element moves in what it holds: what stands in all of the page, `head` or `body`, is its
 * beginning. */
bool MovesIn(const OpenElements::Element& element)
{
    return element.kind == nullptr || element.kind->role != HtmlRole::Page;
}

/** Finds the lines of a page whose blanks may be others, and how deep they are nested. */
class LineFinder
{
public:
    explicit LineFinder(QStringView page)
        : page_(page)
        , open_(page)
    {
    }

    [[nodiscard]] QList<Line> Find();

private:
    /** What the depth of the last line depends on. */
    enum class Waits {
        NoMore,
        ForTag,   ///< that it begins with
        ForEndTag ///< behind those that it begins with
    };

    void TakeText(const HtmlToken& token);
    void TakeTag(const HtmlToken& token, const HtmlState& state);
    void AddLinesWithin(const HtmlToken& tag, int depth);
    void AddLine(qsizetype start, int depth);
    void Count(const OpenElements::Element& element, int by);

    QStringView page_;
    OpenElements open_;
    QList<Line> lines_;
    Waits waits_ = Waits::NoMore;
    int depth_ = 0;   ///< of elements that move in
    int keeping_ = 0; ///< elements whose blanks are seen
};

QList<Line> LineFinder::Find()
{
    HtmlTokens tokens(page_);
    for (HtmlToken token; tokens.Next(token);) {
        const bool isTag = token.kind == HtmlToken::Kind::StartTag || token.kind == HtmlToken::Kind::EndTag;
        if (isTag && token.isClosed) {
            TakeTag(token, tokens.State());
            continue;
        }
        waits_ = Waits::NoMore;
        if (token.kind == HtmlToken::Kind::Text && token.content == HtmlContent::Markup) {
            TakeText(token);
        }
    }
    return lines_;
}

void LineFinder::AddLine(qsizetype start, int depth)
{
    qsizetype end = start;
    while (end < page_.size() && IsBlank(page_[end])) {
        ++end;
    }
    const bool isEmpty = end == page_.size() || page_[end] == u'\r' || page_[end] == u'\n';
    lines_ << Line{ { start, end - start }, std::min(depth, deepest), isEmpty };
}

void LineFinder::TakeText(const HtmlToken& token)
{
    if (keeping_ > 0) {
        return;
    }
    if (token.whole.offset == 0) {
        AddLine(0, depth_);
    }
    const QStringView text = token.whole.In(page_);
    for (qsizetype i = text.indexOf(u'\n'); i >= 0; i = text.indexOf(u'\n', i + 1)) {
        AddLine(token.whole.offset + i + 1, depth_);
    }
    const bool isTagNext = !lines_.isEmpty() && lines_.last().Blanks.Start > token.whole.offset &&
                           lines_.last().Blanks.Start + lines_.last().Blanks.Length == token.whole.End();
    waits_ = isTagNext ? Waits::ForTag : Waits::NoMore;
}

void LineFinder::TakeTag(const HtmlToken& token, const HtmlState& state)
{
    const bool isKeeping = keeping_ > 0;
    const bool isStart = token.kind == HtmlToken::Kind::StartTag;
    const OpenElements::Effect effect = open_.Take(token, state);
    for (const OpenElements::Ended& ended : open_.EndedLast()) {
        Count(ended.element, -1);
    }
    const int depth = depth_;
    if (waits_ == Waits::ForTag || (waits_ == Waits::ForEndTag && !isStart)) {
        lines_.last().Depth = std::min(depth, deepest);
    }
    waits_ = waits_ != Waits::NoMore && !isStart ? Waits::ForEndTag : Waits::NoMore;
    if (effect == OpenElements::Effect::Opens) {
        Count(open_.Open().back(), 1);
    }
    if (!isKeeping) {
        AddLinesWithin(token, depth + 1);
    }
}

/** Adds the lines that begin between the attributes of a tag. */
void LineFinder::AddLinesWithin(const HtmlToken& tag, int depth)
{
    qsizetype from = tag.name.End();
    const auto addBefore = [&](qsizetype end) {
        const QStringView gap = page_.first(end);
        for (qsizetype i = gap.indexOf(u'\n', from); i >= 0; i = gap.indexOf(u'\n', i + 1)) {
            AddLine(i + 1, depth);
            waits_ = Waits::NoMore;
        }
    };
    for (const HtmlAttribute& attribute : tag.attributes) {
        addBefore(attribute.whole.offset);
        from = attribute.whole.End();
    }
    addBefore(tag.whole.End());
}

void LineFinder::Count(const OpenElements::Element& element, int by)
{
    depth_ += MovesIn(element) ? by : 0;
    keeping_ += KeepsBlanks(element, page_) ? by : 0;
}

/** What the lines of a page are moved in by for each level, as most of them tell. */
QString StepOf(QStringView page, const QList<Line>& lines)
{
    int tabs = 0;
    int blanks = 0;
    std::array<int, widestStep + 1> widths = {};
    for (const Line& line : lines) {
        if (line.IsEmpty || line.Depth == 0 || line.Blanks.Length == 0) {
            continue;
        }
        const bool isTab = page[line.Blanks.Start] == u'\t';
        ++(isTab ? tabs : blanks);
        const qsizetype width = line.Blanks.Length / line.Depth;
        if (!isTab && line.Blanks.Length % line.Depth == 0 && width <= widestStep) {
            ++widths[static_cast<std::size_t>(width)];
        }
    }
    if (tabs >= blanks) {
        return QStringLiteral("\t");
    }
    const auto most = std::max_element(widths.begin(), widths.end());
    return QString(*most > 0 ? most - widths.begin() : usualStep, u' ');
}

} // namespace

QList<TextReplacement> FormatPage(const QString& page)
{
    const QList<Line> lines = LineFinder(page).Find();
    const QString step = StepOf(page, lines);
    QList<TextReplacement> replacements;
    for (const Line& line : lines) {
        const QString blanks = line.IsEmpty ? QString() : step.repeated(line.Depth);
        if (QStringView(page).sliced(line.Blanks.Start, line.Blanks.Length) != blanks) {
            replacements << TextReplacement{ line.Blanks, blanks };
        }
    }
    return replacements;
}
