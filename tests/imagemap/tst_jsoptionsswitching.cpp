// Switching the mode in the JavaScript options.

#include "tests/imagemap/OptionsDialogTest.h"

#include <QCheckBox>
#include <QRadioButton>

namespace {

const QString switchQuestion =
    QStringLiteral("In order to switch Java Script options, your current Image Map must be deleted. "
                   "Do you want to delete your Image Map?");

} // namespace

class tst_jsoptionsswitching : public OptionsDialogTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { BeginWithPicture(); }
    void cleanup() { End(); }

    void clickSwitchesAtOnceWithoutFigures_data();
    void clickSwitchesAtOnceWithoutFigures();
    void clickWithoutFiguresKeepsThePictureUsable();
    void pressWithoutFiguresTakesThePlainHeader();
    void clickAbandonsTheFigureBeingDrawn();

    void clickWithFiguresAsks();
    void noKeepsModeAndMap();
    void yesDeletesTheMapAndSwitches();
    void sameOptionStillAsks();
    void yesForTheSameOptionDeletesTheMap();
    void doubleClickAsksOnce();
    void secondClickAsksAgainAfterNo();
    void otherMouseButtonsAskNothing();
    void pressBesideTheOptionAsksNothing();

    void keyboardSwitchesAndLeavesTheFigures();
    void arrowKeysSwitchAtOnce();
};

void tst_jsoptionsswitching::clickSwitchesAtOnceWithoutFigures_data()
{
    QTest::addColumn<int>("mode");

    for (int mode = 0; mode < 5; ++mode) {
        QTest::addRow("%d", mode) << mode;
    }
}

void tst_jsoptionsswitching::clickSwitchesAtOnceWithoutFigures()
{
    QFETCH(const int, mode);

    test_->map.Script().SetMode(mode == 1 ? JSToolTips : JSStatusBar);
    test_->map.Script().SetModeDefault(QStringLiteral("kept"));
    OpenOptions();
    ClickOption(mode);
    test_->Settle();
    QVERIFY(test_->robot.Boxes().isEmpty());
    QCOMPARE(SelectedOption(), mode);
    QCOMPARE(test_->map.Script().Mode(), static_cast<JSMode>(mode));
    QCOMPARE(test_->MessageHeader(), modeHeaders[mode]);
    QCOMPARE(test_->map.Script().ModeDefault(), QStringLiteral("kept"));
    dialog_->close();
}

void tst_jsoptionsswitching::clickWithoutFiguresKeepsThePictureUsable()
{
    test_->Move({ 30, 40 });
    OpenOptions();
    ClickOption(3);
    dialog_->close();
    QVERIFY(test_->Find<QCheckBox>("Check1")->isEnabled());
    QCOMPARE(test_->Cursor1And2(), QStringLiteral("30,40"));
}

void tst_jsoptionsswitching::pressWithoutFiguresTakesThePlainHeader()
{
    test_->map.Script().SetMode(JSSwitchImages);
    test_->TakeDefault(QStringLiteral("out.gif"));
    QCOMPARE(test_->MessageHeader(), QStringLiteral(" Switching Images (Default Image:out.gif):"));
    OpenOptions();
    ClickOption(2);
    QCOMPARE(test_->MessageHeader(), modeHeaders[2]);
    dialog_->close();
}

void tst_jsoptionsswitching::clickAbandonsTheFigureBeingDrawn()
{
    const QImage before = test_->Pixels();
    test_->ClickButton(7);
    test_->ClickAt({ 20, 20 });
    test_->Move({ 60, 20 });
    QVERIFY(test_->Pixels() != before);
    OpenOptions();
    ClickOption(4);
    QCOMPARE(test_->map.Ledger().DrawState, drawIdle);
    QCOMPARE(test_->Pixels(), before);
    QVERIFY(!test_->Button(14)->isEnabled());
    dialog_->close();
}

void tst_jsoptionsswitching::clickWithFiguresAsks()
{
    test_->DrawRectangle({ 10, 10 }, { 40, 40 });
    OpenOptions();
    test_->robot.AnswerBox(QMessageBox::No);
    ClickOption(3);
    QTRY_COMPARE(test_->robot.Boxes().size(), 1);
    const DialogRobot::SeenBox box = test_->robot.Boxes().constFirst();
    QCOMPARE(box.text, switchQuestion);
    QCOMPARE(box.title, QStringLiteral("Cartolen"));
    QCOMPARE(box.icon, QMessageBox::Question);
    QCOMPARE(box.buttons, QMessageBox::StandardButtons(QMessageBox::Yes | QMessageBox::No));
    test_->Settle();
    dialog_->close();
}

void tst_jsoptionsswitching::noKeepsModeAndMap()
{
    test_->map.Script().SetMode(JSStatusBar);
    test_->DrawRectangle({ 10, 10 }, { 40, 40 });
    test_->map.Script().SetModeDefault(QStringLiteral("kept"));
    const QString header = test_->MessageHeader();
    const QImage before = test_->Pixels();
    OpenOptions();
    test_->robot.AnswerBox(QMessageBox::No);
    ClickOption(3);
    QTRY_COMPARE(test_->robot.Boxes().size(), 1);
    test_->Settle();
    QCOMPARE(SelectedOption(), 1);
    QCOMPARE(test_->map.Script().Mode(), JSStatusBar);
    QCOMPARE(test_->map.Script().ModeDefault(), QStringLiteral("kept"));
    QCOMPARE(test_->MessageHeader(), header);
    QCOMPARE(test_->map.Ledger().FigureCount, 1);
    QCOMPARE(test_->RowCount(), 1);
    QCOMPARE(test_->Pixels(), before);
    QVERIFY(dialog_ != nullptr && dialog_->isVisible());
    dialog_->close();
}

void tst_jsoptionsswitching::yesDeletesTheMapAndSwitches()
{
    const QImage blank = test_->Pixels();
    test_->map.Script().SetMode(JSStatusBar);
    test_->DrawRectangle({ 10, 10 }, { 40, 40 });
    test_->map.Script().SetModeDefault(QStringLiteral("gone"));
    OpenOptions();
    test_->robot.AnswerBox(QMessageBox::Yes);
    ClickOption(3);
    QTRY_COMPARE(test_->map.Script().Mode(), JSTextArea);
    QCOMPARE(SelectedOption(), 3);
    QCOMPARE(test_->MessageHeader(), modeHeaders[3]);
    QCOMPARE(test_->map.Script().ModeDefault(), QString());
    QCOMPARE(test_->map.Ledger().FigureCount, 0);
    QCOMPARE(test_->RowCount(), 0);
    QCOMPARE(test_->Text("lblFigures") + test_->Start1And2() + test_->Cursor1And2(), QString());
    QCOMPARE(test_->Pixels(), blank);
    const QList<int> withoutFigures = { 3, 5, 6, 7, 9, 11, 18 };
    QCOMPARE(test_->EnabledButtons(), withoutFigures);
    QVERIFY(test_->editor->isVisible());
    QVERIFY(dialog_ != nullptr && dialog_->isVisible());
    // Nothing is left to ask about.
    ClickOption(2);
    test_->Settle();
    QCOMPARE(test_->robot.Boxes().size(), 1);
    QCOMPARE(test_->map.Script().Mode(), JSSwitchImages);
    dialog_->close();
}

void tst_jsoptionsswitching::sameOptionStillAsks()
{
    test_->DrawRectangle({ 10, 10 }, { 40, 40 });
    OpenOptions();
    test_->robot.AnswerBox(QMessageBox::No);
    ClickOption(0);
    QTRY_COMPARE(test_->robot.Boxes().size(), 1);
    test_->Settle();
    QCOMPARE(SelectedOption(), 0);
    QCOMPARE(test_->map.Ledger().FigureCount, 1);
    dialog_->close();
}

void tst_jsoptionsswitching::yesForTheSameOptionDeletesTheMap()
{
    test_->map.Script().SetMode(JSTextArea);
    test_->map.Script().SetModeDefault(QStringLiteral("Welcome"));
    test_->ClickButton(5);
    const QPointer<QDialog> link = test_->DialogOpenedBy([this] { test_->Drag({ 10, 10 }, { 40, 40 }); });
    TypeIn(link, "cmbLink", "a.htm");
    TypeIn(link, "txtSwitchingTAreaMessage", "Here");
    ClickIn(link, "SSCmdOK");
    OpenOptions();
    test_->robot.AnswerBox(QMessageBox::Yes);
    ClickOption(3);
    QTRY_COMPARE(test_->map.Ledger().FigureCount, 0);
    test_->Settle();
    QCOMPARE(SelectedOption(), 3);
    QCOMPARE(test_->map.Script().Mode(), JSTextArea);
    QCOMPARE(test_->map.Script().ModeDefault(), QString());
    QCOMPARE(test_->MessageHeader(), modeHeaders[3]);
    QCOMPARE(test_->RowCount(), 0);
    dialog_->close();
}

void tst_jsoptionsswitching::doubleClickAsksOnce()
{
    test_->DrawRectangle({ 10, 10 }, { 40, 40 });
    OpenOptions();
    test_->robot.AnswerBox(QMessageBox::No);
    QTest::mouseDClick(Option(3), Qt::LeftButton, {}, QPoint(30, Option(3)->height() / 2));
    QTRY_COMPARE(test_->robot.Boxes().size(), 1);
    test_->Settle();
    QCOMPARE(test_->robot.Boxes().size(), 1);
    QCOMPARE(SelectedOption(), 0);
    dialog_->close();
}

void tst_jsoptionsswitching::secondClickAsksAgainAfterNo()
{
    test_->DrawRectangle({ 10, 10 }, { 40, 40 });
    OpenOptions();
    test_->robot.AnswerBox(QMessageBox::No);
    ClickOption(3);
    QTRY_COMPARE(test_->robot.Boxes().size(), 1);
    test_->Settle();
    test_->robot.AnswerBox(QMessageBox::Yes);
    ClickOption(4);
    QTRY_COMPARE(test_->map.Script().Mode(), JSToolTips);
    QCOMPARE(SelectedOption(), 4);
    dialog_->close();
}

void tst_jsoptionsswitching::otherMouseButtonsAskNothing()
{
    test_->DrawRectangle({ 10, 10 }, { 40, 40 });
    OpenOptions();
    ClickOption(3, Qt::RightButton);
    ClickOption(3, Qt::MiddleButton);
    test_->Settle();
    QVERIFY(test_->robot.Boxes().isEmpty());
    QCOMPARE(SelectedOption(), 0);
    QCOMPARE(test_->map.Script().Mode(), JSDisabled);
    dialog_->close();
}

void tst_jsoptionsswitching::pressBesideTheOptionAsksNothing()
{
    // The places across the widest row where a click switches, while there is nothing to ask about.
    OpenOptions();
    QRadioButton* option = Option(4);
    const auto place = [&option](int tenth) {
        return QPoint(1 + tenth * (option->width() - 3) / 10, option->height() / 2);
    };
    QList<bool> switches;
    for (int tenth = 0; tenth <= 10; ++tenth) {
        Option(0)->click();
        QTest::mouseClick(option, Qt::LeftButton, {}, place(tenth));
        switches << option->isChecked();
    }
    QVERIFY(switches.contains(true));
    Option(0)->click();
    dialog_->close();

    test_->DrawRectangle({ 10, 10 }, { 40, 40 });
    OpenOptions();
    option = Option(4);
    for (int tenth = 0; tenth <= 10; ++tenth) {
        const qsizetype before = test_->robot.Boxes().size();
        if (switches[tenth]) {
            test_->robot.AnswerBox(QMessageBox::No);
        }
        QTest::mouseClick(option, Qt::LeftButton, {}, place(tenth));
        test_->Settle();
        QCOMPARE(test_->robot.Boxes().size() > before, switches[tenth]);
    }
    // The column is as wide as its longest option, so a short one has such places in any style.
    QTest::mouseClick(Option(0), Qt::LeftButton, {}, QPoint(Option(0)->width() - 2, Option(0)->height() / 2));
    test_->Settle();
    QCOMPARE(test_->robot.Boxes().size(), switches.count(true));
    dialog_->close();
}

void tst_jsoptionsswitching::keyboardSwitchesAndLeavesTheFigures()
{
    test_->DrawRectangle({ 10, 10 }, { 40, 40 });
    const QImage before = test_->Pixels();
    OpenOptions();
    Option(4)->setFocus();
    QTest::keyClick(Option(4), Qt::Key_Space);
    test_->Settle();
    QVERIFY(test_->robot.Boxes().isEmpty());
    QCOMPARE(SelectedOption(), 4);
    QCOMPARE(test_->map.Script().Mode(), JSToolTips);
    QCOMPARE(test_->MessageHeader(), modeHeaders[4]);
    QCOMPARE(test_->map.Ledger().FigureCount, 1);
    QCOMPARE(test_->RowCount(), 1);
    QCOMPARE(test_->Pixels(), before);
    dialog_->close();
}

void tst_jsoptionsswitching::arrowKeysSwitchAtOnce()
{
    test_->DrawRectangle({ 10, 10 }, { 40, 40 });
    OpenOptions();
    Option(0)->setFocus();
    QTest::keyClick(Option(0), Qt::Key_Down);
    test_->Settle();
    QVERIFY(test_->robot.Boxes().isEmpty());
    QCOMPARE(SelectedOption(), 1);
    QCOMPARE(test_->map.Script().Mode(), JSStatusBar);
    QCOMPARE(test_->MessageHeader(), modeHeaders[1]);
    QCOMPARE(test_->map.Ledger().FigureCount, 1);
    dialog_->close();
}

QTEST_MAIN(tst_jsoptionsswitching)

#include "tst_jsoptionsswitching.moc"
