// Cut, Copy and Paste.

#include "app/EditorClipboard.h"
#include "shared/AnsiCodePage.h"
#include "tests/app/EditingFixture.h"

#include <QListWidget>
#include <QMimeData>

namespace {

constexpr int cutButton = 8;

constexpr int copyButton = 9;

constexpr int pasteButton = 10;

} // namespace

class tst_clipboardcommands : public EditingFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Start(); }
    void cleanup() { Finish(); }

    void cutMovesTheSelectionToTheClipboard_data() { WaysTo("mnuECut", cutButton, "Ctrl+X"); }
    void cutMovesTheSelectionToTheClipboard();
    void copyPutsTheSelectionOnTheClipboard_data() { WaysTo("mnuECopy", copyButton, "Ctrl+C"); }
    void copyPutsTheSelectionOnTheClipboard();
    void pasteReplacesTheSelection_data() { WaysTo("mnuEPaste", pasteButton, "Ctrl+V"); }
    void pasteReplacesTheSelection();

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
};

void tst_clipboardcommands::cutMovesTheSelectionToTheClipboard()
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

void tst_clipboardcommands::copyPutsTheSelectionOnTheClipboard()
{
    Editor()->LoadText(QStringLiteral("ab\r\ncd"));
    Editor()->Select(1, 4);
    RunAsTheRowSays();
    QCOMPARE(ClipboardText(), QStringLiteral("b\nc"));
    QCOMPARE(Editor()->Text(), QStringLiteral("ab\r\ncd"));
    QCOMPARE(Editor()->SelText(), QStringLiteral("b\r\nc"));
    QVERIFY(!test_->window.File().IsChanged());
}

void tst_clipboardcommands::pasteReplacesTheSelection()
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

void tst_clipboardcommands::nothingSelectedEmptiesTheClipboard_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::newRow("Ctrl+C") << Qt::Key_C << Qt::KeyboardModifiers(Qt::ControlModifier);
    QTest::newRow("Ctrl+X") << Qt::Key_X << Qt::KeyboardModifiers(Qt::ControlModifier);
    QTest::newRow("Ctrl+Insert") << Qt::Key_Insert << Qt::KeyboardModifiers(Qt::ControlModifier);
    QTest::newRow("Shift+Del") << Qt::Key_Delete << Qt::KeyboardModifiers(Qt::ShiftModifier);
}

void tst_clipboardcommands::nothingSelectedEmptiesTheClipboard()
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

void tst_clipboardcommands::clipboardCarriesTheCharactersOfTheCodePage()
{
    const QString text = AnsiCodePage::Decode(EveryByte());
    Editor()->LoadText(text);
    test_->window.Source().selectAll();
    CutText(test_->window.Source());
    QCOMPARE(ClipboardText(), QString(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
    QCOMPARE(Editor()->Text(), QString());
    PasteText(test_->window.Source());
    PasteText(test_->window.Source());
    QCOMPARE(Editor()->Text(), QString(text + text));
}

void tst_clipboardcommands::clipboardCarriesPlainTextOnly()
{
    Editor()->LoadText(QStringLiteral("abc"));
    Editor()->Select(0, 3);
    QTextCharFormat format;
    format.setFontWeight(QFont::Bold);
    Editor()->mergeCurrentCharFormat(format);
    CopyText(test_->window.Source());
    QCOMPARE(QGuiApplication::clipboard()->mimeData()->formats().join(u' '), QStringLiteral("text/plain"));
}

void tst_clipboardcommands::pastedTextGetsCrLf_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("CR LF") << "x\r\ny";
    QTest::newRow("LF") << "x\ny";
    QTest::newRow("CR") << "x\ry";
}

void tst_clipboardcommands::pastedTextGetsCrLf()
{
    QFETCH(const QString, text);
    PutOnClipboard(text);
    test_->Press(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(Editor()->Text(), QStringLiteral("x\r\ny"));
    QCOMPARE(Editor()->SelStart(), qsizetype(4));
}

void tst_clipboardcommands::pastingWithoutTextReplacesTheSelectionWithNothing_data()
{
    QTest::addColumn<bool>("hasPicture");
    QTest::newRow("picture") << true;
    QTest::newRow("empty clipboard") << false;
}

void tst_clipboardcommands::pastingWithoutTextReplacesTheSelectionWithNothing()
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

void tst_clipboardcommands::clipboardCommandsWorkOnTheEditorWhateverHasTheFocus_data()
{
    QTest::addColumn<QByteArray>("focused");
    QTest::newRow("URL field") << QByteArray("txtCTags");
    QTest::newRow("saved links") << QByteArray("ListView1");
    QTest::newRow("tabs") << QByteArray("SSTab1");
}

void tst_clipboardcommands::clipboardCommandsWorkOnTheEditorWhateverHasTheFocus()
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

QTEST_MAIN(tst_clipboardcommands)
#include "tst_clipboardcommands.moc"
