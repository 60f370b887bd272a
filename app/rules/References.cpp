#include "app/rules/References.h"

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

} // namespace

QList<TextReplacement> ReferencesFor(const QString& text, TextEncoding encoding)
{
    QList<TextReplacement> replacements;
    HtmlScanner scanner(text);
    for (HtmlPart part; scanner.Next(part);) {
        for (qsizetype i = part.place.offset; i < part.place.End(); ++i) {
            const qsizetype length = LackingAt(text, i, encoding);
            if (length > 0) {
                const QStringView character = QStringView(text).sliced(i, length);
                replacements << TextReplacement{ { i, length }, EscapeFor(character, part) };
                i += length - 1;
            }
        }
    }
    return replacements;
}
