#include "shared/TextEncoding.h"

#include "shared/AnsiCodePage.h"

#include <array>

namespace {

struct EncodingRow
{
    TextEncoding encoding;
    QString (*decode)(QByteArrayView);
    QByteArray (*encode)(QStringView);
};

/** In the order of the enumeration. */
constexpr auto encodingRows = std::to_array<EncodingRow>({
    { TextEncoding::Windows1252, AnsiCodePage::Decode, AnsiCodePage::Encode },
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

QString DecodeText(QByteArrayView bytes, TextEncoding encoding)
{
    return RowOf(encoding).decode(bytes);
}

QByteArray EncodeText(QStringView text, TextEncoding encoding)
{
    return RowOf(encoding).encode(text);
}
