// Taking the last figure out of the ledger.

#include "imagemap/model/FigureStore.h"
#include "tests/imagemap/model/DrawnFigures.h"

#include <QTest>
#include <memory>

namespace {

/** A finished polygon of which `sides` stay in the store, linked to `link`. */
void DrawPolygon(FigureStore& store, int sides, const QString& link)
{
    DrawSides(store, sides + 1);
    store.PolygonLines[store.PolygonLineCount - 1].Link = link;
    store.ResetCurrentPolygon();
}

} // namespace

class tst_figureremoval : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

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

private:
    std::unique_ptr<FigureStore> store_;
};

void tst_figureremoval::init()
{
    store_ = std::make_unique<FigureStore>();
}

void tst_figureremoval::removingFromAnEmptyStoreDoesNothing()
{
    store_->RemoveLast();
    QCOMPARE(CountsOf(*store_), (Counts{ 0, 0, 0 }));
}

void tst_figureremoval::removingARectangleOrCircleLowersTheCountAlone_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("rectangle") << int(kindRectangle);
    QTest::newRow("circle") << int(kindCircle);
}

void tst_figureremoval::removingARectangleOrCircleLowersTheCountAlone()
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

void tst_figureremoval::removingTheFirstPolygonEmptiesTheSides()
{
    Draw(*store_, kindRectangle);
    DrawPolygon(*store_, 4, "a.htm");
    QCOMPARE(CountsOf(*store_), (Counts{ 5, 4, 0 }));
    store_->RemoveLast();
    QCOMPARE(CountsOf(*store_), (Counts{ 1, 0, 0 }));
    QCOMPARE(EndMarks(*store_), QList<int>());
}

void tst_figureremoval::removingAPolygonErasesThePreviousEndMark()
{
    DrawPolygon(*store_, 2, "a.htm");
    DrawPolygon(*store_, 3, "b.htm");
    QCOMPARE(EndMarks(*store_), (QList<int>{ 1, 4 }));
    store_->RemoveLast();
    QCOMPARE(CountsOf(*store_), (Counts{ 2, 2, 0 }));
    QCOMPARE(EndMarks(*store_), QList<int>());
}

void tst_figureremoval::polygonAfterAnErasedEndMarkTakesThePreviousOneAlong()
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

void tst_figureremoval::removingAPolygonOfOneSideStopsAtItsPredecessor()
{
    DrawPolygon(*store_, 1, "a.htm");
    DrawPolygon(*store_, 1, "b.htm");
    QCOMPARE(EndMarks(*store_), (QList<int>{ 0, 1 }));
    store_->RemoveLast();
    QCOMPARE(CountsOf(*store_), (Counts{ 1, 1, 0 }));
    store_->RemoveLast();
    QCOMPARE(CountsOf(*store_), (Counts{ 0, 0, 0 }));
}

void tst_figureremoval::figuresBetweenPolygonsStay()
{
    DrawPolygon(*store_, 2, "a.htm");
    Draw(*store_, kindCircle);
    DrawPolygon(*store_, 3, "b.htm");
    store_->RemoveLast();
    QCOMPARE(CountsOf(*store_), (Counts{ 3, 2, 0 }));
    QCOMPARE(store_->LastFigure()->Kind, kindCircle);
}

void tst_figureremoval::sidesAreTakenFromTheEndOfTheFigures()
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

void tst_figureremoval::sideWithoutBookkeepingCannotBeRemoved()
{
    DrawPolygon(*store_, 1, "a.htm");
    store_->PolygonLineCount = 0;
    store_->PolygonLines[0].Link.clear();
    store_->RemoveLast();
    QCOMPARE(CountsOf(*store_), (Counts{ 1, 0, 0 }));
}

void tst_figureremoval::staleLinkInAReusedSlotEndsTheWalk()
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

void tst_figureremoval::removingFromAFullStoreWorks()
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

QTEST_GUILESS_MAIN(tst_figureremoval)

#include "tst_figureremoval.moc"
