#pragma once

#include "outline/RegionOutline.h"

#include <QObject>
#include <QThreadPool>
#include <QTimer>
#include <memory>

/**
 * Chooses regions of a picture and outlines them in a thread of its own. While it is at work, what is asked
 * for further waits; of several tolerances in turn the last one counts alone. Everything is called, and told,
 * in the thread it lives in.
 */
class OutlineWork final : public QObject
{
    Q_OBJECT

public:
    OutlineWork();
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
    /** A region to be taken; one that was taken already where `seed` is null. */
    struct Step
    {
        std::optional<QPoint> seed;
        RegionTaking how;
        double tolerance;
    };

    void Want();
    void Start();
    void Finish(int run, const RegionOutline& outline);

    QImage picture_;
    std::shared_ptr<RegionChoice> choice_; ///< touched by the thread alone while that is at work
    QList<Step> steps_;                    ///< still to be done
    OutlinePlan plan_;
    double tolerance_ = usualTolerance;
    bool isAnythingTaken_ = false;
    bool isWanted_ = false;
    bool isRunning_ = false;
    int run_ = 0; ///< what an older one finds is not wanted any more
    QTimer patience_;
    QThreadPool thread_;
};
