#include "RecordingView.h"
#include "imagemap/drawing/DrawingProtocol.h"
#include "tests/support/ListedAreas.h"

#include <QPointF>
#include <QTest>
#include <cmath>
#include <limits>
#include <memory>
#include <random>

namespace {

constexpr int middleButton = 4;

/** The kinds, start and end points of figures, in the form in which a table can hold them. */
using Shape = QList<int>;

Shape ShapeOf(const FigureRecord& figure)
{
    return { figure.Kind, figure.X1, figure.Y1, figure.X2, figure.Y2 };
}

Shape ShapeOf(const PaintedFigure& figure)
{
    return { figure.kind, figure.x1, figure.y1, figure.x2, figure.y2 };
}

/** The editor without its windows: the store, the protocol over it, and a mouse to drive it with. */
struct Editor
{
    MapDocument map;
    RecordingView view;
    FigureDisplay display{ map, view, view };
    DrawingProtocol protocol{ map, view, view, display };
    int headerShowings = 0; ///< how often the header over the messages was written

    Editor()
    {
        QObject::connect(&map, &MapDocument::MessageHeaderChanged, &map, [this] { ++headerShowings; });
    }

    FigureStore& Store() { return map.Ledger(); }
    [[nodiscard]] AreaRows Rows() const { return RowsOf(map); }
    FigureRecord& Figure(int index) { return Store().Figures[index]; }

    void Press(QPointF at, int button = leftButton)
    {
        protocol.MouseDown(button, float(at.x()), float(at.y()));
    }
    void Move(QPointF to) { protocol.MouseMove(float(to.x()), float(to.y())); }
    void Release(QPointF at, int button = leftButton)
    {
        protocol.MouseUp(button, float(at.x()), float(at.y()));
    }
    void Click(QPointF at, int button = leftButton)
    {
        Press(at, button);
        Release(at, button);
    }
    void Drag(QPointF from, QPointF to)
    {
        Press(from);
        Move(to);
        Release(to);
    }

    /** Draws sides through `points`, the last with a right click, which ends the polygon. */
    void DrawPolygon(const QList<QPointF>& points)
    {
        protocol.SelectTool(DrawingTool::Line);
        DrawSides(points.first(points.size() - 1));
        Move(points.constLast());
        Click(points.constLast(), rightButton);
    }

    /** Draws sides through `points` and starts the next at the last. */
    void DrawSides(const QList<QPointF>& points)
    {
        for (const QPointF point : points) {
            Move(point);
            Click(point);
        }
    }

    /** Lets the dialog accept every figure from now on. */
    void LinkEveryFigure()
    {
        view.onLink = [this] { AcceptLink(); };
    }
    void AcceptLink()
    {
        LinkEntry entry;
        entry.SetText(LinkField::Link, "a.html");
        map.LinkNewArea(entry);
    }
    void CloseLink() { map.DiscardNewArea(); }

    /** Shows a figure as the one that follows the mouse; what is painted of it comes last in view.painted. */
    void Follow(int kind, int x1, int y1, int x2, int y2)
    {
        FigureStore& store = Store();
        store.CurrentKind = static_cast<qint16>(kind);
        store.StartX = static_cast<qint16>(x1);
        store.StartY = static_cast<qint16>(y1);
        store.EndX = static_cast<qint16>(x2);
        store.EndY = static_cast<qint16>(y2);
        display.FollowFigure();
        if (view.rubber) {
            view.painted << *view.rubber;
        }
    }

    /** Fills the store up to `count` figures without drawing them. */
    void FillStore(int count)
    {
        Store().CurrentKind = kindRectangle;
        while (Store().FigureCount < count) {
            Store().AppendFigure();
        }
    }
    void DeleteMap() { map.Clear(); }

    /** Figures, polygon sides and sides of the current polygon. */
    QList<int> Counts()
    {
        return { Store().FigureCount, Store().PolygonLineCount, Store().CurrentPolygonLineCount };
    }
};

using Counts = QList<int>;

} // namespace

class TestDrawingProtocol : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    // Tools.
    void editorStartsWithTheCursor();
    void toolSetsItsKind_data();
    void toolSetsItsKind();
    void everyToolHasItsStatusText();
    void cursorKeepsTheKindAndShowsTheArrow();
    void cursorIgnoresButtons();
    void cursorFreezesTheFigureInProgress();
    void otherToolGoesOnWithTheFigureInProgress();
    void otherToolCommitsWhatTheOldOneStarted();

    // The pointer's position.
    void movingShowsTheRawPosition_data();
    void movingShowsTheRawPosition();
    void pointerIsACrossWhileAToolIsChosen();
    void oneCoordinateAnEventIsClamped_data();
    void oneCoordinateAnEventIsClamped();

    // Rectangles and circles.
    void pressStartsAFigure();
    void startEnablesTheCommandsBeforeAnythingIsCommitted();
    void onlyTheLeftButtonStartsAFigure_data();
    void onlyTheLeftButtonStartsAFigure();
    void positionsRoundTiesToEven();
    void positionsAreSinglePrecision();
    void rubberFigureFollowsTheMouse();
    void releaseCommitsAtTheLastMove();
    void releaseOfAnotherButtonCommitsNothing();
    void clickWithoutAMoveMakesAFigureOfNoSize();
    void doubleClickMakesTwoFigures();
    void promptFollowsTheMode_data();
    void promptFollowsTheMode();
    void figureIsInTheStoreWhenTheDialogOpens();
    void positionBeyond16BitsLeavesTheOldOne();
    void negativePositionsAreStoredAndPaintedClamped();

    // Moving a figure.
    void rightButtonMovesTheFigure();
    void leftReleaseWhileMovingDoesNothing();
    void movingRoundsEachPoint_data();
    void movingRoundsEachPoint();
    void rightReleaseResumesResizing();
    void movedBeyond16BitsKeepsTheStart();

    // Painting one figure.
    void radiusIsTheHorizontalOrTheVerticalDistance_data();
    void radiusIsTheHorizontalOrTheVerticalDistance();
    void secondPointIsClampedToThePicture_data();
    void secondPointIsClampedToThePicture();
    void sizeIsShownBesideTheFigure_data();
    void sizeIsShownBesideTheFigure();
    void unknownKindPaintsNothingButShowsTheCount();
    void circleOfTooLargeARadiusIsSkipped();
    void sizeBeyond16BitsEndsThePainting_data();
    void sizeBeyond16BitsEndsThePainting();
    void committedCircleKeepsThePaintedRadius();

    // Polygons.
    void sideStartsOnReleaseAndEndsOnPress();
    void sideEndsAtTheLastMoveNotAtTheClick();
    void middleButtonEndsNoSide();
    void rightClickEndsThePolygon();
    void polygonsPromptIsThePlainOne_data();
    void polygonsPromptIsThePlainOne();
    void rightClickOnTheFirstSideOpensNoDialog();
    void oneSidedPolygonTakesThePreviousEndMark();
    void rightClickWithoutASideDoesNothing();
    void rightPressWhileMovingInLineModeResumesDrawing();
    void secondPolygonStartsAfresh();

    // The limit.
    void fiveHundredFiguresFit();
    void fullStoreRefusesTheStart_data();
    void fullStoreRefusesTheStart();
    void polygonAtTheLimitGetsOneSide();
    void fullStoreCanBeDeletedFromClearedAndLeft();

    // Painting all figures again.
    void redrawPaintsEveryFigureWithTheCopyPen();
    void redrawComputesTheRadiusAgain();
    void redrawOfAnEmptyStoreEmptiesTheEditor();
    void redrawWhileTheFirstFigureIsDrawnDisablesNothing();
    void redrawOfFiguresKeepsTheModeDefault();
    void labelsAreClearedInTheirOrder();
    void clearingEmptiesTheStoreAlone();

    // Deleting.
    void deletingTheLastFigureRemovesItsRow();
    void deletingTheOnlyFigureEmptiesTheEditor();
    void deletingAPolygonRemovesItsSidesAndItsRow();
    void deletingAPolygonErasesThePreviousEndMark();
    void deletingAHalfDrawnPolygonRemovesNoRow_data();
    void deletingAHalfDrawnPolygonRemovesNoRow();
    void deletingWhileNothingIsCommittedGivesOnlyThatUp_data();
    void deletingWhileNothingIsCommittedGivesOnlyThatUp();
    void deletingFromAnEmptyStoreAbandonsTheDrawing();
    void figureOfAnotherKindGivesUpAHalfDrawnPolygon_data();
    void figureOfAnotherKindGivesUpAHalfDrawnPolygon();

    // Giving up.
    void givingUpTakesAPolygonWithAllItsSides();
    void givingUpTheFirstFigureKeepsTheModesDefault();
    void givingUpKeepsThePolygonBefore();
    void givingUpNothingChangesNothing();
    void releaseAfterGivingUpStartsNothing();

    // Abandoning and closing the dialog.
    void abandoningForgetsTheHalfDrawnPolygon();
    void abandoningInAnEmptyStoreDisablesTheCommands();
    void abandoningNothingChangesNothing();
    void abandoningKeepsTheModesDefaultAndHeader();
    void closingTheDialogOfTheFirstFigureEmptiesTheEditor();
    void closingTheDialogOfAPolygonTakesItsSides();

    void numberOfFiguresIsEmptyUntilOneIsDrawn();
    void randomEventsNeverBreakTheStore();

private:
    void StartRandomEvent(std::mt19937& random);
    void CheckInvariants();

    std::unique_ptr<Editor> editor_;
};

void TestDrawingProtocol::init()
{
    editor_ = std::make_unique<Editor>();
}

void TestDrawingProtocol::editorStartsWithTheCursor()
{
    QVERIFY(editor_->protocol.Tool() == DrawingTool::Cursor);
    QCOMPARE(editor_->Store().CurrentKind, qint16(0));
}

void TestDrawingProtocol::toolSetsItsKind_data()
{
    QTest::addColumn<int>("index");
    QTest::newRow("rectangle") << 5;
    QTest::newRow("circle") << 6;
    QTest::newRow("line") << 7;
}

void TestDrawingProtocol::toolSetsItsKind()
{
    QFETCH(const int, index);
    editor_->protocol.SelectTool(static_cast<DrawingTool>(index));
    QCOMPARE(int(editor_->protocol.Tool()), index);
    QCOMPARE(int(editor_->Store().CurrentKind), index);
    QCOMPARE(editor_->view.toolShowings, 1);
}

void TestDrawingProtocol::everyToolHasItsStatusText()
{
    QCOMPARE(DrawingModeText(DrawingTool::Rectangle).toString(), QString("Drawing Mode - Rectangle !"));
    QCOMPARE(DrawingModeText(DrawingTool::Circle).toString(), QString("Drawing Mode - Circle !"));
    QCOMPARE(DrawingModeText(DrawingTool::Line).toString(), QString("Drawing Mode - Line, draw Polygons !"));
    QCOMPARE(DrawingModeText(DrawingTool::Cursor).toString(), QString("Creating Mode !"));
    QCOMPARE(DrawingModeText(DrawingTool::None).toString(), QString("Creating Mode !"));
}

void TestDrawingProtocol::cursorKeepsTheKindAndShowsTheArrow()
{
    editor_->protocol.SelectTool(DrawingTool::Circle);
    editor_->Move({ 1, 1 });
    editor_->protocol.SelectTool(DrawingTool::Cursor);
    QCOMPARE(editor_->Store().CurrentKind, kindCircle);
    QVERIFY(editor_->view.pointer == SurfacePointer::Arrow);
    QVERIFY(editor_->protocol.Tool() == DrawingTool::Cursor);
    QCOMPARE(editor_->view.toolShowings, 2);
}

void TestDrawingProtocol::cursorIgnoresButtons()
{
    editor_->protocol.SelectTool(DrawingTool::Rectangle);
    editor_->protocol.SelectTool(DrawingTool::Cursor);
    editor_->Drag({ 10, 10 }, { 50, 50 });
    editor_->Click({ 20, 20 }, rightButton);
    QCOMPARE(editor_->Counts(), (Counts{ 0, 0, 0 }));
    QCOMPARE(editor_->Store().DrawState, drawIdle);
    QVERIFY(!editor_->view.areCommandsEnabled);
    QVERIFY(editor_->view.pointer == SurfacePointer::Arrow);
    QCOMPARE(editor_->view.Cursor(), QString("50,50"));
}

void TestDrawingProtocol::cursorFreezesTheFigureInProgress()
{
    editor_->protocol.SelectTool(DrawingTool::Rectangle);
    editor_->Press({ 10, 10 });
    editor_->Move({ 50, 60 });
    editor_->protocol.SelectTool(DrawingTool::Cursor);
    editor_->Move({ 90, 90 });
    editor_->Release({ 90, 90 });
    QCOMPARE(editor_->Store().DrawState, drawDrawing);
    QVERIFY(editor_->view.rubber);
    QCOMPARE(ShapeOf(*editor_->view.rubber), (Shape{ 5, 10, 10, 50, 60 }));

    editor_->protocol.SelectTool(DrawingTool::Rectangle);
    editor_->Move({ 70, 80 });
    editor_->Release({ 70, 80 });
    QCOMPARE(ShapeOf(editor_->Figure(0)), (Shape{ 5, 10, 10, 70, 80 }));
}

void TestDrawingProtocol::otherToolGoesOnWithTheFigureInProgress()
{
    editor_->protocol.SelectTool(DrawingTool::Rectangle);
    editor_->Press({ 10, 10 });
    editor_->Move({ 20, 60 });
    editor_->protocol.SelectTool(DrawingTool::Circle);
    QCOMPARE(editor_->Store().DrawState, drawDrawing);
    editor_->Move({ 20, 70 });
    QCOMPARE(editor_->view.rubber->kind, int(kindCircle));
    editor_->Release({ 20, 70 });
    QCOMPARE(ShapeOf(editor_->Figure(0)), (Shape{ 6, 10, 10, 20, 70 }));
    QCOMPARE(int(editor_->Figure(0).Radius), 60);
    // The rectangle that followed the mouse left no trace.
    QCOMPARE(editor_->view.painted.size(), 1);
    QVERIFY(!editor_->view.rubber);
}

void TestDrawingProtocol::otherToolCommitsWhatTheOldOneStarted()
{
    editor_->protocol.SelectTool(DrawingTool::Rectangle);
    editor_->Press({ 10, 10 });
    editor_->Move({ 20, 60 });
    editor_->protocol.SelectTool(DrawingTool::Line);
    editor_->Release({ 20, 60 });
    QCOMPARE(editor_->Counts(), (Counts{ 0, 0, 0 }));
    editor_->Press({ 30, 30 });
    QCOMPARE(editor_->Counts(), (Counts{ 1, 1, 1 }));
    QCOMPARE(ShapeOf(editor_->Figure(0)), (Shape{ 7, 10, 10, 20, 60 }));
}

void TestDrawingProtocol::movingShowsTheRawPosition_data()
{
    QTest::addColumn<QPointF>("position");
    QTest::addColumn<QString>("text");
    QTest::newRow("whole") << QPointF(12, 34) << "12,34";
    QTest::newRow("with a fraction") << QPointF(12.5, 34.25) << "12.5,34.25";
    QTest::newRow("negative") << QPointF(-3, -4) << "-3,-4";
    QTest::newRow("beyond the picture") << QPointF(5000, 6000) << "5000,6000";
    QTest::newRow("beyond 16 bits") << QPointF(40'000, 0) << "40000,0";
}

void TestDrawingProtocol::movingShowsTheRawPosition()
{
    QFETCH(const QPointF, position);
    QFETCH(const QString, text);
    editor_->Move(position);
    QCOMPARE(editor_->view.Cursor(), text);
    editor_->protocol.SelectTool(DrawingTool::Rectangle);
    editor_->view.labels = {};
    editor_->Move(position);
    QCOMPARE(editor_->view.Cursor(), text);
}

void TestDrawingProtocol::pointerIsACrossWhileAToolIsChosen()
{
    editor_->Move({ 1, 1 });
    QVERIFY(editor_->view.pointer == SurfacePointer::Arrow);
    for (const int index : { 5, 6, 7 }) {
        editor_->protocol.SelectTool(static_cast<DrawingTool>(index));
        editor_->Move({ 1, 1 });
        QVERIFY(editor_->view.pointer == SurfacePointer::Cross);
        editor_->protocol.SelectTool(DrawingTool::Cursor);
        editor_->Move({ 2, 2 });
        QVERIFY(editor_->view.pointer == SurfacePointer::Arrow);
    }
}

void TestDrawingProtocol::oneCoordinateAnEventIsClamped_data()
{
    QTest::addColumn<QPointF>("position");
    QTest::addColumn<Shape>("end");
    QTest::newRow("inside") << QPointF(399, 299) << Shape{ 399, 299 };
    QTest::newRow("at the edges") << QPointF(400, 300) << Shape{ 400, 300 };
    QTest::newRow("beyond the right edge") << QPointF(450, 200) << Shape{ 400, 200 };
    QTest::newRow("beyond the bottom edge") << QPointF(200, 350) << Shape{ 200, 300 };
    QTest::newRow("beyond both") << QPointF(450, 350) << Shape{ 400, 350 };
    QTest::newRow("a fraction beyond the right edge") << QPointF(400.25, 300.25) << Shape{ 400, 300 };
    QTest::newRow("a fraction beyond both") << QPointF(400.25, 300.75) << Shape{ 400, 301 };
    QTest::newRow("left of the picture") << QPointF(-20, -30) << Shape{ -20, -30 };
    QTest::newRow("left and below") << QPointF(-20, 350) << Shape{ -20, 300 };
    QTest::newRow("far to the right") << QPointF(1e9, 350) << Shape{ 400, 350 };
}

void TestDrawingProtocol::oneCoordinateAnEventIsClamped()
{
    QFETCH(const QPointF, position);
    QFETCH(const Shape, end);
    editor_->protocol.SelectTool(DrawingTool::Rectangle);
    editor_->Press({ 10, 20 });
    editor_->Move(position);
    QCOMPARE((Shape{ editor_->Store().EndX, editor_->Store().EndY }), end);
    editor_->Release({ 1, 1 });
    QCOMPARE(ShapeOf(editor_->Figure(0)), (Shape{ 5, 10, 20 } + end));
    // The painted figure stays within the picture.
    const PaintedFigure painted = editor_->view.painted.constLast();
    QCOMPARE(painted.x2, std::clamp(end[0], 0, 400));
    QCOMPARE(painted.y2, std::clamp(end[1], 0, 300));
}

void TestDrawingProtocol::pressStartsAFigure()
{
    editor_->protocol.SelectTool(DrawingTool::Circle);
    editor_->Press({ 10.4, 20.6 });
    QCOMPARE(editor_->Store().DrawState, drawDrawing);
    QCOMPARE(
        (Shape{ editor_->Store().StartX, editor_->Store().StartY, editor_->Store().EndX,
                editor_->Store().EndY }),
        (Shape{ 10, 21, 10, 21 }));
    QCOMPARE(editor_->Counts(), (Counts{ 0, 0, 0 }));
    QVERIFY(editor_->view.painted.isEmpty());
    QVERIFY(editor_->view.linkPrompts.isEmpty());
}

void TestDrawingProtocol::startEnablesTheCommandsBeforeAnythingIsCommitted()
{
    for (const int index : { 5, 6, 7 }) {
        init();
        editor_->protocol.SelectTool(static_cast<DrawingTool>(index));
        editor_->Move({ 5, 5 });
        QVERIFY(!editor_->view.areCommandsEnabled);
        editor_->Press({ 10, 20 });
        QCOMPARE(editor_->view.areCommandsEnabled, index != kindLine);
        if (index == kindLine) {
            editor_->Release({ 10, 20 });
        }
        QVERIFY(editor_->view.areCommandsEnabled);
        QCOMPARE(editor_->Store().FigureCount, 0);
    }
}

void TestDrawingProtocol::onlyTheLeftButtonStartsAFigure_data()
{
    QTest::addColumn<int>("button");
    QTest::newRow("right") << rightButton;
    QTest::newRow("middle") << middleButton;
    QTest::newRow("none known") << 0;
    QTest::newRow("both at once") << (leftButton | rightButton);
}

void TestDrawingProtocol::onlyTheLeftButtonStartsAFigure()
{
    QFETCH(const int, button);
    for (const int index : { 5, 6, 7 }) {
        editor_->protocol.SelectTool(static_cast<DrawingTool>(index));
        editor_->Click({ 10, 20 }, button);
        QCOMPARE(editor_->Store().DrawState, drawIdle);
        QVERIFY(!editor_->view.areCommandsEnabled);
    }
}

void TestDrawingProtocol::positionsRoundTiesToEven()
{
    editor_->protocol.SelectTool(DrawingTool::Rectangle);
    editor_->Press({ 0.5, 1.5 });
    editor_->Move({ 2.5, 3.5 });
    editor_->Release({});
    QCOMPARE(ShapeOf(editor_->Figure(0)), (Shape{ 5, 0, 2, 2, 4 }));
    editor_->Press({ -0.5, -1.5 });
    editor_->Move({ -2.5, -3.5 });
    editor_->Release({});
    QCOMPARE(ShapeOf(editor_->Figure(1)), (Shape{ 5, 0, -2, -2, -4 }));
}

void TestDrawingProtocol::positionsAreSinglePrecision()
{
    // What differs from a tie only beyond single precision is a tie, at the start as in a move.
    editor_->protocol.SelectTool(DrawingTool::Rectangle);
    editor_->Press({ 100.500000001, 20 });
    editor_->Move({ 102.500000001, 40 });
    editor_->Press({ 102.500000001, 40 }, rightButton);
    editor_->Move({ 104.500000001, 40 });
    QCOMPARE(int(editor_->Store().StartX), 102);
    QCOMPARE(int(editor_->Store().EndX), 104);
}

void TestDrawingProtocol::rubberFigureFollowsTheMouse()
{
    editor_->protocol.SelectTool(DrawingTool::Rectangle);
    editor_->Press({ 10, 10 });
    editor_->Move({ 50, 60 });
    QCOMPARE(ShapeOf(*editor_->view.rubber), (Shape{ 5, 10, 10, 50, 60 }));
    QCOMPARE(editor_->view.Figures(), QString("0"));
    editor_->Move({ 20, 5 });
    QCOMPARE(ShapeOf(*editor_->view.rubber), (Shape{ 5, 10, 10, 20, 5 }));
    QCOMPARE(editor_->view.Start(), QString("10,10"));
    QCOMPARE(editor_->view.End(), QString("20,5"));
    QCOMPARE(editor_->view.Dimensions(), QString("10,5"));
    QVERIFY(editor_->view.painted.isEmpty());
}

void TestDrawingProtocol::releaseCommitsAtTheLastMove()
{
    editor_->protocol.SelectTool(DrawingTool::Rectangle);
    editor_->Press({ 10, 10 });
    editor_->Move({ 50, 60 });
    editor_->Release({ 90, 90 });
    QCOMPARE(editor_->Store().DrawState, drawIdle);
    QCOMPARE(editor_->Counts(), (Counts{ 1, 0, 0 }));
    QCOMPARE(ShapeOf(editor_->Figure(0)), (Shape{ 5, 10, 10, 50, 60 }));
    QCOMPARE(int(editor_->Figure(0).Radius), 0);
    QVERIFY(!editor_->view.rubber);
    QCOMPARE(editor_->view.painted.size(), 1);
    QCOMPARE(ShapeOf(editor_->view.painted[0]), (Shape{ 5, 10, 10, 50, 60 }));
    QCOMPARE(editor_->view.Figures(), QString("1"));
    editor_->Move({ 100, 100 });
    QVERIFY(!editor_->view.rubber);
}

void TestDrawingProtocol::releaseOfAnotherButtonCommitsNothing()
{
    editor_->protocol.SelectTool(DrawingTool::Rectangle);
    editor_->Press({ 10, 10 });
    editor_->Move({ 50, 60 });
    editor_->Release({ 50, 60 }, rightButton);
    editor_->Release({ 50, 60 }, middleButton);
    QCOMPARE(editor_->Store().DrawState, drawDrawing);
    editor_->Press({ 1, 1 });
    QCOMPARE(int(editor_->Store().StartX), 10);
    QCOMPARE(editor_->Counts(), (Counts{ 0, 0, 0 }));
}

void TestDrawingProtocol::clickWithoutAMoveMakesAFigureOfNoSize()
{
    editor_->protocol.SelectTool(DrawingTool::Circle);
    editor_->Click({ 30, 40 });
    QCOMPARE(ShapeOf(editor_->Figure(0)), (Shape{ 6, 30, 40, 30, 40 }));
    QCOMPARE(int(editor_->Figure(0).Radius), 0);
    QCOMPARE(editor_->view.linkPrompts.size(), 1);
}

void TestDrawingProtocol::doubleClickMakesTwoFigures()
{
    editor_->protocol.SelectTool(DrawingTool::Rectangle);
    editor_->Click({ 30, 40 });
    editor_->Click({ 30, 40 });
    QCOMPARE(editor_->Store().FigureCount, 2);
}

void TestDrawingProtocol::promptFollowsTheMode_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("prompt");
    QTest::newRow("no script") << int(JSDisabled) << "Link a drawn area !";
    QTest::newRow("status bar") << int(JSStatusBar) << "Link a drawn area and enter your message!";
    QTest::newRow("switching images") << int(JSSwitchImages) << "Link a drawn area and set switching images!";
    QTest::newRow("text area") << int(JSTextArea) << "Link a drawn area and set text area messages!";
    QTest::newRow("tool tips") << int(JSToolTips) << "Link a drawn area and enter tool tip message!";
}

void TestDrawingProtocol::promptFollowsTheMode()
{
    QFETCH(const int, mode);
    QFETCH(const QString, prompt);
    editor_->map.SetMode(static_cast<JSMode>(mode));
    editor_->protocol.SelectTool(DrawingTool::Rectangle);
    editor_->Drag({ 1, 1 }, { 9, 9 });
    QCOMPARE(editor_->view.linkPrompts, QStringList(prompt));
}

void TestDrawingProtocol::figureIsInTheStoreWhenTheDialogOpens()
{
    QList<int> counts;
    QString shown;
    editor_->view.onLink = [&] {
        counts = editor_->Counts();
        shown = editor_->view.Figures();
    };
    editor_->protocol.SelectTool(DrawingTool::Rectangle);
    editor_->Drag({ 1, 1 }, { 9, 9 });
    QCOMPARE(counts, (Counts{ 1, 0, 0 }));
    QCOMPARE(shown, QString("1"));
}

void TestDrawingProtocol::positionBeyond16BitsLeavesTheOldOne()
{
    editor_->view.picture = QSize(32'767, 32'767);
    editor_->protocol.SelectTool(DrawingTool::Rectangle);
    editor_->Press({ 10, 20 });
    editor_->Move({ 30, 40 });
    editor_->Move({ -40'000, 50 });
    QCOMPARE(ShapeOf(*editor_->view.rubber), (Shape{ 5, 10, 20, 30, 50 }));
    editor_->Move({ 60, -32'769 });
    QCOMPARE(int(editor_->Store().EndX), 60);
    QCOMPARE(int(editor_->Store().EndY), 50);
    editor_->Release({});

    // The next one starts where the last one did in that direction.
    editor_->Press({ 40'000, 70 });
    QCOMPARE(editor_->Store().DrawState, drawDrawing);
    QCOMPARE(
        (Shape{ editor_->Store().StartX, editor_->Store().StartY, editor_->Store().EndX,
                editor_->Store().EndY }),
        (Shape{ 10, 70, 60, 70 }));
}

void TestDrawingProtocol::negativePositionsAreStoredAndPaintedClamped()
{
    editor_->protocol.SelectTool(DrawingTool::Rectangle);
    editor_->Drag({ -5, -6 }, { -20, -30 });
    QCOMPARE(ShapeOf(editor_->Figure(0)), (Shape{ 5, -5, -6, -20, -30 }));
    // The first point is painted where it is.
    QCOMPARE(ShapeOf(editor_->view.painted[0]), (Shape{ 5, -5, -6, 0, 0 }));
    QCOMPARE(editor_->view.Start(), QString("-5,-6"));
    QCOMPARE(editor_->view.End(), QString("0,0"));
    QCOMPARE(editor_->view.Dimensions(), QString("5,6"));
}

void TestDrawingProtocol::rightButtonMovesTheFigure()
{
    editor_->protocol.SelectTool(DrawingTool::Rectangle);
    editor_->Press({ 10, 10 });
    editor_->Move({ 50, 60 });
    editor_->Press({ 50, 60 }, rightButton);
    QCOMPARE(editor_->Store().DrawState, drawMoving);
    editor_->Move({ 55, 70 });
    QCOMPARE(ShapeOf(*editor_->view.rubber), (Shape{ 5, 15, 20, 55, 70 }));
    editor_->Move({ 45, 40 });
    QCOMPARE(ShapeOf(*editor_->view.rubber), (Shape{ 5, 5, -10, 45, 40 }));
    QCOMPARE(editor_->view.Dimensions(), QString("40,50"));
}

void TestDrawingProtocol::leftReleaseWhileMovingDoesNothing()
{
    editor_->protocol.SelectTool(DrawingTool::Rectangle);
    editor_->Press({ 10, 10 });
    editor_->Move({ 50, 60 });
    editor_->Press({ 50, 60 }, rightButton);
    editor_->Release({ 50, 60 }, leftButton);
    editor_->Press({ 50, 60 }, leftButton);
    QCOMPARE(editor_->Store().DrawState, drawMoving);
    QCOMPARE(editor_->Counts(), (Counts{ 0, 0, 0 }));
}

void TestDrawingProtocol::movingRoundsEachPoint_data()
{
    QTest::addColumn<QPointF>("end");
    QTest::addColumn<QPointF>("position");
    QTest::addColumn<Shape>("shape");
    QTest::newRow("whole") << QPointF(50, 50) << QPointF(53, 47) << Shape{ 5, 14, 7, 53, 47 };
    QTest::newRow("start's tie to even")
        << QPointF(50, 50) << QPointF(50.5, 51.5) << Shape{ 5, 12, 12, 50, 52 };
    QTest::newRow("points round apart")
        << QPointF(51, 50) << QPointF(51.5, 50.5) << Shape{ 5, 12, 10, 52, 50 };
    QTest::newRow("below a tie") << QPointF(50, 50) << QPointF(50.4, 50.4) << Shape{ 5, 11, 10, 50, 50 };
    QTest::newRow("negative tie") << QPointF(50, 50) << QPointF(37.5, 38.5) << Shape{ 5, -2, -2, 38, 38 };
}

void TestDrawingProtocol::movingRoundsEachPoint()
{
    QFETCH(const QPointF, end);
    QFETCH(const QPointF, position);
    QFETCH(const Shape, shape);
    editor_->protocol.SelectTool(DrawingTool::Rectangle);
    editor_->Press({ 11, 10 });
    editor_->Move(end);
    editor_->Press(end, rightButton);
    editor_->Move(position);
    QCOMPARE(ShapeOf(*editor_->view.rubber), shape);
}

void TestDrawingProtocol::rightReleaseResumesResizing()
{
    editor_->protocol.SelectTool(DrawingTool::Rectangle);
    editor_->Press({ 10, 10 });
    editor_->Move({ 50, 60 });
    editor_->Press({ 50, 60 }, rightButton);
    editor_->Move({ 60, 80 });
    editor_->Release({ 60, 80 }, rightButton);
    QCOMPARE(editor_->Store().DrawState, drawDrawing);
    editor_->Move({ 100, 90 });
    editor_->Release({ 100, 90 });
    QCOMPARE(ShapeOf(editor_->Figure(0)), (Shape{ 5, 20, 30, 100, 90 }));
}

void TestDrawingProtocol::movedBeyond16BitsKeepsTheStart()
{
    editor_->protocol.SelectTool(DrawingTool::Rectangle);
    editor_->Press({ -20'000, 10 });
    editor_->Move({ 10, 20 });
    editor_->Press({ 10, 20 }, rightButton);
    editor_->Move({ -20'000, 30 });
    QCOMPARE(int(editor_->Store().StartX), -20'000);
    QCOMPARE(int(editor_->Store().StartY), 20);
    QCOMPARE(int(editor_->Store().EndX), -20'000);
}

void TestDrawingProtocol::radiusIsTheHorizontalOrTheVerticalDistance_data()
{
    QTest::addColumn<QPoint>("centre");
    QTest::addColumn<QPoint>("end");
    QTest::addColumn<int>("radius");
    QTest::newRow("end lower than wide") << QPoint(100, 100) << QPoint(130, 180) << 80;
    QTest::newRow("end wider than low") << QPoint(100, 100) << QPoint(180, 130) << 80;
    QTest::newRow("end's own position tells") << QPoint(200, 10) << QPoint(150, 20) << 50;
    QTest::newRow("not the larger distance") << QPoint(200, 10) << QPoint(210, 205) << 10;
    QTest::newRow("equal counts as vertical") << QPoint(10, 40) << QPoint(100, 100) << 60;
    QTest::newRow("one more is horizontal") << QPoint(10, 40) << QPoint(101, 100) << 91;
    QTest::newRow("no size") << QPoint(10, 40) << QPoint(10, 40) << 0;
    QTest::newRow("clamped before it is told") << QPoint(100, 100) << QPoint(-200, -50) << 100;
    QTest::newRow("clamped to the edge") << QPoint(100, 100) << QPoint(500, 900) << 300;
}

void TestDrawingProtocol::radiusIsTheHorizontalOrTheVerticalDistance()
{
    QFETCH(const QPoint, centre);
    QFETCH(const QPoint, end);
    QFETCH(const int, radius);
    editor_->Follow(
        kindCircle, static_cast<qint16>(centre.x()), static_cast<qint16>(centre.y()),
        static_cast<qint16>(end.x()), static_cast<qint16>(end.y()));
    QCOMPARE(editor_->view.painted.constLast().radius, radius);
    QCOMPARE(int(editor_->Store().CurrentRadius), radius);
    QCOMPARE(editor_->view.Dimensions(), QString::number(radius));
    QCOMPARE(editor_->view.Label(DrawingLabel::Dimensions2), QString());
}

void TestDrawingProtocol::secondPointIsClampedToThePicture_data()
{
    QTest::addColumn<QPoint>("end");
    QTest::addColumn<Shape>("painted");
    QTest::newRow("inside") << QPoint(399, 299) << Shape{ 399, 299 };
    QTest::newRow("at the edges") << QPoint(400, 300) << Shape{ 400, 300 };
    QTest::newRow("beyond both") << QPoint(401, 301) << Shape{ 400, 300 };
    QTest::newRow("before both") << QPoint(-1, -1) << Shape{ 0, 0 };
    QTest::newRow("ends of 16 bits") << QPoint(32'767, -32'768) << Shape{ 400, 0 };
}

void TestDrawingProtocol::secondPointIsClampedToThePicture()
{
    QFETCH(const QPoint, end);
    QFETCH(const Shape, painted);
    for (const qint16 kind : { kindRectangle, kindCircle, kindLine }) {
        editor_->Follow(kind, -7, 900, static_cast<qint16>(end.x()), static_cast<qint16>(end.y()));
        QCOMPARE(ShapeOf(editor_->view.painted.constLast()), (Shape{ kind, -7, 900 } + painted));
        QCOMPARE(editor_->view.Start(), QString("-7,900"));
    }
}

void TestDrawingProtocol::sizeIsShownBesideTheFigure_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    QTest::newRow("rectangle") << int(kindRectangle) << "30,"
                               << "20";
    QTest::newRow("line") << int(kindLine) << "30,"
                          << "20";
    QTest::newRow("circle") << int(kindCircle) << "20"
                            << "";
}

void TestDrawingProtocol::sizeIsShownBesideTheFigure()
{
    QFETCH(const int, kind);
    QFETCH(const QString, first);
    QFETCH(const QString, second);
    editor_->FillStore(3);
    editor_->view.labels.fill("x");
    editor_->Follow(static_cast<qint16>(kind), 40, 90, 10, 70);
    QCOMPARE(editor_->view.Label(DrawingLabel::StartPosition1), QString("40,"));
    QCOMPARE(editor_->view.Label(DrawingLabel::StartPosition2), QString("90"));
    QCOMPARE(editor_->view.Label(DrawingLabel::EndPosition1), QString("10,"));
    QCOMPARE(editor_->view.Label(DrawingLabel::EndPosition2), QString("70"));
    QCOMPARE(editor_->view.Label(DrawingLabel::Dimensions1), first);
    QCOMPARE(editor_->view.Label(DrawingLabel::Dimensions2), second);
    QCOMPARE(editor_->view.Figures(), QString("3"));
}

void TestDrawingProtocol::unknownKindPaintsNothingButShowsTheCount()
{
    editor_->FillStore(2);
    editor_->view.labels.fill("x");
    editor_->Follow(0, 1, 2, 3, 4);
    QVERIFY(editor_->view.painted.isEmpty());
    QCOMPARE(editor_->view.Dimensions(), QString("xx"));
    QCOMPARE(editor_->view.Figures(), QString("2"));
}

void TestDrawingProtocol::circleOfTooLargeARadiusIsSkipped()
{
    editor_->Store().CurrentRadius = 77;
    editor_->view.labels.fill("x");
    editor_->Follow(kindCircle, 0, -32'600, 0, 300);
    QVERIFY(editor_->view.painted.isEmpty());
    QCOMPARE(int(editor_->Store().CurrentRadius), 77);
    QCOMPARE(editor_->view.Start(), QString("xx"));
    QCOMPARE(editor_->view.Figures(), QString("x"));

    // Committing goes on all the same, with the radius of the circle before.
    editor_->protocol.SelectTool(DrawingTool::Circle);
    editor_->Press({ 0, -32'600 });
    editor_->Move({ 0, 300 });
    editor_->Release({ 0, 300 });
    QCOMPARE(ShapeOf(editor_->Figure(0)), (Shape{ 6, 0, -32'600, 0, 300 }));
    QCOMPARE(int(editor_->Figure(0).Radius), 77);
    QCOMPARE(editor_->view.Figures(), QString("1"));
    QCOMPARE(editor_->view.linkPrompts.size(), 1);
}

void TestDrawingProtocol::sizeBeyond16BitsEndsThePainting_data()
{
    QTest::addColumn<QPoint>("start");
    QTest::addColumn<QString>("dimensions");
    QTest::addColumn<QString>("figures");
    QTest::newRow("too wide") << QPoint(-32'600, 0) << "xx"
                              << "x";
    QTest::newRow("too high") << QPoint(0, -32'600) << "400,x"
                              << "x";
    QTest::newRow("as large as can be") << QPoint(-32'367, -32'467) << "32767,32767"
                                        << "0";
    QTest::newRow("one too wide") << QPoint(-32'368, 0) << "xx"
                                  << "x";
}

void TestDrawingProtocol::sizeBeyond16BitsEndsThePainting()
{
    QFETCH(const QPoint, start);
    QFETCH(const QString, dimensions);
    QFETCH(const QString, figures);
    for (const qint16 kind : { kindRectangle, kindLine }) {
        editor_->view.painted.clear();
        editor_->view.labels.fill("x");
        editor_->Follow(kind, static_cast<qint16>(start.x()), static_cast<qint16>(start.y()), 400, 300);
        QCOMPARE(editor_->view.painted.size(), 1);
        QCOMPARE(editor_->view.End(), QString("400,300"));
        QCOMPARE(editor_->view.Dimensions(), dimensions);
        QCOMPARE(editor_->view.Figures(), figures);
    }
}

void TestDrawingProtocol::committedCircleKeepsThePaintedRadius()
{
    editor_->protocol.SelectTool(DrawingTool::Circle);
    editor_->Press({ 100, 100 });
    editor_->Move({ 450, 450 });
    editor_->Release({ 450, 450 });
    QCOMPARE(ShapeOf(editor_->Figure(0)), (Shape{ 6, 100, 100, 400, 450 }));
    // Painted and measured to (400, 300).
    QCOMPARE(int(editor_->Figure(0).Radius), 300);
}

void TestDrawingProtocol::sideStartsOnReleaseAndEndsOnPress()
{
    editor_->protocol.SelectTool(DrawingTool::Line);
    editor_->Press({ 10, 10 });
    QCOMPARE(editor_->Store().DrawState, drawIdle);
    editor_->Release({ 12, 13 });
    QCOMPARE(editor_->Store().DrawState, drawDrawing);
    editor_->Move({ 50, 60 });
    QCOMPARE(ShapeOf(*editor_->view.rubber), (Shape{ 7, 12, 13, 50, 60 }));
    editor_->Press({ 50, 60 });
    QCOMPARE(editor_->Store().DrawState, drawIdle);
    QCOMPARE(editor_->Counts(), (Counts{ 1, 1, 1 }));
    QCOMPARE(editor_->view.Figures(), QString("1"));
    QVERIFY(!editor_->view.rubber);
    QCOMPARE(editor_->view.painted.size(), 1);
    QVERIFY(editor_->view.linkPrompts.isEmpty());
    // The next side starts where the button is let go.
    editor_->Move({ 55, 66 });
    editor_->Release({ 55, 66 });
    editor_->Move({ 70, 80 });
    editor_->Press({ 70, 80 });
    QCOMPARE(ShapeOf(editor_->Figure(1)), (Shape{ 7, 55, 66, 70, 80 }));
}

void TestDrawingProtocol::sideEndsAtTheLastMoveNotAtTheClick()
{
    editor_->protocol.SelectTool(DrawingTool::Line);
    editor_->Click({ 10, 10 });
    editor_->Move({ 50, 60 });
    editor_->Press({ 90, 90 });
    const Shape side = { 7, 10, 10, 50, 60 };
    QCOMPARE(ShapeOf(editor_->Figure(0)), side);
    QCOMPARE(ShapeOf(editor_->Store().PolygonLines[0]), side);
    QCOMPARE(ShapeOf(editor_->Store().CurrentPolygon[0]), side);
    // Without a move at all the side has no length.
    editor_->Release({ 95, 96 });
    editor_->Press({ 120, 130 });
    QCOMPARE(ShapeOf(editor_->Figure(1)), (Shape{ 7, 95, 96, 95, 96 }));
}

void TestDrawingProtocol::middleButtonEndsNoSide()
{
    editor_->protocol.SelectTool(DrawingTool::Line);
    editor_->Click({ 10, 10 });
    editor_->Move({ 50, 60 });
    editor_->Click({ 50, 60 }, middleButton);
    editor_->Click({ 50, 60 }, leftButton | rightButton);
    QCOMPARE(editor_->Store().DrawState, drawDrawing);
    QCOMPARE(editor_->Counts(), (Counts{ 0, 0, 0 }));
}

void TestDrawingProtocol::rightClickEndsThePolygon()
{
    editor_->LinkEveryFigure();
    editor_->view.onLink = [this] {
        QCOMPARE(editor_->Counts(), (Counts{ 2, 2, 3 }));
        QCOMPARE(editor_->view.Figures(), QString("2"));
        QCOMPARE(editor_->view.painted.size(), 2);
        editor_->AcceptLink();
    };
    editor_->DrawPolygon({ { 10, 10 }, { 90, 20 }, { 50, 80 }, { 12, 14 } });
    QCOMPARE(editor_->Store().DrawState, drawIdle);
    QCOMPARE(editor_->Rows().size(), 1);
    QCOMPARE(editor_->Rows()[0].Coordinates, QString("10, 10, 90, 20, 50, 80, 12, 14"));
    QCOMPARE(editor_->Counts(), (Counts{ 2, 2, 0 }));
    QCOMPARE(editor_->Store().PolygonLines[1].Link, QString("a.html"));
}

void TestDrawingProtocol::polygonsPromptIsThePlainOne_data()
{
    promptFollowsTheMode_data();
}

void TestDrawingProtocol::polygonsPromptIsThePlainOne()
{
    QFETCH(const int, mode);
    editor_->map.SetMode(static_cast<JSMode>(mode));
    editor_->DrawPolygon({ { 10, 10 }, { 90, 20 }, { 50, 80 } });
    QCOMPARE(editor_->view.linkPrompts, QStringList("Link a drawn area !"));
}

void TestDrawingProtocol::rightClickOnTheFirstSideOpensNoDialog()
{
    editor_->map.SetModeDefault("default");
    editor_->DrawPolygon({ { 10, 10 }, { 90, 20 } });
    QVERIFY(editor_->view.linkPrompts.isEmpty());
    QCOMPARE(editor_->Counts(), (Counts{ 0, 0, 0 }));
    QCOMPARE(editor_->Store().DrawState, drawIdle);
    QVERIFY(editor_->view.painted.isEmpty());
    QVERIFY(!editor_->view.areCommandsEnabled);
    QCOMPARE(editor_->view.Figures(), QString());
    QCOMPARE(editor_->map.ModeDefault(), QString());
}

void TestDrawingProtocol::oneSidedPolygonTakesThePreviousEndMark()
{
    editor_->LinkEveryFigure();
    editor_->DrawPolygon({ { 10, 10 }, { 90, 20 }, { 50, 80 } });
    editor_->DrawPolygon({ { 110, 10 }, { 190, 20 } });
    QCOMPARE(editor_->Counts(), (Counts{ 1, 1, 0 }));
    QCOMPARE(editor_->Rows().size(), 1);
    QCOMPARE(editor_->view.painted.size(), 1);
    QCOMPARE(editor_->Store().PolygonLines[0].Link, QString());
}

void TestDrawingProtocol::rightClickWithoutASideDoesNothing()
{
    editor_->protocol.SelectTool(DrawingTool::Line);
    editor_->Click({ 10, 10 }, rightButton);
    QCOMPARE(editor_->Counts(), (Counts{ 0, 0, 0 }));
    QCOMPARE(editor_->Store().DrawState, drawIdle);
    QVERIFY(editor_->view.linkPrompts.isEmpty());
}

void TestDrawingProtocol::rightPressWhileMovingInLineModeResumesDrawing()
{
    editor_->protocol.SelectTool(DrawingTool::Rectangle);
    editor_->Press({ 10, 10 });
    editor_->Press({ 10, 10 }, rightButton);
    editor_->protocol.SelectTool(DrawingTool::Line);
    editor_->Press({ 10, 10 });
    editor_->Release({ 10, 10 }, rightButton);
    QCOMPARE(editor_->Store().DrawState, drawMoving);
    editor_->Press({ 10, 10 }, rightButton);
    QCOMPARE(editor_->Store().DrawState, drawDrawing);
    QCOMPARE(editor_->Counts(), (Counts{ 0, 0, 0 }));
}

void TestDrawingProtocol::secondPolygonStartsAfresh()
{
    editor_->LinkEveryFigure();
    editor_->DrawPolygon({ { 10, 10 }, { 90, 20 }, { 50, 80 } });
    editor_->DrawPolygon({ { 110, 10 }, { 190, 20 }, { 150, 80 } });
    QCOMPARE(editor_->Rows().size(), 2);
    QCOMPARE(editor_->Rows()[1].Text, QString(" No: 2 Polygon"));
    QCOMPARE(editor_->Rows()[1].Coordinates, QString("110, 10, 190, 20, 150, 80"));
}

void TestDrawingProtocol::fiveHundredFiguresFit()
{
    editor_->LinkEveryFigure();
    editor_->protocol.SelectTool(DrawingTool::Rectangle);
    for (int i = 0; i < 505; ++i) {
        editor_->Drag({ 1, 1 }, { 9, 9 });
    }
    QCOMPARE(editor_->Store().FigureCount, 500);
    QCOMPARE(editor_->Rows().size(), 500);
    QCOMPARE(editor_->Rows().constLast().Text, QString(" No: 500 Rectangle"));
    QCOMPARE(editor_->view.fullStoreTexts.size(), 5);
}

void TestDrawingProtocol::fullStoreRefusesTheStart_data()
{
    QTest::addColumn<int>("tool");
    QTest::addColumn<bool>("tellsOfLines");
    QTest::newRow("rectangle") << 5 << true;
    QTest::newRow("circle") << 6 << true;
    QTest::newRow("line") << 7 << false;
}

void TestDrawingProtocol::fullStoreRefusesTheStart()
{
    QFETCH(const int, tool);
    QFETCH(const bool, tellsOfLines);
    editor_->FillStore(499);
    editor_->protocol.SelectTool(static_cast<DrawingTool>(tool));
    editor_->Click({ 5, 5 });
    QVERIFY(editor_->view.fullStoreTexts.isEmpty());

    init();
    editor_->FillStore(500);
    editor_->protocol.SelectTool(static_cast<DrawingTool>(tool));
    editor_->Click({ 5, 5 });
    editor_->Move({ 10, 10 });
    QCOMPARE(editor_->view.fullStoreTexts.size(), 1);
    QCOMPARE(editor_->view.fullStoreTexts[0] == FullStoreText::Lines, tellsOfLines);
    QCOMPARE(editor_->Store().FigureCount, 500);
    QCOMPARE(editor_->Store().DrawState, drawIdle);
    QVERIFY(!editor_->view.areCommandsEnabled);
    QVERIFY(!editor_->view.rubber);
}

void TestDrawingProtocol::polygonAtTheLimitGetsOneSide()
{
    editor_->FillStore(499);
    editor_->protocol.SelectTool(DrawingTool::Line);
    editor_->Click({ 10, 10 });
    editor_->Move({ 50, 50 });
    editor_->Click({ 50, 50 });
    QCOMPARE(editor_->Counts(), (Counts{ 500, 1, 1 }));
    QCOMPARE(editor_->view.fullStoreTexts.size(), 1);
    QVERIFY(editor_->view.fullStoreTexts[0] == FullStoreText::Figures);
    editor_->Click({ 90, 90 }, rightButton);
    QCOMPARE(editor_->Counts(), (Counts{ 500, 1, 1 }));
    QVERIFY(editor_->view.linkPrompts.isEmpty());
}

void TestDrawingProtocol::fullStoreCanBeDeletedFromClearedAndLeft()
{
    editor_->FillStore(500);
    editor_->map.DeleteLastFigure();
    QCOMPARE(editor_->Store().FigureCount, 499);
    editor_->FillStore(500);
    editor_->DeleteMap();
    QCOMPARE(editor_->Store().FigureCount, 0);
    QVERIFY(!editor_->view.areCommandsEnabled);

    editor_->protocol.SelectTool(DrawingTool::Line);
    editor_->Click({ 1, 1 });
    while (editor_->Store().FigureCount < 500) {
        editor_->Click({ 2, 2 });
    }
    QCOMPARE(editor_->Counts(), (Counts{ 500, 500, 500 }));
    editor_->map.DeleteLastFigure();
    QCOMPARE(editor_->Counts(), (Counts{ 0, 0, 0 }));
}

void TestDrawingProtocol::redrawPaintsEveryFigureWithTheCopyPen()
{
    editor_->LinkEveryFigure();
    editor_->protocol.SelectTool(DrawingTool::Rectangle);
    editor_->Drag({ 1, 2 }, { 30, 40 });
    editor_->protocol.SelectTool(DrawingTool::Circle);
    editor_->Drag({ 100, 100 }, { 130, 180 });
    editor_->DrawPolygon({ { 10, 10 }, { 90, 20 }, { 50, 80 } });
    // A figure in progress stays what it is.
    editor_->protocol.SelectTool(DrawingTool::Rectangle);
    editor_->Press({ 5, 5 });
    editor_->Move({ 8, 8 });
    editor_->view.painted.clear();
    editor_->display.RedrawFigures();
    QList<Shape> shapes;
    for (const PaintedFigure& figure : editor_->view.painted) {
        shapes << ShapeOf(figure);
    }
    const QList<Shape> expected = { { 5, 1, 2, 30, 40 }, { 6, 100, 100, 130, 180 }, { 7, 10, 10, 90, 20 } };
    QCOMPARE(shapes, expected);
    QVERIFY(editor_->view.rubber);
    QCOMPARE(editor_->view.Figures(), QString("3"));
}

void TestDrawingProtocol::redrawComputesTheRadiusAgain()
{
    editor_->protocol.SelectTool(DrawingTool::Circle);
    editor_->Drag({ 100, 100 }, { 130, 180 });
    editor_->Figure(0).Radius = 3;
    editor_->display.RedrawFigures();
    QCOMPARE(editor_->view.painted.constLast().radius, 80);
    QCOMPARE(int(editor_->Figure(0).Radius), 3);
}

void TestDrawingProtocol::redrawOfAnEmptyStoreEmptiesTheEditor()
{
    editor_->map.SetModeDefault("default");
    editor_->view.labels.fill("x");
    editor_->view.areCommandsEnabled = true;
    editor_->display.RedrawFigures();
    for (const QString& label : editor_->view.labels) {
        QCOMPARE(label, QString());
    }
    QVERIFY(!editor_->view.areCommandsEnabled);
    QCOMPARE(editor_->map.ModeDefault(), QString());
    QCOMPARE(editor_->headerShowings, 1);
}

void TestDrawingProtocol::redrawWhileTheFirstFigureIsDrawnDisablesNothing()
{
    editor_->map.SetModeDefault("default");
    editor_->protocol.SelectTool(DrawingTool::Rectangle);
    editor_->Press({ 10, 10 });
    editor_->Move({ 20, 20 });
    editor_->display.RedrawFigures();
    QVERIFY(editor_->view.areCommandsEnabled);
    QCOMPARE(editor_->map.ModeDefault(), QString("default"));
    QCOMPARE(editor_->headerShowings, 0);
    QCOMPARE(editor_->view.Figures(), QString("0"));
    QVERIFY(editor_->view.painted.isEmpty());
    QVERIFY(editor_->view.rubber);
    editor_->Release({ 20, 20 });
    QCOMPARE(editor_->Store().FigureCount, 1);
}

void TestDrawingProtocol::redrawOfFiguresKeepsTheModeDefault()
{
    editor_->map.SetModeDefault("default");
    editor_->FillStore(1);
    editor_->view.areCommandsEnabled = true;
    editor_->display.RedrawFigures();
    QCOMPARE(editor_->map.ModeDefault(), QString("default"));
    QVERIFY(editor_->view.areCommandsEnabled);
    QCOMPARE(editor_->headerShowings, 0);
}

void TestDrawingProtocol::labelsAreClearedInTheirOrder()
{
    editor_->view.labels.fill("x");
    editor_->display.ClearPositionLabels();
    const QList<DrawingLabel> order = { DrawingLabel::Cursor1,        DrawingLabel::Cursor2,
                                        DrawingLabel::StartPosition1, DrawingLabel::StartPosition2,
                                        DrawingLabel::EndPosition1,   DrawingLabel::EndPosition2,
                                        DrawingLabel::Dimensions1,    DrawingLabel::Dimensions2,
                                        DrawingLabel::Figures };
    QVERIFY(editor_->view.labelOrder == order);
    for (const QString& label : editor_->view.labels) {
        QCOMPARE(label, QString());
    }
}

void TestDrawingProtocol::clearingEmptiesTheStoreAlone()
{
    editor_->LinkEveryFigure();
    editor_->DrawPolygon({ { 10, 10 }, { 90, 20 }, { 50, 80 } });
    editor_->map.SetModeDefault("default");
    editor_->map.Clear();
    QCOMPARE(editor_->Counts(), (Counts{ 0, 0, 0 }));
    QVERIFY(!editor_->view.areCommandsEnabled);
    QVERIFY(editor_->Rows().isEmpty());
    QVERIFY(editor_->view.Figures().isEmpty());
    // Header and default are the caller's.
    QCOMPARE(editor_->map.ModeDefault(), QString("default"));
    QCOMPARE(editor_->headerShowings, 0);
}

void TestDrawingProtocol::deletingTheLastFigureRemovesItsRow()
{
    editor_->LinkEveryFigure();
    editor_->protocol.SelectTool(DrawingTool::Rectangle);
    editor_->Drag({ 1, 2 }, { 30, 40 });
    editor_->protocol.SelectTool(DrawingTool::Circle);
    editor_->Drag({ 100, 100 }, { 130, 180 });
    editor_->map.DeleteLastFigure();
    QCOMPARE(editor_->Counts(), (Counts{ 1, 0, 0 }));
    QCOMPARE(editor_->Rows().size(), 1);
    QCOMPARE(editor_->Rows()[0].Text, QString(" No: 1 Rectangle"));
    QCOMPARE(editor_->Figure(0).Link, QString("a.html"));
    QCOMPARE(editor_->view.painted.size(), 1);
    QVERIFY(editor_->view.areCommandsEnabled);
    QCOMPARE(editor_->view.Figures(), QString("1"));
}

void TestDrawingProtocol::deletingTheOnlyFigureEmptiesTheEditor()
{
    editor_->LinkEveryFigure();
    editor_->map.SetModeDefault("default");
    editor_->protocol.SelectTool(DrawingTool::Rectangle);
    editor_->Drag({ 1, 2 }, { 30, 40 });
    editor_->map.DeleteLastFigure();
    QVERIFY(editor_->Rows().isEmpty());
    QVERIFY(editor_->view.painted.isEmpty());
    QVERIFY(!editor_->view.areCommandsEnabled);
    QCOMPARE(editor_->view.Figures(), QString());
    QCOMPARE(editor_->map.ModeDefault(), QString());
    QCOMPARE(editor_->headerShowings, 1);
}

void TestDrawingProtocol::deletingAPolygonRemovesItsSidesAndItsRow()
{
    editor_->LinkEveryFigure();
    editor_->protocol.SelectTool(DrawingTool::Rectangle);
    editor_->Drag({ 1, 2 }, { 30, 40 });
    editor_->DrawPolygon({ { 10, 10 }, { 90, 20 }, { 50, 80 }, { 20, 70 } });
    QCOMPARE(editor_->Counts(), (Counts{ 3, 2, 0 }));
    editor_->map.DeleteLastFigure();
    QCOMPARE(editor_->Counts(), (Counts{ 1, 0, 0 }));
    QCOMPARE(editor_->Rows().size(), 1);
}

void TestDrawingProtocol::deletingAPolygonErasesThePreviousEndMark()
{
    editor_->LinkEveryFigure();
    const QList<QPointF> points = { { 10, 10 }, { 90, 20 }, { 50, 80 }, { 20, 70 } };
    editor_->DrawPolygon(points); // A
    editor_->DrawPolygon(points); // B
    editor_->map.DeleteLastFigure();
    QCOMPARE(editor_->Counts(), (Counts{ 2, 2, 0 }));
    QCOMPARE(editor_->Store().PolygonLines[1].Link, QString());
    QCOMPARE(editor_->Rows().size(), 1);

    editor_->DrawPolygon(points); // C
    QCOMPARE(editor_->Rows().size(), 2);
    editor_->map.DeleteLastFigure();
    // A goes with C, but only one row does.
    QCOMPARE(editor_->Counts(), (Counts{ 0, 0, 0 }));
    QCOMPARE(editor_->Rows().size(), 1);
}

void TestDrawingProtocol::deletingAHalfDrawnPolygonRemovesNoRow_data()
{
    QTest::addColumn<int>("sides");
    QTest::newRow("one side") << 1;
    QTest::newRow("two sides") << 2;
    QTest::newRow("many sides") << 9;
}

void TestDrawingProtocol::deletingAHalfDrawnPolygonRemovesNoRow()
{
    QFETCH(const int, sides);
    editor_->LinkEveryFigure();
    editor_->protocol.SelectTool(DrawingTool::Rectangle);
    editor_->Drag({ 1, 2 }, { 30, 40 });
    editor_->protocol.SelectTool(DrawingTool::Line);
    for (int side = 0; side <= sides; ++side) {
        editor_->Move(QPointF(side, side));
        editor_->Click(QPointF(side, side));
    }
    editor_->Move({ 70, 70 });
    QCOMPARE(editor_->Counts(), (Counts{ sides + 1, sides, sides }));
    editor_->map.DeleteLastFigure();
    QCOMPARE(editor_->Counts(), (Counts{ 1, 0, 0 }));
    QCOMPARE(editor_->Store().DrawState, drawIdle);
    QCOMPARE(editor_->Rows().size(), 1);
    QVERIFY(!editor_->view.rubber);
    QCOMPARE(editor_->view.painted.size(), 1);

    // The next polygon has no corner of the abandoned one.
    editor_->DrawPolygon({ { 110, 10 }, { 190, 20 }, { 150, 80 } });
    QCOMPARE(editor_->Rows().constLast().Coordinates, QString("110, 10, 190, 20, 150, 80"));
}

void TestDrawingProtocol::deletingWhileNothingIsCommittedGivesOnlyThatUp_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("rectangle") << int(kindRectangle);
    QTest::newRow("circle") << int(kindCircle);
    QTest::newRow("first side of a polygon") << int(kindLine);
}

void TestDrawingProtocol::deletingWhileNothingIsCommittedGivesOnlyThatUp()
{
    QFETCH(const int, kind);
    editor_->LinkEveryFigure();
    editor_->protocol.SelectTool(DrawingTool::Rectangle);
    editor_->Drag({ 1, 2 }, { 30, 40 });
    editor_->protocol.SelectTool(static_cast<DrawingTool>(kind));
    editor_->Press({ 50, 50 });
    if (kind == kindLine) {
        editor_->Release({ 50, 50 });
    }
    editor_->Move({ 60, 60 });
    QVERIFY(editor_->view.rubber);
    editor_->map.DeleteLastFigure();
    QCOMPARE(editor_->Counts(), (Counts{ 1, 0, 0 }));
    QCOMPARE(editor_->Store().DrawState, drawIdle);
    QCOMPARE(editor_->Rows().size(), 1);
    QVERIFY(!editor_->view.rubber);
    QCOMPARE(editor_->view.painted.size(), 1);
    QVERIFY(editor_->view.areCommandsEnabled);
    // The next time it takes the area.
    editor_->map.DeleteLastFigure();
    QCOMPARE(editor_->Counts(), (Counts{ 0, 0, 0 }));
    QVERIFY(editor_->Rows().isEmpty());
}

void TestDrawingProtocol::deletingFromAnEmptyStoreAbandonsTheDrawing()
{
    editor_->map.SetModeDefault("default");
    editor_->map.DeleteLastFigure();
    QCOMPARE(editor_->Counts(), (Counts{ 0, 0, 0 }));

    editor_->protocol.SelectTool(DrawingTool::Rectangle);
    editor_->Press({ 10, 10 });
    editor_->Move({ 50, 50 });
    editor_->map.DeleteLastFigure();
    QCOMPARE(editor_->Store().DrawState, drawIdle);
    QVERIFY(!editor_->view.rubber);
    QVERIFY(!editor_->view.areCommandsEnabled);
    QCOMPARE(editor_->view.Figures(), QString());
    QCOMPARE(editor_->map.ModeDefault(), QString("default"));
    editor_->Release({ 50, 50 });
    QCOMPARE(editor_->Counts(), (Counts{ 0, 0, 0 }));
    QVERIFY(editor_->view.linkPrompts.isEmpty());
}

void TestDrawingProtocol::figureOfAnotherKindGivesUpAHalfDrawnPolygon_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("sides");
    QTest::newRow("rectangle over one side") << int(kindRectangle) << 1;
    QTest::newRow("circle over three sides") << int(kindCircle) << 3;
}

void TestDrawingProtocol::figureOfAnotherKindGivesUpAHalfDrawnPolygon()
{
    QFETCH(const int, kind);
    QFETCH(const int, sides);
    editor_->LinkEveryFigure();
    editor_->DrawPolygon({ { 200, 10 }, { 290, 20 }, { 250, 80 } });
    editor_->protocol.SelectTool(DrawingTool::Line);
    for (int corner = 0; corner <= sides; ++corner) {
        editor_->DrawSides({ QPointF(90 + corner, 20) });
    }
    QCOMPARE(editor_->Counts(), (Counts{ 1 + sides, 1 + sides, sides }));
    editor_->protocol.SelectTool(static_cast<DrawingTool>(kind));
    editor_->Move({ 150, 120 });
    editor_->Release({ 150, 120 });
    QCOMPARE(editor_->Rows().size(), 2);
    QCOMPARE(editor_->Counts(), (Counts{ 2, 1, 0 }));
    QCOMPARE(ShapeOf(editor_->Figure(1)), (Shape{ kind, 90 + sides, 20, 150, 120 }));
    QCOMPARE(editor_->view.painted.size(), 2);
    // The polygon before is still told by its end mark.
    QCOMPARE(editor_->Store().PolygonLines[0].Link, QString("a.html"));
    editor_->DrawPolygon({ { 110, 10 }, { 190, 20 }, { 150, 80 } });
    QCOMPARE(editor_->Rows().constLast().Coordinates, QString("110, 10, 190, 20, 150, 80"));
    editor_->map.DeleteLastFigure();
    editor_->map.DeleteLastFigure();
    QCOMPARE(editor_->Counts(), (Counts{ 1, 1, 0 }));
    QCOMPARE(editor_->Rows().size(), 1);
}

void TestDrawingProtocol::givingUpTakesAPolygonWithAllItsSides()
{
    editor_->LinkEveryFigure();
    editor_->protocol.SelectTool(DrawingTool::Rectangle);
    editor_->Drag({ 1, 2 }, { 30, 40 });
    editor_->protocol.SelectTool(DrawingTool::Line);
    editor_->DrawSides({ { 10, 10 }, { 90, 20 }, { 50, 80 } });
    editor_->Move({ 70, 70 });
    QVERIFY(editor_->map.IsDrawingInProgress());
    editor_->protocol.Abandon();
    QVERIFY(!editor_->map.IsDrawingInProgress());
    QCOMPARE(editor_->Counts(), (Counts{ 1, 0, 0 }));
    QCOMPARE(editor_->Rows().size(), 1);
    QVERIFY(!editor_->view.rubber);
    QCOMPARE(editor_->view.painted.size(), 1);
    QCOMPARE(editor_->view.Figures(), QString("1"));
    QVERIFY(editor_->view.areCommandsEnabled);
    editor_->DrawPolygon({ { 110, 10 }, { 190, 20 }, { 150, 80 } });
    QCOMPARE(editor_->Rows().constLast().Coordinates, QString("110, 10, 190, 20, 150, 80"));
}

void TestDrawingProtocol::givingUpTheFirstFigureKeepsTheModesDefault()
{
    for (const int kind : { int(kindRectangle), int(kindCircle), int(kindLine) }) {
        init();
        editor_->map.SetModeDefault("default");
        editor_->protocol.SelectTool(static_cast<DrawingTool>(kind));
        editor_->Click({ 10, 10 });
        editor_->Press({ 10, 10 });
        editor_->Move({ 50, 50 });
        editor_->view.onLink = nullptr;
        if (kind != kindLine) {
            editor_->CloseLink();
            editor_->map.SetModeDefault("default");
            editor_->Press({ 10, 10 });
            editor_->Move({ 50, 50 });
        }
        editor_->protocol.Abandon();
        QCOMPARE(editor_->Counts(), (Counts{ 0, 0, 0 }));
        QCOMPARE(editor_->Store().DrawState, drawIdle);
        QVERIFY(!editor_->view.rubber);
        QVERIFY(editor_->view.painted.isEmpty());
        QVERIFY(!editor_->view.areCommandsEnabled);
        QCOMPARE(editor_->view.Figures(), QString());
        QCOMPARE(editor_->map.ModeDefault(), QString("default"));
        QCOMPARE(editor_->view.linkPrompts.size(), kind == kindLine ? 0 : 1);
    }
}

void TestDrawingProtocol::givingUpKeepsThePolygonBefore()
{
    editor_->LinkEveryFigure();
    editor_->DrawPolygon({ { 10, 10 }, { 90, 20 }, { 50, 80 }, { 20, 70 } });
    editor_->DrawSides({ { 110, 10 }, { 190, 20 }, { 150, 80 } });
    editor_->protocol.Abandon();
    QCOMPARE(editor_->Counts(), (Counts{ 2, 2, 0 }));
    QCOMPARE(editor_->Store().PolygonLines[1].Link, QString("a.html"));
    QCOMPARE(editor_->Rows().size(), 1);
}

void TestDrawingProtocol::givingUpNothingChangesNothing()
{
    editor_->view.areCommandsEnabled = true;
    editor_->Move({ 12, 34 });
    QVERIFY(!editor_->map.IsDrawingInProgress());
    editor_->protocol.Abandon();
    QVERIFY(editor_->view.areCommandsEnabled);
    QCOMPARE(editor_->view.Cursor(), QString("12,34"));
}

void TestDrawingProtocol::releaseAfterGivingUpStartsNothing()
{
    editor_->protocol.SelectTool(DrawingTool::Line);
    editor_->DrawSides({ { 10, 10 }, { 90, 20 } });
    editor_->Press({ 50, 80 });
    editor_->protocol.Abandon();
    editor_->Release({ 50, 80 });
    QCOMPARE(editor_->Store().DrawState, drawIdle);
    QCOMPARE(editor_->Counts(), (Counts{ 0, 0, 0 }));
    editor_->Click({ 50, 80 });
    QCOMPARE(editor_->Store().DrawState, drawDrawing);
}

void TestDrawingProtocol::abandoningForgetsTheHalfDrawnPolygon()
{
    editor_->LinkEveryFigure();
    editor_->protocol.SelectTool(DrawingTool::Line);
    editor_->DrawSides({ { 10, 10 }, { 90, 20 }, { 50, 80 } });
    editor_->Move({ 70, 70 });
    editor_->DeleteMap();
    QCOMPARE(editor_->Counts(), (Counts{ 0, 0, 0 }));
    QCOMPARE(editor_->Store().DrawState, drawIdle);
    QVERIFY(!editor_->view.rubber);
    editor_->Press({ 70, 70 });
    QCOMPARE(editor_->Counts(), (Counts{ 0, 0, 0 }));

    editor_->DrawPolygon({ { 110, 10 }, { 190, 20 }, { 150, 80 } });
    QCOMPARE(editor_->Rows().size(), 1);
    QCOMPARE(editor_->Rows()[0].Coordinates, QString("110, 10, 190, 20, 150, 80"));
}

void TestDrawingProtocol::abandoningInAnEmptyStoreDisablesTheCommands()
{
    editor_->protocol.SelectTool(DrawingTool::Rectangle);
    editor_->Press({ 10, 10 });
    editor_->Move({ 50, 50 });
    editor_->map.GiveUpDrawing();
    QVERIFY(!editor_->view.areCommandsEnabled);
    QCOMPARE(editor_->view.Figures(), QString());
    QVERIFY(!editor_->view.rubber);

    // With figures in the store the commands stay.
    init();
    editor_->protocol.SelectTool(DrawingTool::Rectangle);
    editor_->Drag({ 10, 10 }, { 50, 50 });
    editor_->Press({ 10, 10 });
    editor_->map.GiveUpDrawing();
    QVERIFY(editor_->view.areCommandsEnabled);
    QCOMPARE(editor_->Store().DrawState, drawIdle);
    QCOMPARE(editor_->Store().FigureCount, 1);
}

void TestDrawingProtocol::abandoningNothingChangesNothing()
{
    // The commands go with the picture then, and its check box is already enabled.
    editor_->view.areCommandsEnabled = true;
    editor_->Move({ 12, 34 });
    editor_->map.GiveUpDrawing();
    QVERIFY(editor_->view.areCommandsEnabled);
    QCOMPARE(editor_->view.Cursor(), QString("12,34"));
}

void TestDrawingProtocol::abandoningKeepsTheModesDefaultAndHeader()
{
    editor_->map.SetModeDefault("default");
    editor_->protocol.SelectTool(DrawingTool::Rectangle);
    editor_->Press({ 10, 10 });
    editor_->map.GiveUpDrawing();
    QCOMPARE(editor_->map.ModeDefault(), QString("default"));
    QCOMPARE(editor_->headerShowings, 0);
}

void TestDrawingProtocol::closingTheDialogOfTheFirstFigureEmptiesTheEditor()
{
    editor_->view.onLink = [this] { editor_->CloseLink(); };
    editor_->protocol.SelectTool(DrawingTool::Circle);
    editor_->Drag({ 10, 10 }, { 50, 50 });
    QCOMPARE(editor_->Counts(), (Counts{ 0, 0, 0 }));
    QVERIFY(!editor_->view.areCommandsEnabled);
    QVERIFY(editor_->view.painted.isEmpty());
    QCOMPARE(editor_->view.Figures(), QString());
}

void TestDrawingProtocol::closingTheDialogOfAPolygonTakesItsSides()
{
    editor_->LinkEveryFigure();
    const QList<QPointF> points = { { 10, 10 }, { 90, 20 }, { 50, 80 }, { 20, 70 } };
    editor_->DrawPolygon(points);
    editor_->view.onLink = [this] { editor_->CloseLink(); };
    editor_->DrawPolygon(points);
    QCOMPARE(editor_->Counts(), (Counts{ 2, 2, 0 }));
    QCOMPARE(editor_->Rows().size(), 1);
    QCOMPARE(editor_->view.painted.size(), 2);
    // The end mark of the first went too.
    QCOMPARE(editor_->Store().PolygonLines[1].Link, QString());
}

void TestDrawingProtocol::numberOfFiguresIsEmptyUntilOneIsDrawn()
{
    editor_->protocol.SelectTool(DrawingTool::Rectangle);
    editor_->Move({ 5, 5 });
    editor_->Press({ 10, 10 });
    QCOMPARE(editor_->view.Figures(), QString());
    editor_->Move({ 20, 20 });
    QCOMPARE(editor_->view.Figures(), QString("0"));
    editor_->Release({ 20, 20 });
    QCOMPARE(editor_->view.Figures(), QString("1"));
    editor_->map.DeleteLastFigure();
    QCOMPARE(editor_->view.Figures(), QString());
}

/** Does one thing that a user can do, mostly with the mouse. */
void TestDrawingProtocol::StartRandomEvent(std::mt19937& random)
{
    const auto below = [&random](int limit) {
        return static_cast<int>(random() % static_cast<quint32>(limit));
    };
    const auto coordinate = [&]() -> double {
        switch (below(40)) {
        case 0:
            return below(200'000) - 100'000;
        case 1:
            return std::numeric_limits<double>::quiet_NaN();
        case 2:
            return below(2) == 0 ? 1e300 : -1e300;
        default:
            return (below(2000) - 400) / 2.0;
        }
    };
    const QPointF point(coordinate(), coordinate());
    const int button = below(20) == 0 ? middleButton : below(8) == 0 ? rightButton : leftButton;
    const int action = below(1000);
    if (action < 300) {
        editor_->Press(point, button);
    } else if (action < 600) {
        editor_->Release(point, button);
    } else if (action < 970) {
        editor_->Move(point);
    } else if (action < 985) {
        editor_->protocol.SelectTool(static_cast<DrawingTool>(kindRectangle + below(3)));
    } else if (action < 988) {
        editor_->protocol.SelectTool(DrawingTool::Cursor);
    } else if (action < 995) {
        editor_->map.DeleteLastFigure();
    } else if (action < 998) {
        editor_->display.RedrawFigures();
    } else if (action < 999) {
        editor_->protocol.Abandon();
    } else if (below(20) == 0) {
        editor_->DeleteMap();
    }
}

void TestDrawingProtocol::CheckInvariants()
{
    const FigureStore& store = editor_->Store();
    QVERIFY(store.FigureCount >= 0 && store.FigureCount <= FigureStore::capacity);
    QVERIFY(store.PolygonLineCount >= 0 && store.PolygonLineCount <= store.FigureCount);
    QVERIFY(store.CurrentPolygonLineCount >= 0 && store.CurrentPolygonLineCount <= FigureStore::capacity);
    QVERIFY(store.DrawState >= drawIdle && store.DrawState <= drawMoving);
    const bool hasWork = store.FigureCount > 0 || store.DrawState != drawIdle;
    QCOMPARE(editor_->view.areCommandsEnabled, hasWork);
    QVERIFY(hasWork || editor_->view.Figures().isEmpty());
    QVERIFY(store.DrawState != drawIdle || !editor_->view.rubber);
}

void TestDrawingProtocol::randomEventsNeverBreakTheStore()
{
    std::mt19937 random(20010203);
    editor_->view.onLink = [&] {
        if (random() % 4 != 0) {
            editor_->AcceptLink();
        } else {
            editor_->CloseLink();
        }
    };
    int most = 0;
    for (int event = 0; event < 200'000; ++event) {
        StartRandomEvent(random);
        most = std::max(most, editor_->Store().FigureCount);
        CheckInvariants();
        if (QTest::currentTestFailed()) {
            qWarning("after event %d", event);
            return;
        }
    }
    // The events reach the limit, or they would not test it.
    QCOMPARE(most, FigureStore::capacity);
    QVERIFY(!editor_->view.fullStoreTexts.isEmpty());
}

QTEST_GUILESS_MAIN(TestDrawingProtocol)

#include "tst_drawingprotocol.moc"
