// Rectangles and circles: drawn, and moved while they are drawn.

#include "RecordingView.h"
#include "imagemap/drawing/DrawingProtocol.h"
#include "tests/imagemap/drawing/ProtocolFixture.h"

#include <QPointF>
#include <QTest>
#include <memory>

class tst_drawingprotocol : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

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

private:
    std::unique_ptr<Editor> editor_;
};

void tst_drawingprotocol::init()
{
    editor_ = std::make_unique<Editor>();
}

void tst_drawingprotocol::pressStartsAFigure()
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

void tst_drawingprotocol::startEnablesTheCommandsBeforeAnythingIsCommitted()
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

void tst_drawingprotocol::onlyTheLeftButtonStartsAFigure_data()
{
    QTest::addColumn<int>("button");
    QTest::newRow("right") << rightButton;
    QTest::newRow("middle") << middleButton;
    QTest::newRow("none known") << 0;
    QTest::newRow("both at once") << (leftButton | rightButton);
}

void tst_drawingprotocol::onlyTheLeftButtonStartsAFigure()
{
    QFETCH(const int, button);
    for (const int index : { 5, 6, 7 }) {
        editor_->protocol.SelectTool(static_cast<DrawingTool>(index));
        editor_->Click({ 10, 20 }, button);
        QCOMPARE(editor_->Store().DrawState, drawIdle);
        QVERIFY(!editor_->view.areCommandsEnabled);
    }
}

void tst_drawingprotocol::positionsRoundTiesToEven()
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

void tst_drawingprotocol::positionsAreSinglePrecision()
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

void tst_drawingprotocol::rubberFigureFollowsTheMouse()
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

void tst_drawingprotocol::releaseCommitsAtTheLastMove()
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

void tst_drawingprotocol::releaseOfAnotherButtonCommitsNothing()
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

void tst_drawingprotocol::clickWithoutAMoveMakesAFigureOfNoSize()
{
    editor_->protocol.SelectTool(DrawingTool::Circle);
    editor_->Click({ 30, 40 });
    QCOMPARE(ShapeOf(editor_->Figure(0)), (Shape{ 6, 30, 40, 30, 40 }));
    QCOMPARE(int(editor_->Figure(0).Radius), 0);
    QCOMPARE(editor_->view.linkPrompts.size(), 1);
}

void tst_drawingprotocol::doubleClickMakesTwoFigures()
{
    editor_->protocol.SelectTool(DrawingTool::Rectangle);
    editor_->Click({ 30, 40 });
    editor_->Click({ 30, 40 });
    QCOMPARE(editor_->Store().FigureCount, 2);
}

void tst_drawingprotocol::promptFollowsTheMode_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("prompt");
    QTest::newRow("no script") << int(JSDisabled) << "Link a drawn area !";
    QTest::newRow("status bar") << int(JSStatusBar) << "Link a drawn area and enter your message!";
    QTest::newRow("switching images") << int(JSSwitchImages) << "Link a drawn area and set switching images!";
    QTest::newRow("text area") << int(JSTextArea) << "Link a drawn area and set text area messages!";
    QTest::newRow("tool tips") << int(JSToolTips) << "Link a drawn area and enter tool tip message!";
}

void tst_drawingprotocol::promptFollowsTheMode()
{
    QFETCH(const int, mode);
    QFETCH(const QString, prompt);
    editor_->map.Script().SetMode(static_cast<JSMode>(mode));
    editor_->protocol.SelectTool(DrawingTool::Rectangle);
    editor_->Drag({ 1, 1 }, { 9, 9 });
    QCOMPARE(editor_->view.linkPrompts, QStringList(prompt));
}

void tst_drawingprotocol::figureIsInTheStoreWhenTheDialogOpens()
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

void tst_drawingprotocol::positionBeyond16BitsLeavesTheOldOne()
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

void tst_drawingprotocol::negativePositionsAreStoredAndPaintedClamped()
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

void tst_drawingprotocol::rightButtonMovesTheFigure()
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

void tst_drawingprotocol::leftReleaseWhileMovingDoesNothing()
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

void tst_drawingprotocol::movingRoundsEachPoint_data()
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

void tst_drawingprotocol::movingRoundsEachPoint()
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

void tst_drawingprotocol::rightReleaseResumesResizing()
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

void tst_drawingprotocol::movedBeyond16BitsKeepsTheStart()
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

QTEST_GUILESS_MAIN(tst_drawingprotocol)

#include "tst_drawingprotocol.moc"
