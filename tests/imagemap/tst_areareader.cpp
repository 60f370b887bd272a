#include "EditorTest.h"

#include <QAccessible>

/** The areas as a screen reader finds them on the picture. */
class tst_areareader : public EditorTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { End(); }

    void areasAreChildrenOfThePicture();
    void eachTellsWhereItIs();
    void placesFollowTheZoom();
    void theTopmostAreaIsFound();
    void theFocusFollowsTheSelection();
    void goingToAnAreaSelectsIt();
    void areasThatWentAreNoChildren();
    void areasThatComeAreChildren();

private:
    [[nodiscard]] QAccessibleInterface* Picture() const
    {
        return QAccessible::queryAccessibleInterface(test_->Surface());
    }
    [[nodiscard]] static QString Name(QAccessibleInterface* face) { return face->text(QAccessible::Name); }
    void Key(int key)
    {
        test_->Surface()->setFocus();
        QTest::keyClick(test_->Surface(), Qt::Key(key));
    }
};

void tst_areareader::init()
{
    BeginWithPicture();
    test_->DrawRectangle({ 10, 10 }, { 70, 50 }, "one.htm");
    test_->DrawCircle({ 60, 40 }, { 90, 40 }, "two.htm");
    test_->editor->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(test_->editor));
}

void tst_areareader::areasAreChildrenOfThePicture()
{
    QCOMPARE(Picture()->role(), QAccessible::Graphic);
    QCOMPARE(Picture()->childCount(), 2);
    QAccessibleInterface* const one = Picture()->child(0);
    QAccessibleInterface* const two = Picture()->child(1);
    QCOMPARE(Name(one), "No: 1 Rectangle");
    QCOMPARE(Name(two), "No: 2 Circle");
    QCOMPARE(one->text(QAccessible::Description), "one.htm, 10, 10, 70, 50");
    QCOMPARE(one->text(QAccessible::Value), "one.htm");
    QCOMPARE(one->role(), QAccessible::Link);
    QVERIFY(one->state().focusable && one->state().selectable && !one->state().selected);
    QCOMPARE(one->parent(), Picture());
    QCOMPARE(Picture()->indexOfChild(two), 1);
    QCOMPARE(Picture()->child(0), one);
    QCOMPARE(Picture()->child(2), nullptr);
    QCOMPARE(Picture()->child(-1), nullptr);
    QCOMPARE(one->childCount(), 0);
    QCOMPARE(one->window(), test_->editor->windowHandle());
}

void tst_areareader::eachTellsWhereItIs()
{
    const QPoint corner = test_->Surface()->mapToGlobal(QPoint(10, 10));
    QCOMPARE(Picture()->child(0)->rect().topLeft(), corner);
    QCOMPARE(Picture()->child(0)->rect().width(), 61);
}

void tst_areareader::placesFollowTheZoom()
{
    const QSize before = Picture()->child(0)->rect().size();
    test_->Entry("mnuVZoomIn")->trigger();
    test_->Entry("mnuVZoomIn")->trigger();
    test_->Entry("mnuVZoomIn")->trigger();
    QCOMPARE(Picture()->child(0)->rect().size(), before * 2);
    QCOMPARE(Picture()->child(0)->rect().topLeft(), test_->Surface()->mapToGlobal(QPoint(20, 20)));
}

void tst_areareader::theTopmostAreaIsFound()
{
    const QPoint inBoth = test_->Surface()->mapToGlobal(QPoint(60, 40));
    QCOMPARE(Name(Picture()->childAt(inBoth.x(), inBoth.y())), "No: 1 Rectangle");
    const QPoint inOne = test_->Surface()->mapToGlobal(QPoint(85, 45));
    QCOMPARE(Name(Picture()->childAt(inOne.x(), inOne.y())), "No: 2 Circle");
    const QPoint outside = test_->Surface()->mapToGlobal(QPoint(200, 150));
    QCOMPARE(Picture()->childAt(outside.x(), outside.y()), nullptr);
}

void tst_areareader::theFocusFollowsTheSelection()
{
    test_->Entry("mnuASelect")->trigger();
    QCOMPARE(Picture()->focusChild(), nullptr);
    for (int number = 0; number < 2; ++number) {
        Key(Qt::Key_Tab);
        QAccessibleInterface* const face = Picture()->child(number);
        QCOMPARE(Picture()->focusChild(), face);
        QVERIFY(face->state().focused && face->state().selected);
        QVERIFY(!Picture()->child(1 - number)->state().focused);
    }
}

void tst_areareader::goingToAnAreaSelectsIt()
{
    QAccessibleActionInterface* const actions = Picture()->child(1)->actionInterface();
    QVERIFY(actions != nullptr);
    QCOMPARE(actions->actionNames(), QStringList{ QAccessibleActionInterface::setFocusAction() });
    actions->doAction(QAccessibleActionInterface::setFocusAction());
    QCOMPARE(test_->SelectedRows(), QList{ 1 });
    QVERIFY(test_->Entry("mnuASelect")->isChecked());
    QVERIFY(test_->Surface()->hasFocus());
    QVERIFY(Picture()->child(1)->state().focused);
}

void tst_areareader::areasThatWentAreNoChildren()
{
    QAccessibleInterface* const second = Picture()->child(1);
    QAccessibleInterface* const first = Picture()->child(0);
    test_->Entry("mnuASelect")->trigger();
    Key(Qt::Key_Tab);
    Key(Qt::Key_Delete);
    QCOMPARE(Picture()->childCount(), 1);
    QVERIFY(!second->isValid());
    QVERIFY(second->state().invalid);
    QCOMPARE(Name(second), QString());
    QCOMPARE(second->rect(), QRect());
    second->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
    QCOMPARE(test_->SelectedRows(), QList<int>());
    QCOMPARE(Name(first), "No: 1 Circle");
    test_->Entry("mnuAUndo")->trigger();
    QCOMPARE(Picture()->childCount(), 2);
    QCOMPARE(Name(second), "No: 2 Circle");
}

void tst_areareader::areasThatComeAreChildren()
{
    test_->Entry("mnuASelectAll")->trigger();
    test_->Entry("mnuADuplicate")->trigger();
    QCOMPARE(Picture()->childCount(), 4);
}

QTEST_MAIN(tst_areareader)
#include "tst_areareader.moc"
