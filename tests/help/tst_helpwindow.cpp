#include "help/HelpWindow.h"
#include "help/PageView.h"
#include "tests/help/HelpFiles.h"
#include "tests/support/WidgetDriving.h"

#include <QAbstractScrollArea>
#include <QLabel>
#include <QListWidget>
#include <QPixmap>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTextFrame>
#include <QToolBar>
#include <QToolButton>
#include <QTreeWidget>
#include <QWheelEvent>
#include <memory>

class TestHelpWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void ContentsListChaptersAndShowTheFirstPage();
    void AClickInTheContentsOpensThePage();
    void EnterInTheContentsOpensThePage();
    void TheContentsFollowThePage();
    void TheIndexWaitsForAKeyword();
    void TypingNarrowsTheIndex_data();
    void TypingNarrowsTheIndex();
    void EnterOpensTheFirstKeyword();
    void ArrowsInTheFieldMoveInTheIndex();
    void ADoubleClickOpensAKeyword();
    void AKeywordOfSeveralPagesOffersThem();
    void NoKeywordOpensNothing();
    void SearchListsPagesAndTheirNumber();
    void EnterOpensTheBestPageAtTheWords();
    void ATabIsReadyToTypeIn();
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
    [[nodiscard]] PageView* Page() const { return Find<PageView>(window_.get(), "PageView1"); }
    [[nodiscard]] QString PageName() const { return book_.PageAt(Page()->source()); }
    [[nodiscard]] QTreeWidget* Keywords() const { return Find<QTreeWidget>(window_.get(), "treKeywords"); }
    [[nodiscard]] QStringList ShownKeywords() const;
    [[nodiscard]] int FocusedTab() const
    {
        return Find<QTabWidget>(window_.get(), "HelpTabs")->currentIndex();
    }
    void PressInFocus(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const;
    void TypeInFocus(const char* text) const;
    void ClickLink(const QString& text) const;
    void ShowSearchTab() const { PressInFocus(Qt::Key_S, Qt::AltModifier); }

    HelpBook book_;
    std::unique_ptr<HelpWindow> window_;
};

void TestHelpWindow::init()
{
    if (!book_.IsOpen()) {
        QCOMPARE(book_.Open(smallBook), HelpTrouble::None);
    }
    window_ = std::make_unique<HelpWindow>(book_);
    window_->ShowContents();
    QVERIFY(QTest::qWaitForWindowActive(window_.get()));
}

void TestHelpWindow::cleanup()
{
    window_.reset();
}

QStringList TestHelpWindow::ShownKeywords() const
{
    QStringList shown;
    for (int i = 0; i < Keywords()->topLevelItemCount(); ++i) {
        if (!Keywords()->topLevelItem(i)->isHidden()) {
            shown << Keywords()->topLevelItem(i)->text(0);
        }
    }
    return shown;
}

/** Presses a key where the user is. */
void TestHelpWindow::PressInFocus(Qt::Key key, Qt::KeyboardModifiers modifiers) const
{
    QTest::keyClick(window_->windowHandle(), key, modifiers);
}

void TestHelpWindow::TypeInFocus(const char* text) const
{
    QTest::keyClicks(QApplication::focusWidget(), QString::fromLatin1(text));
}

void TestHelpWindow::ClickLink(const QString& text) const
{
    QTextCursor found = Page()->document()->find(text);
    QVERIFY(!found.isNull());
    found.setPosition(found.selectionStart() + 1);
    Page()->setTextCursor(found);
    QTest::mouseClick(
        Page()->viewport(), Qt::LeftButton, {}, Page()->cursorRect(found).center() + QPoint(2, 0));
}

void TestHelpWindow::ContentsListChaptersAndShowTheFirstPage()
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

void TestHelpWindow::AClickInTheContentsOpensThePage()
{
    auto* const tree = Find<QTreeWidget>(window_.get(), "treContents");
    QTest::mouseClick(
        tree->viewport(), Qt::LeftButton, {}, tree->visualItemRect(tree->topLevelItem(1)->child(0)).center());
    QCOMPARE(PageName(), QStringLiteral("sun"));
    QVERIFY(Page()->toPlainText().contains(QStringLiteral("shines")));
}

void TestHelpWindow::EnterInTheContentsOpensThePage()
{
    PressInFocus(Qt::Key_Down);
    QCOMPARE(PageName(), QStringLiteral("boats"));
    PressInFocus(Qt::Key_Return);
    QCOMPARE(PageName(), QStringLiteral("harbours"));
}

void TestHelpWindow::TheContentsFollowThePage()
{
    const auto* const tree = Find<QTreeWidget>(window_.get(), "treContents");
    window_->ShowTopic(u"sun");
    QCOMPARE(tree->currentItem()->text(0), QStringLiteral("The sun"));
    PressInFocus(Qt::Key_Left, Qt::AltModifier);
    QCOMPARE(tree->currentItem()->text(0), QStringLiteral("Boats"));
}

void TestHelpWindow::TheIndexWaitsForAKeyword()
{
    window_->ShowIndex();
    QVERIFY(Find<QLineEdit>(window_.get(), "txtKeyword")->hasFocus());
    QCOMPARE(
        ShownKeywords(), QStringList({ QStringLiteral("Anchor"), QStringLiteral("quay"),
                                       QStringLiteral("sail"), QStringLiteral("summer") }));
    TypeInFocus("sai");
    window_->ShowIndex();
    TypeInFocus("q");
    QCOMPARE(ShownKeywords(), QStringList({ QStringLiteral("quay") }));
}

void TestHelpWindow::TypingNarrowsTheIndex_data()
{
    QTest::addColumn<QString>("part");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("chosen");
    QTest::newRow("the start") << "su"
                               << "summer"
                               << "summer";
    QTest::newRow("the middle") << "ch"
                                << "Anchor"
                                << "Anchor";
    QTest::newRow("any case") << "AN"
                              << "Anchor"
                              << "Anchor";
    QTest::newRow("one at the start before one in the middle") << "a"
                                                               << "Anchor quay sail"
                                                               << "Anchor";
    QTest::newRow("s") << "s"
                       << "sail summer"
                       << "sail";
    QTest::newRow("none") << "x"
                          << ""
                          << "";
}

void TestHelpWindow::TypingNarrowsTheIndex()
{
    QFETCH(const QString, part);
    QFETCH(const QString, shown);
    QFETCH(const QString, chosen);
    window_->ShowIndex();
    TypeInFocus(part.toLatin1().constData());
    QCOMPARE(ShownKeywords().join(u' '), shown);
    const QTreeWidgetItem* const current = Keywords()->currentItem();
    QCOMPARE(current != nullptr ? current->text(0) : QString(), chosen);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backspace);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backspace);
    QCOMPARE(ShownKeywords().size(), 4);
}

void TestHelpWindow::EnterOpensTheFirstKeyword()
{
    window_->ShowIndex();
    TypeInFocus("ua");
    PressInFocus(Qt::Key_Return);
    QCOMPARE(PageName(), QStringLiteral("harbours"));
}

void TestHelpWindow::ArrowsInTheFieldMoveInTheIndex()
{
    window_->ShowIndex();
    TypeInFocus("s");
    PressInFocus(Qt::Key_Down);
    QCOMPARE(Keywords()->currentItem()->text(0), QStringLiteral("summer"));
    PressInFocus(Qt::Key_Down);
    PressInFocus(Qt::Key_Down);
    PressInFocus(Qt::Key_Return);
    QCOMPARE(PageName(), QStringLiteral("sun"));
    QVERIFY(Find<QLineEdit>(window_.get(), "txtKeyword")->hasFocus());
}

void TestHelpWindow::ADoubleClickOpensAKeyword()
{
    window_->ShowIndex();
    const QPoint place = Keywords()->visualItemRect(Keywords()->topLevelItem(1)).center();
    QTest::mouseClick(Keywords()->viewport(), Qt::LeftButton, {}, place);
    QCOMPARE(PageName(), QStringLiteral("boats"));
    QTest::mouseDClick(Keywords()->viewport(), Qt::LeftButton, {}, place);
    QCOMPARE(PageName(), QStringLiteral("harbours"));
}

void TestHelpWindow::AKeywordOfSeveralPagesOffersThem()
{
    const QTreeWidgetItem* const summer = Keywords()->topLevelItem(3);
    QCOMPARE(summer->childCount(), 2);
    QCOMPARE(summer->child(1)->text(0), QStringLiteral("The sun"));
    QCOMPARE(Keywords()->topLevelItem(1)->childCount(), 0);
    window_->ShowIndex();
    TypeInFocus("summer");
    PressInFocus(Qt::Key_Return);
    QCOMPARE(PageName(), QStringLiteral("boats"));
    const QPoint place = Keywords()->visualItemRect(summer->child(1)).center();
    QTest::mouseClick(Keywords()->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(Keywords()->viewport(), Qt::LeftButton, {}, place);
    QCOMPARE(PageName(), QStringLiteral("sun"));
}

void TestHelpWindow::NoKeywordOpensNothing()
{
    window_->ShowIndex();
    TypeInFocus("x");
    PressInFocus(Qt::Key_Down);
    PressInFocus(Qt::Key_Return);
    QCOMPARE(PageName(), QStringLiteral("boats"));
}

void TestHelpWindow::SearchListsPagesAndTheirNumber()
{
    ShowSearchTab();
    QCOMPARE(FocusedTab(), 2);
    const auto* const results = Find<QListWidget>(window_.get(), "lstResults");
    const auto* const count = Find<QLabel>(window_.get(), "lblResults");
    QCOMPARE(count->text(), QString());
    TypeIn(window_.get(), "txtWords", "boat");
    QCOMPARE(results->count(), 3);
    QCOMPARE(results->item(0)->text(), QStringLiteral("Boats"));
    QCOMPARE(count->text(), QStringLiteral("3 pages"));
    TypeIn(window_.get(), "txtWords", "SHINE boat");
    QCOMPARE(results->count(), 1);
    QCOMPARE(results->item(0)->text(), QStringLiteral("The sun"));
    QCOMPARE(count->text(), QStringLiteral("1 page"));
    TypeIn(window_.get(), "txtWords", "moon");
    QCOMPARE(results->count(), 0);
    QCOMPARE(count->text(), QStringLiteral("No page has all these words."));
    PressInFocus(Qt::Key_Return);
    QCOMPARE(PageName(), QStringLiteral("boats"));
}

void TestHelpWindow::EnterOpensTheBestPageAtTheWords()
{
    ShowSearchTab();
    TypeIn(window_.get(), "txtWords", "each boat");
    QTest::keyClick(Find<QLineEdit>(window_.get(), "txtWords"), Qt::Key_Return);
    QCOMPARE(PageName(), QStringLiteral("sun"));
    QCOMPARE(Page()->textCursor().selectedText(), QStringLiteral("each boat"));
    TypeIn(window_.get(), "txtWords", "boat tide");
    QTest::keyClick(Find<QLineEdit>(window_.get(), "txtWords"), Qt::Key_Return);
    QCOMPARE(PageName(), QStringLiteral("harbours"));
    QCOMPARE(Page()->textCursor().selectedText(), QStringLiteral("boat"));
}

void TestHelpWindow::ATabIsReadyToTypeIn()
{
    PressInFocus(Qt::Key_I, Qt::AltModifier);
    TypeInFocus("qu");
    QCOMPARE(ShownKeywords(), QStringList({ QStringLiteral("quay") }));
    PressInFocus(Qt::Key_S, Qt::AltModifier);
    TypeInFocus("tides");
    QCOMPARE(Find<QListWidget>(window_.get(), "lstResults")->count(), 1);
    PressInFocus(Qt::Key_C, Qt::AltModifier);
    QVERIFY(Find<QWidget>(window_.get(), "treContents")->hasFocus());
}

void TestHelpWindow::F6GoesToThePageAndBack()
{
    window_->ShowIndex();
    PressInFocus(Qt::Key_F6);
    QVERIFY(Page()->hasFocus());
    PressInFocus(Qt::Key_F6);
    QVERIFY(Find<QWidget>(window_.get(), "txtKeyword")->hasFocus());
}

void TestHelpWindow::ATopicShowsItsPage()
{
    window_->ShowTopic(u"harbours");
    QCOMPARE(PageName(), QStringLiteral("harbours"));
    QVERIFY(Page()->hasFocus());
}

void TestHelpWindow::AnUnknownTopicShowsTheFirstPage()
{
    window_->ShowTopic(u"sun");
    window_->ShowTopic(u"moon");
    QCOMPARE(PageName(), QStringLiteral("boats"));
}

void TestHelpWindow::ALinkOpensThePageAtItsPlace()
{
    ClickLink(QStringLiteral("Where it lies"));
    QCOMPARE(PageName(), QStringLiteral("harbours"));
    QCOMPARE(Page()->source().fragment(), QStringLiteral("quay"));
}

void TestHelpWindow::ALinkToOutsideIsHandedOn()
{
    const QSignalSpy links(window_.get(), &HelpWindow::LinkToOutside);
    ClickLink(QStringLiteral("home"));
    QCOMPARE(links.size(), 1);
    QCOMPARE(links[0][0].toUrl(), QUrl(QStringLiteral("https://cartolen.example/")));
    QCOMPARE(PageName(), QStringLiteral("boats"));
}

void TestHelpWindow::BackAndForwardWalkThroughWhatWasSeen()
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

void TestHelpWindow::HomeShowsTheFirstPage()
{
    window_->ShowTopic(u"sun");
    PressInFocus(Qt::Key_Home, Qt::AltModifier);
    QCOMPARE(PageName(), QStringLiteral("boats"));
}

void TestHelpWindow::WordsAreFoundInThePage()
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

void TestHelpWindow::KeysEnlargeTheText()
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

void TestHelpWindow::TheWheelEnlargesTheText()
{
    const qreal normal = Page()->font().pointSizeF();
    TurnWithCtrl(240);
    QCOMPARE(Page()->font().pointSizeF(), normal + 2);
}

void TestHelpWindow::FineStepsOfTheWheelAddUp()
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

void TestHelpWindow::TurnWithCtrl(int delta) const
{
    const QPointF place = Page()->viewport()->rect().center();
    QWheelEvent turn(
        place, Page()->viewport()->mapToGlobal(place), {}, { 0, delta }, Qt::NoButton, Qt::ControlModifier,
        Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(Page()->viewport(), &turn);
}

void TestHelpWindow::TheColumnStaysReadable()
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

void TestHelpWindow::EscClosesFromEverywhere()
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

void TestHelpWindow::ShowingAgainKeepsThePage()
{
    window_->ShowTopic(u"sun");
    window_->close();
    window_->ShowIndex();
    QCOMPARE(PageName(), QStringLiteral("sun"));
    window_->ShowContents();
    QCOMPARE(PageName(), QStringLiteral("boats"));
}

void TestHelpWindow::EveryControlHasANameAndTakesKeys()
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

void TestHelpWindow::EveryPageOfTheShippedBookIsShown()
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

QTEST_MAIN(TestHelpWindow)
#include "tst_helpwindow.moc"
