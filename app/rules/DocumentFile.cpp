#include "app/rules/DocumentFile.h"

#include "app/rules/References.h"
#include "app/rules/TemporaryCopy.h"
#include "html/DeclaredEncoding.h"
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

/** A page with its text, and whether it is UTF-8 by what it says or by what it is made of. */
struct PageText
{
    QString Text;
    size_t Hash = 0; ///< of the bytes
    std::optional<TextEncoding> FoundUtf8;
    TextEncoding Encoding = TextEncoding::Windows1252;
};

std::optional<TextEncoding> FindUtf8(const QByteArray& bytes)
{
    if (EncodingOfMark(bytes) == utf8Name) {
        return TextEncoding::Utf8WithMark;
    }
    const bool isUtf8 = EncodingOfMarkup(bytes) == utf8Name || IsUtf8BeyondAscii(bytes);
    return isUtf8 ? std::optional(TextEncoding::Utf8) : std::nullopt;
}

/** Reads the page `path` in the encoding that `choose` makes of the one that was found. */
template<class Choose> std::optional<PageText> ReadPage(const QString& path, Choose choose)
{
    try {
        const std::optional<QByteArray> bytes = ReadBytes(path);
        if (!bytes) {
            return std::nullopt;
        }
        PageText page;
        page.Hash = qHash(*bytes, 0);
        page.FoundUtf8 = FindUtf8(*bytes);
        page.Encoding = choose(page.FoundUtf8);
        page.Text = DecodeText(*bytes, page.Encoding);
        return IsRoomFor(page.Text) ? std::optional(page) : std::nullopt;
    } catch (const std::bad_alloc&) {
        return std::nullopt;
    }
}

} // namespace

bool DocumentFile::IsNeverSaved() const
{
    return name_.left(neverSavedLength) == newDocumentName;
}

void DocumentFile::StartNew(std::optional<TextEncoding> encoding)
{
    contentHash_.reset();
    isHandledAnew_ = encoding.has_value();
    encoding_ = encoding.value_or(TextEncoding::Windows1252);
    foundUtf8_.reset();
    Become(newDocumentName.toString());
    Q_EMIT EncodingChanged();
    Q_EMIT Began();
}

void DocumentFile::MarkChanged()
{
    SetChanged(true);
}

void DocumentFile::SetChanged(bool isChanged)
{
    if (isChanged_ != isChanged) {
        isChanged_ = isChanged;
        Q_EMIT ChangedMarkSet(isChanged_);
    }
}

QString DocumentFile::ToPutIn(const QString& markup) const
{
    return foundUtf8_ && !isHandledAnew_ ? WithReferences(markup) : markup;
}

QList<TextReplacement>
DocumentFile::ToPutIn(const QString& text, const QList<TextReplacement>& replacements) const
{
    return foundUtf8_ && !isHandledAnew_ ? WithReferences(text, replacements) : replacements;
}

void DocumentFile::Become(const QString& name)
{
    name_ = name;
    SetChanged(false);
    Q_EMIT NameChanged(name_);
}

std::optional<QString> DocumentFile::Open(const QString& path, Utf8Pages utf8)
{
    const bool mayBeUtf8 = utf8 == Utf8Pages::ReadAsUtf8;
    const std::optional<PageText> page = ReadPage(path, [mayBeUtf8](std::optional<TextEncoding> found) {
        return mayBeUtf8 && found ? *found : TextEncoding::Windows1252;
    });
    if (!page) {
        return std::nullopt;
    }
    encoding_ = page->Encoding;
    contentHash_ = page->Hash;
    isLineEndAppended_ = false;
    foundUtf8_ = page->FoundUtf8;
    isHandledAnew_ = encoding_ != TextEncoding::Windows1252;
    Become(path);
    Q_EMIT EncodingChanged();
    Q_EMIT Began();
    return page->Text;
}

void DocumentFile::TakeUp(const LostDocument& was)
{
    encoding_ = was.Encoding;
    foundUtf8_ = was.FoundUtf8;
    isHandledAnew_ = was.IsHandledAnew;
    contentHash_ = was.ContentHash;
    isLineEndAppended_ = was.IsLineEndAppended;
    Become(was.Name);
    Q_EMIT EncodingChanged();
    Q_EMIT Began();
    Q_EMIT TakenUp();
}

std::optional<QString> DocumentFile::ReadAgain(TextEncoding encoding)
{
    const std::optional<PageText> page =
        ReadPage(name_, [encoding](std::optional<TextEncoding>) { return encoding; });
    if (!page) {
        return std::nullopt;
    }
    foundUtf8_ = page->FoundUtf8;
    contentHash_ = page->Hash;
    isLineEndAppended_ = false;
    SetEncoding(encoding);
    // A mark that comes or goes is a change, though none of the text.
    const bool hasMark = foundUtf8_ == TextEncoding::Utf8WithMark;
    SetChanged(encoding != TextEncoding::Windows1252 && hasMark != (encoding == TextEncoding::Utf8WithMark));
    return page->Text;
}

std::optional<FileContent> DocumentFile::ReadFile() const
{
    const std::optional<PageText> page =
        ReadPage(name_, [this](std::optional<TextEncoding>) { return encoding_; });
    return page ? std::optional(FileContent{ page->Text, page->Hash, page->FoundUtf8 }) : std::nullopt;
}

void DocumentFile::TakeFile(const FileContent& content, bool isSame)
{
    contentHash_ = content.Hash;
    foundUtf8_ = content.FoundUtf8;
    isLineEndAppended_ = false;
    SetChanged(!isSame);
}

void DocumentFile::SetEncoding(TextEncoding encoding)
{
    encoding_ = encoding;
    isHandledAnew_ = true;
    Q_EMIT EncodingChanged();
}

std::optional<QString> DocumentFile::Save(const QString& path, const QString& text)
{
    const QByteArray bytes = BytesFor(text);
    std::optional<QString> error = WriteWholeFile(path, bytes);
    if (!error) {
        contentHash_ = qHash(bytes, 0);
        isLineEndAppended_ = !isHandledAnew_;
        Become(path);
        Q_EMIT Saved(text);
        Q_EMIT Written(path);
    }
    return error;
}

std::optional<QString> DocumentFile::SaveBeforeLeaving(const QString& path, const QString& text)
{
    std::optional<QString> error = WriteCopy(path, text);
    if (!error) {
        Q_EMIT Written(path);
    }
    return error;
}

std::optional<QString> DocumentFile::WriteCopy(const QString& path, const QString& text) const
{
    return WriteWholeFile(path, BytesFor(text));
}

QByteArray DocumentFile::BytesFor(const QString& text) const
{
    QByteArray bytes = EncodeText(text, encoding_);
    if (!isHandledAnew_) {
        bytes += "\r\n";
    }
    return bytes;
}

QString DocumentFile::CopyPath(const QString& programFolder, const QString& ending) const
{
    return IsNeverSaved() ? TemporaryCopyOfNew(programFolder, ending) : TemporaryCopyOf(name_, ending);
}
