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
        const bool isMark = i == 0 && bytes.startsWith("\xEF\xBB\xBF");
        const QString character =
            isMark ? QString() : DecodeText(QByteArrayView(bytes).first(length), TextEncoding::Utf8);
        replacements << TextReplacement{ { i, length }, character };
        i += length - 1;
    }
    return replacements;
}
