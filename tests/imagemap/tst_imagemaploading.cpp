// How the image map editor starts, and what it allows when.

#include "tests/imagemap/EditorTest.h"
#include "tests/imagemap/EditorTexts.h"

#include <QCheckBox>
#include <QScreen>

class tst_imagemaploading : public EditorTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Begin(); }
    void cleanup() { End(); }

    void loadingAllowsOnlyOpenAndExit();
    void loadingCentresTheWindow();
    void loadingMakesTheProgramFolderCurrent();
    void loadingTurnsTheToolbarFlat();
    void loadingAFlatToolbarTurnsItRaised();
    void loadingStartsInCursorMode();
    void loadingLeavesTheFiguresAlone();
    void loadingWritesTheModesHeader_data();
    void loadingWritesTheModesHeader();
    void activatingEndsTheHourglass();

    void openedPictureAllowsDrawing();
    void startedFigureAllowsFigureCommands_data();
    void startedFigureAllowsFigureCommands();
    void emptiedMapAllowsNoFigureCommands();
};

void tst_imagemaploading::loadingAllowsOnlyOpenAndExit()
{
    QCOMPARE(test_->EnabledButtons(), buttonsAtLoad);
    QVERIFY(!test_->Find<QCheckBox>("Check1")->isEnabled());
    QCOMPARE(test_->EnabledOf(figureEntries + pictureEntries), QStringList());
    for (const char* const name : { "mnuOpenImage", "mnuExit", "mnuJSOptions" }) {
        QVERIFY2(test_->Entry(name)->isEnabled(), name);
    }
    QVERIFY(!test_->Find<QScrollBar>("HScroll1")->isEnabled());
    QVERIFY(!test_->Find<QScrollBar>("VScroll1")->isEnabled());
}

void tst_imagemaploading::loadingCentresTheWindow()
{
    // As it is seen: showing must not make it larger than it was when it was put in the middle.
    const QRect screen = test_->editor->screen()->geometry();
    QCOMPARE(test_->editor->x(), screen.left() + (screen.width() - test_->editor->width()) / 2);
    QCOMPARE(test_->editor->y(), screen.top() + (screen.height() - test_->editor->height()) / 2);
}

void tst_imagemaploading::loadingMakesTheProgramFolderCurrent()
{
    QDir::setCurrent(QDir::tempPath());
    test_->LoadEditor();
    QCOMPARE(QDir::current(), QDir(test_->imgMap.ProgramFolder));
}

void tst_imagemaploading::loadingTurnsTheToolbarFlat()
{
    const QList<QToolButton*> buttons = test_->Find<QToolBar>("Toolbar1")->findChildren<QToolButton*>();
    QVERIFY(buttons.size() >= 11);
    for (const int position : buttonsWithFigure) {
        const auto* const button = qobject_cast<QToolButton*>(
            test_->Find<QToolBar>("Toolbar1")->widgetForAction(test_->Button(position)));
        QVERIFY2(button->autoRaise(), qPrintable(test_->Button(position)->toolTip()));
    }
}

void tst_imagemaploading::loadingAFlatToolbarTurnsItRaised()
{
    test_->editor->Form_Load();
    for (const int position : buttonsWithFigure) {
        const auto* const button = qobject_cast<QToolButton*>(
            test_->Find<QToolBar>("Toolbar1")->widgetForAction(test_->Button(position)));
        QVERIFY2(!button->autoRaise(), qPrintable(test_->Button(position)->toolTip()));
    }
}

void tst_imagemaploading::loadingStartsInCursorMode()
{
    test_->map.Ledger().DrawState = drawDrawing;
    test_->LoadEditor();
    QCOMPARE(test_->CheckedTools(), QStringList{ QStringLiteral("mnuCursor") });
    QCOMPARE(test_->map.Ledger().DrawState, drawIdle);
    QCOMPARE(test_->Status(), QStringLiteral("Open an Image !"));
}

void tst_imagemaploading::loadingLeavesTheFiguresAlone()
{
    test_->FillStore(3);
    test_->map.Ledger().CurrentKind = kindCircle;
    const FigureStore::Records before = test_->map.Ledger().Figures;
    test_->LoadEditor();
    QCOMPARE(test_->map.Ledger().FigureCount, 3);
    QCOMPARE(test_->map.Ledger().CurrentKind, kindCircle);
    QVERIFY(test_->map.Ledger().Figures == before);
    QCOMPARE(test_->RowCount(), 0);
    QCOMPARE(test_->EnabledButtons(), buttonsAtLoad);
    QCOMPARE(test_->Text("lblFigures"), QString());
}

void tst_imagemaploading::loadingWritesTheModesHeader_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("header");

    QTest::newRow("disabled") << 0 << disabledHeader;
    QTest::newRow("status bar") << 1
                                << QStringLiteral(" Status Bar Messages (Netscape), and Tool Tips (MSIE):");
    QTest::newRow("switching images") << 2 << QStringLiteral(" Switching Images:");
    QTest::newRow("text area") << 3 << QStringLiteral(" Switching Text Area Messages:");
    QTest::newRow("tool tips") << 4 << QStringLiteral(" Tool Tip Messages:");
}

void tst_imagemaploading::loadingWritesTheModesHeader()
{
    QFETCH(const int, mode);
    QFETCH(const QString, header);

    test_->map.Script().SetMode(static_cast<JSMode>(mode));
    test_->map.Script().SetModeDefault(QStringLiteral("kept"));
    test_->LoadEditor();
    QCOMPARE(test_->MessageHeader(), header);
    QCOMPARE(test_->map.Script().ModeDefault(), QStringLiteral("kept"));
}

void tst_imagemaploading::activatingEndsTheHourglass()
{
    QApplication::setOverrideCursor(Qt::WaitCursor);
    test_->LoadEditor();
    QVERIFY(test_->Start());
    QCOMPARE(QApplication::overrideCursor(), nullptr);
}

void tst_imagemaploading::openedPictureAllowsDrawing()
{
    test_->OpenPicture();
    QCOMPARE(test_->EnabledButtons(), buttonsWithPicture);
    QVERIFY(test_->Find<QCheckBox>("Check1")->isEnabled());
    QCOMPARE(test_->EnabledOf(figureEntries + pictureEntries), pictureEntries);
    QCOMPARE(test_->CheckedTools(), QStringList{ QStringLiteral("mnuCursor") });
    QCOMPARE(test_->Status(), QStringLiteral("Creating Mode !"));
    QCOMPARE(test_->Text("lblFigures"), QString());
}

void tst_imagemaploading::startedFigureAllowsFigureCommands_data()
{
    QTest::addColumn<int>("tool");

    QTest::newRow("rectangle") << 5;
    QTest::newRow("circle") << 6;
    QTest::newRow("line") << 7;
}

void tst_imagemaploading::startedFigureAllowsFigureCommands()
{
    QFETCH(const int, tool);

    test_->OpenPicture();
    test_->Find<QCheckBox>("Check1")->setEnabled(false);
    test_->ClickButton(tool);
    QCOMPARE(test_->EnabledButtons(), buttonsWithPicture);
    test_->Press({ 20, 20 });
    if (tool == 7) {
        QCOMPARE(test_->EnabledButtons(), buttonsWithPicture);
        test_->Release({ 20, 20 });
    }
    QCOMPARE(test_->EnabledButtons(), buttonsWithFigure);
    QCOMPARE(test_->EnabledOf(figureEntries), figureEntries);
    QVERIFY(test_->Find<QCheckBox>("Check1")->isEnabled());
    QCOMPARE(test_->map.Ledger().FigureCount, 0);
    test_->Move({ 30, 30 });
    QCOMPARE(test_->Text("lblFigures"), QStringLiteral("0"));
    if (tool != 7) {
        test_->robot.Cancel();
        test_->Release({ 30, 30 });
        test_->robot.WaitUntilDone();
    }
}

void tst_imagemaploading::emptiedMapAllowsNoFigureCommands()
{
    test_->OpenPicture();
    test_->DrawRectangle({ 10, 10 }, { 40, 40 });
    test_->map.Script().SetModeDefault(QStringLiteral("gone"));
    test_->Entry("mnuDeleteLast")->trigger();
    QCOMPARE(test_->EnabledButtons(), buttonsWithPicture);
    QCOMPARE(test_->EnabledOf(figureEntries + pictureEntries), pictureEntries);
    QVERIFY(!test_->Find<QCheckBox>("Check1")->isEnabled());
    QCOMPARE(test_->Text("lblFigures"), QString());
    QCOMPARE(test_->Start1And2() + test_->End1And2() + test_->Dimensions1And2(), QString());
    QCOMPARE(test_->Text("lblCursor1") + test_->Text("lblCursor2"), QString());
    QVERIFY(!test_->Find<QWidget>("lblEndPosition1")->isHidden());
    QCOMPARE(test_->map.Script().ModeDefault(), QString());
    QCOMPARE(test_->RowCount(), 0);
}

QTEST_MAIN(tst_imagemaploading)

#include "tst_imagemaploading.moc"
