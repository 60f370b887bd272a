#include "app/source/SourceText.h"

#include "shared/PageDocument.h"
#include "shared/TextEncoding.h"

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

QString WithLayoutAsBytes(const QString& text)
{
    QString held;
    for (const QChar character : text) {
        held += IsOfLayout(character) ? HeldBytes(QString(character).toUtf8()) : QString(character);
    }
    return held;
}

/** The document's position of a character of the text in `block`, whose number is `number`. */
int PositionIn(const QTextBlock& block, int number, qsizetype position)
{
    const qsizetype start = qsizetype(block.position()) + number;
    return block.position() +
           static_cast<int>(std::clamp<qsizetype>(position - start, 0, block.length() - 1));
}

/** Goes from `block` to the one before or at it that holds a position; mostly that is not far. */
void GoBackTo(QTextBlock& block, int& number, qsizetype position)
{
    constexpr int nearby = 4;
    for (int i = 0; i < nearby && qsizetype(block.position()) + number > position; ++i) {
        block = block.previous();
        --number;
    }
    if (qsizetype(block.position()) + number > position) {
        block = block.document()->findBlock(DocumentPosition(*block.document(), position));
        number = block.blockNumber();
    }
}

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

QString ForDocument(const QString& text, LayoutCharacters layout)
{
    if (layout == LayoutCharacters::AsBytes && std::ranges::any_of(text, IsOfLayout)) {
        return ForDocument(WithLayoutAsBytes(text));
    }
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
    return PositionIn(document.findBlockByNumber(first), first, position);
}

void ReplaceEach(QTextCursor& cursor, const QList<TextReplacement>& replacements, LayoutCharacters layout)
{
    const QTextDocument& document = *cursor.document();
    QTextBlock block = document.lastBlock();
    int number = block.blockNumber();
    // From the last to the first: what is replaced does not move what comes next.
    for (auto one = replacements.crbegin(); one != replacements.crend(); ++one) {
        const qsizetype end = one->Place.Start + one->Place.Length;
        GoBackTo(block, number, one->Place.Start);
        const int first = PositionIn(block, number, one->Place.Start);
        const bool endsInBlock = end <= qsizetype(block.position()) + number + block.length() - 1;
        cursor.setPosition(first);
        cursor.setPosition(
            endsInBlock ? PositionIn(block, number, end) : DocumentPosition(document, end),
            QTextCursor::KeepAnchor);
        if (cursor.hasSelection() || !one->Text.isEmpty()) {
            cursor.insertText(ForDocument(one->Text, layout));
            block = document.findBlock(first);
        }
    }
}
