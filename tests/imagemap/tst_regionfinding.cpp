#include "imagemap/RegionFinding.h"
#include "imagemap/frmRegions.h"
#include "tests/support/ProgramFolder.h"
#include "tests/support/WidgetDriving.h"

#include <QLabel>
#include <QProgressBar>
#include <QSignalSpy>
#include <QThread>
#include <QThreadPool>
#include <QTreeView>
#include <algorithm>
#include <atomic>

namespace {

std::atomic_int searchesBegun = 0;
std::atomic_int searchesGivenUp = 0;

/** The one pixel at the corner is a region. */
PictureRegions PixelRegion(const QImage& /*picture*/, const RegionSearch& /*search*/)
{
    PictureRegion region;
    region.region = { QRect(0, 0, 1, 1), 1, QPoint(0, 0) };
    region.contour = { { 0, 0 }, { 1, 0 }, { 1, 1 }, { 0, 1 } };
    return { region };
}

/** Never ends where small regions are wanted, unless it is given up. */
PictureRegions EndlessForSmallOnes(const QImage& picture, const RegionSearch& search)
{
    ++searchesBegun;
    const bool isEndless = search.leastPixels < 100;
    while (isEndless && !search.stop.IsUpNow()) {
        QThread::usleep(100);
    }
    searchesGivenUp += isEndless ? 1 : 0;
    return isEndless ? PictureRegions() : PixelRegion(picture, search);
}

std::atomic_bool mayGoOn = true;

/** Goes over half of its rows and waits there. */
PictureRegions WaitingAtHalf(const QImage& picture, const RegionSearch& search)
{
    for (int row = 0; row <= picture.height() / 2; ++row) {
        search.passRow();
        QThread::usleep(2000);
    }
    while (!mayGoOn) {
        QThread::usleep(100);
    }
    return PixelRegion(picture, search);
}

constexpr RegionWay endlessWay{ &EndlessForSmallOnes, 1, true };

} // namespace

/** Searches in another thread, and the window while one lasts. */
class tst_regionfinding : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void newerSearchGivesUpTheOlder();
    void searchWhoseOwnerGoesIsGivenUp();
    void givenUpSearchTellsNothing();
    void sameRegionsAreNotLookedForAgain();
    void regionsAreShapedAsWished();
    void windowTellsHowFarItIs();
    void stoppedSearchLeavesTheWindow();
    void closedWindowGivesUpItsSearch();

private:
    /** The window while its search goes on for ever. */
    QPointer<frmRegions> Searching(const RegionWay& way = endlessWay)
    {
        RegionWish wish;
        wish.leastPixels = 1;
        QPointer<frmRegions> dialog =
            new frmRegions(folder_->imgMap, "Regions", { picture_, way }, wish, owner_.get());
        dialog->Form_Load();
        dialog->show();
        const auto isTold = [&dialog] { return Find<QWidget>(dialog, "prgSearch")->isVisible(); };
        if (!QTest::qWaitForWindowActive(dialog) || !QTest::qWaitFor(isTold)) {
            qFatal("no search is told of");
        }
        return dialog;
    }

    std::unique_ptr<ProgramFolder> folder_;
    std::unique_ptr<QWidget> owner_;
    QImage picture_;
};

void tst_regionfinding::init()
{
    searchesBegun = 0;
    searchesGivenUp = 0;
    folder_ = std::make_unique<ProgramFolder>();
    owner_ = std::make_unique<QWidget>();
    owner_->show();
    picture_ = QImage(100, 100, QImage::Format_RGB32);
    picture_.fill(Qt::white);
}

void tst_regionfinding::cleanup()
{
    mayGoOn = true;
    owner_.reset();
    folder_.reset();
    QThreadPool::globalInstance()->waitForDone();
}

void tst_regionfinding::newerSearchGivesUpTheOlder()
{
    RegionFinding finding(picture_, endlessWay, nullptr);
    const QSignalSpy found(&finding, &RegionFinding::Found);
    finding.Find({ .within = {}, .leastPixels = 1 });
    QTRY_COMPARE(searchesBegun.load(), 1);
    finding.Find({ .within = {}, .leastPixels = 100 });
    QTRY_COMPARE(searchesGivenUp.load(), 1);
    QTRY_COMPARE(found.size(), 1);
    QCOMPARE(found.constFirst().constFirst().value<AreaCandidates>().size(), 1);
}

void tst_regionfinding::searchWhoseOwnerGoesIsGivenUp()
{
    auto finding = std::make_unique<RegionFinding>(picture_, endlessWay, nullptr);
    finding->Find({ .within = {}, .leastPixels = 1 });
    QTRY_COMPARE(searchesBegun.load(), 1);
    finding.reset();
    QTRY_COMPARE(searchesGivenUp.load(), 1);
}

void tst_regionfinding::givenUpSearchTellsNothing()
{
    RegionFinding finding(picture_, endlessWay, nullptr);
    const QSignalSpy found(&finding, &RegionFinding::Found);
    finding.Find({ .within = {}, .leastPixels = 1 });
    QTRY_COMPARE(searchesBegun.load(), 1);
    finding.GiveUp();
    QVERIFY(QThreadPool::globalInstance()->waitForDone());
    QTest::qWait(0);
    QCOMPARE(found.size(), 0);
    // The next one tells of itself as ever.
    finding.Find({ .within = {}, .leastPixels = 100 });
    QTRY_COMPARE(found.size(), 1);
}

void tst_regionfinding::sameRegionsAreNotLookedForAgain()
{
    RegionFinding finding(picture_, endlessWay, nullptr);
    QSignalSpy found(&finding, &RegionFinding::Found);
    RegionWish wish;
    finding.Find(wish);
    QTRY_COMPARE(found.size(), 1);
    QVERIFY(!found.constLast().constLast().toBool());
    wish.precision = 3;
    finding.Find(wish);
    QTRY_COMPARE(found.size(), 2);
    QVERIFY(found.constLast().constLast().toBool());
    QCOMPARE(searchesBegun.load(), 1);
    wish.tolerance = 3;
    finding.Find(wish);
    QTRY_COMPARE(found.size(), 3);
    QVERIFY(!found.constLast().constLast().toBool());
    QCOMPARE(searchesBegun.load(), 2);
}

void tst_regionfinding::regionsAreShapedAsWished()
{
    constexpr QRgb black = 0xFF000000;
    // A box with a notch of two pixels.
    for (int y = 20; y < 60; ++y) {
        std::fill_n(reinterpret_cast<QRgb*>(picture_.scanLine(y)) + 20, y < 40 ? 40 : 38, black);
    }
    RegionFinding finding(picture_, likeColours, nullptr);
    const QSignalSpy found(&finding, &RegionFinding::Found);
    for (const auto& [precision, shape] :
         { std::pair(0.0, AreaShape::Polygon), std::pair(2.0, AreaShape::Rectangle) }) {
        const qsizetype before = found.size();
        finding.Find({ .within = {}, .precision = precision });
        QTRY_COMPARE(found.size(), before + 1);
        const auto candidates = found.constLast().constFirst().value<AreaCandidates>();
        QCOMPARE(candidates.size(), 2);
        QCOMPARE(candidates[0].Area.Shape, shape);
        QCOMPARE(candidates[0].Pixels, 20 * 40 + 20 * 38);
    }
}

void tst_regionfinding::windowTellsHowFarItIs()
{
    mayGoOn = false;
    const QPointer<frmRegions> dialog = Searching({ &WaitingAtHalf, 1, true });
    const auto* const progress = Find<QProgressBar>(dialog, "prgSearch");
    QTRY_VERIFY(progress->value() > 0);
    QVERIFY(progress->value() <= 45);
    QCOMPARE(Find<QLabel>(dialog, "lblRegions")->text(), "Looking for regions...");
    QVERIFY(!Find<QPushButton>(dialog, "cmdOK")->isEnabled());
    QVERIFY(!Find<QTreeView>(dialog, "lstRegions")->isEnabled());
    mayGoOn = true;
    QTRY_VERIFY(!progress->isVisible());
    QCOMPARE(Find<QLabel>(dialog, "lblRegions")->text(), "1 of 1 will be made.");
    QVERIFY(Find<QPushButton>(dialog, "cmdOK")->isEnabled());
    QVERIFY(Find<QTreeView>(dialog, "lstRegions")->isEnabled());
}

void tst_regionfinding::stoppedSearchLeavesTheWindow()
{
    const QPointer<frmRegions> dialog = Searching();
    ClickIn(dialog, "cmdStop");
    QTRY_COMPARE(searchesGivenUp.load(), searchesBegun.load());
    QVERIFY(dialog->isVisible());
    QVERIFY(!Find<QWidget>(dialog, "prgSearch")->isVisible());
    QCOMPARE(
        Find<QLabel>(dialog, "lblRegions")->text(),
        "The search was stopped. Change a field to begin another one.");
    QVERIFY(!Find<QPushButton>(dialog, "cmdOK")->isEnabled());
    QVERIFY(Find<QTreeView>(dialog, "lstRegions")->isEnabled());
}

void tst_regionfinding::closedWindowGivesUpItsSearch()
{
    const QPointer<frmRegions> dialog = Searching();
    QTest::keyClick(dialog, Qt::Key_Escape);
    QTRY_VERIFY(dialog == nullptr);
    QTRY_COMPARE(searchesGivenUp.load(), 1);
}

QTEST_MAIN(tst_regionfinding)
#include "tst_regionfinding.moc"
