#include "imagemap/PastedPictures.h"

#include "imagemap/model/MapDocument.h"
#include "shared/FileLock.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>

namespace {

constexpr QStringView pastedStart = u"Pasted";
constexpr QStringView pictureEnding = u".png";
constexpr QStringView lockEnding = u".lock";
constexpr QStringView keptEnding = u".kept";
constexpr int numberDigits = 3;
/** Of the number; no other file of the folder is touched. */
constexpr QStringView digitsPattern = u"[0-9][0-9][0-9]";
constexpr int picturesAtMost = 999;

QString NameOf(const QString& path)
{
    return QFileInfo(path).completeBaseName();
}

} // namespace

PastedPictures::PastedPictures(MapDocument& map, const QString& programFolder)
    : QObject(&map)
    , folder_(QDir(programFolder + u"/Temp").absolutePath())
{
}

PastedPictures& PastedPictures::Of(MapDocument& map, const QString& programFolder)
{
    auto* pictures = map.findChild<PastedPictures*>(QString(), Qt::FindDirectChildrenOnly);
    return pictures != nullptr ? *pictures : *new PastedPictures(map, programFolder);
}

QString PastedPictures::Path(const QString& name, QStringView ending) const
{
    return folder_ + u'/' + name + ending;
}

bool PastedPictures::Contains(const QString& path) const
{
    const QFileInfo info(path);
    return info.absolutePath() == folder_ && info.fileName().startsWith(pastedStart) &&
           info.fileName().endsWith(pictureEnding);
}

/** What there are pictures of, or nothing but the locks any more. */
QStringList PastedPictures::Names() const
{
    QStringList names;
    const QString name = pastedStart % digitsPattern;
    const QStringList files = QDir(folder_).entryList({ name + pictureEnding, name + lockEnding });
    for (const QString& file : files) {
        names << NameOf(file);
    }
    names.removeDuplicates();
    return names;
}

bool PastedPictures::Take(const QString& name)
{
    if (held_.contains(name)) {
        return true;
    }
    const std::shared_ptr<QLockFile> lock = TakeLock(Path(name, lockEnding));
    if (lock != nullptr) {
        held_.insert(name, lock);
    }
    return lock != nullptr;
}

QString PastedPictures::FreePath()
{
    for (int number = 1; number <= picturesAtMost; ++number) {
        const QString name =
            QStringLiteral("%1%2").arg(pastedStart).arg(number, numberDigits, 10, QLatin1Char('0'));
        const QString path = Path(name, pictureEnding);
        // Another program may have had the same thought, so the lock comes first.
        if (QFile::exists(path) || held_.contains(name) || !Take(name)) {
            continue;
        }
        if (!QFile::exists(path)) {
            return QDir::toNativeSeparators(path);
        }
        held_.remove(name);
    }
    return {};
}

void PastedPictures::Hold(const QString& path)
{
    if (Contains(path)) {
        (void)Take(NameOf(path)); // another program that has it does not take it away either
    }
}

void PastedPictures::Remove(const QString& path)
{
    QFile::remove(path);
    held_.remove(NameOf(path));
}

void PastedPictures::KeepForGood(const QString& path)
{
    if (Contains(path) && QFile::exists(path)) {
        QFile mark(Path(NameOf(path), keptEnding));
        (void)mark.open(QIODevice::WriteOnly);
    }
}

void PastedPictures::End(const QStringList& needed)
{
    QStringList stay;
    for (const QString& path : needed) {
        if (Contains(path)) {
            stay << NameOf(path);
        }
    }
    const QStringList names = Names();
    for (const QString& name : names) {
        const bool isNeeded = stay.contains(name) || QFile::exists(Path(name, keptEnding));
        if (!isNeeded && Take(name)) {
            QFile::remove(Path(name, pictureEnding));
        }
    }
    held_.clear();
}
