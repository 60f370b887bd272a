#include "app/rules/DocumentFile.h"

#include "app/rules/TemporaryCopy.h"
#include "shared/FileWriting.h"

#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <new>

namespace {

constexpr QStringView newDocumentName = u"New Document";
/** How much of a document's name tells that it was never saved. */
constexpr qsizetype neverSavedLength = 15;
/** Larger files than this cannot be edited: what the editor keeps of a text is counted in 32-bit numbers. */
constexpr qint64 largestDocument = qint64(1) << 29;

/** What the editor takes of memory in bytes, rounded up: in all, for a line, and to lay the longest one out.
 */
constexpr qsizetype bytesPerCharacter = 8;
constexpr qsizetype bytesPerLine = 160;
constexpr qsizetype bytesPerLaidOutCharacter = 64;

/**
 * Whether there is the memory that it takes to show `text`. It is asked for here, where having none can be
 * told: within the editor the program would end.
 */
bool IsRoomFor(QStringView text)
{
    qsizetype lines = 1;
    qsizetype longest = 0;
    qsizetype start = 0;
    for (qsizetype i = 0; i <= text.size(); ++i) {
        if (i == text.size() || text[i] == u'\n' || text[i] == u'\r') {
            longest = std::max(longest, i - start);
            start = i + 1;
            ++lines;
        }
    }
    try {
        const QByteArray room(
            text.size() * bytesPerCharacter + lines * bytesPerLine + longest * bytesPerLaidOutCharacter,
            Qt::Uninitialized);
        return !room.isEmpty();
    } catch (const std::bad_alloc&) {
        return false;
    }
}

/** The bytes of the file `path`, or nothing when it cannot be read whole. */
std::optional<QByteArray> ReadBytes(const QString& path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly) || file.size() > largestDocument) {
        return std::nullopt;
    }
    QByteArray bytes = file.readAll();
    const bool isWhole = file.error() == QFileDevice::NoError && bytes.size() >= file.size();
    return isWhole ? std::optional(std::move(bytes)) : std::nullopt;
}

std::optional<QString> ReadText(const QString& path, TextEncoding encoding)
{
    try {
        const std::optional<QByteArray> bytes = ReadBytes(path);
        if (!bytes) {
            return std::nullopt;
        }
        const QString text = DecodeText(*bytes, encoding);
        return IsRoomFor(text) ? std::optional(text) : std::nullopt;
    } catch (const std::bad_alloc&) {
        return std::nullopt;
    }
}

} // namespace

bool DocumentFile::IsNeverSaved() const
{
    return name_.left(neverSavedLength) == newDocumentName;
}

void DocumentFile::StartNew()
{
    Become(newDocumentName.toString());
}

void DocumentFile::MarkChanged()
{
    isChanged_ = true;
}

void DocumentFile::Become(const QString& name)
{
    name_ = name;
    isChanged_ = false;
    Q_EMIT NameChanged(name_);
}

std::optional<QString> DocumentFile::Open(const QString& path)
{
    std::optional<QString> text = ReadText(path, encoding_);
    if (text) {
        Become(path);
    }
    return text;
}

std::optional<QString> DocumentFile::Save(const QString& path, const QString& text)
{
    std::optional<QString> error = WriteCopy(path, text);
    if (!error) {
        Become(path);
    }
    return error;
}

std::optional<QString> DocumentFile::WriteCopy(const QString& path, const QString& text) const
{
    // A saved page ends with a line end more than the text has.
    return WriteWholeFile(path, EncodeText(text, encoding_) + "\r\n");
}

QString DocumentFile::CopyPath(const QString& programFolder, const QString& ending) const
{
    return IsNeverSaved() ? TemporaryCopyOfNew(programFolder, ending) : TemporaryCopyOf(name_, ending);
}
