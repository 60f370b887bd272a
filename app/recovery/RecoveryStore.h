#pragma once

#include "app/recovery/RecoveryCopy.h"

#include <QThreadPool>
#include <atomic>
#include <memory>

class QLockFile;

/** What a program has left behind that is no longer running; nobody else is offered it meanwhile. */
struct LeftBehind
{
    QString Id;
    std::shared_ptr<QLockFile> Lock; ///< held by whom it is offered to
    std::optional<PageCopy> Page;
    std::optional<MapCopy> Map;
};

/**
 * The folder `Data/Recovery`: what each running program has not saved, under an id of its own, and what
 * others have left behind. Everything is written and removed in another thread, one after the other; the
 * folder is only there while something is in it.
 */
class RecoveryStore
{
public:
    explicit RecoveryStore(const QString& programFolder);

    /** Waits for what is being written. What is kept stays, as after a sudden end. */
    ~RecoveryStore();
    Q_DISABLE_COPY_MOVE(RecoveryStore)

    /** Puts a copy in place of the one that there is. */
    void Keep(const PageCopy& page);
    void Keep(const MapCopy& map);

    /** Takes the copy away, if there is one. */
    void DropPage();
    void DropMap();

    /** Whether something is still to be written. */
    [[nodiscard]] bool IsBusy() const { return waiting_ > 0; }

    /** Whether the last copy of each could be written. */
    [[nodiscard]] bool IsKept() const { return isPageKept_ && isMapKept_; }

    /** Waits until all is done. */
    void Wait();

    /** The program ends: waits, and leaves what is kept to the next one. */
    void End();

    /** What has been left behind and can be read, the oldest first; each is told once. */
    [[nodiscard]] QList<LeftBehind> TakeLeftBehind() const;

    /** The files of the pictures of all maps that are kept, by whomever. */
    [[nodiscard]] QStringList KeptPictures() const;

    /** Takes it away, unless what was kept here last could not be written: then it may be all there is. */
    void Remove(const LeftBehind& left);

private:
    template<class Act> void Queue(Act act);
    void Prepare();
    void Tidy();
    [[nodiscard]] QString Path(const QString& id, QStringView ending) const;

    QString folder_;
    QString id_;
    std::shared_ptr<QLockFile> lock_; ///< while something is kept
    std::atomic_int waiting_ = 0;
    std::atomic_bool isPageKept_ = true;
    std::atomic_bool isMapKept_ = true;
    QThreadPool writer_;
};
