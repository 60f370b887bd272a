#include "tests/support/WidgetDriving.h"

#include "shared/AnsiCodePage.h"
#include "shared/TextCase.h"
#include "tests/app/MainWindowFixture.h"

#include <QClipboard>
#include <QListWidget>
#include <QMimeData>
#include <QTabWidget>
#include <QTreeWidget>
#include <memory>

namespace {

const QString skeleton = QStringLiteral("<HTML>\r\n<HEAD>\r\n<TITLE>Your Title</TITLE>\r\n</HEAD>\r\n"
                                        "<BODY>\r\n\r\n</BODY>\r\n</HTML>");

constexpr int cutButton = 8;
constexpr int copyButton = 9;
constexpr int pasteButton = 10;
constexpr int undoButton = 11;
constexpr int skeletonButton = 13;

QString ClipboardText()
{
    return QGuiApplication::clipboard()->text();
}

void PutOnClipboard(const QString& text)
{
    QGuiApplication::clipboard()->setText(text);
}

} // namespace

class tst_editing : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void cutMovesTheSelectionToTheClipboard_data() { WaysTo("mnuECut", cutButton, "Ctrl+X"); }
    void cutMovesTheSelectionToTheClipboard();
    void copyPutsTheSelectionOnTheClipboard_data() { WaysTo("mnuECopy", copyButton, "Ctrl+C"); }
    void copyPutsTheSelectionOnTheClipboard();
    void pasteReplacesTheSelection_data() { WaysTo("mnuEPaste", pasteButton, "Ctrl+V"); }
    void pasteReplacesTheSelection();
    void undoTakesTheLastEditBack_data() { WaysTo("mnuEUndo", undoButton, "Ctrl+Z"); }
    void undoTakesTheLastEditBack();
    void skeletonMakesAPage_data() { WaysTo("mnuICustomHTML", skeletonButton, ""); }
    void skeletonMakesAPage();

    void nothingSelectedEmptiesTheClipboard_data();
    void nothingSelectedEmptiesTheClipboard();
    void clipboardCarriesTheCharactersOfTheCodePage();
    void clipboardCarriesPlainTextOnly();
    void pastedTextGetsCrLf_data();
    void pastedTextGetsCrLf();
    void pastingWithoutTextReplacesTheSelectionWithNothing_data();
    void pastingWithoutTextReplacesTheSelectionWithNothing();
    void clipboardCommandsWorkOnTheEditorWhateverHasTheFocus_data();
    void clipboardCommandsWorkOnTheEditorWhateverHasTheFocus();

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

private:
    static void WaysTo(const char* entry, int button, const char* keys);
    void RunAsTheRowSays();
    void ClickEntry(const char* entry);
    void GoToUrlField(const char* text);

    SourceEditor* Editor() { return test_->Editor(); }
    QLineEdit* UrlField() { return test_->Find<QLineEdit>("txtCTags"); }

    std::unique_ptr<MainWindowFixture> test_;
};

void tst_editing::init()
{
    test_ = std::make_unique<MainWindowFixture>();
    QVERIFY(test_->Start());
    PutOnClipboard(QStringLiteral("older"));
}

void tst_editing::cleanup()
{
    QCOMPARE(test_->robot.Problems(), QString());
    test_.reset();
}

/** Rows for the menu, the toolbar and the keyboard; no keys where there are none. */
void tst_editing::WaysTo(const char* entry, int button, const char* keys)
{
    QTest::addColumn<QByteArray>("entry");
    QTest::addColumn<int>("button");
    QTest::addColumn<QKeySequence>("keys");
    QTest::newRow("menu") << QByteArray(entry) << 0 << QKeySequence();
    QTest::newRow("toolbar") << QByteArray() << button << QKeySequence();
    if (*keys != '\0') {
        QTest::newRow("keys") << QByteArray() << 0 << QKeySequence(QString::fromLatin1(keys));
    }
}

void tst_editing::RunAsTheRowSays()
{
    QFETCH(const QByteArray, entry);
    QFETCH(const int, button);
    QFETCH(const QKeySequence, keys);
    if (!keys.isEmpty()) {
        test_->Press(keys[0].key(), keys[0].keyboardModifiers());
    } else if (button > 0) {
        test_->ClickToolbar(button);
    } else {
        ClickEntry(entry.constData());
    }
}

/** Clicks a menu entry, by way of the submenu where it lies in one. */
void tst_editing::ClickEntry(const char* entry)
{
    auto* const submenu = test_->Find<QMenu>("mnuEEditCase");
    auto* const action = test_->Find<QAction>(entry);
    if (submenu->actions().contains(action)) {
        test_->ClickMenu("mnuEdit", "mnuEEditCase");
        QVERIFY(QTest::qWaitFor([submenu] { return submenu->isVisible(); }));
        QTest::mouseClick(submenu, Qt::LeftButton, {}, submenu->actionGeometry(action).center());
        return;
    }
    for (const char* const menu : { "mnuEdit", "mnuInsert", "mnuTools" }) {
        if (test_->Find<QMenu>(menu)->actions().contains(action)) {
            test_->ClickMenu(menu, entry);
        }
    }
}

/** Goes to the field beside the saved links, with `text` in it and the caret before it. */
void tst_editing::GoToUrlField(const char* text)
{
    test_->Find<QTabWidget>("SSTab1")->setCurrentIndex(1);
    UrlField()->setText(QString::fromLatin1(text));
    UrlField()->setFocus();
    UrlField()->home(false);
}

void tst_editing::cutMovesTheSelectionToTheClipboard()
{
    Editor()->LoadText(QStringLiteral("ab\r\ncd"));
    Editor()->Select(1, 4);
    RunAsTheRowSays();
    QCOMPARE(ClipboardText(), QStringLiteral("b\nc"));
    QCOMPARE(Editor()->Text(), QStringLiteral("ad"));
    QCOMPARE(Editor()->SelStart(), qsizetype(1));
    test_->window.Source().undo();
    QCOMPARE(Editor()->Text(), QStringLiteral("ab\r\ncd"));
}

void tst_editing::copyPutsTheSelectionOnTheClipboard()
{
    Editor()->LoadText(QStringLiteral("ab\r\ncd"));
    Editor()->Select(1, 4);
    RunAsTheRowSays();
    QCOMPARE(ClipboardText(), QStringLiteral("b\nc"));
    QCOMPARE(Editor()->Text(), QStringLiteral("ab\r\ncd"));
    QCOMPARE(Editor()->SelText(), QStringLiteral("b\r\nc"));
    QVERIFY(!test_->window.File().IsChanged());
}

void tst_editing::pasteReplacesTheSelection()
{
    Editor()->LoadText(QStringLiteral("abcd"));
    Editor()->Select(1, 2);
    RunAsTheRowSays();
    QCOMPARE(Editor()->Text(), QStringLiteral("aolderd"));
    QCOMPARE(Editor()->SelStart(), qsizetype(6));
    QCOMPARE(Editor()->SelLength(), qsizetype(0));
    QCOMPARE(ClipboardText(), QStringLiteral("older"));
    test_->window.Source().undo();
    QCOMPARE(Editor()->Text(), QStringLiteral("abcd"));
}

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

void tst_editing::nothingSelectedEmptiesTheClipboard_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::newRow("Ctrl+C") << Qt::Key_C << Qt::KeyboardModifiers(Qt::ControlModifier);
    QTest::newRow("Ctrl+X") << Qt::Key_X << Qt::KeyboardModifiers(Qt::ControlModifier);
    QTest::newRow("Ctrl+Insert") << Qt::Key_Insert << Qt::KeyboardModifiers(Qt::ControlModifier);
    QTest::newRow("Shift+Del") << Qt::Key_Delete << Qt::KeyboardModifiers(Qt::ShiftModifier);
}

void tst_editing::nothingSelectedEmptiesTheClipboard()
{
    QFETCH(const Qt::Key, key);
    QFETCH(const Qt::KeyboardModifiers, modifiers);
    auto old = std::make_unique<QMimeData>();
    old->setText(QStringLiteral("older"));
    old->setHtml(QStringLiteral("<b>older</b>"));
    old->setImageData(QImage(2, 2, QImage::Format_RGB32));
    QGuiApplication::clipboard()->setMimeData(old.release());
    Editor()->LoadText(QStringLiteral("abc"));
    Editor()->Select(1, 0);
    test_->Press(key, modifiers);
    QCOMPARE(ClipboardText(), QString());
    QVERIFY(!QGuiApplication::clipboard()->mimeData()->hasHtml());
    QVERIFY(!QGuiApplication::clipboard()->mimeData()->hasImage());
    QCOMPARE(Editor()->Text(), QStringLiteral("abc"));
    QCOMPARE(Editor()->SelStart(), qsizetype(1));
    QVERIFY(!test_->window.File().IsChanged());
}

void tst_editing::clipboardCarriesTheCharactersOfTheCodePage()
{
    const QString text = AnsiCodePage::Decode(EveryByte());
    Editor()->LoadText(text);
    test_->window.Source().selectAll();
    test_->window.Source().CutText();
    QCOMPARE(ClipboardText(), QString(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
    QCOMPARE(Editor()->Text(), QString());
    test_->window.Source().PasteText();
    test_->window.Source().PasteText();
    QCOMPARE(Editor()->Text(), QString(text + text));
}

void tst_editing::clipboardCarriesPlainTextOnly()
{
    Editor()->LoadText(QStringLiteral("abc"));
    Editor()->Select(0, 3);
    QTextCharFormat format;
    format.setFontWeight(QFont::Bold);
    Editor()->SetSelFormat(format);
    test_->window.Source().CopyText();
    QCOMPARE(QGuiApplication::clipboard()->mimeData()->formats().join(u' '), QStringLiteral("text/plain"));
}

void tst_editing::pastedTextGetsCrLf_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("CR LF") << "x\r\ny";
    QTest::newRow("LF") << "x\ny";
    QTest::newRow("CR") << "x\ry";
}

void tst_editing::pastedTextGetsCrLf()
{
    QFETCH(const QString, text);
    PutOnClipboard(text);
    test_->Press(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(Editor()->Text(), QStringLiteral("x\r\ny"));
    QCOMPARE(Editor()->SelStart(), qsizetype(4));
}

void tst_editing::pastingWithoutTextReplacesTheSelectionWithNothing_data()
{
    QTest::addColumn<bool>("hasPicture");
    QTest::newRow("picture") << true;
    QTest::newRow("empty clipboard") << false;
}

void tst_editing::pastingWithoutTextReplacesTheSelectionWithNothing()
{
    QFETCH(const bool, hasPicture);
    QGuiApplication::clipboard()->clear();
    if (hasPicture) {
        QGuiApplication::clipboard()->setImage(QImage(2, 2, QImage::Format_RGB32));
    }
    Editor()->LoadText(QStringLiteral("abc"));
    Editor()->Select(1, 1);
    test_->Press(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(Editor()->Text(), QStringLiteral("ac"));
    QCOMPARE(Editor()->SelStart(), qsizetype(1));
    test_->Press(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(Editor()->Text(), QStringLiteral("ac"));
}

void tst_editing::clipboardCommandsWorkOnTheEditorWhateverHasTheFocus_data()
{
    QTest::addColumn<QByteArray>("focused");
    QTest::newRow("URL field") << QByteArray("txtCTags");
    QTest::newRow("saved links") << QByteArray("ListView1");
    QTest::newRow("tabs") << QByteArray("SSTab1");
}

void tst_editing::clipboardCommandsWorkOnTheEditorWhateverHasTheFocus()
{
    QFETCH(const QByteArray, focused);
    Editor()->LoadText(QStringLiteral("abc"));
    Editor()->Select(1, 1);
    GoToUrlField("http://a.example/");
    UrlField()->selectAll();
    test_->Find<QListWidget>("ListView1")->addItem(QStringLiteral("link"));
    test_->Find<QListWidget>("ListView1")->setCurrentRow(0);
    test_->Find<QWidget>(focused.constData())->setFocus();
    test_->ClickToolbar(copyButton);
    QCOMPARE(ClipboardText(), QStringLiteral("b"));
    test_->ClickMenu("mnuEdit", "mnuECut");
    QCOMPARE(Editor()->Text(), QStringLiteral("ac"));
    test_->ClickToolbar(pasteButton);
    test_->ClickToolbar(pasteButton);
    QCOMPARE(Editor()->Text(), QStringLiteral("abbc"));
    test_->ClickToolbar(undoButton);
    QCOMPARE(Editor()->Text(), QStringLiteral("abc"));
    QCOMPARE(UrlField()->text(), QStringLiteral("http://a.example/"));
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
