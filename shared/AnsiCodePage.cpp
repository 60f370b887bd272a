#include "shared/AnsiCodePage.h"

#include <algorithm>
#include <array>

namespace {

constexpr char32_t firstSpecial = 0x80;
constexpr char32_t firstLatin1 = 0xA0;
constexpr char16_t codePointsEnd = 0x100;

/** The characters of the bytes 0x80 to 0x9F; every other byte is the character of its own number. */
constexpr std::array<char16_t, 32> specials = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};
static_assert(firstSpecial + specials.size() == firstLatin1);

char EncodeCharacter(char16_t character)
{
    if (character < firstSpecial || (character >= firstLatin1 && character < codePointsEnd)) {
        return static_cast<char>(character);
    }
    const auto* const found = std::find(specials.begin(), specials.end(), character);
    return found == specials.end() ? '?' : static_cast<char>(firstSpecial + (found - specials.begin()));
}

} // namespace

QString AnsiCodePage::Decode(QByteArrayView bytes)
{
    QString text = QString::fromLatin1(bytes);
    for (QChar& character : text) {
        const char16_t code = character.unicode();
        if (code >= firstSpecial && code < firstLatin1) {
            character = specials[code - firstSpecial];
        }
    }
    return text;
}

QByteArray AnsiCodePage::Encode(QStringView text)
{
    // Filled in place: appending would check the room at every byte.
    QByteArray bytes(text.size(), Qt::Uninitialized);
    char* to = bytes.data();
    for (qsizetype i = 0; i < text.size(); ++i) {
        const bool isPair = text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate();
        *to++ = isPair ? '?' : EncodeCharacter(text[i].unicode());
        i += isPair ? 1 : 0;
    }
    bytes.truncate(to - bytes.constData());
    return bytes;
}
