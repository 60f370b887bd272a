#include "DrawnAreasTest.h"

/** The picture shifted with the mouse, while other buttons and keys are used too. */
class tst_picturepanning : public DrawnAreasTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { End(); }

    void aFigureInProgressEndsWhileThePictureIsShifted();
    void otherButtonsDoNotEndTheShifting();
    void theSpaceBarIsForgottenWithTheFocus();

private:
    /** The mouse, with `held` down, goes to a place of the screen. */
    void MoveTo(QPoint place, Qt::MouseButtons held)
    {
        const QPointF local = test_->Surface()->mapFromGlobal(place);
        QMouseEvent move(QEvent::MouseMove, local, place, Qt::NoButton, held, {});
        QApplication::sendEvent(test_->Surface(), &move);
    }
    [[nodiscard]] int Shift() const { return test_->Find<QScrollBar>("HScroll1")->value(); }
};

void tst_picturepanning::init()
{
    Begin();
    test_->OpenPicture({ 1600, 1200 });
}

void tst_picturepanning::aFigureInProgressEndsWhileThePictureIsShifted()
{
    test_->ClickButton(5);
    test_->Press({ 20, 20 });
    test_->Move({ 60, 50 });
    QVERIFY(test_->map.Drawing().IsInProgress());
    test_->Press({ 60, 50 }, Qt::MiddleButton);
    const QPointer<QDialog> dialog = test_->DialogOpenedBy([this] { test_->Release({ 60, 50 }); });
    test_->Release({ 60, 50 }, Qt::MiddleButton);
    TypeIn(dialog, "cmbLink", "area.htm");
    ClickIn(dialog, "SSCmdOK");
    test_->robot.WaitUntilDone();
    QCOMPARE(test_->RowCount(), 1);
    QCOMPARE(test_->map.Areas().at(0).Coordinates, (QList{ 20, 20, 60, 50 }));
}

void tst_picturepanning::otherButtonsDoNotEndTheShifting()
{
    const QPoint start = test_->Surface()->mapToGlobal(QPoint(300, 100));
    test_->Press({ 300, 100 }, Qt::MiddleButton);
    MoveTo(start - QPoint(50, 0), Qt::MiddleButton);
    QCOMPARE(Shift(), 50);
    test_->ClickAt({ 300, 100 }, Qt::RightButton);
    MoveTo(start - QPoint(80, 0), Qt::MiddleButton);
    QCOMPARE(Shift(), 80);
    QTest::mouseRelease(
        test_->Surface(), Qt::MiddleButton, {}, test_->Surface()->mapFromGlobal(start - QPoint(80, 0)));
    MoveTo(start, {});
    QCOMPARE(Shift(), 80);
}

void tst_picturepanning::theSpaceBarIsForgottenWithTheFocus()
{
    test_->ClickButton(5);
    Activate();
    test_->Surface()->setFocus();
    QTest::keyPress(test_->Surface(), Qt::Key_Space);
    // The key is let go of in another window, or in another control.
    test_->List()->setFocus();
    test_->Press({ 300, 100 });
    test_->Move({ 330, 130 });
    QVERIFY(test_->map.Drawing().IsInProgress());
    QCOMPARE(Shift(), 0);
}

QTEST_MAIN(tst_picturepanning)
#include "tst_picturepanning.moc"
