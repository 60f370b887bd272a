#include "imagemap/model/FigureStore.h"

#include <QTest>
#include <memory>

namespace {

void Draw(FigureStore& store, qint16 kind)
{
    store.CurrentKind = kind;
    store.AppendFigure();
}

/** Draws the sides of a polygon as the mouse does: the last one closes it and leaves the figures again. */
void DrawSides(FigureStore& store, int drawn)
{
    store.CurrentKind = kindLine;
    for (int side = 0; side < drawn; ++side) {
        store.AppendSide();
    }
    store.RetractLastSide();
}

/** A finished polygon of which `sides` stay in the store, linked to `link`. */
void DrawPolygon(FigureStore& store, int sides, const QString& link)
{
    DrawSides(store, sides + 1);
    store.PolygonLines[store.PolygonLineCount - 1].Link = link;
    store.ResetCurrentPolygon();
}

/** The polygon sides with a link, which are the ends of polygons, by their slots. */
QList<int> EndMarks(const FigureStore& store)
{
    QList<int> marks;
    for (int slot = 0; slot < store.PolygonLines.size(); ++slot) {
        if (!store.PolygonLines[slot].Link.isEmpty()) {
            marks << slot;
        }
    }
    return marks;
}

using Counts = QList<int>;

/** Figures, polygon sides and sides of the current polygon. */
Counts CountsOf(const FigureStore& store)
{
    return { store.FigureCount, store.PolygonLineCount, store.CurrentPolygonLineCount };
}

void FillWithLinks(FigureStore::Records& records)
{
    for (FigureRecord& record : records) {
        record.Link = "link";
    }
}

} // namespace

class TestFigureStore : public QObject
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

    void removingFromAnEmptyStoreDoesNothing();
    void removingARectangleOrCircleLowersTheCountAlone_data();
    void removingARectangleOrCircleLowersTheCountAlone();
    void removingTheFirstPolygonEmptiesTheSides();
    void removingAPolygonErasesThePreviousEndMark();
    void polygonAfterAnErasedEndMarkTakesThePreviousOneAlong();
    void removingAPolygonOfOneSideStopsAtItsPredecessor();
    void figuresBetweenPolygonsStay();
    void sidesAreTakenFromTheEndOfTheFigures();
    void sideWithoutBookkeepingCannotBeRemoved();
    void staleLinkInAReusedSlotEndsTheWalk();
    void removingFromAFullStoreWorks();

    void clearingKeepsTheFirstSidesLink();
    void clearingErasesTheSlotBehindTheLastFigure();
    void clearingLeavesTheCurrentPolygon();
    void clearingAFullStoreWorks();

private:
    std::unique_ptr<FigureStore> store_;
};

void TestFigureStore::init()
{
    store_ = std::make_unique<FigureStore>();
}

void TestFigureStore::newStoreIsEmpty()
{
    QCOMPARE(CountsOf(*store_), (Counts{ 0, 0, 0 }));
    QCOMPARE(store_->CurrentKind, qint16(0));
    QCOMPARE(store_->DrawState, drawIdle);
    QVERIFY(store_->LastFigure() == nullptr);
    QVERIFY(store_->Figures.front() == FigureRecord());
    QCOMPARE(store_->Figures.size(), int(500));
    QVERIFY(!store_->HasUnfinishedPolygon());
}

void TestFigureStore::slotOutsideTheArrayIsNone_data()
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

void TestFigureStore::slotOutsideTheArrayIsNone()
{
    QFETCH(const int, slot);
    QFETCH(const bool, isInside);
    QCOMPARE(FigureStore::At(store_->Figures, slot) != nullptr, isInside);
}

void TestFigureStore::appendingWritesTheShapeAlone()
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

void TestFigureStore::appendingARectangleKeepsTheSlotsRadius()
{
    store_->CurrentRadius = 12;
    Draw(*store_, kindCircle);
    store_->RemoveLast();
    store_->CurrentRadius = 34;
    Draw(*store_, kindRectangle);
    QCOMPARE(store_->Figures[0].Radius, qint16(12));
}

void TestFigureStore::appendingACircleTakesTheRadius()
{
    store_->CurrentRadius = 12;
    Draw(*store_, kindCircle);
    store_->CurrentRadius = 34;
    QCOMPARE(store_->Figures[0].Radius, qint16(12));
}

void TestFigureStore::appendingASideFillsAllThreeArrays()
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

void TestFigureStore::appendingToAFullStoreWritesNothing()
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

void TestFigureStore::retractedSideStaysACorner()
{
    DrawSides(*store_, 3);
    QCOMPARE(CountsOf(*store_), (Counts{ 2, 2, 3 }));
}

void TestFigureStore::resettingTheCurrentPolygonKeepsTheFirstLink()
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

void TestFigureStore::resettingAFullCurrentPolygonSkipsTheSlotBeyond()
{
    FillWithLinks(store_->CurrentPolygon);
    store_->CurrentPolygonLineCount = FigureStore::capacity;
    store_->ResetCurrentPolygon();
    QCOMPARE(store_->CurrentPolygonLineCount, 0);
    QCOMPARE(store_->CurrentPolygon.front().Link, QString("link"));
    QCOMPARE(store_->CurrentPolygon.back().Link, QString());
}

void TestFigureStore::removingFromAnEmptyStoreDoesNothing()
{
    store_->RemoveLast();
    QCOMPARE(CountsOf(*store_), (Counts{ 0, 0, 0 }));
}

void TestFigureStore::removingARectangleOrCircleLowersTheCountAlone_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("rectangle") << int(kindRectangle);
    QTest::newRow("circle") << int(kindCircle);
}

void TestFigureStore::removingARectangleOrCircleLowersTheCountAlone()
{
    QFETCH(const int, kind);
    DrawPolygon(*store_, 3, "a.htm");
    Draw(*store_, static_cast<qint16>(kind));
    store_->LastFigure()->Link = "b.htm";
    store_->RemoveLast();
    QCOMPARE(CountsOf(*store_), (Counts{ 3, 3, 0 }));
    QCOMPARE(EndMarks(*store_), QList<int>{ 2 });
    // A freed slot keeps what it held.
    QCOMPARE(store_->Figures[3].Link, QString("b.htm"));
}

void TestFigureStore::removingTheFirstPolygonEmptiesTheSides()
{
    Draw(*store_, kindRectangle);
    DrawPolygon(*store_, 4, "a.htm");
    QCOMPARE(CountsOf(*store_), (Counts{ 5, 4, 0 }));
    store_->RemoveLast();
    QCOMPARE(CountsOf(*store_), (Counts{ 1, 0, 0 }));
    QCOMPARE(EndMarks(*store_), QList<int>());
}

void TestFigureStore::removingAPolygonErasesThePreviousEndMark()
{
    DrawPolygon(*store_, 2, "a.htm");
    DrawPolygon(*store_, 3, "b.htm");
    QCOMPARE(EndMarks(*store_), (QList<int>{ 1, 4 }));
    store_->RemoveLast();
    QCOMPARE(CountsOf(*store_), (Counts{ 2, 2, 0 }));
    QCOMPARE(EndMarks(*store_), QList<int>());
}

void TestFigureStore::polygonAfterAnErasedEndMarkTakesThePreviousOneAlong()
{
    DrawPolygon(*store_, 2, "o.htm");
    DrawPolygon(*store_, 2, "a.htm");
    DrawPolygon(*store_, 3, "b.htm");
    store_->RemoveLast();
    DrawPolygon(*store_, 4, "c.htm");
    QCOMPARE(CountsOf(*store_), (Counts{ 8, 8, 0 }));
    QCOMPARE(EndMarks(*store_), (QList<int>{ 1, 7 }));
    store_->RemoveLast();
    QCOMPARE(CountsOf(*store_), (Counts{ 2, 2, 0 }));
    QCOMPARE(EndMarks(*store_), QList<int>());
}

void TestFigureStore::removingAPolygonOfOneSideStopsAtItsPredecessor()
{
    DrawPolygon(*store_, 1, "a.htm");
    DrawPolygon(*store_, 1, "b.htm");
    QCOMPARE(EndMarks(*store_), (QList<int>{ 0, 1 }));
    store_->RemoveLast();
    QCOMPARE(CountsOf(*store_), (Counts{ 1, 1, 0 }));
    store_->RemoveLast();
    QCOMPARE(CountsOf(*store_), (Counts{ 0, 0, 0 }));
}

void TestFigureStore::figuresBetweenPolygonsStay()
{
    DrawPolygon(*store_, 2, "a.htm");
    Draw(*store_, kindCircle);
    DrawPolygon(*store_, 3, "b.htm");
    store_->RemoveLast();
    QCOMPARE(CountsOf(*store_), (Counts{ 3, 2, 0 }));
    QCOMPARE(store_->LastFigure()->Kind, kindCircle);
}

void TestFigureStore::sidesAreTakenFromTheEndOfTheFigures()
{
    DrawPolygon(*store_, 2, "a.htm");
    DrawPolygon(*store_, 2, "b.htm");
    store_->RemoveLast();
    Draw(*store_, kindRectangle);
    DrawPolygon(*store_, 1, "c.htm");
    store_->RemoveLast();
    // Three sides go, and the rectangle stands between them.
    QCOMPARE(CountsOf(*store_), (Counts{ 1, 0, 0 }));
    QCOMPARE(store_->LastFigure()->Kind, kindLine);
}

void TestFigureStore::sideWithoutBookkeepingCannotBeRemoved()
{
    DrawPolygon(*store_, 1, "a.htm");
    store_->PolygonLineCount = 0;
    store_->PolygonLines[0].Link.clear();
    store_->RemoveLast();
    QCOMPARE(CountsOf(*store_), (Counts{ 1, 0, 0 }));
}

void TestFigureStore::staleLinkInAReusedSlotEndsTheWalk()
{
    DrawPolygon(*store_, 1, "old.htm");
    store_->Clear();
    QCOMPARE(EndMarks(*store_), QList<int>{ 0 });
    DrawPolygon(*store_, 3, "new.htm");
    QCOMPARE(EndMarks(*store_), (QList<int>{ 0, 2 }));
    store_->RemoveLast();
    QCOMPARE(CountsOf(*store_), (Counts{ 1, 1, 0 }));
    QCOMPARE(EndMarks(*store_), QList<int>());
}

void TestFigureStore::removingFromAFullStoreWorks()
{
    DrawPolygon(*store_, 2, "a.htm");
    store_->CurrentKind = kindLine;
    while (store_->FigureCount < FigureStore::capacity) {
        store_->AppendSide();
    }
    store_->RemoveLast();
    QCOMPARE(store_->FigureCount, 2);
    QCOMPARE(store_->PolygonLineCount, 2);

    while (store_->FigureCount < FigureStore::capacity) {
        Draw(*store_, kindRectangle);
    }
    store_->RemoveLast();
    QCOMPARE(store_->FigureCount, 499);
}

void TestFigureStore::clearingKeepsTheFirstSidesLink()
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

void TestFigureStore::clearingErasesTheSlotBehindTheLastFigure()
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

void TestFigureStore::clearingLeavesTheCurrentPolygon()
{
    store_->CurrentKind = kindLine;
    store_->AppendSide();
    store_->AppendSide();
    store_->Clear();
    QCOMPARE(CountsOf(*store_), (Counts{ 0, 0, 2 }));
}

void TestFigureStore::clearingAFullStoreWorks()
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

QTEST_GUILESS_MAIN(TestFigureStore)

#include "tst_figurestore.moc"
