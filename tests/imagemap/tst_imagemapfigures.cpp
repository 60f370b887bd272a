// What becomes of a figure once it is drawn: linked, taken back, deleted, painted in another colour.

#include "tests/imagemap/EditorTest.h"
#include "tests/imagemap/Places.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QDialogButtonBox>

namespace {

constexpr QRgb red = qRgb(255, 0, 0);

} // namespace

class tst_imagemapfigures : public EditorTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { BeginWithPicture(); }
    void cleanup() { End(); }

    void linkDialogOpensAfterTheRelease();
    void closedDialogTakesTheFigureBack_data();
    void closedDialogTakesTheFigureBack();
    void closedDialogTakesThePolygonBack();
    void promptFollowsTheMode_data();
    void promptFollowsTheMode();
    void nextDrawingWorksAfterADialog();
    void doubleClickOpensOneDialog();
    void editorTakesNoMouseWhileTheDialogIsOpen();

    void deletingRestoresThePicture();
    void deletingKeepsTheFiguresBefore();
    void deletingAHalfDrawnPolygonKeepsTheRows();
    void deletingWithTheFirstFigureHalfDrawnAbandonsIt();
    void deletingAPolygonTakesItsSidesAndRow();

    void pickedColorRepaintsTheFigures();
    void cancelledColorChangesNothing();
    void pickingAColorWhileDrawingTheFirstFigureDisablesNothing();
};

void tst_imagemapfigures::linkDialogOpensAfterTheRelease()
{
    test_->ClickButton(5);
    const QPointer<QDialog> dialog = test_->DialogOpenedBy([this] { test_->Drag({ 20, 20 }, { 60, 50 }); });
    QCOMPARE(dialog->objectName(), QStringLiteral("frmIMLink"));
    QVERIFY(dialog->isModal());
    QCOMPARE(dialog->windowTitle(), QStringLiteral("Standard Image Map"));
    QVERIFY(Find<QPushButton>(dialog, "SSCmdOK")->isEnabled());
    QVERIFY(!Find<QPushButton>(dialog, "SSCmdReplace")->isEnabled());
    QCOMPARE(test_->Status(), QStringLiteral("Link a drawn area !"));
    QCOMPARE(test_->map.Ledger().FigureCount, 1);
    QCOMPARE(test_->RowCount(), 0);
    dialog->close();
}

void tst_imagemapfigures::closedDialogTakesTheFigureBack_data()
{
    QTest::addColumn<QString>("way");

    QTest::newRow("button") << QStringLiteral("button");
    QTest::newRow("Esc") << QStringLiteral("Esc");
    QTest::newRow("close box") << QStringLiteral("close box");
}

void tst_imagemapfigures::closedDialogTakesTheFigureBack()
{
    QFETCH(const QString, way);

    test_->DrawRectangle({ 10, 10 }, { 30, 30 });
    const QImage before = test_->Pixels();
    test_->ClickButton(6);
    const QPointer<QDialog> dialog = test_->DialogOpenedBy([this] {
        test_->Drag({ 100, 100 }, { 150, 110 });
    });
    QVERIFY(test_->Pixels() != before);
    if (way == u"button") {
        ClickIn(dialog, "SSCmdClose");
    } else if (way == u"Esc") {
        QTest::keyClick(dialog, Qt::Key_Escape);
    } else {
        dialog->close();
    }
    QTRY_VERIFY(dialog == nullptr);
    QCOMPARE(test_->Pixels(), before);
    QCOMPARE(test_->map.Ledger().FigureCount, 1);
    QCOMPARE(test_->RowCount(), 1);
    QCOMPARE(test_->Text("lblFigures"), QStringLiteral("1"));
    QCOMPARE(test_->Status(), QStringLiteral("Drawing Mode - Circle !"));
}

void tst_imagemapfigures::closedDialogTakesThePolygonBack()
{
    test_->DrawRectangle({ 10, 10 }, { 30, 30 });
    const QImage before = test_->Pixels();
    test_->ClickButton(7);
    test_->robot.Cancel();
    test_->ClickCorners({ { 50, 50 }, { 90, 50 }, { 90, 90 }, { 50, 90 } });
    test_->robot.WaitUntilDone();
    QCOMPARE(test_->Pixels(), before);
    QCOMPARE(test_->map.Ledger().FigureCount, 1);
    QCOMPARE(test_->map.Ledger().PolygonLineCount, 0);
    QCOMPARE(test_->map.Ledger().CurrentPolygonLineCount, 0);
    test_->DrawPolygon({ { 40, 40 }, { 90, 40 }, { 90, 90 } });
    QCOMPARE(test_->Row(1).at(3), QStringLiteral("40, 40, 90, 40, 90, 90"));
}

void tst_imagemapfigures::promptFollowsTheMode_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("prompt");

    const auto add = [](int mode, const char* caption, const char* prompt) {
        QTest::newRow(caption) << mode << QString::fromLatin1(caption) << QString::fromLatin1(prompt);
    };
    add(0, "Standard Image Map", "Link a drawn area !");
    add(1, "Image Map - Status Bar Message", "Link a drawn area and enter your message!");
    add(2, "Image Map - Switching Images", "Link a drawn area and set switching images!");
    add(3, "Image Map - Text Area Messages", "Link a drawn area and set text area messages!");
    add(4, "Image Map - Tool Tip Messages", "Link a drawn area and enter tool tip message!");
}

void tst_imagemapfigures::promptFollowsTheMode()
{
    QFETCH(const int, mode);
    QFETCH(const QString, caption);
    QFETCH(const QString, prompt);

    test_->map.Script().SetMode(static_cast<JSMode>(mode));
    test_->ClickButton(5);
    const QPointer<QDialog> dialog = test_->DialogOpenedBy([this] { test_->Drag({ 20, 20 }, { 60, 50 }); });
    QCOMPARE(test_->Status(), prompt);
    QCOMPARE(dialog->windowTitle(), caption);
    dialog->close();
    QCOMPARE(test_->Status(), QStringLiteral("Drawing Mode - Rectangle !"));
}

void tst_imagemapfigures::nextDrawingWorksAfterADialog()
{
    test_->DrawRectangle({ 10, 10 }, { 40, 40 });
    QCOMPARE(QWidget::mouseGrabber(), nullptr);
    const QImage before = test_->Pixels();
    // Without a button held nothing is drawn: the release of the last figure was not lost.
    test_->Move({ 100, 100 });
    test_->Move({ 120, 130 });
    QCOMPARE(test_->Pixels(), before);
    QCOMPARE(test_->map.Ledger().DrawState, drawIdle);
    // A click elsewhere goes there and not to the picture.
    test_->ClickButton(6);
    QCOMPARE(test_->Status(), QStringLiteral("Drawing Mode - Circle !"));
    test_->Link("second.htm", [this] { test_->Drag({ 100, 100 }, { 150, 110 }); });
    QCOMPARE(test_->RowCount(), 2);
    QCOMPARE(test_->Row(1).at(3), QStringLiteral("100, 100, 50"));
}

void tst_imagemapfigures::doubleClickOpensOneDialog()
{
    test_->ClickButton(5);
    const QPointer<QDialog> dialog = test_->DialogOpenedBy(
        [this] { QTest::mouseDClick(test_->Surface(), Qt::LeftButton, {}, QPoint(40, 40)); });
    test_->Settle();
    QCOMPARE(test_->editor->findChildren<QDialog*>().size(), 1);
    QCOMPARE(test_->map.Ledger().FigureCount, 1);
    QCOMPARE(test_->map.Ledger().DrawState, drawIdle);
    ClickIn(dialog, "SSCmdClose");
    test_->Settle();
    QCOMPARE(test_->map.Ledger().FigureCount, 0);
    QCOMPARE(test_->map.Ledger().DrawState, drawIdle);
    test_->DrawRectangle({ 10, 10 }, { 40, 40 });
    QCOMPARE(test_->Row(0).at(3), QStringLiteral("10, 10, 40, 40"));
}

void tst_imagemapfigures::editorTakesNoMouseWhileTheDialogIsOpen()
{
    test_->ClickButton(5);
    const QPointer<QDialog> dialog = test_->DialogOpenedBy([this] { test_->Drag({ 10, 10 }, { 40, 40 }); });
    const QImage before = test_->Pixels();
    test_->Drag({ 60, 60 }, { 90, 90 });
    test_->ClickButton(14);
    test_->ClickButton(6);
    QCOMPARE(test_->Pixels(), before);
    QCOMPARE(test_->map.Ledger().FigureCount, 1);
    QCOMPARE(test_->CheckedTools(), QStringList{ QStringLiteral("mnuFigNum_5") });
    dialog->close();
}

void tst_imagemapfigures::deletingRestoresThePicture()
{
    const QImage blank = test_->Pixels();
    test_->DrawRectangle({ 10, 10 }, { 60, 50 });
    test_->ClickButton(14);
    QCOMPARE(test_->Pixels(), blank);
    QCOMPARE(test_->map.Ledger().FigureCount, 0);
    QCOMPARE(test_->RowCount(), 0);
}

void tst_imagemapfigures::deletingKeepsTheFiguresBefore()
{
    test_->DrawRectangle({ 10, 10 }, { 60, 50 }, "one.htm");
    const QImage before = test_->Pixels();
    const QStringList row = test_->Row(0);
    test_->DrawCircle({ 100, 100 }, { 150, 110 }, "two.htm");
    test_->Entry("mnuDeleteLast")->trigger();
    QCOMPARE(test_->Pixels(), before);
    QCOMPARE(test_->RowCount(), 1);
    QCOMPARE(test_->Row(0), row);
    QCOMPARE(test_->Text("lblFigures"), QStringLiteral("1"));
    QCOMPARE(test_->map.Ledger().Figures[0].Link, QStringLiteral("one.htm"));
    QVERIFY(test_->Button(14)->isEnabled());
}

void tst_imagemapfigures::deletingAHalfDrawnPolygonKeepsTheRows()
{
    test_->DrawRectangle({ 10, 10 }, { 60, 50 });
    const QImage before = test_->Pixels();
    test_->ClickButton(7);
    for (const QPoint corner : { QPoint(100, 100), QPoint(150, 100), QPoint(150, 150) }) {
        test_->Move(corner);
        test_->ClickAt(corner);
    }
    test_->Move({ 100, 150 });
    QCOMPARE(test_->map.Ledger().CurrentPolygonLineCount, 2);
    test_->Entry("mnuDeleteLast")->trigger();
    QCOMPARE(test_->Pixels(), before);
    QCOMPARE(test_->RowCount(), 1);
    QCOMPARE(test_->map.Ledger().FigureCount, 1);
    QCOMPARE(test_->map.Ledger().CurrentPolygonLineCount, 0);
    QCOMPARE(test_->map.Ledger().DrawState, drawIdle);
    test_->DrawPolygon({ { 20, 60 }, { 90, 60 }, { 90, 90 } });
    QCOMPARE(test_->Row(1).at(3), QStringLiteral("20, 60, 90, 60, 90, 90"));
}

void tst_imagemapfigures::deletingWithTheFirstFigureHalfDrawnAbandonsIt()
{
    const QImage before = test_->Pixels();
    test_->ClickButton(7);
    test_->ClickAt({ 20, 20 });
    test_->Move({ 80, 60 });
    QVERIFY(test_->Pixels() != before);
    test_->ClickButton(14);
    QCOMPARE(test_->Pixels(), before);
    QCOMPARE(test_->map.Ledger().DrawState, drawIdle);
    QCOMPARE(test_->Text("lblFigures"), QString());
    const QList<int> withoutFigures = { 3, 5, 6, 7, 9, 11, 18 };
    QCOMPARE(test_->EnabledButtons(), withoutFigures);
}

void tst_imagemapfigures::deletingAPolygonTakesItsSidesAndRow()
{
    test_->DrawPolygon({ { 20, 20 }, { 80, 20 }, { 80, 90 } }, "first.htm");
    const QImage before = test_->Pixels();
    test_->DrawPolygon({ { 120, 20 }, { 180, 20 }, { 180, 90 }, { 120, 90 }, { 110, 50 } }, "second.htm");
    QCOMPARE(test_->map.Ledger().FigureCount, 4);
    test_->ClickButton(14);
    QCOMPARE(test_->map.Ledger().FigureCount, 1);
    QCOMPARE(test_->map.Ledger().PolygonLineCount, 1);
    QCOMPARE(test_->RowCount(), 1);
    QCOMPARE(test_->Row(0).at(1), QStringLiteral("first.htm"));
    QCOMPARE(test_->Pixels(), before);
}

void tst_imagemapfigures::pickedColorRepaintsTheFigures()
{
    const QImage blank = test_->Pixels();
    test_->DrawRectangle({ 10, 10 }, { 60, 50 });
    QString status;
    test_->robot.Act([this, &status](QDialog& dialog) {
        status = test_->Status();
        qobject_cast<QColorDialog*>(&dialog)->setCurrentColor(Qt::red);
        Click(dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok));
    });
    test_->ClickButton(11);
    QCOMPARE(status, QStringLiteral("Pick a Color!"));
    QCOMPARE(test_->Status(), QStringLiteral("Drawing Mode - Rectangle !"));
    const Places outline = BoxOutline({ 10, 10 }, { 60, 50 });
    QVERIFY(AllOfColor(test_->Pixels(), outline, red));
    QCOMPARE(DifferentPlaces(blank, test_->Pixels()), outline);
    test_->DrawRectangle({ 100, 100 }, { 120, 110 });
    QVERIFY(AllOfColor(test_->Pixels(), BoxOutline({ 100, 100 }, { 120, 110 }), red));
}

void tst_imagemapfigures::cancelledColorChangesNothing()
{
    test_->DrawRectangle({ 10, 10 }, { 60, 50 });
    const QImage before = test_->Pixels();
    test_->ClickButton(9);
    test_->robot.Act([](QDialog& dialog) {
        qobject_cast<QColorDialog*>(&dialog)->setCurrentColor(Qt::red);
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    test_->Entry("mnuFigureColors")->trigger();
    QCOMPARE(test_->Pixels(), before);
    QCOMPARE(test_->Status(), QStringLiteral("Creating Mode !"));
    test_->DrawRectangle({ 100, 100 }, { 120, 110 });
    QVERIFY(AllOfColor(test_->Pixels(), BoxOutline({ 100, 100 }, { 120, 110 }), black));
}

void tst_imagemapfigures::pickingAColorWhileDrawingTheFirstFigureDisablesNothing()
{
    test_->ClickButton(7);
    test_->ClickAt({ 20, 20 });
    test_->Move({ 80, 20 });
    test_->robot.Act([](QDialog& dialog) {
        qobject_cast<QColorDialog*>(&dialog)->setCurrentColor(Qt::red);
        Click(dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok));
    });
    test_->ClickButton(11);
    QVERIFY(test_->Button(14)->isEnabled());
    QVERIFY(test_->Find<QCheckBox>("Check1")->isEnabled());
    QCOMPARE(test_->Text("lblFigures"), QStringLiteral("0"));
    test_->Move({ 90, 20 });
    test_->ClickAt({ 90, 20 });
    QVERIFY(AllOfColor(test_->Pixels(), BoxOutline({ 20, 20 }, { 90, 20 }), red));
}

QTEST_MAIN(tst_imagemapfigures)

#include "tst_imagemapfigures.moc"
