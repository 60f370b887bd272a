// Starting a new map on the picture of the image map editor.

#include "tests/imagemap/EditorTest.h"
#include "tests/imagemap/EditorTexts.h"

class tst_newimagemap : public EditorTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Begin(); }
    void cleanup() { End(); }

    void newImageMapAsksAndKeepsTheMapOnNo();
    void newImageMapKeepsPictureAndAttributes();
    void newImageMapTakesTheModesPlainHeaderButKeepsItsDefault();
    void newImageMapWithoutFiguresAsksNothing();
    void rowsLeftOverGoWithoutAQuestion_data();
    void rowsLeftOverGoWithoutAQuestion();
    void cancelledOpeningKeepsRowsLeftOver();

private:
    void LeaveRowWithoutFigures();
};

void tst_newimagemap::newImageMapAsksAndKeepsTheMapOnNo()
{
    test_->OpenPicture();
    test_->DrawRectangle({ 10, 10 }, { 40, 40 });
    test_->robot.AnswerBox(QMessageBox::No);
    test_->ClickButton(2);
    const DialogRobot::SeenBox box = test_->robot.Boxes().constFirst();
    QCOMPARE(box.text, deletionQuestion);
    QCOMPARE(box.title, QStringLiteral("Cartolen"));
    QCOMPARE(box.icon, QMessageBox::Question);
    QCOMPARE(box.buttons, yesNo);
    QCOMPARE(test_->map.Ledger().FigureCount, 1);
    QCOMPARE(test_->RowCount(), 1);
}

void tst_newimagemap::newImageMapKeepsPictureAndAttributes()
{
    test_->OpenPicture();
    const QImage blank = test_->Pixels();
    TypeIn(test_->editor, "txtName", "Harbour");
    TypeIn(test_->editor, "txtAltDescript", "View");
    TypeIn(test_->editor, "txtImgWidth", "77");
    test_->DrawRectangle({ 10, 10 }, { 40, 40 });
    test_->robot.AnswerBox(QMessageBox::Yes);
    test_->ClickButton(2);
    QCOMPARE(test_->map.Ledger().FigureCount, 0);
    QCOMPARE(test_->RowCount(), 0);
    QCOMPARE(test_->Pixels(), blank);
    QCOMPARE(test_->Find<QLineEdit>("txtName")->text(), QStringLiteral("Harbour"));
    QCOMPARE(test_->Find<QLineEdit>("txtAltDescript")->text(), QStringLiteral("View"));
    QCOMPARE(test_->Find<QLineEdit>("txtImgWidth")->text(), QStringLiteral("77"));
    QCOMPARE(test_->Text("StatusBar1_Panel2"), QStringLiteral("picture.jpg"));
    QCOMPARE(test_->EnabledButtons(), buttonsWithPicture);
    QCOMPARE(test_->CheckedTools(), QStringList{ QStringLiteral("mnuFigNum_5") });
    QCOMPARE(test_->Text("lblFigures") + test_->Start1And2(), QString());
}

void tst_newimagemap::newImageMapTakesTheModesPlainHeaderButKeepsItsDefault()
{
    test_->map.Script().SetMode(JSTextArea);
    test_->OpenPicture();
    test_->ClickButton(5);
    const QPointer<QDialog> dialog = test_->DialogOpenedBy([this] { test_->Drag({ 10, 10 }, { 40, 40 }); });
    TypeIn(dialog, "cmbLink", "a.htm");
    TypeIn(dialog, "txtDefaultTAreaMessage", "Welcome");
    TypeIn(dialog, "txtSwitchingTAreaMessage", "Here");
    ClickIn(dialog, "SSCmdOK");
    QCOMPARE(test_->MessageHeader(), QStringLiteral(" Text Area Messages (Default Message:Welcome):"));
    test_->robot.AnswerBox(QMessageBox::Yes);
    test_->Entry("mnuNew")->trigger();
    QCOMPARE(test_->MessageHeader(), QStringLiteral(" Switching Text Area Messages:"));
    QCOMPARE(test_->map.Script().ModeDefault(), QStringLiteral("Welcome"));
}

void tst_newimagemap::newImageMapWithoutFiguresAsksNothing()
{
    test_->OpenPicture();
    test_->ClickButton(7);
    test_->ClickAt({ 20, 20 });
    QCOMPARE(test_->map.Ledger().DrawState, drawDrawing);
    test_->ClickButton(2);
    test_->Settle();
    QVERIFY(test_->robot.Boxes().isEmpty());
    QCOMPARE(test_->map.Ledger().DrawState, drawIdle);
    QCOMPARE(test_->EnabledButtons(), buttonsWithPicture);
}

/** A polygon drawn after one was deleted takes the first with it when it is deleted, but only its own row. */
void tst_newimagemap::LeaveRowWithoutFigures()
{
    test_->OpenPicture();
    const QList<QPoint> corners = { { 10, 10 }, { 90, 20 }, { 50, 80 }, { 20, 70 } };
    test_->DrawPolygon(corners);
    test_->DrawPolygon(corners);
    test_->ClickButton(14);
    test_->DrawPolygon(corners);
    test_->ClickButton(14);
    QCOMPARE(test_->map.Ledger().FigureCount, 0);
    QCOMPARE(test_->RowCount(), 1);
}

void tst_newimagemap::rowsLeftOverGoWithoutAQuestion_data()
{
    QTest::addColumn<int>("button");
    QTest::newRow("New") << 2;
    QTest::newRow("Open") << 3;
}

void tst_newimagemap::rowsLeftOverGoWithoutAQuestion()
{
    QFETCH(const int, button);
    LeaveRowWithoutFigures();
    if (button == 3) {
        test_->OpenPicture({ 250, 150 });
    } else {
        // A figure that is started enables the button.
        test_->ClickAt({ 20, 20 });
        test_->ClickButton(2);
    }
    QCOMPARE(test_->RowCount(), 0);
    QVERIFY(test_->robot.Boxes().isEmpty());
    test_->DrawCircle({ 100, 100 }, { 120, 110 });
    QCOMPARE(test_->Row(0).at(0), QStringLiteral(" No: 1 Circle"));
}

void tst_newimagemap::cancelledOpeningKeepsRowsLeftOver()
{
    LeaveRowWithoutFigures();
    test_->robot.Cancel();
    test_->ClickButton(3);
    QCOMPARE(test_->RowCount(), 1);
}

QTEST_MAIN(tst_newimagemap)

#include "tst_newimagemap.moc"
