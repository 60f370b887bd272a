#include "EditorFixture.h"
#include "imagemap/model/AreaGeometry.h"

#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QTabWidget>
#include <memory>

/** The commands that change areas, by mouse and keys in the editor's window. */
class tst_areacommands : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { test_.reset(); }

    void newMenusStandInFrontOfHelp();
    void everyNewButtonIsInAMenu();
    void nothingCanBeDoneWithoutAPicture();
    void selectUnchecksTheDrawingTools();
    void aDrawingToolEndsSelecting();
    void openingAPictureReturnsToTheCursor();
    void listAndPictureShowTheSameSelection();
    void aRowSelectedIsSelectedInThePicture();
    void draggingMovesAnArea();
    void undoHasTheNameOfItsStep();
    void undoGoesBackOverTheOldCommandsToo();
    void whatTheDeleteQuestionThrewAwayComesBack();
    void deleteTakesTheSelectedAreaAndNotTheLast();
    void deletingTextInAFieldDeletesNoArea();
    void lettersInAFieldChooseNoTool();
    void areasAreCopiedAndPasted();
    void theOrderChangesByKeys();
    void aNewCommandGivesUpWhatIsDrawn();
    void editedAreasAreAskedForBeforeTheyGo();
    void deleteLastTakesTheLastRow();
    void aDoubleClickOpensTheLinkDialog();
    void tabLeavesThePictureBehindTheLastArea();
    void areasAreDrawnByKeys();
    void readersHearTheSelectedArea();
    void triedAreasTellWhereTheyLead();
    void faultsAreMarkedInTheList();
    void theAreaTabShowsTheSelectedArea();
    void typingInTheAreaTabIsOneStep();
    void coordinatesAreCheckedWhileTheyAreTyped();
    void shapesAreConvertedInTheTab();
    void theMapComesBackInAnotherEditor();
    void aPictureThatIsGoneIsToldOf();
    void whatIsSwitchedOnIsRemembered();

private:
    void Trigger(const char* name) { test_->Entry(name)->trigger(); }
    [[nodiscard]] QList<int> Numbers(qsizetype area) const { return test_->map.Areas().at(area).Coordinates; }
    void DrawTwo();
    /** The window is the active one again, which it is not at once when a dialog has closed. */
    void Activate()
    {
        test_->editor->activateWindow();
        if (!QTest::qWaitForWindowActive(test_->editor)) {
            qFatal("the editor is not active");
        }
    }
    void Key(int key, Qt::KeyboardModifiers keys = {})
    {
        Activate();
        test_->Surface()->setFocus();
        QTest::keyClick(test_->Surface(), Qt::Key(key), keys);
    }

    std::unique_ptr<EditorFixture> test_;
};

void tst_areacommands::init()
{
    test_ = std::make_unique<EditorFixture>();
    QVERIFY(test_->Start());
}

/** A rectangle of 60 by 40 pixels and another one beside it. */
void tst_areacommands::DrawTwo()
{
    test_->OpenPicture({ 300, 120 });
    test_->DrawRectangle({ 10, 10 }, { 70, 50 }, "one.htm");
    test_->DrawRectangle({ 100, 20 }, { 160, 60 }, "two.htm");
    Activate();
}

void tst_areacommands::newMenusStandInFrontOfHelp()
{
    QStringList names;
    for (const QAction* const menu : test_->Find<QMenuBar>("MenuBar1")->actions()) {
        names << menu->objectName();
    }
    QCOMPARE(
        names, (QStringList{ "mnuFile", "mnuEdit", "mnuTool", "mnuJS", "mnuAreas", "mnuView", "mnuHelp" }));
}

void tst_areacommands::everyNewButtonIsInAMenu()
{
    const QStringList entries = { "mnuASelect", "mnuAUndo",   "mnuARedo",   "mnuACut",   "mnuACopy",
                                  "mnuAPaste",  "mnuADelete", "mnuVZoomIn", "mnuVAreas", "mnuATry" };
    for (const QString& entry : entries) {
        QVERIFY2(test_->Entry(qPrintable(entry)) != nullptr, qPrintable(entry));
    }
    for (const QAction* const action : test_->Find<QToolBar>("Toolbar2")->actions()) {
        if (!action->isSeparator()) {
            QVERIFY2(!action->icon().isNull(), qPrintable(action->objectName()));
            QVERIFY2(
                !action->icon().availableSizes().isEmpty() || !action->icon().pixmap(16).isNull(), "drawn");
        }
    }
}

void tst_areacommands::nothingCanBeDoneWithoutAPicture()
{
    for (const char* const name : { "mnuASelect", "mnuAUndo", "mnuARedo", "mnuACut", "mnuAPaste",
                                    "mnuADelete", "mnuASelectAll", "mnuATry", "mnuVZoomIn", "mnuVFit" }) {
        QVERIFY2(!test_->Entry(name)->isEnabled(), name);
    }
}

void tst_areacommands::selectUnchecksTheDrawingTools()
{
    test_->OpenPicture();
    test_->ClickButton(5);
    Trigger("mnuASelect");
    QCOMPARE(test_->CheckedTools(), QStringList());
    QVERIFY(test_->Entry("mnuASelect")->isChecked());
    QCOMPARE(test_->Status(), "Creating Mode !");
}

void tst_areacommands::aDrawingToolEndsSelecting()
{
    DrawTwo();
    Trigger("mnuASelect");
    test_->ClickAt({ 20, 20 });
    QCOMPARE(test_->SelectedRows(), QList{ 0 });
    test_->ClickButton(6);
    QVERIFY(!test_->Entry("mnuASelect")->isChecked());
    QCOMPARE(test_->CheckedTools(), QStringList{ "mnuFigNum_6" });
}

void tst_areacommands::openingAPictureReturnsToTheCursor()
{
    test_->OpenPicture();
    Trigger("mnuASelect");
    test_->OpenPicture({ 200, 100 });
    QVERIFY(!test_->Entry("mnuASelect")->isChecked());
    QCOMPARE(test_->CheckedTools(), QStringList{ "mnuCursor" });
}

void tst_areacommands::listAndPictureShowTheSameSelection()
{
    DrawTwo();
    Trigger("mnuASelect");
    const QImage before = test_->Pixels();
    test_->ClickAt({ 20, 20 });
    QCOMPARE(test_->SelectedRows(), QList{ 0 });
    QVERIFY(test_->Pixels() != before);
    QTest::mouseClick(test_->Surface(), Qt::LeftButton, Qt::ShiftModifier, { 110, 30 });
    QCOMPARE(test_->SelectedRows(), (QList{ 0, 1 }));
    test_->ClickAt({ 250, 100 });
    QCOMPARE(test_->SelectedRows(), QList<int>());
    QCOMPARE(test_->Pixels(), before);
}

void tst_areacommands::aRowSelectedIsSelectedInThePicture()
{
    DrawTwo();
    Trigger("mnuASelect");
    const QImage before = test_->Pixels();
    QTest::mouseClick(test_->List()->viewport(), Qt::LeftButton, {}, test_->RowRect(1).center());
    QVERIFY(test_->Pixels() != before);
    Trigger("mnuADelete");
    QCOMPARE(test_->map.Areas().size(), 1);
    QCOMPARE(test_->Row(0).at(1), "one.htm");
}

void tst_areacommands::draggingMovesAnArea()
{
    DrawTwo();
    Trigger("mnuASelect");
    test_->Drag({ 20, 20 }, { 25, 40 });
    QCOMPARE(Numbers(0), (QList{ 15, 30, 75, 70 }));
    QCOMPARE(test_->Row(0).at(3), "15, 30, 75, 70");
    QCOMPARE(test_->Start1And2(), "15,30");
}

void tst_areacommands::undoHasTheNameOfItsStep()
{
    DrawTwo();
    Trigger("mnuASelect");
    test_->Drag({ 20, 20 }, { 25, 40 });
    QCOMPARE(test_->Entry("mnuAUndo")->text(), "&Undo Move of an Area");
    Key(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(Numbers(0), (QList{ 10, 10, 70, 50 }));
    QCOMPARE(test_->Entry("mnuARedo")->text(), "&Redo Move of an Area");
    Key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(Numbers(0), (QList{ 15, 30, 75, 70 }));
}

void tst_areacommands::undoGoesBackOverTheOldCommandsToo()
{
    DrawTwo();
    const MapState before = test_->map.State();
    test_->ClickButton(14);
    QCOMPARE(test_->RowCount(), 1);
    Trigger("mnuAUndo");
    QCOMPARE(test_->map.State(), before);
    QCOMPARE(test_->RowCount(), 2);
    Trigger("mnuAUndo");
    QCOMPARE(test_->RowCount(), 1);
    Trigger("mnuAUndo");
    QCOMPARE(test_->RowCount(), 0);
    QVERIFY(!test_->Entry("mnuDeleteLast")->isEnabled());
    Trigger("mnuARedo");
    Trigger("mnuARedo");
    QCOMPARE(test_->map.State(), before);
    QVERIFY(test_->Entry("mnuDeleteLast")->isEnabled());
}

void tst_areacommands::whatTheDeleteQuestionThrewAwayComesBack()
{
    DrawTwo();
    const QImage before = test_->Pixels();
    test_->robot.AnswerBox(QMessageBox::Yes);
    test_->ClickButton(2);
    QTRY_COMPARE(test_->RowCount(), 0);
    Trigger("mnuAUndo");
    QCOMPARE(test_->RowCount(), 2);
    QCOMPARE(test_->Pixels(), before);
}

void tst_areacommands::deleteTakesTheSelectedAreaAndNotTheLast()
{
    DrawTwo();
    Trigger("mnuASelect");
    test_->ClickAt({ 20, 20 });
    Key(Qt::Key_Delete);
    QCOMPARE(test_->RowCount(), 1);
    QCOMPARE(test_->Row(0).at(1), "two.htm");
    QCOMPARE(test_->Text("lblFigures"), "1");
}

void tst_areacommands::deletingTextInAFieldDeletesNoArea()
{
    DrawTwo();
    test_->SelectRow(0);
    auto* const name = test_->Find<QLineEdit>("txtName");
    name->setFocus();
    name->clear();
    QTest::keyClicks(name, "abc");
    QTest::keyClick(name, Qt::Key_Home);
    QTest::keyClick(name, Qt::Key_Delete);
    QCOMPARE(name->text(), "bc");
    QCOMPARE(test_->RowCount(), 2);
}

void tst_areacommands::lettersInAFieldChooseNoTool()
{
    DrawTwo();
    auto* const name = test_->Find<QLineEdit>("txtName");
    name->setFocus();
    name->clear();
    QTest::keyClicks(name, "sS");
    QCOMPARE(name->text(), "sS");
    QVERIFY(!test_->Entry("mnuASelect")->isChecked());
    test_->List()->setFocus();
    QTest::keyClick(test_->List(), Qt::Key_S);
    QVERIFY(test_->Entry("mnuASelect")->isChecked());
}

void tst_areacommands::areasAreCopiedAndPasted()
{
    DrawTwo();
    Trigger("mnuASelect");
    test_->ClickAt({ 20, 20 });
    Trigger("mnuACopy");
    QCOMPARE(QGuiApplication::clipboard()->text(), "10, 10, 70, 50");
    Trigger("mnuACut");
    QCOMPARE(test_->RowCount(), 1);
    Trigger("mnuAPaste");
    QCOMPARE(test_->RowCount(), 2);
    QCOMPARE(test_->Row(0).at(1), "one.htm");
    QCOMPARE(test_->SelectedRows(), QList{ 0 });
    QGuiApplication::clipboard()->setText("10, 10, 70, 50");
    Trigger("mnuAPaste");
    QCOMPARE(test_->RowCount(), 2);
}

void tst_areacommands::theOrderChangesByKeys()
{
    DrawTwo();
    Trigger("mnuASelect");
    test_->ClickAt({ 110, 30 });
    Key(Qt::Key_Up, Qt::AltModifier);
    QCOMPARE(test_->Row(0).at(1), "two.htm");
    QCOMPARE(test_->SelectedRows(), QList{ 0 });
    Key(Qt::Key_Down, Qt::AltModifier);
    QCOMPARE(test_->Row(1).at(1), "two.htm");
}

void tst_areacommands::aNewCommandGivesUpWhatIsDrawn()
{
    DrawTwo();
    test_->ClickButton(7);
    test_->Move({ 200, 20 });
    test_->ClickAt({ 200, 20 });
    test_->Move({ 250, 20 });
    test_->ClickAt({ 250, 20 });
    QVERIFY(test_->map.Drawing().IsInProgress());
    Trigger("mnuVZoomIn");
    QVERIFY(!test_->map.Drawing().IsInProgress());
}

void tst_areacommands::editedAreasAreAskedForBeforeTheyGo()
{
    DrawTwo();
    test_->map.ChangeAreas({ { AreaShape::Rectangle, { 40000, 1, 40010, 9 }, "far.htm", {}, {} } }, "far");
    QCOMPARE(test_->map.Figures().FigureCount, 0);
    QVERIFY(test_->Entry("mnuInsert")->isEnabled());
    test_->robot.AnswerBox(QMessageBox::No);
    test_->ClickButton(2);
    test_->robot.WaitUntilDone();
    QCOMPARE(test_->RowCount(), 1);
}

void tst_areacommands::deleteLastTakesTheLastRow()
{
    DrawTwo();
    Trigger("mnuASelect");
    test_->ClickAt({ 110, 30 });
    Key(Qt::Key_Up, Qt::AltModifier);
    test_->ClickButton(14);
    QCOMPARE(test_->RowCount(), 1);
    QCOMPARE(test_->Row(0).at(1), "two.htm");
    test_->ClickButton(14);
    QCOMPARE(test_->RowCount(), 0);
    QVERIFY(!test_->Entry("mnuDeleteLast")->isEnabled());
}

void tst_areacommands::aDoubleClickOpensTheLinkDialog()
{
    DrawTwo();
    Trigger("mnuASelect");
    const QPointer<QDialog> dialog = test_->DialogOpenedBy([this] {
        test_->ClickAt({ 110, 30 });
        QTest::mouseDClick(test_->Surface(), Qt::LeftButton, {}, { 110, 30 });
    });
    QCOMPARE(::Find<QComboBox>(dialog, "cmbLink")->currentText(), "two.htm");
    ClickIn(dialog, "SSCmdClose");
    test_->robot.WaitUntilDone();
}

void tst_areacommands::tabLeavesThePictureBehindTheLastArea()
{
    DrawTwo();
    Trigger("mnuASelect");
    Key(Qt::Key_Tab);
    QCOMPARE(test_->SelectedRows(), QList{ 0 });
    Key(Qt::Key_Tab);
    QCOMPARE(test_->SelectedRows(), QList{ 1 });
    QVERIFY(test_->Surface()->hasFocus());
    Key(Qt::Key_Tab);
    QVERIFY(!test_->Surface()->hasFocus());
}

void tst_areacommands::areasAreDrawnByKeys()
{
    test_->OpenPicture();
    test_->ClickButton(5);
    test_->Move({ 20, 30 });
    test_->Link("keys.htm", [this] {
        Key(Qt::Key_Return);
        Key(Qt::Key_Right, Qt::ShiftModifier);
        Key(Qt::Key_Right);
        Key(Qt::Key_Down, Qt::ShiftModifier);
        Key(Qt::Key_Return);
    });
    QCOMPARE(Numbers(0), (QList{ 20, 30, 31, 40 }));
    test_->ClickButton(7);
    test_->Move({ 100, 100 });
    test_->Link("polygon.htm", [this] {
        Key(Qt::Key_Return);
        Key(Qt::Key_Right, Qt::ShiftModifier);
        Key(Qt::Key_Return);
        Key(Qt::Key_Down, Qt::ShiftModifier);
        Key(Qt::Key_Return, Qt::ControlModifier);
    });
    QCOMPARE(Numbers(1), (QList{ 100, 100, 110, 100, 110, 110 }));
}

void tst_areacommands::readersHearTheSelectedArea()
{
    DrawTwo();
    Trigger("mnuASelect");
    Key(Qt::Key_Tab);
    QCOMPARE(test_->Surface()->accessibleDescription(), "No: 1 Rectangle, one.htm, 10, 10, 70, 50");
}

void tst_areacommands::triedAreasTellWhereTheyLead()
{
    DrawTwo();
    Trigger("mnuATry");
    test_->Move({ 20, 20 });
    QCOMPARE(test_->Surface()->cursor().shape(), Qt::PointingHandCursor);
    QCOMPARE(test_->Text("StatusBar1_Panel3"), "one.htm");
    test_->ClickAt({ 20, 20 });
    test_->Move({ 290, 110 });
    QCOMPARE(test_->Surface()->cursor().shape(), Qt::ArrowCursor);
    Trigger("mnuATry");
    QVERIFY(!test_->Entry("mnuATry")->isChecked());
    QVERIFY(test_->Entry("mnuASelect")->isChecked());
}

void tst_areacommands::faultsAreMarkedInTheList()
{
    test_->OpenPicture();
    test_->DrawRectangle({ 10, 10 }, { 20, 20 });
    const QModelIndex coordinates = test_->List()->model()->index(0, 3);
    QVERIFY(!coordinates.data(Qt::DecorationRole).isValid());
    Trigger("mnuVAreas");
    QVERIFY(coordinates.data(Qt::DecorationRole).isValid());
    QVERIFY(coordinates.data(Qt::ToolTipRole).toString().contains("smaller than 24 pixels"));
    Trigger("mnuVAreas");
    QVERIFY(!coordinates.data(Qt::DecorationRole).isValid());
}

void tst_areacommands::theAreaTabShowsTheSelectedArea()
{
    DrawTwo();
    Trigger("mnuASelect");
    test_->Find<QTabWidget>("SSTab1")->setCurrentIndex(2);
    QVERIFY(!test_->Find<QLineEdit>("txtAreaCoords")->isEnabled());
    test_->ClickAt({ 20, 20 });
    QCOMPARE(test_->Find<QLineEdit>("txtAreaCoords")->text(), "10, 10, 70, 50");
    QCOMPARE(test_->Find<QComboBox>("cmbAreaLink")->currentText(), "one.htm");
    QCOMPARE(test_->Find<QComboBox>("cmbAreaShape")->currentText(), "Rectangle");
}

void tst_areacommands::typingInTheAreaTabIsOneStep()
{
    DrawTwo();
    Trigger("mnuASelectAll");
    test_->Find<QTabWidget>("SSTab1")->setCurrentIndex(2);
    auto* const text = test_->Find<QLineEdit>("txtAreaText");
    text->setFocus();
    QTest::keyClicks(text, "harbour");
    QCOMPARE(test_->map.Areas().at(0).Text, "harbour");
    QCOMPARE(test_->map.Areas().at(1).Text, "harbour");
    QCOMPARE(test_->map.History().UndoName(), "Change of the Text of 2 Areas");
    Trigger("mnuAUndo");
    QCOMPARE(test_->map.Areas().at(0).Text, QString());
}

void tst_areacommands::coordinatesAreCheckedWhileTheyAreTyped()
{
    DrawTwo();
    Trigger("mnuASelect");
    test_->ClickAt({ 20, 20 });
    test_->Find<QTabWidget>("SSTab1")->setCurrentIndex(2);
    auto* const field = test_->Find<QLineEdit>("txtAreaCoords");
    field->setFocus();
    field->selectAll();
    QTest::keyClicks(field, "1 2 30");
    QCOMPARE(test_->Text("lblAreaProblem"), "A rectangle takes four numbers: left, top, right, bottom");
    QCOMPARE(Numbers(0), (QList{ 10, 10, 70, 50 }));
    QTest::keyClicks(field, " 40");
    QCOMPARE(test_->Text("lblAreaProblem"), QString());
    QCOMPARE(Numbers(0), (QList{ 1, 2, 30, 40 }));
    QCOMPARE(field->text(), "1 2 30 40");
    QTest::keyClick(field, Qt::Key_Return);
    QCOMPARE(field->text(), "1, 2, 30, 40");
}

void tst_areacommands::shapesAreConvertedInTheTab()
{
    DrawTwo();
    Trigger("mnuASelect");
    test_->ClickAt({ 20, 20 });
    test_->Find<QTabWidget>("SSTab1")->setCurrentIndex(2);
    auto* const shape = test_->Find<QComboBox>("cmbAreaShape");
    shape->setFocus();
    QTest::keyClick(shape, Qt::Key_End);
    QCOMPARE(test_->map.Areas().at(0).Shape, AreaShape::Polygon);
    QCOMPARE(Numbers(0), (QList{ 10, 10, 70, 10, 70, 50, 10, 50 }));
}

void tst_areacommands::theMapComesBackInAnotherEditor()
{
    DrawTwo();
    test_->robot.AnswerBox(QMessageBox::Yes);
    test_->editor->close();
    QVERIFY(test_->Closes());
    test_->LoadEditor();
    QVERIFY(test_->Start());
    QCOMPARE(test_->RowCount(), 0);
    Trigger("mnuAUndo");
    QCOMPARE(test_->Surface()->size(), QSize(300, 120));
    Trigger("mnuAUndo");
    QCOMPARE(test_->RowCount(), 2);
    QVERIFY(test_->Entry("mnuFigNum_5")->isEnabled());
}

void tst_areacommands::aPictureThatIsGoneIsToldOf()
{
    test_->OpenPicture();
    test_->Open(test_->WritePicture({ 200, 100 }, "other.jpg"));
    QVERIFY(QFile::remove(test_->folder.Path("picture.jpg")));
    test_->robot.AnswerBox(QMessageBox::Ok);
    Trigger("mnuAUndo");
    test_->robot.WaitUntilDone();
    QVERIFY(test_->robot.Boxes().constLast().text.contains("gone"));
}

void tst_areacommands::whatIsSwitchedOnIsRemembered()
{
    const QString file = test_->folder.Path("Data/Settings.ini");
    test_->imgMap.Remembered.Open(test_->imgMap.ProgramFolder);
    DrawTwo();
    Trigger("mnuASelect");
    Trigger("mnuVZoomIn");
    QVERIFY(!QFile::exists(file));
    Trigger("mnuVAreas");
    Trigger("mnuVSnap");
    QVERIFY(QFile::exists(file));
    test_->map.Clear();
    test_->LoadEditor();
    QVERIFY(test_->Start());
    QVERIFY(test_->Entry("mnuVAreas")->isChecked());
    QVERIFY(test_->Entry("mnuVSnap")->isChecked());
    QVERIFY(!test_->Entry("mnuVGuides")->isChecked());
}

QTEST_MAIN(tst_areacommands)
#include "tst_areacommands.moc"
