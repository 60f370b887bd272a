// Finding and replacing, and what else the Page menu does to the text.

#include "tests/support/WidgetDriving.h"

#include "tests/app/DocumentsFixture.h"

#include <QCheckBox>
#include <QFrame>
#include <QInputDialog>
#include <QPushButton>
#include <QScrollBar>
#include <QSpinBox>

class tst_findbar : public DocumentsFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Start(); }
    void cleanup() { Finish(); }

    void barOpensAndCloses_data();
    void barOpensAndCloses();
    void selectedTextIsLookedFor();
    void whatIsTypedIsFoundAtOnce();
    void nextAndPreviousGoRound();
    void keysGoOnWithoutTheBar();
    void nothingIsSaidWhereNothingIsFound();
    void matchesInSightAreMarked();
    void waysOfFindingAreRemembered();
    void replacingGoesFromMatchToMatch();
    void replacingAllIsOneStepOfUndo();
    void groupsOfAnExpressionArePutIn();
    void onlyTheSelectionIsSearched();
    void editsAreSearchedAgain();
    void keysInTheFieldsAreNotForTheText();
    void editingKeysWorkOnTheField();
    void goToLineGoesThere();
    void redoTakesUndoBack();
    void nothingIsWrittenUntilAWayIsChosen();
    void waysOfFindingAreReadInNarrowWindows();

private:
    SourceEditor* Editor() { return test_->Editor(); }
    QLineEdit* Field(const char* name = "txtFind") { return test_->Find<QLineEdit>(name); }
    QString Count() { return test_->Find<QLabel>("lblMatches")->text(); }
    void ClickButton(const char* name) { Click(test_->Find<QPushButton>(name)); }
    void Check(const char* name)
    {
        QTest::mouseClick(test_->Find<QCheckBox>(name), Qt::LeftButton, {}, QPoint(8, 8));
    }

    void Fill(const char* text)
    {
        Editor()->LoadText(QString::fromLatin1(text));
        Editor()->Select(0, 0);
    }

    /** Opens the bar and types what is to be found. */
    void Look(const char* what, Qt::Key key = Qt::Key_F)
    {
        test_->Press(key, Qt::ControlModifier);
        Field()->clear();
        QTest::keyClicks(Field(), QString::fromLatin1(what));
    }
};

void tst_findbar::barOpensAndCloses_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<bool>("replaces");
    QTest::newRow("find") << Qt::Key_F << false;
    QTest::newRow("replace") << Qt::Key_H << true;
}

void tst_findbar::barOpensAndCloses()
{
    QFETCH(const Qt::Key, key);
    QFETCH(const bool, replaces);
    const QRect place = Editor()->geometry();
    const QRect text = Editor()->viewport()->geometry();
    test_->Press(key, Qt::ControlModifier);
    auto* const bar = test_->Find<QFrame>("barFind");
    QTRY_VERIFY(bar->isVisible());
    QCOMPARE(test_->window.focusWidget(), Field());
    QCOMPARE(Field("txtReplace")->isVisible(), replaces);
    QCOMPARE(test_->Find<QPushButton>("btnReplaceAll")->isVisible(), replaces);
    QCOMPARE(Editor()->geometry(), place);
    QTRY_VERIFY(bar->geometry().top() > Editor()->viewport()->geometry().bottom());
    QVERIFY(Editor()->rect().contains(bar->geometry()));
    QTest::keyClick(Field(), Qt::Key_Escape);
    QVERIFY(!bar->isVisible());
    QCOMPARE(test_->window.focusWidget(), Editor());
    QTRY_COMPARE(Editor()->viewport()->geometry(), text);
}

void tst_findbar::selectedTextIsLookedFor()
{
    Fill("one two\r\none");
    Editor()->Select(4, 3);
    test_->Press(Qt::Key_F, Qt::ControlModifier);
    QCOMPARE(Field()->text(), QStringLiteral("two"));
    QCOMPARE(Field()->selectedText(), QStringLiteral("two"));
    QCOMPARE(Count(), QStringLiteral("1 of 1"));
    Editor()->Select(0, 9);
    test_->Press(Qt::Key_F, Qt::ControlModifier);
    QCOMPARE(Field()->text(), QStringLiteral("two"));
}

void tst_findbar::whatIsTypedIsFoundAtOnce()
{
    Fill("ab\r\nabc\r\nABCD");
    Look("ab");
    QCOMPARE(Editor()->SelStart(), qsizetype(0));
    QCOMPARE(Count(), QStringLiteral("1 of 3"));
    QTest::keyClicks(Field(), QStringLiteral("cd"));
    QCOMPARE(Editor()->SelText(), QStringLiteral("ABCD"));
    QTest::keyClick(Field(), Qt::Key_Backspace);
    QCOMPARE(Editor()->SelStart(), qsizetype(4));
    QCOMPARE(Count(), QStringLiteral("1 of 2"));
    QVERIFY(!test_->window.File().IsChanged());
}

void tst_findbar::nextAndPreviousGoRound()
{
    Fill("x a x b x");
    Look("x");
    const auto places = [this](const char* button) {
        QStringList starts;
        for (int i = 0; i < 4; ++i) {
            ClickButton(button);
            starts << QString::number(Editor()->SelStart());
        }
        return starts.join(u' ');
    };
    QCOMPARE(places("btnFindNext"), QStringLiteral("4 8 0 4"));
    QCOMPARE(Count(), QStringLiteral("2 of 3"));
    QCOMPARE(places("btnFindPrevious"), QStringLiteral("0 8 4 0"));
    QTest::keyClick(Field(), Qt::Key_Return);
    QCOMPARE(Editor()->SelStart(), qsizetype(4));
    QTest::keyClick(Field(), Qt::Key_Return, Qt::ShiftModifier);
    QCOMPARE(Editor()->SelStart(), qsizetype(0));
}

void tst_findbar::keysGoOnWithoutTheBar()
{
    Fill("x a x b x");
    test_->Press(Qt::Key_F3);
    QVERIFY(test_->Find<QFrame>("barFind")->isVisible());
    QTest::keyClicks(Field(), QStringLiteral("x"));
    QTest::keyClick(Field(), Qt::Key_Escape);
    test_->Press(Qt::Key_F3);
    QCOMPARE(Editor()->SelStart(), qsizetype(4));
    test_->Press(Qt::Key_F3, Qt::ShiftModifier);
    test_->Press(Qt::Key_F3, Qt::ShiftModifier);
    QCOMPARE(Editor()->SelStart(), qsizetype(8));
    QVERIFY(!test_->Find<QFrame>("barFind")->isVisible());
    QVERIFY(Editor()->extraSelections().isEmpty());
}

void tst_findbar::nothingIsSaidWhereNothingIsFound()
{
    Fill("abc");
    Editor()->Select(1, 1);
    test_->Press(Qt::Key_F, Qt::ControlModifier);
    QTest::keyClicks(Field(), QStringLiteral("xyz"));
    QCOMPARE(Count(), QStringLiteral("Not found"));
    QCOMPARE(Editor()->SelText(), QStringLiteral("b"));
    ClickButton("btnFindNext");
    QCOMPARE(Editor()->SelText(), QStringLiteral("b"));
    Field()->clear();
    QCOMPARE(Count(), QString());
    Check("chkRegex");
    QTest::keyClicks(Field(), QStringLiteral("("));
    QVERIFY(!Count().isEmpty() && Count() != u"Not found");
}

void tst_findbar::matchesInSightAreMarked()
{
    Editor()->LoadText(QStringLiteral("word\r\n").repeated(1000));
    Look("word");
    QCOMPARE(Count(), QStringLiteral("1 of 1000"));
    const auto marked = [this] { return Editor()->extraSelections().size(); };
    QVERIFY(marked() > 10 && marked() < 200);
    QCOMPARE(Editor()->extraSelections().constFirst().cursor.blockNumber(), 0);
    Editor()->verticalScrollBar()->setValue(500);
    QTRY_VERIFY(Editor()->extraSelections().constFirst().cursor.blockNumber() > 400);
    QVERIFY(marked() < 200);
    QTest::keyClick(Field(), Qt::Key_Escape);
    QCOMPARE(marked(), 0);
}

void tst_findbar::waysOfFindingAreRemembered()
{
    Fill("map Map maps");
    Look("map");
    QCOMPARE(Count(), QStringLiteral("1 of 3"));
    Check("chkCase");
    QCOMPARE(Count(), QStringLiteral("1 of 2"));
    Check("chkWords");
    QCOMPARE(Count(), QStringLiteral("1 of 1"));
    const Settings& remembered = test_->folder.imgMap.Remembered;
    QVERIFY(remembered.Value(Setting::findCase));
    QVERIFY(remembered.Value(Setting::findWords));
    QVERIFY(!remembered.Value(Setting::findRegex));
}

void tst_findbar::replacingGoesFromMatchToMatch()
{
    Fill("a1 a2 a3");
    Look("a", Qt::Key_H);
    QTest::keyClicks(Field("txtReplace"), QStringLiteral("bb"));
    ClickButton("btnReplace");
    QCOMPARE(Editor()->Text(), QStringLiteral("bb1 a2 a3"));
    QCOMPARE(Editor()->SelStart(), qsizetype(4));
    Field("txtReplace")->setFocus();
    QTest::keyClick(Field("txtReplace"), Qt::Key_Return);
    QCOMPARE(Editor()->Text(), QStringLiteral("bb1 bb2 a3"));
    // What was not found is not replaced.
    Editor()->Select(0, 2);
    ClickButton("btnReplace");
    QCOMPARE(Editor()->Text(), QStringLiteral("bb1 bb2 a3"));
    QCOMPARE(Editor()->SelText(), QStringLiteral("a"));
}

void tst_findbar::replacingAllIsOneStepOfUndo()
{
    const QString text = QStringLiteral("one\r\ntwo one\r\none\r\n");
    Editor()->LoadText(text);
    Look("one", Qt::Key_H);
    QTest::keyClicks(Field("txtReplace"), QStringLiteral("1"));
    ClickButton("btnReplaceAll");
    QCOMPARE(Editor()->Text(), QStringLiteral("1\r\ntwo 1\r\n1\r\n"));
    QCOMPARE(Count(), QStringLiteral("3 replaced"));
    Editor()->undo();
    QCOMPARE(Editor()->Text(), text);
    QVERIFY(!Editor()->document()->isUndoAvailable());
}

void tst_findbar::groupsOfAnExpressionArePutIn()
{
    Fill("a=1\r\nb=2\r\n");
    Look("", Qt::Key_H);
    Check("chkRegex");
    QTest::keyClicks(Field(), QStringLiteral("^(\\w)=(\\d)\\n"));
    QTest::keyClicks(Field("txtReplace"), QStringLiteral("\\2:\\1;\\n"));
    ClickButton("btnReplaceAll");
    QCOMPARE(Editor()->Text(), QStringLiteral("1:a;\r\n2:b;\r\n"));
}

void tst_findbar::onlyTheSelectionIsSearched()
{
    Fill("x\r\nx x\r\nx");
    Editor()->Select(3, 3);
    test_->Press(Qt::Key_H, Qt::ControlModifier);
    Check("chkSelection");
    Field()->clear();
    QTest::keyClicks(Field(), QStringLiteral("x"));
    QVERIFY(Count().endsWith(u'2'));
    QTest::keyClicks(Field("txtReplace"), QStringLiteral("yy"));
    ClickButton("btnReplaceAll");
    QCOMPARE(Editor()->Text(), QStringLiteral("x\r\nyy yy\r\nx"));
}

void tst_findbar::editsAreSearchedAgain()
{
    Fill("a b");
    Look("a");
    QCOMPARE(Count(), QStringLiteral("1 of 1"));
    Editor()->Select(3, 0);
    test_->Type(" a a");
    QTRY_COMPARE(Count(), QStringLiteral("3 found"));
}

void tst_findbar::keysInTheFieldsAreNotForTheText()
{
    Fill("abc");
    Look("zz");
    QTest::keyClick(Field(), Qt::Key_Up);
    QTest::keyClick(Field(), Qt::Key_PageDown);
    QTest::keyClick(Field(), Qt::Key_Return);
    auto* const box = test_->Find<QCheckBox>("chkCase");
    box->setFocus();
    QTest::keyClicks(box, QStringLiteral("abc"));
    QCOMPARE(Editor()->Text(), QStringLiteral("abc"));
}

void tst_findbar::editingKeysWorkOnTheField()
{
    Fill("abc");
    Look("bc");
    QTest::keyClick(Field(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(Field(), Qt::Key_X, Qt::ControlModifier);
    QCOMPARE(Field()->text(), QString());
    QCOMPARE(Editor()->Text(), QStringLiteral("abc"));
    QTest::keyClick(Field(), Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(Field()->text(), QStringLiteral("bc"));
    QCOMPARE(Editor()->Text(), QStringLiteral("abc"));
}

void tst_findbar::goToLineGoesThere()
{
    Editor()->LoadText(QStringLiteral("line\r\n").repeated(300));
    test_->robot.Act([](QDialog& dialog) {
        auto* const field = dialog.findChild<QSpinBox*>(QStringLiteral("txtLine"));
        QVERIFY(field != nullptr);
        QCOMPARE(field->maximum(), 301);
        field->setValue(250);
        dialog.accept();
    });
    test_->Press(Qt::Key_G, Qt::ControlModifier);
    QCOMPARE(Editor()->textCursor().blockNumber(), 249);
    QVERIFY(Editor()->viewport()->rect().contains(Editor()->cursorRect()));
    test_->robot.Cancel();
    test_->Press(Qt::Key_G, Qt::ControlModifier);
    QCOMPARE(Editor()->textCursor().blockNumber(), 249);
}

void tst_findbar::redoTakesUndoBack()
{
    test_->Type("abc");
    test_->Press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(Editor()->Text(), QString());
    test_->Press(Qt::Key_Y, Qt::ControlModifier);
    QCOMPARE(Editor()->Text(), QStringLiteral("abc"));
}

void tst_findbar::nothingIsWrittenUntilAWayIsChosen()
{
    test_->folder.imgMap.Remembered.Open(test_->folder.imgMap.ProgramFolder);
    Fill("abc");
    Look("b", Qt::Key_H);
    ClickButton("btnReplaceAll");
    QVERIFY(!QFile::exists(Path("Data/Settings.ini")));
    Check("chkCase");
    QVERIFY(QFile::exists(Path("Data/Settings.ini")));
}

void tst_findbar::waysOfFindingAreReadInNarrowWindows()
{
    Fill("one one");
    Look("one");
    const auto* const bar = test_->Find<QFrame>("barFind");
    const int before = bar->height();
    test_->window.resize(560, 420);
    QTRY_VERIFY(bar->height() > before);
    QVERIFY(Editor()->rect().contains(bar->geometry()));
    for (const char* const way : { "chkCase", "chkWords", "chkRegex", "chkSelection", "lblMatches" }) {
        const auto* const part = test_->Find<QWidget>(way);
        QVERIFY2(part->width() >= part->sizeHint().width(), way);
        QVERIFY2(bar->rect().contains(part->geometry()), way);
    }
    test_->window.resize(1000, 700);
    QTRY_COMPARE(bar->height(), before);
}

QTEST_MAIN(tst_findbar)
#include "tst_findbar.moc"
