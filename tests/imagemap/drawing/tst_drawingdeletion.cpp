// Deleting the last figure, finished or not.

#include "RecordingView.h"
#include "imagemap/drawing/DrawingProtocol.h"
#include "tests/imagemap/drawing/ProtocolFixture.h"

#include <QPointF>
#include <QTest>
#include <memory>

class tst_drawingdeletion : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

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

    // Abandoning and closing the dialog.
    void closingTheDialogOfTheFirstFigureEmptiesTheEditor();
    void closingTheDialogOfAPolygonTakesItsSides();

private:
    std::unique_ptr<Editor> editor_;
};

void tst_drawingdeletion::init()
{
    editor_ = std::make_unique<Editor>();
}

void tst_drawingdeletion::deletingTheLastFigureRemovesItsRow()
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

void tst_drawingdeletion::deletingTheOnlyFigureEmptiesTheEditor()
{
    editor_->LinkEveryFigure();
    editor_->map.Script().SetModeDefault("default");
    editor_->protocol.SelectTool(DrawingTool::Rectangle);
    editor_->Drag({ 1, 2 }, { 30, 40 });
    editor_->map.DeleteLastFigure();
    QVERIFY(editor_->Rows().isEmpty());
    QVERIFY(editor_->view.painted.isEmpty());
    QVERIFY(!editor_->view.areCommandsEnabled);
    QCOMPARE(editor_->view.Figures(), QString());
    QCOMPARE(editor_->map.Script().ModeDefault(), QString());
    QCOMPARE(editor_->headerShowings, 1);
}

void tst_drawingdeletion::deletingAPolygonRemovesItsSidesAndItsRow()
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

void tst_drawingdeletion::deletingAPolygonErasesThePreviousEndMark()
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

void tst_drawingdeletion::deletingAHalfDrawnPolygonRemovesNoRow_data()
{
    QTest::addColumn<int>("sides");
    QTest::newRow("one side") << 1;
    QTest::newRow("two sides") << 2;
    QTest::newRow("many sides") << 9;
}

void tst_drawingdeletion::deletingAHalfDrawnPolygonRemovesNoRow()
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

void tst_drawingdeletion::deletingWhileNothingIsCommittedGivesOnlyThatUp_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("rectangle") << int(kindRectangle);
    QTest::newRow("circle") << int(kindCircle);
    QTest::newRow("first side of a polygon") << int(kindLine);
}

void tst_drawingdeletion::deletingWhileNothingIsCommittedGivesOnlyThatUp()
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

void tst_drawingdeletion::deletingFromAnEmptyStoreAbandonsTheDrawing()
{
    editor_->map.Script().SetModeDefault("default");
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
    QCOMPARE(editor_->map.Script().ModeDefault(), QString("default"));
    editor_->Release({ 50, 50 });
    QCOMPARE(editor_->Counts(), (Counts{ 0, 0, 0 }));
    QVERIFY(editor_->view.linkPrompts.isEmpty());
}

void tst_drawingdeletion::figureOfAnotherKindGivesUpAHalfDrawnPolygon_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("sides");
    QTest::newRow("rectangle over one side") << int(kindRectangle) << 1;
    QTest::newRow("circle over three sides") << int(kindCircle) << 3;
}

void tst_drawingdeletion::figureOfAnotherKindGivesUpAHalfDrawnPolygon()
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

void tst_drawingdeletion::closingTheDialogOfTheFirstFigureEmptiesTheEditor()
{
    editor_->view.onLink = [this] { editor_->CloseLink(); };
    editor_->protocol.SelectTool(DrawingTool::Circle);
    editor_->Drag({ 10, 10 }, { 50, 50 });
    QCOMPARE(editor_->Counts(), (Counts{ 0, 0, 0 }));
    QVERIFY(!editor_->view.areCommandsEnabled);
    QVERIFY(editor_->view.painted.isEmpty());
    QCOMPARE(editor_->view.Figures(), QString());
}

void tst_drawingdeletion::closingTheDialogOfAPolygonTakesItsSides()
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

QTEST_GUILESS_MAIN(tst_drawingdeletion)

#include "tst_drawingdeletion.moc"
