#include "RegionsTest.h"

#include <QCheckBox>
#include <QPainter>
#include <QSpinBox>

namespace {

constexpr QRect redBox(20, 20, 60, 40);
constexpr QRect greenBox(120, 20, 60, 60);
constexpr QRect yellowBox(140, 40, 20, 20);

/** On white: a red box, a green one with a line around it and a yellow one in it, a disc, and a tiny box. */
QImage MadePicture()
{
    constexpr int line = 2;
    QImage picture(300, 120, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.fillRect(redBox, Qt::red);
    painter.fillRect(greenBox.adjusted(-line, -line, line, line), Qt::black);
    painter.fillRect(greenBox, Qt::green);
    painter.fillRect(yellowBox, Qt::yellow);
    painter.fillRect(200, 30, 10, 10, Qt::cyan);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::blue);
    painter.drawEllipse(220, 25, 50, 50);
    return picture;
}

} // namespace

/** All regions of a picture at once, of which those are made into areas that are ticked. */
class tst_outlineall : public RegionsTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Begin(); }
    void cleanup() { End(); }

    void aPictureIsNeeded();
    void regionsAreListed();
    void tickedRegionsAreSeenBeforeTheyAreMade();
    void tickedRegionsAreOneStepOfUndo();
    void cancelMakesNothing();
    void smallRegionsAreListedWhenAskedFor();
    void toleranceJoinsColours();
    void precisionLeavesTheTicks();
    void otherRegionsHaveTicksOfTheirOwn();
    void withinAnAreaRegionsLieInFrontOfIt();
    void otherRegionsLieBehindWhatIsThere();
    void noRegionIsTold();
    void noMoreThanTheLargestAreListed();
    void whatWasAskedForIsOfferedAgain();
    void returnInAFieldMakesTheAreas();
    void anEditorThatGoesTakesTheWindowAlong();

private:
    QPointer<QDialog> OpenMade()
    {
        OpenPng(MadePicture());
        return Listed(6);
    }

    /** The window once it lists so many regions. */
    QPointer<QDialog> Listed(int count)
    {
        QPointer<QDialog> dialog = OpenBy("mnuAOutlineAll");
        if (!QTest::qWaitFor([&dialog, count] { return CountOf(dialog) == count; })) {
            qFatal("%d regions are listed", CountOf(dialog));
        }
        return dialog;
    }
};

void tst_outlineall::aPictureIsNeeded()
{
    QVERIFY(!test_->Entry("mnuAOutlineAll")->isEnabled());
    QVERIFY(!test_->Entry("mnuATransparency")->isEnabled());
    test_->OpenPicture();
    QVERIFY(test_->Entry("mnuAOutlineAll")->isEnabled());
    QVERIFY(test_->Entry("mnuATransparency")->isEnabled());
}

void tst_outlineall::regionsAreListed()
{
    const QPointer<QDialog> dialog = OpenMade();
    const auto* const model = Model(dialog);
    QCOMPARE(TextsOf(model, 0), (QStringList{ "Region 1", "Rectangle", "2400", "" }));
    QCOMPARE(model->index(0, 0).data(Qt::DecorationRole).value<QColor>(), QColor(Qt::red));
    QCOMPARE(TextsOf(model, 1), (QStringList{ "Region 2", "Rectangle", "400", "" }));
    QCOMPARE(TextsOf(model, 2), (QStringList{ "Region 3", "Rectangle", "3200", "" }));
    QCOMPARE(TextsOf(model, 3), (QStringList{ "Region 4", "Rectangle", "496", "line or letter" }));
    QCOMPARE(TextsOf(model, 4).at(1), "Circle");
    QCOMPARE(TextsOf(model, 5).at(3), "background");
    QCOMPARE(TickedRows(dialog), (QList<int>{ 0, 1, 2, 4 }));
    QCOMPARE(TextIn(dialog), "4 of 6 will be made.");
    Close(dialog, "cmdCancel");
}

void tst_outlineall::tickedRegionsAreSeenBeforeTheyAreMade()
{
    OpenPng(MadePicture());
    const QImage bare = test_->Pixels();
    const QPointer<QDialog> dialog = Listed(6);
    // The left side of the green box, and that of the yellow one.
    QTRY_VERIFY(test_->Pixels().pixel(120, 70) != bare.pixel(120, 70));
    QVERIFY(test_->Pixels().pixel(140, 50) != bare.pixel(140, 50));
    ClickIn(dialog, "cmdNone");
    QCOMPARE(test_->Pixels().pixel(140, 50), bare.pixel(140, 50));
    QVERIFY(!::Find<QPushButton>(dialog, "cmdOK")->isEnabled());
    Close(dialog, "cmdCancel");
    QCOMPARE(test_->Pixels(), bare);
}

void tst_outlineall::tickedRegionsAreOneStepOfUndo()
{
    Close(OpenMade(), "cmdOK");
    QCOMPARE(test_->RowCount(), 4);
    QCOMPARE(Numbers(0), (QList<int>{ 20, 20, 80, 60 }));
    // What lies in another region is in front of it.
    QCOMPARE(Numbers(1), (QList<int>{ 140, 40, 160, 60 }));
    QCOMPARE(Numbers(2), (QList<int>{ 120, 20, 180, 80 }));
    QCOMPARE(Numbers(3), (QList<int>{ 245, 50, 25 }));
    QCOMPARE(test_->map.Areas().at(0).Link, "");
    QCOMPARE(test_->SelectedRows(), (QList<int>{ 0, 1, 2, 3 }));
    QCOMPARE(test_->Entry("mnuAUndo")->text(), "&Undo Regions of 4 Areas");
    Trigger("mnuAUndo");
    QCOMPARE(test_->RowCount(), 0);
    Trigger("mnuARedo");
    QCOMPARE(test_->RowCount(), 4);
}

void tst_outlineall::cancelMakesNothing()
{
    Close(OpenMade(), "cmdCancel");
    QCOMPARE(test_->RowCount(), 0);
    QVERIFY(!test_->map.HasContent());
}

void tst_outlineall::smallRegionsAreListedWhenAskedFor()
{
    const QPointer<QDialog> dialog = OpenMade();
    TypeNumber(dialog, "spnLeastPixels", "100");
    QTRY_COMPARE(CountOf(dialog), 7);
    QCOMPARE(TextsOf(Model(dialog), 4), (QStringList{ "Region 5", "Rectangle", "100", "" }));
    TypeNumber(dialog, "spnLeastPixels", "3000");
    QTRY_COMPARE(CountOf(dialog), 2);
    Close(dialog, "cmdCancel");
}

void tst_outlineall::toleranceJoinsColours()
{
    QImage picture(200, 100, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.fillRect(20, 20, 40, 40, QColor(200, 0, 0));
    painter.fillRect(60, 20, 40, 40, QColor(206, 4, 4));
    painter.end();
    OpenPng(picture);
    const QPointer<QDialog> dialog = Listed(2);
    QCOMPARE(TextsOf(Model(dialog), 0).at(2), "3200");
    TypeNumber(dialog, "spnTolerance", "0");
    QTRY_COMPARE(CountOf(dialog), 3);
    QCOMPARE(TextsOf(Model(dialog), 0).at(2), "1600");
    Close(dialog, "cmdCancel");
}

void tst_outlineall::precisionLeavesTheTicks()
{
    const QPointer<QDialog> dialog = OpenMade();
    auto* const list = ::Find<QTreeView>(dialog, "lstRegions");
    list->setFocus();
    QTest::keyClick(list, Qt::Key_Space);
    QTest::keyClick(list, Qt::Key_Down);
    QCOMPARE(TickedRows(dialog), (QList<int>{ 1, 2, 4 }));
    TypeNumber(dialog, "spnPrecision", "0");
    QTRY_COMPARE(TextsOf(Model(dialog), 4).at(1), "Polygon");
    QCOMPARE(TickedRows(dialog), (QList<int>{ 1, 2, 4 }));
    QCOMPARE(list->currentIndex().row(), 1);
    Close(dialog, "cmdOK");
    QCOMPARE(test_->RowCount(), 3);
    QVERIFY(Numbers(2).size() > 50);
}

void tst_outlineall::otherRegionsHaveTicksOfTheirOwn()
{
    const QPointer<QDialog> dialog = OpenMade();
    ClickIn(dialog, "cmdNone");
    TypeNumber(dialog, "spnLeastPixels", "100");
    QTRY_COMPARE(CountOf(dialog), 7);
    QCOMPARE(TickedRows(dialog), (QList<int>{ 0, 1, 2, 4, 5 }));
    Close(dialog, "cmdCancel");
}

void tst_outlineall::withinAnAreaRegionsLieInFrontOfIt()
{
    OpenPng(MadePicture());
    test_->DrawRectangle({ 1, 100 }, { 9, 110 }, "first.htm");
    test_->DrawRectangle({ 120, 20 }, { 180, 80 }, "green.htm");
    Activate();
    Trigger("mnuASelect");
    test_->ClickAt({ 130, 70 });
    const QPointer<QDialog> dialog = Listed(2);
    QVERIFY(::Find<QCheckBox>(dialog, "chkSelected")->isChecked());
    QCOMPARE(TextsOf(Model(dialog), 1).at(2), "3200");
    // The green one has the colour of the part's edge.
    QCOMPARE(TickedRows(dialog), (QList<int>{ 0 }));
    Close(dialog, "cmdOK");
    QCOMPARE(test_->RowCount(), 3);
    QCOMPARE(Numbers(1), (QList<int>{ 140, 40, 160, 60 }));
    QCOMPARE(test_->Row(2).at(1), "green.htm");
}

void tst_outlineall::otherRegionsLieBehindWhatIsThere()
{
    OpenPng(MadePicture());
    test_->DrawRectangle({ 120, 20 }, { 180, 80 }, "green.htm");
    Activate();
    Trigger("mnuASelect");
    test_->ClickAt({ 130, 70 });
    const QPointer<QDialog> dialog = Listed(2);
    QTest::keyClick(::Find<QCheckBox>(dialog, "chkSelected"), Qt::Key_Space);
    QTRY_COMPARE(CountOf(dialog), 6);
    Close(dialog, "cmdOK");
    QCOMPARE(test_->RowCount(), 5);
    QCOMPARE(test_->Row(0).at(1), "green.htm");
}

void tst_outlineall::noRegionIsTold()
{
    const QPointer<QDialog> dialog = OpenMade();
    QVERIFY(!::Find<QCheckBox>(dialog, "chkSelected")->isEnabled());
    TypeNumber(dialog, "spnLeastPixels", "100000");
    QTRY_COMPARE(TextIn(dialog), "There is no region of that size.");
    QCOMPARE(CountOf(dialog), 0);
    QVERIFY(!::Find<QPushButton>(dialog, "cmdOK")->isEnabled());
    Close(dialog, "cmdCancel");
}

void tst_outlineall::noMoreThanTheLargestAreListed()
{
    constexpr int side = 220;
    QImage picture(side, side, QImage::Format_RGB32);
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            picture.setPixel(x, y, (x / 2 + y / 2) % 2 == 0 ? qRgb(255, 255, 255) : qRgb(0, 0, 0));
        }
    }
    OpenPng(picture);
    const QPointer<QDialog> dialog = OpenBy("mnuAOutlineAll");
    TypeNumber(dialog, "spnLeastPixels", "1");
    QTRY_COMPARE(TextIn(dialog), "0 of 10000 will be made. Only the 10000 largest are listed.");
    Close(dialog, "cmdCancel");
}

void tst_outlineall::whatWasAskedForIsOfferedAgain()
{
    QPointer<QDialog> dialog = OpenMade();
    TypeNumber(dialog, "spnLeastPixels", "3000");
    TypeNumber(dialog, "spnPrecision", "2");
    TypeNumber(dialog, "spnTolerance", "5");
    QTRY_COMPARE(CountOf(dialog), 2);
    Close(dialog, "cmdOK");
    dialog = OpenBy("mnuAOutlineAll");
    for (const auto& [name, text] :
         { std::pair("spnLeastPixels", "3000 px"), std::pair("spnTolerance", "5 %") }) {
        QCOMPARE(::Find<QSpinBox>(dialog, name)->text(), text);
    }
    QCOMPARE(::Find<QDoubleSpinBox>(dialog, "spnPrecision")->value(), 2.0);
    Close(dialog, "cmdCancel");
}

void tst_outlineall::returnInAFieldMakesTheAreas()
{
    const QPointer<QDialog> dialog = OpenMade();
    const qsizetype ticked = TickedRows(dialog).size();
    QTest::keyClick(::Find<QSpinBox>(dialog, "spnLeastPixels"), Qt::Key_Return);
    QTRY_VERIFY(dialog == nullptr);
    QCOMPARE(test_->RowCount(), ticked);
}

void tst_outlineall::anEditorThatGoesTakesTheWindowAlong()
{
    OpenPng(MadePicture());
    const QPointer<QDialog> dialog = OpenBy("mnuAOutlineAll");
    delete test_->editor.data();
    QVERIFY(dialog == nullptr);
}

QTEST_MAIN(tst_outlineall)

#include "tst_outlineall.moc"
