// The help window: its contents, its pages, and ways between them.

#include "tests/help/HelpWindowTest.h"

#include <QScrollBar>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTextFrame>
#include <QToolBar>
#include <QToolButton>
#include <QTreeWidget>
#include <QWheelEvent>

class tst_helpwindow : public HelpWindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { SetUp(); }
    void cleanup() { TearDown(); }

    void ContentsListChaptersAndShowTheFirstPage();
    void AClickInTheContentsOpensThePage();
    void EnterInTheContentsOpensThePage();
    void TheContentsFollowThePage();
    void F6GoesToThePageAndBack();
    void ATopicShowsItsPage();
    void AnUnknownTopicShowsTheFirstPage();
    void ALinkOpensThePageAtItsPlace();
    void ALinkToOutsideIsHandedOn();
    void BackAndForwardWalkThroughWhatWasSeen();
    void HomeShowsTheFirstPage();
    void WordsAreFoundInThePage();
    void KeysEnlargeTheText();
    void TheWheelEnlargesTheText();
    void FineStepsOfTheWheelAddUp();
    void TheColumnStaysReadable();
    void EscClosesFromEverywhere();
    void ShowingAgainKeepsThePage();
    void EveryControlHasANameAndTakesKeys();
    void EveryPageOfTheShippedBookIsShown();

private:
    /** Turns the wheel by `delta` eighths of a degree while Ctrl is held. */
    void TurnWithCtrl(int delta) const;
    void ClickLink(const QString& text) const;
};

void tst_helpwindow::ClickLink(const QString& text) const
{
    QTextCursor found = Page()->document()->find(text);
    QVERIFY(!found.isNull());
    found.setPosition(found.selectionStart() + 1);
    Page()->setTextCursor(found);
    QTest::mouseClick(
        Page()->viewport(), Qt::LeftButton, {}, Page()->cursorRect(found).center() + QPoint(2, 0));
}

void tst_helpwindow::ContentsListChaptersAndShowTheFirstPage()
{
    const auto* const tree = Find<QTreeWidget>(window_.get(), "treContents");
    QCOMPARE(window_->windowTitle(), QStringLiteral("Cartolen Help"));
    QCOMPARE(tree->topLevelItemCount(), 2);
    QCOMPARE(tree->topLevelItem(0)->text(0), QStringLiteral("On the water"));
    QCOMPARE(tree->topLevelItem(0)->child(1)->text(0), QStringLiteral("Harbours"));
    QVERIFY(!tree->visualItemRect(tree->topLevelItem(1)->child(0)).isEmpty());
    QCOMPARE(PageName(), QStringLiteral("boats"));
    QVERIFY(tree->hasFocus());
}

void tst_helpwindow::AClickInTheContentsOpensThePage()
{
    auto* const tree = Find<QTreeWidget>(window_.get(), "treContents");
    QTest::mouseClick(
        tree->viewport(), Qt::LeftButton, {}, tree->visualItemRect(tree->topLevelItem(1)->child(0)).center());
    QCOMPARE(PageName(), QStringLiteral("sun"));
    QVERIFY(Page()->toPlainText().contains(QStringLiteral("shines")));
}

void tst_helpwindow::EnterInTheContentsOpensThePage()
{
    PressInFocus(Qt::Key_Down);
    QCOMPARE(PageName(), QStringLiteral("boats"));
    PressInFocus(Qt::Key_Return);
    QCOMPARE(PageName(), QStringLiteral("harbours"));
}

void tst_helpwindow::TheContentsFollowThePage()
{
    const auto* const tree = Find<QTreeWidget>(window_.get(), "treContents");
    window_->ShowTopic(u"sun");
    QCOMPARE(tree->currentItem()->text(0), QStringLiteral("The sun"));
    PressInFocus(Qt::Key_Left, Qt::AltModifier);
    QCOMPARE(tree->currentItem()->text(0), QStringLiteral("Boats"));
}

void tst_helpwindow::F6GoesToThePageAndBack()
{
    window_->ShowIndex();
    PressInFocus(Qt::Key_F6);
    QVERIFY(Page()->hasFocus());
    PressInFocus(Qt::Key_F6);
    QVERIFY(Find<QWidget>(window_.get(), "txtKeyword")->hasFocus());
}

void tst_helpwindow::ATopicShowsItsPage()
{
    window_->ShowTopic(u"harbours");
    QCOMPARE(PageName(), QStringLiteral("harbours"));
    QVERIFY(Page()->hasFocus());
}

void tst_helpwindow::AnUnknownTopicShowsTheFirstPage()
{
    window_->ShowTopic(u"sun");
    window_->ShowTopic(u"moon");
    QCOMPARE(PageName(), QStringLiteral("boats"));
}

void tst_helpwindow::ALinkOpensThePageAtItsPlace()
{
    ClickLink(QStringLiteral("Where it lies"));
    QCOMPARE(PageName(), QStringLiteral("harbours"));
    QCOMPARE(Page()->source().fragment(), QStringLiteral("quay"));
}

void tst_helpwindow::ALinkToOutsideIsHandedOn()
{
    const QSignalSpy links(window_.get(), &HelpWindow::LinkToOutside);
    ClickLink(QStringLiteral("home"));
    QCOMPARE(links.size(), 1);
    QCOMPARE(links[0][0].toUrl(), QUrl(QStringLiteral("https://cartolen.example/")));
    QCOMPARE(PageName(), QStringLiteral("boats"));
}

void tst_helpwindow::BackAndForwardWalkThroughWhatWasSeen()
{
    const auto* const back = Find<QAction>(window_.get(), "Toolbar1_Back");
    const auto* const forward = Find<QAction>(window_.get(), "Toolbar1_Forward");
    QVERIFY(!back->isEnabled() && !forward->isEnabled());
    window_->ShowTopic(u"harbours");
    window_->ShowTopic(u"sun");
    QVERIFY(back->isEnabled() && !forward->isEnabled());
    auto* const toolbar = Find<QToolBar>(window_.get(), "Toolbar1");
    Click(toolbar->widgetForAction(toolbar->actions().at(0)));
    QCOMPARE(PageName(), QStringLiteral("harbours"));
    PressInFocus(Qt::Key_Left, Qt::AltModifier);
    QCOMPARE(PageName(), QStringLiteral("boats"));
    PressInFocus(Qt::Key_Right, Qt::AltModifier);
    QCOMPARE(PageName(), QStringLiteral("harbours"));
    QVERIFY(back->isEnabled() && forward->isEnabled());
}

void tst_helpwindow::HomeShowsTheFirstPage()
{
    window_->ShowTopic(u"sun");
    PressInFocus(Qt::Key_Home, Qt::AltModifier);
    QCOMPARE(PageName(), QStringLiteral("boats"));
}

void tst_helpwindow::WordsAreFoundInThePage()
{
    window_->ShowTopic(u"harbours");
    PressInFocus(Qt::Key_F, Qt::ControlModifier);
    auto* const field = Find<QLineEdit>(window_.get(), "txtFind");
    QVERIFY(field->hasFocus());
    TypeInFocus("boats");
    QList<int> places;
    for (int i = 0; i < 4; ++i) {
        PressInFocus(i == 0 ? Qt::Key_Return : Qt::Key_F3);
        QCOMPARE(Page()->textCursor().selectedText(), QStringLiteral("boats"));
        places << Page()->textCursor().selectionStart();
    }
    QVERIFY(places[0] < places[1] && places[1] < places[2]);
    QCOMPARE(places[3], places[0]);
    PressInFocus(Qt::Key_F3, Qt::ShiftModifier);
    QCOMPARE(Page()->textCursor().selectionStart(), places[2]);
    field->clear();
    QTest::keyClicks(field, QStringLiteral("moon"));
    PressInFocus(Qt::Key_Return);
    QCOMPARE(Page()->textCursor().selectionStart(), places[2]);
}

void tst_helpwindow::KeysEnlargeTheText()
{
    const qreal normal = Page()->font().pointSizeF();
    PressInFocus(Qt::Key_Plus, Qt::ControlModifier);
    PressInFocus(Qt::Key_Equal, Qt::ControlModifier);
    QCOMPARE(Page()->font().pointSizeF(), normal + 2);
    PressInFocus(Qt::Key_Minus, Qt::ControlModifier);
    QCOMPARE(Page()->font().pointSizeF(), normal + 1);
    PressInFocus(Qt::Key_0, Qt::ControlModifier);
    QCOMPARE(Page()->font().pointSizeF(), normal);
    for (int i = 0; i < 100; ++i) {
        PressInFocus(Qt::Key_Minus, Qt::ControlModifier);
    }
    QVERIFY(Page()->font().pointSizeF() >= normal - 3 && Page()->font().pointSizeF() < normal);
}

void tst_helpwindow::TheWheelEnlargesTheText()
{
    const qreal normal = Page()->font().pointSizeF();
    TurnWithCtrl(240);
    QCOMPARE(Page()->font().pointSizeF(), normal + 2);
}

void tst_helpwindow::FineStepsOfTheWheelAddUp()
{
    const qreal normal = Page()->font().pointSizeF();
    const auto turn = [this](int times, int delta) {
        for (int i = 0; i < times; ++i) {
            TurnWithCtrl(delta);
        }
    };
    turn(59, 2);
    QCOMPARE(Page()->font().pointSizeF(), normal);
    turn(1, 2);
    QCOMPARE(Page()->font().pointSizeF(), normal + 1);
    turn(7, 50);
    QCOMPARE(Page()->font().pointSizeF(), normal + 3);
    // Back again takes a whole notch too, whatever was left of the way there.
    turn(2, -59);
    QCOMPARE(Page()->font().pointSizeF(), normal + 3);
    turn(1, -2);
    QCOMPARE(Page()->font().pointSizeF(), normal + 2);
}

void tst_helpwindow::TurnWithCtrl(int delta) const
{
    const QPointF place = Page()->viewport()->rect().center();
    QWheelEvent turn(
        place, Page()->viewport()->mapToGlobal(place), {}, { 0, delta }, Qt::NoButton, Qt::ControlModifier,
        Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(Page()->viewport(), &turn);
}

void tst_helpwindow::TheColumnStaysReadable()
{
    const auto column = [this] {
        const QTextFrameFormat format = Page()->document()->rootFrame()->frameFormat();
        return Page()->viewport()->width() - format.leftMargin() - format.rightMargin();
    };
    window_->resize(700, 500);
    const qreal narrow = column();
    window_->resize(1000, 500);
    const qreal usual = column();
    window_->resize(1800, 500);
    const qreal wide = column();
    window_->resize(2400, 500);
    QVERIFY(narrow < usual && narrow > 300);
    QVERIFY(wide - column() < 2 && column() - wide < 2);
    window_->ShowTopic(u"sun");
    QVERIFY(wide - column() < 2 && column() - wide < 2);
}

void tst_helpwindow::EscClosesFromEverywhere()
{
    for (const char* const name : { "treContents", "txtKeyword", "txtWords", "PageView1", "txtFind" }) {
        window_->ShowIndex();
        QVERIFY(QTest::qWaitForWindowActive(window_.get()));
        auto* const part = Find<QWidget>(window_.get(), name);
        for (int tab = 0; tab < 3 && !part->isVisible(); ++tab) {
            Find<QTabWidget>(window_.get(), "HelpTabs")->setCurrentIndex(tab);
        }
        part->setFocus();
        PressInFocus(Qt::Key_Escape);
        QVERIFY2(!window_->isVisible(), name);
    }
}

void tst_helpwindow::ShowingAgainKeepsThePage()
{
    window_->ShowTopic(u"sun");
    window_->close();
    window_->ShowIndex();
    QCOMPARE(PageName(), QStringLiteral("sun"));
    window_->ShowContents();
    QCOMPARE(PageName(), QStringLiteral("boats"));
}

void tst_helpwindow::EveryControlHasANameAndTakesKeys()
{
    for (const char* const name : { "treContents", "txtKeyword", "treKeywords", "txtWords", "lstResults",
                                    "PageView1", "txtFind", "HelpTabs" }) {
        const auto* const part = Find<QWidget>(window_.get(), name);
        QVERIFY2(!part->accessibleName().isEmpty(), name);
        QVERIFY2((part->focusPolicy() & Qt::TabFocus) != 0 || part->objectName() == u"HelpTabs", name);
    }
    const auto* const toolbar = Find<QToolBar>(window_.get(), "Toolbar1");
    int buttons = 0;
    for (QAction* const action : toolbar->actions()) {
        if (auto* const button = qobject_cast<QToolButton*>(toolbar->widgetForAction(action))) {
            ++buttons;
            QVERIFY(!button->accessibleName().isEmpty() && !action->icon().isNull());
            QVERIFY(!action->icon().pixmap(24).isNull());
            QCOMPARE(button->focusPolicy(), Qt::TabFocus);
        }
    }
    QCOMPARE(buttons, 4);
}

void tst_helpwindow::EveryPageOfTheShippedBookIsShown()
{
    HelpBook book;
    QCOMPARE(book.Open(shippedBook), HelpTrouble::None);
    HelpWindow window(book);
    window.resize(1050, 720);
    const auto* const page = Find<PageView>(&window, "PageView1");
    for (const HelpChapter& chapter : book.Chapters()) {
        for (const QString& name : chapter.pages) {
            window.ShowTopic(name);
            QVERIFY2(page->toPlainText().startsWith(book.TitleOf(name)), qPrintable(name));
            // Nothing of a page is wider than the column.
            QVERIFY2(page->horizontalScrollBar()->maximum() == 0, qPrintable(name));
        }
    }
}

QTEST_MAIN(tst_helpwindow)

#include "tst_helpwindow.moc"
