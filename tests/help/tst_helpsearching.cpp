// The help window's index and search.

#include "tests/help/HelpWindowTest.h"

#include <QLabel>
#include <QListWidget>

class tst_helpsearching : public HelpWindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { SetUp(); }
    void cleanup() { TearDown(); }

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
};

void tst_helpsearching::TheIndexWaitsForAKeyword()
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

void tst_helpsearching::TypingNarrowsTheIndex_data()
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

void tst_helpsearching::TypingNarrowsTheIndex()
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

void tst_helpsearching::EnterOpensTheFirstKeyword()
{
    window_->ShowIndex();
    TypeInFocus("ua");
    PressInFocus(Qt::Key_Return);
    QCOMPARE(PageName(), QStringLiteral("harbours"));
}

void tst_helpsearching::ArrowsInTheFieldMoveInTheIndex()
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

void tst_helpsearching::ADoubleClickOpensAKeyword()
{
    window_->ShowIndex();
    const QPoint place = Keywords()->visualItemRect(Keywords()->topLevelItem(1)).center();
    QTest::mouseClick(Keywords()->viewport(), Qt::LeftButton, {}, place);
    QCOMPARE(PageName(), QStringLiteral("boats"));
    QTest::mouseDClick(Keywords()->viewport(), Qt::LeftButton, {}, place);
    QCOMPARE(PageName(), QStringLiteral("harbours"));
}

void tst_helpsearching::AKeywordOfSeveralPagesOffersThem()
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

void tst_helpsearching::NoKeywordOpensNothing()
{
    window_->ShowIndex();
    TypeInFocus("x");
    PressInFocus(Qt::Key_Down);
    PressInFocus(Qt::Key_Return);
    QCOMPARE(PageName(), QStringLiteral("boats"));
}

void tst_helpsearching::SearchListsPagesAndTheirNumber()
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

void tst_helpsearching::EnterOpensTheBestPageAtTheWords()
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

void tst_helpsearching::ATabIsReadyToTypeIn()
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

QTEST_MAIN(tst_helpsearching)

#include "tst_helpsearching.moc"
