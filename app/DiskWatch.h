#pragma once

#include <QDateTime>
#include <QObject>
#include <QTimer>
#include <memory>
#include <optional>

class DocumentCommands;
class DocumentFile;
class MessageBar;
class QFileSystemWatcher;
class QWidget;
class SourceEditor;

/**
 * Tells in the bar above the text when another program has changed the document's file: it looks when the
 * window becomes active, and when the system says so. What is told once is told again only when the file
 * changes again.
 */
class DiskWatch : public QObject
{
    Q_OBJECT

public:
    DiskWatch(
        QWidget* window, SourceEditor& editor, DocumentFile& file, DocumentCommands& documents,
        MessageBar& messages);

    ~DiskWatch() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /** By what is seen, without reading, that a file may have been changed. */
    struct Stamp
    {
        bool IsFile = false;
        qint64 Size = 0;
        QDateTime Time;

        bool operator==(const Stamp&) const = default;
    };

    void File_Began();
    void File_TakenUp();
    void Look();
    void btnReadAgain_Click();

    [[nodiscard]] Stamp StampOfFile() const;
    void Follow();
    void Tell(const QString& text);
    [[nodiscard]] QString TextHere(const QString& fileText) const;

    SourceEditor& editor_;
    DocumentFile& file_;
    DocumentCommands& documents_;
    MessageBar& messages_;
    std::unique_ptr<QFileSystemWatcher> watcher_; ///< while there is a file
    QTimer settling_; ///< since the system has told of a change, which may be one of many
    Stamp stamp_;
    std::optional<size_t> told_; ///< the content that was told of
};
