// Choosing tools in the image map editor, what it tells about them, and giving up what they began.

#include "tests/imagemap/EditorTest.h"
#include "tests/imagemap/Places.h"

#include <QMenuBar>

class tst_imagemaptools : public EditorTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { BeginWithPicture(); }
    void cleanup() { End(); }

    void toolsAreChosenByButtonAndMenu_data();
    void toolsAreChosenByButtonAndMenu();
    void choosingTheCursorKeepsTheKind();
    void pointerIsACrossWhereToolsDraw();
    void cursorModeDrawsNothing();

    void toolChangedUnderAFigureLeavesNoTrace();
    void cursorFreezesTheFigureInProgress();

    void toolbarShowsTheToolPressed();
    void thirdPanelTellsWhatToDoNext();
    void thirdPanelFollowsTheMovedFigure();
    void escapeGivesUpWhatIsInProgress_data();
    void escapeGivesUpWhatIsInProgress();
    void escapeWithoutAFigureIsLeftToOthers();
    void escapeTakesNothingThatIsBeingLinked();

private:
    [[nodiscard]] QString Hint() const { return test_->Text("StatusBar1_Panel3"); }
};

void tst_imagemaptools::toolsAreChosenByButtonAndMenu_data()
{
    QTest::addColumn<int>("button");
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QString>("status");
    QTest::addColumn<int>("kind");

    QTest::newRow("rectangle") << 5 << QStringLiteral("mnuFigNum_5")
                               << QStringLiteral("Drawing Mode - Rectangle !") << 5;
    QTest::newRow("circle") << 6 << QStringLiteral("mnuFigNum_6") << QStringLiteral("Drawing Mode - Circle !")
                            << 6;
    QTest::newRow("line") << 7 << QStringLiteral("mnuFigNum_7")
                          << QStringLiteral("Drawing Mode - Line, draw Polygons !") << 7;
    QTest::newRow("cursor") << 9 << QStringLiteral("mnuCursor") << QStringLiteral("Creating Mode !") << 0;
}

void tst_imagemaptools::toolsAreChosenByButtonAndMenu()
{
    QFETCH(const int, button);
    QFETCH(const QString, entry);
    QFETCH(const QString, status);
    QFETCH(const int, kind);

    test_->ClickButton(button);
    QCOMPARE(test_->CheckedTools(), QStringList{ entry });
    QCOMPARE(test_->Status(), status);
    QCOMPARE(test_->map.Ledger().CurrentKind, kind);

    test_->ClickButton(button == 5 ? 6 : 5);
    QVERIFY(test_->CheckedTools() != QStringList{ entry });
    test_->Entry(qPrintable(entry))->trigger();
    QCOMPARE(test_->CheckedTools(), QStringList{ entry });
    QCOMPARE(test_->Status(), status);

    // An entry that is chosen again stays checked.
    test_->Entry(qPrintable(entry))->trigger();
    QCOMPARE(test_->CheckedTools(), QStringList{ entry });
}

void tst_imagemaptools::choosingTheCursorKeepsTheKind()
{
    test_->ClickButton(6);
    test_->ClickButton(9);
    QCOMPARE(test_->map.Ledger().CurrentKind, kindCircle);
    QCOMPARE(test_->CheckedTools(), QStringList{ QStringLiteral("mnuCursor") });
}

void tst_imagemaptools::pointerIsACrossWhereToolsDraw()
{
    test_->Move({ 20, 20 });
    QCOMPARE(test_->Surface()->cursor().shape(), Qt::ArrowCursor);
    test_->ClickButton(6);
    test_->Move({ 21, 20 });
    QCOMPARE(test_->Surface()->cursor().shape(), Qt::CrossCursor);
    test_->ClickButton(9);
    QCOMPARE(test_->Surface()->cursor().shape(), Qt::ArrowCursor);
    test_->Move({ 22, 20 });
    QCOMPARE(test_->Surface()->cursor().shape(), Qt::ArrowCursor);
}

void tst_imagemaptools::cursorModeDrawsNothing()
{
    const QImage before = test_->Pixels();
    test_->Drag({ 10, 10 }, { 60, 70 });
    test_->ClickAt({ 30, 30 }, Qt::RightButton);
    test_->Settle();
    QCOMPARE(test_->Pixels(), before);
    QCOMPARE(test_->map.Ledger().DrawState, drawIdle);
    QCOMPARE(test_->map.Ledger().FigureCount, 0);
    QCOMPARE(test_->Cursor1And2(), QStringLiteral("30,30"));
    QCOMPARE(test_->Start1And2(), QString());
}

void tst_imagemaptools::toolChangedUnderAFigureLeavesNoTrace()
{
    const QImage before = test_->Pixels();
    test_->ClickButton(7);
    test_->ClickAt({ 20, 20 });
    test_->Move({ 80, 60 });
    test_->ClickButton(5);
    test_->Move({ 70, 50 });
    QCOMPARE(DifferentPlaces(before, test_->Pixels()), BoxOutline({ 20, 20 }, { 70, 50 }));
    test_->Link("now.htm", [this] { test_->ClickAt({ 70, 50 }); });
    QCOMPARE(test_->Row(0).at(0), QStringLiteral(" No: 1 Rectangle"));
    QCOMPARE(test_->Row(0).at(3), QStringLiteral("20, 20, 70, 50"));
}

void tst_imagemaptools::cursorFreezesTheFigureInProgress()
{
    const QImage before = test_->Pixels();
    test_->ClickButton(7);
    test_->ClickAt({ 20, 20 });
    test_->Move({ 80, 20 });
    test_->ClickButton(9);
    test_->Move({ 120, 90 });
    test_->ClickAt({ 120, 90 });
    QCOMPARE(test_->map.Ledger().DrawState, drawDrawing);
    QCOMPARE(DifferentPlaces(before, test_->Pixels()), BoxOutline({ 20, 20 }, { 80, 20 }));
    test_->ClickButton(7);
    test_->Move({ 20, 70 });
    QCOMPARE(DifferentPlaces(before, test_->Pixels()), BoxOutline({ 20, 20 }, { 20, 70 }));
}

void tst_imagemaptools::toolbarShowsTheToolPressed()
{
    const auto pressed = [this] {
        QList<int> positions;
        const QList<QAction*> actions = test_->Find<QToolBar>("Toolbar1")->actions();
        for (int i = 0; i < actions.size(); ++i) {
            const auto* const button =
                qobject_cast<QToolButton*>(test_->Find<QToolBar>("Toolbar1")->widgetForAction(actions[i]));
            if (button != nullptr && button->isChecked()) {
                positions << i + 1;
            }
        }
        return positions;
    };
    QCOMPARE(pressed(), QList<int>{ 9 });
    for (const int position : { 5, 6, 7, 9 }) {
        test_->ClickButton(position);
        QCOMPARE(pressed(), QList<int>{ position });
        test_->ClickButton(position);
        QCOMPARE(pressed(), QList<int>{ position });
    }
    test_->Entry("mnuFigNum_6")->trigger();
    QCOMPARE(pressed(), QList<int>{ 6 });
}

void tst_imagemaptools::thirdPanelTellsWhatToDoNext()
{
    QCOMPARE(Hint(), QStringLiteral("Choose Rectangle, Circle or Line to draw an area"));
    test_->ClickButton(5);
    QCOMPARE(Hint(), QStringLiteral("Drag from one corner to the opposite one"));
    test_->ClickButton(6);
    QCOMPARE(Hint(), QStringLiteral("Drag from the centre outwards"));
    test_->ClickButton(7);
    QCOMPARE(Hint(), QStringLiteral("Click where the polygon begins"));
    const QString polygon = QStringLiteral("A click ends a side, the right button the polygon");
    for (const QPoint corner : { QPoint(20, 20), QPoint(80, 20), QPoint(80, 90) }) {
        test_->Move(corner);
        test_->ClickAt(corner);
        QCOMPARE(Hint(), polygon);
    }
    QCOMPARE(test_->Status(), QStringLiteral("Drawing Mode - Line, draw Polygons !"));
    test_->ClickButton(9);
    QCOMPARE(Hint(), QStringLiteral("Choose a tool to go on with the figure, Esc gives it up"));
    test_->ClickButton(7);
    QCOMPARE(Hint(), polygon);
    test_->Move({ 20, 90 });
    const QPointer<QDialog> dialog = test_->DialogOpenedBy([this] {
        test_->ClickAt({ 20, 90 }, Qt::RightButton);
    });
    QCOMPARE(Hint(), QStringLiteral("Enter where a click on the area leads"));
    TypeIn(dialog, "cmbLink", "area.htm");
    ClickIn(dialog, "SSCmdOK");
    QCOMPARE(Hint(), QStringLiteral("Click where the polygon begins"));
    test_->ClickButton(9);
    QCOMPARE(Hint(), QStringLiteral("A double click on a row edits its link"));

    test_->document.line = 17;
    test_->ClickButton(16);
    QCOMPARE(Hint(), QStringLiteral("Image map inserted in line 17 of the page"));
    test_->ClickButton(14);
    QCOMPARE(Hint(), QStringLiteral("Choose Rectangle, Circle or Line to draw an area"));
}

void tst_imagemaptools::thirdPanelFollowsTheMovedFigure()
{
    test_->ClickButton(5);
    test_->Press({ 20, 20 });
    const QString sizing = QStringLiteral("The right button held down moves the figure, Esc gives it up");
    QCOMPARE(Hint(), sizing);
    test_->Move({ 60, 50 });
    test_->Press({ 60, 50 }, Qt::RightButton);
    QCOMPARE(Hint(), QStringLiteral("Let go of the right button to go on with its size"));
    test_->Release({ 60, 50 }, Qt::RightButton);
    QCOMPARE(Hint(), sizing);
    test_->robot.Cancel();
    test_->Release({ 60, 50 });
    test_->robot.WaitUntilDone();
    QCOMPARE(Hint(), QStringLiteral("Drag from one corner to the opposite one"));
}

void tst_imagemaptools::escapeGivesUpWhatIsInProgress_data()
{
    QTest::addColumn<QByteArray>("focus");
    for (const char* const name :
         { "PictureDisplay", "txtName", "ListView1", "SSTab1", "HScroll1", "Check1" }) {
        QTest::newRow(name) << QByteArray(name);
    }
}

void tst_imagemaptools::escapeGivesUpWhatIsInProgress()
{
    QFETCH(const QByteArray, focus);
    test_->DrawRectangle({ 110, 110 }, { 140, 140 });
    const QImage before = test_->Pixels();
    auto* const widget = test_->Find<QWidget>(focus.constData());
    widget->setFocus();
    // The offscreen platform activates nothing when a dialog closes.
    test_->editor->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(test_->editor));
    const auto press = [this] { QTest::keyClick(test_->editor->windowHandle(), Qt::Key_Escape); };

    test_->ClickButton(7);
    for (const QPoint corner : { QPoint(20, 20), QPoint(80, 20), QPoint(80, 90) }) {
        test_->Move(corner);
        test_->ClickAt(corner);
    }
    test_->Move({ 20, 90 });
    QCOMPARE(test_->map.Ledger().FigureCount, 3);
    press();
    QCOMPARE(test_->Pixels(), before);
    QCOMPARE(test_->map.Ledger().FigureCount, 1);
    QCOMPARE(test_->map.Ledger().CurrentPolygonLineCount, 0);
    QCOMPARE(test_->map.Ledger().DrawState, drawIdle);
    QCOMPARE(test_->RowCount(), 1);
    QCOMPARE(Hint(), QStringLiteral("Click where the polygon begins"));

    test_->ClickButton(6);
    test_->Press({ 50, 50 });
    test_->Move({ 70, 60 });
    QVERIFY(test_->Pixels() != before);
    press();
    QCOMPARE(test_->Pixels(), before);
    test_->Release({ 70, 60 });
    test_->Settle();
    QCOMPARE(test_->map.Ledger().FigureCount, 1);
    QCOMPARE(test_->Status(), QStringLiteral("Drawing Mode - Circle !"));
    test_->DrawPolygon({ { 40, 40 }, { 90, 40 }, { 90, 90 } });
    QCOMPARE(test_->Row(1).at(3), QStringLiteral("40, 40, 90, 40, 90, 90"));
}

void tst_imagemaptools::escapeWithoutAFigureIsLeftToOthers()
{
    test_->DrawRectangle({ 110, 110 }, { 140, 140 });
    const QImage before = test_->Pixels();
    QTest::keyClick(test_->editor->windowHandle(), Qt::Key_Escape);
    QCOMPARE(test_->Pixels(), before);
    QCOMPARE(test_->RowCount(), 1);
    QVERIFY(test_->editor->isVisible());
    // The menu bar is left by it.
    auto* const bar = test_->Find<QMenuBar>("MenuBar1");
    bar->setFocus();
    bar->setActiveAction(bar->actions().constFirst());
    QTest::keyClick(bar, Qt::Key_Escape);
    QTRY_VERIFY(bar->activeAction() == nullptr || !bar->hasFocus());
}

void tst_imagemaptools::escapeTakesNothingThatIsBeingLinked()
{
    test_->ClickButton(7);
    QPointer<QDialog> dialog = test_->DialogOpenedBy([this] {
        test_->ClickCorners({ { 20, 20 }, { 80, 20 }, { 80, 90 } });
        // Before the dialog is there.
        QTest::keyClick(test_->editor->windowHandle(), Qt::Key_Escape);
    });
    TypeIn(dialog, "cmbLink", "area.htm");
    ClickIn(dialog, "SSCmdOK");
    QCOMPARE(test_->Row(0).at(3), QStringLiteral("20, 20, 80, 20, 80, 90"));
}

QTEST_MAIN(tst_imagemaptools)

#include "tst_imagemaptools.moc"
