#include "tests/app/MapOptionsFixture.h"
#include "tests/app/rules/IndentRows.h"

#include <QGroupBox>
#include <QScrollBar>
#include <cmath>

class tst_frmmapoptions : public MapOptionsFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Start(); }
    void cleanup() { Finish(); }

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

    void fieldFollowsTheRules_data() { AddIndentRows(); }
    void fieldFollowsTheRules();
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
};

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
