#include "DrawnAreasTest.h"

#include <QCheckBox>
#include <QMenu>
#include <QSpinBox>

/** The commands that make many areas at once: their menu, and the grid. */
class tst_drawcommands : public DrawnAreasTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Begin(); }
    void cleanup() { End(); }

    void drawStandsAtTheEndOfTheAreas();
    void nothingIsDrawnWithoutAPicture();
    void aGridIsSeenBeforeItIsMade();
    void aGridIsOneStepOfUndo();
    void aCancelledGridLeavesNothing();
    void aGridOverARectangleLiesInFrontOfIt();
    void aGridOverThePictureLiesBehindWhatIsThere();
    void aGridWithoutRoomCannotBeMade();
    void theLastGridIsOfferedAgain();
    void aGridGivesUpWhatIsDrawn();
    void anEditorThatGoesTakesTheWindowAlong();
    void lettersAreForTheOpenMenu();

private:
    QPointer<QDialog> OpenGrid()
    {
        Activate();
        return test_->DialogOpenedBy([this] { Trigger("mnuAGrid"); });
    }

    static void Type(const QDialog* dialog, const char* name, int value)
    {
        auto* const field = ::Find<QSpinBox>(dialog, name);
        field->setFocus();
        field->selectAll();
        QTest::keyClicks(field, QString::number(value));
    }

    static void Close(const QPointer<QDialog>& dialog, const char* button)
    {
        ClickIn(dialog, button);
        QTRY_VERIFY(dialog == nullptr);
    }
};

void tst_drawcommands::drawStandsAtTheEndOfTheAreas()
{
    const auto* const areas = test_->Find<QMenu>("mnuAreas");
    QCOMPARE(areas->actions().constLast()->objectName(), "mnuADraw");
}

void tst_drawcommands::nothingIsDrawnWithoutAPicture()
{
    QVERIFY(!test_->Entry("mnuAGrid")->isEnabled());
    test_->OpenPicture();
    QVERIFY(test_->Entry("mnuAGrid")->isEnabled());
}

void tst_drawcommands::aGridIsSeenBeforeItIsMade()
{
    test_->OpenPicture({ 300, 120 });
    const QImage bare = test_->Pixels();
    const QPointer<QDialog> dialog = OpenGrid();
    Type(dialog, "spnRows", 1);
    Type(dialog, "spnColumns", 2);
    const QImage two = test_->Pixels();
    QVERIFY(two.pixel(150, 60) != bare.pixel(150, 60));
    QCOMPARE(two.pixel(100, 60), bare.pixel(100, 60));
    Type(dialog, "spnColumns", 3);
    const QImage three = test_->Pixels();
    QCOMPARE(three.pixel(150, 60), bare.pixel(150, 60));
    QVERIFY(three.pixel(100, 60) != bare.pixel(100, 60));
    QCOMPARE(::Find<QLabel>(dialog, "lblCells")->text(), "3 areas of 100 by 120 pixels");
    QCOMPARE(test_->RowCount(), 0);
    Close(dialog, "cmdCancel");
    QCOMPARE(test_->Pixels(), bare);
}

void tst_drawcommands::aGridIsOneStepOfUndo()
{
    test_->OpenPicture({ 300, 120 });
    const QPointer<QDialog> dialog = OpenGrid();
    Type(dialog, "spnRows", 2);
    Type(dialog, "spnColumns", 2);
    Type(dialog, "spnGapX", 10);
    Type(dialog, "spnGapY", 20);
    Type(dialog, "spnMarginLeft", 5);
    Type(dialog, "spnMarginTop", 6);
    Type(dialog, "spnMarginRight", 15);
    Type(dialog, "spnMarginBottom", 4);
    Close(dialog, "cmdOK");
    QCOMPARE(test_->RowCount(), 4);
    QCOMPARE(Numbers(0), (QList<int>{ 5, 6, 140, 51 }));
    QCOMPARE(Numbers(3), (QList<int>{ 150, 71, 285, 116 }));
    QCOMPARE(test_->SelectedRows(), (QList<int>{ 0, 1, 2, 3 }));
    QCOMPARE(test_->Entry("mnuAUndo")->text(), "&Undo Grid of 4 Areas");
    Trigger("mnuAUndo");
    QCOMPARE(test_->RowCount(), 0);
    Trigger("mnuARedo");
    QCOMPARE(test_->RowCount(), 4);
}

void tst_drawcommands::aCancelledGridLeavesNothing()
{
    test_->OpenPicture();
    const QPointer<QDialog> dialog = OpenGrid();
    QTest::keyClick(dialog, Qt::Key_Escape);
    QTRY_VERIFY(dialog == nullptr);
    QCOMPARE(test_->RowCount(), 0);
    QVERIFY(!test_->map.HasContent());
}

void tst_drawcommands::aGridOverARectangleLiesInFrontOfIt()
{
    DrawTwo();
    Trigger("mnuASelect");
    test_->ClickAt({ 120, 40 });
    const QPointer<QDialog> dialog = OpenGrid();
    QVERIFY(::Find<QCheckBox>(dialog, "chkSelected")->isChecked());
    Type(dialog, "spnRows", 1);
    Type(dialog, "spnColumns", 2);
    Close(dialog, "cmdOK");
    QCOMPARE(test_->RowCount(), 4);
    QCOMPARE(Numbers(1), (QList<int>{ 100, 20, 130, 60 }));
    QCOMPARE(Numbers(2), (QList<int>{ 130, 20, 160, 60 }));
    QCOMPARE(test_->Row(3).at(1), "two.htm");
}

void tst_drawcommands::aGridOverThePictureLiesBehindWhatIsThere()
{
    DrawTwo();
    Trigger("mnuASelect");
    test_->ClickAt({ 120, 40 });
    const QPointer<QDialog> dialog = OpenGrid();
    QTest::keyClick(::Find<QCheckBox>(dialog, "chkSelected"), Qt::Key_Space);
    Type(dialog, "spnRows", 1);
    Type(dialog, "spnColumns", 1);
    Close(dialog, "cmdOK");
    QCOMPARE(test_->RowCount(), 3);
    QCOMPARE(Numbers(2), (QList<int>{ 0, 0, 300, 120 }));
}

void tst_drawcommands::aGridWithoutRoomCannotBeMade()
{
    test_->OpenPicture({ 50, 50 });
    const QPointer<QDialog> dialog = OpenGrid();
    Type(dialog, "spnColumns", 100);
    QVERIFY(!::Find<QPushButton>(dialog, "cmdOK")->isEnabled());
    QCOMPARE(::Find<QLabel>(dialog, "lblCells")->text(), "There is no room for that many cells.");
    Type(dialog, "spnColumns", 10);
    QVERIFY(::Find<QPushButton>(dialog, "cmdOK")->isEnabled());
    Close(dialog, "cmdCancel");
}

void tst_drawcommands::theLastGridIsOfferedAgain()
{
    test_->OpenPicture();
    QPointer<QDialog> dialog = OpenGrid();
    Type(dialog, "spnRows", 7);
    Type(dialog, "spnMarginTop", 8);
    Close(dialog, "cmdOK");
    dialog = OpenGrid();
    QCOMPARE(::Find<QSpinBox>(dialog, "spnRows")->value(), 7);
    QCOMPARE(::Find<QSpinBox>(dialog, "spnMarginTop")->value(), 8);
    Close(dialog, "cmdCancel");
}

void tst_drawcommands::aGridGivesUpWhatIsDrawn()
{
    test_->OpenPicture();
    test_->ClickButton(7);
    test_->ClickAt({ 20, 20 });
    test_->Move({ 60, 20 });
    test_->ClickAt({ 60, 20 });
    const QPointer<QDialog> dialog = OpenGrid();
    Close(dialog, "cmdOK");
    QCOMPARE(test_->RowCount(), 9);
    QCOMPARE(test_->Text("lblFigures"), "9");
}

void tst_drawcommands::anEditorThatGoesTakesTheWindowAlong()
{
    test_->OpenPicture();
    const QPointer<QDialog> dialog = OpenGrid();
    delete test_->editor.data();
    QVERIFY(dialog == nullptr);
}

/** S is the key of Select too, which must not act in place of an entry. */
void tst_drawcommands::lettersAreForTheOpenMenu()
{
    test_->OpenPicture();
    Activate();
    auto* const menu = test_->Find<QMenu>("mnuADraw");
    menu->popup(test_->editor->mapToGlobal(QPoint(20, 20)));
    QTRY_VERIFY(menu->isVisible());
    test_->Surface()->setFocus();
    test_->robot.Cancel();
    QTest::keyClick(menu, Qt::Key_S);
    test_->robot.WaitUntilDone();
    QCOMPARE(test_->robot.ProposedFolders().size(), 2); // for the picture, and now for a drawing
    QVERIFY(!test_->Entry("mnuASelect")->isChecked());
}

QTEST_MAIN(tst_drawcommands)

#include "tst_drawcommands.moc"
