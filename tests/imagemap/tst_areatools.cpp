#include "DrawnAreasTest.h"

#include <QComboBox>

/** Select and the trying of the map, by mouse and keys in the editor's window. */
class tst_areatools : public DrawnAreasTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Begin(); }
    void cleanup() { End(); }

    void selectUnchecksTheDrawingTools();
    void aDrawingToolEndsSelecting();
    void openingAPictureReturnsToTheCursor();
    void listAndPictureShowTheSameSelection();
    void aRowSelectedIsSelectedInThePicture();
    void draggingMovesAnArea();
    void aDoubleClickOpensTheLinkDialog();
    void tabLeavesThePictureBehindTheLastArea();
    void readersHearTheSelectedArea();
    void triedAreasTellWhereTheyLead();
};

void tst_areatools::selectUnchecksTheDrawingTools()
{
    test_->OpenPicture();
    test_->ClickButton(5);
    Trigger("mnuASelect");
    QCOMPARE(test_->CheckedTools(), QStringList());
    QVERIFY(test_->Entry("mnuASelect")->isChecked());
    QCOMPARE(test_->Status(), "Creating Mode !");
}

void tst_areatools::aDrawingToolEndsSelecting()
{
    DrawTwo();
    Trigger("mnuASelect");
    test_->ClickAt({ 20, 20 });
    QCOMPARE(test_->SelectedRows(), QList{ 0 });
    test_->ClickButton(6);
    QVERIFY(!test_->Entry("mnuASelect")->isChecked());
    QCOMPARE(test_->CheckedTools(), QStringList{ "mnuFigNum_6" });
}

void tst_areatools::openingAPictureReturnsToTheCursor()
{
    test_->OpenPicture();
    Trigger("mnuASelect");
    test_->OpenPicture({ 200, 100 });
    QVERIFY(!test_->Entry("mnuASelect")->isChecked());
    QCOMPARE(test_->CheckedTools(), QStringList{ "mnuCursor" });
}

void tst_areatools::listAndPictureShowTheSameSelection()
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

void tst_areatools::aRowSelectedIsSelectedInThePicture()
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

void tst_areatools::draggingMovesAnArea()
{
    DrawTwo();
    Trigger("mnuASelect");
    test_->Drag({ 20, 20 }, { 25, 40 });
    QCOMPARE(Numbers(0), (QList{ 15, 30, 75, 70 }));
    QCOMPARE(test_->Row(0).at(3), "15, 30, 75, 70");
    QCOMPARE(test_->Start1And2(), "15,30");
}

void tst_areatools::aDoubleClickOpensTheLinkDialog()
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

void tst_areatools::tabLeavesThePictureBehindTheLastArea()
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

void tst_areatools::readersHearTheSelectedArea()
{
    DrawTwo();
    Trigger("mnuASelect");
    Key(Qt::Key_Tab);
    QCOMPARE(test_->Surface()->accessibleDescription(), "No: 1 Rectangle, one.htm, 10, 10, 70, 50");
}

void tst_areatools::triedAreasTellWhereTheyLead()
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

QTEST_MAIN(tst_areatools)
#include "tst_areatools.moc"
