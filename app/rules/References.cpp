#include "app/rules/References.h"

#include "app/rules/MisreadUtf8.h"
#include "html/HtmlScanner.h"

namespace {

constexpr int hexadecimal = 16;
constexpr int scriptDigits = 4;

char32_t CodePointOf(QStringView character)
{
    return character.size() == 2 ? QChar::surrogateToUcs4(character[0].unicode(), character[1].unicode())
                                 : char32_t(character[0].unicode());
}

/** In a script every half of a pair has an escape of its own. */
QString ScriptEscape(QStringView character)
{
    QString escape;
    for (const QChar half : character) {
        escape += QStringLiteral("\\u%1").arg(half.unicode(), scriptDigits, hexadecimal, QChar(u'0'));
    }
    return escape;
}

QString EscapeFor(QStringView character, const HtmlPart& part)
{
    const char32_t codePoint = CodePointOf(character);
    if (part.kind == HtmlPartKind::Text && part.content == HtmlContent::Script) {
        return ScriptEscape(character);
    }
    if (part.kind == HtmlPartKind::Text && part.content == HtmlContent::Style) {
        // The blank ends it, and is no part of the text.
        return QStringLiteral("\\%1 ").arg(uint(codePoint), 0, hexadecimal);
    }
    return QStringLiteral("&#%1;").arg(uint(codePoint));
}

/** Replaces the characters of `text`; `lengthAt` tells how long the one at a place is, and 0 for one that
 * stays. */
template<class LengthAt> QList<TextReplacement> EscapesIn(const QString& text, LengthAt lengthAt)
{
    QList<TextReplacement> replacements;
    HtmlScanner scanner(text);
    for (HtmlPart part; scanner.Next(part);) {
        for (qsizetype i = part.place.offset; i < part.place.End(); ++i) {
            const qsizetype length = lengthAt(i);
            if (length > 0) {
                const QStringView character = QStringView(text).sliced(i, length);
                replacements << TextReplacement{ { i, length }, EscapeFor(character, part) };
                i += length - 1;
            }
        }
    }
    return replacements;
}

/** How long the character beyond ASCII at a place is; 0 for another, and for half a pair. */
qsizetype LengthBeyondAscii(const QString& text, qsizetype at)
{
    constexpr char16_t firstBeyondAscii = 0x80;
    if (text[at].unicode() < firstBeyondAscii) {
        return 0;
    }
    if (!text[at].isSurrogate()) {
        return 1;
    }
    const bool isPair = text[at].isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate();
    return isPair ? 2 : 0;
}

} // namespace

QList<TextReplacement> ReferencesFor(const QString& text, TextEncoding encoding)
{
    return EscapesIn(text, [&](qsizetype at) { return LackingAt(text, at, encoding); });
}

QString WithReferences(const QString& text)
{
    const QList<TextReplacement> ofPage = MisreadUtf8(text);
    auto next = ofPage.begin();
    const QList<TextReplacement> escapes = EscapesIn(text, [&](qsizetype at) {
        while (next != ofPage.end() && next->Place.Start + next->Place.Length <= at) {
            ++next;
        }
        const bool isOfPage = next != ofPage.end() && next->Place.Start <= at;
        return isOfPage ? 0 : LengthBeyondAscii(text, at);
    });
    QString written = text;
    for (auto one = escapes.crbegin(); one != escapes.crend(); ++one) {
        written.replace(one->Place.Start, one->Place.Length, one->Text);
    }
    return written;
}
