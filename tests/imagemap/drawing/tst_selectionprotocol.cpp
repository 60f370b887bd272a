#include "RecordingView.h"
#include "imagemap/drawing/SelectionProtocol.h"

#include <QSignalSpy>
#include <QTest>
#include <memory>

namespace {

/** Keeps what is to be shown of the selection. */
class RecordingSurface : public SelectionSurface
{
public:
    double zoom = 1;
    SelectionPicture shown;

    [[nodiscard]] double Zoom() const override { return zoom; }
    void ShowSelection(const SelectionPicture& selection) override { shown = selection; }
};

MapArea Rectangle(const QList<int>& numbers)
{
    return { AreaShape::Rectangle, numbers, "a.htm", {}, {} };
}

const MapArea first = Rectangle({ 10, 10, 110, 60 });
const MapArea second = Rectangle({ 60, 40, 160, 120 });
const MapArea disc = { AreaShape::Circle, { 300, 200, 40 }, "c.htm", {}, {} };
const MapArea polygon = { AreaShape::Polygon, { 200, 20, 280, 20, 280, 90, 200, 90 }, "p.htm", {}, {} };

/** A map with four areas on a picture of 400 by 300 pixels, and the tool in force over it. */
class Selecting
{
public:
    Selecting()
    {
        map.ChangeAreas({ first, second, disc, polygon }, "made");
        editing.SetPictureSize(view.picture);
    }

    void Press(QPoint at, Qt::KeyboardModifiers keys = {})
    {
        tool.HoldKeys(keys);
        tool.MouseDown(leftButton, float(at.x()), float(at.y()));
    }
    void Move(QPoint to, Qt::KeyboardModifiers keys = {})
    {
        tool.HoldKeys(keys);
        tool.MouseMove(float(to.x()), float(to.y()));
    }
    void Release(QPoint at, Qt::KeyboardModifiers keys = {})
    {
        tool.HoldKeys(keys);
        tool.MouseUp(leftButton, float(at.x()), float(at.y()));
    }
    void Click(QPoint at, Qt::KeyboardModifiers keys = {})
    {
        Press(at, keys);
        Release(at, keys);
    }
    void Drag(QPoint from, QPoint to, Qt::KeyboardModifiers keys = {})
    {
        Press(from, keys);
        Move((from + to) / 2, keys);
        Move(to, keys);
        Release(to, keys);
    }
    void DoubleClick(QPoint at)
    {
        Click(at);
        Press(at);
        tool.DoubleClick(float(at.x()), float(at.y()));
        Release(at);
    }
    [[nodiscard]] QList<int> Numbers(qsizetype area) const { return map.Areas().at(area).Coordinates; }

    MapDocument map;
    RecordingView view;
    RecordingSurface surface;
    AreaSelection selection;
    AreaEditing editing = { map, selection };
    SelectionProtocol tool = { editing, view, surface, view };
};

} // namespace

class tst_selectionprotocol : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { test_ = std::make_unique<Selecting>(); }
    void cleanup() { test_.reset(); }

    void aClickPicksTheTopmost();
    void anotherClickPicksTheNextBelow();
    void aClickElsewhereInItPicksTheTopmost();
    void aClickBesideAllPicksNothing();
    void shiftAddsAndTakesAway();
    void aFramePicksWhatLiesInIt();
    void draggingMovesAllThatIsSelected();
    void whatIsDraggedIsShownAndNotYetDone();
    void aTremblingHandMovesNothing();
    void movingKeepsWithinThePicture();
    void altMovesBeyondThePicture();
    void shiftKeepsToAnAxis();
    void aHandleReshapes();
    void shiftKeepsTheProportions();
    void aHandleIsFoundAtEveryZoom();
    void theMiddleOfASideBecomesACorner();
    void aDoubleClickTakesACornerOut();
    void deleteTakesASelectedCornerOut();
    void threeCornersStay();
    void deleteTakesTheAreas();
    void aDoubleClickEditsTheLink();
    void arrowsMove();
    void arrowsMoveByTenWithShift();
    void arrowsResizeWithControl();
    void arrowsMoveASelectedCorner();
    void arrowsAreNotTakenWithoutSelection();
    void tabGoesThroughTheAreasAndLeaves();
    void cornersAreReachedByKeys();
    void escapeGivesUpStepByStep();
    void snappingStopsAtOtherAreas();
    void guidesShowWithoutSnapping();
    void labelsFollow();
    void theRightButtonPicksAndAsksForTheMenu();
    void undoSelectsWhatItChanged();
    void whatGoesIsNotSelected();
    void aCopyLiesInFrontAndIsSelected();
    void theOrderIsChangedWithTheSelection();

private:
    std::unique_ptr<Selecting> test_;
};

void tst_selectionprotocol::aClickPicksTheTopmost()
{
    test_->Click({ 80, 50 });
    QCOMPARE(test_->selection.Numbers(), AreaNumbers{ 0 });
    QCOMPARE(test_->surface.shown.areas, MapAreas{ first });
    QCOMPARE(test_->surface.shown.handles.size(), 8);
}

void tst_selectionprotocol::anotherClickPicksTheNextBelow()
{
    test_->Click({ 80, 50 });
    test_->Click({ 80, 50 });
    QCOMPARE(test_->selection.Numbers(), AreaNumbers{ 1 });
    test_->Click({ 80, 50 });
    QCOMPARE(test_->selection.Numbers(), AreaNumbers{ 0 });
}

void tst_selectionprotocol::aClickElsewhereInItPicksTheTopmost()
{
    test_->Click({ 140, 100 });
    QCOMPARE(test_->selection.Numbers(), AreaNumbers{ 1 });
    test_->Click({ 80, 50 });
    QCOMPARE(test_->selection.Numbers(), AreaNumbers{ 0 });
}

void tst_selectionprotocol::aClickBesideAllPicksNothing()
{
    test_->Click({ 80, 50 });
    test_->Click({ 5, 290 });
    QVERIFY(test_->selection.Numbers().isEmpty());
    QCOMPARE(test_->map.History().UndoName(), "made");
}

void tst_selectionprotocol::shiftAddsAndTakesAway()
{
    test_->Click({ 20, 20 });
    test_->Click({ 300, 200 }, Qt::ShiftModifier);
    QCOMPARE(test_->selection.Numbers(), (AreaNumbers{ 0, 2 }));
    test_->Click({ 20, 20 }, Qt::ShiftModifier);
    QCOMPARE(test_->selection.Numbers(), AreaNumbers{ 2 });
}

void tst_selectionprotocol::aFramePicksWhatLiesInIt()
{
    test_->Drag({ 2, 2 }, { 170, 130 });
    QCOMPARE(test_->selection.Numbers(), (AreaNumbers{ 0, 1 }));
    test_->Drag({ 399, 299 }, { 240, 140 }, Qt::ShiftModifier);
    QCOMPARE(test_->selection.Numbers(), (AreaNumbers{ 0, 1, 2 }));
    test_->Drag({ 350, 100 }, { 399, 120 });
    QVERIFY(test_->selection.Numbers().isEmpty());
}

void tst_selectionprotocol::draggingMovesAllThatIsSelected()
{
    test_->Click({ 20, 20 });
    test_->Click({ 300, 200 }, Qt::ShiftModifier);
    test_->Drag({ 300, 200 }, { 310, 195 });
    QCOMPARE(test_->Numbers(0), (QList{ 20, 5, 120, 55 }));
    QCOMPARE(test_->Numbers(2), (QList{ 310, 195, 40 }));
    QCOMPARE(test_->Numbers(1), second.Coordinates);
    QCOMPARE(test_->map.History().UndoName(), "Move of 2 Areas");
}

void tst_selectionprotocol::whatIsDraggedIsShownAndNotYetDone()
{
    test_->Press({ 20, 20 });
    test_->Move({ 30, 30 });
    QCOMPARE(test_->Numbers(0), first.Coordinates);
    QCOMPARE(test_->surface.shown.areas.constFirst().Coordinates, (QList{ 20, 20, 120, 70 }));
    QCOMPARE(test_->surface.shown.note, "20, 20: 100 x 50");
    QCOMPARE(test_->surface.shown.notePlace, QPoint(30, 30));
    (void)test_->tool.KeyDown(Qt::Key_Escape, {});
    test_->Release({ 30, 30 });
    QCOMPARE(test_->Numbers(0), first.Coordinates);
    QCOMPARE(test_->surface.shown.areas, MapAreas{ first });
}

void tst_selectionprotocol::aTremblingHandMovesNothing()
{
    test_->Press({ 20, 20 });
    test_->Move({ 22, 21 });
    test_->Release({ 22, 21 });
    QCOMPARE(test_->Numbers(0), first.Coordinates);
}

void tst_selectionprotocol::movingKeepsWithinThePicture()
{
    test_->Drag({ 20, 20 }, { -300, 500 });
    QCOMPARE(test_->Numbers(0), (QList{ 0, 250, 100, 300 }));
}

void tst_selectionprotocol::altMovesBeyondThePicture()
{
    test_->Drag({ 20, 20 }, { -30, 20 }, Qt::AltModifier);
    QCOMPARE(test_->Numbers(0), (QList{ -40, 10, 60, 60 }));
}

void tst_selectionprotocol::shiftKeepsToAnAxis()
{
    test_->Click({ 140, 100 });
    test_->Press({ 140, 100 });
    test_->Move({ 170, 110 }, Qt::ShiftModifier);
    test_->Release({ 170, 110 }, Qt::ShiftModifier);
    QCOMPARE(test_->Numbers(1), (QList{ 90, 40, 190, 120 }));
}

void tst_selectionprotocol::aHandleReshapes()
{
    test_->Click({ 20, 20 });
    test_->Drag({ 108, 62 }, { 128, 82 });
    QCOMPARE(test_->Numbers(0), (QList{ 10, 10, 130, 80 }));
    QCOMPARE(test_->map.History().UndoName(), "Reshaping of an Area");
    test_->Click({ 300, 200 });
    test_->Drag({ 340, 200 }, { 325, 200 });
    QCOMPARE(test_->Numbers(2), (QList{ 300, 200, 25 }));
}

void tst_selectionprotocol::shiftKeepsTheProportions()
{
    test_->Click({ 20, 20 });
    test_->Drag({ 110, 60 }, { 210, 70 }, Qt::ShiftModifier);
    QCOMPARE(test_->Numbers(0), (QList{ 10, 10, 210, 110 }));
}

void tst_selectionprotocol::aHandleIsFoundAtEveryZoom()
{
    test_->surface.zoom = 32;
    test_->Click({ 20, 20 });
    test_->Drag({ 109, 60 }, { 119, 60 });
    QCOMPARE(test_->Numbers(0), (QList{ 20, 10, 120, 60 }));
    test_->surface.zoom = 0.1;
    test_->Drag({ 85, 20 }, { 45, 20 });
    QVERIFY(test_->Numbers(0) != (QList{ 20, 10, 120, 60 }));
    QCOMPARE(test_->map.History().UndoName(), "Reshaping of an Area");
}

void tst_selectionprotocol::theMiddleOfASideBecomesACorner()
{
    test_->Click({ 220, 60 });
    test_->Drag({ 240, 20 }, { 240, 5 });
    QCOMPARE(test_->Numbers(3), (QList{ 200, 20, 240, 5, 280, 20, 280, 90, 200, 90 }));
    QCOMPARE(test_->selection.Vertex(), std::optional(1));
}

void tst_selectionprotocol::aDoubleClickTakesACornerOut()
{
    test_->Click({ 220, 60 });
    test_->DoubleClick({ 280, 20 });
    QCOMPARE(test_->Numbers(3), (QList{ 200, 20, 280, 90, 200, 90 }));
    QCOMPARE(test_->map.History().UndoName(), "Delete of a Corner");
}

void tst_selectionprotocol::deleteTakesASelectedCornerOut()
{
    test_->Click({ 220, 60 });
    test_->Click({ 280, 90 });
    QCOMPARE(test_->surface.shown.vertex, std::optional(2));
    test_->editing.Delete();
    QCOMPARE(test_->Numbers(3), (QList{ 200, 20, 280, 20, 200, 90 }));
}

void tst_selectionprotocol::threeCornersStay()
{
    test_->Click({ 220, 60 });
    test_->DoubleClick({ 280, 20 });
    test_->DoubleClick({ 200, 20 });
    QCOMPARE(test_->map.Areas().at(3).Coordinates.size(), 6);
}

void tst_selectionprotocol::deleteTakesTheAreas()
{
    test_->Click({ 20, 20 });
    test_->Click({ 300, 200 }, Qt::ShiftModifier);
    test_->editing.Delete();
    QCOMPARE(test_->map.Areas(), (MapAreas{ second, polygon }));
    QVERIFY(test_->selection.Numbers().isEmpty());
    QCOMPARE(test_->map.History().UndoName(), "Delete of 2 Areas");
}

void tst_selectionprotocol::aDoubleClickEditsTheLink()
{
    QSignalSpy asked(&test_->tool, &SelectionProtocol::EditAsked);
    test_->DoubleClick({ 300, 200 });
    QCOMPARE(asked.size(), 1);
    QCOMPARE(test_->selection.Numbers(), AreaNumbers{ 2 });
    test_->DoubleClick({ 5, 290 });
    QCOMPARE(asked.size(), 1);
}

void tst_selectionprotocol::arrowsMove()
{
    test_->Click({ 20, 20 });
    QVERIFY(test_->tool.KeyDown(Qt::Key_Right, {}));
    QVERIFY(test_->tool.KeyDown(Qt::Key_Down, {}));
    QCOMPARE(test_->Numbers(0), (QList{ 11, 11, 111, 61 }));
    QVERIFY(test_->tool.KeyDown(Qt::Key_Left, {}));
    QVERIFY(test_->tool.KeyDown(Qt::Key_Up, {}));
    QCOMPARE(test_->map.History().UndoName(), "made");
}

void tst_selectionprotocol::arrowsMoveByTenWithShift()
{
    test_->Click({ 20, 20 });
    QVERIFY(test_->tool.KeyDown(Qt::Key_Left, Qt::ShiftModifier));
    QVERIFY(test_->tool.KeyDown(Qt::Key_Left, Qt::ShiftModifier));
    QCOMPARE(test_->Numbers(0), (QList{ 0, 10, 100, 60 }));
}

void tst_selectionprotocol::arrowsResizeWithControl()
{
    test_->Click({ 20, 20 });
    QVERIFY(test_->tool.KeyDown(Qt::Key_Right, Qt::ControlModifier));
    QVERIFY(test_->tool.KeyDown(Qt::Key_Up, Qt::ControlModifier | Qt::ShiftModifier));
    QCOMPARE(test_->Numbers(0), (QList{ 10, 10, 111, 50 }));
}

void tst_selectionprotocol::arrowsMoveASelectedCorner()
{
    test_->Click({ 220, 60 });
    test_->Click({ 280, 90 });
    QVERIFY(test_->tool.KeyDown(Qt::Key_Right, {}));
    QVERIFY(test_->tool.KeyDown(Qt::Key_Right, {}));
    QCOMPARE(test_->Numbers(3), (QList{ 200, 20, 280, 20, 282, 90, 200, 90 }));
    QCOMPARE(test_->selection.Vertex(), std::optional(2));
}

void tst_selectionprotocol::arrowsAreNotTakenWithoutSelection()
{
    QVERIFY(!test_->tool.KeyDown(Qt::Key_Right, {}));
    QVERIFY(!test_->tool.KeyDown(Qt::Key_A, {}));
    QVERIFY(!test_->tool.KeyDown(Qt::Key_Escape, {}));
}

void tst_selectionprotocol::tabGoesThroughTheAreasAndLeaves()
{
    for (const qsizetype expected : { 0, 1, 2, 3 }) {
        QVERIFY(test_->tool.KeyDown(Qt::Key_Tab, {}));
        QCOMPARE(test_->selection.Numbers(), AreaNumbers{ expected });
    }
    QVERIFY(!test_->tool.KeyDown(Qt::Key_Tab, {}));
    QVERIFY(test_->tool.KeyDown(Qt::Key_Backtab, Qt::ShiftModifier));
    QCOMPARE(test_->selection.Numbers(), AreaNumbers{ 2 });
}

void tst_selectionprotocol::cornersAreReachedByKeys()
{
    QVERIFY(!test_->tool.KeyDown(Qt::Key_V, {}));
    test_->selection.Select({ 3 });
    QVERIFY(test_->tool.KeyDown(Qt::Key_V, {}));
    QVERIFY(test_->tool.KeyDown(Qt::Key_V, {}));
    QCOMPARE(test_->selection.Vertex(), std::optional(1));
    QVERIFY(test_->tool.KeyDown(Qt::Key_V, Qt::ShiftModifier));
    QVERIFY(test_->tool.KeyDown(Qt::Key_V, Qt::ShiftModifier));
    QCOMPARE(test_->selection.Vertex(), std::optional(3));
    QVERIFY(test_->tool.KeyDown(Qt::Key_Insert, {}));
    QCOMPARE(test_->Numbers(3), (QList{ 200, 20, 280, 20, 280, 90, 200, 90, 200, 55 }));
    QCOMPARE(test_->selection.Vertex(), std::optional(4));
}

void tst_selectionprotocol::escapeGivesUpStepByStep()
{
    test_->selection.Select({ 3 });
    test_->selection.SelectVertex(1);
    QVERIFY(test_->tool.KeyDown(Qt::Key_Escape, {}));
    QVERIFY(!test_->selection.Vertex());
    QVERIFY(test_->tool.KeyDown(Qt::Key_Escape, {}));
    QVERIFY(test_->selection.Numbers().isEmpty());
}

void tst_selectionprotocol::snappingStopsAtOtherAreas()
{
    test_->tool.SetSnapping(true);
    // Its left edge comes near to the polygon's.
    test_->Drag({ 20, 20 }, { 207, 250 });
    QCOMPARE(test_->Numbers(0).constFirst(), 200);
    test_->map.History().Undo();
    test_->Press({ 20, 20 });
    test_->Move({ 207, 200 });
    QVERIFY(test_->surface.shown.guides.contains(QLine(200, 0, 200, 300)));
    test_->Release({ 207, 200 });
    test_->map.History().Undo();
    test_->Drag({ 20, 20 }, { 215, 250 });
    QCOMPARE(test_->Numbers(0).constFirst(), 205);
}

void tst_selectionprotocol::guidesShowWithoutSnapping()
{
    test_->tool.ShowGuides(true);
    test_->Press({ 20, 20 });
    test_->Move({ 210, 203 });
    QCOMPARE(test_->surface.shown.areas.constFirst().Coordinates.constFirst(), 200);
    QVERIFY(test_->surface.shown.guides.contains(QLine(200, 0, 200, 300)));
    test_->Move({ 211, 203 });
    QVERIFY(!test_->surface.shown.guides.contains(QLine(200, 0, 200, 300)));
}

void tst_selectionprotocol::labelsFollow()
{
    test_->Click({ 20, 20 });
    QCOMPARE(test_->view.Start(), "10,10");
    QCOMPARE(test_->view.End(), "110,60");
    QCOMPARE(test_->view.Dimensions(), "100,50");
    test_->Press({ 300, 200 });
    test_->Move({ 290, 190 });
    QCOMPARE(test_->view.Start(), "250,150");
    QCOMPARE(test_->view.Dimensions(), "40");
    QCOMPARE(test_->view.Cursor(), "290,190");
}

void tst_selectionprotocol::theRightButtonPicksAndAsksForTheMenu()
{
    QSignalSpy asked(&test_->tool, &SelectionProtocol::MenuAsked);
    test_->tool.MouseDown(rightButton, 300, 200);
    test_->tool.MouseUp(rightButton, 300, 200);
    QCOMPARE(asked.size(), 1);
    QCOMPARE(test_->selection.Numbers(), AreaNumbers{ 2 });
}

void tst_selectionprotocol::undoSelectsWhatItChanged()
{
    test_->Drag({ 300, 200 }, { 310, 195 });
    test_->Click({ 5, 290 });
    test_->editing.Undo();
    QCOMPARE(test_->selection.Numbers(), AreaNumbers{ 2 });
    QCOMPARE(test_->map.Areas().at(2), disc);
    test_->editing.Redo();
    QCOMPARE(test_->Numbers(2), (QList{ 310, 195, 40 }));
}

void tst_selectionprotocol::whatGoesIsNotSelected()
{
    test_->selection.Select({ 3 });
    test_->selection.SelectVertex(3);
    test_->map.ChangeAreas({ first, second, disc, WithoutCorner(polygon, 0) }, "smaller");
    QVERIFY(!test_->selection.Vertex());
    test_->map.DeleteLastFigure();
    QVERIFY(test_->selection.Numbers().isEmpty());
}

void tst_selectionprotocol::aCopyLiesInFrontAndIsSelected()
{
    test_->selection.Select({ 2 });
    test_->editing.Duplicate();
    QCOMPARE(test_->selection.Numbers(), AreaNumbers{ 2 });
    QCOMPARE(test_->Numbers(2), (QList{ 310, 210, 40 }));
    QCOMPARE(test_->map.Areas().at(3), disc);
    test_->editing.Paste({ disc, disc });
    QCOMPARE(test_->selection.Numbers(), (AreaNumbers{ 0, 1 }));
}

void tst_selectionprotocol::theOrderIsChangedWithTheSelection()
{
    test_->selection.Select({ 2 });
    test_->editing.Reorder(OrderChange::Up);
    QCOMPARE(test_->map.Areas().at(1), disc);
    QCOMPARE(test_->selection.Numbers(), AreaNumbers{ 1 });
    QCOMPARE(test_->map.History().UndoName(), "Reordering of an Area");
    test_->editing.Align(Alignment::Left);
    test_->editing.SelectAll();
    test_->editing.Align(Alignment::Left);
    QCOMPARE(BoundsOf(test_->map.Areas().at(3)).left(), 10);
}

QTEST_GUILESS_MAIN(tst_selectionprotocol)
#include "tst_selectionprotocol.moc"
