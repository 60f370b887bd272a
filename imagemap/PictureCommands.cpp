#include "imagemap/PictureCommands.h"

#include "imagemap/PastedPictures.h"
#include "imagemap/model/MapDocument.h"
#include "shared/FileWriting.h"
#include "shared/PageDocument.h"
#include "shared/Paths.h"
#include "widgets/FileDialog.h"
#include "widgets/WindowHelpers.h"

#include <QBuffer>
#include <QClipboard>
#include <QGuiApplication>
#include <QMainWindow>
#include <QMenu>
#include <QMimeData>
#include <QUrl>
#include <chrono>

namespace {

using namespace std::chrono_literals;

/** Programs write a file piece by piece. */
constexpr auto settlingTime = 300ms;
constexpr const char* pastedFormat = "png";
constexpr QStringView pastedHint = u"The pasted picture is in no file of yours: click here to save it";

/** The file that `data` names, if it is one alone and of this machine. */
QString FileIn(const QMimeData* data)
{
    const QList<QUrl> urls = data != nullptr ? data->urls() : QList<QUrl>();
    return urls.size() == 1 && urls.constFirst().isLocalFile()
               ? QDir::toNativeSeparators(urls.constFirst().toLocalFile())
               : QString();
}

/** Of a file: when it was written last, and how large it is. */
struct FileMoment
{
    QDateTime time;
    qint64 size;
};

FileMoment MomentOf(const QString& path)
{
    const QFileInfo info(path);
    return { info.lastModified(), info.size() };
}

} // namespace

bool HasPictureOnClipboard()
{
    const QMimeData* const data = QGuiApplication::clipboard()->mimeData();
    return data != nullptr && (data->hasImage() || !FileIn(data).isEmpty());
}

PictureCommands::PictureCommands(const Parts& parts)
    : QObject(&parts.window)
    , parts_(parts)
{
    parts_.menu.addSeparator()->setObjectName(QStringLiteral("mnuVSep2"));
    (void)AddEntry("mnuVOther", QStringLiteral("Open &Other Picture..."), &PictureCommands::OpenOther);
    loadAnew_ =
        AddEntry("mnuVLoadAnew", QStringLiteral("&Load the Picture Anew"), &PictureCommands::LoadAnew);
    savePasted_ =
        AddEntry("mnuVSavePasted", QStringLiteral("Sa&ve Pasted Picture..."), &PictureCommands::SavePasted);
    loadAnew_->setEnabled(false);
    savePasted_->setEnabled(false);
    settling_.setSingleShot(true);
    settling_.setInterval(settlingTime);
    connect(&settling_, &QTimer::timeout, this, &PictureCommands::Look);
    const auto wait = [this] { settling_.start(); };
    connect(&watcher_, &QFileSystemWatcher::fileChanged, this, wait);
    connect(&watcher_, &QFileSystemWatcher::directoryChanged, this, wait);
}

QAction* PictureCommands::AddEntry(const char* name, const QString& caption, void (PictureCommands::*run)())
{
    QAction* const entry = parts_.menu.addAction(caption);
    entry->setObjectName(QString::fromLatin1(name));
    connect(entry, &QAction::triggered, this, run);
    return entry;
}

void PictureCommands::Refuse(const QString& path, const QString& problem)
{
    ShowMessage(&parts_.window, QMessageBox::Warning, problem + u'\n' + path);
}

void PictureCommands::OpenOther()
{
    if (!parts_.begin()) {
        return;
    }
    FileDialog dialog(
        &parts_.window, QStringLiteral("CMDialog1"), QFileDialog::ExistingFile, otherPictureFilter);
    if (const std::optional<QString> path = dialog.Choose()) {
        Open(*path);
    }
    GoToProgramFolder(parts_.imgMap);
}

void PictureCommands::Open(const QString& path)
{
    ShowHourglass();
    const PictureReading reading = ReadAnyPicture(path);
    ShowDefaultPointer();
    if (reading.Picture.isNull()) {
        Refuse(path, reading.Problem);
    } else {
        OpenFrom(path, reading);
    }
}

void PictureCommands::OpenFrom(const QString& path, const PictureReading& reading)
{
    if (!parts_.discard()) {
        return;
    }
    {
        const MapDocument::Step step(parts_.map, QStringLiteral("Opening of a Picture"));
        parts_.map.ForgetAreas();
        parts_.map.SetPicture(path);
    }
    Q_EMIT Opened(path, reading.Picture);
}

PastedPictures& PictureCommands::Pasted() const
{
    return PastedPictures::Of(parts_.map, parts_.imgMap.ProgramFolder);
}

void PictureCommands::KeepPasted() const
{
    Pasted().KeepForGood(path_);
}

bool PictureCommands::Paste()
{
    const QMimeData* const data = QGuiApplication::clipboard()->mimeData();
    if (const QString path = FileIn(data); !path.isEmpty()) {
        Open(path);
        return true;
    }
    const auto picture = data != nullptr ? data->imageData().value<QImage>() : QImage();
    if (picture.isNull()) {
        return false;
    }
    // Undoing finds pictures by their files, so a pasted one has to have one.
    const QString path = Pasted().FreePath();
    QByteArray bytes;
    QBuffer buffer(&bytes);
    const bool isPacked = buffer.open(QIODevice::WriteOnly) && picture.save(&buffer, pastedFormat);
    const std::optional<QString> problem = isPacked && !path.isEmpty()
                                               ? WriteWholeFile(path, bytes)
                                               : QStringLiteral("The picture cannot be kept !");
    if (problem) {
        Pasted().Remove(path);
        Refuse(path, *problem);
        return true;
    }
    Open(path);
    if (parts_.map.Picture() == path) {
        Q_EMIT OfferMade(pastedHint.toString(), [this] { SavePasted(); });
    } else {
        Pasted().Remove(path);
    }
    return true;
}

QString PictureCommands::FolderOfPage() const
{
    const QString page = parts_.page.FileName();
    return page.isEmpty() ? parts_.imgMap.ProgramFolder : QFileInfo(page).absolutePath();
}

void PictureCommands::SavePasted()
{
    if (!savePasted_->isEnabled() || !parts_.begin()) {
        return;
    }
    FileDialog dialog(&parts_.window, QStringLiteral("CMDialog1"), QFileDialog::AnyFile, pngFilter);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QLatin1String(pastedFormat));
    dialog.setDirectory(FolderOfPage());
    dialog.selectFile(QStringLiteral("picture.png"));
    const std::optional<QString> path = dialog.Choose();
    GoToProgramFolder(parts_.imgMap);
    if (!path) {
        return;
    }
    QFile pasted(path_);
    const std::optional<QString> problem =
        pasted.open(QIODevice::ReadOnly) ? WriteWholeFile(*path, pasted.readAll()) : pasted.errorString();
    if (problem) {
        Refuse(*path, *problem);
        return;
    }
    const MapDocument::Step step(parts_.map, QStringLiteral("Saving of the Picture"));
    parts_.map.SetPicture(*path);
    Q_EMIT Moved(*path);
}

void PictureCommands::LoadAnew()
{
    if (path_.isEmpty() || !parts_.begin()) {
        return;
    }
    ShowHourglass();
    const PictureReading reading = ReadAnyPicture(path_);
    ShowDefaultPointer();
    if (reading.Picture.isNull()) {
        Refuse(path_, reading.Problem);
        return;
    }
    Watch(path_);
    Q_EMIT Renewed(reading.Picture);
}

void PictureCommands::Watch(const QString& path)
{
    if (const QStringList watched = watcher_.files() + watcher_.directories(); !watched.isEmpty()) {
        watcher_.removePaths(watched);
    }
    settling_.stop();
    path_ = path;
    isChanged_ = false;
    const FileMoment moment = MomentOf(path_);
    shownTime_ = moment.time;
    shownSize_ = moment.size;
    const QFileInfo info(path_);
    loadAnew_->setEnabled(!path_.isEmpty());
    Pasted().Hold(path_);
    savePasted_->setEnabled(Pasted().Contains(path_));
    if (info.isFile()) {
        // Some programs write another file and put it in the place of this one, so its folder counts too.
        watcher_.addPaths({ info.absoluteFilePath(), info.absolutePath() });
    }
}

void PictureCommands::Look()
{
    const QFileInfo info(path_);
    if (!info.isFile()) {
        return;
    }
    if (watcher_.files().isEmpty()) {
        watcher_.addPath(info.absoluteFilePath());
    }
    const FileMoment moment = MomentOf(path_);
    if (!isChanged_ && (moment.time != shownTime_ || moment.size != shownSize_)) {
        isChanged_ = true;
        Q_EMIT Changed();
    }
}
