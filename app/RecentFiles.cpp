#include "app/RecentFiles.h"

#include "app/rules/DocumentFile.h"
#include "shared/ImgMap.h"
#include "widgets/ElidedLabel.h"
#include "widgets/WindowHelpers.h"

#include <QDir>
#include <QFileInfo>
#include <QMenu>

namespace {

/** So wide is an entry at most, in pixels of the design. */
constexpr int widestEntry = 420;
/** The keys of the entries: pages come first. "C" clears. */
constexpr QStringView entryKeys = u"1234567890ABDEFGHIJK";
static_assert(entryKeys.size() == Setting::recentPages.Most + Setting::recentPictures.Most);

#ifdef Q_OS_WIN
constexpr Qt::CaseSensitivity pathCase = Qt::CaseInsensitive;
#else
constexpr Qt::CaseSensitivity pathCase = Qt::CaseSensitive;
#endif

} // namespace

RecentFiles::RecentFiles(
    QWidget* window, QMenu& menu, ImgMap& imgMap, const DocumentFile& file, Open openPage, Open openPicture)
    : QObject(window)
    , window_(window)
    , menu_(menu)
    , imgMap_(imgMap)
    , pages_{ Setting::recentPages, "mnuPRecentPage", std::move(openPage), {} }
    , pictures_{ Setting::recentPictures, "mnuPRecentPicture", std::move(openPicture), {} }
{
    pages_.Paths = imgMap_.Remembered.Value(pages_.Kept);
    pictures_.Paths = imgMap_.Remembered.Value(pictures_.Kept);
    isKept_ = !pages_.Paths.isEmpty() || !pictures_.Paths.isEmpty();
    menu_.setToolTipsVisible(true);
    const auto noteFile = [this, &file] {
        if (!file.IsNeverSaved()) {
            NotePage(file.Name());
        }
    };
    connect(&file, &DocumentFile::NameChanged, this, noteFile);
    connect(&file, &DocumentFile::Written, this, &RecentFiles::NotePage);
}

void RecentFiles::NotePage(const QString& path)
{
    Note(pages_, path);
}

void RecentFiles::NotePicture(const QString& path)
{
    const QDir pasted(imgMap_.ProgramFolder + u"/Temp");
    if (QFileInfo(path).absoluteDir() != pasted) {
        Note(pictures_, path);
    }
}

void RecentFiles::Note(Kind& kind, const QString& path)
{
    const QString file = QDir::toNativeSeparators(QFileInfo(path).absoluteFilePath());
    kind.Paths.removeIf([&file](const QString& known) { return known.compare(file, pathCase) == 0; });
    kind.Paths.prepend(file);
    kind.Paths = kind.Paths.mid(0, kind.Kept.Most);
    Keep(kind);
}

void RecentFiles::Keep(const Kind& kind)
{
    if (isKept_) {
        imgMap_.Remembered.Keep(kind.Kept, kind.Paths);
    }
}

void RecentFiles::mnuPRecent_Show()
{
    menu_.clear();
    AddEntries(pages_, 0);
    if (!pages_.Paths.isEmpty() && !pictures_.Paths.isEmpty()) {
        menu_.addSeparator()->setObjectName(QStringLiteral("mnuPRecentSep1"));
    }
    AddEntries(pictures_, pages_.Kept.Most);
    const bool isEmpty = menu_.isEmpty();
    if (isEmpty) {
        QAction* const none = menu_.addAction(QStringLiteral("No files yet"));
        none->setObjectName(QStringLiteral("mnuPRecentNone"));
        none->setEnabled(false);
    }
    menu_.addSeparator()->setObjectName(QStringLiteral("mnuPRecentSep2"));
    QAction* const clear = menu_.addAction(QStringLiteral("&Clear"));
    clear->setObjectName(QStringLiteral("mnuPRecentClear"));
    clear->setEnabled(!isEmpty);
    connect(clear, &QAction::triggered, this, &RecentFiles::mnuPRecentClear_Click);
}

void RecentFiles::AddEntries(Kind& kind, qsizetype firstKey)
{
    const int width = static_cast<int>(widestEntry * TextGrowth(window_));
    for (qsizetype i = 0; i < kind.Paths.size(); ++i) {
        const QString path = kind.Paths[i];
        QString shown = menu_.fontMetrics().elidedText(path, Qt::ElideMiddle, width);
        shown.replace(u'&', QStringLiteral("&&"));
        QAction* const entry = menu_.addAction(u'&' + entryKeys.mid(firstKey + i, 1) + u"  " + shown);
        entry->setObjectName(QStringLiteral("%1_%2").arg(QLatin1String(kind.EntryName)).arg(i + 1));
        entry->setToolTip(PlainToolTip(path));
        entry->setMenuRole(QAction::NoRole);
        connect(entry, &QAction::triggered, this, [this, &kind, path] { File_Choose(kind, path); });
    }
}

void RecentFiles::File_Choose(Kind& kind, const QString& path)
{
    if (!QFileInfo(path).isFile()) {
        kind.Paths.removeAll(path);
        Keep(kind);
        ShowMessage(
            window_, QMessageBox::Information, QStringLiteral("The file is no longer there: ") + path);
        return;
    }
    if (!isKept_) {
        isKept_ = true;
        Keep(pages_);
        Keep(pictures_);
    }
    kind.OpenFile(path);
}

void RecentFiles::mnuPRecentClear_Click()
{
    for (Kind* const kind : { &pages_, &pictures_ }) {
        kind->Paths.clear();
        Keep(*kind);
    }
    isKept_ = false;
}
