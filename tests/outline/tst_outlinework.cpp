#include "outline/OutlineWork.h"

#include <QSignalSpy>
#include <QTest>
#include <QThread>
#include <QThreadPool>
#include <atomic>
#include <random>

/** The thread that outlines, asked faster than it answers. */
class tst_outlinework : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void regionTakenIsTold();
    void lastOfManyTolerancesCounts();
    void joinedRegionsKeepTheirTolerances();
    void whatIsTakenAloneReplacesWhatWaits();
    void whatIsClearedIsNotTold();
    void anotherPlanOutlinesAnew();
    void withoutARegionNothingIsLookedFor();
    void anotherPictureForgetsWhatWasTaken();
    void goesWhileAtWork();
    void clearedWorkIsStopped();
    void regionTakenAloneStopsWhatIsAtWork();
    void joinedRegionWaitsForTheOneBefore();
    void otherToleranceLetsShortWorkEnd();
    void otherToleranceStopsLongWork();
    void otherToleranceAskedForBeforeStopsLongWork();
    void otherToleranceDoesNotStopSeveralRegions();
    void stoppedWorkIsMadeUpFor();

private:
    void Use(OutlineWork::Way way, std::chrono::milliseconds patience);
    void WaitUntilDone() const { QTRY_VERIFY(!work_->IsBusy()); }

    std::unique_ptr<OutlineWork> work_;
    QList<RegionOutline> told_;
};

namespace {

/** Bars of 20 by 40 pixels whose greys are each five per cent lighter than the last. */
QImage Steps()
{
    constexpr int bars = 10;
    constexpr int width = 20;
    QImage picture(bars * width, 40, QImage::Format_RGB32);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const int grey = 20 + x / width * 13;
            picture.setPixel(x, y, qRgb(grey, grey, grey));
        }
    }
    return picture;
}

std::atomic_int begun = 0;
std::atomic_int stopped = 0;
std::atomic_int mayEnd = 0; ///< so many

/** Ends when one that was begun as the so-many-th may, or is stopped. */
RegionOutline Waiting(RegionChoice& choice, const OutlineWish& wish, const StopSign& stop)
{
    const int number = ++begun;
    while (number > mayEnd && !stop.IsUpNow()) {
        QThread::usleep(100);
    }
    stopped += stop.IsUp() ? 1 : 0;
    return OutlineWished(choice, wish, stop);
}

constexpr int all = 1000;
constexpr std::chrono::milliseconds endless = std::chrono::hours(1);
constexpr std::chrono::milliseconds none{ 0 };

QList<int> LastBox(const QList<RegionOutline>& told)
{
    return told.isEmpty() || told.constLast().IsEmpty() ? QList<int>()
                                                        : told.constLast().Areas.constLast().Area.Coordinates;
}

} // namespace

void tst_outlinework::init()
{
    begun = 0;
    stopped = 0;
    mayEnd = 0;
    Use(&OutlineWished, OutlineWork::usualPatience);
}

void tst_outlinework::Use(OutlineWork::Way way, std::chrono::milliseconds patience)
{
    told_.clear();
    work_ = std::make_unique<OutlineWork>(way, patience);
    connect(
        work_.get(), &OutlineWork::Found, this, [this](const RegionOutline& outline) { told_ << outline; });
    work_->Begin(Steps());
    work_->SetTolerance(1);
}

void tst_outlinework::cleanup()
{
    work_.reset();
    QThreadPool::globalInstance()->waitForDone();
}

void tst_outlinework::regionTakenIsTold()
{
    work_->Take({ 50, 5 }, RegionTaking::Alone);
    QVERIFY(work_->IsBusy());
    WaitUntilDone();
    QCOMPARE(told_.size(), 1);
    QCOMPARE(LastBox(told_), (QList{ 40, 0, 60, 40 }));
}

void tst_outlinework::lastOfManyTolerancesCounts()
{
    work_->Take({ 5, 5 }, RegionTaking::Alone);
    for (int tolerance = 2; tolerance <= 100; ++tolerance) {
        work_->SetTolerance(tolerance);
    }
    WaitUntilDone();
    QCOMPARE(LastBox(told_), (QList{ 0, 0, 200, 40 }));
    QVERIFY(told_.size() <= 3);
    work_->SetTolerance(1);
    WaitUntilDone();
    QCOMPARE(LastBox(told_), (QList{ 0, 0, 20, 40 }));
}

void tst_outlinework::joinedRegionsKeepTheirTolerances()
{
    work_->SetTolerance(7);
    work_->Take({ 5, 5 }, RegionTaking::Alone);
    work_->SetTolerance(1);
    work_->SetTolerance(7);
    work_->Take({ 45, 5 }, RegionTaking::Joined);
    work_->SetTolerance(1);
    WaitUntilDone();
    // The first bar with its neighbour, and the third alone.
    QCOMPARE(told_.constLast().Areas.size(), 1);
    QCOMPARE(LastBox(told_), (QList{ 0, 0, 60, 40 }));
}

void tst_outlinework::whatIsTakenAloneReplacesWhatWaits()
{
    work_->Take({ 5, 5 }, RegionTaking::Alone);
    work_->Take({ 45, 5 }, RegionTaking::Joined);
    work_->Take({ 85, 5 }, RegionTaking::Alone);
    WaitUntilDone();
    QCOMPARE(told_.constLast().Areas.size(), 1);
    QCOMPARE(LastBox(told_), (QList{ 80, 0, 100, 40 }));
}

void tst_outlinework::whatIsClearedIsNotTold()
{
    work_->Take({ 5, 5 }, RegionTaking::Alone);
    work_->Clear();
    WaitUntilDone();
    QTest::qWait(0);
    QVERIFY(told_.isEmpty());
    work_->Take({ 45, 5 }, RegionTaking::Joined);
    WaitUntilDone();
    QCOMPARE(told_.size(), 1);
    QCOMPARE(LastBox(told_), (QList{ 40, 0, 60, 40 }));
}

void tst_outlinework::anotherPlanOutlinesAnew()
{
    work_->Take({ 5, 5 }, RegionTaking::Alone);
    work_->Take({ 85, 5 }, RegionTaking::Joined);
    WaitUntilDone();
    QCOMPARE(told_.constLast().Areas.size(), 2);
    work_->SetPlan({ .IsLargestAlone = true });
    WaitUntilDone();
    QCOMPARE(told_.constLast().Areas.size(), 1);
}

void tst_outlinework::withoutARegionNothingIsLookedFor()
{
    work_->SetTolerance(50);
    work_->SetPlan({ .Precision = 3 });
    QVERIFY(!work_->IsBusy());
}

void tst_outlinework::anotherPictureForgetsWhatWasTaken()
{
    work_->Take({ 5, 5 }, RegionTaking::Alone);
    QImage plain(30, 20, QImage::Format_RGB32);
    plain.fill(Qt::red);
    work_->Begin(plain);
    work_->Take({ 5, 5 }, RegionTaking::Joined);
    WaitUntilDone();
    QCOMPARE(told_.size(), 1);
    QCOMPARE(LastBox(told_), (QList{ 0, 0, 30, 20 }));
}

void tst_outlinework::goesWhileAtWork()
{
    QImage large(3000, 3000, QImage::Format_RGB32);
    large.fill(Qt::red);
    work_->Begin(large);
    work_->Take({ 5, 5 }, RegionTaking::Alone);
    work_.reset();
    QTest::qWait(0);
    QVERIFY(told_.isEmpty());
    Use(&Waiting, none);
    work_->Take({ 5, 5 }, RegionTaking::Alone);
    QTRY_COMPARE(begun.load(), 1);
    // It would wait for ever if it waited.
    work_.reset();
    QTRY_COMPARE(stopped.load(), 1);
    QVERIFY(told_.isEmpty());
}

void tst_outlinework::clearedWorkIsStopped()
{
    Use(&Waiting, none);
    work_->Take({ 5, 5 }, RegionTaking::Alone);
    QTRY_COMPARE(begun.load(), 1);
    work_->Clear();
    WaitUntilDone();
    QCOMPARE(stopped.load(), 1);
    QVERIFY(told_.isEmpty());
}

void tst_outlinework::regionTakenAloneStopsWhatIsAtWork()
{
    Use(&Waiting, endless);
    work_->Take({ 5, 5 }, RegionTaking::Alone);
    QTRY_COMPARE(begun.load(), 1);
    work_->Take({ 45, 5 }, RegionTaking::Alone);
    QTRY_COMPARE(begun.load(), 2);
    QCOMPARE(stopped.load(), 1);
    mayEnd = all;
    WaitUntilDone();
    QCOMPARE(told_.size(), 1);
    QCOMPARE(LastBox(told_), (QList{ 40, 0, 60, 40 }));
}

void tst_outlinework::joinedRegionWaitsForTheOneBefore()
{
    Use(&Waiting, none);
    const QSignalSpy takesLong(work_.get(), &OutlineWork::TakesLong);
    work_->Take({ 5, 5 }, RegionTaking::Alone);
    QTRY_COMPARE(takesLong.size(), 1);
    work_->Take({ 25, 5 }, RegionTaking::Joined);
    work_->SetTolerance(2);
    QTRY_COMPARE(begun.load(), 1);
    mayEnd = all;
    WaitUntilDone();
    QCOMPARE(stopped.load(), 0);
    QCOMPARE(LastBox(told_), (QList{ 0, 0, 40, 40 }));
}

void tst_outlinework::otherToleranceLetsShortWorkEnd()
{
    Use(&Waiting, endless);
    work_->Take({ 5, 5 }, RegionTaking::Alone);
    QTRY_COMPARE(begun.load(), 1);
    work_->SetTolerance(7);
    mayEnd = all;
    WaitUntilDone();
    QCOMPARE(stopped.load(), 0);
    QCOMPARE(told_.size(), 2);
    QCOMPARE(LastBox(told_), (QList{ 0, 0, 40, 40 }));
}

void tst_outlinework::otherToleranceStopsLongWork()
{
    Use(&Waiting, none);
    const QSignalSpy takesLong(work_.get(), &OutlineWork::TakesLong);
    work_->Take({ 5, 5 }, RegionTaking::Alone);
    QTRY_COMPARE(takesLong.size(), 1);
    work_->SetTolerance(7);
    QTRY_COMPARE(begun.load(), 2);
    QTRY_COMPARE(takesLong.size(), 2);
    work_->SetPlan({ .IsLargestAlone = true });
    QTRY_COMPARE(begun.load(), 3);
    QCOMPARE(stopped.load(), 2);
    QVERIFY(told_.isEmpty());
    mayEnd = all;
    WaitUntilDone();
    QCOMPARE(told_.size(), 1);
    QCOMPARE(LastBox(told_), (QList{ 0, 0, 40, 40 }));
}

void tst_outlinework::otherToleranceAskedForBeforeStopsLongWork()
{
    Use(&Waiting, none);
    work_->Take({ 5, 5 }, RegionTaking::Alone);
    work_->SetTolerance(7);
    QTRY_COMPARE(begun.load(), 2);
    QCOMPARE(stopped.load(), 1);
    mayEnd = all;
    WaitUntilDone();
    QCOMPARE(LastBox(told_), (QList{ 0, 0, 40, 40 }));
}

void tst_outlinework::otherToleranceDoesNotStopSeveralRegions()
{
    Use(&Waiting, none);
    const QSignalSpy takesLong(work_.get(), &OutlineWork::TakesLong);
    work_->Take({ 5, 5 }, RegionTaking::Alone);
    work_->Take({ 25, 5 }, RegionTaking::Joined);
    work_->Take({ 45, 5 }, RegionTaking::Joined);
    mayEnd = 1;
    // The two that were joined are one work.
    QTRY_COMPARE(begun.load(), 2);
    QTRY_VERIFY(!takesLong.isEmpty());
    work_->SetTolerance(2);
    QTest::qWait(0);
    QCOMPARE(stopped.load(), 0);
    mayEnd = all;
    WaitUntilDone();
    QCOMPARE(LastBox(told_), (QList{ 0, 0, 60, 40 }));
}

void tst_outlinework::stoppedWorkIsMadeUpFor()
{
    // Noise takes so long that it is stopped again and again.
    QImage noise(700, 500, QImage::Format_RGB32);
    std::mt19937 random(7);
    for (int y = 0; y < noise.height(); ++y) {
        auto* const row = reinterpret_cast<QRgb*>(noise.scanLine(y));
        std::generate_n(row, noise.width(), [&random] { return qRgb(int(random() % 256), 100, 100); });
    }
    Use(&OutlineWished, none);
    work_->Begin(noise);
    work_->Take({ 10, 10 }, RegionTaking::Alone);
    WaitUntilDone();
    work_->Take({ 250, 200 }, RegionTaking::Joined);
    for (int i = 0; i < 40; ++i) {
        // Down at times, but to the end up, so that what was stopped is gone on with.
        work_->SetTolerance(10 + i + int(random() % 8));
        QTest::qWait(int(random() % 8));
    }
    WaitUntilDone();
    RegionChoice choice(noise);
    choice.Take({ 10, 10 }, RegionTaking::Alone, 1);
    choice.Take({ 250, 200 }, RegionTaking::Joined, work_->Tolerance());
    const RegionOutline whole = OutlineOf(choice, {});
    QVERIFY(!told_.isEmpty() && !whole.IsEmpty());
    QCOMPARE(told_.constLast().Plain(), whole.Plain());
}

QTEST_GUILESS_MAIN(tst_outlinework)
#include "tst_outlinework.moc"
