#include "app/source/SourceText.h"

#include "app/source/LineFitter.h"
#include "app/source/LongLines.h"
#include "shared/PageDocument.h"
#include "shared/TextEncoding.h"

#include <QTextBlock>
#include <QTextDocument>
#include <algorithm>
#include <utility>

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

/** Where `block`, whose number is `number`, starts in the text. */
qsizetype StartOf(const QTextBlock& block, int number, const LongLines* lines)
{
    // Each block before it ends in one character, which is two in the text, or none where a line goes on.
    const int joints = lines != nullptr ? lines->JointsBefore(block.position()) : 0;
    return qsizetype(block.position()) + number - 2 * qsizetype(joints);
}

/** A block and its number, to go from place to place in a document that is not edited meanwhile. */
struct Place
{
    QTextBlock Block;
    int Number = 0;
    const LongLines* Lines = nullptr;

    [[nodiscard]] qsizetype Start() const { return StartOf(Block, Number, Lines); }

    /** The document's position of a character of the text in the block. */
    [[nodiscard]] int PositionOf(qsizetype position) const
    {
        return Block.position() +
               static_cast<int>(std::clamp<qsizetype>(position - Start(), 0, Block.length() - 1));
    }

    /** Goes back to the block that holds a position; mostly that is not far. */
    void GoBackTo(qsizetype position)
    {
        constexpr int nearby = 4;
        for (int i = 0; i < nearby && Start() > position; ++i) {
            Block = Block.previous();
            --Number;
        }
        if (Start() > position) {
            Block = Block.document()->findBlock(DocumentPosition(*Block.document(), position));
            Number = Block.blockNumber();
        }
    }
};

/** The document's positions of the parts that are replaced, from the last to the first. */
QList<std::pair<int, int>>
PositionsFromLast(const QTextDocument& document, const QList<TextReplacement>& replacements)
{
    Place place{ document.lastBlock(), document.blockCount() - 1, LongLines::Of(document) };
    QList<std::pair<int, int>> positions;
    positions.reserve(replacements.size());
    for (auto one = replacements.crbegin(); one != replacements.crend(); ++one) {
        const qsizetype end = one->Place.Start + one->Place.Length;
        place.GoBackTo(one->Place.Start);
        const bool endsInBlock = end <= place.Start() + place.Block.length() - 1;
        positions << std::pair(
            place.PositionOf(one->Place.Start),
            endsInBlock ? place.PositionOf(end) : DocumentPosition(document, end));
    }
    return positions;
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
    const QTextBlock block = document.findBlock(position);
    return StartOf(block, block.blockNumber(), LongLines::Of(document)) + position - block.position();
}

int DocumentPosition(const QTextDocument& document, qsizetype position)
{
    const LongLines* const lines = LongLines::Of(document);
    const auto start = [&document, lines](int number) {
        return StartOf(document.findBlockByNumber(number), number, lines);
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
    return Place{ document.findBlockByNumber(first), first, lines }.PositionOf(position);
}

EditedPart
ReplaceEach(QTextCursor& cursor, const QList<TextReplacement>& replacements, LayoutCharacters layout)
{
    const QTextDocument& document = *cursor.document();
    const QList<std::pair<int, int>> positions = PositionsFromLast(document, replacements);
    const int sizeBefore = document.characterCount();
    // From the last to the first: what is replaced does not move what comes next.
    for (qsizetype i = 0; i < positions.size(); ++i) {
        const auto [first, end] = positions[i];
        const QString& text = replacements[replacements.size() - 1 - i].Text;
        cursor.setPosition(first);
        cursor.setPosition(end, QTextCursor::KeepAnchor);
        if (cursor.hasSelection() || !text.isEmpty()) {
            InsertLines(cursor, ForDocument(text, layout));
        }
    }
    if (positions.isEmpty()) {
        return {};
    }
    return { positions.constLast().first,
             positions.constFirst().second + document.characterCount() - sizeBefore };
}
