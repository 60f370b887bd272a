// Choosing a tool, and what the mouse tells while it only moves.

#include "RecordingView.h"
#include "imagemap/drawing/DrawingProtocol.h"
#include "tests/imagemap/drawing/ProtocolFixture.h"

#include <QPointF>
#include <QTest>
#include <memory>

class tst_drawingtools : public QObject
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

    void numberOfFiguresIsEmptyUntilOneIsDrawn();

private:
    std::unique_ptr<Editor> editor_;
};

void tst_drawingtools::init()
{
    editor_ = std::make_unique<Editor>();
}

void tst_drawingtools::editorStartsWithTheCursor()
{
    QVERIFY(editor_->protocol.Tool() == DrawingTool::Cursor);
    QCOMPARE(editor_->Store().CurrentKind, qint16(0));
}

void tst_drawingtools::toolSetsItsKind_data()
{
    QTest::addColumn<int>("index");
    QTest::newRow("rectangle") << 5;
    QTest::newRow("circle") << 6;
    QTest::newRow("line") << 7;
}

void tst_drawingtools::toolSetsItsKind()
{
    QFETCH(const int, index);
    editor_->protocol.SelectTool(static_cast<DrawingTool>(index));
    QCOMPARE(int(editor_->protocol.Tool()), index);
    QCOMPARE(int(editor_->Store().CurrentKind), index);
    QCOMPARE(editor_->view.toolShowings, 1);
}

void tst_drawingtools::everyToolHasItsStatusText()
{
    QCOMPARE(DrawingModeText(DrawingTool::Rectangle).toString(), QString("Drawing Mode - Rectangle !"));
    QCOMPARE(DrawingModeText(DrawingTool::Circle).toString(), QString("Drawing Mode - Circle !"));
    QCOMPARE(DrawingModeText(DrawingTool::Line).toString(), QString("Drawing Mode - Line, draw Polygons !"));
    QCOMPARE(DrawingModeText(DrawingTool::Cursor).toString(), QString("Creating Mode !"));
    QCOMPARE(DrawingModeText(DrawingTool::None).toString(), QString("Creating Mode !"));
}

void tst_drawingtools::cursorKeepsTheKindAndShowsTheArrow()
{
    editor_->protocol.SelectTool(DrawingTool::Circle);
    editor_->Move({ 1, 1 });
    editor_->protocol.SelectTool(DrawingTool::Cursor);
    QCOMPARE(editor_->Store().CurrentKind, kindCircle);
    QVERIFY(editor_->view.pointer == SurfacePointer::Arrow);
    QVERIFY(editor_->protocol.Tool() == DrawingTool::Cursor);
    QCOMPARE(editor_->view.toolShowings, 2);
}

void tst_drawingtools::cursorIgnoresButtons()
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

void tst_drawingtools::cursorFreezesTheFigureInProgress()
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

void tst_drawingtools::otherToolGoesOnWithTheFigureInProgress()
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

void tst_drawingtools::otherToolCommitsWhatTheOldOneStarted()
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

void tst_drawingtools::movingShowsTheRawPosition_data()
{
    QTest::addColumn<QPointF>("position");
    QTest::addColumn<QString>("text");
    QTest::newRow("whole") << QPointF(12, 34) << "12,34";
    QTest::newRow("with a fraction") << QPointF(12.5, 34.25) << "12.5,34.25";
    QTest::newRow("negative") << QPointF(-3, -4) << "-3,-4";
    QTest::newRow("beyond the picture") << QPointF(5000, 6000) << "5000,6000";
    QTest::newRow("beyond 16 bits") << QPointF(40'000, 0) << "40000,0";
}

void tst_drawingtools::movingShowsTheRawPosition()
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

void tst_drawingtools::pointerIsACrossWhileAToolIsChosen()
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

void tst_drawingtools::oneCoordinateAnEventIsClamped_data()
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

void tst_drawingtools::oneCoordinateAnEventIsClamped()
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

void tst_drawingtools::numberOfFiguresIsEmptyUntilOneIsDrawn()
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

QTEST_GUILESS_MAIN(tst_drawingtools)

#include "tst_drawingtools.moc"
