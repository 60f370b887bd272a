// What is painted of a figure and told beside the picture.

#include "RecordingView.h"
#include "imagemap/drawing/DrawingProtocol.h"
#include "tests/imagemap/drawing/ProtocolFixture.h"

#include <QTest>
#include <memory>

class tst_figuredisplay : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

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

    // Painting all figures again.
    void redrawPaintsEveryFigureWithTheCopyPen();
    void redrawComputesTheRadiusAgain();
    void redrawOfAnEmptyStoreEmptiesTheEditor();
    void redrawWhileTheFirstFigureIsDrawnDisablesNothing();
    void redrawOfFiguresKeepsTheModeDefault();
    void labelsAreClearedInTheirOrder();
    void clearingEmptiesTheStoreAlone();

private:
    std::unique_ptr<Editor> editor_;
};

void tst_figuredisplay::init()
{
    editor_ = std::make_unique<Editor>();
}

void tst_figuredisplay::radiusIsTheHorizontalOrTheVerticalDistance_data()
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

void tst_figuredisplay::radiusIsTheHorizontalOrTheVerticalDistance()
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

void tst_figuredisplay::secondPointIsClampedToThePicture_data()
{
    QTest::addColumn<QPoint>("end");
    QTest::addColumn<Shape>("painted");
    QTest::newRow("inside") << QPoint(399, 299) << Shape{ 399, 299 };
    QTest::newRow("at the edges") << QPoint(400, 300) << Shape{ 400, 300 };
    QTest::newRow("beyond both") << QPoint(401, 301) << Shape{ 400, 300 };
    QTest::newRow("before both") << QPoint(-1, -1) << Shape{ 0, 0 };
    QTest::newRow("ends of 16 bits") << QPoint(32'767, -32'768) << Shape{ 400, 0 };
}

void tst_figuredisplay::secondPointIsClampedToThePicture()
{
    QFETCH(const QPoint, end);
    QFETCH(const Shape, painted);
    for (const qint16 kind : { kindRectangle, kindCircle, kindLine }) {
        editor_->Follow(kind, -7, 900, static_cast<qint16>(end.x()), static_cast<qint16>(end.y()));
        QCOMPARE(ShapeOf(editor_->view.painted.constLast()), (Shape{ kind, -7, 900 } + painted));
        QCOMPARE(editor_->view.Start(), QString("-7,900"));
    }
}

void tst_figuredisplay::sizeIsShownBesideTheFigure_data()
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

void tst_figuredisplay::sizeIsShownBesideTheFigure()
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

void tst_figuredisplay::unknownKindPaintsNothingButShowsTheCount()
{
    editor_->FillStore(2);
    editor_->view.labels.fill("x");
    editor_->Follow(0, 1, 2, 3, 4);
    QVERIFY(editor_->view.painted.isEmpty());
    QCOMPARE(editor_->view.Dimensions(), QString("xx"));
    QCOMPARE(editor_->view.Figures(), QString("2"));
}

void tst_figuredisplay::circleOfTooLargeARadiusIsSkipped()
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

void tst_figuredisplay::sizeBeyond16BitsEndsThePainting_data()
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

void tst_figuredisplay::sizeBeyond16BitsEndsThePainting()
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

void tst_figuredisplay::committedCircleKeepsThePaintedRadius()
{
    editor_->protocol.SelectTool(DrawingTool::Circle);
    editor_->Press({ 100, 100 });
    editor_->Move({ 450, 450 });
    editor_->Release({ 450, 450 });
    QCOMPARE(ShapeOf(editor_->Figure(0)), (Shape{ 6, 100, 100, 400, 450 }));
    // Painted and measured to (400, 300).
    QCOMPARE(int(editor_->Figure(0).Radius), 300);
}

void tst_figuredisplay::redrawPaintsEveryFigureWithTheCopyPen()
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

void tst_figuredisplay::redrawComputesTheRadiusAgain()
{
    editor_->protocol.SelectTool(DrawingTool::Circle);
    editor_->Drag({ 100, 100 }, { 130, 180 });
    editor_->Figure(0).Radius = 3;
    editor_->display.RedrawFigures();
    QCOMPARE(editor_->view.painted.constLast().radius, 80);
    QCOMPARE(int(editor_->Figure(0).Radius), 3);
}

void tst_figuredisplay::redrawOfAnEmptyStoreEmptiesTheEditor()
{
    editor_->map.Script().SetModeDefault("default");
    editor_->view.labels.fill("x");
    editor_->view.areCommandsEnabled = true;
    editor_->display.RedrawFigures();
    for (const QString& label : editor_->view.labels) {
        QCOMPARE(label, QString());
    }
    QVERIFY(!editor_->view.areCommandsEnabled);
    QCOMPARE(editor_->map.Script().ModeDefault(), QString());
    QCOMPARE(editor_->headerShowings, 1);
}

void tst_figuredisplay::redrawWhileTheFirstFigureIsDrawnDisablesNothing()
{
    editor_->map.Script().SetModeDefault("default");
    editor_->protocol.SelectTool(DrawingTool::Rectangle);
    editor_->Press({ 10, 10 });
    editor_->Move({ 20, 20 });
    editor_->display.RedrawFigures();
    QVERIFY(editor_->view.areCommandsEnabled);
    QCOMPARE(editor_->map.Script().ModeDefault(), QString("default"));
    QCOMPARE(editor_->headerShowings, 0);
    QCOMPARE(editor_->view.Figures(), QString("0"));
    QVERIFY(editor_->view.painted.isEmpty());
    QVERIFY(editor_->view.rubber);
    editor_->Release({ 20, 20 });
    QCOMPARE(editor_->Store().FigureCount, 1);
}

void tst_figuredisplay::redrawOfFiguresKeepsTheModeDefault()
{
    editor_->map.Script().SetModeDefault("default");
    editor_->FillStore(1);
    editor_->view.areCommandsEnabled = true;
    editor_->display.RedrawFigures();
    QCOMPARE(editor_->map.Script().ModeDefault(), QString("default"));
    QVERIFY(editor_->view.areCommandsEnabled);
    QCOMPARE(editor_->headerShowings, 0);
}

void tst_figuredisplay::labelsAreClearedInTheirOrder()
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

void tst_figuredisplay::clearingEmptiesTheStoreAlone()
{
    editor_->LinkEveryFigure();
    editor_->DrawPolygon({ { 10, 10 }, { 90, 20 }, { 50, 80 } });
    editor_->map.Script().SetModeDefault("default");
    editor_->map.Clear();
    QCOMPARE(editor_->Counts(), (Counts{ 0, 0, 0 }));
    QVERIFY(!editor_->view.areCommandsEnabled);
    QVERIFY(editor_->Rows().isEmpty());
    QVERIFY(editor_->view.Figures().isEmpty());
    // Header and default are the caller's.
    QCOMPARE(editor_->map.Script().ModeDefault(), QString("default"));
    QCOMPARE(editor_->headerShowings, 0);
}

QTEST_GUILESS_MAIN(tst_figuredisplay)

#include "tst_figuredisplay.moc"
