// Closing the image map editor.

#include "tests/imagemap/EditorTest.h"
#include "tests/imagemap/EditorTexts.h"

class tst_imagemapclosing : public EditorTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Begin(); }
    void cleanup() { End(); }

    void exitWithoutFiguresCloses();
    void exitAsksAndStaysOnNo();
    void exitAsksOnceAndClosesOnYes();
    void closeBoxAsksUnderItsOwnTitle();
    void closeBoxClosesOnYes();
    void closeBoxWithoutFiguresCloses();
    void closingProgramTellsThatTheMapIsDeleted();
    void closingProgramWithoutFiguresTellsNothing();
    void closingProgramTakesAnOpenDialogAlong();
    void closingKeepsModeAndDefault();
    void closedWindowLeavesNoHalfDrawnFigure();
};

void tst_imagemapclosing::exitWithoutFiguresCloses()
{
    test_->OpenPicture();
    test_->ClickButton(18);
    QVERIFY(test_->Closes());
    QVERIFY(test_->robot.Boxes().isEmpty());
}

void tst_imagemapclosing::exitAsksAndStaysOnNo()
{
    test_->OpenPicture();
    test_->DrawRectangle({ 10, 10 }, { 40, 40 });
    test_->robot.AnswerBox(QMessageBox::No);
    test_->ClickButton(18);
    test_->Settle();
    QVERIFY(test_->editor != nullptr && test_->editor->isVisible());
    const DialogRobot::SeenBox box = test_->robot.Boxes().constFirst();
    QCOMPARE(box.text, deletionQuestion);
    QCOMPARE(box.title, QStringLiteral("Cartolen"));
    QCOMPARE(box.icon, QMessageBox::Question);
    QCOMPARE(box.buttons, yesNo);
    QCOMPARE(test_->map.Ledger().FigureCount, 1);
    QCOMPARE(test_->RowCount(), 1);
}

void tst_imagemapclosing::exitAsksOnceAndClosesOnYes()
{
    test_->OpenPicture();
    test_->DrawRectangle({ 10, 10 }, { 40, 40 });
    test_->robot.AnswerBox(QMessageBox::Yes);
    test_->Entry("mnuExit")->trigger();
    QVERIFY(test_->Closes());
    QCOMPARE(test_->robot.Boxes().size(), 1);
    QCOMPARE(test_->map.Ledger().FigureCount, 0);
}

void tst_imagemapclosing::closeBoxAsksUnderItsOwnTitle()
{
    test_->OpenPicture();
    test_->DrawRectangle({ 10, 10 }, { 40, 40 });
    test_->robot.AnswerBox(QMessageBox::No);
    QVERIFY(!test_->editor->close());
    QVERIFY(test_->editor->isVisible());
    const DialogRobot::SeenBox box = test_->robot.Boxes().constFirst();
    QCOMPARE(box.text, deletionQuestion);
    QCOMPARE(box.title, QStringLiteral("Client Side Image Map !"));
    QCOMPARE(box.icon, QMessageBox::Question);
    QCOMPARE(box.buttons, yesNo);
    QCOMPARE(test_->map.Ledger().FigureCount, 1);
    QCOMPARE(test_->RowCount(), 1);
}

void tst_imagemapclosing::closeBoxClosesOnYes()
{
    test_->OpenPicture();
    test_->DrawRectangle({ 10, 10 }, { 40, 40 });
    test_->robot.AnswerBox(QMessageBox::Yes);
    QVERIFY(test_->editor->close());
    QVERIFY(test_->Closes());
    QCOMPARE(test_->map.Ledger().FigureCount, 0);
}

void tst_imagemapclosing::closeBoxWithoutFiguresCloses()
{
    QVERIFY(test_->editor->close());
    QVERIFY(test_->Closes());
    QVERIFY(test_->robot.Boxes().isEmpty());
}

void tst_imagemapclosing::closingProgramTellsThatTheMapIsDeleted()
{
    test_->OpenPicture();
    test_->DrawRectangle({ 10, 10 }, { 40, 40 });
    test_->imgMap.ContinueAction = true;
    test_->robot.AnswerBox(QMessageBox::Ok);
    QVERIFY(test_->editor->close());
    QVERIFY(test_->Closes());
    const DialogRobot::SeenBox box = test_->robot.Boxes().constFirst();
    QCOMPARE(box.text, QStringLiteral("Your Image Map must be deleted"));
    QCOMPARE(box.title, QStringLiteral("Cartolen"));
    QCOMPARE(box.icon, QMessageBox::NoIcon);
    QCOMPARE(box.buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
    QCOMPARE(test_->map.Ledger().FigureCount, 0);
}

void tst_imagemapclosing::closingProgramWithoutFiguresTellsNothing()
{
    test_->imgMap.ContinueAction = true;
    QVERIFY(test_->editor->close());
    QVERIFY(test_->Closes());
    QVERIFY(test_->robot.Boxes().isEmpty());
}

void tst_imagemapclosing::closingProgramTakesAnOpenDialogAlong()
{
    test_->OpenPicture();
    test_->ClickButton(5);
    const QPointer<QDialog> dialog = test_->DialogOpenedBy([this] { test_->Drag({ 10, 10 }, { 40, 40 }); });
    test_->imgMap.ContinueAction = true;
    QVERIFY(test_->editor->close());
    QVERIFY(test_->Closes());
    QVERIFY(dialog == nullptr);
    // The figure had no area yet and went with the dialog, so there is no map to speak of.
    QVERIFY(test_->robot.Boxes().isEmpty());
    QCOMPARE(test_->map.Ledger().FigureCount, 0);
}

void tst_imagemapclosing::closingKeepsModeAndDefault()
{
    test_->OpenPicture();
    test_->DrawRectangle({ 10, 10 }, { 40, 40 });
    test_->map.Script().SetMode(JSSwitchImages);
    test_->map.Script().SetModeDefault(QStringLiteral("default.gif"));
    test_->robot.AnswerBox(QMessageBox::Yes);
    test_->ClickButton(18);
    QVERIFY(test_->Closes());
    QCOMPARE(test_->map.Script().Mode(), JSSwitchImages);
    QCOMPARE(test_->map.Script().ModeDefault(), QStringLiteral("default.gif"));
}

void tst_imagemapclosing::closedWindowLeavesNoHalfDrawnFigure()
{
    test_->OpenPicture();
    test_->ClickButton(7);
    test_->ClickAt({ 20, 20 });
    test_->Move({ 60, 20 });
    test_->ClickAt({ 60, 20 });
    QCOMPARE(test_->map.Ledger().CurrentPolygonLineCount, 1);
    test_->robot.AnswerBox(QMessageBox::Yes);
    QVERIFY(test_->editor->close());
    QVERIFY(test_->Closes());
    QCOMPARE(test_->map.Ledger().CurrentPolygonLineCount, 0);
    QCOMPARE(test_->map.Ledger().DrawState, drawIdle);
}

QTEST_MAIN(tst_imagemapclosing)

#include "tst_imagemapclosing.moc"
