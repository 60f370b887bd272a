#include "tests/imagemap/EditorFixture.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QRadioButton>
#include <QScreen>
#include <algorithm>
#include <memory>

namespace {

const QString switchQuestion =
    QStringLiteral("In order to switch Java Script options, your current Image Map must be deleted. "
                   "Do you want to delete your Image Map?");

const QStringList modeHeaders = {
    QStringLiteral(" Java Script Disabled - No Messages will be inserted!"),
    QStringLiteral(" Status Bar Messages (Netscape), and Tool Tips (MSIE):"),
    QStringLiteral(" Switching Images:"),
    QStringLiteral(" Switching Text Area Messages:"),
    QStringLiteral(" Tool Tip Messages:"),
};

} // namespace

class tst_frmjsoptions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void dialogShowsItsTexts();
    void helpButtonShowsThePageOfTheOptions();
    void dialogIsModalAndCentred();
    void firstOpeningSelectsDisabled();
    void loadingSelectsTheModeInForce_data();
    void loadingSelectsTheModeInForce();
    void optionInForceHasTheFocus_data() { loadingSelectsTheModeInForce_data(); }
    void optionInForceHasTheFocus();
    void loadingAppliesNothing();

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

    void closingChangesNothingFurther_data();
    void closingChangesNothingFurther();
    void statusIsThatOfTheToolAfterClosing_data();
    void statusIsThatOfTheToolAfterClosing();

private:
    QRadioButton* Option(int index);
    void OpenOptions();
    /** Clicks where the option's text stands. */
    void ClickOption(int index, Qt::MouseButton button = Qt::LeftButton);
    int SelectedOption();
    std::unique_ptr<EditorFixture> test_;
    QPointer<QDialog> dialog_;
};

void tst_frmjsoptions::init()
{
    test_ = std::make_unique<EditorFixture>();
    QVERIFY(test_->Start());
    test_->OpenPicture({ 300, 200 });
}

void tst_frmjsoptions::cleanup()
{
    const QString problems = test_->robot.Problems();
    test_.reset();
    QVERIFY2(problems.isEmpty(), qPrintable(problems));
}

void tst_frmjsoptions::OpenOptions()
{
    dialog_ = test_->DialogOpenedBy([this] { test_->Entry("mnuJSOptions")->trigger(); });
}

QRadioButton* tst_frmjsoptions::Option(int index)
{
    return Find<QRadioButton>(dialog_, qPrintable(QStringLiteral("optJSOpt_%1").arg(index)));
}

void tst_frmjsoptions::ClickOption(int index, Qt::MouseButton button)
{
    QTest::mouseClick(Option(index), button, {}, QPoint(30, Option(index)->height() / 2));
}

int tst_frmjsoptions::SelectedOption()
{
    int selected = -1;
    for (int i = 0; i < 5; ++i) {
        if (Option(i)->isChecked()) {
            selected = selected == -1 ? i : -2;
        }
    }
    return selected;
}

void tst_frmjsoptions::dialogShowsItsTexts()
{
    OpenOptions();
    QCOMPARE(dialog_->objectName(), QStringLiteral("frmJSOptions"));
    QCOMPARE(dialog_->windowTitle(), QStringLiteral("Java Script Options"));
    const QStringList captions = { QStringLiteral("Disable Java Script"),
                                   QStringLiteral("On Mouse Over - Status Bar Messages, and Tool Tips"),
                                   QStringLiteral("On Mouse Over - Switching Images"),
                                   QStringLiteral("On Mouse Over - Text Area Messages"),
                                   QStringLiteral("On Mouse Over - Tool Tip Messages") };
    const QStringList explanations = {
        QStringLiteral(
            "This option will generate standard Image Map with URLs shown in Browser's Status Bar"),
        QStringLiteral(
            "Use this option to display your custom messages in the Netscape's Status Bar. For MSIE, same "
            "message will be shown as a Tool Tip."),
        QStringLiteral(
            "This option will switch other images in your page when you move mouse over different areas of "
            "your Image Map."),
        QStringLiteral(
            "This option uses textarea to show your messages when you move mouse over different areas of "
            "your Image Map. "),
        QStringLiteral(
            "Use this option to display your messages in the form of Tool Tips for both, Netscape and "
            "MSIE."),
    };
    const auto* const frame = Find<QGroupBox>(dialog_, "Frame1");
    QCOMPARE(frame->findChildren<QRadioButton*>().size(), 5);
    const QList<QLabel*> labels = frame->findChildren<QLabel*>();
    QCOMPARE(labels.size(), 5);
    for (int i = 0; i < 5; ++i) {
        QCOMPARE(Option(i)->text(), captions[i]);
        const auto beside = std::find_if(labels.begin(), labels.end(), [this, i](const QLabel* label) {
            return label->geometry().top() <= Option(i)->geometry().bottom() &&
                   label->geometry().bottom() >= Option(i)->geometry().top();
        });
        QVERIFY(beside != labels.end());
        QCOMPARE((*beside)->text(), explanations[i]);
    }
    QCOMPARE(Find<QPushButton>(dialog_, "cmdOK")->text(), QString());
    ClickIn(dialog_, "cmdOK");
    QTRY_VERIFY(dialog_ == nullptr);
}

void tst_frmjsoptions::helpButtonShowsThePageOfTheOptions()
{
    OpenOptions();
    ClickIn(dialog_, "cmdHelp");
    QCOMPARE(test_->help.Asked, QStringList({ QStringLiteral("javascript-options") }));
    QVERIFY(dialog_->isVisible());
}

void tst_frmjsoptions::dialogIsModalAndCentred()
{
    OpenOptions();
    QVERIFY(dialog_->isModal());
    const QRect screen = dialog_->screen()->geometry();
    QCOMPARE(dialog_->x(), screen.left() + (screen.width() - dialog_->width()) / 2);
    QCOMPARE(dialog_->y(), screen.top() + (screen.height() - dialog_->height()) / 2);
    QCOMPARE(test_->Status(), QStringLiteral("Set Java Script Options!"));
    dialog_->close();
}

void tst_frmjsoptions::firstOpeningSelectsDisabled()
{
    OpenOptions();
    QCOMPARE(SelectedOption(), 0);
    QCOMPARE(test_->MessageHeader(), modeHeaders[0]);
    QCOMPARE(test_->map.Mode(), JSDisabled);
    dialog_->close();
}

void tst_frmjsoptions::loadingSelectsTheModeInForce_data()
{
    QTest::addColumn<int>("mode");

    for (int mode = 0; mode < 5; ++mode) {
        QTest::addRow("%d", mode) << mode;
    }
}

void tst_frmjsoptions::loadingSelectsTheModeInForce()
{
    QFETCH(const int, mode);

    test_->map.SetMode(static_cast<JSMode>(mode));
    OpenOptions();
    QCOMPARE(SelectedOption(), mode);
    QCOMPARE(test_->map.Mode(), static_cast<JSMode>(mode));
    dialog_->close();
}

void tst_frmjsoptions::optionInForceHasTheFocus()
{
    QFETCH(const int, mode);
    test_->map.SetMode(static_cast<JSMode>(mode));
    OpenOptions();
    QVERIFY(QTest::qWaitForWindowActive(dialog_));
    QCOMPARE(dialog_->focusWidget(), Option(mode));
}

void tst_frmjsoptions::loadingAppliesNothing()
{
    test_->map.SetMode(JSSwitchImages);
    test_->TakeDefault(QStringLiteral("out.gif"));
    const QString extended = QStringLiteral(" Switching Images (Default Image:out.gif):");
    QCOMPARE(test_->MessageHeader(), extended);
    OpenOptions();
    QCOMPARE(test_->MessageHeader(), extended);
    ClickIn(dialog_, "cmdOK");
    QTRY_VERIFY(dialog_ == nullptr);
    QCOMPARE(test_->MessageHeader(), extended);
    QCOMPARE(test_->map.ModeDefault(), QStringLiteral("out.gif"));
    QCOMPARE(test_->map.Mode(), JSSwitchImages);
}

void tst_frmjsoptions::clickSwitchesAtOnceWithoutFigures_data()
{
    QTest::addColumn<int>("mode");

    for (int mode = 0; mode < 5; ++mode) {
        QTest::addRow("%d", mode) << mode;
    }
}

void tst_frmjsoptions::clickSwitchesAtOnceWithoutFigures()
{
    QFETCH(const int, mode);

    test_->map.SetMode(mode == 1 ? JSToolTips : JSStatusBar);
    test_->map.SetModeDefault(QStringLiteral("kept"));
    OpenOptions();
    ClickOption(mode);
    test_->Settle();
    QVERIFY(test_->robot.Boxes().isEmpty());
    QCOMPARE(SelectedOption(), mode);
    QCOMPARE(test_->map.Mode(), static_cast<JSMode>(mode));
    QCOMPARE(test_->MessageHeader(), modeHeaders[mode]);
    QCOMPARE(test_->map.ModeDefault(), QStringLiteral("kept"));
    dialog_->close();
}

void tst_frmjsoptions::clickWithoutFiguresKeepsThePictureUsable()
{
    test_->Move({ 30, 40 });
    OpenOptions();
    ClickOption(3);
    dialog_->close();
    QVERIFY(test_->Find<QCheckBox>("Check1")->isEnabled());
    QCOMPARE(test_->Cursor1And2(), QStringLiteral("30,40"));
}

void tst_frmjsoptions::pressWithoutFiguresTakesThePlainHeader()
{
    test_->map.SetMode(JSSwitchImages);
    test_->TakeDefault(QStringLiteral("out.gif"));
    QCOMPARE(test_->MessageHeader(), QStringLiteral(" Switching Images (Default Image:out.gif):"));
    OpenOptions();
    ClickOption(2);
    QCOMPARE(test_->MessageHeader(), modeHeaders[2]);
    dialog_->close();
}

void tst_frmjsoptions::clickAbandonsTheFigureBeingDrawn()
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

void tst_frmjsoptions::clickWithFiguresAsks()
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

void tst_frmjsoptions::noKeepsModeAndMap()
{
    test_->map.SetMode(JSStatusBar);
    test_->DrawRectangle({ 10, 10 }, { 40, 40 });
    test_->map.SetModeDefault(QStringLiteral("kept"));
    const QString header = test_->MessageHeader();
    const QImage before = test_->Pixels();
    OpenOptions();
    test_->robot.AnswerBox(QMessageBox::No);
    ClickOption(3);
    QTRY_COMPARE(test_->robot.Boxes().size(), 1);
    test_->Settle();
    QCOMPARE(SelectedOption(), 1);
    QCOMPARE(test_->map.Mode(), JSStatusBar);
    QCOMPARE(test_->map.ModeDefault(), QStringLiteral("kept"));
    QCOMPARE(test_->MessageHeader(), header);
    QCOMPARE(test_->map.Ledger().FigureCount, 1);
    QCOMPARE(test_->RowCount(), 1);
    QCOMPARE(test_->Pixels(), before);
    QVERIFY(dialog_ != nullptr && dialog_->isVisible());
    dialog_->close();
}

void tst_frmjsoptions::yesDeletesTheMapAndSwitches()
{
    const QImage blank = test_->Pixels();
    test_->map.SetMode(JSStatusBar);
    test_->DrawRectangle({ 10, 10 }, { 40, 40 });
    test_->map.SetModeDefault(QStringLiteral("gone"));
    OpenOptions();
    test_->robot.AnswerBox(QMessageBox::Yes);
    ClickOption(3);
    QTRY_COMPARE(test_->map.Mode(), JSTextArea);
    QCOMPARE(SelectedOption(), 3);
    QCOMPARE(test_->MessageHeader(), modeHeaders[3]);
    QCOMPARE(test_->map.ModeDefault(), QString());
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
    QCOMPARE(test_->map.Mode(), JSSwitchImages);
    dialog_->close();
}

void tst_frmjsoptions::sameOptionStillAsks()
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

void tst_frmjsoptions::yesForTheSameOptionDeletesTheMap()
{
    test_->map.SetMode(JSTextArea);
    test_->map.SetModeDefault(QStringLiteral("Welcome"));
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
    QCOMPARE(test_->map.Mode(), JSTextArea);
    QCOMPARE(test_->map.ModeDefault(), QString());
    QCOMPARE(test_->MessageHeader(), modeHeaders[3]);
    QCOMPARE(test_->RowCount(), 0);
    dialog_->close();
}

void tst_frmjsoptions::doubleClickAsksOnce()
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

void tst_frmjsoptions::secondClickAsksAgainAfterNo()
{
    test_->DrawRectangle({ 10, 10 }, { 40, 40 });
    OpenOptions();
    test_->robot.AnswerBox(QMessageBox::No);
    ClickOption(3);
    QTRY_COMPARE(test_->robot.Boxes().size(), 1);
    test_->Settle();
    test_->robot.AnswerBox(QMessageBox::Yes);
    ClickOption(4);
    QTRY_COMPARE(test_->map.Mode(), JSToolTips);
    QCOMPARE(SelectedOption(), 4);
    dialog_->close();
}

void tst_frmjsoptions::otherMouseButtonsAskNothing()
{
    test_->DrawRectangle({ 10, 10 }, { 40, 40 });
    OpenOptions();
    ClickOption(3, Qt::RightButton);
    ClickOption(3, Qt::MiddleButton);
    test_->Settle();
    QVERIFY(test_->robot.Boxes().isEmpty());
    QCOMPARE(SelectedOption(), 0);
    QCOMPARE(test_->map.Mode(), JSDisabled);
    dialog_->close();
}

void tst_frmjsoptions::pressBesideTheOptionAsksNothing()
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

void tst_frmjsoptions::keyboardSwitchesAndLeavesTheFigures()
{
    test_->DrawRectangle({ 10, 10 }, { 40, 40 });
    const QImage before = test_->Pixels();
    OpenOptions();
    Option(4)->setFocus();
    QTest::keyClick(Option(4), Qt::Key_Space);
    test_->Settle();
    QVERIFY(test_->robot.Boxes().isEmpty());
    QCOMPARE(SelectedOption(), 4);
    QCOMPARE(test_->map.Mode(), JSToolTips);
    QCOMPARE(test_->MessageHeader(), modeHeaders[4]);
    QCOMPARE(test_->map.Ledger().FigureCount, 1);
    QCOMPARE(test_->RowCount(), 1);
    QCOMPARE(test_->Pixels(), before);
    dialog_->close();
}

void tst_frmjsoptions::arrowKeysSwitchAtOnce()
{
    test_->DrawRectangle({ 10, 10 }, { 40, 40 });
    OpenOptions();
    Option(0)->setFocus();
    QTest::keyClick(Option(0), Qt::Key_Down);
    test_->Settle();
    QVERIFY(test_->robot.Boxes().isEmpty());
    QCOMPARE(SelectedOption(), 1);
    QCOMPARE(test_->map.Mode(), JSStatusBar);
    QCOMPARE(test_->MessageHeader(), modeHeaders[1]);
    QCOMPARE(test_->map.Ledger().FigureCount, 1);
    dialog_->close();
}

void tst_frmjsoptions::closingChangesNothingFurther_data()
{
    QTest::addColumn<QString>("way");

    QTest::newRow("OK") << QStringLiteral("OK");
    QTest::newRow("Enter") << QStringLiteral("Enter");
    QTest::newRow("Esc") << QStringLiteral("Esc");
    QTest::newRow("close box") << QStringLiteral("close box");
}

void tst_frmjsoptions::closingChangesNothingFurther()
{
    QFETCH(const QString, way);

    OpenOptions();
    ClickOption(2);
    if (way == u"OK") {
        ClickIn(dialog_, "cmdOK");
    } else if (way == u"Enter") {
        QTest::keyClick(Option(2), Qt::Key_Return);
    } else if (way == u"Esc") {
        QTest::keyClick(dialog_, Qt::Key_Escape);
    } else {
        dialog_->close();
    }
    QTRY_VERIFY(dialog_ == nullptr);
    QCOMPARE(test_->map.Mode(), JSSwitchImages);
    QCOMPARE(test_->MessageHeader(), modeHeaders[2]);
    QCOMPARE(test_->Status(), QStringLiteral("Creating Mode !"));
}

void tst_frmjsoptions::statusIsThatOfTheToolAfterClosing_data()
{
    QTest::addColumn<int>("tool");
    QTest::addColumn<QString>("status");

    QTest::newRow("rectangle") << 5 << QStringLiteral("Drawing Mode - Rectangle !");
    QTest::newRow("circle") << 6 << QStringLiteral("Drawing Mode - Circle !");
    QTest::newRow("line") << 7 << QStringLiteral("Drawing Mode - Line, draw Polygons !");
    QTest::newRow("cursor") << 9 << QStringLiteral("Creating Mode !");
}

void tst_frmjsoptions::statusIsThatOfTheToolAfterClosing()
{
    QFETCH(const int, tool);
    QFETCH(const QString, status);

    test_->ClickButton(tool);
    OpenOptions();
    QCOMPARE(test_->Status(), QStringLiteral("Set Java Script Options!"));
    ClickIn(dialog_, "cmdOK");
    QTRY_VERIFY(dialog_ == nullptr);
    QCOMPARE(test_->Status(), status);
}

QTEST_MAIN(tst_frmjsoptions)
#include "tst_frmjsoptions.moc"
