#include "Selecting.h"

#include <QSignalSpy>
#include <QTest>
#include <memory>

/** The Select tool, driven by the mouse. */
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
    void aDoubleClickEditsTheLink();
    void aDoubleClickEditsWhatWasSelectedNotWhatIsBelow();
    void snappingStopsAtOtherAreas();
    void guidesShowWithoutSnapping();
    void labelsFollow();
    void theRightButtonPicksAndAsksForTheMenu();

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

void tst_selectionprotocol::aDoubleClickEditsTheLink()
{
    QSignalSpy asked(&test_->tool, &SelectionProtocol::EditAsked);
    test_->DoubleClick({ 300, 200 });
    QCOMPARE(asked.size(), 1);
    QCOMPARE(test_->selection.Numbers(), AreaNumbers{ 2 });
    test_->DoubleClick({ 5, 290 });
    QCOMPARE(asked.size(), 1);
}

void tst_selectionprotocol::aDoubleClickEditsWhatWasSelectedNotWhatIsBelow()
{
    QSignalSpy asked(&test_->tool, &SelectionProtocol::EditAsked);
    test_->Click({ 80, 50 });
    test_->DoubleClick({ 80, 50 });
    QCOMPARE(asked.size(), 1);
    QCOMPARE(test_->selection.Numbers(), AreaNumbers{ 0 });
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

QTEST_GUILESS_MAIN(tst_selectionprotocol)
#include "tst_selectionprotocol.moc"
