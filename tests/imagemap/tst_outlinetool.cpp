#include "DrawnAreasTest.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QPainter>
#include <QPushButton>

/** The Outline tool, by mouse and keys in the editor's window. */
class tst_outlinetool : public DrawnAreasTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { End(); }

    void theToolNeedsAPicture();
    void itsFieldsAreShownWhileItIsInForce();
    void aClickOutlinesTheRegion();
    void aDoubleClickMakesAnAreaWithItsLink();
    void enterMakesTheArea();
    void theButtonMakesTheArea();
    void makingIsOneStepOfUndo();
    void cancellingTheLinkLeavesMapAndOutline();
    void draggingSidewaysChangesTheTolerance();
    void shiftJoinsAndCtrlTakesOff();
    void islandsShareTheLink();
    void theLargestIslandCanBeMadeAlone();
    void holesAreLeftOut();
    void anAreaLiesInFrontOfWhatIsAroundIt();
    void escGivesTheOutlineUp();
    void arrowsAndEnterDoWithoutTheMouse();
    void lettersInFieldsAreText();
    void anotherToolGivesTheOutlineUp();
    void anotherPictureGivesTheOutlineUp();
    void fieldsAreRememberedOnceChanged();
    void nothingIsRememberedUnlessChanged();

private:
    void OpenRegions();
    void ChooseTool();
    void WaitForOutline(const char* text)
    {
        QTRY_COMPARE(test_->Text("lblOutline"), QString::fromLatin1(text));
    }
    void LinkMade(const char* link, const std::function<void()>& act)
    {
        const QPointer<QDialog> dialog = test_->DialogOpenedBy(act);
        TypeIn(dialog, "cmbLink", link);
        ClickIn(dialog, "SSCmdReplace");
        test_->robot.WaitUntilDone();
    }
    [[nodiscard]] QWidget* Bar() const { return test_->Find<QWidget>("barOutline"); }
};

/** A picture of 300 by 200 pixels: a red box with a hole, a green one, a pale red one beside the red. */
void tst_outlinetool::OpenRegions()
{
    QImage picture(300, 200, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.fillRect(20, 20, 80, 60, QColor(200, 30, 30));
    painter.fillRect(40, 40, 20, 10, Qt::white);
    painter.fillRect(100, 20, 40, 60, QColor(225, 60, 50));
    painter.fillRect(200, 100, 50, 30, QColor(20, 160, 60));
    painter.end();
    const QString path = test_->folder.Path(QStringLiteral("regions.png"));
    QVERIFY(picture.save(path));
    test_->robot.ChooseFile(path);
    Trigger("mnuVOther");
}

void tst_outlinetool::init()
{
    Begin();
    OpenRegions();
}

void tst_outlinetool::ChooseTool()
{
    Key(Qt::Key_W);
    QVERIFY(test_->Entry("mnuAOutline")->isChecked());
}

void tst_outlinetool::theToolNeedsAPicture()
{
    QVERIFY(test_->Entry("mnuAOutline")->isEnabled());
    End();
    Begin();
    QVERIFY(!test_->Entry("mnuAOutline")->isEnabled());
}

void tst_outlinetool::itsFieldsAreShownWhileItIsInForce()
{
    QVERIFY(!Bar()->isVisible());
    ChooseTool();
    QVERIFY(Bar()->isVisible());
    QVERIFY(!::Find<QPushButton>(test_->editor, "cmdMakeArea")->isEnabled());
    QCOMPARE(::Find<QDoubleSpinBox>(test_->editor, "spnTolerance")->value(), 8.0);
    QCOMPARE(::Find<QDoubleSpinBox>(test_->editor, "spnPrecision")->value(), 1.0);
    test_->ClickButton(5);
    QVERIFY(!Bar()->isVisible());
    QVERIFY(!test_->Entry("mnuAOutline")->isChecked());
    QCOMPARE(test_->CheckedTools(), QStringList{ "mnuFigNum_5" });
}

void tst_outlinetool::aClickOutlinesTheRegion()
{
    ChooseTool();
    const QImage bare = test_->Pixels();
    test_->ClickAt({ 210, 110 });
    WaitForOutline("Rectangle");
    QVERIFY(test_->Pixels().pixel(200, 115) != bare.pixel(200, 115));
    QCOMPARE(test_->RowCount(), 0);
    QVERIFY(!test_->map.HasContent());
    QCOMPARE(test_->Text("StatusBar1_Panel3"), "Enter makes the area, Shift adds more");
}

void tst_outlinetool::aDoubleClickMakesAnAreaWithItsLink()
{
    ChooseTool();
    LinkMade("green.htm", [this] {
        test_->ClickAt({ 210, 110 });
        QTest::mouseDClick(test_->Surface(), Qt::LeftButton, {}, { 210, 110 });
    });
    QCOMPARE(test_->RowCount(), 1);
    QCOMPARE(Numbers(0), (QList{ 200, 100, 250, 130 }));
    QCOMPARE(test_->map.Areas().constFirst().Link, "green.htm");
    // The next region comes with the next click.
    QVERIFY(test_->Entry("mnuAOutline")->isChecked());
    LinkMade("red.htm", [this] {
        test_->ClickAt({ 25, 25 });
        QTest::mouseDClick(test_->Surface(), Qt::LeftButton, {}, { 25, 25 });
    });
    QCOMPARE(Numbers(1), (QList{ 20, 20, 100, 80 }));
}

void tst_outlinetool::enterMakesTheArea()
{
    ChooseTool();
    test_->ClickAt({ 210, 110 });
    LinkMade("green.htm", [this] { Key(Qt::Key_Return); });
    QCOMPARE(test_->map.Areas().constFirst().Link, "green.htm");
    QCOMPARE(test_->Text("lblOutline"), QString());
}

void tst_outlinetool::theButtonMakesTheArea()
{
    ChooseTool();
    test_->ClickAt({ 210, 110 });
    WaitForOutline("Rectangle");
    LinkMade("green.htm", [this] { ClickIn(test_->editor, "cmdMakeArea"); });
    QCOMPARE(test_->RowCount(), 1);
}

void tst_outlinetool::makingIsOneStepOfUndo()
{
    ChooseTool();
    test_->ClickAt({ 210, 110 });
    LinkMade("green.htm", [this] { Key(Qt::Key_Return); });
    QCOMPARE(test_->Entry("mnuAUndo")->text(), "&Undo Outline of an Area");
    Trigger("mnuAUndo");
    QCOMPARE(test_->RowCount(), 0);
    Trigger("mnuARedo");
    QCOMPARE(test_->Row(0).at(1), "green.htm");
}

void tst_outlinetool::cancellingTheLinkLeavesMapAndOutline()
{
    ChooseTool();
    test_->ClickAt({ 210, 110 });
    const auto position = test_->map.History().Position();
    const QPointer<QDialog> dialog = test_->DialogOpenedBy([this] { Key(Qt::Key_Return); });
    ClickIn(dialog, "SSCmdClose");
    test_->robot.WaitUntilDone();
    QCOMPARE(test_->RowCount(), 0);
    QCOMPARE(test_->map.History().Position(), position);
    QVERIFY(!test_->map.HasContent());
    QCOMPARE(test_->Text("lblOutline"), "Rectangle");
    LinkMade("green.htm", [this] { Key(Qt::Key_Return); });
    QCOMPARE(test_->RowCount(), 1);
}

void tst_outlinetool::draggingSidewaysChangesTheTolerance()
{
    ChooseTool();
    test_->Press({ 30, 30 });
    WaitForOutline("Rectangle");
    test_->Move({ 70, 30 });
    QCOMPARE(::Find<QDoubleSpinBox>(test_->editor, "spnTolerance")->value(), 18.0);
    test_->Release({ 70, 30 });
    QTRY_COMPARE(test_->Text("lblOutline"), "Rectangle");
    LinkMade("red.htm", [this] { Key(Qt::Key_Return); });
    QCOMPARE(Numbers(0), (QList{ 20, 20, 140, 80 }));
}

void tst_outlinetool::shiftJoinsAndCtrlTakesOff()
{
    ChooseTool();
    test_->ClickAt({ 30, 30 });
    QTest::mouseClick(test_->Surface(), Qt::LeftButton, Qt::ShiftModifier, { 110, 30 });
    QTest::mouseClick(test_->Surface(), Qt::LeftButton, Qt::ShiftModifier, { 210, 110 });
    WaitForOutline("2 areas, Rectangle");
    QTest::mouseClick(test_->Surface(), Qt::LeftButton, Qt::ControlModifier, { 30, 30 });
    LinkMade("two.htm", [this] { Key(Qt::Key_Return); });
    QCOMPARE(test_->RowCount(), 2);
    QCOMPARE(Numbers(0), (QList{ 200, 100, 250, 130 }));
    QCOMPARE(Numbers(1), (QList{ 100, 20, 140, 80 }));
}

void tst_outlinetool::islandsShareTheLink()
{
    ChooseTool();
    test_->ClickAt({ 30, 30 });
    QTest::mouseClick(test_->Surface(), Qt::LeftButton, Qt::ShiftModifier, { 210, 110 });
    LinkMade("both.htm", [this] { Key(Qt::Key_Return); });
    QCOMPARE(test_->Row(0).at(1), "both.htm");
    QCOMPARE(test_->Row(1).at(1), "both.htm");
    QCOMPARE(test_->SelectedRows(), (QList{ 0, 1 }));
    QCOMPARE(test_->Entry("mnuAUndo")->text(), "&Undo Outline of 2 Areas");
    Trigger("mnuAUndo");
    QCOMPARE(test_->RowCount(), 0);
}

void tst_outlinetool::theLargestIslandCanBeMadeAlone()
{
    ChooseTool();
    test_->ClickAt({ 30, 30 });
    QTest::mouseClick(test_->Surface(), Qt::LeftButton, Qt::ShiftModifier, { 210, 110 });
    WaitForOutline("2 areas, Rectangle");
    auto* const islands = test_->Find<QComboBox>("cmbIslands");
    islands->setFocus();
    QTest::keyClick(islands, Qt::Key_Down);
    WaitForOutline("Rectangle");
    LinkMade("red.htm", [this] { Key(Qt::Key_Return); });
    QCOMPARE(test_->RowCount(), 1);
    QCOMPARE(Numbers(0), (QList{ 20, 20, 100, 80 }));
}

void tst_outlinetool::holesAreLeftOut()
{
    ChooseTool();
    QTest::keyClick(test_->Find<QCheckBox>("chkHoles"), Qt::Key_Space);
    test_->ClickAt({ 30, 30 });
    WaitForOutline("2 areas, Rectangle");
    LinkMade("red.htm", [this] { Key(Qt::Key_Return); });
    QCOMPARE(test_->map.Areas().size(), 2);
    QCOMPARE(Numbers(0), (QList{ 40, 40, 60, 50 }));
    QCOMPARE(test_->map.Areas().at(0).Link, QString());
    QCOMPARE(test_->map.Areas().at(1).Link, "red.htm");
}

void tst_outlinetool::anAreaLiesInFrontOfWhatIsAroundIt()
{
    ChooseTool();
    test_->ClickAt({ 210, 110 });
    LinkMade("green.htm", [this] { Key(Qt::Key_Return); });
    test_->ClickAt({ 30, 30 });
    LinkMade("red.htm", [this] { Key(Qt::Key_Return); });
    test_->ClickAt({ 45, 45 });
    LinkMade("hole.htm", [this] { Key(Qt::Key_Return); });
    QCOMPARE(test_->RowCount(), 3);
    QCOMPARE(test_->Row(0).at(1), "green.htm");
    QCOMPARE(test_->Row(1).at(1), "hole.htm");
    QCOMPARE(test_->Row(2).at(1), "red.htm");
}

void tst_outlinetool::escGivesTheOutlineUp()
{
    ChooseTool();
    const QImage bare = test_->Pixels();
    test_->ClickAt({ 210, 110 });
    WaitForOutline("Rectangle");
    Key(Qt::Key_Escape);
    QCOMPARE(test_->Text("lblOutline"), QString());
    QCOMPARE(test_->Pixels(), bare);
    // One that is still looked for is given up too.
    test_->ClickAt({ 210, 110 });
    Key(Qt::Key_Escape);
    test_->Settle();
    Key(Qt::Key_Return);
    test_->Settle();
    QCOMPARE(test_->RowCount(), 0);
    QCOMPARE(test_->Pixels(), bare);
}

void tst_outlinetool::arrowsAndEnterDoWithoutTheMouse()
{
    ChooseTool();
    // From the middle of the picture to the green box.
    for (int i = 0; i < 6; ++i) {
        Key(Qt::Key_Right, Qt::ShiftModifier);
    }
    Key(Qt::Key_Down, Qt::ShiftModifier);
    Key(Qt::Key_Down);
    Key(Qt::Key_Return);
    WaitForOutline("Rectangle");
    for (int i = 0; i < 12; ++i) {
        Key(Qt::Key_Left, Qt::ShiftModifier);
    }
    for (int i = 0; i < 6; ++i) {
        Key(Qt::Key_Up, Qt::ShiftModifier);
    }
    Key(Qt::Key_Return, Qt::ShiftModifier);
    WaitForOutline("2 areas, Rectangle");
    LinkMade("keys.htm", [this] { Key(Qt::Key_Return); });
    QCOMPARE(test_->RowCount(), 2);
    QCOMPARE(Numbers(0), (QList{ 200, 100, 250, 130 }));
}

void tst_outlinetool::lettersInFieldsAreText()
{
    auto* const name = test_->Find<QLineEdit>("txtName");
    Activate();
    name->setFocus();
    QTest::keyClick(name, Qt::Key_End);
    QTest::keyClick(name, Qt::Key_W);
    QCOMPARE(name->text(), "MyImageMapw");
    QVERIFY(!test_->Entry("mnuAOutline")->isChecked());
}

void tst_outlinetool::anotherToolGivesTheOutlineUp()
{
    const QImage bare = test_->Pixels();
    ChooseTool();
    test_->ClickAt({ 210, 110 });
    WaitForOutline("Rectangle");
    Key(Qt::Key_S);
    QVERIFY(test_->Entry("mnuASelect")->isChecked());
    QVERIFY(!test_->Entry("mnuAOutline")->isChecked());
    QCOMPARE(test_->Pixels(), bare);
    ChooseTool();
    QVERIFY(!test_->Entry("mnuASelect")->isChecked());
    QCOMPARE(test_->Text("lblOutline"), QString());
}

void tst_outlinetool::anotherPictureGivesTheOutlineUp()
{
    ChooseTool();
    test_->ClickAt({ 210, 110 });
    WaitForOutline("Rectangle");
    test_->OpenPicture({ 200, 100 });
    QVERIFY(!test_->Entry("mnuAOutline")->isChecked());
    QVERIFY(!Bar()->isVisible());
    ChooseTool();
    Key(Qt::Key_Return);
    test_->Settle();
    QCOMPARE(test_->RowCount(), 0);
}

void tst_outlinetool::fieldsAreRememberedOnceChanged()
{
    ChooseTool();
    auto* const tolerance = test_->Find<QDoubleSpinBox>("spnTolerance");
    tolerance->setFocus();
    tolerance->selectAll();
    QTest::keyClicks(tolerance, "12.5");
    QTest::keyClick(test_->Find<QCheckBox>("chkHoles"), Qt::Key_Space);
    test_->LoadEditor();
    QVERIFY(test_->Start());
    QCOMPARE(test_->Find<QDoubleSpinBox>("spnTolerance")->value(), 12.5);
    QVERIFY(test_->Find<QCheckBox>("chkHoles")->isChecked());
}

void tst_outlinetool::nothingIsRememberedUnlessChanged()
{
    test_->imgMap.Remembered.Open(test_->imgMap.ProgramFolder);
    ChooseTool();
    test_->ClickAt({ 210, 110 });
    WaitForOutline("Rectangle");
    QVERIFY(!QFile::exists(test_->folder.Path(QStringLiteral("Data/Settings.ini"))));
}

QTEST_MAIN(tst_outlinetool)
#include "tst_outlinetool.moc"
