// Any text has its parts, whole or line by line, and any bytes an answer to what they declare.

#include "FuzzTarget.h"
#include "html/CharacterReferences.h"
#include "html/DeclaredEncoding.h"
#include "html/HtmlTokens.h"
#include "tests/html/PartChecks.h"

#include <QStringDecoder>
#include <cstring>

namespace {

bool Contains(const HtmlSpan& outer, const HtmlSpan& inner)
{
    return inner.length >= 0 && inner.offset >= outer.offset && inner.End() <= outer.End();
}

/** A value with what no page can hold taken out. */
QString Writable(QStringView value)
{
    return value.toString().replace(QChar(u'\0'), QChar(QChar::ReplacementCharacter));
}

void TryValue(QStringView source)
{
    const QString value = Writable(DecodedValue(source));
    const QString single = EscapedFor(u'\'', value);
    const QString twice = EscapedFor(u'"', value);
    Demand(!single.contains(u'\'') && !twice.contains(u'"'), "a value cannot end its own quotes");
    Demand(DecodedValue(single) == value && DecodedValue(twice) == value, "a written value is read back");
    if (CanStandUnquoted(value)) {
        const QString tag = QStringLiteral("<a b=") + EscapedFor(0, value) + u'>';
        HtmlTokens tokens(tag);
        HtmlToken token;
        Demand(
            tokens.Next(token) && token.isClosed && token.attributes.size() == 1, "an unquoted value is one");
        Demand(DecodedValue(token.attributes[0].value.In(tag)) == value, "an unquoted value is read back");
    }
}

void TryAttribute(const HtmlToken& token, const HtmlAttribute& attribute, QStringView text)
{
    Demand(Contains(token.whole, attribute.whole), "an attribute is in its tag");
    Demand(Contains(attribute.whole, attribute.name), "a name is in its attribute");
    Demand(Contains(attribute.whole, attribute.value), "a value is in its attribute");
    TryValue(attribute.value.In(text));
}

void TryTokens(QStringView text)
{
    HtmlTokens tokens(text);
    qsizetype end = 0;
    for (HtmlToken token; tokens.Next(token);) {
        Demand(token.whole.offset == end && token.whole.length > 0, "tokens follow each other");
        Demand(
            Contains(token.whole, token.inside) && Contains(token.whole, token.name), "all is in its token");
        for (const HtmlAttribute& attribute : token.attributes) {
            TryAttribute(token, attribute, text);
        }
        const HtmlAttribute* const found = token.Find(text, QLatin1String("id"));
        Demand(found == nullptr || !found->isDuplicate, "what is found is what browsers see");
        end = token.whole.End();
    }
}

void TryText(QStringView text)
{
    const std::vector<HtmlPart> parts = PartsOf(text);
    Demand(CoverAllButBlanks(parts, text), "parts follow each other and leave out blanks alone");
    Demand(IsSameByPiece(text, parts, LinesOf(text)), "lines have the parts of the text");
    Demand(IsSameByPiece(text, parts, PiecesOf(text)), "pieces have the parts of the text");
    TryTokens(text);
    TryValue(text);
}

void TryReferences(QStringView text)
{
    qsizetype end = 0;
    while (const auto reference = NextReference(text, end, ReferenceIn::Text)) {
        Demand(reference->place.offset >= end && reference->place.length > 2, "references go forward");
        Demand(reference->place.End() <= text.size(), "references are in the text");
        end = reference->place.End();
    }
}

void TryBytes(QByteArrayView bytes)
{
    const QLatin1String encoding = EncodingOfMarkup(bytes);
    Demand(!encoding.startsWith(QLatin1String("UTF-16")), "markup that can be read is not UTF-16");
    Demand(
        encoding.isEmpty() || EncodingOfLabel({ encoding.data(), encoding.size() }) == encoding,
        "names are labels");
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString decoded = decoder(bytes);
    const bool isAscii = std::ranges::none_of(bytes, [](char byte) { return uchar(byte) >= 0x80; });
    Demand(IsUtf8BeyondAscii(bytes) == (!decoder.hasError() && !isAscii), "UTF-8 is what can be decoded");
}

/** The bytes as the halves of UTF-16 characters, paired or not. */
QString HalvesOf(QByteArrayView bytes)
{
    QString text(bytes.size() / 2, Qt::Uninitialized);
    std::memcpy(text.data(), bytes.data(), static_cast<std::size_t>(text.size()) * sizeof(QChar));
    return text;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArrayView bytes = BytesOf(data, size);
    const QString text = QString::fromLatin1(bytes);
    TryText(text);
    TryReferences(text);
    TryText(HalvesOf(bytes));
    TryBytes(bytes);
    return 0;
}
