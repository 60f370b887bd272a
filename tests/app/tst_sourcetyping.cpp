// Typing, pasting and dropping.

#include "shared/AnsiCodePage.h"
#include "tests/app/SourceEditorFixture.h"

#include <QAction>
#include <QApplication>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QMainWindow>
#include <QMimeData>
#include <QSignalSpy>

namespace {

/** Rich text whose plain text has a line end and a no-break space. */
std::unique_ptr<QMimeData> RichText()
{
    auto data = std::make_unique<QMimeData>();
    data->setHtml(QStringLiteral("<b>bold</b><br><i>italic</i>"));
    data->setText(QStringLiteral("bold\n\u00A0italic"));
    return data;
}

bool HasFormatting(const SourceEditor& editor)
{
    QTextCursor cursor(editor.document());
    while (!cursor.atEnd()) {
        cursor.movePosition(QTextCursor::NextCharacter);
        const QTextCharFormat format = cursor.charFormat();
        if (format.fontWeight() > QFont::Normal || format.fontItalic()) {
            return true;
        }
    }
    return false;
}

} // namespace

class tst_sourcetyping : public SourceEditorFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Start(); }

    void noBreakSpacesAreTypedCopiedAndPastedAsTheyAre();

    void enterMakesALineEnd_data();
    void enterMakesALineEnd();
    void tabIsACharacterOfThePage();
    void keysOfMenuEntriesAreLeftToTheMenu();
    void composedLineEndsAreLineEnds();
    void charactersOfTheLayoutAreShownAsTheyAreSaved_data();
    void charactersOfTheLayoutAreShownAsTheyAreSaved();

    void pastingRichTextInsertsItsPlainText();
    void pastingFormattingWithoutTextInsertsNothing();
    void droppedTextIsIgnored();
    void pastingReplacesTheSelectionInOneStepOfUndo();
};

void tst_sourcetyping::noBreakSpacesAreTypedCopiedAndPastedAsTheyAre()
{
    const QString text = QStringLiteral("\u00A0a\u00A0b\r\n\u00A0");
    QTest::keyClick(editor_.get(), QChar(QChar::Nbsp).toLatin1());
    QCOMPARE(editor_->Text(), QStringLiteral("\u00A0"));

    editor_->LoadText(text);
    QTest::keyClick(editor_.get(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(editor_.get(), Qt::Key_C, Qt::ControlModifier);
    editor_->LoadText(QString());
    QTest::keyClick(editor_.get(), Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(editor_->Text(), text);
}

void tst_sourcetyping::enterMakesALineEnd_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::newRow("Return") << Qt::Key_Return << Qt::KeyboardModifiers();
    QTest::newRow("Enter of the keypad") << Qt::Key_Enter << Qt::KeyboardModifiers(Qt::KeypadModifier);
    QTest::newRow("Shift+Return") << Qt::Key_Return << Qt::KeyboardModifiers(Qt::ShiftModifier);
    QTest::newRow("Shift+Enter of the keypad") << Qt::Key_Enter << (Qt::ShiftModifier | Qt::KeypadModifier);
}

void tst_sourcetyping::enterMakesALineEnd()
{
    QFETCH(const Qt::Key, key);
    QFETCH(const Qt::KeyboardModifiers, modifiers);
    editor_->LoadText(QStringLiteral("ab"));
    QTest::keyClick(editor_.get(), Qt::Key_Right);
    QTest::keyClick(editor_.get(), key, modifiers);
    QCOMPARE(editor_->Text(), QStringLiteral("a\r\nb"));
    QCOMPARE(editor_->SelStart(), qsizetype(3));
    QTest::keyClick(editor_.get(), Qt::Key_Backspace);
    QCOMPARE(editor_->Text(), QStringLiteral("ab"));
}

void tst_sourcetyping::tabIsACharacterOfThePage()
{
    QTest::keyClick(editor_.get(), Qt::Key_Tab);
    QCOMPARE(editor_->Text(), QStringLiteral("\t"));
}

void tst_sourcetyping::keysOfMenuEntriesAreLeftToTheMenu()
{
    QMainWindow window;
    auto* const editor = new SourceEditor(&window);
    window.setCentralWidget(editor);
    // Keys that move, select or delete in every editor.
    for (const char* const shortcut : { "Ctrl+A", "Ctrl+End", "Ctrl+Backspace", "Del" }) {
        const QKeySequence keys(QString::fromLatin1(shortcut));
        QAction* const entry = window.menuBar()->addAction(QString::fromLatin1(shortcut));
        entry->setShortcut(keys);
        const QSignalSpy triggered(entry, &QAction::triggered);
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        editor->setFocus();
        editor->LoadText(QStringLiteral("ab cd"));
        editor->Select(2, 0);
        QTest::keyClick(editor, keys[0].key(), keys[0].keyboardModifiers());
        QCOMPARE(triggered.count(), 1);
        QCOMPARE(editor->Text(), QStringLiteral("ab cd"));
        QCOMPARE(editor->SelStart(), qsizetype(2));
        QCOMPARE(editor->SelLength(), qsizetype(0));
    }
}

void tst_sourcetyping::composedLineEndsAreLineEnds()
{
    QInputMethodEvent event;
    event.setCommitString(QStringLiteral("a\r\nb\rc"));
    QApplication::sendEvent(editor_.get(), &event);
    QCOMPARE(editor_->Text(), QStringLiteral("a\r\nb\r\nc"));
    QCOMPARE(editor_->TextLength(), qsizetype(7));
}

void tst_sourcetyping::charactersOfTheLayoutAreShownAsTheyAreSaved_data()
{
    QTest::addColumn<char16_t>("code");
    QTest::newRow("line separator") << char16_t(0x2028);
    QTest::newRow("paragraph separator") << char16_t(0x2029);
    QTest::newRow("beginning of a frame") << char16_t(0xFDD0);
    QTest::newRow("end of a frame") << char16_t(0xFDD1);
}

void tst_sourcetyping::charactersOfTheLayoutAreShownAsTheyAreSaved()
{
    QFETCH(const char16_t, code);
    const QString text = QString(u"a" + QString(QChar(code)) + u"b");
    const QString kept = QStringLiteral("a?b");
    QCOMPARE(AnsiCodePage::Encode(text), kept.toLatin1());
    const auto isKept = [this, &kept] {
        return editor_->Text() == kept && editor_->SelStart() == 3 && editor_->TextLength() == 3;
    };

    editor_->LoadText(text);
    QCOMPARE(editor_->Text(), kept);

    editor_->LoadText(QString());
    editor_->ReplaceSelection(text);
    QVERIFY2(isKept(), "replaced");

    editor_->LoadText(QString());
    QGuiApplication::clipboard()->setText(text);
    QTest::keyClick(editor_.get(), Qt::Key_V, Qt::ControlModifier);
    QVERIFY2(isKept(), "pasted");
    editor_->undo();
    QCOMPARE(editor_->Text(), QString());
    editor_->redo();
    QVERIFY2(isKept(), "pasted again");

    editor_->LoadText(QString());
    for (const QChar character : text) {
        QTest::sendKeyEvent(QTest::Click, editor_.get(), Qt::Key_unknown, QString(character), Qt::NoModifier);
    }
    QVERIFY2(isKept(), "typed");

    editor_->LoadText(QString());
    QInputMethodEvent event;
    event.setCommitString(text);
    QApplication::sendEvent(editor_.get(), &event);
    QVERIFY2(isKept(), "composed");
}

void tst_sourcetyping::pastingRichTextInsertsItsPlainText()
{
    QGuiApplication::clipboard()->setMimeData(RichText().release());
    editor_->LoadText(QStringLiteral("12"));
    QTest::keyClick(editor_.get(), Qt::Key_Right);
    QTest::keyClick(editor_.get(), Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(editor_->Text(), QStringLiteral("1bold\r\n\u00A0italic2"));
    QCOMPARE(editor_->SelStart(), qsizetype(14));
    QVERIFY(!HasFormatting(*editor_));
}

void tst_sourcetyping::pastingFormattingWithoutTextInsertsNothing()
{
    auto data = std::make_unique<QMimeData>();
    data->setHtml(QStringLiteral("<b>bold</b>"));
    data->setImageData(QImage(2, 2, QImage::Format_RGB32));
    QGuiApplication::clipboard()->setMimeData(data.release());
    QSignalSpy change(editor_.get(), &SourceEditor::Change);
    QTest::keyClick(editor_.get(), Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(editor_->Text(), QString());
    QCOMPARE(change.count(), 0);
}

void tst_sourcetyping::droppedTextIsIgnored()
{
    editor_->LoadText(QStringLiteral("12"));
    const QSignalSpy change(editor_.get(), &SourceEditor::Change);
    const std::unique_ptr<QMimeData> data = RichText();
    QTextCursor between(editor_->document());
    between.setPosition(1);
    const QPoint place = editor_->cursorRect(between).center();
    QDragEnterEvent enter(place, Qt::CopyAction, data.get(), Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(editor_->viewport(), &enter);
    QVERIFY(!enter.isAccepted());
    QDropEvent drop(place, Qt::CopyAction, data.get(), Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(editor_->viewport(), &drop);
    QVERIFY(!drop.isAccepted());
    QCOMPARE(editor_->Text(), QStringLiteral("12"));
    QCOMPARE(change.count(), 0);
}

void tst_sourcetyping::pastingReplacesTheSelectionInOneStepOfUndo()
{
    QGuiApplication::clipboard()->setText(QStringLiteral("x\r\ny"));
    editor_->LoadText(QStringLiteral("abc"));
    editor_->Select(1, 1);
    QTest::keyClick(editor_.get(), Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(editor_->Text(), QStringLiteral("ax\r\nyc"));
    QTest::keyClick(editor_.get(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(editor_->Text(), QStringLiteral("abc"));
}

QTEST_MAIN(tst_sourcetyping)
#include "tst_sourcetyping.moc"
