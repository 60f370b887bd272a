// What the JavaScript options show, and closing them.

#include "tests/imagemap/OptionsDialogTest.h"

#include <QGroupBox>
#include <QRadioButton>
#include <QScreen>
#include <algorithm>

class tst_frmjsoptions : public OptionsDialogTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { BeginWithPicture(); }
    void cleanup() { End(); }

    void dialogShowsItsTexts();
    void helpButtonShowsThePageOfTheOptions();
    void dialogIsModalAndCentred();
    void firstOpeningSelectsDisabled();
    void loadingSelectsTheModeInForce_data();
    void loadingSelectsTheModeInForce();
    void optionInForceHasTheFocus_data() { loadingSelectsTheModeInForce_data(); }
    void optionInForceHasTheFocus();
    void loadingAppliesNothing();

    void closingChangesNothingFurther_data();
    void closingChangesNothingFurther();
    void statusIsThatOfTheToolAfterClosing_data();
    void statusIsThatOfTheToolAfterClosing();
};

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
    QCOMPARE(test_->map.Script().Mode(), JSDisabled);
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

    test_->map.Script().SetMode(static_cast<JSMode>(mode));
    OpenOptions();
    QCOMPARE(SelectedOption(), mode);
    QCOMPARE(test_->map.Script().Mode(), static_cast<JSMode>(mode));
    dialog_->close();
}

void tst_frmjsoptions::optionInForceHasTheFocus()
{
    QFETCH(const int, mode);
    test_->map.Script().SetMode(static_cast<JSMode>(mode));
    OpenOptions();
    QVERIFY(QTest::qWaitForWindowActive(dialog_));
    QCOMPARE(dialog_->focusWidget(), Option(mode));
}

void tst_frmjsoptions::loadingAppliesNothing()
{
    test_->map.Script().SetMode(JSSwitchImages);
    test_->TakeDefault(QStringLiteral("out.gif"));
    const QString extended = QStringLiteral(" Switching Images (Default Image:out.gif):");
    QCOMPARE(test_->MessageHeader(), extended);
    OpenOptions();
    QCOMPARE(test_->MessageHeader(), extended);
    ClickIn(dialog_, "cmdOK");
    QTRY_VERIFY(dialog_ == nullptr);
    QCOMPARE(test_->MessageHeader(), extended);
    QCOMPARE(test_->map.Script().ModeDefault(), QStringLiteral("out.gif"));
    QCOMPARE(test_->map.Script().Mode(), JSSwitchImages);
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
    QCOMPARE(test_->map.Script().Mode(), JSSwitchImages);
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
