#include "DrawnAreasTest.h"

#include <QClipboard>
#include <QLineEdit>
#include <QMenuBar>

/** The commands that change areas, by mouse and keys in the editor's window. */
class tst_areacommands : public DrawnAreasTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Begin(); }
    void cleanup() { End(); }

    void newMenusStandInFrontOfHelp();
    void everyNewButtonIsInAMenu();
    void nothingCanBeDoneWithoutAPicture();
    void deleteTakesTheSelectedAreaAndNotTheLast();
    void deletingTextInAFieldDeletesNoArea();
    void lettersInAFieldChooseNoTool();
    void areasAreCopiedAndPasted();
    void theOrderChangesByKeys();
    void aNewCommandGivesUpWhatIsDrawn();
    void editedAreasAreAskedForBeforeTheyGo();
    void deleteLastTakesTheLastRow();
    void areasAreDrawnByKeys();
    void faultsAreMarkedInTheList();
    void whatIsSwitchedOnIsRemembered();
};

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
