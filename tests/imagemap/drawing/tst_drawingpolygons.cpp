// Polygons, side by side, and the most that can be drawn.

#include "RecordingView.h"
#include "imagemap/drawing/DrawingProtocol.h"
#include "tests/imagemap/drawing/ProtocolFixture.h"

#include <QTest>
#include <memory>

class tst_drawingpolygons : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

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

private:
    std::unique_ptr<Editor> editor_;
};

void tst_drawingpolygons::init()
{
    editor_ = std::make_unique<Editor>();
}

void tst_drawingpolygons::sideStartsOnReleaseAndEndsOnPress()
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

void tst_drawingpolygons::sideEndsAtTheLastMoveNotAtTheClick()
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

void tst_drawingpolygons::middleButtonEndsNoSide()
{
    editor_->protocol.SelectTool(DrawingTool::Line);
    editor_->Click({ 10, 10 });
    editor_->Move({ 50, 60 });
    editor_->Click({ 50, 60 }, middleButton);
    editor_->Click({ 50, 60 }, leftButton | rightButton);
    QCOMPARE(editor_->Store().DrawState, drawDrawing);
    QCOMPARE(editor_->Counts(), (Counts{ 0, 0, 0 }));
}

void tst_drawingpolygons::rightClickEndsThePolygon()
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

void tst_drawingpolygons::polygonsPromptIsThePlainOne_data()
{
    QTest::addColumn<int>("mode");
    QTest::newRow("no script") << int(JSDisabled);
    QTest::newRow("status bar") << int(JSStatusBar);
    QTest::newRow("switching images") << int(JSSwitchImages);
    QTest::newRow("text area") << int(JSTextArea);
    QTest::newRow("tool tips") << int(JSToolTips);
}

void tst_drawingpolygons::polygonsPromptIsThePlainOne()
{
    QFETCH(const int, mode);
    editor_->map.Script().SetMode(static_cast<JSMode>(mode));
    editor_->DrawPolygon({ { 10, 10 }, { 90, 20 }, { 50, 80 } });
    QCOMPARE(editor_->view.linkPrompts, QStringList("Link a drawn area !"));
}

void tst_drawingpolygons::rightClickOnTheFirstSideOpensNoDialog()
{
    editor_->map.Script().SetModeDefault("default");
    editor_->DrawPolygon({ { 10, 10 }, { 90, 20 } });
    QVERIFY(editor_->view.linkPrompts.isEmpty());
    QCOMPARE(editor_->Counts(), (Counts{ 0, 0, 0 }));
    QCOMPARE(editor_->Store().DrawState, drawIdle);
    QVERIFY(editor_->view.painted.isEmpty());
    QVERIFY(!editor_->view.areCommandsEnabled);
    QCOMPARE(editor_->view.Figures(), QString());
    QCOMPARE(editor_->map.Script().ModeDefault(), QString());
}

void tst_drawingpolygons::oneSidedPolygonTakesThePreviousEndMark()
{
    editor_->LinkEveryFigure();
    editor_->DrawPolygon({ { 10, 10 }, { 90, 20 }, { 50, 80 } });
    editor_->DrawPolygon({ { 110, 10 }, { 190, 20 } });
    QCOMPARE(editor_->Counts(), (Counts{ 1, 1, 0 }));
    QCOMPARE(editor_->Rows().size(), 1);
    QCOMPARE(editor_->view.painted.size(), 1);
    QCOMPARE(editor_->Store().PolygonLines[0].Link, QString());
}

void tst_drawingpolygons::rightClickWithoutASideDoesNothing()
{
    editor_->protocol.SelectTool(DrawingTool::Line);
    editor_->Click({ 10, 10 }, rightButton);
    QCOMPARE(editor_->Counts(), (Counts{ 0, 0, 0 }));
    QCOMPARE(editor_->Store().DrawState, drawIdle);
    QVERIFY(editor_->view.linkPrompts.isEmpty());
}

void tst_drawingpolygons::rightPressWhileMovingInLineModeResumesDrawing()
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

void tst_drawingpolygons::secondPolygonStartsAfresh()
{
    editor_->LinkEveryFigure();
    editor_->DrawPolygon({ { 10, 10 }, { 90, 20 }, { 50, 80 } });
    editor_->DrawPolygon({ { 110, 10 }, { 190, 20 }, { 150, 80 } });
    QCOMPARE(editor_->Rows().size(), 2);
    QCOMPARE(editor_->Rows()[1].Text, QString(" No: 2 Polygon"));
    QCOMPARE(editor_->Rows()[1].Coordinates, QString("110, 10, 190, 20, 150, 80"));
}

void tst_drawingpolygons::fiveHundredFiguresFit()
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

void tst_drawingpolygons::fullStoreRefusesTheStart_data()
{
    QTest::addColumn<int>("tool");
    QTest::addColumn<bool>("tellsOfLines");
    QTest::newRow("rectangle") << 5 << true;
    QTest::newRow("circle") << 6 << true;
    QTest::newRow("line") << 7 << false;
}

void tst_drawingpolygons::fullStoreRefusesTheStart()
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

void tst_drawingpolygons::polygonAtTheLimitGetsOneSide()
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

void tst_drawingpolygons::fullStoreCanBeDeletedFromClearedAndLeft()
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

QTEST_GUILESS_MAIN(tst_drawingpolygons)

#include "tst_drawingpolygons.moc"
