#pragma once

#include "shared/TextEncoding.h"

#include <QObject>
#include <optional>

/** The document as a file: its name, whether it has changes, and how its text is read and written. */
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

    /** Becomes a new document without changes. */
    void StartNew();

    /** Its text was edited. */
    void MarkChanged();

    /** Becomes the file `path` and returns its text; nothing, and no change, when that cannot be edited. */
    [[nodiscard]] std::optional<QString> Open(const QString& path);

    /** Writes `text` to the file `path` and becomes that file. Returns an error's text; nothing on success.
     */
    [[nodiscard]] std::optional<QString> Save(const QString& path, const QString& text);

    /** Writes `text` as it would be saved, without becoming that file. */
    [[nodiscard]] std::optional<QString> WriteCopy(const QString& path, const QString& text) const;

    /** Where a copy for another program is written, which takes files with this ending. */
    [[nodiscard]] QString CopyPath(const QString& programFolder, const QString& ending) const;

Q_SIGNALS:
    void NameChanged(const QString& name);

private:
    void Become(const QString& name);

    QString name_;
    TextEncoding encoding_ = TextEncoding::Windows1252;
    bool isChanged_ = false;
};
