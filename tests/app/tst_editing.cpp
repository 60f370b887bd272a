#include "shared/AnsiCodePage.h"
#include "shared/TextCase.h"
#include "tests/app/EditingFixture.h"

#include <QListWidget>
#include <QTreeWidget>

namespace {

const QString skeleton = QStringLiteral("<HTML>\r\n<HEAD>\r\n<TITLE>Your Title</TITLE>\r\n</HEAD>\r\n"
                                        "<BODY>\r\n\r\n</BODY>\r\n</HTML>");

constexpr int skeletonButton = 13;

} // namespace

class tst_editing : public EditingFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Start(); }
    void cleanup() { Finish(); }

    void undoTakesTheLastEditBack_data() { WaysTo("mnuEUndo", undoButton, "Ctrl+Z"); }
    void undoTakesTheLastEditBack();
    void skeletonMakesAPage_data() { WaysTo("mnuICustomHTML", skeletonButton, ""); }
    void skeletonMakesAPage();

    void deleteTakesWhatIsBehindTheCaret_data();
    void deleteTakesWhatIsBehindTheCaret();
    void deleteTakesTheSelection_data();
    void deleteTakesTheSelection();
    void deleteIsOneStepOfUndo();
    void deleteWorksOnTheUrlFieldWhenThatIsInUse();
    void deleteElsewhereDoesNothing();

    void selectAllTakesTheWholeText_data();
    void selectAllTakesTheWholeText();

    void caseOfTheSelectionIsChanged_data();
    void caseOfTheSelectionIsChanged();
    void caseOfEveryCharacterIsChangedAsItsRulesSay_data();
    void caseOfEveryCharacterIsChangedAsItsRulesSay();
    void caseWithoutASelectionChangesNothing_data();
    void caseWithoutASelectionChangesNothing();

    void skeletonReplacesTheSelection();
    void skeletonIsPutInAtTheCaret();
    void undoGoesAsFarBackAsTheDocument();
    void mapIsOneStepOfUndo();
    void everyCommandMarksTheDocumentAsChanged_data();
    void everyCommandMarksTheDocumentAsChanged();
};

void tst_editing::undoTakesTheLastEditBack()
{
    Editor()->LoadText(QStringLiteral("abc"));
    Editor()->Select(1, 1);
    Editor()->ReplaceSelection(QStringLiteral("xyz"));
    RunAsTheRowSays();
    QCOMPARE(Editor()->Text(), QStringLiteral("abc"));
    RunAsTheRowSays();
    QCOMPARE(Editor()->Text(), QStringLiteral("abc"));
}

void tst_editing::skeletonMakesAPage()
{
    RunAsTheRowSays();
    QCOMPARE(Editor()->Text(), skeleton);
    QCOMPARE(Editor()->SelStart(), qsizetype(60));
    QCOMPARE(Editor()->SelLength(), qsizetype(0));
    test_->Type("x");
    QVERIFY(Editor()->Text().contains(u"<BODY>\r\nx\r\n</BODY>"));
    test_->window.Source().undo();
    test_->window.Source().undo();
    QCOMPARE(Editor()->Text(), QString());
}

void tst_editing::deleteTakesWhatIsBehindTheCaret_data()
{
    QTest::addColumn<int>("caret");
    QTest::addColumn<QString>("expected");
    QTest::newRow("at the start") << 0 << "b\r\n\r\nc";
    QTest::newRow("within a line") << 1 << "a\r\n\r\nc";
    QTest::newRow("at the end of a line") << 2 << "ab\r\nc";
    QTest::newRow("in an empty line") << 4 << "ab\r\nc";
    QTest::newRow("before the last character") << 6 << "ab\r\n\r\n";
    QTest::newRow("at the end of the text") << 7 << "ab\r\n\r\nc";
}

void tst_editing::deleteTakesWhatIsBehindTheCaret()
{
    QFETCH(const int, caret);
    QFETCH(const QString, expected);
    const QString text = QStringLiteral("ab\r\n\r\nc");
    for (const bool isByMenu : { false, true }) {
        Editor()->LoadText(text);
        Editor()->Select(caret, 0);
        if (isByMenu) {
            ClickEntry("mnuEDelete");
        } else {
            test_->Press(Qt::Key_Delete);
        }
        QCOMPARE(Editor()->Text(), expected);
        QCOMPARE(Editor()->SelStart(), qsizetype(caret));
        QCOMPARE(ClipboardText(), QStringLiteral("older"));
    }
    QCOMPARE(test_->window.File().IsChanged(), expected != text);
}

void tst_editing::deleteTakesTheSelection_data()
{
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("length");
    QTest::addColumn<QString>("expected");
    QTest::newRow("within a line") << 1 << 1 << "a\r\nc";
    QTest::newRow("a line end") << 2 << 2 << "abc";
    QTest::newRow("across lines") << 1 << 4 << "a";
    QTest::newRow("up to the end") << 4 << 1 << "ab\r\n";
    QTest::newRow("everything") << 0 << 5 << "";
}

void tst_editing::deleteTakesTheSelection()
{
    QFETCH(const int, start);
    QFETCH(const int, length);
    QFETCH(const QString, expected);
    Editor()->LoadText(QStringLiteral("ab\r\nc"));
    Editor()->Select(start, length);
    test_->Press(Qt::Key_Delete);
    QCOMPARE(Editor()->Text(), expected);
    QCOMPARE(ClipboardText(), QStringLiteral("older"));
}

void tst_editing::deleteIsOneStepOfUndo()
{
    Editor()->LoadText(QStringLiteral("ab\r\ncd"));
    Editor()->Select(2, 0);
    test_->Press(Qt::Key_Delete);
    test_->window.Source().undo();
    QCOMPARE(Editor()->Text(), QStringLiteral("ab\r\ncd"));
}

void tst_editing::deleteWorksOnTheUrlFieldWhenThatIsInUse()
{
    Editor()->LoadText(QStringLiteral("abc"));
    Editor()->Select(0, 2);
    GoToUrlField("xyz");
    QTest::keyClick(UrlField(), Qt::Key_Delete);
    QCOMPARE(UrlField()->text(), QStringLiteral("yz"));
    ClickEntry("mnuEDelete");
    QCOMPARE(UrlField()->text(), QStringLiteral("z"));
    UrlField()->end(false);
    ClickEntry("mnuEDelete");
    QCOMPARE(UrlField()->text(), QStringLiteral("z"));
    UrlField()->selectAll();
    ClickEntry("mnuEDelete");
    QCOMPARE(UrlField()->text(), QString());
    QCOMPARE(Editor()->Text(), QStringLiteral("abc"));
}

void tst_editing::deleteElsewhereDoesNothing()
{
    Editor()->LoadText(QStringLiteral("abc"));
    test_->Find<QTreeWidget>("TreeView1")->setFocus();
    QTest::keyClick(test_->Find<QTreeWidget>("TreeView1"), Qt::Key_Delete);
    ClickEntry("mnuEDelete");
    GoToUrlField("xyz");
    auto* const links = test_->Find<QListWidget>("ListView1");
    links->addItem(QStringLiteral("link"));
    links->setCurrentRow(0);
    links->setFocus();
    QTest::keyClick(links, Qt::Key_Delete);
    ClickEntry("mnuEDelete");
    QCOMPARE(links->count(), 1);
    QCOMPARE(UrlField()->text(), QStringLiteral("xyz"));
    QCOMPARE(Editor()->Text(), QStringLiteral("abc"));
}

void tst_editing::selectAllTakesTheWholeText_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("lines") << "ab\r\ncd\r\n";
    QTest::newRow("empty") << "";
    QTest::newRow("one line end") << "\r\n";
}

void tst_editing::selectAllTakesTheWholeText()
{
    QFETCH(const QString, text);
    Editor()->LoadText(text);
    Editor()->Select(text.size() / 2, 0);
    ClickEntry("mnuESelectAll");
    QCOMPARE(Editor()->SelStart(), qsizetype(0));
    QCOMPARE(Editor()->SelLength(), text.size());
    QCOMPARE(Editor()->SelText(), text);
    QVERIFY(!test_->window.File().IsChanged());
}

void tst_editing::caseOfTheSelectionIsChanged_data()
{
    QTest::addColumn<QString>("expected");
    QTest::newRow("mnuEUpperCase") << "xMCDONALD'S\r\n2ND-RATE \u00C9x";
    QTest::newRow("mnuELowerCase") << "xmcdonald's\r\n2nd-rate \u00E9x";
    QTest::newRow("mnuEProperCase") << "xMcdonald'S\r\n2Nd-Rate \u00E9x";
}

void tst_editing::caseOfTheSelectionIsChanged()
{
    QFETCH(const QString, expected);
    const QString text = QStringLiteral("xmcDonald's\r\n2nd-RATE \u00C9x");
    Editor()->LoadText(text);
    Editor()->Select(1, text.size() - 2);
    ClickEntry(QTest::currentDataTag());
    QCOMPARE(Editor()->Text(), expected);
    QCOMPARE(Editor()->SelStart(), text.size() - 1);
    QCOMPARE(Editor()->SelLength(), qsizetype(0));
    QCOMPARE(ClipboardText(), QStringLiteral("older"));
    test_->window.Source().undo();
    QCOMPARE(Editor()->Text(), text);
}

void tst_editing::caseOfEveryCharacterIsChangedAsItsRulesSay_data()
{
    QTest::addColumn<QString>("expected");
    const QString all = AnsiCodePage::Decode(EveryByte());
    QTest::newRow("mnuEUpperCase") << UpperCase(all);
    QTest::newRow("mnuELowerCase") << LowerCase(all);
    QTest::newRow("mnuEProperCase") << ProperCase(all);
}

void tst_editing::caseOfEveryCharacterIsChangedAsItsRulesSay()
{
    QFETCH(const QString, expected);
    const QString all = AnsiCodePage::Decode(EveryByte());
    Editor()->LoadText(all);
    ClickEntry("mnuESelectAll");
    ClickEntry(QTest::currentDataTag());
    QCOMPARE(Editor()->Text(), expected);
    QVERIFY(expected != all);
    QCOMPARE(AnsiCodePage::Encode(Editor()->Text()).count('?'), 1);
}

void tst_editing::caseWithoutASelectionChangesNothing_data()
{
    QTest::addColumn<int>("caret");
    for (const char* const entry : { "mnuEUpperCase", "mnuELowerCase", "mnuEProperCase" }) {
        QTest::newRow(entry) << 2;
    }
}

void tst_editing::caseWithoutASelectionChangesNothing()
{
    QFETCH(const int, caret);
    Editor()->LoadText(QStringLiteral("abCD"));
    Editor()->Select(caret, 0);
    ClickEntry(QTest::currentDataTag());
    QCOMPARE(Editor()->Text(), QStringLiteral("abCD"));
    QCOMPARE(Editor()->SelStart(), qsizetype(caret));
    QVERIFY(!test_->window.File().IsChanged());
}

void tst_editing::skeletonReplacesTheSelection()
{
    Editor()->LoadText(QStringLiteral("before\r\nselected\r\nafter"));
    Editor()->Select(8, 8);
    ClickEntry("mnuICustomHTML");
    QCOMPARE(Editor()->Text(), QString(u"before\r\n" + skeleton + u"\r\nafter"));
    QCOMPARE(Editor()->SelStart(), qsizetype(60));
    test_->window.Source().undo();
    QCOMPARE(Editor()->Text(), QStringLiteral("before\r\nselected\r\nafter"));
}

void tst_editing::skeletonIsPutInAtTheCaret()
{
    const QString text = QStringLiteral("x").repeated(100);
    test_->Type(text.toLatin1().constData());
    ClickEntry("mnuICustomHTML");
    QCOMPARE(Editor()->Text(), QString(text + skeleton));
    QCOMPARE(Editor()->SelStart(), qsizetype(60));
    test_->window.Source().undo();
    QCOMPARE(Editor()->Text(), text);
}

void tst_editing::undoGoesAsFarBackAsTheDocument()
{
    QStringList texts;
    for (int i = 0; i < 30; ++i) {
        texts.prepend(Editor()->Text());
        Editor()->ReplaceSelection(QString::number(i) + u"\r\n");
    }
    for (const QString& text : texts) {
        test_->Press(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(Editor()->Text(), text);
    }
    test_->Press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(Editor()->Text(), QString());
}

void tst_editing::mapIsOneStepOfUndo()
{
    test_->Type("ab");
    Editor()->Select(1, 1);
    test_->window.Page().InsertAtCaret(QStringLiteral("<MAP>\r\n</MAP>\r\n"));
    QCOMPARE(Editor()->Text(), QStringLiteral("a<MAP>\r\n</MAP>\r\n"));
    test_->window.Source().undo();
    QCOMPARE(Editor()->Text(), QStringLiteral("ab"));
}

void tst_editing::everyCommandMarksTheDocumentAsChanged_data()
{
    QTest::addColumn<bool>("isChanging");
    for (const char* const entry :
         { "mnuECut", "mnuEPaste", "mnuEDelete", "mnuEUpperCase", "mnuEProperCase", "mnuICustomHTML" }) {
        QTest::newRow(entry) << true;
    }
    for (const char* const entry : { "mnuEUndo", "mnuECopy", "mnuESelectAll" }) {
        QTest::newRow(entry) << false;
    }
}

void tst_editing::everyCommandMarksTheDocumentAsChanged()
{
    QFETCH(const bool, isChanging);
    Editor()->LoadText(QStringLiteral("abc"));
    Editor()->Select(0, 2);
    QVERIFY(!test_->window.File().IsChanged());
    ClickEntry(QTest::currentDataTag());
    QCOMPARE(test_->window.File().IsChanged(), isChanging);
}

QTEST_MAIN(tst_editing)
#include "tst_editing.moc"
