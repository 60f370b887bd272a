// Drawing rectangles and circles on the picture of the image map editor with the mouse.

#include "tests/imagemap/EditorTest.h"
#include "tests/imagemap/Places.h"

#include <QScreen>
#include <cmath>

class tst_imagemapdrawing : public EditorTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { BeginWithPicture(); }
    void cleanup() { End(); }

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

    void firstFigureShowsNoughtLines();
    void cursorLabelsShowTheRawPosition();
    void positionsLeftAndAboveAreStoredAsTheyAre();
    void positionsBeyondTheCornerClampOneCoordinate();
    void pressBesideThePictureDrawsNothing();
};

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

QTEST_MAIN(tst_imagemapdrawing)

#include "tst_imagemapdrawing.moc"
