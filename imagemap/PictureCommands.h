#pragma once

#include "imagemap/picture/AnyPicture.h"
#include "shared/ImgMap.h"

#include <QDateTime>
#include <QFileSystemWatcher>
#include <QObject>
#include <QTimer>
#include <functional>

class MapDocument;
class PageDocument;
class PastedPictures;
class QAction;
class QMainWindow;
class QMenu;

/**
 * The other ways to a picture: a command for all forms that there are readers for, the clipboard, and the
 * file of the present one when it was changed. A picture is read before anything is given up for it, so one
 * that cannot be read costs nothing.
 */
class PictureCommands final : public QObject
{
    Q_OBJECT

public:
    /** The parts of the window that the commands work on, all of which live as long. */
    struct Parts
    {
        QMainWindow& window;
        QMenu& menu; ///< the commands stand at its end
        MapDocument& map;
        const PageDocument& page;
        const ImgMap& imgMap;
        std::function<bool()> begin; ///< gives up what is being drawn; false where a dialog is about to open
        std::function<bool()> discard; ///< asks before a map is thrown away; false where it is not
    };

    explicit PictureCommands(const Parts& parts);

    /** The picture of `path`, which may be empty, is shown from now on: changes of its file are noticed. */
    void Watch(const QString& path);

    /** Whether the picture's file is another one than what is shown. */
    [[nodiscard]] bool IsChanged() const { return isChanged_; }

    void OpenOther();
    void Open(const QString& path);

    /** Takes the picture on the clipboard; false when there is none. */
    bool Paste();

    /** Shows the picture as its file is now; the areas stay. */
    void LoadAnew();

    /** Puts a picture from the clipboard into a file of its own, beside the page if that has one. */
    void SavePasted();

    /** The picture is named in a page: if it was pasted and is in no file of its own, it stays. */
    void KeepPasted() const;

Q_SIGNALS:
    /** `picture`, of the file `path`, takes the place of the one shown, and the map is to be begun anew. */
    void Opened(const QString& path, const QImage& picture);

    /** `picture` is what the file of the shown one holds by now. */
    void Renewed(const QImage& picture);

    /** The picture is in the file `path` from now on. */
    void Moved(const QString& path);

    /** Something to be told in the status bar; a click on it does `act`. */
    void OfferMade(const QString& hint, const std::function<void()>& act);

    /** IsChanged() has become true. */
    void Changed();

private:
    QAction* AddEntry(const char* name, const QString& caption, void (PictureCommands::*run)());
    void OpenFrom(const QString& path, const PictureReading& reading);
    [[nodiscard]] PastedPictures& Pasted() const;
    [[nodiscard]] QString FolderOfPage() const;
    void Refuse(const QString& path, const QString& problem);
    void Look();

    Parts parts_;
    QAction* loadAnew_;
    QAction* savePasted_;
    QFileSystemWatcher watcher_;
    QTimer settling_; ///< runs while the file may still be being written
    QString path_;
    QDateTime shownTime_;
    qint64 shownSize_ = 0;
    bool isChanged_ = false;
};

/** Whether there is a picture on the clipboard, or the name of a file. */
[[nodiscard]] bool HasPictureOnClipboard();
