#include "outline/OutlineWork.h"

#include "outline/WorkBeside.h"

RegionOutline OutlineWished(RegionChoice& choice, const OutlineWish& wish, const StopSign& stop)
{
    for (const RegionStep& step : wish.steps) {
        choice.Take(step.seed, step.how, step.tolerance, stop);
    }
    choice.SetTolerance(wish.tolerance, stop);
    return stop.IsUp() ? RegionOutline() : OutlineOf(choice, wish.plan, stop);
}

OutlineWork::OutlineWork(Way way, std::chrono::milliseconds patience)
    : way_(way)
{
    patience_.setSingleShot(true);
    patience_.setInterval(patience);
    connect(&patience_, &QTimer::timeout, this, &OutlineWork::Patience_Timeout);
    connect(&watcher_, &QFutureWatcher<RegionOutline>::finished, this, &OutlineWork::Watcher_Finished);
}

OutlineWork::~OutlineWork()
{
    watcher_.cancel();
}

void OutlineWork::Begin(const QImage& picture)
{
    Clear();
    picture_ = picture;
}

void OutlineWork::Take(QPoint seed, RegionTaking how)
{
    if (how == RegionTaking::Alone) {
        steps_.clear();
        watcher_.cancel();
    }
    steps_ << RegionStep{ seed, how, tolerance_ };
    isAnythingTaken_ = true;
    Want();
}

void OutlineWork::SetTolerance(double tolerance)
{
    if (tolerance == tolerance_) {
        return;
    }
    tolerance_ = tolerance;
    if (!isAnythingTaken_) {
        return;
    }
    if (!steps_.isEmpty()) {
        steps_.last().tolerance = tolerance;
    }
    Want();
}

void OutlineWork::SetPlan(const OutlinePlan& plan)
{
    if (plan != plan_) {
        plan_ = plan;
        if (isAnythingTaken_) {
            Want();
        }
    }
}

void OutlineWork::Clear()
{
    watcher_.cancel();
    patience_.stop();
    steps_.clear();
    isWanted_ = false;
    isAnythingTaken_ = false;
    // What is at work keeps what it works on, which nobody looks at any more.
    choice_.reset();
}

void OutlineWork::Want()
{
    isWanted_ = true;
    if (!isRunning_) {
        Start();
    } else if (isLong_) {
        StopWhatIsOutdated();
    }
}

void OutlineWork::Start()
{
    if (choice_ == nullptr) {
        choice_ = std::make_shared<RegionChoice>(picture_);
    }
    isWanted_ = false;
    isRunning_ = true;
    isLong_ = false;
    canBeGoneOn_ = steps_.size() <= 1;
    patience_.start();
    const OutlineWish wish{ std::exchange(steps_, {}), tolerance_, plan_ };
    BeginBeside(watcher_, [way = way_, choice = choice_, wish](QPromise<RegionOutline>& promise) {
        promise.addResult(way(*choice, wish, StopSignOf(promise)));
    });
}

void OutlineWork::StopWhatIsOutdated()
{
    // What joins a region, or takes it off, needs the one before as a whole.
    if (isWanted_ && canBeGoneOn_ && steps_.isEmpty()) {
        watcher_.cancel();
    }
}

void OutlineWork::Patience_Timeout()
{
    isLong_ = true;
    Q_EMIT TakesLong();
    StopWhatIsOutdated();
}

void OutlineWork::Watcher_Finished()
{
    isRunning_ = false;
    patience_.stop();
    const bool isTold = !watcher_.isCanceled();
    const RegionOutline outline = isTold ? watcher_.result() : RegionOutline();
    // What is asked for at once meanwhile has the choice to itself again.
    if (isWanted_) {
        Start();
    }
    if (isTold) {
        Q_EMIT Found(outline);
    }
}
