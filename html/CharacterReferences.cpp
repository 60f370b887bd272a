#include "html/CharacterReferences.h"

#include "html/CharacterNames.h"
#include "html/HtmlNames.h"
#include "shared/AnsiCodePage.h"

#include <algorithm>

namespace {

constexpr char32_t replacement = 0xFFFD;
constexpr char32_t codePointsEnd = 0x110000;

constexpr bool IsDecimalDigit(QChar character)
{
    return character >= u'0' && character <= u'9';
}

bool IsHexDigit(QChar character)
{
    return IsDecimalDigit(character) || (character >= u'a' && character <= u'f') ||
           (character >= u'A' && character <= u'F');
}

/** What a number stands for: those of the C1 controls are taken for bytes of Windows-1252. */
char32_t CharacterOf(char32_t number)
{
    constexpr char32_t firstControl = 0x80;
    constexpr char32_t controlsEnd = 0xA0;
    if (number >= firstControl && number < controlsEnd) {
        const char byte = static_cast<char>(number);
        return AnsiCodePage::Decode(QByteArrayView(&byte, 1)).front().unicode();
    }
    const bool isNone = number == 0 || number >= codePointsEnd || QChar::isSurrogate(number);
    return isNone ? replacement : number;
}

/** The number that `digits` are, or one behind the last code point. */
char32_t NumberOf(QStringView digits, char32_t base)
{
    constexpr char32_t beyondDecimal = 10;
    char32_t number = 0;
    for (const QChar digit : digits) {
        const char16_t small = digit.toLower().unicode();
        const char32_t value = IsDecimalDigit(digit) ? small - u'0' : small - u'a' + beyondDecimal;
        number = std::min(char32_t(number * base + value), codePointsEnd);
    }
    return number;
}

std::optional<CharacterReference> NumericReference(QStringView text, qsizetype ampersand)
{
    constexpr qsizetype introduction = 2;
    const QStringView behind = text.sliced(ampersand + introduction);
    const bool isHex = behind.startsWith(u'x') || behind.startsWith(u'X');
    const QStringView rest = behind.sliced(isHex ? 1 : 0);
    const auto* const end = std::ranges::find_if_not(rest, isHex ? IsHexDigit : IsDecimalDigit);
    const QStringView digits = rest.first(end - rest.begin());
    if (digits.isEmpty()) {
        return std::nullopt;
    }
    const qsizetype semicolon = end != rest.end() && *end == u';' ? 1 : 0;
    const qsizetype length = introduction + (isHex ? 1 : 0) + digits.size() + semicolon;
    return CharacterReference{ { ampersand, length }, { CharacterOf(NumberOf(digits, isHex ? 16 : 10)) } };
}

/** The character of a name there, nought behind its end. */
char16_t LetterOf(const CharacterName& named, qsizetype index)
{
    return std::size_t(index) < named.name.size() ? char16_t(named.name[std::size_t(index)]) : char16_t(0);
}

/** The longest name that `text` begins with, with a semicolon behind it unless it does without. */
const CharacterName* LongestName(QStringView text)
{
    std::span<const CharacterName> candidates = CharacterNames();
    const CharacterName* longest = nullptr;
    for (qsizetype length = 0; !candidates.empty(); ++length) {
        const char16_t next = length < text.size() ? text[length].unicode() : char16_t(0);
        // A name of just this length comes before all that are longer.
        const CharacterName& first = candidates.front();
        if (first.name.size() == std::size_t(length) && (next == u';' || !first.needsSemicolon)) {
            longest = &first;
        }
        if (next == 0) {
            break;
        }
        const auto letter = [length](const CharacterName& named) { return LetterOf(named, length); };
        candidates = { std::ranges::lower_bound(candidates, next, {}, letter),
                       std::ranges::upper_bound(candidates, next, {}, letter) };
    }
    return longest;
}

std::optional<CharacterReference> NamedReference(QStringView text, qsizetype ampersand, ReferenceIn where)
{
    const QStringView behind = text.sliced(ampersand + 1);
    const CharacterName* const named = LongestName(behind);
    if (named == nullptr) {
        return std::nullopt;
    }
    const auto nameLength = qsizetype(named->name.size());
    const QStringView rest = behind.sliced(nameLength);
    const bool hasSemicolon = rest.startsWith(u';');
    const bool goesOn = !rest.isEmpty() && (rest.front() == u'=' || IsAsciiLetter(rest.front().unicode()) ||
                                            IsDecimalDigit(rest.front()));
    if (where == ReferenceIn::Value && goesOn) {
        return std::nullopt;
    }
    return CharacterReference{ { ampersand, 1 + nameLength + (hasSemicolon ? 1 : 0) }, named->characters };
}

std::optional<CharacterReference> ReferenceAt(QStringView text, qsizetype ampersand, ReferenceIn where)
{
    return text.sliced(ampersand + 1).startsWith(u'#') ? NumericReference(text, ampersand)
                                                       : NamedReference(text, ampersand, where);
}

void AppendTo(QString& text, const CharacterReference& reference)
{
    for (const char32_t character : reference.characters) {
        if (character != 0) {
            text += QChar::fromUcs4(character);
        }
    }
}

QString Decoded(QStringView text, ReferenceIn where)
{
    QString decoded;
    decoded.reserve(text.size());
    for (qsizetype at = 0; at < text.size(); ++at) {
        const QChar character = text[at];
        const auto reference = character == u'&' ? ReferenceAt(text, at, where) : std::nullopt;
        if (reference) {
            AppendTo(decoded, *reference);
            at = reference->place.End() - 1;
        } else if (character == u'\r') {
            decoded += u'\n';
            at += text.sliced(at + 1).startsWith(u'\n') ? 1 : 0;
        } else {
            decoded += character.isNull() ? QChar(QChar::ReplacementCharacter) : character;
        }
    }
    return decoded;
}

} // namespace

std::optional<CharacterReference> NextReference(QStringView text, qsizetype from, ReferenceIn where)
{
    for (qsizetype at = text.indexOf(u'&', from); at >= 0; at = text.indexOf(u'&', at + 1)) {
        if (const auto reference = ReferenceAt(text, at, where)) {
            return reference;
        }
    }
    return std::nullopt;
}

QString DecodedText(QStringView text)
{
    return Decoded(text, ReferenceIn::Text);
}

QString DecodedValue(QStringView value)
{
    return Decoded(value, ReferenceIn::Value);
}

bool CanStandUnquoted(QStringView value)
{
    const auto needsQuotes = [](QChar character) {
        return IsHtmlSpace(character.unicode()) || QStringView(u"\"'=<>`").contains(character);
    };
    // A slash at the end would look like that of "/>".
    return !value.isEmpty() && !value.endsWith(u'/') && std::ranges::none_of(value, needsQuotes);
}

QString EscapedFor(char16_t quote, QStringView value)
{
    QString escaped;
    escaped.reserve(value.size());
    for (const QChar character : value) {
        if (character == u'&') {
            escaped += QLatin1String("&amp;");
        } else if (character == u'\r') {
            escaped += QLatin1String("&#13;");
        } else if (character == quote && quote != 0) {
            escaped += quote == u'"' ? QLatin1String("&quot;") : QLatin1String("&#39;");
        } else {
            escaped += character;
        }
    }
    return escaped;
}
