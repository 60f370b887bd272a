#include "tests/support/WidgetDriving.h"

#include "app/frmMapOptions.h"
#include "app/rules/IndentRules.h"
#include "tests/app/MainWindowFixture.h"

#include <QGroupBox>
#include <QRadioButton>
#include <QScreen>
#include <QScrollBar>
#include <cmath>
#include <memory>

class tst_frmmapoptions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void dialogShowsItsTexts();
    void dialogOpensBy_data();
    void dialogOpensBy();
    void openingMakesTheProgramFolderCurrentAndEndsTheHourglass();
    void dialogStaysAboveTheMainWindowWithoutBlockingIt();
    void openDialogIsNotOpenedAgain();
    void closedDialogStartsAfresh_data();
    void closedDialogStartsAfresh();
    void dialogGoesWithTheProgram();
    void tabGoesThroughTheControlsInOrder();

    void millimetresAreWholeNumbersUpToTheMost_data();
    void millimetresAreWholeNumbersUpToTheMost();
    void fieldFollowsTheRules_data() { millimetresAreWholeNumbersUpToTheMost_data(); }
    void fieldFollowsTheRules();
    void everyMillimetreHasItsInches();
    void typingIsTakenKeyByKey_data();
    void typingIsTakenKeyByKey();

    void okIndentsTheSource_data();
    void okIndentsTheSource();
    void indentationLeavesRoomForTheText();
    void indentationLeavesTheDocumentAlone();
    void okSetsTheWrapModeChosen();
    void okWithoutAnOptionLeavesTheWrapMode_data();
    void okWithoutAnOptionLeavesTheWrapMode();
    void wrapModeInForceIsChosen_data() { okWithoutAnOptionLeavesTheWrapMode_data(); }
    void wrapModeInForceIsChosen();
    void unwrappedLinesAreScrolledAsFarAsTheyGo();

private:
    void Open();
    template<class Widget> Widget* Part(const char* name) { return Find<Widget>(dialog_, name); }
    QLineEdit* Field() { return Part<QLineEdit>("txtIndentValue"); }
    QString Inches() { return Part<QLabel>("lblInchIndValue")->text(); }
    void ChooseOption(const char* name);
    void ClickOk() { Click(Part<QPushButton>("cmdOK")); }
    int Indent() { return test_->Editor()->viewport()->x() - plainLeft_; }

    std::unique_ptr<MainWindowFixture> test_;
    QPointer<frmMapOptions> dialog_;
    int plainLeft_ = 0; ///< where the source starts without an indentation
};

void tst_frmmapoptions::init()
{
    test_ = std::make_unique<MainWindowFixture>();
    QVERIFY(test_->Start());
    plainLeft_ = test_->Editor()->viewport()->x();
}

void tst_frmmapoptions::cleanup()
{
    QCOMPARE(test_->robot.Problems(), QString());
    test_.reset();
    while (QApplication::overrideCursor() != nullptr) {
        QApplication::restoreOverrideCursor();
    }
}

void tst_frmmapoptions::Open()
{
    test_->Press(Qt::Key_P, Qt::ControlModifier);
    for (frmMapOptions* const dialog : test_->window.findChildren<frmMapOptions*>()) {
        if (dialog->isVisible()) {
            dialog_ = dialog;
        }
    }
    QVERIFY(dialog_ != nullptr);
    dialog_->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(dialog_));
}

void tst_frmmapoptions::ChooseOption(const char* name)
{
    auto* const option = Part<QRadioButton>(name);
    QTest::mouseClick(option, Qt::LeftButton, {}, { 8, option->height() / 2 });
    QVERIFY(option->isChecked());
}

void tst_frmmapoptions::dialogShowsItsTexts()
{
    Open();
    QCOMPARE(dialog_->objectName(), QStringLiteral("frmMapOptions"));
    QCOMPARE(dialog_->windowTitle(), QStringLiteral("Options"));
    QCOMPARE(dialog_->font().family(), QStringLiteral("Tahoma"));
    QCOMPARE(Part<QGroupBox>("Frame1")->title(), QStringLiteral("Image Maps Editor"));
    QCOMPARE(Part<QRadioButton>("optNoWordWrap")->text(), QStringLiteral("No Word Wrap"));
    QCOMPARE(Part<QRadioButton>("optWrapToWin")->text(), QStringLiteral("Wrap to Widow"));
    QCOMPARE(Part<QLabel>("Label1")->text(), QStringLiteral("Indentation :"));
    QCOMPARE(Part<QLabel>("Label2")->text(), QStringLiteral("Inch"));
    QCOMPARE(Part<QLabel>("Label3")->text(), QStringLiteral("mm"));
    QCOMPARE(Field()->text(), QStringLiteral("0"));
    QCOMPARE(Inches(), QStringLiteral("0"));
    QVERIFY(Part<QFrame>("Line1")->isVisible());
    QVERIFY(Part<QFrame>("Line2")->isVisible());
    for (const char* const name : { "cmdOK", "cmdClose" }) {
        QVERIFY(!Part<QPushButton>(name)->icon().isNull());
    }
}

void tst_frmmapoptions::dialogOpensBy_data()
{
    QTest::addColumn<bool>("isByMenu");
    QTest::newRow("Ctrl+P") << false;
    QTest::newRow("menu") << true;
}

void tst_frmmapoptions::dialogOpensBy()
{
    QFETCH(const bool, isByMenu);
    if (isByMenu) {
        test_->ClickMenu("mnuTools", "mnuTPref");
    } else {
        test_->Press(Qt::Key_P, Qt::ControlModifier);
    }
    auto* const dialog = test_->window.findChild<frmMapOptions*>();
    QVERIFY(dialog != nullptr && dialog->isVisible());
    QVERIFY(QTest::qWaitForWindowActive(dialog));
    auto* const field = Find<QLineEdit>(dialog, "txtIndentValue");
    QTRY_VERIFY(field->hasFocus());
    QCOMPARE(field->selectedText(), QStringLiteral("0"));
    const QRect screen = dialog->screen()->geometry();
    QCOMPARE(
        dialog->pos(),
        QPoint((screen.width() - dialog->width()) / 2, (screen.height() - dialog->height()) / 2));
}

void tst_frmmapoptions::openingMakesTheProgramFolderCurrentAndEndsTheHourglass()
{
    QDir::setCurrent(QDir::rootPath());
    Open();
    QCOMPARE(QDir::currentPath(), QDir(test_->folder.imgMap.ProgramFolder).canonicalPath());
    QTRY_VERIFY(QApplication::overrideCursor() == nullptr);
}

void tst_frmmapoptions::dialogStaysAboveTheMainWindowWithoutBlockingIt()
{
    Open();
    QCOMPARE(dialog_->parentWidget(), &test_->window);
    QVERIFY(dialog_->isWindow());
    QVERIFY(dialog_->windowFlags().testFlag(Qt::Dialog));
    QCOMPARE(dialog_->windowModality(), Qt::NonModal);
    test_->Type("still writing");
    QCOMPARE(test_->Editor()->Text(), QStringLiteral("still writing"));
    QVERIFY(dialog_->isVisible());
}

void tst_frmmapoptions::openDialogIsNotOpenedAgain()
{
    Open();
    Field()->setText(QStringLiteral("30"));
    frmMapOptions* const first = dialog_;
    Open();
    QCOMPARE(dialog_.data(), first);
    QCOMPARE(test_->window.findChildren<frmMapOptions*>().size(), 1);
    QCOMPARE(Field()->text(), QStringLiteral("30"));
}

void tst_frmmapoptions::closedDialogStartsAfresh_data()
{
    QTest::addColumn<bool>("isByEscape");
    QTest::newRow("Esc") << true;
    QTest::newRow("Close") << false;
}

void tst_frmmapoptions::closedDialogStartsAfresh()
{
    QFETCH(const bool, isByEscape);
    Open();
    Field()->setText(QStringLiteral("30"));
    ChooseOption("optNoWordWrap");
    ClickOk();
    QVERIFY(dialog_->isVisible());
    if (isByEscape) {
        QTest::keyClick(dialog_, Qt::Key_Escape);
    } else {
        Click(Part<QPushButton>("cmdClose"));
    }
    QVERIFY(dialog_ == nullptr || !dialog_->isVisible());
    Open();
    QCOMPARE(Field()->text(), QStringLiteral("0"));
    QCOMPARE(Inches(), QStringLiteral("0"));
    // What was set stays set.
    QVERIFY(Part<QRadioButton>("optNoWordWrap")->isChecked());
    QVERIFY(Indent() > 0);
    QCOMPARE(test_->Editor()->lineWrapMode(), QPlainTextEdit::NoWrap);
}

void tst_frmmapoptions::dialogGoesWithTheProgram()
{
    Open();
    QVERIFY(EndsProgram([this] { test_->Press(Qt::Key_E, Qt::ControlModifier); }));
    QVERIFY(dialog_ == nullptr || !dialog_->isVisible());
}

void tst_frmmapoptions::tabGoesThroughTheControlsInOrder()
{
    Open();
    ChooseOption("optNoWordWrap");
    Field()->setFocus();
    QStringList names;
    for (int i = 0; i < 5; ++i) {
        names << QApplication::focusWidget()->objectName();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    // Of the two options Tab goes to the one chosen; arrow keys go to the other.
    QCOMPARE(names.join(u' '), QStringLiteral("txtIndentValue cmdOK cmdClose optNoWordWrap txtIndentValue"));
    Part<QRadioButton>("optNoWordWrap")->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
    QVERIFY(Part<QRadioButton>("optWrapToWin")->isChecked());
}

void tst_frmmapoptions::millimetresAreWholeNumbersUpToTheMost_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("millimetres");
    QTest::addColumn<QString>("inches");
    const auto row = [](const char* typed, const char* millimetres, const char* inches) {
        QTest::newRow(*typed != '\0' ? typed : "nothing")
            << QString::fromLatin1(typed) << QString::fromLatin1(millimetres) << QString::fromLatin1(inches);
    };
    row("1", "1", "0.0");
    row("10", "10", "0.4");
    row("13", "13", "0.5");
    row("24", "24", "0.9");
    row("25", "25", "1");
    row("26", "26", "1.0");
    row("50", "50", "2");
    row("225", "225", "9");
    row("249", "249", "9.9");
    row("250", "250", "1");
    row("253", "253", "10.1");
    row("254", "254", "10.1");
    row("12.7", "13", "0.5");
    row("12.5", "12", "0.4");
    row("13.5", "14", "0.5");
    row("0.5", "0", "0");
    row("1.5", "2", "0.0");
    row("-0.4", "0", "0");
    row("-0.5", "0", "0");
    row("254.4", "254", "10.1");
    row("254.5", "254", "10.1");
    row("007", "7", "0.2");
    row("1e2", "100", "4");
    row(" 5 ", "5", "0.2");
    row("+5", "5", "0.2");
    row("254.6", "", "0");
    row("255", "", "0");
    row("300", "", "0");
    row("-5", "", "0");
    row("-0.6", "", "0");
    row("99999999999999999999", "", "0");
    row("1e400", "", "0");
    row("nan", "", "0");
    row("inf", "", "0");
    row("-", "", "0");
    row("x", "", "0");
    row("5x", "", "0");
    row("1,5", "", "0");
    row("", "", "0");
}

void tst_frmmapoptions::millimetresAreWholeNumbersUpToTheMost()
{
    QFETCH(const QString, typed);
    QFETCH(const QString, millimetres);
    QFETCH(const QString, inches);
    const IndentTexts texts = IndentTextsFor(typed);
    QCOMPARE(texts.Millimetres, millimetres);
    QCOMPARE(texts.Inches, inches);
}

void tst_frmmapoptions::fieldFollowsTheRules()
{
    QFETCH(const QString, typed);
    QFETCH(const QString, millimetres);
    QFETCH(const QString, inches);
    Open();
    Field()->setText(QStringLiteral("77"));
    Field()->setText(typed);
    QCOMPARE(Field()->text(), millimetres);
    QCOMPARE(Inches(), inches);
}

void tst_frmmapoptions::everyMillimetreHasItsInches()
{
    for (int millimetres = 0; millimetres <= 254; ++millimetres) {
        // Four hundredths of an inch each: written out, then cut behind the first decimal.
        QString inches = QString::number(millimetres * 4 / 100) + u'.' +
                         QString::number(millimetres * 4 % 100).rightJustified(2, u'0').left(1);
        if (millimetres % 25 == 0) {
            inches = inches.left(1);
        }
        const IndentTexts texts = IndentTextsFor(QString::number(millimetres));
        QCOMPARE(texts.Millimetres, QString::number(millimetres));
        QCOMPARE(texts.Inches, inches);
    }
}

void tst_frmmapoptions::typingIsTakenKeyByKey_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("millimetres");
    QTest::newRow("a number") << "254"
                              << "254";
    QTest::newRow("one digit too many") << "300"
                                        << "";
    QTest::newRow("goes on after that") << "30012"
                                        << "12";
    QTest::newRow("no negative numbers") << "-5"
                                         << "5";
    QTest::newRow("no decimals") << "1.5"
                                 << "15";
    QTest::newRow("leading zeros") << "007"
                                   << "7";
}

void tst_frmmapoptions::typingIsTakenKeyByKey()
{
    QFETCH(const QString, typed);
    QFETCH(const QString, millimetres);
    Open();
    QTest::keyClicks(Field(), typed); // the old number is selected
    QCOMPARE(Field()->text(), millimetres);
    QTest::keyClick(Field(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(Field(), Qt::Key_Delete);
    QCOMPARE(Field()->text(), QString());
    QCOMPARE(Inches(), QStringLiteral("0"));
}

void tst_frmmapoptions::okIndentsTheSource_data()
{
    QTest::addColumn<QString>("millimetres");
    QTest::addColumn<int>("pixels");
    // 56.7 twips a millimetre, 15 twips a pixel.
    QTest::newRow("0") << "0" << 0;
    QTest::newRow("1") << "1" << 4;
    QTest::newRow("10") << "10" << 38;
    QTest::newRow("100") << "100" << 378;
    QTest::newRow("nothing") << "" << 0;
}

void tst_frmmapoptions::okIndentsTheSource()
{
    QFETCH(const QString, millimetres);
    QFETCH(const int, pixels);
    test_->window.resize(1100, 700);
    Open();
    Field()->setText(QStringLiteral("5"));
    ClickOk();
    QCOMPARE(Indent(), 19);
    Field()->setText(millimetres);
    QCOMPARE(Indent(), 19);
    ClickOk();
    QCOMPARE(Indent(), pixels);
    QVERIFY(dialog_->isVisible());
}

void tst_frmmapoptions::indentationLeavesRoomForTheText()
{
    test_->window.resize(500, 400);
    Open();
    Field()->setText(QStringLiteral("254"));
    ClickOk();
    QVERIFY(Indent() > 0);
    QVERIFY(test_->Editor()->viewport()->width() >= 40);
    test_->window.resize(1400, 700);
    QTRY_COMPARE(Indent(), static_cast<int>(std::nearbyint(254 * 56.7 / 15)));
}

void tst_frmmapoptions::indentationLeavesTheDocumentAlone()
{
    test_->Editor()->LoadText(QStringLiteral("abc\r\ndef"));
    Open();
    Field()->setText(QStringLiteral("10"));
    ChooseOption("optNoWordWrap");
    ClickOk();
    QCOMPARE(test_->Editor()->Text(), QStringLiteral("abc\r\ndef"));
    QVERIFY(!test_->window.File().IsChanged());
    QVERIFY(!test_->Editor()->document()->isUndoAvailable());
}

void tst_frmmapoptions::okSetsTheWrapModeChosen()
{
    Open();
    ChooseOption("optNoWordWrap");
    QCOMPARE(test_->Editor()->lineWrapMode(), QPlainTextEdit::WidgetWidth);
    ClickOk();
    QCOMPARE(test_->Editor()->lineWrapMode(), QPlainTextEdit::NoWrap);
    ChooseOption("optWrapToWin");
    QCOMPARE(test_->Editor()->lineWrapMode(), QPlainTextEdit::NoWrap);
    ClickOk();
    QCOMPARE(test_->Editor()->lineWrapMode(), QPlainTextEdit::WidgetWidth);
    QCOMPARE(Indent(), 0);
}

void tst_frmmapoptions::okWithoutAnOptionLeavesTheWrapMode_data()
{
    QTest::addColumn<int>("mode");
    QTest::newRow("wrapped") << int(QPlainTextEdit::WidgetWidth);
    QTest::newRow("not wrapped") << int(QPlainTextEdit::NoWrap);
}

void tst_frmmapoptions::okWithoutAnOptionLeavesTheWrapMode()
{
    QFETCH(const int, mode);
    test_->Editor()->setLineWrapMode(QPlainTextEdit::LineWrapMode(mode));
    Open();
    Field()->setText(QStringLiteral("10"));
    ClickOk();
    QCOMPARE(int(test_->Editor()->lineWrapMode()), mode);
    QCOMPARE(Indent(), 38);
}

void tst_frmmapoptions::wrapModeInForceIsChosen()
{
    QFETCH(const int, mode);
    test_->Editor()->setLineWrapMode(QPlainTextEdit::LineWrapMode(mode));
    Open();
    QCOMPARE(Part<QRadioButton>("optWrapToWin")->isChecked(), mode == QPlainTextEdit::WidgetWidth);
    QCOMPARE(Part<QRadioButton>("optNoWordWrap")->isChecked(), mode == QPlainTextEdit::NoWrap);
}

void tst_frmmapoptions::unwrappedLinesAreScrolledAsFarAsTheyGo()
{
    const QScrollBar* const bar = test_->Editor()->horizontalScrollBar();
    Open();
    ChooseOption("optNoWordWrap");
    ClickOk();
    QCOMPARE(bar->maximum(), 0);
    test_->Type("short");
    QCOMPARE(bar->maximum(), 0);
    test_->Editor()->LoadText(
        QStringLiteral("short\r\n") + QString(1000, u'x') + QStringLiteral("\r\nshort"));
    QCoreApplication::processEvents();
    const int width = test_->Editor()->fontMetrics().horizontalAdvance(QString(1000, u'x'));
    QTRY_VERIFY(std::abs(bar->maximum() + test_->Editor()->viewport()->width() - width) < 100);
    test_->Editor()->LoadText(QStringLiteral("short"));
    QTRY_COMPARE(bar->maximum(), 0);
    ChooseOption("optWrapToWin");
    ClickOk();
    test_->Editor()->LoadText(QString(1000, u'x'));
    QTRY_COMPARE(bar->maximum(), 0);
}

QTEST_MAIN(tst_frmmapoptions)
#include "tst_frmmapoptions.moc"
