#include "DrawnAreasTest.h"
#include "imagemap/PicturePane.h"

#include <QComboBox>
#include <QContextMenuEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QTabWidget>

/** What is done in the editor with the keyboard alone, from a tool to the menu of an area. */
class tst_areakeys : public DrawnAreasTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Begin(); }
    void cleanup() { End(); }

    void everyFigureIsDrawnByKeys_data();
    void everyFigureIsDrawnByKeys();
    void escapeGivesUpWhatKeysDraw();
    void theCrossStaysInSight();
    void theMenuKeyOpensTheMenuOfTheAreas();
    void theMenuKeyOpensItOnTheListToo();
    void theMenuKeyOpensNothingWhileAToolDraws();
    void coordinatesEnteredTwiceAreTwoSteps();
    void aVainPressTellsOfSelect();
    void lettersAreForAnOpenMenu();

private:
    void Press(const QList<QKeyCombination>& keys)
    {
        for (const QKeyCombination key : keys) {
            Key(key.key(), key.keyboardModifiers());
        }
    }
    [[nodiscard]] QMenu* AreasMenu() const { return test_->Entry("mnuAreas")->menu(); }

    static void PressMenuKey(QWidget* on)
    {
        on->setFocus();
        const QPoint middle = on->rect().center();
        QContextMenuEvent event(QContextMenuEvent::Keyboard, middle, on->mapToGlobal(middle));
        QApplication::sendEvent(on, &event);
    }
};

void tst_areakeys::everyFigureIsDrawnByKeys_data()
{
    QTest::addColumn<QByteArray>("tool");
    QTest::addColumn<QList<QKeyCombination>>("keys");
    QTest::addColumn<QList<int>>("numbers");

    const QKeyCombination right = Qt::SHIFT | Qt::Key_Right;
    const QKeyCombination down = Qt::SHIFT | Qt::Key_Down;
    const QKeyCombination enter = Qt::Key_Return;
    QTest::newRow("rectangle") << QByteArray("mnuFigNum_5")
                               << QList<QKeyCombination>{ right,         down, enter, right,
                                                          Qt::Key_Right, down, enter }
                               << QList{ 10, 10, 21, 20 };
    QTest::newRow("circle") << QByteArray("mnuFigNum_6")
                            << QList<QKeyCombination>{ right, right, down, down, enter, right, enter }
                            << QList{ 20, 20, 10 };
    QTest::newRow("polygon")
        << QByteArray("mnuFigNum_7")
        << QList<QKeyCombination>{ right, down, enter, right, enter, down, Qt::CTRL | Qt::Key_Return }
        << QList{ 10, 10, 20, 10, 20, 20 };
}

void tst_areakeys::everyFigureIsDrawnByKeys()
{
    QFETCH(const QByteArray, tool);
    QFETCH(const QList<QKeyCombination>, keys);
    QFETCH(const QList<int>, numbers);
    test_->OpenPicture();
    Trigger(tool.constData());
    const QPointer<QDialog> dialog = test_->DialogOpenedBy([this, keys] { Press(keys); });
    QTest::keyClicks(QApplication::focusWidget(), "keys.htm");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QTRY_COMPARE(test_->RowCount(), 1);
    test_->robot.WaitUntilDone();
    QCOMPARE(Numbers(0), numbers);
    QCOMPARE(test_->Row(0).at(1), "keys.htm");
}

void tst_areakeys::escapeGivesUpWhatKeysDraw()
{
    test_->OpenPicture();
    Trigger("mnuFigNum_5");
    Press({ Qt::Key_Return, Qt::SHIFT | Qt::Key_Right });
    QVERIFY(test_->map.Drawing().IsInProgress());
    Key(Qt::Key_Escape);
    QVERIFY(!test_->map.Drawing().IsInProgress());
    // The next Enter begins another figure and ends none.
    Key(Qt::Key_Return);
    QVERIFY(test_->map.Drawing().IsInProgress());
    QVERIFY(!test_->map.HasContent());
}

void tst_areakeys::theCrossStaysInSight()
{
    test_->OpenPicture({ 3000, 200 });
    Trigger("mnuFigNum_5");
    auto* const pane = test_->Find<PicturePane>("picturePane");
    const auto isInSight = [this] { return test_->Surface()->visibleRegion().boundingRect().right(); };
    const int seen = isInSight();
    for (int x = 0; x < seen + 100; x += 10) {
        Key(Qt::Key_Right, Qt::ShiftModifier);
    }
    QVERIFY(test_->Find<QScrollBar>("HScroll1")->value() >= 100);
    pane->SetZoom(4);
    Key(Qt::Key_Left);
    const QRect inSight = test_->Surface()->visibleRegion().boundingRect();
    QVERIFY(inSight.contains(QPoint(4 * (seen + 90), 0)));
}

void tst_areakeys::theMenuKeyOpensTheMenuOfTheAreas()
{
    DrawTwo();
    Trigger("mnuASelect");
    Key(Qt::Key_Tab);
    PressMenuKey(test_->Surface());
    QTRY_VERIFY(AreasMenu()->isVisible());
    // It opens at the area that it is for.
    const QRect area(test_->Surface()->mapToGlobal(QPoint(10, 10)), QSize(61, 41));
    QVERIFY(area.contains(AreasMenu()->pos()));
    QTest::keyClick(AreasMenu(), Qt::Key_Escape);
    QVERIFY(!AreasMenu()->isVisible());
}

void tst_areakeys::theMenuKeyOpensItOnTheListToo()
{
    DrawTwo();
    PressMenuKey(test_->List());
    QTRY_VERIFY(AreasMenu()->isVisible());
    QTest::keyClick(AreasMenu(), Qt::Key_Escape);
}

void tst_areakeys::theMenuKeyOpensNothingWhileAToolDraws()
{
    DrawTwo();
    Trigger("mnuFigNum_5");
    PressMenuKey(test_->Surface());
    EditorFixture::Settle();
    QVERIFY(!AreasMenu()->isVisible());
}

void tst_areakeys::coordinatesEnteredTwiceAreTwoSteps()
{
    DrawTwo();
    Trigger("mnuASelect");
    Key(Qt::Key_Tab);
    test_->Find<QTabWidget>("SSTab1")->setCurrentIndex(2);
    auto* const field = test_->Find<QLineEdit>("txtAreaCoords");
    const qsizetype before = test_->map.History().Position();
    for (const char* const text : { "1,2,30,40", "5,6,70,80" }) {
        field->setFocus();
        field->selectAll();
        QTest::keyClicks(field, text);
        QTest::keyClick(field, Qt::Key_Return);
    }
    QCOMPARE(test_->map.History().Position(), before + 2);
    Trigger("mnuAUndo");
    QCOMPARE(Numbers(0), (QList{ 1, 2, 30, 40 }));
}

void tst_areakeys::aVainPressTellsOfSelect()
{
    const QString hint = QStringLiteral("Areas > Select, or the key S, changes what has been drawn");
    test_->OpenPicture();
    test_->ClickAt({ 20, 20 });
    QCOMPARE(test_->Text("StatusBar1_Panel3"), "Choose Rectangle, Circle or Line to draw an area");
    test_->DrawRectangle({ 10, 10 }, { 70, 50 });
    test_->ClickButton(9);
    QCOMPARE(test_->Text("StatusBar1_Panel3"), "A double click on a row edits its link");
    test_->ClickAt({ 20, 20 });
    QCOMPARE(test_->Text("StatusBar1_Panel3"), hint);
    test_->ClickButton(5);
    test_->ClickButton(9);
    QCOMPARE(test_->Text("StatusBar1_Panel3"), "A double click on a row edits its link");
}

void tst_areakeys::lettersAreForAnOpenMenu()
{
    test_->OpenPicture();
    auto* const bar = test_->Find<QMenuBar>("MenuBar1");
    QMenu* const menu = AreasMenu();
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(menu->menuAction()).center());
    QTRY_VERIFY(menu->isVisible());
    // It is asked before a command has the key.
    QKeyEvent letter(QEvent::ShortcutOverride, Qt::Key_S, Qt::NoModifier, QStringLiteral("s"));
    letter.ignore();
    QApplication::sendEvent(menu, &letter);
    QVERIFY(letter.isAccepted());
    QTest::keyClick(menu, Qt::Key_S);
    QTRY_VERIFY(!menu->isVisible());
    QVERIFY(test_->Entry("mnuASelect")->isChecked());
}

QTEST_MAIN(tst_areakeys)
#include "tst_areakeys.moc"
