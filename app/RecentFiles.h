#pragma once

#include <QObject>
#include <QStringList>
#include <functional>

class DocumentFile;
class QAction;
class QMenu;
struct ImgMap;
struct ListSetting;

/**
 * The submenu with the pages and pictures that were opened or saved last, by whatever command. They are kept
 * for the next start from the moment on that somebody has chosen one of them; until then they are known to
 * this start alone, and nothing is written.
 */
class RecentFiles : public QObject
{
    Q_OBJECT

public:
    using Open = std::function<void(const QString& path)>;

    /** What is known is listed in `menu`; `openPage` and `openPicture` open what is chosen. */
    RecentFiles(
        QWidget* window, QMenu& menu, ImgMap& imgMap, const DocumentFile& file, Open openPage,
        Open openPicture);

    /** Lists in the menu what is known now. */
    void mnuPRecent_Show();

    void NotePage(const QString& path);
    /** A picture that was pasted and is in no file of the user's is not noted. */
    void NotePicture(const QString& path);

private:
    /** The files of one kind, the last first. */
    struct Kind
    {
        const ListSetting& Kept;
        const char* EntryName; ///< of the entries, which are numbered
        Open OpenFile;
        QStringList Paths = {};
    };

    void mnuPRecentClear_Click();
    void File_Choose(Kind& kind, const QString& path);
    void AddEntries(Kind& kind, qsizetype firstKey);
    void Note(Kind& kind, const QString& path);
    void Keep(const Kind& kind);

    QWidget* window_;
    QMenu& menu_;
    ImgMap& imgMap_;
    Kind pages_;
    Kind pictures_;
    bool isKept_; ///< whether the lists are written
};
