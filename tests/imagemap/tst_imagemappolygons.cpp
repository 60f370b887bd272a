// Drawing polygons on the picture of the image map editor with the mouse.

#include "tests/imagemap/EditorTest.h"
#include "tests/imagemap/Places.h"

#include <QMouseEvent>

class tst_imagemappolygons : public EditorTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { BeginWithPicture(); }
    void cleanup() { End(); }

    void polygonStartsOnReleaseAndEndsOnTheRightClick();
    void polygonSideEndsWhereTheMouseWasLastMoved();
    void polygonLosesTheSideOfTheRightClick();
    void oneSidedPolygonIsGivenUpWithoutADialog();
    void polygonsPromptIsPlainInEveryMode();
    void doubleClickIsTwoPressesOfThePolygon();
};

void tst_imagemappolygons::polygonStartsOnReleaseAndEndsOnTheRightClick()
{
    test_->ClickButton(7);
    test_->Press({ 20, 20 });
    QCOMPARE(test_->map.Ledger().DrawState, drawIdle);
    test_->Move({ 25, 20 });
    test_->Release({ 25, 20 });
    QCOMPARE(test_->map.Ledger().DrawState, drawDrawing);
    QCOMPARE(test_->map.Ledger().StartX, 25);
    test_->Move({ 80, 20 });
    QCOMPARE(test_->Dimensions1And2(), QStringLiteral("55,0"));
    test_->Press({ 80, 20 });
    QCOMPARE(test_->map.Ledger().DrawState, drawIdle);
    QCOMPARE(test_->Text("lblFigures"), QStringLiteral("1"));
    test_->Release({ 82, 23 });
    QCOMPARE(test_->map.Ledger().StartX, 82);
    test_->Move({ 80, 90 });
    const QPointer<QDialog> dialog = test_->DialogOpenedBy([this] {
        test_->ClickAt({ 80, 90 }, Qt::RightButton);
    });
    QCOMPARE(dialog->objectName(), QStringLiteral("frmIMLink"));
    TypeIn(dialog, "cmbLink", "three.htm");
    ClickIn(dialog, "SSCmdOK");
    const QStringList row = { QStringLiteral(" No: 1 Polygon"), QStringLiteral("three.htm"), QString(),
                              QStringLiteral("25, 20, 80, 20, 80, 90"), QString() };
    QCOMPARE(test_->Row(0), row);
    QCOMPARE(test_->map.Ledger().FigureCount, 1);
    QCOMPARE(test_->map.Ledger().PolygonLineCount, 1);
    QCOMPARE(test_->map.Ledger().CurrentPolygonLineCount, 0);
    QCOMPARE(test_->map.Ledger().PolygonLines[0].Link, QStringLiteral("three.htm"));
    QCOMPARE(test_->Text("lblFigures"), QStringLiteral("1"));
    QCOMPARE(test_->Status(), QStringLiteral("Drawing Mode - Line, draw Polygons !"));
}

void tst_imagemappolygons::polygonSideEndsWhereTheMouseWasLastMoved()
{
    test_->ClickButton(7);
    test_->ClickAt({ 20, 20 });
    test_->Move({ 80, 20 });
    // A click that the mouse has not been moved to, as a tap on a touch screen is.
    const QPointF at(90, 30);
    for (const QEvent::Type type : { QEvent::MouseButtonPress, QEvent::MouseButtonRelease }) {
        QMouseEvent event(type, at, test_->Surface()->mapToGlobal(at), Qt::LeftButton, Qt::NoButton, {});
        QApplication::sendEvent(test_->Surface(), &event);
    }
    const FigureRecord& side = test_->map.Ledger().Figures[0];
    QCOMPARE(QPoint(side.X2, side.Y2), QPoint(80, 20));
    QCOMPARE(QPoint(test_->map.Ledger().StartX, test_->map.Ledger().StartY), QPoint(90, 30));
}

void tst_imagemappolygons::polygonLosesTheSideOfTheRightClick()
{
    const QImage before = test_->Pixels();
    test_->DrawPolygon({ { 20, 20 }, { 80, 20 }, { 80, 90 }, { 20, 90 } });
    QCOMPARE(test_->Row(0).at(3), QStringLiteral("20, 20, 80, 20, 80, 90, 20, 90"));
    Places sides = BoxOutline({ 20, 20 }, { 80, 20 });
    sides.merge(BoxOutline({ 80, 20 }, { 80, 90 }));
    const QImage after = test_->Pixels();
    QCOMPARE(DifferentPlaces(before, after), sides);
    QVERIFY(AllOfColor(after, sides, black));
}

void tst_imagemappolygons::oneSidedPolygonIsGivenUpWithoutADialog()
{
    const QImage before = test_->Pixels();
    test_->ClickButton(7);
    test_->ClickCorners({ { 20, 20 }, { 80, 50 } });
    test_->Settle();
    QCOMPARE(test_->Pixels(), before);
    QCOMPARE(test_->map.Ledger().FigureCount, 0);
    QCOMPARE(test_->map.Ledger().PolygonLineCount, 0);
    QCOMPARE(test_->map.Ledger().CurrentPolygonLineCount, 0);
    QCOMPARE(test_->Text("lblFigures"), QString());
    QVERIFY(!test_->Button(14)->isEnabled());

    test_->DrawRectangle({ 10, 10 }, { 40, 40 });
    test_->ClickButton(7);
    test_->ClickCorners({ { 20, 20 }, { 80, 50 } });
    test_->Settle();
    QCOMPARE(test_->RowCount(), 1);
    QCOMPARE(test_->map.Ledger().FigureCount, 1);
    QVERIFY(test_->Button(14)->isEnabled());
}

void tst_imagemappolygons::polygonsPromptIsPlainInEveryMode()
{
    test_->map.Script().SetMode(JSToolTips);
    test_->ClickButton(7);
    const QPointer<QDialog> dialog = test_->DialogOpenedBy([this] {
        test_->ClickCorners({ { 20, 20 }, { 80, 20 }, { 80, 90 } });
    });
    QCOMPARE(test_->Status(), QStringLiteral("Link a drawn area !"));
    QCOMPARE(dialog->windowTitle(), QStringLiteral("Image Map - Tool Tip Messages"));
    QVERIFY(Find<QPushButton>(dialog, "SSCmdOK")->isEnabled());
    QVERIFY(!Find<QPushButton>(dialog, "SSCmdReplace")->isEnabled());
    dialog->close();
    QCOMPARE(test_->Status(), QStringLiteral("Drawing Mode - Line, draw Polygons !"));
}

void tst_imagemappolygons::doubleClickIsTwoPressesOfThePolygon()
{
    test_->ClickButton(7);
    QTest::mouseDClick(test_->Surface(), Qt::LeftButton, {}, QPoint(40, 40));
    QCOMPARE(test_->map.Ledger().FigureCount, 1);
    QCOMPARE(test_->map.Ledger().CurrentPolygonLineCount, 1);
    QCOMPARE(test_->map.Ledger().DrawState, drawDrawing);
}

QTEST_MAIN(tst_imagemappolygons)

#include "tst_imagemappolygons.moc"
