// Giving up what is being drawn.

#include "RecordingView.h"
#include "imagemap/drawing/DrawingProtocol.h"
#include "tests/imagemap/drawing/ProtocolFixture.h"

#include <QTest>
#include <memory>

class tst_drawinggivenup : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

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

private:
    std::unique_ptr<Editor> editor_;
};

void tst_drawinggivenup::init()
{
    editor_ = std::make_unique<Editor>();
}

void tst_drawinggivenup::givingUpTakesAPolygonWithAllItsSides()
{
    editor_->LinkEveryFigure();
    editor_->protocol.SelectTool(DrawingTool::Rectangle);
    editor_->Drag({ 1, 2 }, { 30, 40 });
    editor_->protocol.SelectTool(DrawingTool::Line);
    editor_->DrawSides({ { 10, 10 }, { 90, 20 }, { 50, 80 } });
    editor_->Move({ 70, 70 });
    QVERIFY(editor_->map.Drawing().IsInProgress());
    editor_->protocol.Abandon();
    QVERIFY(!editor_->map.Drawing().IsInProgress());
    QCOMPARE(editor_->Counts(), (Counts{ 1, 0, 0 }));
    QCOMPARE(editor_->Rows().size(), 1);
    QVERIFY(!editor_->view.rubber);
    QCOMPARE(editor_->view.painted.size(), 1);
    QCOMPARE(editor_->view.Figures(), QString("1"));
    QVERIFY(editor_->view.areCommandsEnabled);
    editor_->DrawPolygon({ { 110, 10 }, { 190, 20 }, { 150, 80 } });
    QCOMPARE(editor_->Rows().constLast().Coordinates, QString("110, 10, 190, 20, 150, 80"));
}

void tst_drawinggivenup::givingUpTheFirstFigureKeepsTheModesDefault()
{
    for (const int kind : { int(kindRectangle), int(kindCircle), int(kindLine) }) {
        init();
        editor_->map.Script().SetModeDefault("default");
        editor_->protocol.SelectTool(static_cast<DrawingTool>(kind));
        editor_->Click({ 10, 10 });
        editor_->Press({ 10, 10 });
        editor_->Move({ 50, 50 });
        editor_->view.onLink = nullptr;
        if (kind != kindLine) {
            editor_->CloseLink();
            editor_->map.Script().SetModeDefault("default");
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
        QCOMPARE(editor_->map.Script().ModeDefault(), QString("default"));
        QCOMPARE(editor_->view.linkPrompts.size(), kind == kindLine ? 0 : 1);
    }
}

void tst_drawinggivenup::givingUpKeepsThePolygonBefore()
{
    editor_->LinkEveryFigure();
    editor_->DrawPolygon({ { 10, 10 }, { 90, 20 }, { 50, 80 }, { 20, 70 } });
    editor_->DrawSides({ { 110, 10 }, { 190, 20 }, { 150, 80 } });
    editor_->protocol.Abandon();
    QCOMPARE(editor_->Counts(), (Counts{ 2, 2, 0 }));
    QCOMPARE(editor_->Store().PolygonLines[1].Link, QString("a.html"));
    QCOMPARE(editor_->Rows().size(), 1);
}

void tst_drawinggivenup::givingUpNothingChangesNothing()
{
    editor_->view.areCommandsEnabled = true;
    editor_->Move({ 12, 34 });
    QVERIFY(!editor_->map.Drawing().IsInProgress());
    editor_->protocol.Abandon();
    QVERIFY(editor_->view.areCommandsEnabled);
    QCOMPARE(editor_->view.Cursor(), QString("12,34"));
}

void tst_drawinggivenup::releaseAfterGivingUpStartsNothing()
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

void tst_drawinggivenup::abandoningForgetsTheHalfDrawnPolygon()
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

void tst_drawinggivenup::abandoningInAnEmptyStoreDisablesTheCommands()
{
    editor_->protocol.SelectTool(DrawingTool::Rectangle);
    editor_->Press({ 10, 10 });
    editor_->Move({ 50, 50 });
    editor_->map.Drawing().GiveUp();
    QVERIFY(!editor_->view.areCommandsEnabled);
    QCOMPARE(editor_->view.Figures(), QString());
    QVERIFY(!editor_->view.rubber);

    // With figures in the store the commands stay.
    init();
    editor_->protocol.SelectTool(DrawingTool::Rectangle);
    editor_->Drag({ 10, 10 }, { 50, 50 });
    editor_->Press({ 10, 10 });
    editor_->map.Drawing().GiveUp();
    QVERIFY(editor_->view.areCommandsEnabled);
    QCOMPARE(editor_->Store().DrawState, drawIdle);
    QCOMPARE(editor_->Store().FigureCount, 1);
}

void tst_drawinggivenup::abandoningNothingChangesNothing()
{
    // The commands go with the picture then, and its check box is already enabled.
    editor_->view.areCommandsEnabled = true;
    editor_->Move({ 12, 34 });
    editor_->map.Drawing().GiveUp();
    QVERIFY(editor_->view.areCommandsEnabled);
    QCOMPARE(editor_->view.Cursor(), QString("12,34"));
}

void tst_drawinggivenup::abandoningKeepsTheModesDefaultAndHeader()
{
    editor_->map.Script().SetModeDefault("default");
    editor_->protocol.SelectTool(DrawingTool::Rectangle);
    editor_->Press({ 10, 10 });
    editor_->map.Drawing().GiveUp();
    QCOMPARE(editor_->map.Script().ModeDefault(), QString("default"));
    QCOMPARE(editor_->headerShowings, 0);
}

QTEST_GUILESS_MAIN(tst_drawinggivenup)

#include "tst_drawinggivenup.moc"
