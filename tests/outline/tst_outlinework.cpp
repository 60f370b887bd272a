#include "outline/OutlineWork.h"

#include <QTest>

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

private:
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

QList<int> LastBox(const QList<RegionOutline>& told)
{
    return told.isEmpty() || told.constLast().IsEmpty() ? QList<int>()
                                                        : told.constLast().Areas.constLast().Area.Coordinates;
}

} // namespace

void tst_outlinework::init()
{
    told_.clear();
    work_ = std::make_unique<OutlineWork>();
    connect(
        work_.get(), &OutlineWork::Found, this, [this](const RegionOutline& outline) { told_ << outline; });
    work_->Begin(Steps());
    work_->SetTolerance(1);
}

void tst_outlinework::cleanup()
{
    work_.reset();
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
}

QTEST_GUILESS_MAIN(tst_outlinework)
#include "tst_outlinework.moc"
