// Pages in each encoding keep their bytes and their line ends, and what an encoding lacks can be written all
// the same.

#include "FuzzTarget.h"
#include "app/rules/MisreadUtf8.h"
#include "app/rules/References.h"
#include "app/source/LineEnds.h"
#include "app/source/SourceText.h"

#include <QStringDecoder>
#include <QTextDocument>

namespace {

QString WithReplaced(QString text, const QList<TextReplacement>& replacements)
{
    for (auto one = replacements.crbegin(); one != replacements.crend(); ++one) {
        Demand(one->Place.Start + one->Place.Length <= text.size(), "what is replaced is in the text");
        text.replace(one->Place.Start, one->Place.Length, one->Text);
    }
    return text;
}

void TryBytes(QByteArrayView bytes)
{
    for (const TextEncoding encoding : { TextEncoding::Windows1252, TextEncoding::Utf8 }) {
        const QString text = DecodeText(bytes, encoding);
        const bool hasMark = encoding == TextEncoding::Utf8 && bytes.startsWith("\xEF\xBB\xBF");
        Demand(
            EncodeText(text, hasMark ? TextEncoding::Utf8WithMark : encoding) == bytes,
            "bytes come back as they were");
    }
}

void TryMisread(QByteArrayView bytes)
{
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString meant = decoder(bytes);
    if (!decoder.hasError()) {
        const QString misread = DecodeText(bytes, TextEncoding::Windows1252);
        Demand(WithReplaced(misread, MisreadUtf8(misread)) == meant, "what was misread can be read as meant");
    }
}

void TryText(const QString& text)
{
    for (const TextEncoding encoding : { TextEncoding::Windows1252, TextEncoding::Utf8 }) {
        qsizetype lacking = 0;
        for (qsizetype i = 0; i < text.size(); ++i) {
            const qsizetype length = LackingAt(text, i, encoding);
            lacking += length > 0 ? 1 : 0;
            i += std::max<qsizetype>(length - 1, 0);
        }
        Demand(LackingIn(text, encoding).Count == lacking, "what is lacking is counted");
        const QString written = WithReplaced(text, ReferencesFor(text, encoding));
        Demand(LackingIn(written, encoding).Count == 0, "with references nothing is lacking");
        const QByteArray bytes = EncodeText(written, encoding);
        Demand(
            DecodeText(bytes, encoding) == written || encoding != TextEncoding::Windows1252,
            "what is written is read back");
    }
}

void TryLineEnds(QByteArrayView bytes)
{
    QString text = DecodeText(bytes, TextEncoding::Windows1252);
    text.replace(u'\f', u'\r');
    QTextDocument document;
    document.setPlainText(ForDocument(text));
    Demand(LineEnds(text, document).TextOf(document) == text, "line ends come back as they were");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArrayView bytes = BytesOf(data, size);
    TryBytes(bytes);
    TryMisread(bytes);
    TryText(DecodeText(bytes, TextEncoding::Utf8));
    TryLineEnds(bytes);
    return 0;
}
