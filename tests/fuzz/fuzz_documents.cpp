// Documents keep their bytes, and any text has bytes: the code page in both directions.

#include "FuzzTarget.h"
#include "shared/AnsiCodePage.h"
#include "shared/TextCase.h"

#include <cstring>

namespace {

void TryBytes(QByteArrayView bytes)
{
    const QString text = AnsiCodePage::Decode(bytes);
    Demand(text.size() == bytes.size(), "every byte is one character");
    Demand(AnsiCodePage::Encode(text) == bytes, "bytes come back as they were");
}

void TryText(const QString& text)
{
    const QByteArray bytes = AnsiCodePage::Encode(text);
    qsizetype pairs = 0;
    for (qsizetype i = 0; i + 1 < text.size(); ++i) {
        pairs += text[i].isHighSurrogate() && text[i + 1].isLowSurrogate() ? 1 : 0;
    }
    Demand(bytes.size() == text.size() - pairs, "every character is one byte");
    const QString known = AnsiCodePage::Decode(bytes);
    Demand(AnsiCodePage::Encode(known) == bytes, "what was written once is written the same again");
    for (qsizetype from = 0, to = 0; from < text.size(); ++from, ++to) {
        const bool isPair =
            text[from].isHighSurrogate() && from + 1 < text.size() && text[from + 1].isLowSurrogate();
        Demand(known[to] == text[from] || known[to] == u'?', "a character is itself or a question mark");
        from += isPair ? 1 : 0;
    }
}

/** Another case is still a text that a document can hold. */
void TryCases(QByteArrayView bytes)
{
    const QString text = AnsiCodePage::Decode(bytes);
    for (const QString& other : { UpperCase(text), LowerCase(text), ProperCase(text) }) {
        Demand(other.size() == text.size(), "every character has one counterpart");
        Demand(
            AnsiCodePage::Decode(AnsiCodePage::Encode(other)) == other, "counterparts are in the code page");
    }
    Demand(LowerCase(ProperCase(text)) == LowerCase(text), "capitals are all that tells words apart");
}

/** The bytes as the halves of UTF-16 characters, paired or not. */
QString TextOf(QByteArrayView bytes)
{
    QString text(bytes.size() / 2, Qt::Uninitialized);
    std::memcpy(text.data(), bytes.data(), static_cast<std::size_t>(text.size()) * sizeof(QChar));
    return text;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    TryBytes(BytesOf(data, size));
    TryText(TextOf(BytesOf(data, size)));
    TryCases(BytesOf(data, size));
    return 0;
}
