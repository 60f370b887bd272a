#include "DrawnAreasTest.h"

/** Undoing and doing again in the editor's window. */
class tst_areaundo : public DrawnAreasTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Begin(); }
    void cleanup() { End(); }

    void undoHasTheNameOfItsStep();
    void undoGoesBackOverTheOldCommandsToo();
    void whatTheDeleteQuestionThrewAwayComesBack();
    void theMapComesBackInAnotherEditor();
    void aPictureThatIsGoneIsToldOf();
};

void tst_areaundo::undoHasTheNameOfItsStep()
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

void tst_areaundo::undoGoesBackOverTheOldCommandsToo()
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

void tst_areaundo::whatTheDeleteQuestionThrewAwayComesBack()
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

void tst_areaundo::theMapComesBackInAnotherEditor()
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

void tst_areaundo::aPictureThatIsGoneIsToldOf()
{
    test_->OpenPicture();
    test_->Open(test_->WritePicture({ 200, 100 }, "other.jpg"));
    QVERIFY(QFile::remove(test_->folder.Path("picture.jpg")));
    test_->robot.AnswerBox(QMessageBox::Ok);
    Trigger("mnuAUndo");
    test_->robot.WaitUntilDone();
    QVERIFY(test_->robot.Boxes().constLast().text.contains("gone"));
}

QTEST_MAIN(tst_areaundo)
#include "tst_areaundo.moc"
