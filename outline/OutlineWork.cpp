#include "outline/OutlineWork.h"

namespace {

constexpr std::chrono::milliseconds patience(200);

} // namespace

OutlineWork::OutlineWork()
{
    thread_.setMaxThreadCount(1);
    patience_.setSingleShot(true);
    patience_.setInterval(patience);
    connect(&patience_, &QTimer::timeout, this, &OutlineWork::TakesLong);
}

OutlineWork::~OutlineWork()
{
    thread_.waitForDone();
}

void OutlineWork::Begin(const QImage& picture)
{
    Clear();
    picture_ = picture;
    choice_.reset();
}

void OutlineWork::Take(QPoint seed, RegionTaking how)
{
    if (how == RegionTaking::Alone) {
        steps_.clear();
    }
    steps_ << Step{ seed, how, tolerance_ };
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
    if (steps_.isEmpty()) {
        steps_ << Step{ {}, {}, tolerance };
    } else {
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
    ++run_;
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
    }
}

void OutlineWork::Start()
{
    if (choice_ == nullptr) {
        choice_ = std::make_shared<RegionChoice>(picture_);
    }
    isWanted_ = false;
    isRunning_ = true;
    patience_.start();
    thread_.start([this, run = run_, choice = choice_, steps = std::exchange(steps_, {}), plan = plan_] {
        for (const Step& step : steps) {
            if (step.seed) {
                choice->Take(*step.seed, step.how, step.tolerance);
            } else {
                choice->SetTolerance(step.tolerance);
            }
        }
        const RegionOutline outline = OutlineOf(*choice, plan);
        QMetaObject::invokeMethod(
            this, [this, run, outline] { Finish(run, outline); }, Qt::QueuedConnection);
    });
}

void OutlineWork::Finish(int run, const RegionOutline& outline)
{
    isRunning_ = false;
    patience_.stop();
    if (run != run_) {
        if (isWanted_) {
            Start();
        }
        return;
    }
    // What is asked for at once meanwhile has the choice to itself again.
    if (isWanted_) {
        Start();
    }
    Q_EMIT Found(outline);
}
