#include "imagemap/RegionFinding.h"

#include "outline/RegionCandidates.h"
#include "outline/WorkBeside.h"

namespace {

/** Of the whole work; shaping the regions takes the rest. */
constexpr int findingShare = 90;

/** One search, in a thread of its own. */
struct RegionWork
{
    QImage picture;
    RegionWay way;
    RegionWish wish;
    std::shared_ptr<const PictureRegions> regions; ///< found already; null where they are to be looked for

    void Run(QPromise<RegionsFound>& promise) const;

private:
    [[nodiscard]] PictureRegions Look(QPromise<RegionsFound>& promise, const StopSign& stop) const;
};

PictureRegions RegionWork::Look(QPromise<RegionsFound>& promise, const StopSign& stop) const
{
    RegionSearch search{
        .within = wish.within, .tolerance = wish.tolerance, .leastPixels = wish.leastPixels, .stop = stop
    };
    const QRect box = wish.within.isNull() ? picture.rect() : wish.within;
    const qint64 rows = qint64(box.height()) * way.passes;
    qint64 done = 0;
    search.passRow = [&promise, &done, rows] {
        promise.setProgressValue(static_cast<int>(findingShare * done++ / rows));
    };
    return way.find(picture, search);
}

void RegionWork::Run(QPromise<RegionsFound>& promise) const
{
    const StopSign stop = StopSignOf(promise);
    RegionsFound found{ regions, {} };
    int done = 0;
    if (found.regions == nullptr) {
        found.regions = std::make_shared<const PictureRegions>(Look(promise, stop));
        done = findingShare;
    }
    const auto count = static_cast<qsizetype>(found.regions->size());
    found.candidates.reserve(count);
    for (const PictureRegion& region : *found.regions) {
        if (stop.IsUpNow()) {
            return;
        }
        const qsizetype number = found.candidates.size() + 1;
        found.candidates << CandidateOf(region, number, wish.precision, stop);
        promise.setProgressValue(done + static_cast<int>((wholeWork - done) * number / count));
    }
    promise.addResult(std::move(found));
}

} // namespace

bool RegionWish::HasRegionsOf(const RegionWish& other) const
{
    return within == other.within && tolerance == other.tolerance && leastPixels == other.leastPixels;
}

RegionFinding::RegionFinding(const QImage& picture, const RegionWay& way, QObject* parent)
    : QObject(parent)
    , picture_(picture)
    , way_(way)
{
    connect(&watcher_, &QFutureWatcher<RegionsFound>::progressValueChanged, this, &RegionFinding::Progressed);
    connect(&watcher_, &QFutureWatcher<RegionsFound>::finished, this, &RegionFinding::Watcher_Finished);
}

RegionFinding::~RegionFinding()
{
    GiveUp();
}

void RegionFinding::Find(const RegionWish& wish)
{
    GiveUp();
    wish_ = wish;
    const bool areKnown = regions_ != nullptr && wish.HasRegionsOf(wishBefore_);
    const RegionWork work{ picture_, way_, wish, areKnown ? regions_ : nullptr };
    BeginBeside(watcher_, [work](QPromise<RegionsFound>& promise) { work.Run(promise); });
}

void RegionFinding::GiveUp()
{
    watcher_.cancel();
    watcher_.setFuture({});
}

void RegionFinding::Watcher_Finished()
{
    if (watcher_.isCanceled() || watcher_.future().resultCount() == 0) {
        return;
    }
    const RegionsFound found = watcher_.result();
    const bool areSame = found.regions == regions_;
    regions_ = found.regions;
    wishBefore_ = wish_;
    Q_EMIT Found(found.candidates, areSame);
}
