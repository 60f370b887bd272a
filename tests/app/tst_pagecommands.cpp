// The Page menu: lines moved in and out, comments, end tags.

#include "tests/support/WidgetDriving.h"

#include "tests/app/DocumentsFixture.h"

class tst_pagecommands : public DocumentsFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { Finish(); }

    void selectedLinesAreMovedInAndOut();
    void caretsLineIsMovedWithIt();
    void lineBehindTheSelectionStays();
    void emptyLinesStayEmpty();
    void linesAreMovedByWhatThePageIsMovedInBy();
    void movingIsOneStepOfUndo();
    void tabPutsInATabAtFirst();
    void tabMovesLinesOnceACommandDid();
    void tabMovesLinesWhenTurnedOn();
    void tabPutsInATabWhenTurnedOff();
    void tabWithinALinePutsInATab();
    void nothingIsWrittenUntilTheTabKeyIsDecidedOn();
    void decisionOnTheTabKeyComesBack();
    void commentKeyPutsAndTakesOff();
    void commentIsOneStepOfUndo();
    void caretStaysWithItsText();
    void endTagIsPutIn();
    void endTagIsPutInBehindTheSelection();
    void nothingOpenIsNothingToClose();
    void formattingIsOneStepOfUndo();
    void formattedPageStaysUnchanged();

private:
    SourceEditor* Editor() { return test_->Editor(); }
    void Use(const char* entry) { test_->ClickMenu("mnuPage", entry); }
    [[nodiscard]] bool IsSettingsFileThere() const { return QFile::exists(Path("Data/Settings.ini")); }

    /** A page with "[" and "]" around what is selected, or "|" at the caret, and "~" for line ends. */
    void Fill(const char* marked);
    QString Shown();
    void PressTab() { test_->Press(Qt::Key_Tab); }
    void PressBackTab() { test_->Press(Qt::Key_Backtab, Qt::ShiftModifier); }
};

void tst_pagecommands::init()
{
    Start();
    test_->folder.imgMap.Remembered.Open(test_->folder.imgMap.ProgramFolder);
}

void tst_pagecommands::Fill(const char* marked)
{
    QString text = QString::fromLatin1(marked).replace(u'~', QStringLiteral("\r\n"));
    const qsizetype start = text.indexOf(QRegularExpression(QStringLiteral("[\\[|]")));
    text.remove(start, 1);
    const qsizetype end = text.indexOf(u']');
    if (end >= 0) {
        text.remove(end, 1);
    }
    Editor()->LoadText(text);
    Editor()->Select(start, end >= 0 ? end - start : 0);
}

QString tst_pagecommands::Shown()
{
    QString text = Editor()->Text();
    if (Editor()->SelLength() > 0) {
        text.insert(Editor()->SelStart() + Editor()->SelLength(), u']');
        text.insert(Editor()->SelStart(), u'[');
    } else {
        text.insert(Editor()->SelStart(), u'|');
    }
    return text.replace(QStringLiteral("\r\n"), QStringLiteral("~")).replace(u'\t', u'>');
}

void tst_pagecommands::selectedLinesAreMovedInAndOut()
{
    Fill("a~b[b~c]c~d");
    Use("mnuPIndent");
    QCOMPARE(Shown(), QStringLiteral("a~[>bb~>cc]~d"));
    Use("mnuPIndent");
    QCOMPARE(Shown(), QStringLiteral("a~[>>bb~>>cc]~d"));
    Use("mnuPUnindent");
    Use("mnuPUnindent");
    QCOMPARE(Shown(), QStringLiteral("a~[bb~cc]~d"));
    Use("mnuPUnindent");
    QCOMPARE(Shown(), QStringLiteral("a~[bb~cc]~d"));
}

void tst_pagecommands::caretsLineIsMovedWithIt()
{
    Fill("a~b|b");
    Use("mnuPIndent");
    QCOMPARE(Shown(), QStringLiteral("a~>b|b"));
    Use("mnuPUnindent");
    QCOMPARE(Shown(), QStringLiteral("a~b|b"));
}

void tst_pagecommands::lineBehindTheSelectionStays()
{
    Fill("[a~b~]c");
    Use("mnuPIndent");
    QCOMPARE(Shown(), QStringLiteral("[>a~>b~]c"));
}

void tst_pagecommands::emptyLinesStayEmpty()
{
    Fill("[a~~b]");
    Use("mnuPIndent");
    QCOMPARE(Shown(), QStringLiteral("[>a~~>b]"));
}

void tst_pagecommands::linesAreMovedByWhatThePageIsMovedInBy()
{
    Fill("<ul>~  <li>a~|b~</ul>");
    Use("mnuPIndent");
    QCOMPARE(Shown(), QStringLiteral("<ul>~  <li>a~  |b~</ul>"));
}

void tst_pagecommands::movingIsOneStepOfUndo()
{
    Fill("[a~b~c]");
    Use("mnuPIndent");
    test_->Press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(Editor()->Text(), QStringLiteral("a\r\nb\r\nc"));
    QVERIFY(!Editor()->document()->isUndoAvailable());
}

void tst_pagecommands::tabPutsInATabAtFirst()
{
    Fill("[a~b]c");
    PressTab();
    QCOMPARE(Shown(), QStringLiteral(">|c"));
    Fill("[a~b]c");
    PressBackTab();
    QCOMPARE(Shown(), QStringLiteral("[a~b]c"));
    QVERIFY(!test_->Find<QAction>("mnuPTabIndents")->isChecked());
}

void tst_pagecommands::tabMovesLinesOnceACommandDid()
{
    Fill("[a~b]");
    Use("mnuPUnindent");
    QVERIFY(test_->Find<QAction>("mnuPTabIndents")->isChecked());
    PressTab();
    QCOMPARE(Shown(), QStringLiteral("[>a~>b]"));
    PressTab();
    QCOMPARE(Shown(), QStringLiteral("[>>a~>>b]"));
    PressBackTab();
    QCOMPARE(Shown(), QStringLiteral("[>a~>b]"));
    Fill("a~[bc]~d");
    PressTab();
    QCOMPARE(Shown(), QStringLiteral("a~[>bc]~d"));
}

void tst_pagecommands::tabMovesLinesWhenTurnedOn()
{
    Use("mnuPTabIndents");
    Fill("[a~b]");
    PressTab();
    QCOMPARE(Shown(), QStringLiteral("[>a~>b]"));
}

void tst_pagecommands::tabPutsInATabWhenTurnedOff()
{
    Use("mnuPTabIndents");
    Use("mnuPTabIndents");
    Fill("[a~b]");
    Use("mnuPIndent");
    QVERIFY(!test_->Find<QAction>("mnuPTabIndents")->isChecked());
    PressTab();
    QCOMPARE(Shown(), QStringLiteral(">|"));
}

void tst_pagecommands::tabWithinALinePutsInATab()
{
    Use("mnuPTabIndents");
    Fill("a[b]c");
    PressTab();
    QCOMPARE(Shown(), QStringLiteral("a>|c"));
    PressTab();
    QCOMPARE(Shown(), QStringLiteral("a>>|c"));
}

void tst_pagecommands::nothingIsWrittenUntilTheTabKeyIsDecidedOn()
{
    Fill("a|");
    PressTab();
    test_->Press(Qt::Key_Slash, Qt::ControlModifier);
    Use("mnuPCloseTag");
    QVERIFY(!IsSettingsFileThere());
    Use("mnuPIndent");
    QVERIFY(IsSettingsFileThere());
}

void tst_pagecommands::decisionOnTheTabKeyComesBack()
{
    Use("mnuPTabIndents");
    ImgMap next;
    next.ProgramFolder = next.HelpFolder = test_->folder.imgMap.ProgramFolder;
    next.Remembered.Open(next.ProgramFolder);
    frmIMmain window(next, test_->folder.map, test_->desktop);
    QVERIFY(window.findChild<QAction*>(QStringLiteral("mnuPTabIndents"))->isChecked());
}

void tst_pagecommands::commentKeyPutsAndTakesOff()
{
    Fill("<p>a</p>~[<b>b</b>~c]~d");
    test_->Press(Qt::Key_Slash, Qt::ControlModifier);
    QCOMPARE(Shown(), QStringLiteral("<p>a</p>~[<!-- <b>b</b>~c -->]~d"));
    test_->Press(Qt::Key_Slash, Qt::ControlModifier);
    QCOMPARE(Shown(), QStringLiteral("<p>a</p>~[<b>b</b>~c]~d"));
}

void tst_pagecommands::commentIsOneStepOfUndo()
{
    Fill("[a--b--c]");
    test_->Press(Qt::Key_Slash, Qt::ControlModifier);
    QCOMPARE(Editor()->Text(), QStringLiteral("<!-- a-&#45;b-&#45;c -->"));
    test_->Press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(Editor()->Text(), QStringLiteral("a--b--c"));
    QVERIFY(!Editor()->document()->isUndoAvailable());
}

void tst_pagecommands::caretStaysWithItsText()
{
    Fill("a~ bc|d~");
    test_->Press(Qt::Key_Slash, Qt::ControlModifier);
    QCOMPARE(Shown(), QStringLiteral("a~ <!-- bc|d -->~"));
    test_->Press(Qt::Key_Slash, Qt::ControlModifier);
    QCOMPARE(Shown(), QStringLiteral("a~ bc|d~"));
}

void tst_pagecommands::endTagIsPutIn()
{
    Fill("<ul><li><B>one| more");
    Use("mnuPCloseTag");
    QCOMPARE(Shown(), QStringLiteral("<ul><li><B>one</B>| more"));
    Use("mnuPCloseTag");
    QCOMPARE(Shown(), QStringLiteral("<ul><li><B>one</B></li>| more"));
    test_->Press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(Shown(), QStringLiteral("<ul><li><B>one</B>| more"));
}

void tst_pagecommands::endTagIsPutInBehindTheSelection()
{
    Fill("<p>[a~b]c");
    Use("mnuPCloseTag");
    QCOMPARE(Shown(), QStringLiteral("<p>a~b</p>|c"));
}

void tst_pagecommands::nothingOpenIsNothingToClose()
{
    Fill("<p>a</p>|");
    Use("mnuPCloseTag");
    QCOMPARE(Shown(), QStringLiteral("<p>a</p>|"));
    QVERIFY(!test_->window.File().IsChanged());
}

void tst_pagecommands::formattingIsOneStepOfUndo()
{
    Fill("<ul>~<li>a|b~    <li>c~</ul>~<pre>~ x~</pre>");
    Use("mnuPFormat");
    QCOMPARE(Shown(), QStringLiteral("<ul>~    <li>a|b~    <li>c~</ul>~<pre>~ x~</pre>"));
    test_->Press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(
        Editor()->Text(),
        QStringLiteral("<ul>~<li>ab~    <li>c~</ul>~<pre>~ x~</pre>").replace(u'~', QStringLiteral("\r\n")));
    QVERIFY(!Editor()->document()->isUndoAvailable());
}

void tst_pagecommands::formattedPageStaysUnchanged()
{
    Fill("<ul>~\t<li>a|~</ul>");
    Use("mnuPFormat");
    QVERIFY(!test_->window.File().IsChanged());
    QVERIFY(!Editor()->document()->isUndoAvailable());
}

QTEST_MAIN(tst_pagecommands)
#include "tst_pagecommands.moc"
