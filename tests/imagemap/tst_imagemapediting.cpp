// Editing the areas in the image map editor's list.

#include "tests/imagemap/EditorTest.h"

namespace {

const QString editHint =
    QStringLiteral("To edit already set data, select an Item in the Image Map Preview Box !");

const QString doubleClickHint = QStringLiteral("To edit already set data, double click on an Item !");

} // namespace

class tst_imagemapediting : public EditorTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { BeginWithPicture(); }
    void cleanup() { End(); }

    void editingNeedsASelectedRow();
    void doubleClickBesideTheRowsNeedsASelectedRow();
    void doubleClickOnTheEmptyListDoesNothing();
    void doubleClickEditsTheRow();
    void doubleClickOfAnotherButtonEditsNothing_data();
    void doubleClickOfAnotherButtonEditsNothing();
    void enterEditsTheSelectedRow();
    void rowCanBeEditedAgainAtOnce();
    void editDataEditsTheSelectedRow_data();
    void editDataEditsTheSelectedRow();
    void replacingRewritesOnlyLinkAndMessage();
    void closingTheEditedAreaChangesNothing_data();
    void closingTheEditedAreaChangesNothing();
    void captionAndPromptFollowTheMode_data();
    void captionAndPromptFollowTheMode();
    void rowIsOpenedForEditingOnce();
    void doubleClickWhoseReleaseComesLateLeavesNoStuckButton();
};

void tst_imagemapediting::editingNeedsASelectedRow()
{
    test_->DrawRectangle({ 10, 10 }, { 40, 40 });
    test_->robot.AnswerBox(QMessageBox::Ok);
    test_->ClickButton(12);
    test_->robot.AnswerBox(QMessageBox::Ok);
    test_->Entry("mnuLink")->trigger();
    QCOMPARE(test_->robot.Boxes().size(), 2);
    for (const DialogRobot::SeenBox& box : test_->robot.Boxes()) {
        QCOMPARE(box.text, editHint);
        QCOMPARE(box.title, QStringLiteral("Cartolen"));
        QCOMPARE(box.icon, QMessageBox::Information);
        QCOMPARE(box.buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
    }
    QCOMPARE(test_->Status(), QStringLiteral("Drawing Mode - Rectangle !"));
}

void tst_imagemapediting::doubleClickBesideTheRowsNeedsASelectedRow()
{
    test_->DrawRectangle({ 10, 10 }, { 40, 40 });
    test_->robot.AnswerBox(QMessageBox::Ok);
    QTest::mouseDClick(
        test_->List()->viewport(), Qt::LeftButton, {},
        test_->List()->viewport()->rect().bottomLeft() + QPoint(9, -9));
    test_->robot.WaitUntilDone();
    QCOMPARE(test_->robot.Boxes().size(), 1);
    const DialogRobot::SeenBox box = test_->robot.Boxes().constFirst();
    QCOMPARE(box.text, doubleClickHint);
    QCOMPARE(box.title, QStringLiteral("Cartolen"));
    QCOMPARE(box.icon, QMessageBox::Information);
    QCOMPARE(box.buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
}

void tst_imagemapediting::doubleClickOnTheEmptyListDoesNothing()
{
    QTest::mouseDClick(test_->List()->viewport(), Qt::LeftButton, {}, QPoint(20, 20));
    test_->Settle();
    QVERIFY(test_->robot.Boxes().isEmpty());
}

void tst_imagemapediting::doubleClickEditsTheRow()
{
    test_->DrawRectangle({ 10, 10 }, { 40, 40 }, "one.htm");
    test_->DrawRectangle({ 60, 10 }, { 90, 40 }, "two.htm");
    const QPointer<QDialog> dialog = test_->DialogOpenedBy([this] { test_->DoubleClickRow(1); });
    QCOMPARE(dialog->objectName(), QStringLiteral("frmIMLink"));
    QCOMPARE(Find<QComboBox>(dialog, "cmbLink")->currentText(), QStringLiteral("two.htm"));
    TypeIn(dialog, "cmbLink", "new.htm");
    ClickIn(dialog, "SSCmdReplace");
    QTRY_VERIFY(dialog == nullptr);
    QCOMPARE(test_->Row(0).at(1), QStringLiteral("one.htm"));
    QCOMPARE(test_->Row(1).at(1), QStringLiteral("new.htm"));
}

void tst_imagemapediting::doubleClickOfAnotherButtonEditsNothing_data()
{
    QTest::addColumn<Qt::MouseButton>("button");
    QTest::newRow("right") << Qt::RightButton;
    QTest::newRow("middle") << Qt::MiddleButton;
}

void tst_imagemapediting::doubleClickOfAnotherButtonEditsNothing()
{
    QFETCH(const Qt::MouseButton, button);
    test_->DrawRectangle({ 10, 10 }, { 40, 40 });
    test_->ClickRow(0);
    const QRect row = test_->RowRect(0);
    // Where the screen has no room beside the pointer, the second click would choose an entry of the menu.
    test_->List()->setContextMenuPolicy(Qt::NoContextMenu);
    QTest::mouseDClick(test_->List()->viewport(), button, {}, row.topLeft() + QPoint(20, 5));
    test_->Settle();
    QCOMPARE(test_->editor->findChildren<QDialog*>().size(), 0);
    QCOMPARE(test_->Status(), QStringLiteral("Drawing Mode - Rectangle !"));
}

void tst_imagemapediting::enterEditsTheSelectedRow()
{
    test_->DrawRectangle({ 10, 10 }, { 40, 40 }, "one.htm");
    test_->ClickRow(0);
    const QPointer<QDialog> dialog =
        test_->DialogOpenedBy([this] { QTest::keyClick(test_->List(), Qt::Key_Return); });
    QCOMPARE(Find<QComboBox>(dialog, "cmbLink")->currentText(), QStringLiteral("one.htm"));
    dialog->close();
}

void tst_imagemapediting::rowCanBeEditedAgainAtOnce()
{
    test_->DrawRectangle({ 10, 10 }, { 40, 40 }, "one.htm");
    test_->ClickRow(0);
    const auto edit = [this] { test_->Entry("mnuLink")->trigger(); };
    const QPointer<QDialog> first = test_->DialogOpenedBy(edit);
    first->close();
    const QPointer<QDialog> again = test_->DialogOpenedBy(edit);
    QVERIFY(again != nullptr);
    QCOMPARE(Find<QComboBox>(again, "cmbLink")->currentText(), QStringLiteral("one.htm"));
    again->close();
}

void tst_imagemapediting::editDataEditsTheSelectedRow_data()
{
    QTest::addColumn<bool>("isByMenu");

    QTest::newRow("toolbar") << false;
    QTest::newRow("menu") << true;
}

void tst_imagemapediting::editDataEditsTheSelectedRow()
{
    QFETCH(const bool, isByMenu);

    test_->DrawRectangle({ 10, 10 }, { 40, 40 }, "one.htm");
    test_->DrawCircle({ 100, 100 }, { 150, 110 }, "two.htm");
    test_->ClickRow(0);
    const QPointer<QDialog> dialog = test_->DialogOpenedBy([this, isByMenu] {
        if (isByMenu) {
            test_->Entry("mnuLink")->trigger();
        } else {
            test_->ClickButton(12);
        }
    });
    QVERIFY(dialog->isModal());
    QCOMPARE(Find<QComboBox>(dialog, "cmbLink")->currentText(), QStringLiteral("one.htm"));
    QVERIFY(Find<QPushButton>(dialog, "SSCmdReplace")->isEnabled());
    QVERIFY(!Find<QPushButton>(dialog, "SSCmdOK")->isEnabled());
    dialog->close();
}

void tst_imagemapediting::replacingRewritesOnlyLinkAndMessage()
{
    test_->map.Script().SetMode(JSStatusBar);
    test_->ClickButton(5);
    QPointer<QDialog> dialog = test_->DialogOpenedBy([this] { test_->Drag({ 10, 10 }, { 40, 40 }); });
    TypeIn(dialog, "cmbLink", "one.htm");
    TypeIn(dialog, "cmbTarget", "_top");
    TypeIn(dialog, "txtStatusBarMessage", "Old");
    ClickIn(dialog, "SSCmdOK");
    test_->DrawCircle({ 100, 100 }, { 150, 110 }, "two.htm");
    const FigureStore::Records figures = test_->map.Ledger().Figures;
    const QImage pixels = test_->Pixels();

    test_->ClickRow(0);
    dialog = test_->DialogOpenedBy([this] { test_->ClickButton(12); });
    QCOMPARE(Find<QLineEdit>(dialog, "txtStatusBarMessage")->text(), QStringLiteral("Old"));
    TypeIn(dialog, "cmbLink", "new.htm");
    TypeIn(dialog, "cmbTarget", "_blank");
    TypeIn(dialog, "txtStatusBarMessage", "New");
    ClickIn(dialog, "SSCmdReplace");
    QTRY_VERIFY(dialog == nullptr);

    const QStringList row = { QStringLiteral(" No: 1 Rectangle"), QStringLiteral("new.htm"),
                              QStringLiteral("_top"), QStringLiteral("10, 10, 40, 40"),
                              QStringLiteral("New") };
    QCOMPARE(test_->Row(0), row);
    QCOMPARE(test_->Row(1).at(1), QStringLiteral("two.htm"));
    QCOMPARE(test_->RowCount(), 2);
    QVERIFY(test_->map.Ledger().Figures == figures);
    QCOMPARE(test_->map.Ledger().FigureCount, 2);
    QCOMPARE(test_->Pixels(), pixels);
    QCOMPARE(test_->SelectedRows(), QList<int>{ 0 });
}

void tst_imagemapediting::closingTheEditedAreaChangesNothing_data()
{
    QTest::addColumn<QString>("way");

    QTest::newRow("button") << QStringLiteral("button");
    QTest::newRow("Esc") << QStringLiteral("Esc");
    QTest::newRow("close box") << QStringLiteral("close box");
}

void tst_imagemapediting::closingTheEditedAreaChangesNothing()
{
    QFETCH(const QString, way);

    test_->DrawRectangle({ 10, 10 }, { 40, 40 }, "one.htm");
    test_->DrawPolygon({ { 200, 20 }, { 250, 20 }, { 250, 90 } }, "two.htm");
    const QImage before = test_->Pixels();
    test_->ClickRow(0);
    const QPointer<QDialog> dialog = test_->DialogOpenedBy([this] { test_->ClickButton(12); });
    TypeIn(dialog, "cmbLink", "new.htm");
    if (way == u"button") {
        ClickIn(dialog, "SSCmdClose");
    } else if (way == u"Esc") {
        QTest::keyClick(dialog, Qt::Key_Escape);
    } else {
        dialog->close();
    }
    QTRY_VERIFY(dialog == nullptr);
    QCOMPARE(test_->map.Ledger().FigureCount, 2);
    QCOMPARE(test_->RowCount(), 2);
    QCOMPARE(test_->Row(0).at(1), QStringLiteral("one.htm"));
    QCOMPARE(test_->Pixels(), before);
    QCOMPARE(test_->Status(), QStringLiteral("Drawing Mode - Line, draw Polygons !"));
}

void tst_imagemapediting::captionAndPromptFollowTheMode_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("prompt");
    QTest::addColumn<QString>("field");

    const auto add = [](int mode, const char* caption, const char* prompt, const char* field) {
        QTest::newRow(caption) << mode << QString::fromLatin1(caption) << QString::fromLatin1(prompt)
                               << QString::fromLatin1(field);
    };
    add(0, "Standard Image Map", "Replace an existing link !", "");
    add(1, "Image Map - Status Bar Message", "Replace an existing link or your status bar message!",
        "txtStatusBarMessage");
    add(2, "Image Map - Switching Images", "Replace an existing link or your images!", "txtSwitchImage");
    add(3, "Image Map - Text Area Messages", "Replace an existing link or your text area messages!",
        "txtSwitchingTAreaMessage");
    add(4, "Image Map - Tool Tip Messages", "Replace an existing link or your tool tip messages!",
        "txtToolTipMessage");
}

void tst_imagemapediting::captionAndPromptFollowTheMode()
{
    QFETCH(const int, mode);
    QFETCH(const QString, caption);
    QFETCH(const QString, prompt);
    QFETCH(const QString, field);

    test_->DrawRectangle({ 10, 10 }, { 40, 40 }, "one.htm");
    test_->map.Script().SetMode(static_cast<JSMode>(mode));
    LinkEntry entry;
    entry.Fields.fill(QStringLiteral("Message"));
    test_->map.RelinkArea(0, entry);
    test_->map.Script().SetModeDefault(QString());
    test_->ClickRow(0);
    const QPointer<QDialog> dialog = test_->DialogOpenedBy([this] { test_->ClickButton(12); });
    QCOMPARE(dialog->windowTitle(), caption);
    QCOMPARE(test_->Status(), prompt);
    for (const QLineEdit* const edit : dialog->findChildren<QLineEdit*>()) {
        if (edit->objectName().startsWith(u"txt")) {
            QCOMPARE(edit->text(), edit->objectName() == field ? QStringLiteral("Message") : QString());
        }
    }
    dialog->close();
    QCOMPARE(test_->Status(), QStringLiteral("Drawing Mode - Rectangle !"));
}

void tst_imagemapediting::rowIsOpenedForEditingOnce()
{
    test_->DrawRectangle({ 10, 10 }, { 40, 40 }, "one.htm");
    const QPointer<QDialog> dialog = test_->DialogOpenedBy([this] {
        test_->DoubleClickRow(0);
        test_->DoubleClickRow(0);
    });
    test_->Settle();
    QCOMPARE(test_->editor->findChildren<QDialog*>().size(), 1);
    dialog->close();
}

void tst_imagemapediting::doubleClickWhoseReleaseComesLateLeavesNoStuckButton()
{
    test_->DrawRectangle({ 10, 10 }, { 40, 40 }, "one.htm");
    test_->DrawRectangle({ 60, 10 }, { 90, 40 }, "two.htm");
    QWidget* const rows = test_->List()->viewport();
    const QPoint at = test_->RowRect(0).topLeft() + QPoint(20, 5);
    const QPointer<QDialog> dialog = test_->DialogOpenedBy([rows, at] {
        QTest::mouseClick(rows, Qt::LeftButton, {}, at);
        // The second press comes within the time of a double click.
        QTest::lastMouseTimestamp -= QTest::mouseDoubleClickInterval;
        QTest::mousePress(rows, Qt::LeftButton, {}, at);
    });
    QTest::mouseRelease(rows, Qt::LeftButton, {}, at);
    ClickIn(dialog, "SSCmdClose");
    QTRY_VERIFY(dialog == nullptr);
    test_->ClickButton(6);
    QCOMPARE(test_->Status(), QStringLiteral("Drawing Mode - Circle !"));
    test_->ClickRow(1);
    QCOMPARE(test_->SelectedRows(), QList<int>{ 1 });
}

QTEST_MAIN(tst_imagemapediting)

#include "tst_imagemapediting.moc"
