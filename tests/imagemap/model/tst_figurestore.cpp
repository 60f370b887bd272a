// Filling the ledger of the drawing tools, and emptying it.

#include "imagemap/model/FigureStore.h"
#include "tests/imagemap/model/DrawnFigures.h"

#include <QTest>
#include <memory>

namespace {

void FillWithLinks(FigureStore::Records& records)
{
    for (FigureRecord& record : records) {
        record.Link = "link";
    }
}

} // namespace

class tst_figurestore : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void newStoreIsEmpty();
    void slotOutsideTheArrayIsNone_data();
    void slotOutsideTheArrayIsNone();

    void appendingWritesTheShapeAlone();
    void appendingARectangleKeepsTheSlotsRadius();
    void appendingACircleTakesTheRadius();
    void appendingASideFillsAllThreeArrays();
    void appendingToAFullStoreWritesNothing();
    void retractedSideStaysACorner();
    void resettingTheCurrentPolygonKeepsTheFirstLink();
    void resettingAFullCurrentPolygonSkipsTheSlotBeyond();

    void clearingKeepsTheFirstSidesLink();
    void clearingErasesTheSlotBehindTheLastFigure();
    void clearingLeavesTheCurrentPolygon();
    void clearingAFullStoreWorks();

private:
    std::unique_ptr<FigureStore> store_;
};

void tst_figurestore::init()
{
    store_ = std::make_unique<FigureStore>();
}

void tst_figurestore::newStoreIsEmpty()
{
    QCOMPARE(CountsOf(*store_), (Counts{ 0, 0, 0 }));
    QCOMPARE(store_->CurrentKind, qint16(0));
    QCOMPARE(store_->DrawState, drawIdle);
    QVERIFY(store_->LastFigure() == nullptr);
    QVERIFY(store_->Figures.front() == FigureRecord());
    QCOMPARE(store_->Figures.size(), int(500));
    QVERIFY(!store_->HasUnfinishedPolygon());
}

void tst_figurestore::slotOutsideTheArrayIsNone_data()
{
    QTest::addColumn<int>("slot");
    QTest::addColumn<bool>("isInside");
    QTest::newRow("before the first") << -1 << false;
    QTest::newRow("first") << 0 << true;
    QTest::newRow("last") << 499 << true;
    QTest::newRow("behind the last") << 500 << false;
    QTest::newRow("far before") << -500 << false;
    QTest::newRow("far behind") << 100'000 << false;
}

void tst_figurestore::slotOutsideTheArrayIsNone()
{
    QFETCH(const int, slot);
    QFETCH(const bool, isInside);
    QCOMPARE(FigureStore::At(store_->Figures, slot) != nullptr, isInside);
}

void tst_figurestore::appendingWritesTheShapeAlone()
{
    store_->Figures[0] = { 7, 1, 1, 1, 1, 55, "old link", "old target", "old message" };
    store_->StartX = 10;
    store_->StartY = -20;
    store_->EndX = 30;
    store_->EndY = 40;
    store_->CurrentRadius = 99;
    Draw(*store_, kindRectangle);
    const FigureRecord expected = { 5, 10, -20, 30, 40, 55, "old link", "old target", "old message" };
    QVERIFY(store_->Figures[0] == expected);
    QCOMPARE(CountsOf(*store_), (Counts{ 1, 0, 0 }));
    QVERIFY(store_->LastFigure() == &store_->Figures[0]);
}

void tst_figurestore::appendingARectangleKeepsTheSlotsRadius()
{
    store_->CurrentRadius = 12;
    Draw(*store_, kindCircle);
    store_->RemoveLast();
    store_->CurrentRadius = 34;
    Draw(*store_, kindRectangle);
    QCOMPARE(store_->Figures[0].Radius, qint16(12));
}

void tst_figurestore::appendingACircleTakesTheRadius()
{
    store_->CurrentRadius = 12;
    Draw(*store_, kindCircle);
    store_->CurrentRadius = 34;
    QCOMPARE(store_->Figures[0].Radius, qint16(12));
}

void tst_figurestore::appendingASideFillsAllThreeArrays()
{
    Draw(*store_, kindRectangle);
    store_->CurrentKind = kindLine;
    store_->EndX = 7;
    store_->AppendSide();
    QCOMPARE(CountsOf(*store_), (Counts{ 2, 1, 1 }));
    const FigureRecord side = { 7, 0, 0, 7, 0, 0, {}, {}, {} };
    QVERIFY(store_->Figures[1] == side);
    QVERIFY(store_->PolygonLines[0] == side);
    QVERIFY(store_->CurrentPolygon[0] == side);
    QVERIFY(store_->HasUnfinishedPolygon());
}

void tst_figurestore::appendingToAFullStoreWritesNothing()
{
    store_->FigureCount = FigureStore::capacity;
    store_->PolygonLineCount = FigureStore::capacity;
    store_->CurrentPolygonLineCount = FigureStore::capacity;
    Draw(*store_, kindCircle);
    store_->CurrentKind = kindLine;
    store_->AppendSide();
    const FigureStore empty;
    QVERIFY(store_->Figures == empty.Figures);
    QVERIFY(store_->PolygonLines == empty.PolygonLines);
    QVERIFY(store_->CurrentPolygon == empty.CurrentPolygon);
}

void tst_figurestore::retractedSideStaysACorner()
{
    DrawSides(*store_, 3);
    QCOMPARE(CountsOf(*store_), (Counts{ 2, 2, 3 }));
}

void tst_figurestore::resettingTheCurrentPolygonKeepsTheFirstLink()
{
    FillWithLinks(store_->CurrentPolygon);
    store_->CurrentPolygonLineCount = 3;
    store_->ResetCurrentPolygon();
    QCOMPARE(store_->CurrentPolygonLineCount, 0);
    QStringList links;
    for (int slot = 0; slot < 5; ++slot) {
        links << store_->CurrentPolygon[slot].Link;
    }
    QCOMPARE(links, QStringList({ "link", "", "", "", "link" }));
}

void tst_figurestore::resettingAFullCurrentPolygonSkipsTheSlotBeyond()
{
    FillWithLinks(store_->CurrentPolygon);
    store_->CurrentPolygonLineCount = FigureStore::capacity;
    store_->ResetCurrentPolygon();
    QCOMPARE(store_->CurrentPolygonLineCount, 0);
    QCOMPARE(store_->CurrentPolygon.front().Link, QString("link"));
    QCOMPARE(store_->CurrentPolygon.back().Link, QString());
}

void tst_figurestore::clearingKeepsTheFirstSidesLink()
{
    store_->PolygonLineCount = 3;
    FillWithLinks(store_->PolygonLines);
    store_->Clear();
    QStringList links;
    for (int slot = 0; slot < 5; ++slot) {
        links << store_->PolygonLines[slot].Link;
    }
    QCOMPARE(links, QStringList({ "link", "", "", "", "link" }));
    QCOMPARE(CountsOf(*store_), (Counts{ 0, 0, 0 }));

    FillWithLinks(store_->PolygonLines);
    store_->Clear();
    QCOMPARE(store_->PolygonLines[1].Link, QString("link"));
}

void tst_figurestore::clearingErasesTheSlotBehindTheLastFigure()
{
    FillWithLinks(store_->Figures);
    store_->FigureCount = 2;
    store_->Clear();
    QStringList links;
    for (int slot = 0; slot < 4; ++slot) {
        links << store_->Figures[slot].Link;
    }
    QCOMPARE(links, QStringList({ "link", "link", "", "link" }));
    QCOMPARE(store_->FigureCount, 0);
}

void tst_figurestore::clearingLeavesTheCurrentPolygon()
{
    store_->CurrentKind = kindLine;
    store_->AppendSide();
    store_->AppendSide();
    store_->Clear();
    QCOMPARE(CountsOf(*store_), (Counts{ 0, 0, 2 }));
}

void tst_figurestore::clearingAFullStoreWorks()
{
    FillWithLinks(store_->Figures);
    FillWithLinks(store_->PolygonLines);
    store_->FigureCount = FigureStore::capacity;
    store_->PolygonLineCount = FigureStore::capacity;
    store_->Clear();
    QCOMPARE(CountsOf(*store_), (Counts{ 0, 0, 0 }));
    QCOMPARE(EndMarks(*store_), QList<int>{ 0 });
    QCOMPARE(store_->Figures.back().Link, QString("link"));
}

QTEST_GUILESS_MAIN(tst_figurestore)

#include "tst_figurestore.moc"
