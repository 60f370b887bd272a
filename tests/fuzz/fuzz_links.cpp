// The links file with any bytes in it.

#include "FuzzTarget.h"
#include "InputFile.h"
#include "shared/AnsiCodePage.h"
#include "shared/LinksFile.h"

namespace {

constexpr qsizetype recordSize = 276;
constexpr qsizetype urlSize = 260;
constexpr qsizetype recordsRead = 15;

/** The mark of a record, or what is there of it. */
QByteArrayView MarkOf(QByteArrayView record)
{
    return record.size() > urlSize ? record.sliced(urlSize) : QByteArrayView();
}

bool IsFree(QByteArrayView record)
{
    const QByteArrayView mark = MarkOf(record);
    return record.isEmpty() || mark.startsWith(QByteArrayView("\0\0", 2)) ||
           mark.startsWith(QByteArrayView("\x08\0\0\0", 4));
}

/** Whether a record holds a link that can be made out; an address is only there whole with its mark. */
bool IsLink(QByteArrayView record)
{
    const QByteArrayView mark = MarkOf(record);
    if (mark.size() < 4) {
        return false;
    }
    const int length = static_cast<uchar>(mark[2]) | static_cast<uchar>(mark[3]) << 8;
    return mark.startsWith(QByteArrayView("\x02\0", 2)) ||
           (mark.startsWith(QByteArrayView("\x08\0", 2)) && length > 0 && mark.size() >= 4 + length);
}

/** The records in front of the first free one, of those that are read. */
QList<QByteArrayView> UsedRecords(QByteArrayView bytes)
{
    QList<QByteArrayView> records;
    while (records.size() < recordsRead) {
        const QByteArrayView record = bytes.first(std::min(recordSize, bytes.size()));
        bytes = bytes.sliced(record.size());
        if (IsFree(record)) {
            break;
        }
        records << record;
    }
    return records;
}

void CheckUrl(const QString& url, QByteArrayView record)
{
    Demand(!url.startsWith(u' ') && !url.endsWith(u' '), "an address has no blanks around it");
    Demand(AnsiCodePage::Decode(record.first(urlSize)).contains(url), "an address is its record's");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArrayView bytes = BytesOf(data, size);
    InputFile file(bytes);
    const SavedLinks saved = ReadSavedLinks(file.Path());
    Demand(file.Content() == bytes, "reading changes nothing");

    qsizetype number = 0;
    bool isDamaged = false;
    for (const QByteArrayView record : UsedRecords(bytes)) {
        if (!IsLink(record)) {
            isDamaged = true;
            continue;
        }
        Demand(number < saved.links.size(), "every link is read");
        CheckUrl(saved.links[number++].Url, record);
    }
    Demand(number == saved.links.size(), "nothing else is taken for a link");
    Demand(saved.isDamaged == isDamaged, "what cannot be made out is told");
    return 0;
}
