// The links file with any bytes in it, and any links written into it.

#include "FuzzTarget.h"
#include "InputFile.h"
#include "shared/AnsiCodePage.h"
#include "shared/LinksFile.h"
#include "shared/SavedLinks.h"

#include <memory>

namespace {

constexpr qsizetype recordSize = 276;
constexpr qsizetype urlSize = 260;
constexpr qsizetype recordsRead = 15;
constexpr qsizetype recordsWritten = 50;

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

void TryReading(QByteArrayView bytes)
{
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
}

/** Adds and deletes links as the bytes have it; an address is what UTF-8 makes of them. */
void ChangeLinks(ImgMap& imgMap, FuzzInput input)
{
    while (!input.IsEmpty()) {
        const std::size_t slot = static_cast<std::size_t>(input.Byte()) % 256;
        if (slot >= 1 && slot <= mostSavedLinks && imgMap.SavedLinkMark[slot]) {
            DeleteSavedLink(imgMap, slot);
        } else if (!IsSavedLinksFull(imgMap)) {
            AddSavedLink(imgMap, QString::fromUtf8(input.Field()));
        }
        const auto isUsed = [](const std::optional<qint16>& mark) { return mark.has_value(); };
        const auto* const begin = imgMap.SavedLinkMark.begin() + 1;
        const auto* const end = imgMap.SavedLinkMark.end();
        Demand(std::is_partitioned(begin, end, isUsed), "links stand without gaps");
        Demand(!imgMap.SavedLinkMark[mostSavedLinks + 1], "the last slot stays free");
    }
}

QString WrittenUrl(const QString& url)
{
    return WithoutBlanksAround(AnsiCodePage::Decode(AnsiCodePage::Encode(url).left(urlSize)));
}

/** Writes links over `bytes` and reads them again. */
void TryWriting(QByteArrayView bytes, const ImgMap& imgMap)
{
    InputFile file(bytes);
    Demand(WriteSavedLinks(file.Path(), imgMap), "a file can be written");
    QFile written(file.Path());
    Demand(written.open(QIODevice::ReadOnly), "a file is there once it is written");
    const QByteArray content = written.readAll();
    constexpr qsizetype ownSize = recordsWritten * recordSize;
    Demand(content.size() == std::max(ownSize, bytes.size()), "all records are written, and no more");
    Demand(
        content.sliced(ownSize) == bytes.sliced(std::min(ownSize, bytes.size())),
        "what stands behind the records stays");

    const SavedLinks saved = ReadSavedLinks(file.Path());
    Demand(!saved.isDamaged, "what is written can be read");
    std::size_t slot = 1;
    for (const SavedLink& link : saved.links) {
        Demand(link.Url == WrittenUrl(imgMap.SavedLinkURL[slot]), "addresses are read as they were written");
        Demand(imgMap.SavedLinkMark[slot] == link.Mark, "marks are read as they were written");
        ++slot;
    }
    Demand(saved.links.size() == recordsRead || !imgMap.SavedLinkMark[slot], "every link is read again");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArrayView bytes = BytesOf(data, size);
    TryReading(bytes);
    const auto imgMap = std::make_unique<ImgMap>();
    ChangeLinks(*imgMap, FuzzInput(bytes));
    TryWriting(bytes, *imgMap);
    return 0;
}
