#pragma once

#include "shared/PageDocument.h"
#include "shared/TextEncoding.h"

#include <QObject>
#include <optional>

/** What is in the document's file at a moment. */
struct FileContent
{
    QString Text;    ///< as it reads in the document's encoding
    size_t Hash = 0; ///< of the bytes
    std::optional<TextEncoding> FoundUtf8;
};

/** What a document was before the program ended suddenly, but for its text. */
struct LostDocument
{
    QString Name; ///< as DocumentFile::Name() has it
    TextEncoding Encoding = TextEncoding::Windows1252;
    bool IsHandledAnew = false;
    std::optional<TextEncoding> FoundUtf8 = {};
    std::optional<size_t> ContentHash = {}; ///< as DocumentFile::ContentHash() has it
    bool IsLineEndAppended = false;

    bool operator==(const LostDocument&) const = default;
};

/**
 * The document as a file: its name, whether it has changes, and how its text is read and written. At first it
 * is read and written in Windows-1252, with CR LF line ends and one more of them at its end. Once the user
 * has chosen an encoding it is handled anew: what is written is the text in that encoding and nothing else.
 */
class DocumentFile : public QObject
{
    Q_OBJECT

public:
    /** The file's path, or what a document is called that was never saved. */
    [[nodiscard]] QString Name() const { return name_; }

    /** Whether there is no file of it yet; told by the name. */
    [[nodiscard]] bool IsNeverSaved() const;

    [[nodiscard]] bool IsChanged() const { return isChanged_; }
    [[nodiscard]] TextEncoding Encoding() const { return encoding_; }
    [[nodiscard]] bool IsHandledAnew() const { return isHandledAnew_; }

    /** How the page that was opened says that it is to be read, or is for certain; nothing if it is UTF-8 in
     * no way. */
    [[nodiscard]] std::optional<TextEncoding> FoundUtf8() const { return foundUtf8_; }

    /** What a command puts into the text, as it has to be written there: a page in UTF-8 that is read
     * otherwise gets references. */
    [[nodiscard]] QString ToPutIn(const QString& markup) const;

    /** The same for what is put into places of the text, which is `text`, in ascending order. */
    [[nodiscard]] QList<TextReplacement>
    ToPutIn(const QString& text, const QList<TextReplacement>& replacements) const;

    /** Becomes a new document without changes, in an encoding if one is given. */
    void StartNew(std::optional<TextEncoding> encoding = std::nullopt);

    /** Its text was edited. */
    void MarkChanged();

    /** What is done with a page in UTF-8. */
    enum class Utf8Pages { ReadAsOthers, ReadAsUtf8 };

    /** Becomes the file `path` and returns its text; nothing, and no change, when that cannot be edited. */
    [[nodiscard]] std::optional<QString> Open(const QString& path, Utf8Pages utf8 = Utf8Pages::ReadAsOthers);

    /** Becomes the document that it was once, before it was lost; its text comes right after. */
    void TakeUp(const LostDocument& was);

    /** Reads its file again in `encoding`; nothing, and no change, when that is not possible. */
    [[nodiscard]] std::optional<QString> ReadAgain(TextEncoding encoding);

    /** Reads its file, and changes nothing; nothing when that is not possible. */
    [[nodiscard]] std::optional<FileContent> ReadFile() const;

    /** Is what `content` says, be it with changes since or without; it stays in its encoding. */
    void TakeFile(const FileContent& content, bool isSame);

    /** Of the bytes that were read or written last; nothing where there were none. */
    [[nodiscard]] std::optional<size_t> ContentHash() const { return contentHash_; }

    /** Whether its file has a line end behind the text, which was put there when it was saved. */
    [[nodiscard]] bool IsLineEndAppended() const { return isLineEndAppended_; }

    /** It will be written in `encoding`. */
    void SetEncoding(TextEncoding encoding);

    /** Writes `text` to the file `path` and becomes that file. Returns an error's text; nothing on success.
     */
    [[nodiscard]] std::optional<QString> Save(const QString& path, const QString& text);

    /** Writes `text` for the last time, since it becomes another document: it does not become that file. */
    [[nodiscard]] std::optional<QString> SaveBeforeLeaving(const QString& path, const QString& text);

    /** Writes `text` as it would be saved, for other programs, without becoming that file. */
    [[nodiscard]] std::optional<QString> WriteCopy(const QString& path, const QString& text) const;

    /** Where a copy for another program is written, which takes files with this ending. */
    [[nodiscard]] QString CopyPath(const QString& programFolder, const QString& ending) const;

Q_SIGNALS:
    void NameChanged(const QString& name);
    void ChangedMarkSet(bool isChanged);
    void EncodingChanged();

    /** It has become another document; its text comes right after. */
    void Began();
    /** Began() was for one that had been lost. */
    void TakenUp();
    void Saved(const QString& text);
    /** The user's text is in this file, whether it has become it or not. */
    void Written(const QString& path);

private:
    void Become(const QString& name);
    [[nodiscard]] QByteArray BytesFor(const QString& text) const;
    void SetChanged(bool isChanged);

    QString name_;
    TextEncoding encoding_ = TextEncoding::Windows1252;
    std::optional<TextEncoding> foundUtf8_;
    std::optional<size_t> contentHash_;
    bool isLineEndAppended_ = false;
    bool isHandledAnew_ = false;
    bool isChanged_ = false;
};
