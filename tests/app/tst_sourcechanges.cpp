// What counts as an edit, and what an edit costs.

#include "tests/app/SourceEditorFixture.h"

#include <QApplication>
#include <QInputMethodEvent>
#include <QSignalSpy>
#include <functional>

class tst_sourcechanges : public SourceEditorFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Start(); }

    void changeIsTold_data();
    void changeIsTold();
    void changeIsNotToldForLoading();
    void changeIsNotToldForWhatLeavesTheTextAlone_data();
    void changeIsNotToldForWhatLeavesTheTextAlone();
    void shorteningALineNeverMakesTheLayoutSearchForTheWidest_data();
    void shorteningALineNeverMakesTheLayoutSearchForTheWidest();
};

using Edit = std::function<void(SourceEditor&)>;

void tst_sourcechanges::changeIsTold_data()
{
    QTest::addColumn<Edit>("edit");
    const auto row = [](const char* name, const Edit& edit) { QTest::newRow(name) << edit; };
    row("typing", [](SourceEditor& editor) { QTest::keyClicks(&editor, QStringLiteral("x")); });
    row("deleting", [](SourceEditor& editor) { QTest::keyClick(&editor, Qt::Key_Delete); });
    row("deleting a line end", [](SourceEditor& editor) {
        editor.Select(3, 2);
        QTest::keyClick(&editor, Qt::Key_Delete);
    });
    row("Shift+Enter",
        [](SourceEditor& editor) { QTest::keyClick(&editor, Qt::Key_Return, Qt::ShiftModifier); });
    row("replacing", [](SourceEditor& editor) { editor.ReplaceSelection(QStringLiteral("x")); });
    row("replacing by as many characters", [](SourceEditor& editor) {
        editor.Select(0, 1);
        editor.ReplaceSelection(QStringLiteral("A"));
    });
    row("a line end in place of a character", [](SourceEditor& editor) {
        editor.Select(0, 1);
        editor.ReplaceSelection(QStringLiteral("\r\n"));
    });
    row("undo", [](SourceEditor& editor) {
        editor.ReplaceSelection(QStringLiteral("x"));
        const QSignalSpy before(&editor, &SourceEditor::Change);
        QTest::keyClick(&editor, Qt::Key_Z, Qt::ControlModifier);
        QVERIFY(before.count() > 0);
    });
    row("composed text", [](SourceEditor& editor) {
        QInputMethodEvent event;
        event.setCommitString(QStringLiteral("x"));
        QApplication::sendEvent(&editor, &event);
    });
    row("typing after formatting", [](SourceEditor& editor) {
        QTextCharFormat format;
        format.setFontItalic(true);
        editor.mergeCurrentCharFormat(format);
        QTest::keyClicks(&editor, QStringLiteral("x"));
    });
}

void tst_sourcechanges::changeIsTold()
{
    QFETCH(const Edit, edit);
    editor_->LoadText(QStringLiteral("abc\r\ndef"));
    const QSignalSpy change(editor_.get(), &SourceEditor::Change);
    edit(*editor_);
    QVERIFY(change.count() > 0);
}

void tst_sourcechanges::changeIsNotToldForLoading()
{
    QTest::keyClicks(editor_.get(), QStringLiteral("old"));
    const QSignalSpy change(editor_.get(), &SourceEditor::Change);
    editor_->LoadText(QStringLiteral("new"));
    editor_->LoadText(QString());
    QCoreApplication::processEvents();
    QCOMPARE(change.count(), 0);
}

void tst_sourcechanges::changeIsNotToldForWhatLeavesTheTextAlone_data()
{
    QTest::addColumn<Edit>("act");
    const auto row = [](const char* name, const Edit& act) { QTest::newRow(name) << act; };
    row("formatting the selection", [](SourceEditor& editor) {
        editor.Select(0, 6);
        QTextCharFormat format;
        format.setFontWeight(QFont::Bold);
        format.setForeground(Qt::red);
        editor.mergeCurrentCharFormat(format);
        QCOMPARE(editor.textCursor().charFormat().fontWeight(), int(QFont::Bold));
    });
    row("formatting at the caret", [](SourceEditor& editor) {
        QTextCharFormat format;
        format.setFontItalic(true);
        editor.mergeCurrentCharFormat(format);
    });
    row("formatting one character", [](SourceEditor& editor) {
        editor.Select(1, 1);
        QTextCharFormat format;
        format.setFontUnderline(true);
        editor.mergeCurrentCharFormat(format);
    });
    row("taking formatting back", [](SourceEditor& editor) {
        editor.Select(0, 3);
        QTextCharFormat format;
        format.setFontItalic(true);
        editor.mergeCurrentCharFormat(format);
        QTest::keyClick(&editor, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(editor.Text(), QStringLiteral("abc\r\ndef"));
    });
    row("indenting", [](SourceEditor& editor) {
        QTextBlockFormat format;
        format.setLeftMargin(20);
        editor.textCursor().mergeBlockFormat(format);
    });
    row("another font",
        [](SourceEditor& editor) { editor.setFont(QFont(QStringLiteral("Courier New"), 20)); });
    row("wrapping", [](SourceEditor& editor) { editor.setLineWrapMode(QPlainTextEdit::NoWrap); });
    row("moving the caret", [](SourceEditor& editor) {
        QTest::keyClick(&editor, Qt::Key_Down);
        QTest::keyClick(&editor, Qt::Key_End, Qt::ShiftModifier);
    });
    row("text being composed", [](SourceEditor& editor) {
        QInputMethodEvent begin(QStringLiteral("xy"), {});
        QApplication::sendEvent(&editor, &begin);
        QCOMPARE(editor.Text(), QStringLiteral("abc\r\ndef"));
        QInputMethodEvent end;
        QApplication::sendEvent(&editor, &end);
    });
    row("deleting behind the end", [](SourceEditor& editor) {
        editor.Select(8, 0);
        QTest::keyClick(&editor, Qt::Key_Delete);
    });
    row("replacing nothing by nothing", [](SourceEditor& editor) { editor.ReplaceSelection(QString()); });
    row("resizing", [](SourceEditor& editor) { editor.resize(60, 60); });
}

void tst_sourcechanges::changeIsNotToldForWhatLeavesTheTextAlone()
{
    QFETCH(const Edit, act);
    editor_->LoadText(QStringLiteral("abc\r\ndef"));
    const QSignalSpy change(editor_.get(), &SourceEditor::Change);
    act(*editor_);
    QCoreApplication::processEvents();
    QCOMPARE(editor_->Text(), QStringLiteral("abc\r\ndef"));
    QCOMPARE(change.count(), 0);
}

void tst_sourcechanges::shorteningALineNeverMakesTheLayoutSearchForTheWidest_data()
{
    QTest::addColumn<QString>("lastLine");
    QTest::addColumn<bool>("isShownBefore");
    QTest::newRow("ending with a line end") << QString() << false;
    QTest::newRow("ending with a line") << QStringLiteral("the last line") << false;
    QTest::newRow("loaded into the shown editor") << QString() << true;
}

void tst_sourcechanges::shorteningALineNeverMakesTheLayoutSearchForTheWidest()
{
    QFETCH(const QString, lastLine);
    QFETCH(const bool, isShownBefore);
    // The search goes through every line of the document and leaves the real width of the widest behind.
    editor_->resize(700, 500);
    editor_->setVisible(isShownBefore);
    QCoreApplication::processEvents();
    editor_->LoadText(QStringLiteral("some text\r\n").repeated(1000) + lastLine);
    editor_->show();
    QCoreApplication::processEvents();
    const auto layoutWidth = [this] {
        return qRound(editor_->document()->documentLayout()->documentSize().width());
    };
    for (const int line : { 0, 1, 500, 999, 1000 }) {
        QTextCursor cursor(editor_->document()->findBlockByNumber(line));
        cursor.movePosition(QTextCursor::EndOfBlock);
        editor_->setTextCursor(cursor);
        QTest::keyClicks(editor_.get(), QStringLiteral("much longer now"));
        QTest::keyClick(editor_.get(), Qt::Key_Backspace);
        QTest::keyClick(editor_.get(), Qt::Key_Return);
        QTest::keyClick(editor_.get(), Qt::Key_Backspace);
        QTest::keyClick(editor_.get(), Qt::Key_Backspace);
        QCoreApplication::processEvents();
        QCOMPARE(layoutWidth(), editor_->viewport()->width());
    }
}

QTEST_MAIN(tst_sourcechanges)
#include "tst_sourcechanges.moc"
