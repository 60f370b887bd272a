#include "app/rules/MisreadUtf8.h"

#include "shared/AnsiCodePage.h"
#include "shared/TextEncoding.h"

#include <algorithm>

namespace {

constexpr qsizetype mostBytes = 4; // of a character
constexpr char16_t firstBeyond = 0x80;

/** How many bytes the character beyond ASCII has that `bytes` begin with; 0 when they begin with none. */
qsizetype CharacterLength(QByteArrayView bytes)
{
    for (qsizetype length = 2; length <= std::min(mostBytes, bytes.size()); ++length) {
        if (bytes.first(length).isValidUtf8()) {
            return length;
        }
    }
    return 0;
}

/** The character that `bytes` at a place of the text were meant for: a mark is none where the page begins. */
QString MeantBy(QByteArrayView bytes, qsizetype place)
{
    if (bytes == QByteArrayView("\xEF\xBB\xBF")) {
        return place == 0 ? QString() : QString(QChar::ByteOrderMark);
    }
    return DecodeText(bytes, TextEncoding::Utf8);
}

} // namespace

QList<TextReplacement> MisreadUtf8(const QString& text)
{
    QList<TextReplacement> replacements;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i].unicode() < firstBeyond) {
            continue;
        }
        const QByteArray bytes = AnsiCodePage::Encode(QStringView(text).mid(i, mostBytes));
        // A character that was typed becomes "?", which is none of the bytes of another.
        const qsizetype length = bytes.startsWith('?') ? 0 : CharacterLength(bytes);
        if (length == 0) {
            continue;
        }
        replacements << TextReplacement{ { i, length }, MeantBy(QByteArrayView(bytes).first(length), i) };
        i += length - 1;
    }
    return replacements;
}
