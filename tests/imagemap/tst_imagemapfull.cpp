// What the image map editor tells when no further figure has room.

#include "tests/imagemap/EditorTest.h"

namespace {

const QString fullOfLines =
    QStringLiteral("         The array is full.\n      You have entered the\nmaximum number of lines.");

const QString fullOfFigures =
    QStringLiteral("         The array is full.\n      You have entered the\nmaximum number of figures.");

} // namespace

class tst_imagemapfull : public EditorTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { BeginWithPicture(); }
    void cleanup() { End(); }

    void fullStoreRefusesTheNextFigure_data();
    void fullStoreRefusesTheNextFigure();
    void fullStoreMessageLeavesNoStuckButton();
    void lastPlaceOfTheStoreCanBeDrawn();
};

void tst_imagemapfull::fullStoreRefusesTheNextFigure_data()
{
    QTest::addColumn<int>("tool");
    QTest::addColumn<QString>("text");

    QTest::newRow("rectangle") << 5 << fullOfLines;
    QTest::newRow("circle") << 6 << fullOfLines;
    QTest::newRow("line") << 7 << fullOfFigures;
}

void tst_imagemapfull::fullStoreRefusesTheNextFigure()
{
    QFETCH(const int, tool);
    QFETCH(const QString, text);

    test_->FillStore(500);
    const QImage before = test_->Pixels();
    test_->ClickButton(tool);
    test_->robot.AnswerBox(QMessageBox::Ok);
    test_->Drag({ 50, 50 }, { 80, 80 });
    test_->robot.WaitUntilDone();
    test_->Settle();
    QCOMPARE(test_->robot.Boxes().size(), 1);
    const DialogRobot::SeenBox box = test_->robot.Boxes().constFirst();
    QCOMPARE(box.text, text);
    QCOMPARE(box.title, QStringLiteral("Cartolen"));
    QCOMPARE(box.icon, QMessageBox::Warning);
    QCOMPARE(box.buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
    QCOMPARE(test_->map.Ledger().FigureCount, 500);
    QCOMPARE(test_->map.Ledger().DrawState, drawIdle);
    QCOMPARE(test_->Pixels(), before);
}

void tst_imagemapfull::fullStoreMessageLeavesNoStuckButton()
{
    test_->FillStore(500);
    test_->ClickButton(5);
    test_->robot.AnswerBox(QMessageBox::Ok);
    test_->Press({ 50, 50 });
    test_->robot.WaitUntilDone();
    // The button is let go while the box has been there: the picture never hears of it.
    test_->Release({ 50, 50 });
    test_->ClickButton(6);
    QCOMPARE(test_->CheckedTools(), QStringList{ QStringLiteral("mnuFigNum_6") });
    test_->map.Ledger().FigureCount = 400;
    test_->Link("again.htm", [this] { test_->Drag({ 50, 50 }, { 80, 55 }); });
    QCOMPARE(test_->Row(0).at(3), QStringLiteral("50, 50, 30"));
}

void tst_imagemapfull::lastPlaceOfTheStoreCanBeDrawn()
{
    test_->FillStore(499);
    test_->DrawRectangle({ 50, 50 }, { 80, 80 });
    QCOMPARE(test_->map.Ledger().FigureCount, 500);
    QCOMPARE(test_->Text("lblFigures"), QStringLiteral("500"));
    test_->ClickButton(14);
    QCOMPARE(test_->map.Ledger().FigureCount, 499);
    QCOMPARE(test_->RowCount(), 0);

    // A polygon gets one side more, which the full store then keeps from being ended.
    test_->ClickButton(7);
    test_->ClickAt({ 20, 20 });
    test_->Move({ 60, 20 });
    test_->robot.AnswerBox(QMessageBox::Ok);
    test_->ClickAt({ 60, 20 });
    test_->robot.WaitUntilDone();
    QCOMPARE(test_->robot.Boxes().constLast().text, fullOfFigures);
    QCOMPARE(test_->map.Ledger().FigureCount, 500);
    test_->ClickAt({ 60, 20 }, Qt::RightButton);
    test_->Settle();
    QCOMPARE(test_->map.Ledger().FigureCount, 500);
    QCOMPARE(test_->map.Ledger().CurrentPolygonLineCount, 1);
}

QTEST_MAIN(tst_imagemapfull)

#include "tst_imagemapfull.moc"
