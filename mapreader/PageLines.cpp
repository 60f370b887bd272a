#include "mapreader/PageLines.h"

#include "html/HtmlNames.h"

#include <algorithm>

namespace {

bool IsEndOfLine(QChar character)
{
    return character == u'\n' || character == u'\r';
}

bool IsBlankInLine(QChar character)
{
    return character == u' ' || character == u'\t';
}

qsizetype StartOfLine(QStringView page, qsizetype offset)
{
    while (offset > 0 && !IsEndOfLine(page[offset - 1])) {
        --offset;
    }
    return offset;
}

qsizetype EndOfLine(QStringView page, qsizetype offset)
{
    while (offset < page.size() && !IsEndOfLine(page[offset])) {
        ++offset;
    }
    return offset;
}

/** The length of the line end there. */
qsizetype LengthOfEnd(QStringView page, qsizetype offset)
{
    return page.sliced(offset).startsWith(u"\r\n") ? 2 : offset < page.size() ? 1 : 0;
}

qsizetype BeforeBlanks(QStringView page, qsizetype offset)
{
    while (offset > 0 && IsBlankInLine(page[offset - 1])) {
        --offset;
    }
    return offset;
}

qsizetype BehindBlanks(QStringView page, qsizetype offset)
{
    while (offset < page.size() && IsBlankInLine(page[offset])) {
        ++offset;
    }
    return offset;
}

} // namespace

bool IsBlankText(QStringView text)
{
    return std::ranges::all_of(text, [](QChar character) { return IsHtmlSpace(character.unicode()); });
}

bool BeginsItsLine(QStringView page, qsizetype offset)
{
    const qsizetype start = BeforeBlanks(page, offset);
    return start == 0 || IsEndOfLine(page[start - 1]);
}

bool EndsItsLine(QStringView page, qsizetype offset)
{
    const qsizetype end = BehindBlanks(page, offset);
    return end == page.size() || IsEndOfLine(page[end]);
}

QString IndentAt(QStringView page, qsizetype offset)
{
    const qsizetype start = StartOfLine(page, offset);
    return page.sliced(start, BehindBlanks(page, start) - start).toString();
}

QString LineEndAt(QStringView page, qsizetype offset)
{
    const qsizetype start = StartOfLine(page, offset);
    if (start > 0) {
        const qsizetype before = page.first(start).endsWith(u"\r\n") ? 2 : 1;
        return page.sliced(start - before, before).toString();
    }
    const qsizetype end = EndOfLine(page, offset);
    const qsizetype length = LengthOfEnd(page, end);
    return length > 0 ? page.sliced(end, length).toString() : QStringLiteral("\n");
}

HtmlSpan WithItsLine(QStringView page, const HtmlSpan& place)
{
    if (!EndsItsLine(page, place.End())) {
        return place;
    }
    const qsizetype start = BeforeBlanks(page, place.offset);
    if (!BeginsItsLine(page, place.offset)) {
        return { start, place.End() - start };
    }
    const qsizetype lineEnd = BehindBlanks(page, place.End());
    return { start, lineEnd + LengthOfEnd(page, lineEnd) - start };
}

qsizetype BehindComment(QStringView page, qsizetype offset)
{
    const qsizetype end = EndOfLine(page, offset);
    const QStringView rest = page.sliced(offset, end - offset).trimmed();
    const bool isComment =
        rest.startsWith(u"<!--") && rest.indexOf(u"-->") == rest.size() - 3 && rest.size() >= 7;
    return isComment ? end : offset;
}
