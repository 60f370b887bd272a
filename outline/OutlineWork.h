#pragma once

#include "outline/RegionOutline.h"

#include <QFutureWatcher>
#include <QObject>
#include <QTimer>
#include <chrono>
#include <memory>

/** A region that is to be taken. */
struct RegionStep
{
    QPoint seed;
    RegionTaking how;
    double tolerance;
};

/** What is wanted of a choice of regions, in this order. */
struct OutlineWish
{
    QList<RegionStep> steps; ///< to be taken besides what is chosen
    double tolerance;        ///< of the region taken last
    OutlinePlan plan;
};

/** The outline of what is wished. Where it was stopped in the only step, a wish without it goes on with that.
 */
[[nodiscard]] RegionOutline
OutlineWished(RegionChoice& choice, const OutlineWish& wish, const StopSign& stop);

/**
 * Chooses regions of a picture and outlines them in another thread. While that is at work, what is asked for
 * further waits; of several tolerances in turn the last one counts alone. What is not wanted any longer is
 * stopped, but for a tolerance or a plan that is not the last one: it may come to its end unless it takes
 * long, or nothing would be told while they keep changing. Everything is called, and told, in one thread.
 */
class OutlineWork final : public QObject
{
    Q_OBJECT

public:
    using Way = RegionOutline (*)(RegionChoice&, const OutlineWish&, const StopSign&);
    static constexpr std::chrono::milliseconds usualPatience{ 200 };

    /** What takes no longer than `patience` does not take long. */
    explicit OutlineWork(Way way = &OutlineWished, std::chrono::milliseconds patience = usualPatience);

    /** Waits for nothing. */
    ~OutlineWork() override;

    /** Goes over to another picture, or none, whose memory is given back; nothing is chosen. */
    void Begin(const QImage& picture);

    void Take(QPoint seed, RegionTaking how);
    void SetTolerance(double tolerance);
    void SetPlan(const OutlinePlan& plan);

    /** Nothing is chosen any longer; what is being worked on is not told any more. */
    void Clear();

    /** Whether Found() is still to come. */
    [[nodiscard]] bool IsBusy() const { return isRunning_ || isWanted_; }

    [[nodiscard]] double Tolerance() const { return tolerance_; }

Q_SIGNALS:
    /** The areas of all that has been asked for until now. */
    void Found(const RegionOutline& outline);

    /** It takes so long that somebody may wonder. */
    void TakesLong();

private:
    void Want();
    void Start();
    void StopWhatIsOutdated();
    void Patience_Timeout();
    void Watcher_Finished();

    Way way_;
    QImage picture_;
    std::shared_ptr<RegionChoice> choice_; ///< touched by the thread alone while that is at work
    QList<RegionStep> steps_;              ///< still to be done
    OutlinePlan plan_;
    double tolerance_ = usualTolerance;
    bool isAnythingTaken_ = false;
    bool isWanted_ = false;
    bool isRunning_ = false;
    bool isLong_ = false;      ///< what is running has used up the patience
    bool canBeGoneOn_ = false; ///< nothing is lost of what is running when it is stopped
    QTimer patience_;
    QFutureWatcher<RegionOutline> watcher_;
};
