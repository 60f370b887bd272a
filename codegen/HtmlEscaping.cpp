#include "codegen/HtmlEscaping.h"

#include "shared/AnsiCodePage.h"

#include <QRegularExpression>
#include <QStringBuilder>
#include <algorithm>
#include <array>

namespace {

struct Escape
{
    char32_t character;
    QStringView written;
};

constexpr std::array<Escape, 4> escapes = { {
    { U'&', u"&amp;" },
    { U'<', u"&lt;" },
    { U'>', u"&gt;" },
    { U'"', u"&quot;" },
} };

constexpr char32_t lastAscii = 0x7E;
constexpr char32_t firstBehindControls = 0xA0;

constexpr bool IsNonCharacter(char32_t character)
{
    constexpr char32_t lowBits = 0xFFFE;
    return (character & lowBits) == lowBits || (character >= 0xFDD0 && character <= 0xFDEF);
}

/** Whether a page may hold the character at all; the tabulator and line ends are the only controls. */
constexpr bool MayStandInPage(char32_t character)
{
    const bool isControl = character < U' ' || (character > lastAscii && character < firstBehindControls);
    const bool isSurrogate = character >= 0xD800 && character <= 0xDFFF;
    const bool isSpace = character == U'\t' || character == U'\n' || character == U'\r';
    return isSpace || (!isControl && !isSurrogate && !IsNonCharacter(character));
}
static_assert(MayStandInPage(U'a') && MayStandInPage(U'\n') && MayStandInPage(0x1F600));
static_assert(!MayStandInPage(0) && !MayStandInPage(0x85) && !MayStandInPage(0xDC00));
static_assert(!MayStandInPage(0x1FFFF));

bool IsInWindows1252(char32_t character)
{
    constexpr char32_t lastOfUnit = 0xFFFF;
    if (character > lastOfUnit) {
        return false;
    }
    const QChar unit(static_cast<char16_t>(character));
    return AnsiCodePage::Decode(AnsiCodePage::Encode(QStringView(&unit, 1))) == unit;
}

bool IsIn(PageCharset charset, char32_t character)
{
    if (character <= lastAscii || charset == PageCharset::Unicode) {
        return true;
    }
    return charset == PageCharset::Windows1252 && IsInWindows1252(character);
}

QString Written(char32_t character, PageCharset charset)
{
    const auto isIt = [character](const Escape& escape) { return escape.character == character; };
    const auto* const found = std::find_if(escapes.begin(), escapes.end(), isIt);
    if (found != escapes.end()) {
        return found->written.toString();
    }
    constexpr int hexadecimal = 16;
    return IsIn(charset, character)
               ? QString::fromUcs4(&character, 1)
               : QString(u"&#x" % QString::number(uint(character), hexadecimal).toUpper() % u';');
}

/** Gives `take` every character of the text; a half of a surrogate pair stays one. */
template<typename Taker> void ForEachCharacter(QStringView text, Taker take)
{
    for (qsizetype i = 0; i < text.size(); ++i) {
        const bool isPair = text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate();
        take(isPair ? QChar::surrogateToUcs4(text[i], text[i + 1]) : char32_t(text[i].unicode()));
        i += isPair ? 1 : 0;
    }
}

} // namespace

QString EscapedHtml(QStringView text, PageCharset charset)
{
    QString written;
    written.reserve(text.size());
    ForEachCharacter(text, [&written, charset](char32_t character) {
        if (MayStandInPage(character)) {
            written += Written(character, charset);
        }
    });
    return written;
}

QString OneLineOfText(QStringView text)
{
    QString kept;
    kept.reserve(text.size());
    ForEachCharacter(text, [&kept](char32_t character) {
        if (MayStandInPage(character)) {
            kept += QStringView(QChar::fromUcs4(character));
        }
    });
    return kept.simplified();
}

QStringList LinesOfMessage(QStringView text)
{
    static const QRegularExpression lineBreak(
        QStringLiteral("<br\\s*/?>"), QRegularExpression::CaseInsensitiveOption);
    QStringList lines = text.toString().split(lineBreak);
    for (QString& line : lines) {
        line = OneLineOfText(line);
    }
    return lines;
}

QString OneLineOfMessage(QStringView text)
{
    return LinesOfMessage(text).join(u' ').simplified();
}
