#include "tests/imagemap/EditorFixture.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QTabWidget>
#include <memory>

namespace {

const QString deletionQuestion = QStringLiteral("Do you want to delete your Image Map?");
const QStringList figureEntries = { QStringLiteral("mnuNew"), QStringLiteral("mnuInsert"),
                                    QStringLiteral("mnuLink"), QStringLiteral("mnuDeleteLast") };
const QStringList pictureEntries = { QStringLiteral("mnuFigureColors"), QStringLiteral("mnuFigNum_5"),
                                     QStringLiteral("mnuFigNum_6"), QStringLiteral("mnuFigNum_7"),
                                     QStringLiteral("mnuCursor") };
const QList<int> buttonsAtLoad = { 3, 18 };
const QList<int> buttonsWithPicture = { 3, 5, 6, 7, 9, 11, 18 };
const QList<int> buttonsWithFigure = { 2, 3, 5, 6, 7, 9, 11, 12, 14, 16, 18 };
const QString disabledHeader = QStringLiteral(" Java Script Disabled - No Messages will be inserted!");

const QMessageBox::StandardButtons yesNo = QMessageBox::Yes | QMessageBox::No;

} // namespace

class tst_frmimagemap : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void windowShowsItsCaptions();
    void tabsHoldTheirFields();
    void alignmentsStandInOrder();
    void listHasItsColumns();
    void menusHaveTheirEntriesInOrder_data();
    void menusHaveTheirEntriesInOrder();
    void helpEntryShowsTheContents();
    void helpKeyShowsTheEditorsPage();
    void thirdPanelTellsToOpenAPicture();
    void panelsStandInOrder();
    void windowHasALeastSize();
    void toolbarHasItsButtonsAndSeparators();
    void toolbarButtonsShowPictures();

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

private:
    std::unique_ptr<EditorFixture> test_;
};

void tst_frmimagemap::init()
{
    test_ = std::make_unique<EditorFixture>();
    QVERIFY(test_->Start());
}

void tst_frmimagemap::cleanup()
{
    const QString problems = test_->robot.Problems();
    test_.reset();
    QVERIFY2(problems.isEmpty(), qPrintable(problems));
}

void tst_frmimagemap::windowShowsItsCaptions()
{
    QCOMPARE(test_->editor->windowTitle(), QStringLiteral("Cartolen"));
    QCOMPARE(test_->Find<QCheckBox>("Check1")->text(), QStringLiteral("Insert Image File Name Only"));
    QVERIFY(!test_->Find<QCheckBox>("Check1")->isChecked());
    QCOMPARE(test_->Text("StatusBar1_Panel1"), QStringLiteral("Open an Image !"));
    QCOMPARE(test_->Text("StatusBar1_Panel2"), QStringLiteral("Open an Image !"));
    QStringList frames;
    for (const QGroupBox* const frame : test_->editor->findChildren<QGroupBox*>()) {
        frames << frame->title();
    }
    frames.sort();
    const QStringList expected = { QStringLiteral("Cursor Position"), QStringLiteral("Ending Position :"),
                                   QStringLiteral("Original"), QStringLiteral("Size - Radius"),
                                   QStringLiteral("Starting Position") };
    QCOMPARE(frames, expected);
    QStringList captions;
    for (const QLabel* const label : test_->editor->findChildren<QLabel*>()) {
        captions << label->text();
    }
    for (const char* const caption :
         { "Width :", "Height :", "Image Map Name :", "Image Map Preview :", "Total No. of Lines :",
           "Alt. Description :", "Image Width :", "Image Height :", "Border Width :", "Horiz. Spacing :",
           "Vert. Spacing :", "Alignment : " }) {
        QVERIFY2(captions.contains(QString::fromLatin1(caption)), caption);
    }
    for (const char* const label :
         { "lblCursor1", "lblCursor2", "lblStartPosition1", "lblStartPosition2", "lblEndPosition1",
           "lblEndPosition2", "lblDimensions1", "lblDimensions2", "lblFigures" }) {
        QCOMPARE(test_->Text(label), QString());
    }
}

void tst_frmimagemap::tabsHoldTheirFields()
{
    const auto* const tabs = test_->Find<QTabWidget>("SSTab1");
    QCOMPARE(tabs->count(), 3);
    QCOMPARE(tabs->tabText(0), QStringLiteral("Creating"));
    QCOMPARE(tabs->tabText(1), QStringLiteral("Options"));
    QCOMPARE(tabs->currentIndex(), 0);
    for (const char* const name : { "lblWidthPic", "lblHeightPic", "txtName", "ListView1", "lblFigures" }) {
        QVERIFY2(tabs->widget(0)->isAncestorOf(test_->Find<QWidget>(name)), name);
    }
    for (const char* const name :
         { "txtAltDescript", "txtImgWidth", "txtImgHeight", "txtBorder", "txtHorSp", "txtVertSp" }) {
        QVERIFY2(tabs->widget(1)->isAncestorOf(test_->Find<QWidget>(name)), name);
        QCOMPARE(test_->Find<QLineEdit>(name)->text(), QString());
    }
    QVERIFY(tabs->widget(1)->isAncestorOf(test_->Find<QWidget>("cmbAlign")));
    QCOMPARE(test_->Find<QLineEdit>("txtName")->text(), QStringLiteral("MyImageMap"));
}

void tst_frmimagemap::alignmentsStandInOrder()
{
    const auto* const align = test_->Find<QComboBox>("cmbAlign");
    QStringList items;
    for (int i = 0; i < align->count(); ++i) {
        items << align->itemText(i);
    }
    QCOMPARE(
        items.join(u' '),
        QStringLiteral("TOP LEFT RIGHT TEXTTOP MIDDLE ABSMIDDLE BASELINE BOTTOM ABSBOTTOM"));
    QCOMPARE(align->currentText(), QString());
    QVERIFY(align->isEditable());
}

void tst_frmimagemap::listHasItsColumns()
{
    const QStringList headers = { QStringLiteral("Figure :"), QStringLiteral("Link to get conected to :"),
                                  QStringLiteral("Target :"), QStringLiteral("Coordinates :"),
                                  disabledHeader };
    QCOMPARE(test_->Headers(), headers);
    QCOMPARE(test_->RowCount(), 0);
    QVERIFY(!test_->List()->rootIsDecorated());
}

void tst_frmimagemap::menusHaveTheirEntriesInOrder_data()
{
    using Lines = QStringList;
    QTest::addColumn<QString>("menu");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<Lines>("lines");

    const auto add = [](const char* menu, const char* caption, const Lines& lines) {
        QTest::newRow(menu) << QString::fromLatin1(menu) << QString::fromLatin1(caption) << lines;
    };
    const QString separator = QStringLiteral("-");
    add("mnuFile", "&File",
        { QStringLiteral("mnuOpenImage=&Open an Image"), QStringLiteral("mnuNew=&New Image Map"), separator,
          QStringLiteral("mnuInsert=&Insert"), separator, QStringLiteral("mnuExit=E&xit") });
    add("mnuEdit", "&Edit",
        { QStringLiteral("mnuFigureColors=&Figure Colors..."), QStringLiteral("mnuLink=Edit &Data..."),
          separator, QStringLiteral("mnuDeleteLast=&Delete Last Figure") });
    add("mnuTool", "&Tools",
        { QStringLiteral("mnuFigNum_5=&Rectangle"), QStringLiteral("mnuFigNum_6=C&ircle"),
          QStringLiteral("mnuFigNum_7=&Line"), separator, QStringLiteral("mnuCursor=&Cursor") });
    add("mnuJS", "&Java Script", { QStringLiteral("mnuJSOptions=Java Script &Options...") });
    add("mnuHelp", "&Help", { QStringLiteral("mnuContents=&Help...") });
}

void tst_frmimagemap::menusHaveTheirEntriesInOrder()
{
    QFETCH(const QString, menu);
    QFETCH(const QString, caption);
    QFETCH(const QStringList, lines);

    const auto* const found = test_->Find<QMenu>(qPrintable(menu));
    QCOMPARE(found->title(), caption);
    QVERIFY(test_->Find<QMenuBar>("MenuBar1")->actions().contains(found->menuAction()));
    QStringList seen;
    for (const QAction* const entry : found->actions()) {
        seen << (entry->isSeparator() ? QStringLiteral("-") : entry->objectName() + u'=' + entry->text());
    }
    QCOMPARE(seen, lines);
}

void tst_frmimagemap::helpEntryShowsTheContents()
{
    QVERIFY(test_->Start());
    QDir::setCurrent(QDir::rootPath());
    QVERIFY(test_->Entry("mnuContents")->isEnabled());
    test_->Entry("mnuContents")->trigger();
    QCOMPARE(test_->help.Asked, QStringList({ QStringLiteral("contents") }));
    QCOMPARE(QDir::currentPath(), QDir(test_->imgMap.ProgramFolder).canonicalPath());
}

void tst_frmimagemap::helpKeyShowsTheEditorsPage()
{
    QVERIFY(test_->Start());
    for (const char* const name : { "txtName", "ListView1", "Check1" }) {
        test_->Find<QWidget>(name)->setFocus();
        QTest::keyClick(test_->editor->windowHandle(), Qt::Key_F1);
        QCOMPARE(test_->help.Asked, QStringList({ QStringLiteral("image-map-editor") }));
        test_->help.Asked.clear();
    }
}

void tst_frmimagemap::thirdPanelTellsToOpenAPicture()
{
    QCOMPARE(test_->Text("StatusBar1_Panel3"), QStringLiteral("First open a picture, a JPG or GIF file"));
    test_->OpenPicture();
    QCOMPARE(
        test_->Text("StatusBar1_Panel3"), QStringLiteral("Choose Rectangle, Circle or Line to draw an area"));
}

void tst_frmimagemap::panelsStandInOrder()
{
    int right = -1;
    for (const char* const name : { "StatusBar1_Panel1", "StatusBar1_Panel2", "StatusBar1_Panel3" }) {
        const auto* const panel = test_->Find<QLabel>(name);
        QVERIFY2(panel->x() > right, name);
        QVERIFY2(panel->width() > 100, name);
        right = panel->geometry().right();
    }
}

void tst_frmimagemap::windowHasALeastSize()
{
    test_->editor->resize(10, 10);
    QTRY_VERIFY(test_->editor->width() < 900);
    QVERIFY(test_->editor->width() >= 600);
    QVERIFY(test_->Find<QWidget>("PicNosac")->height() >= 150);
    QVERIFY(test_->Find<QWidget>("ListView1")->height() >= 100);
}

void tst_frmimagemap::toolbarHasItsButtonsAndSeparators()
{
    const QList<const char*> tips = { nullptr,           " New Image Map ",
                                      " Open an Image ", nullptr,
                                      " Rectangle ",     " Circle ",
                                      " Line ",          nullptr,
                                      " Cursor ",        nullptr,
                                      " Color ",         "Edit Data",
                                      nullptr,           " Delete Last Figure ",
                                      nullptr,           "Insert",
                                      nullptr,           " Exit " };
    const QList<QAction*> actions = test_->Find<QToolBar>("Toolbar1")->actions();
    QCOMPARE(actions.size(), tips.size());
    for (qsizetype i = 0; i < tips.size(); ++i) {
        QCOMPARE(actions[i]->isSeparator(), tips[i] == nullptr);
        if (tips[i] != nullptr) {
            QCOMPARE(actions[i]->toolTip(), QString::fromLatin1(tips[i]));
            QCOMPARE(
                test_->Find<QToolBar>("Toolbar1")->widgetForAction(actions[i])->toolTip(),
                QString::fromLatin1(tips[i]));
        }
    }
}

void tst_frmimagemap::toolbarButtonsShowPictures()
{
    for (const QAction* const action : test_->Find<QToolBar>("Toolbar1")->actions()) {
        if (!action->isSeparator()) {
            const QImage image = action->icon().pixmap(24, 24).toImage();
            QVERIFY2(!image.isNull(), qPrintable(action->toolTip()));
            QVERIFY2(image != QImage(image.size(), image.format()), qPrintable(action->toolTip()));
        }
    }
}

void tst_frmimagemap::loadingAllowsOnlyOpenAndExit()
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

void tst_frmimagemap::loadingCentresTheWindow()
{
    // As it is seen: showing must not make it larger than it was when it was put in the middle.
    const QRect screen = test_->editor->screen()->geometry();
    QCOMPARE(test_->editor->x(), screen.left() + (screen.width() - test_->editor->width()) / 2);
    QCOMPARE(test_->editor->y(), screen.top() + (screen.height() - test_->editor->height()) / 2);
}

void tst_frmimagemap::loadingMakesTheProgramFolderCurrent()
{
    QDir::setCurrent(QDir::tempPath());
    test_->LoadEditor();
    QCOMPARE(QDir::current(), QDir(test_->imgMap.ProgramFolder));
}

void tst_frmimagemap::loadingTurnsTheToolbarFlat()
{
    const QList<QToolButton*> buttons = test_->Find<QToolBar>("Toolbar1")->findChildren<QToolButton*>();
    QVERIFY(buttons.size() >= 11);
    for (const int position : buttonsWithFigure) {
        const auto* const button = qobject_cast<QToolButton*>(
            test_->Find<QToolBar>("Toolbar1")->widgetForAction(test_->Button(position)));
        QVERIFY2(button->autoRaise(), qPrintable(test_->Button(position)->toolTip()));
    }
}

void tst_frmimagemap::loadingAFlatToolbarTurnsItRaised()
{
    test_->editor->Form_Load();
    for (const int position : buttonsWithFigure) {
        const auto* const button = qobject_cast<QToolButton*>(
            test_->Find<QToolBar>("Toolbar1")->widgetForAction(test_->Button(position)));
        QVERIFY2(!button->autoRaise(), qPrintable(test_->Button(position)->toolTip()));
    }
}

void tst_frmimagemap::loadingStartsInCursorMode()
{
    test_->map.Ledger().DrawState = drawDrawing;
    test_->LoadEditor();
    QCOMPARE(test_->CheckedTools(), QStringList{ QStringLiteral("mnuCursor") });
    QCOMPARE(test_->map.Ledger().DrawState, drawIdle);
    QCOMPARE(test_->Status(), QStringLiteral("Open an Image !"));
}

void tst_frmimagemap::loadingLeavesTheFiguresAlone()
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

void tst_frmimagemap::loadingWritesTheModesHeader_data()
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

void tst_frmimagemap::loadingWritesTheModesHeader()
{
    QFETCH(const int, mode);
    QFETCH(const QString, header);

    test_->map.SetMode(static_cast<JSMode>(mode));
    test_->map.SetModeDefault(QStringLiteral("kept"));
    test_->LoadEditor();
    QCOMPARE(test_->MessageHeader(), header);
    QCOMPARE(test_->map.ModeDefault(), QStringLiteral("kept"));
}

void tst_frmimagemap::activatingEndsTheHourglass()
{
    QApplication::setOverrideCursor(Qt::WaitCursor);
    test_->LoadEditor();
    QVERIFY(test_->Start());
    QCOMPARE(QApplication::overrideCursor(), nullptr);
}

void tst_frmimagemap::openedPictureAllowsDrawing()
{
    test_->OpenPicture();
    QCOMPARE(test_->EnabledButtons(), buttonsWithPicture);
    QVERIFY(test_->Find<QCheckBox>("Check1")->isEnabled());
    QCOMPARE(test_->EnabledOf(figureEntries + pictureEntries), pictureEntries);
    QCOMPARE(test_->CheckedTools(), QStringList{ QStringLiteral("mnuCursor") });
    QCOMPARE(test_->Status(), QStringLiteral("Creating Mode !"));
    QCOMPARE(test_->Text("lblFigures"), QString());
}

void tst_frmimagemap::startedFigureAllowsFigureCommands_data()
{
    QTest::addColumn<int>("tool");

    QTest::newRow("rectangle") << 5;
    QTest::newRow("circle") << 6;
    QTest::newRow("line") << 7;
}

void tst_frmimagemap::startedFigureAllowsFigureCommands()
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

void tst_frmimagemap::emptiedMapAllowsNoFigureCommands()
{
    test_->OpenPicture();
    test_->DrawRectangle({ 10, 10 }, { 40, 40 });
    test_->map.SetModeDefault(QStringLiteral("gone"));
    test_->Entry("mnuDeleteLast")->trigger();
    QCOMPARE(test_->EnabledButtons(), buttonsWithPicture);
    QCOMPARE(test_->EnabledOf(figureEntries + pictureEntries), pictureEntries);
    QVERIFY(!test_->Find<QCheckBox>("Check1")->isEnabled());
    QCOMPARE(test_->Text("lblFigures"), QString());
    QCOMPARE(test_->Start1And2() + test_->End1And2() + test_->Dimensions1And2(), QString());
    QCOMPARE(test_->Text("lblCursor1") + test_->Text("lblCursor2"), QString());
    QVERIFY(!test_->Find<QWidget>("lblEndPosition1")->isHidden());
    QCOMPARE(test_->map.ModeDefault(), QString());
    QCOMPARE(test_->RowCount(), 0);
}

void tst_frmimagemap::exitWithoutFiguresCloses()
{
    test_->OpenPicture();
    test_->ClickButton(18);
    QVERIFY(test_->Closes());
    QVERIFY(test_->robot.Boxes().isEmpty());
}

void tst_frmimagemap::exitAsksAndStaysOnNo()
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

void tst_frmimagemap::exitAsksOnceAndClosesOnYes()
{
    test_->OpenPicture();
    test_->DrawRectangle({ 10, 10 }, { 40, 40 });
    test_->robot.AnswerBox(QMessageBox::Yes);
    test_->Entry("mnuExit")->trigger();
    QVERIFY(test_->Closes());
    QCOMPARE(test_->robot.Boxes().size(), 1);
    QCOMPARE(test_->map.Ledger().FigureCount, 0);
}

void tst_frmimagemap::closeBoxAsksUnderItsOwnTitle()
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

void tst_frmimagemap::closeBoxClosesOnYes()
{
    test_->OpenPicture();
    test_->DrawRectangle({ 10, 10 }, { 40, 40 });
    test_->robot.AnswerBox(QMessageBox::Yes);
    QVERIFY(test_->editor->close());
    QVERIFY(test_->Closes());
    QCOMPARE(test_->map.Ledger().FigureCount, 0);
}

void tst_frmimagemap::closeBoxWithoutFiguresCloses()
{
    QVERIFY(test_->editor->close());
    QVERIFY(test_->Closes());
    QVERIFY(test_->robot.Boxes().isEmpty());
}

void tst_frmimagemap::closingProgramTellsThatTheMapIsDeleted()
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

void tst_frmimagemap::closingProgramWithoutFiguresTellsNothing()
{
    test_->imgMap.ContinueAction = true;
    QVERIFY(test_->editor->close());
    QVERIFY(test_->Closes());
    QVERIFY(test_->robot.Boxes().isEmpty());
}

void tst_frmimagemap::closingProgramTakesAnOpenDialogAlong()
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

void tst_frmimagemap::closingKeepsModeAndDefault()
{
    test_->OpenPicture();
    test_->DrawRectangle({ 10, 10 }, { 40, 40 });
    test_->map.SetMode(JSSwitchImages);
    test_->map.SetModeDefault(QStringLiteral("default.gif"));
    test_->robot.AnswerBox(QMessageBox::Yes);
    test_->ClickButton(18);
    QVERIFY(test_->Closes());
    QCOMPARE(test_->map.Mode(), JSSwitchImages);
    QCOMPARE(test_->map.ModeDefault(), QStringLiteral("default.gif"));
}

void tst_frmimagemap::closedWindowLeavesNoHalfDrawnFigure()
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

QTEST_MAIN(tst_frmimagemap)
#include "tst_frmimagemap.moc"
