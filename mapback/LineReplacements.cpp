#include "mapback/LineReplacements.h"

#include <QHash>
#include <algorithm>
#include <vector>

namespace {

bool IsEndOfLine(QChar character)
{
    return character == u'\n' || character == u'\r';
}

/** The length of the line end there. */
qsizetype LengthOfEnd(QStringView text, qsizetype at)
{
    return text.sliced(at).startsWith(u"\r\n") ? 2 : 1;
}

/** A text as its lines, without their ends; there is one more than there are ends. */
std::vector<HtmlSpan> LinesOf(QStringView text)
{
    std::vector<HtmlSpan> lines;
    qsizetype start = 0;
    for (qsizetype at = 0; at < text.size(); ++at) {
        if (IsEndOfLine(text[at])) {
            lines.push_back({ start, at - start });
            at += LengthOfEnd(text, at) - 1;
            start = at + 1;
        }
    }
    lines.push_back({ start, text.size() - start });
    return lines;
}

/** A run of lines, and that which comes in its place. */
struct Hunk
{
    std::size_t oldStart = 0;
    std::size_t oldEnd = 0;
    std::size_t newStart = 0;
    std::size_t newEnd = 0;
};

/** Finds the lines that two texts have in common. */
class LineComparison
{
public:
    LineComparison(QStringView before, QStringView after)
        : before_(before)
        , after_(after)
        , oldLines_(LinesOf(before))
        , newLines_(LinesOf(after))
    {
        Number(before_, oldLines_, oldNumbers_);
        Number(after_, newLines_, newNumbers_);
    }

    [[nodiscard]] std::vector<Hunk> Hunks() const;
    [[nodiscard]] const std::vector<HtmlSpan>& OldLines() const { return oldLines_; }
    [[nodiscard]] const std::vector<HtmlSpan>& NewLines() const { return newLines_; }

private:
    /** Gives lines that say the same the same number. */
    void Number(QStringView text, const std::vector<HtmlSpan>& lines, std::vector<int>& numbers)
    {
        numbers.reserve(lines.size());
        for (const HtmlSpan& line : lines) {
            numbers.push_back(known_.value(line.In(text), int(known_.size())));
            known_.insert(line.In(text), numbers.back());
        }
    }

    [[nodiscard]] std::vector<Hunk> HunksBetween(const Hunk& whole) const;

    QStringView before_;
    QStringView after_;
    std::vector<HtmlSpan> oldLines_;
    std::vector<HtmlSpan> newLines_;
    QHash<QStringView, int> known_;
    std::vector<int> oldNumbers_;
    std::vector<int> newNumbers_;
};

std::vector<Hunk> LineComparison::Hunks() const
{
    Hunk whole{ .oldEnd = oldLines_.size(), .newEnd = newLines_.size() };
    const auto isLeft = [&whole] { return whole.oldStart < whole.oldEnd && whole.newStart < whole.newEnd; };
    while (isLeft() && oldNumbers_[whole.oldStart] == newNumbers_[whole.newStart]) {
        ++whole.oldStart;
        ++whole.newStart;
    }
    while (isLeft() && oldNumbers_[whole.oldEnd - 1] == newNumbers_[whole.newEnd - 1]) {
        --whole.oldEnd;
        --whole.newEnd;
    }
    // Comparing each line with each takes time and memory.
    constexpr std::size_t most = 4'000'000;
    const std::size_t pairs = (whole.oldEnd - whole.oldStart + 1) * (whole.newEnd - whole.newStart + 1);
    return pairs <= most ? HunksBetween(whole) : std::vector<Hunk>{ whole };
}

/** By the longest sequence of lines that both have. */
std::vector<Hunk> LineComparison::HunksBetween(const Hunk& whole) const
{
    const std::size_t rows = whole.oldEnd - whole.oldStart;
    const std::size_t columns = whole.newEnd - whole.newStart;
    const auto isSame = [&](std::size_t row, std::size_t column) {
        return oldNumbers_[whole.oldStart + row] == newNumbers_[whole.newStart + column];
    };
    std::vector<int> longest((rows + 1) * (columns + 1));
    const auto at = [&](std::size_t row, std::size_t column) -> int& {
        return longest[row * (columns + 1) + column];
    };
    for (std::size_t row = rows; row-- > 0;) {
        for (std::size_t column = columns; column-- > 0;) {
            at(row, column) = isSame(row, column) ? at(row + 1, column + 1) + 1
                                                  : std::max(at(row + 1, column), at(row, column + 1));
        }
    }
    std::vector<Hunk> hunks;
    Hunk hunk = { whole.oldStart, whole.oldStart, whole.newStart, whole.newStart };
    const auto end = [&] {
        if (hunk.oldStart < hunk.oldEnd || hunk.newStart < hunk.newEnd) {
            hunks.push_back(hunk);
        }
    };
    std::size_t row = 0;
    std::size_t column = 0;
    while (row < rows || column < columns) {
        if (row < rows && column < columns && isSame(row, column)) {
            end();
            ++row;
            ++column;
            hunk = { whole.oldStart + row, whole.oldStart + row, whole.newStart + column,
                     whole.newStart + column };
        } else if (column == columns || (row < rows && at(row + 1, column) >= at(row, column + 1))) {
            hunk.oldEnd = whole.oldStart + ++row;
        } else {
            hunk.newEnd = whole.newStart + ++column;
        }
    }
    end();
    return hunks;
}

/** Makes the replacements of a part of a page. */
class TextChanger
{
public:
    TextChanger(QStringView page, const HtmlSpan& place, QStringView text)
        : before_(place.In(page))
        , after_(text)
        , offset_(place.offset)
        , comparison_(before_, after_)
    {
    }

    QList<TextReplacement> Run()
    {
        for (const Hunk& hunk : comparison_.Hunks()) {
            const std::size_t count = std::min(hunk.oldEnd - hunk.oldStart, hunk.newEnd - hunk.newStart);
            for (std::size_t i = 0; i < count; ++i) {
                ReplaceLine(hunk.oldStart + i, hunk.newStart + i);
            }
            if (hunk.oldStart + count < hunk.oldEnd) {
                RemoveLines(hunk.oldStart + count, hunk.oldEnd);
            } else if (hunk.newStart + count < hunk.newEnd) {
                AddLines(hunk.oldEnd, hunk.newStart + count, hunk.newEnd);
            }
        }
        return Joined();
    }

private:
    [[nodiscard]] HtmlSpan Old(std::size_t line) const { return comparison_.OldLines()[line]; }
    [[nodiscard]] QStringView New(std::size_t line) const { return comparison_.NewLines()[line].In(after_); }

    void Replace(qsizetype start, qsizetype end, const QString& text)
    {
        changes_ << TextReplacement{ { offset_ + start, end - start }, text };
    }

    /** Replaces what differs between two lines; a character in two units stays whole. */
    void ReplaceLine(std::size_t oldLine, std::size_t newLine)
    {
        const HtmlSpan place = Old(oldLine);
        const QStringView was = place.In(before_);
        const QStringView is = New(newLine);
        const qsizetype shorter = std::min(was.size(), is.size());
        qsizetype start = std::mismatch(was.begin(), was.begin() + shorter, is.begin()).first - was.begin();
        start -= start > 0 && was[start - 1].isHighSurrogate() ? 1 : 0;
        qsizetype end = 0;
        while (end < shorter - start && was[was.size() - 1 - end] == is[is.size() - 1 - end]) {
            ++end;
        }
        end -= end > 0 && was[was.size() - end].isLowSurrogate() ? 1 : 0;
        if (start + end < std::max(was.size(), is.size())) {
            Replace(
                place.offset + start, place.End() - end,
                is.sliced(start, is.size() - start - end).toString());
        }
    }

    void RemoveLines(std::size_t start, std::size_t end)
    {
        if (end < comparison_.OldLines().size()) {
            Replace(Old(start).offset, Old(end).offset, {});
        } else {
            Replace(start > 0 ? Old(start - 1).End() : 0, Old(end - 1).End(), {});
        }
    }

    /** Adds lines in front of another, or at the end; they end like the line before. */
    void AddLines(std::size_t front, std::size_t start, std::size_t end)
    {
        const bool isLast = front == comparison_.OldLines().size();
        QString text;
        for (std::size_t line = start; line < end; ++line) {
            text += isLast ? QString(LineEndBefore(front) + New(line))
                           : QString(New(line) + LineEndBefore(front));
        }
        const qsizetype at = isLast ? before_.size() : Old(front).offset;
        Replace(at, at, text);
    }

    [[nodiscard]] QString LineEndBefore(std::size_t line) const
    {
        const std::size_t count = comparison_.OldLines().size();
        if (count < 2) {
            return QStringLiteral("\r\n");
        }
        const std::size_t ended = std::min(line == 0 ? 0 : line - 1, count - 2);
        const qsizetype at = Old(ended).End();
        return before_.sliced(at, LengthOfEnd(before_, at)).toString();
    }

    /** The changes with those that touch as one. */
    [[nodiscard]] QList<TextReplacement> Joined() const
    {
        QList<TextReplacement> joined;
        for (const TextReplacement& change : changes_) {
            const bool touches = !joined.isEmpty() &&
                                 joined.last().Place.Start + joined.last().Place.Length == change.Place.Start;
            if (touches) {
                joined.last().Place.Length += change.Place.Length;
                joined.last().Text += change.Text;
            } else {
                joined << change;
            }
        }
        return joined;
    }

    QStringView before_;
    QStringView after_;
    qsizetype offset_;
    LineComparison comparison_;
    QList<TextReplacement> changes_;
};

} // namespace

std::optional<qsizetype> LengthOfSame(QStringView page, qsizetype start, QStringView text)
{
    qsizetype at = start;
    for (const QChar character : text) {
        if (at >= page.size()) {
            return std::nullopt;
        }
        const bool isEnd = IsEndOfLine(page[at]);
        if (isEnd ? character != u'\n' : page[at] != character) {
            return std::nullopt;
        }
        at += isEnd ? LengthOfEnd(page, at) : 1;
    }
    return at - start;
}

QList<TextReplacement> DifferencesOf(QStringView page, const HtmlSpan& place, QStringView text)
{
    return TextChanger(page, place, text).Run();
}
