#include "imagemap/model/AreaGeometry.h"
#include "imagemap/model/AreaLedger.h"
#include "imagemap/model/MapDocument.h"
#include "tests/fuzz/MapWalk.h"

#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTest>

namespace {

LinkEntry EntryFor(const QString& link)
{
    LinkEntry entry;
    entry.Fields.fill(link);
    return entry;
}

MapArea RectangleAt(int x, int y, const QString& link = QStringLiteral("a.htm"))
{
    return { AreaShape::Rectangle, { x, y, x + 30, y + 20 }, link, {}, {} };
}

void DrawRectangle(MapDocument& map, QPoint from, QPoint to, const QString& link = QStringLiteral("a.htm"))
{
    FigureStore& ledger = map.Ledger();
    ledger.CurrentKind = kindRectangle;
    ledger.StartX = static_cast<qint16>(from.x());
    ledger.StartY = static_cast<qint16>(from.y());
    ledger.EndX = static_cast<qint16>(to.x());
    ledger.EndY = static_cast<qint16>(to.y());
    ledger.AppendFigure();
    map.LinkNewArea(EntryFor(link));
}

const MapArea pentagon = { AreaShape::Polygon, { 0, 0, 40, 0, 60, 30, 20, 50, 0, 30 }, "p.htm", "_top", {} };

} // namespace

class tst_maphistory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nothingCanBeUndoneAtFirst();
    void aDrawnFigureIsUndoneAndDoneAgain();
    void theLastFigureDeletedComesBack();
    void whatTheDeleteQuestionThrewAwayComesBack();
    void stepsHaveNames();
    void whatChangesNothingIsNoStep();
    void nudgesJoinUntilSomethingElseHappens();
    void thereAndBackIsNoStep();
    void aNewStepForgetsWhatWasUndone();
    void anInnerStepIsPartOfTheOuter();
    void aFigureInProgressIsGivenUpFirst();
    void anotherPictureIsToldOfWhenItIsUndone();
    void theMapOfAClosedEditorComesBack();
    void theToolStaysChosen();
    void editedAreasHaveAFreshLedger();
    void aLinklessPolygonHasItsEndMark();
    void theLedgerMayBeLongerThanTheToolsAllow();
    void whatDoesNotFitTheLedgerCountsAllTheSame();
    void deleteLastTakesTheLastRowOfEditedAreas();
    void aDiscardedFigureLeavesEditedAreasAlone();
    void randomWalksAreUndoneExactly();
};

void tst_maphistory::nothingCanBeUndoneAtFirst()
{
    MapDocument map;
    map.BeginEditing();
    QVERIFY(!map.History().CanUndo());
    QVERIFY(!map.History().CanRedo());
    map.History().Undo();
    map.History().Redo();
    QVERIFY(map.Areas().isEmpty());
}

void tst_maphistory::aDrawnFigureIsUndoneAndDoneAgain()
{
    MapDocument map;
    map.BeginEditing();
    const MapState before = map.State();
    DrawRectangle(map, { 1, 2 }, { 30, 40 });
    const MapState after = map.State();
    map.History().Undo();
    QCOMPARE(map.State(), before);
    QCOMPARE(map.Figures().FigureCount, 0);
    map.History().Redo();
    QCOMPARE(map.State(), after);
    QCOMPARE(map.Areas().size(), 1);
}

void tst_maphistory::theLastFigureDeletedComesBack()
{
    MapDocument map;
    DrawRectangle(map, { 1, 2 }, { 30, 40 });
    const MapState before = map.State();
    map.DeleteLastFigure();
    QVERIFY(map.Areas().isEmpty());
    map.History().Undo();
    QCOMPARE(map.State(), before);
}

void tst_maphistory::whatTheDeleteQuestionThrewAwayComesBack()
{
    MapDocument map;
    DrawRectangle(map, { 1, 2 }, { 30, 40 });
    DrawRectangle(map, { 50, 60 }, { 70, 80 }, "b.htm");
    const MapState before = map.State();
    map.Clear();
    QCOMPARE(map.History().UndoName(), "Delete of the Map");
    map.History().Undo();
    QCOMPARE(map.State(), before);
}

void tst_maphistory::stepsHaveNames()
{
    MapDocument map;
    DrawRectangle(map, { 1, 2 }, { 30, 40 });
    QCOMPARE(map.History().UndoName(), "Drawing of a Rectangle");
    map.RelinkArea(0, EntryFor("other.htm"));
    QCOMPARE(map.History().UndoName(), "Change of a Link");
    map.History().Undo();
    QCOMPARE(map.History().RedoName(), "Change of a Link");
    QCOMPARE(StepName(u"Move", 1), "Move of an Area");
    QCOMPARE(StepName(u"Move", 3), "Move of 3 Areas");
}

void tst_maphistory::whatChangesNothingIsNoStep()
{
    MapDocument map;
    DrawRectangle(map, { 1, 2 }, { 30, 40 });
    const qsizetype steps = map.History().Position();
    map.RelinkArea(0, EntryFor("a.htm"));
    map.ChangeAreas(map.Areas(), "nothing");
    map.Script().SetMode(map.Script().Mode());
    map.Drawing().GiveUp();
    QCOMPARE(map.History().Position(), steps);
}

void tst_maphistory::nudgesJoinUntilSomethingElseHappens()
{
    MapDocument map;
    map.ChangeAreas({ RectangleAt(10, 10) }, "first");
    const MapState before = map.State();
    const auto nudge = [&map] {
        map.ChangeAreas({ Moved(map.Areas()[0], { 1, 0 }) }, "Move of an Area", "nudge");
    };
    nudge();
    nudge();
    nudge();
    QCOMPARE(map.History().Position(), 2);
    map.History().EndJoining();
    nudge();
    QCOMPARE(map.History().Position(), 3);
    map.History().Undo();
    QCOMPARE(map.Areas()[0].Coordinates.constFirst(), 13);
    map.History().Undo();
    QCOMPARE(map.State(), before);
    map.History().Redo();
    nudge();
    QCOMPARE(map.History().Position(), 3);
}

void tst_maphistory::thereAndBackIsNoStep()
{
    MapDocument map;
    map.ChangeAreas({ RectangleAt(10, 10) }, "first");
    map.ChangeAreas({ RectangleAt(11, 10) }, "Move of an Area", "nudge");
    map.ChangeAreas({ RectangleAt(10, 10) }, "Move of an Area", "nudge");
    QCOMPARE(map.History().UndoName(), "first");
}

void tst_maphistory::aNewStepForgetsWhatWasUndone()
{
    MapDocument map;
    map.ChangeAreas({ RectangleAt(10, 10) }, "first");
    map.ChangeAreas({ RectangleAt(20, 10) }, "second");
    map.History().Undo();
    map.ChangeAreas({ RectangleAt(30, 10) }, "third");
    QVERIFY(!map.History().CanRedo());
    QCOMPARE(map.History().Position(), 2);
}

void tst_maphistory::anInnerStepIsPartOfTheOuter()
{
    MapDocument map;
    DrawRectangle(map, { 1, 2 }, { 30, 40 });
    {
        const MapDocument::Step step(map, "whole");
        map.Clear();
        map.Script().SetMode(JSToolTips);
    }
    QCOMPARE(map.History().UndoName(), "whole");
    map.History().Undo();
    QCOMPARE(map.Areas().size(), 1);
    QCOMPARE(map.Script().Mode(), JSDisabled);
}

void tst_maphistory::aFigureInProgressIsGivenUpFirst()
{
    MapDocument map;
    DrawRectangle(map, { 1, 2 }, { 30, 40 });
    const MapState before = map.State();
    map.Ledger().CurrentKind = kindLine;
    map.Ledger().AppendSide();
    QSignalSpy givenUp(&map.Drawing(), &MapDrawing::GivenUp);
    map.RelinkArea(0, EntryFor("other.htm"));
    map.History().Undo();
    QCOMPARE(givenUp.size(), 1);
    QVERIFY(!map.Drawing().IsInProgress());
    QCOMPARE(map.Areas(), before.Areas);
    QCOMPARE(map.Figures().FigureCount, 1);
}

void tst_maphistory::anotherPictureIsToldOfWhenItIsUndone()
{
    MapDocument map;
    map.SetPicture("one.jpg");
    map.SetPicture("two.jpg");
    QSignalSpy changed(&map, &MapDocument::PictureChanged);
    map.History().Undo();
    QCOMPARE(changed.size(), 1);
    QCOMPARE(map.Picture(), "one.jpg");
}

void tst_maphistory::theMapOfAClosedEditorComesBack()
{
    MapDocument map;
    map.BeginEditing();
    map.SetPicture("one.jpg");
    DrawRectangle(map, { 1, 2 }, { 30, 40 });
    const MapState before = map.State();
    map.Clear();
    map.BeginEditing();
    QVERIFY(map.Picture().isEmpty());
    map.History().Undo();
    map.History().Undo();
    QCOMPARE(map.State(), before);
}

void tst_maphistory::theToolStaysChosen()
{
    MapDocument map;
    DrawRectangle(map, { 1, 2 }, { 30, 40 });
    map.Ledger().CurrentKind = kindCircle;
    map.History().Undo();
    QCOMPARE(map.Figures().CurrentKind, kindCircle);
}

void tst_maphistory::editedAreasHaveAFreshLedger()
{
    const MapArea circle = { AreaShape::Circle, { 100, 110, 80 }, "c.htm", {}, {} };
    const FigureStore ledger = LedgerOf({ RectangleAt(10, 20), circle, pentagon });
    QCOMPARE(ledger.FigureCount, 1 + 1 + 3);
    QCOMPARE(ledger.PolygonLineCount, 3);
    QCOMPARE(ledger.Figures[0].Kind, kindRectangle);
    QCOMPARE(ledger.Figures[0].X2, qint16(40));
    QCOMPARE(ledger.Figures[1].Radius, qint16(80));
    QCOMPARE(ledger.Figures[4].Kind, kindLine);
    QCOMPARE(ledger.Figures[4].X2, qint16(20));
    QVERIFY(ledger.PolygonLines[1].Link.isEmpty());
    QCOMPARE(ledger.PolygonLines[2].Link, "p.htm");
    QCOMPARE(ledger.PolygonLines[2].Target, "_top");
}

void tst_maphistory::aLinklessPolygonHasItsEndMark()
{
    MapArea linkless = pentagon;
    linkless.Link.clear();
    FigureStore ledger = LedgerOf({ linkless, pentagon });
    ledger.RemoveLast();
    QCOMPARE(ledger.FigureCount, 3);
}

void tst_maphistory::theLedgerMayBeLongerThanTheToolsAllow()
{
    const MapAreas many(FigureStore::capacity + 100, pentagon);
    MapDocument map;
    map.ChangeAreas(many, "many");
    QCOMPARE(map.Figures().FigureCount, 3 * many.size());
    QVERIFY(!map.Figures().HasRoom());
    map.DeleteLastFigure();
    QCOMPARE(map.Areas().size(), many.size() - 1);
    QCOMPARE(map.Figures().FigureCount, 3 * (many.size() - 1));
}

void tst_maphistory::whatDoesNotFitTheLedgerCountsAllTheSame()
{
    MapDocument map;
    map.ChangeAreas({ RectangleAt(40000, 10) }, "far");
    QCOMPARE(map.Figures().FigureCount, 0);
    QVERIFY(map.HasContent());
    map.DeleteLastFigure();
    QVERIFY(map.Areas().isEmpty());
    QVERIFY(!map.HasContent());
}

void tst_maphistory::deleteLastTakesTheLastRowOfEditedAreas()
{
    MapDocument map;
    map.ChangeAreas({ pentagon, RectangleAt(10, 10), pentagon }, "three");
    map.DeleteLastFigure();
    map.DeleteLastFigure();
    QCOMPARE(map.Areas(), MapAreas{ pentagon });
    QCOMPARE(map.Figures().FigureCount, 3);
}

void tst_maphistory::aDiscardedFigureLeavesEditedAreasAlone()
{
    MapDocument map;
    map.ChangeAreas({ pentagon }, "one");
    const MapState before = map.State();
    FigureStore& ledger = map.Ledger();
    ledger.CurrentKind = kindLine;
    for (int i = 0; i < 4; ++i) {
        ledger.AppendSide();
    }
    ledger.RetractLastSide();
    QCOMPARE(map.FiguresWithoutArea(), 3);
    map.DiscardNewArea();
    QCOMPARE(map.State(), before);
    QCOMPARE(map.FiguresWithoutArea(), 0);
}

void tst_maphistory::randomWalksAreUndoneExactly()
{
    QRandomGenerator random(14);
    for (int walk = 0; walk < 60; ++walk) {
        QByteArray bytes(random.bounded(600), Qt::Uninitialized);
        std::generate(
            bytes.begin(), bytes.end(), [&random] { return static_cast<char>(random.bounded(256)); });
        MapWalk(FuzzInput(bytes)).Run();
    }
}

QTEST_GUILESS_MAIN(tst_maphistory)
#include "tst_maphistory.moc"
