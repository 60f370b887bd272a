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

bool IsTextOf(const HtmlPart& part, HtmlContent content)
{
    return part.kind == HtmlPartKind::Text && part.content == content;
}

QString EscapeFor(QStringView character, const HtmlPart& part)
{
    const char32_t codePoint = CodePointOf(character);
    if (IsTextOf(part, HtmlContent::Script)) {
        return ScriptEscape(character);
    }
    if (IsTextOf(part, HtmlContent::Style)) {
        // The blank ends it, and is no part of the text.
        return QStringLiteral("\\%1 ").arg(uint(codePoint), 0, hexadecimal);
    }
    return QStringLiteral("&#%1;").arg(uint(codePoint));
}

/** Adds the escapes of the characters of `part`; `lengthAt` tells how long the one at a place is, and 0 for
 * one that stays. */
template<class LengthAt>
void EscapeIn(
    QStringView text, const HtmlPart& part, LengthAt& lengthAt, QList<TextReplacement>& replacements)
{
    for (qsizetype i = part.place.offset; i < part.place.End(); ++i) {
        const qsizetype length = lengthAt(i);
        if (length > 0) {
            replacements << TextReplacement{ { i, length }, EscapeFor(text.sliced(i, length), part) };
            i += length - 1;
        }
    }
}

/** The escapes of all characters of `text`. */
template<class LengthAt> QList<TextReplacement> EscapesIn(const QString& text, LengthAt lengthAt)
{
    QList<TextReplacement> replacements;
    HtmlScanner scanner(text);
    for (HtmlPart part; scanner.Next(part);) {
        EscapeIn(text, part, lengthAt, replacements);
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

/** The characters beyond ASCII but for those of a page in UTF-8 that was read otherwise; asked from the front
 * to the end. */
class OwnCharacters
{
public:
    explicit OwnCharacters(const QString& text)
        : text_(text)
        , ofPage_(MisreadUtf8(text))
    {
    }

    /** How long the one at a place is; 0 where there is none. */
    qsizetype operator()(qsizetype at)
    {
        while (next_ < ofPage_.size() && ofPage_[next_].Place.Start + ofPage_[next_].Place.Length <= at) {
            ++next_;
        }
        const bool isOfPage = next_ < ofPage_.size() && ofPage_[next_].Place.Start <= at;
        return isOfPage ? 0 : LengthBeyondAscii(text_, at);
    }

private:
    const QString& text_;
    QList<TextReplacement> ofPage_;
    qsizetype next_ = 0;
};

QString WithEscapes(QString text, const QList<TextReplacement>& escapes)
{
    for (auto one = escapes.crbegin(); one != escapes.crend(); ++one) {
        text.replace(one->Place.Start, one->Place.Length, one->Text);
    }
    return text;
}

} // namespace

QList<TextReplacement> ReferencesFor(const QString& text, TextEncoding encoding)
{
    return EscapesIn(text, [&](qsizetype at) { return LackingAt(text, at, encoding); });
}

QString WithReferences(const QString& text)
{
    return WithEscapes(text, EscapesIn(text, OwnCharacters(text)));
}

QList<TextReplacement> WithReferences(const QString& text, QList<TextReplacement> replacements)
{
    HtmlScanner scanner(text);
    HtmlPart part;
    bool isThere = scanner.Next(part);
    for (TextReplacement& one : replacements) {
        while (isThere && part.place.End() <= one.Place.Start) {
            isThere = scanner.Next(part);
        }
        const bool isInPart = isThere && part.place.offset <= one.Place.Start;
        if (isInPart && (IsTextOf(part, HtmlContent::Script) || IsTextOf(part, HtmlContent::Style))) {
            HtmlPart piece = part;
            piece.place = { 0, one.Text.size() };
            QList<TextReplacement> escapes;
            OwnCharacters own(one.Text);
            EscapeIn(one.Text, piece, own, escapes);
            one.Text = WithEscapes(one.Text, escapes);
        } else {
            one.Text = WithReferences(one.Text);
        }
    }
    return replacements;
}
