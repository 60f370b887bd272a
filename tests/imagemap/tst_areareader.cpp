#include "EditorTest.h"

#include <QAccessible>

namespace {

/** Set where screen readers are listened for. */
constexpr const char* isHeardVariable = "CARTOLEN_IS_HEARD";

/** What screen readers are told of, and of which child of the picture. */
struct Heard
{
    QAccessible::Event kind;
    int child;

    bool operator==(const Heard&) const = default;
};

QList<Heard> heard;
const QObject* spokenOf = nullptr;

void Hear(QAccessibleEvent* event)
{
    const bool isOfAreas = event->type() == QAccessible::Focus || event->type() == QAccessible::Selection ||
                           event->type() == QAccessible::SelectionRemove ||
                           event->type() == QAccessible::ObjectReorder;
    // The picture's own focus is Qt's to tell.
    const bool isOfPictureAlone = event->type() == QAccessible::Focus && event->child() < 0;
    if (event->object() == spokenOf && isOfAreas && !isOfPictureAlone) {
        heard << Heard{ event->type(), event->child() };
    }
}

} // namespace

/** The areas as a screen reader finds them on the picture. */
class tst_areareader : public EditorTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup()
    {
        QAccessible::installUpdateHandler(handlerBefore_);
        End();
    }

    void areasAreChildrenOfThePicture();
    void eachTellsWhereItIs();
    void placesFollowTheZoom();
    void theTopmostAreaIsFound();
    void anAreaIsWhereItsShapeIs();
    void whatIsOutOfSightTellsSo();
    void theFocusFollowsTheSelection();
    void goingToAnAreaSelectsIt();
    void areasThatWentAreNoChildren();
    void areasThatComeAreChildren();
    void theSelectedAreaIsAnnounced();
    void whatIsSelectedNoMoreIsAnnounced();
    void nothingIsAnnouncedAsFocusedWhileTheFocusIsElsewhere();
    void areasThatComeAndGoAreAnnounced();

private:
    QAccessible::UpdateHandler handlerBefore_ = nullptr;

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
    spokenOf = test_->Surface();
    handlerBefore_ = QAccessible::installUpdateHandler(&Hear);
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

void tst_areareader::anAreaIsWhereItsShapeIs()
{
    // In the box of the circle and not in itself.
    const QPoint besideCircle = test_->Surface()->mapToGlobal(QPoint(88, 68));
    QVERIFY(Picture()->child(1)->rect().contains(besideCircle));
    QCOMPARE(Picture()->childAt(besideCircle.x(), besideCircle.y()), nullptr);
    for (int i = 0; i < 3; ++i) {
        test_->Entry("mnuVZoomIn")->trigger();
    }
    const QPoint inCircle = test_->Surface()->mapToGlobal(QPoint(170, 90));
    QCOMPARE(Name(Picture()->childAt(inCircle.x(), inCircle.y())), "No: 2 Circle");
}

void tst_areareader::whatIsOutOfSightTellsSo()
{
    QVERIFY(!Picture()->child(0)->state().offscreen);
    for (int i = 0; i < 11; ++i) {
        test_->Entry("mnuVZoomIn")->trigger();
    }
    test_->Find<QScrollBar>("HScroll1")->setValue(0);
    test_->Find<QScrollBar>("VScroll1")->setValue(0);
    QVERIFY(!Picture()->child(0)->state().offscreen);
    test_->Find<QScrollBar>("HScroll1")->setValue(test_->Find<QScrollBar>("HScroll1")->maximum());
    QVERIFY(Picture()->child(0)->state().offscreen);
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

void tst_areareader::theSelectedAreaIsAnnounced()
{
    if (!qEnvironmentVariableIsSet(isHeardVariable)) {
        QSKIP("only a run with a bus for screen readers hears anything");
    }
    QTRY_VERIFY(QAccessible::isActive());
    test_->Entry("mnuASelect")->trigger();
    test_->Surface()->setFocus();
    heard.clear();
    Key(Qt::Key_Tab);
    const QList<Heard> first = { { QAccessible::Selection, 0 }, { QAccessible::Focus, 0 } };
    QCOMPARE(heard, first);
    Key(Qt::Key_Tab);
    const QList<Heard> second = { { QAccessible::Selection, 1 }, { QAccessible::Focus, 1 } };
    QCOMPARE(heard, first + second);
    Key(Qt::Key_Right);
    QCOMPARE(heard, first + second);
}

void tst_areareader::whatIsSelectedNoMoreIsAnnounced()
{
    if (!qEnvironmentVariableIsSet(isHeardVariable)) {
        QSKIP("only a run with a bus for screen readers hears anything");
    }
    QTRY_VERIFY(QAccessible::isActive());
    test_->Entry("mnuASelectAll")->trigger();
    heard.clear();
    Key(Qt::Key_Escape);
    QCOMPARE(
        heard, (QList<Heard>{ { QAccessible::SelectionRemove, 0 }, { QAccessible::SelectionRemove, 1 } }));
}

void tst_areareader::nothingIsAnnouncedAsFocusedWhileTheFocusIsElsewhere()
{
    if (!qEnvironmentVariableIsSet(isHeardVariable)) {
        QSKIP("only a run with a bus for screen readers hears anything");
    }
    QTRY_VERIFY(QAccessible::isActive());
    test_->Entry("mnuASelect")->trigger();
    test_->Find<QWidget>("ListView1")->setFocus();
    heard.clear();
    test_->Entry("mnuASelectAll")->trigger();
    QCOMPARE(heard, (QList<Heard>{ { QAccessible::Selection, 1 } }));
}

void tst_areareader::areasThatComeAndGoAreAnnounced()
{
    if (!qEnvironmentVariableIsSet(isHeardVariable)) {
        QSKIP("only a run with a bus for screen readers hears anything");
    }
    QTRY_VERIFY(QAccessible::isActive());
    const Heard other{ QAccessible::ObjectReorder, -1 };
    heard.clear();
    test_->Entry("mnuASelectAll")->trigger();
    QCOMPARE(heard.count(other), 0);
    test_->Entry("mnuADuplicate")->trigger();
    QCOMPARE(heard.count(other), 1);
    test_->Entry("mnuAUndo")->trigger();
    QCOMPARE(heard.count(other), 2);
    test_->Entry("mnuARedo")->trigger();
    QCOMPARE(heard.count(other), 3);
}

QTEST_MAIN(tst_areareader)
#include "tst_areareader.moc"
