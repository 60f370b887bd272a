#include "app/recovery/RecoveryStore.h"

#include "shared/FileLock.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QUuid>
#include <algorithm>

namespace {

constexpr QStringView recoveryFolder = u"Data/Recovery";
constexpr QStringView pageEnding = u".page";
constexpr QStringView mapEnding = u".map";
constexpr QStringView lockEnding = u".lock";

void RemoveFilesOf(const QString& folder, const QString& id)
{
    const QDir dir(folder);
    const QStringList names = dir.entryList({ id + u".*" }, QDir::Files | QDir::Hidden);
    for (const QString& name : names) {
        if (!name.endsWith(lockEnding)) {
            QFile::remove(dir.filePath(name));
        }
    }
}

/** The ids that files of the folder have, the oldest first. */
QStringList IdsIn(const QString& folder)
{
    QStringList ids;
    const QFileInfoList files =
        QDir(folder).entryInfoList(QDir::Files | QDir::Hidden, QDir::Time | QDir::Reversed);
    for (const QFileInfo& file : files) {
        const QString id = file.fileName().section(u'.', 0, 0);
        const bool isId = !QUuid::fromString(u'{' + id + u'}').isNull();
        if (isId && !ids.contains(id)) {
            ids << id;
        }
    }
    return ids;
}

} // namespace

RecoveryStore::RecoveryStore(const QString& programFolder)
    : folder_(QDir(programFolder).filePath(recoveryFolder.toString()))
    , id_(QUuid::createUuid().toString(QUuid::WithoutBraces))
{
    writer_.setMaxThreadCount(1);
}

RecoveryStore::~RecoveryStore()
{
    Wait();
}

QString RecoveryStore::Path(const QString& id, QStringView ending) const
{
    return folder_ + u'/' + id + ending;
}

template<class Act> void RecoveryStore::Queue(Act act)
{
    ++waiting_;
    writer_.start([this, act] {
        act();
        --waiting_;
    });
}

/** Makes sure that there is a folder, and that others leave what is kept there alone. */
void RecoveryStore::Prepare()
{
    if (lock_ == nullptr && QDir().mkpath(folder_)) {
        lock_ = TakeLock(Path(id_, lockEnding));
    }
}

/** Leaves nothing behind where nothing is kept. */
void RecoveryStore::Tidy()
{
    if (!QFile::exists(Path(id_, pageEnding)) && !QFile::exists(Path(id_, mapEnding))) {
        lock_.reset();
        QDir().rmdir(folder_); // unless something of others is in it
    }
}

void RecoveryStore::Keep(const PageCopy& page)
{
    Queue([this, page] {
        Prepare();
        isPageKept_ = lock_ != nullptr && WriteCopy(Path(id_, pageEnding), page);
    });
}

void RecoveryStore::Keep(const MapCopy& map)
{
    Queue([this, map] {
        Prepare();
        isMapKept_ = lock_ != nullptr && WriteCopy(Path(id_, mapEnding), map);
    });
}

void RecoveryStore::DropPage()
{
    Queue([this] {
        QFile::remove(Path(id_, pageEnding));
        isPageKept_ = true;
        Tidy();
    });
}

void RecoveryStore::DropMap()
{
    Queue([this] {
        QFile::remove(Path(id_, mapEnding));
        isMapKept_ = true;
        Tidy();
    });
}

void RecoveryStore::Wait()
{
    writer_.waitForDone();
}

void RecoveryStore::End()
{
    Queue([this] { lock_.reset(); });
    Wait();
}

QList<LeftBehind> RecoveryStore::TakeLeftBehind() const
{
    QList<LeftBehind> all;
    const QStringList ids = QFileInfo(folder_).isDir() ? IdsIn(folder_) : QStringList();
    for (const QString& id : ids) {
        LeftBehind left{ .Id = id, .Lock = TakeLock(Path(id, lockEnding)), .Page = {}, .Map = {} };
        if (left.Lock == nullptr) {
            continue;
        }
        const bool isAnything = QFile::exists(Path(id, pageEnding)) || QFile::exists(Path(id, mapEnding));
        left.Page = ReadPageCopy(Path(id, pageEnding));
        left.Map = ReadMapCopy(Path(id, mapEnding));
        if (left.Page || left.Map) {
            all << left;
        } else if (!isAnything) {
            RemoveFilesOf(folder_, id); // of a first copy that was never finished
        }
    }
    if (!ids.isEmpty()) {
        QDir().rmdir(folder_);
    }
    return all;
}

QStringList RecoveryStore::KeptPictures() const
{
    QStringList pictures;
    const QDir dir(folder_);
    const QStringList names = dir.entryList({ u'*' + mapEnding }, QDir::Files | QDir::Hidden);
    for (const QString& name : names) {
        if (const std::optional<MapCopy> map = ReadMapCopy(dir.filePath(name))) {
            pictures << map->State.Picture;
        }
    }
    return pictures;
}

void RecoveryStore::Remove(const LeftBehind& left)
{
    Queue([this, id = left.Id, lock = left.Lock] {
        if (IsKept()) {
            RemoveFilesOf(folder_, id);
            lock->unlock();
            Tidy();
        }
    });
}
