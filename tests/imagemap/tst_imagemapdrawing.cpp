// Drawing on the picture of the image map editor with the mouse.

#include "tests/imagemap/EditorFixture.h"
#include "tests/imagemap/Places.h"

#include <QMenuBar>
#include <QMouseEvent>
#include <QScreen>
#include <QWheelEvent>
#include <cmath>
#include <memory>

class tst_imagemapdrawing : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void toolsAreChosenByButtonAndMenu_data();
    void toolsAreChosenByButtonAndMenu();
    void choosingTheCursorKeepsTheKind();
    void pointerIsACrossWhereToolsDraw();
    void cursorModeDrawsNothing();

    void rectangleFollowsTheMouse();
    void rectangleIsPaintedForGood();
    void rectangleMovesWithTheRightButton();
    void releasingLeftWhileMovingKeepsMoving();
    void clickWithoutMovingMakesAPoint();
    void otherButtonsStartNothing();
    void circleShowsRadiusAndIsPaintedForGood();
    void circleFollowsTheMouseWithoutATrace();
    void screenShowsTheLastRubberFigureOnly();
    void radiusFollowsTheEndPointsOwnPosition_data();
    void radiusFollowsTheEndPointsOwnPosition();

    void polygonStartsOnReleaseAndEndsOnTheRightClick();
    void polygonSideEndsWhereTheMouseWasLastMoved();
    void polygonLosesTheSideOfTheRightClick();
    void oneSidedPolygonIsGivenUpWithoutADialog();
    void polygonsPromptIsPlainInEveryMode();
    void doubleClickIsTwoPressesOfThePolygon();

    void firstFigureShowsNoughtLines();
    void cursorLabelsShowTheRawPosition();
    void positionsLeftAndAboveAreStoredAsTheyAre();
    void positionsBeyondTheCornerClampOneCoordinate();
    void pressBesideThePictureDrawsNothing();

    void toolChangedUnderAFigureLeavesNoTrace();
    void cursorFreezesTheFigureInProgress();
    void scrollingShiftsOnlyTheView();
    void wheelScrollsThePicture();
    void fineStepsOfTheWheelAddUp();

    void toolbarShowsTheToolPressed();
    void thirdPanelTellsWhatToDoNext();
    void thirdPanelFollowsTheMovedFigure();
    void escapeGivesUpWhatIsInProgress_data();
    void escapeGivesUpWhatIsInProgress();
    void escapeWithoutAFigureIsLeftToOthers();
    void escapeTakesNothingThatIsBeingLinked();

private:
    void Turn(QPoint angle, Qt::KeyboardModifiers modifiers = {});
    [[nodiscard]] QString Hint() const { return test_->Text("StatusBar1_Panel3"); }

    std::unique_ptr<EditorFixture> test_;
};

void tst_imagemapdrawing::init()
{
    test_ = std::make_unique<EditorFixture>();
    QVERIFY(test_->Start());
    test_->OpenPicture({ 300, 200 });
}

void tst_imagemapdrawing::cleanup()
{
    const QString problems = test_->robot.Problems();
    test_.reset();
    QVERIFY2(problems.isEmpty(), qPrintable(problems));
}

void tst_imagemapdrawing::toolsAreChosenByButtonAndMenu_data()
{
    QTest::addColumn<int>("button");
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QString>("status");
    QTest::addColumn<int>("kind");

    QTest::newRow("rectangle") << 5 << QStringLiteral("mnuFigNum_5")
                               << QStringLiteral("Drawing Mode - Rectangle !") << 5;
    QTest::newRow("circle") << 6 << QStringLiteral("mnuFigNum_6") << QStringLiteral("Drawing Mode - Circle !")
                            << 6;
    QTest::newRow("line") << 7 << QStringLiteral("mnuFigNum_7")
                          << QStringLiteral("Drawing Mode - Line, draw Polygons !") << 7;
    QTest::newRow("cursor") << 9 << QStringLiteral("mnuCursor") << QStringLiteral("Creating Mode !") << 0;
}

void tst_imagemapdrawing::toolsAreChosenByButtonAndMenu()
{
    QFETCH(const int, button);
    QFETCH(const QString, entry);
    QFETCH(const QString, status);
    QFETCH(const int, kind);

    test_->ClickButton(button);
    QCOMPARE(test_->CheckedTools(), QStringList{ entry });
    QCOMPARE(test_->Status(), status);
    QCOMPARE(test_->map.Ledger().CurrentKind, kind);

    test_->ClickButton(button == 5 ? 6 : 5);
    QVERIFY(test_->CheckedTools() != QStringList{ entry });
    test_->Entry(qPrintable(entry))->trigger();
    QCOMPARE(test_->CheckedTools(), QStringList{ entry });
    QCOMPARE(test_->Status(), status);

    // An entry that is chosen again stays checked.
    test_->Entry(qPrintable(entry))->trigger();
    QCOMPARE(test_->CheckedTools(), QStringList{ entry });
}

void tst_imagemapdrawing::choosingTheCursorKeepsTheKind()
{
    test_->ClickButton(6);
    test_->ClickButton(9);
    QCOMPARE(test_->map.Ledger().CurrentKind, kindCircle);
    QCOMPARE(test_->CheckedTools(), QStringList{ QStringLiteral("mnuCursor") });
}

void tst_imagemapdrawing::pointerIsACrossWhereToolsDraw()
{
    test_->Move({ 20, 20 });
    QCOMPARE(test_->Surface()->cursor().shape(), Qt::ArrowCursor);
    test_->ClickButton(6);
    test_->Move({ 21, 20 });
    QCOMPARE(test_->Surface()->cursor().shape(), Qt::CrossCursor);
    test_->ClickButton(9);
    QCOMPARE(test_->Surface()->cursor().shape(), Qt::ArrowCursor);
    test_->Move({ 22, 20 });
    QCOMPARE(test_->Surface()->cursor().shape(), Qt::ArrowCursor);
}

void tst_imagemapdrawing::cursorModeDrawsNothing()
{
    const QImage before = test_->Pixels();
    test_->Drag({ 10, 10 }, { 60, 70 });
    test_->ClickAt({ 30, 30 }, Qt::RightButton);
    test_->Settle();
    QCOMPARE(test_->Pixels(), before);
    QCOMPARE(test_->map.Ledger().DrawState, drawIdle);
    QCOMPARE(test_->map.Ledger().FigureCount, 0);
    QCOMPARE(test_->Cursor1And2(), QStringLiteral("30,30"));
    QCOMPARE(test_->Start1And2(), QString());
}

void tst_imagemapdrawing::rectangleFollowsTheMouse()
{
    const QImage before = test_->Pixels();
    test_->ClickButton(5);
    test_->Press({ 60, 50 });
    test_->Move({ 20, 30 });
    Places outline = BoxOutline({ 20, 30 }, { 60, 50 });
    QImage after = test_->Pixels();
    QCOMPARE(DifferentPlaces(before, after), outline);
    QVERIFY(AllInverted(before, after, outline));
    QCOMPARE(test_->Start1And2(), QStringLiteral("60,50"));
    QCOMPARE(test_->End1And2(), QStringLiteral("20,30"));
    QCOMPARE(test_->Dimensions1And2(), QStringLiteral("40,20"));

    test_->Move({ 100, 90 });
    outline = BoxOutline({ 60, 50 }, { 100, 90 });
    after = test_->Pixels();
    QCOMPARE(DifferentPlaces(before, after), outline);
    QVERIFY(AllInverted(before, after, outline));

    // Down to a bar and a point, where no place may be inverted twice.
    test_->Move({ 60, 90 });
    QCOMPARE(DifferentPlaces(before, test_->Pixels()), BoxOutline({ 60, 50 }, { 60, 90 }));
    test_->Move({ 60, 50 });
    QCOMPARE(DifferentPlaces(before, test_->Pixels()), BoxOutline({ 60, 50 }, { 60, 50 }));

    test_->robot.Cancel();
    test_->Release({ 60, 50 });
    test_->robot.WaitUntilDone();
    QCOMPARE(test_->Pixels(), before);
}

void tst_imagemapdrawing::rectangleIsPaintedForGood()
{
    const QImage before = test_->Pixels();
    test_->DrawRectangle({ 60, 50 }, { 20, 30 });
    const QImage after = test_->Pixels();
    const Places outline = BoxOutline({ 20, 30 }, { 60, 50 });
    QCOMPARE(DifferentPlaces(before, after), outline);
    QVERIFY(AllOfColor(after, outline, black));
    QCOMPARE(test_->Text("lblFigures"), QStringLiteral("1"));
    const FigureRecord& figure = test_->map.Ledger().Figures[0];
    QCOMPARE(figure.Kind, kindRectangle);
    QCOMPARE(figure.X1, 60);
    QCOMPARE(figure.Y1, 50);
    QCOMPARE(figure.X2, 20);
    QCOMPARE(figure.Y2, 30);
    QCOMPARE(figure.Link, QStringLiteral("area.htm"));
    QCOMPARE(test_->Row(0).at(3), QStringLiteral("20, 30, 60, 50"));
    QCOMPARE(test_->Status(), QStringLiteral("Drawing Mode - Rectangle !"));
}

void tst_imagemapdrawing::rectangleMovesWithTheRightButton()
{
    const QImage before = test_->Pixels();
    test_->ClickButton(5);
    test_->Press({ 20, 20 });
    test_->Move({ 60, 50 });
    test_->Press({ 60, 50 }, Qt::RightButton);
    QCOMPARE(test_->map.Ledger().DrawState, drawMoving);
    test_->Move({ 80, 90 });
    QCOMPARE(DifferentPlaces(before, test_->Pixels()), BoxOutline({ 40, 60 }, { 80, 90 }));
    QCOMPARE(test_->Dimensions1And2(), QStringLiteral("40,30"));
    test_->Release({ 80, 90 }, Qt::RightButton);
    QCOMPARE(test_->map.Ledger().DrawState, drawDrawing);
    test_->Move({ 100, 100 });
    QCOMPARE(DifferentPlaces(before, test_->Pixels()), BoxOutline({ 40, 60 }, { 100, 100 }));
    test_->Link("moved.htm", [this] { test_->Release({ 100, 100 }); });
    QCOMPARE(test_->Row(0).at(3), QStringLiteral("40, 60, 100, 100"));
}

void tst_imagemapdrawing::releasingLeftWhileMovingKeepsMoving()
{
    test_->ClickButton(5);
    test_->Press({ 20, 20 });
    test_->Move({ 60, 50 });
    test_->Press({ 60, 50 }, Qt::RightButton);
    test_->Release({ 60, 50 });
    test_->Settle();
    QCOMPARE(test_->map.Ledger().DrawState, drawMoving);
    QCOMPARE(test_->map.Ledger().FigureCount, 0);
    test_->Move({ 70, 50 });
    QCOMPARE(test_->Start1And2(), QStringLiteral("30,20"));
    test_->Release({ 70, 50 }, Qt::RightButton);
    test_->Press({ 70, 50 });
    test_->Link("late.htm", [this] { test_->Release({ 70, 50 }); });
    QCOMPARE(test_->Row(0).at(3), QStringLiteral("30, 20, 70, 50"));
}

void tst_imagemapdrawing::clickWithoutMovingMakesAPoint()
{
    const QImage before = test_->Pixels();
    test_->ClickButton(5);
    test_->Link("point.htm", [this] { test_->ClickAt({ 30, 20 }); });
    QCOMPARE(test_->Row(0).at(3), QStringLiteral("30, 20, 30, 20"));
    QCOMPARE(DifferentPlaces(before, test_->Pixels()), Places{ QPoint(30, 20) });
    test_->ClickButton(6);
    test_->Link("point.htm", [this] { test_->ClickAt({ 50, 60 }); });
    QCOMPARE(test_->Row(1).at(3), QStringLiteral("50, 60, 0"));
}

void tst_imagemapdrawing::otherButtonsStartNothing()
{
    for (const int tool : { 5, 6, 7 }) {
        test_->ClickButton(tool);
        for (const Qt::MouseButton button : { Qt::RightButton, Qt::MiddleButton }) {
            test_->ClickAt({ 30, 30 }, button);
            QCOMPARE(test_->map.Ledger().DrawState, drawIdle);
        }
    }
    test_->Settle();
    QCOMPARE(test_->map.Ledger().FigureCount, 0);
}

void tst_imagemapdrawing::circleShowsRadiusAndIsPaintedForGood()
{
    const QImage before = test_->Pixels();
    test_->DrawCircle({ 100, 100 }, { 150, 110 });
    QCOMPARE(test_->Dimensions1And2(), QStringLiteral("50"));
    QCOMPARE(test_->Text("lblDimensions2"), QString());
    QCOMPARE(test_->Start1And2(), QStringLiteral("100,100"));
    QCOMPARE(test_->End1And2(), QStringLiteral("150,110"));
    const QImage after = test_->Pixels();
    const Places painted = DifferentPlaces(before, after);
    for (const QPoint place : { QPoint(50, 100), QPoint(150, 100), QPoint(100, 50), QPoint(100, 150) }) {
        QVERIFY2(
            painted.count(place) == 1, qPrintable(QStringLiteral("%1, %2").arg(place.x()).arg(place.y())));
    }
    for (const QPoint place : painted) {
        const double distance = std::hypot(place.x() - 100, place.y() - 100);
        QVERIFY2(distance > 48.9 && distance < 51.1, qPrintable(QString::number(distance)));
    }
    QVERIFY(painted.size() > 250);
    QVERIFY(AllOfColor(after, painted, black));
    QCOMPARE(test_->map.Ledger().Figures[0].Radius, 50);
    QCOMPARE(test_->Row(0).at(3), QStringLiteral("100, 100, 50"));
}

void tst_imagemapdrawing::circleFollowsTheMouseWithoutATrace()
{
    const QImage before = test_->Pixels();
    test_->ClickButton(6);
    test_->Press({ 100, 100 });
    test_->Move({ 150, 110 });
    const QImage after = test_->Pixels();
    const Places painted = DifferentPlaces(before, after);
    for (const QPoint place : { QPoint(50, 100), QPoint(150, 100), QPoint(100, 50), QPoint(100, 150) }) {
        QVERIFY2(
            painted.count(place) == 1, qPrintable(QStringLiteral("%1, %2").arg(place.x()).arg(place.y())));
    }
    QVERIFY(AllInverted(before, after, painted));
    test_->Move({ 120, 101 });
    for (const QPoint place : DifferentPlaces(before, test_->Pixels())) {
        QVERIFY(std::hypot(place.x() - 100, place.y() - 100) < 21.1);
    }
    test_->robot.Cancel();
    test_->Release({ 120, 101 });
    test_->robot.WaitUntilDone();
    QCOMPARE(test_->Pixels(), before);
}

void tst_imagemapdrawing::screenShowsTheLastRubberFigureOnly()
{
    if (test_->editor->devicePixelRatioF() != 1) {
        QSKIP("the offscreen platform shows no picture of a dense screen");
    }
    // What was painted bit by bit as the mouse moved, not painted anew as a whole.
    const auto screenPixels = [this] {
        EditorFixture::Settle();
        const QRect place(test_->Surface()->mapTo(test_->editor, QPoint(0, 0)), test_->Surface()->size());
        QImage shot = test_->editor->screen()->grabWindow(test_->editor->winId()).toImage();
        shot.setDevicePixelRatio(1);
        return shot.scaled(test_->editor->size()).copy(place).convertToFormat(QImage::Format_RGB32);
    };
    const QImage before = screenPixels();
    for (const int tool : { 5, 6 }) {
        test_->ClickButton(tool);
        test_->Press({ 100, 100 });
        for (int i = 1; i < 50; ++i) {
            test_->Move({ 100 + i, 100 - i / 2 });
        }
        test_->Move({ 80, 90 });
        QCOMPARE(DifferentPlaces(before, screenPixels()), DifferentPlaces(before, test_->Pixels()));
        test_->robot.Cancel();
        test_->Release({ 80, 90 });
        test_->robot.WaitUntilDone();
        QCOMPARE(screenPixels(), before);
    }
}

void tst_imagemapdrawing::radiusFollowsTheEndPointsOwnPosition_data()
{
    QTest::addColumn<QPoint>("centre");
    QTest::addColumn<QPoint>("rim");
    QTest::addColumn<QString>("coordinates");

    QTest::newRow("lower than right")
        << QPoint(100, 100) << QPoint(130, 180) << QStringLiteral("100, 100, 80");
    QTest::newRow("righter than low")
        << QPoint(100, 100) << QPoint(180, 130) << QStringLiteral("100, 100, 80");
    QTest::newRow("near the top") << QPoint(200, 10) << QPoint(150, 20) << QStringLiteral("200, 10, 50");
    QTest::newRow("equally far") << QPoint(100, 90) << QPoint(110, 110) << QStringLiteral("100, 90, 20");
    QTest::newRow("righter, but not by the distance")
        << QPoint(100, 10) << QPoint(103, 90) << QStringLiteral("100, 10, 3");
}

void tst_imagemapdrawing::radiusFollowsTheEndPointsOwnPosition()
{
    QFETCH(const QPoint, centre);
    QFETCH(const QPoint, rim);
    QFETCH(const QString, coordinates);

    test_->DrawCircle(centre, rim);
    QCOMPARE(test_->Row(0).at(3), coordinates);
}

void tst_imagemapdrawing::polygonStartsOnReleaseAndEndsOnTheRightClick()
{
    test_->ClickButton(7);
    test_->Press({ 20, 20 });
    QCOMPARE(test_->map.Ledger().DrawState, drawIdle);
    test_->Move({ 25, 20 });
    test_->Release({ 25, 20 });
    QCOMPARE(test_->map.Ledger().DrawState, drawDrawing);
    QCOMPARE(test_->map.Ledger().StartX, 25);
    test_->Move({ 80, 20 });
    QCOMPARE(test_->Dimensions1And2(), QStringLiteral("55,0"));
    test_->Press({ 80, 20 });
    QCOMPARE(test_->map.Ledger().DrawState, drawIdle);
    QCOMPARE(test_->Text("lblFigures"), QStringLiteral("1"));
    test_->Release({ 82, 23 });
    QCOMPARE(test_->map.Ledger().StartX, 82);
    test_->Move({ 80, 90 });
    const QPointer<QDialog> dialog = test_->DialogOpenedBy([this] {
        test_->ClickAt({ 80, 90 }, Qt::RightButton);
    });
    QCOMPARE(dialog->objectName(), QStringLiteral("frmIMLink"));
    TypeIn(dialog, "cmbLink", "three.htm");
    ClickIn(dialog, "SSCmdOK");
    const QStringList row = { QStringLiteral(" No: 1 Polygon"), QStringLiteral("three.htm"), QString(),
                              QStringLiteral("25, 20, 80, 20, 80, 90"), QString() };
    QCOMPARE(test_->Row(0), row);
    QCOMPARE(test_->map.Ledger().FigureCount, 1);
    QCOMPARE(test_->map.Ledger().PolygonLineCount, 1);
    QCOMPARE(test_->map.Ledger().CurrentPolygonLineCount, 0);
    QCOMPARE(test_->map.Ledger().PolygonLines[0].Link, QStringLiteral("three.htm"));
    QCOMPARE(test_->Text("lblFigures"), QStringLiteral("1"));
    QCOMPARE(test_->Status(), QStringLiteral("Drawing Mode - Line, draw Polygons !"));
}

void tst_imagemapdrawing::polygonSideEndsWhereTheMouseWasLastMoved()
{
    test_->ClickButton(7);
    test_->ClickAt({ 20, 20 });
    test_->Move({ 80, 20 });
    // A click that the mouse has not been moved to, as a tap on a touch screen is.
    const QPointF at(90, 30);
    for (const QEvent::Type type : { QEvent::MouseButtonPress, QEvent::MouseButtonRelease }) {
        QMouseEvent event(type, at, test_->Surface()->mapToGlobal(at), Qt::LeftButton, Qt::NoButton, {});
        QApplication::sendEvent(test_->Surface(), &event);
    }
    const FigureRecord& side = test_->map.Ledger().Figures[0];
    QCOMPARE(QPoint(side.X2, side.Y2), QPoint(80, 20));
    QCOMPARE(QPoint(test_->map.Ledger().StartX, test_->map.Ledger().StartY), QPoint(90, 30));
}

void tst_imagemapdrawing::polygonLosesTheSideOfTheRightClick()
{
    const QImage before = test_->Pixels();
    test_->DrawPolygon({ { 20, 20 }, { 80, 20 }, { 80, 90 }, { 20, 90 } });
    QCOMPARE(test_->Row(0).at(3), QStringLiteral("20, 20, 80, 20, 80, 90, 20, 90"));
    Places sides = BoxOutline({ 20, 20 }, { 80, 20 });
    sides.merge(BoxOutline({ 80, 20 }, { 80, 90 }));
    const QImage after = test_->Pixels();
    QCOMPARE(DifferentPlaces(before, after), sides);
    QVERIFY(AllOfColor(after, sides, black));
}

void tst_imagemapdrawing::oneSidedPolygonIsGivenUpWithoutADialog()
{
    const QImage before = test_->Pixels();
    test_->ClickButton(7);
    test_->ClickCorners({ { 20, 20 }, { 80, 50 } });
    test_->Settle();
    QCOMPARE(test_->Pixels(), before);
    QCOMPARE(test_->map.Ledger().FigureCount, 0);
    QCOMPARE(test_->map.Ledger().PolygonLineCount, 0);
    QCOMPARE(test_->map.Ledger().CurrentPolygonLineCount, 0);
    QCOMPARE(test_->Text("lblFigures"), QString());
    QVERIFY(!test_->Button(14)->isEnabled());

    test_->DrawRectangle({ 10, 10 }, { 40, 40 });
    test_->ClickButton(7);
    test_->ClickCorners({ { 20, 20 }, { 80, 50 } });
    test_->Settle();
    QCOMPARE(test_->RowCount(), 1);
    QCOMPARE(test_->map.Ledger().FigureCount, 1);
    QVERIFY(test_->Button(14)->isEnabled());
}

void tst_imagemapdrawing::polygonsPromptIsPlainInEveryMode()
{
    test_->map.SetMode(JSToolTips);
    test_->ClickButton(7);
    const QPointer<QDialog> dialog = test_->DialogOpenedBy([this] {
        test_->ClickCorners({ { 20, 20 }, { 80, 20 }, { 80, 90 } });
    });
    QCOMPARE(test_->Status(), QStringLiteral("Link a drawn area !"));
    QCOMPARE(dialog->windowTitle(), QStringLiteral("Image Map - Tool Tip Messages"));
    QVERIFY(Find<QPushButton>(dialog, "SSCmdOK")->isEnabled());
    QVERIFY(!Find<QPushButton>(dialog, "SSCmdReplace")->isEnabled());
    dialog->close();
    QCOMPARE(test_->Status(), QStringLiteral("Drawing Mode - Line, draw Polygons !"));
}

void tst_imagemapdrawing::doubleClickIsTwoPressesOfThePolygon()
{
    test_->ClickButton(7);
    QTest::mouseDClick(test_->Surface(), Qt::LeftButton, {}, QPoint(40, 40));
    QCOMPARE(test_->map.Ledger().FigureCount, 1);
    QCOMPARE(test_->map.Ledger().CurrentPolygonLineCount, 1);
    QCOMPARE(test_->map.Ledger().DrawState, drawDrawing);
}

void tst_imagemapdrawing::firstFigureShowsNoughtLines()
{
    test_->ClickButton(5);
    test_->Press({ 20, 20 });
    test_->Move({ 40, 40 });
    QCOMPARE(test_->Text("lblFigures"), QStringLiteral("0"));
    test_->robot.Cancel();
    test_->Release({ 40, 40 });
    test_->robot.WaitUntilDone();
    QCOMPARE(test_->Text("lblFigures"), QString());
}

void tst_imagemapdrawing::cursorLabelsShowTheRawPosition()
{
    test_->ClickButton(5);
    test_->Move({ 33, 44 });
    QCOMPARE(test_->Text("lblCursor1"), QStringLiteral("33,"));
    QCOMPARE(test_->Text("lblCursor2"), QStringLiteral("44"));
    test_->Press({ 33, 44 });
    test_->Move({ 310, 205 });
    QCOMPARE(test_->Cursor1And2(), QStringLiteral("310,205"));
    test_->robot.Cancel();
    test_->Release({ 310, 205 });
    test_->robot.WaitUntilDone();
}

void tst_imagemapdrawing::positionsLeftAndAboveAreStoredAsTheyAre()
{
    const QImage before = test_->Pixels();
    test_->ClickButton(5);
    test_->Press({ 10, 12 });
    test_->Move({ -3, -5 });
    QCOMPARE(test_->Cursor1And2(), QStringLiteral("-3,-5"));
    QCOMPARE(test_->End1And2(), QStringLiteral("0,0"));
    QCOMPARE(test_->Dimensions1And2(), QStringLiteral("10,12"));
    QCOMPARE(DifferentPlaces(before, test_->Pixels()), BoxOutline({ 0, 0 }, { 10, 12 }));
    test_->Link("corner.htm", [this] { test_->Release({ -3, -5 }); });
    QCOMPARE(test_->Row(0).at(3), QStringLiteral("-3, -5, 10, 12"));
}

void tst_imagemapdrawing::positionsBeyondTheCornerClampOneCoordinate()
{
    test_->ClickButton(5);
    test_->Press({ 250, 150 });
    test_->Move({ 320, 210 });
    QCOMPARE(test_->End1And2(), QStringLiteral("300,200"));
    test_->Link("both.htm", [this] { test_->Release({ 320, 210 }); });
    QCOMPARE(test_->Row(0).at(3), QStringLiteral("250, 150, 300, 210"));

    test_->Press({ 250, 150 });
    test_->Move({ 260, 210 });
    test_->Link("below.htm", [this] { test_->Release({ 260, 210 }); });
    QCOMPARE(test_->Row(1).at(3), QStringLiteral("250, 150, 260, 200"));
}

void tst_imagemapdrawing::pressBesideThePictureDrawsNothing()
{
    test_->ClickButton(5);
    auto* const view = test_->Find<QWidget>("PicNosac");
    QTest::mousePress(view, Qt::LeftButton, {}, QPoint(400, 150));
    QTest::mouseMove(view, QPoint(100, 100));
    QTest::mouseRelease(view, Qt::LeftButton, {}, QPoint(100, 100));
    test_->Settle();
    QCOMPARE(test_->map.Ledger().FigureCount, 0);
    QCOMPARE(test_->map.Ledger().DrawState, drawIdle);
}

void tst_imagemapdrawing::toolChangedUnderAFigureLeavesNoTrace()
{
    const QImage before = test_->Pixels();
    test_->ClickButton(7);
    test_->ClickAt({ 20, 20 });
    test_->Move({ 80, 60 });
    test_->ClickButton(5);
    test_->Move({ 70, 50 });
    QCOMPARE(DifferentPlaces(before, test_->Pixels()), BoxOutline({ 20, 20 }, { 70, 50 }));
    test_->Link("now.htm", [this] { test_->ClickAt({ 70, 50 }); });
    QCOMPARE(test_->Row(0).at(0), QStringLiteral(" No: 1 Rectangle"));
    QCOMPARE(test_->Row(0).at(3), QStringLiteral("20, 20, 70, 50"));
}

void tst_imagemapdrawing::cursorFreezesTheFigureInProgress()
{
    const QImage before = test_->Pixels();
    test_->ClickButton(7);
    test_->ClickAt({ 20, 20 });
    test_->Move({ 80, 20 });
    test_->ClickButton(9);
    test_->Move({ 120, 90 });
    test_->ClickAt({ 120, 90 });
    QCOMPARE(test_->map.Ledger().DrawState, drawDrawing);
    QCOMPARE(DifferentPlaces(before, test_->Pixels()), BoxOutline({ 20, 20 }, { 80, 20 }));
    test_->ClickButton(7);
    test_->Move({ 20, 70 });
    QCOMPARE(DifferentPlaces(before, test_->Pixels()), BoxOutline({ 20, 20 }, { 20, 70 }));
}

void tst_imagemapdrawing::scrollingShiftsOnlyTheView()
{
    test_->OpenPicture({ 1500, 1200 });
    test_->DrawRectangle({ 150, 60 }, { 180, 90 });
    const FigureRecord before = test_->map.Ledger().Figures[0];
    const QImage pixels = test_->Pixels();
    test_->Find<QScrollBar>("HScroll1")->setValue(100);
    QCOMPARE(test_->Surface()->pos(), QPoint(-100, 0));
    test_->Find<QScrollBar>("VScroll1")->setValue(40);
    QCOMPARE(test_->Surface()->pos(), QPoint(-100, -40));
    QVERIFY(test_->map.Ledger().Figures[0] == before);
    QCOMPARE(test_->Pixels(), pixels);
    QTest::mouseMove(test_->Find<QWidget>("PicNosac"), QPoint(60, 30));
    QCOMPARE(test_->Cursor1And2(), QStringLiteral("160,70"));
    test_->DrawRectangle({ 200, 100 }, { 230, 120 });
    QCOMPARE(test_->Row(1).at(3), QStringLiteral("200, 100, 230, 120"));
}

void tst_imagemapdrawing::Turn(QPoint angle, Qt::KeyboardModifiers modifiers)
{
    const QPointF at(50, 50);
    QWheelEvent event(
        at, test_->Surface()->mapToGlobal(at), {}, angle, Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
    // Only what comes from outside goes on to the widgets around.
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(test_->Surface(), &event);
}

void tst_imagemapdrawing::wheelScrollsThePicture()
{
    test_->OpenPicture({ 1500, 1200 });
    Turn({ 0, -240 });
    const int down = test_->Find<QScrollBar>("VScroll1")->value();
    QVERIFY(down > 0);
    QCOMPARE(test_->Surface()->pos(), QPoint(0, -down));
    Turn({ 0, -120 }, Qt::ShiftModifier);
    const int right = test_->Find<QScrollBar>("HScroll1")->value();
    QVERIFY(right > 0);
    QCOMPARE(test_->Surface()->pos(), QPoint(-right, -down));
    Turn({ 120, 240 });
    QCOMPARE(test_->Surface()->pos(), QPoint(0, 0));
}

void tst_imagemapdrawing::fineStepsOfTheWheelAddUp()
{
    test_->OpenPicture({ 1500, 1200 });
    constexpr int steps = 60;
    constexpr int notch = 120;
    Turn({ 0, -notch });
    const int notchPixels = -test_->Surface()->y();
    QVERIFY(notchPixels > 0);
    for (int i = 0; i < steps; ++i) {
        Turn({ 0, -notch / steps });
        Turn({ -notch / steps, 0 });
    }
    QCOMPARE(test_->Surface()->pos(), QPoint(-notchPixels, -2 * notchPixels));
    // Back by steps that do not divide a notch.
    for (int i = 0; i < 2 * notch; ++i) {
        Turn({ 0, 1 });
    }
    QCOMPARE(test_->Surface()->y(), 0);
}

void tst_imagemapdrawing::toolbarShowsTheToolPressed()
{
    const auto pressed = [this] {
        QList<int> positions;
        const QList<QAction*> actions = test_->Find<QToolBar>("Toolbar1")->actions();
        for (int i = 0; i < actions.size(); ++i) {
            const auto* const button =
                qobject_cast<QToolButton*>(test_->Find<QToolBar>("Toolbar1")->widgetForAction(actions[i]));
            if (button != nullptr && button->isChecked()) {
                positions << i + 1;
            }
        }
        return positions;
    };
    QCOMPARE(pressed(), QList<int>{ 9 });
    for (const int position : { 5, 6, 7, 9 }) {
        test_->ClickButton(position);
        QCOMPARE(pressed(), QList<int>{ position });
        test_->ClickButton(position);
        QCOMPARE(pressed(), QList<int>{ position });
    }
    test_->Entry("mnuFigNum_6")->trigger();
    QCOMPARE(pressed(), QList<int>{ 6 });
}

void tst_imagemapdrawing::thirdPanelTellsWhatToDoNext()
{
    QCOMPARE(Hint(), QStringLiteral("Choose Rectangle, Circle or Line to draw an area"));
    test_->ClickButton(5);
    QCOMPARE(Hint(), QStringLiteral("Drag from one corner to the opposite one"));
    test_->ClickButton(6);
    QCOMPARE(Hint(), QStringLiteral("Drag from the centre outwards"));
    test_->ClickButton(7);
    QCOMPARE(Hint(), QStringLiteral("Click where the polygon begins"));
    const QString polygon = QStringLiteral("A click ends a side, the right button the polygon");
    for (const QPoint corner : { QPoint(20, 20), QPoint(80, 20), QPoint(80, 90) }) {
        test_->Move(corner);
        test_->ClickAt(corner);
        QCOMPARE(Hint(), polygon);
    }
    QCOMPARE(test_->Status(), QStringLiteral("Drawing Mode - Line, draw Polygons !"));
    test_->ClickButton(9);
    QCOMPARE(Hint(), QStringLiteral("Choose a tool to go on with the figure, Esc gives it up"));
    test_->ClickButton(7);
    QCOMPARE(Hint(), polygon);
    test_->Move({ 20, 90 });
    const QPointer<QDialog> dialog = test_->DialogOpenedBy([this] {
        test_->ClickAt({ 20, 90 }, Qt::RightButton);
    });
    QCOMPARE(Hint(), QStringLiteral("Enter where a click on the area leads"));
    TypeIn(dialog, "cmbLink", "area.htm");
    ClickIn(dialog, "SSCmdOK");
    QCOMPARE(Hint(), QStringLiteral("Click where the polygon begins"));
    test_->ClickButton(9);
    QCOMPARE(Hint(), QStringLiteral("A double click on a row edits its link"));

    test_->document.line = 17;
    test_->ClickButton(16);
    QCOMPARE(Hint(), QStringLiteral("Image map inserted in line 17 of the page"));
    test_->ClickButton(14);
    QCOMPARE(Hint(), QStringLiteral("Choose Rectangle, Circle or Line to draw an area"));
}

void tst_imagemapdrawing::thirdPanelFollowsTheMovedFigure()
{
    test_->ClickButton(5);
    test_->Press({ 20, 20 });
    const QString sizing = QStringLiteral("The right button held down moves the figure, Esc gives it up");
    QCOMPARE(Hint(), sizing);
    test_->Move({ 60, 50 });
    test_->Press({ 60, 50 }, Qt::RightButton);
    QCOMPARE(Hint(), QStringLiteral("Let go of the right button to go on with its size"));
    test_->Release({ 60, 50 }, Qt::RightButton);
    QCOMPARE(Hint(), sizing);
    test_->robot.Cancel();
    test_->Release({ 60, 50 });
    test_->robot.WaitUntilDone();
    QCOMPARE(Hint(), QStringLiteral("Drag from one corner to the opposite one"));
}

void tst_imagemapdrawing::escapeGivesUpWhatIsInProgress_data()
{
    QTest::addColumn<QByteArray>("focus");
    for (const char* const name :
         { "PictureDisplay", "txtName", "ListView1", "SSTab1", "HScroll1", "Check1" }) {
        QTest::newRow(name) << QByteArray(name);
    }
}

void tst_imagemapdrawing::escapeGivesUpWhatIsInProgress()
{
    QFETCH(const QByteArray, focus);
    test_->DrawRectangle({ 110, 110 }, { 140, 140 });
    const QImage before = test_->Pixels();
    auto* const widget = test_->Find<QWidget>(focus.constData());
    widget->setFocus();
    // The offscreen platform activates nothing when a dialog closes.
    test_->editor->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(test_->editor));
    const auto press = [this] { QTest::keyClick(test_->editor->windowHandle(), Qt::Key_Escape); };

    test_->ClickButton(7);
    for (const QPoint corner : { QPoint(20, 20), QPoint(80, 20), QPoint(80, 90) }) {
        test_->Move(corner);
        test_->ClickAt(corner);
    }
    test_->Move({ 20, 90 });
    QCOMPARE(test_->map.Ledger().FigureCount, 3);
    press();
    QCOMPARE(test_->Pixels(), before);
    QCOMPARE(test_->map.Ledger().FigureCount, 1);
    QCOMPARE(test_->map.Ledger().CurrentPolygonLineCount, 0);
    QCOMPARE(test_->map.Ledger().DrawState, drawIdle);
    QCOMPARE(test_->RowCount(), 1);
    QCOMPARE(Hint(), QStringLiteral("Click where the polygon begins"));

    test_->ClickButton(6);
    test_->Press({ 50, 50 });
    test_->Move({ 70, 60 });
    QVERIFY(test_->Pixels() != before);
    press();
    QCOMPARE(test_->Pixels(), before);
    test_->Release({ 70, 60 });
    test_->Settle();
    QCOMPARE(test_->map.Ledger().FigureCount, 1);
    QCOMPARE(test_->Status(), QStringLiteral("Drawing Mode - Circle !"));
    test_->DrawPolygon({ { 40, 40 }, { 90, 40 }, { 90, 90 } });
    QCOMPARE(test_->Row(1).at(3), QStringLiteral("40, 40, 90, 40, 90, 90"));
}

void tst_imagemapdrawing::escapeWithoutAFigureIsLeftToOthers()
{
    test_->DrawRectangle({ 110, 110 }, { 140, 140 });
    const QImage before = test_->Pixels();
    QTest::keyClick(test_->editor->windowHandle(), Qt::Key_Escape);
    QCOMPARE(test_->Pixels(), before);
    QCOMPARE(test_->RowCount(), 1);
    QVERIFY(test_->editor->isVisible());
    // The menu bar is left by it.
    auto* const bar = test_->Find<QMenuBar>("MenuBar1");
    bar->setFocus();
    bar->setActiveAction(bar->actions().constFirst());
    QTest::keyClick(bar, Qt::Key_Escape);
    QTRY_VERIFY(bar->activeAction() == nullptr || !bar->hasFocus());
}

void tst_imagemapdrawing::escapeTakesNothingThatIsBeingLinked()
{
    test_->ClickButton(7);
    QPointer<QDialog> dialog = test_->DialogOpenedBy([this] {
        test_->ClickCorners({ { 20, 20 }, { 80, 20 }, { 80, 90 } });
        // Before the dialog is there.
        QTest::keyClick(test_->editor->windowHandle(), Qt::Key_Escape);
    });
    TypeIn(dialog, "cmbLink", "area.htm");
    ClickIn(dialog, "SSCmdOK");
    QCOMPARE(test_->Row(0).at(3), QStringLiteral("20, 20, 80, 20, 80, 90"));
}

QTEST_MAIN(tst_imagemapdrawing)
#include "tst_imagemapdrawing.moc"
