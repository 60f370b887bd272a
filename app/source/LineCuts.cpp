#include "app/source/LineCuts.h"

#include <QTextBoundaryFinder>
#include <algorithm>

namespace {

/** Pieces are about so long at first, so that what is typed finds room. */
constexpr qsizetype usualPiece = 160;
/** The characters that tell what one character to a reader is made of. */
constexpr qsizetype seenOfReader = 32;
/** All below stand for themselves. */
constexpr char16_t firstMark = 0x300;

bool IsBlank(QChar character)
{
    return character == u' ' || character == u'\t' || character == u'\f';
}

/** Whether a reader sees two characters on either side. */
bool IsBetweenCharacters(QStringView before, QStringView after)
{
    if (before.isEmpty() || after.isEmpty() ||
        (before.back().unicode() < firstMark && after.front().unicode() < firstMark)) {
        return true;
    }
    const QString around = before.last(std::min(before.size(), seenOfReader)).toString() +
                           after.first(std::min(after.size(), seenOfReader)).toString();
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, around);
    finder.setPosition(std::min(before.size(), seenOfReader));
    return finder.isAtBoundary();
}

/** Whether `before` may end inside of something that a line end would end: a tag, a reference, a mark. */
bool IsInMarkup(QStringView before)
{
    const QStringView seen = before.last(std::min(before.size(), seenBeforeCut));
    return std::ranges::any_of(seen, [](QChar c) { return c == u'<' || c == u'&'; }) ||
           QStringView(u"-]!/=").contains(before.back());
}

/** The last place in `text` from `least` to `most` for which `isGood`; -1 without one. */
template<class IsGood> qsizetype LastCut(QStringView text, qsizetype least, qsizetype most, IsGood isGood)
{
    for (qsizetype at = most; at >= least; --at) {
        if (isGood(text.first(at)) && IsBetweenCharacters(text.first(at), text.sliced(at))) {
            return at;
        }
    }
    return -1;
}

/** Where the first piece of `text` ends, which is too long for one. */
qsizetype FirstCut(QStringView text)
{
    constexpr qsizetype least = usualPiece / 2;
    qsizetype at = LastCut(text, least, usualPiece, IsBetweenWords);
    at = at < 0 ? LastCut(text, least, usualPiece, [](QStringView before) { return !IsInMarkup(before); })
                : at;
    at = at < 0 ? LastCut(text, least, usualPiece, [](QStringView) { return true; }) : at;
    // One character to a reader that is longer than a piece; its halves must still be whole.
    return at >= 0 ? at : usualPiece - (text[usualPiece].isLowSurrogate() ? 1 : 0);
}

} // namespace

bool IsBetweenWords(QStringView before)
{
    return before.isEmpty() || IsBlank(before.back()) || before.back() == u'>';
}

bool IsGoodCut(QStringView before, QStringView after)
{
    return IsBetweenCharacters(before, after) && (IsBetweenWords(before) || !IsInMarkup(before));
}

QList<qsizetype> CutsOf(QStringView text)
{
    QList<qsizetype> cuts;
    qsizetype start = 0;
    while (text.size() - start > mostInPiece) {
        start += FirstCut(text.sliced(start));
        cuts << start;
    }
    return cuts;
}

LinesInPieces WithCuts(const QString& lines)
{
    LinesInPieces pieces;
    qsizetype taken = 0; // so much of the lines is in the text
    qsizetype start = 0;
    while (start <= lines.size()) {
        const qsizetype lineEnd = lines.indexOf(u'\n', start);
        const qsizetype end = lineEnd < 0 ? lines.size() : lineEnd;
        if (end - start >= longLine) {
            for (const qsizetype at : CutsOf(QStringView(lines).sliced(start, end - start))) {
                pieces.Lines += QStringView(lines).sliced(taken, start + at - taken);
                taken = start + at;
                pieces.Joints << static_cast<int>(pieces.Lines.size());
                pieces.Lines += u'\n';
            }
        }
        start = end + 1;
    }
    if (pieces.Joints.isEmpty()) {
        return { lines, {} };
    }
    pieces.Lines += QStringView(lines).sliced(taken);
    return pieces;
}
