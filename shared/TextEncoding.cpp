#include "shared/TextEncoding.h"

#include "shared/AnsiCodePage.h"

#include <array>

namespace {

constexpr QByteArrayView utf8Mark("\xEF\xBB\xBF");
/** A byte b that is held is the character with this number and b. */
constexpr char16_t heldByte = 0xDC00;
constexpr char16_t firstBeyondAscii = 0x80;
constexpr uchar leastHeld = 0x80;
constexpr uchar mostHeld = 0xFF;

constexpr bool IsHeldByte(char16_t character)
{
    return character >= heldByte + leastHeld && character <= heldByte + mostHeld;
}

/** What may follow a byte that begins a character of more than one; the others are from 80 to BF. */
struct Utf8Row
{
    uchar first;
    uchar last;
    qsizetype length;
    uchar leastSecond;
    uchar mostSecond;
};

/** The well-formed sequences of the Unicode Standard, table 3-7. */
constexpr auto utf8Rows = std::to_array<Utf8Row>({
    { 0xC2, 0xDF, 2, 0x80, 0xBF },
    { 0xE0, 0xE0, 3, 0xA0, 0xBF },
    { 0xE1, 0xEC, 3, 0x80, 0xBF },
    { 0xED, 0xED, 3, 0x80, 0x9F },
    { 0xEE, 0xEF, 3, 0x80, 0xBF },
    { 0xF0, 0xF0, 4, 0x90, 0xBF },
    { 0xF1, 0xF3, 4, 0x80, 0xBF },
    { 0xF4, 0xF4, 4, 0x80, 0x8F },
});

/** How many bytes the character beyond ASCII takes that `bytes` begin with; 0 when they begin with none. */
qsizetype Utf8Length(QByteArrayView bytes)
{
    const auto at = [&bytes](qsizetype index) { return static_cast<uchar>(bytes[index]); };
    for (const Utf8Row& row : utf8Rows) {
        if (at(0) < row.first || at(0) > row.last) {
            continue;
        }
        if (bytes.size() < row.length || at(1) < row.leastSecond || at(1) > row.mostSecond) {
            return 0;
        }
        for (qsizetype i = 2; i < row.length; ++i) {
            if ((at(i) & 0xC0U) != 0x80) {
                return 0;
            }
        }
        return row.length;
    }
    return 0;
}

/** The text of `bytes` without a fault, marks included; Qt's decoder takes none for text at the beginning. */
QString TextOfUtf8(QByteArrayView bytes)
{
    constexpr QChar mark(0xFEFF);
    QString marks;
    while (bytes.sliced(marks.size() * utf8Mark.size()).startsWith(utf8Mark)) {
        marks += mark;
    }
    return marks + QString::fromUtf8(bytes.sliced(marks.size() * utf8Mark.size()));
}

QString DecodeFaultyUtf8(QByteArrayView bytes)
{
    QString text;
    text.reserve(bytes.size());
    qsizetype start = 0;
    const auto takeUpTo = [&text, &bytes, &start](qsizetype end) {
        text += TextOfUtf8(bytes.sliced(start, end - start));
    };
    for (qsizetype i = 0; i < bytes.size();) {
        const qsizetype length = static_cast<uchar>(bytes[i]) < leastHeld ? 1 : Utf8Length(bytes.sliced(i));
        if (length == 0) {
            takeUpTo(i);
            text += HeldBytes(bytes.sliced(i, 1));
            start = i + 1;
        }
        i += length > 0 ? length : 1;
    }
    takeUpTo(bytes.size());
    return text;
}

QString DecodeUtf8(QByteArrayView bytes)
{
    const QByteArrayView page = bytes.startsWith(utf8Mark) ? bytes.sliced(utf8Mark.size()) : bytes;
    return page.isValidUtf8() ? TextOfUtf8(page) : DecodeFaultyUtf8(page);
}

QByteArray EncodeUtf8(QStringView text)
{
    QByteArray bytes;
    qsizetype start = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const bool isPair = text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate();
        if (!isPair && IsHeldByte(text[i].unicode())) {
            bytes += text.sliced(start, i - start).toUtf8();
            bytes += static_cast<char>(text[i].unicode() - heldByte);
            start = i + 1;
        }
        i += isPair ? 1 : 0;
    }
    return start == 0 ? text.toUtf8() : bytes + text.sliced(start).toUtf8();
}

QByteArray EncodeUtf8WithMark(QStringView text)
{
    return utf8Mark.toByteArray() + EncodeUtf8(text);
}

struct EncodingRow
{
    TextEncoding encoding;
    const char* name;
    QString (*decode)(QByteArrayView);
    QByteArray (*encode)(QStringView);
};

/** In the order of the enumeration. */
constexpr auto encodingRows = std::to_array<EncodingRow>({
    { TextEncoding::Windows1252, "Windows-1252", AnsiCodePage::Decode, AnsiCodePage::Encode },
    { TextEncoding::Utf8, "UTF-8", DecodeUtf8, EncodeUtf8 },
    { TextEncoding::Utf8WithMark, "UTF-8 with mark", DecodeUtf8, EncodeUtf8WithMark },
});

constexpr bool IsInOrder()
{
    std::size_t index = 0;
    for (const EncodingRow& row : encodingRows) {
        if (static_cast<std::size_t>(row.encoding) != index++) {
            return false;
        }
    }
    return true;
}
static_assert(IsInOrder());

const EncodingRow& RowOf(TextEncoding encoding)
{
    return encodingRows[static_cast<std::size_t>(encoding)];
}

} // namespace

QString NameOf(TextEncoding encoding)
{
    return QString::fromLatin1(RowOf(encoding).name);
}

QString DecodeText(QByteArrayView bytes, TextEncoding encoding)
{
    return RowOf(encoding).decode(bytes);
}

QByteArray EncodeText(QStringView text, TextEncoding encoding)
{
    return RowOf(encoding).encode(text);
}

QString HeldBytes(QByteArrayView bytes)
{
    QString text;
    for (const char byte : bytes) {
        text += QChar(static_cast<char16_t>(heldByte + static_cast<uchar>(byte)));
    }
    return text;
}

qsizetype LackingAt(QStringView text, qsizetype at, TextEncoding encoding)
{
    if (encoding != TextEncoding::Windows1252 || text[at].unicode() < firstBeyondAscii) {
        return 0;
    }
    const bool isPair = text[at].isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate();
    const qsizetype length = isPair ? 2 : 1;
    // No character beyond ASCII is a "?" in the code page.
    return AnsiCodePage::Encode(text.sliced(at, length)) == "?" ? length : 0;
}

LackingCharacters LackingIn(QStringView text, TextEncoding encoding)
{
    LackingCharacters lacking;
    qsizetype shown = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const qsizetype length = text[i].unicode() < firstBeyondAscii ? 0 : LackingAt(text, i, encoding);
        if (length == 0) {
            continue;
        }
        ++lacking.Count;
        const QStringView character = text.sliced(i, length);
        if (shown < LackingCharacters::mostShown && !lacking.Which.contains(character)) {
            lacking.Which += character;
            ++shown;
        }
        i += length - 1;
    }
    return lacking;
}
