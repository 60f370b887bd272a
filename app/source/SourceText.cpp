#include "app/source/SourceText.h"

#include "shared/PageDocument.h"

#include <QTextBlock>
#include <QTextDocument>
#include <algorithm>

namespace {

bool IsLineEnd(QChar character)
{
    return character == u'\n' || character == u'\r';
}

/** How a character outside the code page is saved. */
constexpr QChar replacement = u'?';

} // namespace

bool IsOfLayout(QChar character)
{
    constexpr char16_t beginningOfFrame = 0xFDD0;
    constexpr char16_t endOfFrame = 0xFDD1;
    return character == QChar::LineSeparator || character == QChar::ParagraphSeparator ||
           character == beginningOfFrame || character == endOfFrame;
}

bool IsForDocument(const QString& text)
{
    return std::ranges::none_of(text, [](QChar c) { return IsLineEnd(c) || IsOfLayout(c); });
}

QString ForDocument(const QString& text)
{
    QString lines(text.size(), Qt::Uninitialized);
    QChar* to = lines.data();
    const QChar* const end = text.constEnd();
    for (const QChar* from = text.constBegin(); from != end; ++from) {
        if (*from == u'\r' && from + 1 != end && from[1] == u'\n') {
            continue;
        }
        *to++ = IsLineEnd(*from) ? QChar(u'\n') : IsOfLayout(*from) ? replacement : *from;
    }
    lines.truncate(to - lines.constData());
    return lines;
}

QString WithCrLf(const QString& lines)
{
    QString text(lines.size() + lines.count(QChar::ParagraphSeparator), Qt::Uninitialized);
    QChar* to = text.data();
    for (const QChar character : lines) {
        if (character == QChar::ParagraphSeparator) {
            *to++ = u'\r';
            *to++ = u'\n';
        } else {
            *to++ = character;
        }
    }
    return text;
}

qsizetype TextPosition(const QTextDocument& document, int position)
{
    return qsizetype(position) + document.findBlock(position).blockNumber();
}

int DocumentPosition(const QTextDocument& document, qsizetype position)
{
    const auto start = [&document](int number) {
        return qsizetype(document.findBlockByNumber(number).position()) + number;
    };
    int first = 0;
    int count = document.blockCount();
    while (count > 1) {
        const int half = count / 2;
        if (start(first + half) <= position) {
            first += half;
            count -= half;
        } else {
            count = half;
        }
    }
    const QTextBlock block = document.findBlockByNumber(first);
    const qsizetype inBlock = std::clamp<qsizetype>(position - start(first), 0, block.length() - 1);
    return block.position() + static_cast<int>(inBlock);
}

void ReplaceEach(QTextCursor& cursor, const QList<TextReplacement>& replacements)
{
    const QTextDocument& document = *cursor.document();
    // From the last to the first: what is replaced does not move what comes next.
    for (auto one = replacements.crbegin(); one != replacements.crend(); ++one) {
        cursor.setPosition(DocumentPosition(document, one->Place.Start));
        cursor.setPosition(
            DocumentPosition(document, one->Place.Start + one->Place.Length), QTextCursor::KeepAnchor);
        if (cursor.hasSelection() || !one->Text.isEmpty()) {
            cursor.insertText(ForDocument(one->Text));
        }
    }
}
