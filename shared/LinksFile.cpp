#include "shared/LinksFile.h"

#include "shared/AnsiCodePage.h"
#include "shared/FileWriting.h"
#include "shared/SavedLinks.h"

#include <QFile>
#include <QFileInfo>
#include <QtEndian>
#include <algorithm>
#include <optional>

namespace {

constexpr qsizetype recordSize = 276;
constexpr qsizetype urlSize = 260;
constexpr qsizetype markTypeOffset = urlSize;
constexpr qsizetype markValueOffset = markTypeOffset + 2;
constexpr int recordsRead = 15;
/** A file larger than this, in bytes, is none of ours and is left alone. */
constexpr qint64 largestFile = qint64(1) << 26;

/** The codes of what a record's mark is; a mark that is empty or an empty text makes the record free. */
enum MarkType : quint16 { markEmpty = 0, markNumber = 2, markText = 8 };

enum class RecordState { Free, Used, Unreadable };

quint16 WordAt(QByteArrayView record, qsizetype offset)
{
    return qFromLittleEndian<quint16>(record.data() + offset);
}

RecordState StateOf(QByteArrayView record)
{
    if (record.isEmpty()) {
        return RecordState::Free;
    }
    if (record.size() < markValueOffset) {
        return RecordState::Unreadable;
    }
    const quint16 type = WordAt(record, markTypeOffset);
    if (type == markEmpty) {
        return RecordState::Free;
    }
    const bool hasValue = record.size() >= markValueOffset + 2;
    if (type == markNumber) {
        return hasValue ? RecordState::Used : RecordState::Unreadable;
    }
    if (type != markText || !hasValue) {
        return RecordState::Unreadable;
    }
    const quint16 length = WordAt(record, markValueOffset);
    if (markValueOffset + 2 + length > record.size()) {
        return RecordState::Unreadable;
    }
    return length == 0 ? RecordState::Free : RecordState::Used;
}

SavedLink LinkOf(QByteArrayView record)
{
    const bool isNumber = WordAt(record, markTypeOffset) == markNumber;
    const auto mark = isNumber ? static_cast<qint16>(WordAt(record, markValueOffset)) : qint16(0);
    return { WithoutBlanksAround(AnsiCodePage::Decode(record.first(urlSize))), mark };
}

/** The bytes of the records that are read, or nothing when the file cannot be opened or read. */
std::optional<QByteArray> ReadRecords(const QString& path)
{
    QFile file(path);
    if (QFileInfo::exists(path)) {
        if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) {
            return std::nullopt;
        }
    } else if (!file.open(QIODevice::ReadWrite)) {
        return std::nullopt;
    }
    QByteArray bytes = file.read(recordSize * recordsRead);
    return file.error() == QFileDevice::NoError ? std::optional(bytes) : std::nullopt;
}

QByteArray RecordOf(const QString& url, std::optional<qint16> mark)
{
    QByteArray record = AnsiCodePage::Encode(url).leftJustified(urlSize, ' ', true);
    record.resize(recordSize, '\0');
    if (mark) {
        qToLittleEndian<quint16>(markNumber, record.data() + markTypeOffset);
        qToLittleEndian<qint16>(*mark, record.data() + markValueOffset);
    }
    return record;
}

/** What the file `path` holds behind `start`; nothing when it cannot be read. */
std::optional<QByteArray> BytesBehind(const QString& path, qint64 start)
{
    QFile file(path);
    // Of a file itself Qt says that it exists when it is a link to nothing.
    if (!QFileInfo::exists(path)) {
        return QByteArray();
    }
    if (!QFileInfo(path).isFile() || file.size() > largestFile || !file.open(QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    const qint64 size = std::max(file.size() - start, qint64(0));
    QByteArray bytes = size > 0 && file.seek(start) ? file.readAll() : QByteArray();
    return bytes.size() == size ? std::optional(bytes) : std::nullopt;
}

} // namespace

bool WriteSavedLinks(const QString& path, const ImgMap& imgMap)
{
    QByteArray bytes;
    for (std::size_t slot = 1; slot <= mostSavedLinks; ++slot) {
        bytes += RecordOf(imgMap.SavedLinkURL[slot], imgMap.SavedLinkMark[slot]);
    }
    const std::optional<QByteArray> rest = BytesBehind(path, bytes.size());
    return rest && !WriteWholeFile(path, bytes + *rest);
}

SavedLinks ReadSavedLinks(const QString& path)
{
    const std::optional<QByteArray> bytes = ReadRecords(path);
    if (!bytes) {
        return { {}, true };
    }
    SavedLinks result;
    for (qsizetype offset = 0; offset < bytes->size(); offset += recordSize) {
        const QByteArrayView record =
            QByteArrayView(*bytes).sliced(offset).first(std::min(recordSize, bytes->size() - offset));
        const RecordState state = StateOf(record);
        if (state == RecordState::Free) {
            break;
        }
        if (state == RecordState::Unreadable) {
            result.isDamaged = true;
        } else {
            result.links << LinkOf(record);
        }
    }
    return result;
}
