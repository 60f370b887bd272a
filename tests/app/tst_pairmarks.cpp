// The tag or bracket that belongs to the one at the caret.

#include "tests/support/WidgetDriving.h"

#include "tests/app/DocumentsFixture.h"

class tst_pairmarks : public DocumentsFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Start(); }
    void cleanup() { Finish(); }

    void nothingIsMarkedWithoutColours();
    void tagsAreMarkedWhereTheCaretIs();
    void marksGoWithTheCaret();
    void marksFollowWhatIsTyped();
    void marksGoWithTheColours();
    void farTagsAreNotLookedFor();
    void pairsAreMarkedInVeryLongLines();
    void selectionIsNotMarked();
    void marksAreNoPartOfThePage();

private:
    SourceEditor* Editor() { return test_->Editor(); }
    void Colours() { test_->ClickMenu("mnuView", "mnuVColours"); }
    QString Marked();
    void Fill(const QString& text, qsizetype caret);
};

/** What is marked, a blank between. */
QString tst_pairmarks::Marked()
{
    QStringList texts;
    const auto marks = Editor()->extraSelections();
    for (const QTextEdit::ExtraSelection& mark : marks) {
        texts << mark.cursor.selectedText();
    }
    return texts.join(u' ');
}

void tst_pairmarks::Fill(const QString& text, qsizetype caret)
{
    Editor()->LoadText(text);
    Editor()->Select(caret, 0);
}

void tst_pairmarks::nothingIsMarkedWithoutColours()
{
    Fill(QStringLiteral("<b>a</b>"), 1);
    QTest::qWait(200);
    QCOMPARE(Marked(), QString());
}

void tst_pairmarks::tagsAreMarkedWhereTheCaretIs()
{
    Fill(QStringLiteral("<div>\r\n<b id=x>a</b>\r\n</div>"), 8);
    Colours();
    QTRY_COMPARE(Marked(), QStringLiteral("<b > </b >"));
}

void tst_pairmarks::marksGoWithTheCaret()
{
    Fill(QStringLiteral("<b>abc</b>"), 0);
    Colours();
    QTRY_COMPARE(Marked(), QStringLiteral("<b > </b >"));
    for (int i = 0; i < 4; ++i) {
        test_->Press(Qt::Key_Right);
    }
    QTRY_COMPARE(Marked(), QString());
    QTest::qWait(200);
    QCOMPARE(Marked(), QString());
    test_->Press(Qt::Key_End);
    QTRY_COMPARE(Marked(), QStringLiteral("<b > </b >"));
}

void tst_pairmarks::marksFollowWhatIsTyped()
{
    Fill(QStringLiteral("<b>abc</i>"), 10);
    Colours();
    test_->Press(Qt::Key_Left);
    QTest::qWait(200);
    QCOMPARE(Marked(), QString());
    test_->Press(Qt::Key_Backspace);
    test_->Type("b");
    QTRY_COMPARE(Marked(), QStringLiteral("<b > </b >"));
}

void tst_pairmarks::marksGoWithTheColours()
{
    Fill(QStringLiteral("<b>a</b>"), 0);
    Colours();
    QTRY_COMPARE(Marked(), QStringLiteral("<b > </b >"));
    Colours();
    QCOMPARE(Marked(), QString());
}

void tst_pairmarks::farTagsAreNotLookedFor()
{
    const QString text = QStringLiteral("0123456789012345678\r\n").repeated(6000);
    Fill(u"<div>" + text + u"</div>", 0);
    Colours();
    QTest::qWait(300);
    QCOMPARE(Marked(), QString());
    Fill(u"<div>" + text.left(21 * 4000) + u"</div>", 0);
    QTRY_COMPARE(Marked(), QStringLiteral("<div > </div >"));
}

void tst_pairmarks::pairsAreMarkedInVeryLongLines()
{
    Fill(u"<b>a</b>" + QString(200'000, u' '), 0);
    Colours();
    QTRY_COMPARE(Marked(), QStringLiteral("<b > </b >"));
    Fill(u"<b>" + QString(200'000, u' ') + u"</b>", 0);
    QTRY_COMPARE(Marked(), QString());
}

void tst_pairmarks::selectionIsNotMarked()
{
    Fill(QStringLiteral("<b>a</b>"), 0);
    Colours();
    QTRY_COMPARE(Marked(), QStringLiteral("<b > </b >"));
    test_->Press(Qt::Key_Right, Qt::ShiftModifier);
    QTest::qWait(200);
    QCOMPARE(Marked(), QString());
}

void tst_pairmarks::marksAreNoPartOfThePage()
{
    QVERIFY(OpenFile("page.htm", "<b>a</b>"));
    Colours();
    test_->Press(Qt::Key_Home, Qt::ControlModifier);
    QTRY_VERIFY(!Marked().isEmpty());
    QVERIFY(!test_->window.File().IsChanged());
    QVERIFY(!Editor()->document()->isUndoAvailable());
}

QTEST_MAIN(tst_pairmarks)
#include "tst_pairmarks.moc"
