#include "app/SourceEditor.h"
#include "shared/AnsiCodePage.h"

#include <QAbstractTextDocumentLayout>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QMainWindow>
#include <QMenuBar>
#include <QMimeData>
#include <QSignalSpy>
#include <QTest>
#include <QTextBlock>
#include <functional>
#include <limits>
#include <memory>

namespace {

constexpr qsizetype largest = std::numeric_limits<qsizetype>::max();
constexpr qsizetype smallest = std::numeric_limits<qsizetype>::min();

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

class tst_sourceeditor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void lineEndsCountAsTwoCharacters_data();
    void lineEndsCountAsTwoCharacters();
    void everyLineEndBecomesCrLf_data();
    void everyLineEndBecomesCrLf();
    void everyCharacterOfTheCodePageStaysAsItIs();
    void everyPositionIsFoundAgain();
    void selectionTakesTheCharactersGiven_data();
    void selectionTakesTheCharactersGiven();
    void selectionMadeByKeysCountsLineEndsAsTwo();
    void selectionMadeBackwardsStartsAtItsFirstCharacter();
    void noBreakSpacesAreTypedCopiedAndPastedAsTheyAre();
    void nulCharactersStay();
    void charactersOutsideTheBasicPlaneCountAsTwo();

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

    void replacingTheSelectionLeavesTheCaretBehindTheNewText();
    void replacingTheSelectionIsOneStepOfUndo();
    void replacingWithNothingRemovesTheSelection();
    void loadingReplacesEverythingAndCannotBeUndone();

    void changeIsTold_data();
    void changeIsTold();
    void changeIsNotToldForLoading();
    void changeIsNotToldForWhatLeavesTheTextAlone_data();
    void changeIsNotToldForWhatLeavesTheTextAlone();
    void shorteningALineNeverMakesTheLayoutSearchForTheWidest_data();
    void shorteningALineNeverMakesTheLayoutSearchForTheWidest();

private:
    std::unique_ptr<SourceEditor> editor_;
};

void tst_sourceeditor::init()
{
    editor_ = std::make_unique<SourceEditor>();
    editor_->resize(400, 300);
    editor_->show();
    QVERIFY(QTest::qWaitForWindowActive(editor_.get()));
    editor_->setFocus();
}

void tst_sourceeditor::lineEndsCountAsTwoCharacters_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<qsizetype>("length");
    QTest::newRow("empty") << QString() << qsizetype(0);
    QTest::newRow("one character") << "a" << qsizetype(1);
    QTest::newRow("one line end") << "\r\n" << qsizetype(2);
    QTest::newRow("two line ends") << "\r\n\r\n" << qsizetype(4);
    QTest::newRow("two lines") << "ab\r\ncd" << qsizetype(6);
    QTest::newRow("line end at the end") << "ab\r\n" << qsizetype(4);
    QTest::newRow("line end at the start") << "\r\nab" << qsizetype(4);
    QTest::newRow("empty line between") << "a\r\n\r\nb" << qsizetype(6);
}

void tst_sourceeditor::lineEndsCountAsTwoCharacters()
{
    QFETCH(const QString, text);
    QFETCH(const qsizetype, length);
    editor_->LoadText(text);
    QCOMPARE(editor_->Text(), text);
    QCOMPARE(editor_->TextLength(), length);
    editor_->Select(0, length);
    QCOMPARE(editor_->SelText(), text);
    QCOMPARE(editor_->SelLength(), length);
}

void tst_sourceeditor::everyLineEndBecomesCrLf_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    QTest::newRow("CR LF") << "a\r\nb"
                           << "a\r\nb";
    QTest::newRow("lone LF") << "a\nb"
                             << "a\r\nb";
    QTest::newRow("lone CR") << "a\rb"
                             << "a\r\nb";
    QTest::newRow("LF CR is two") << "a\n\rb"
                                  << "a\r\n\r\nb";
    QTest::newRow("CR CR LF is two") << "a\r\r\nb"
                                     << "a\r\n\r\nb";
    QTest::newRow("all kinds") << "\ra\nb\r\nc\n"
                               << "\r\na\r\nb\r\nc\r\n";
}

void tst_sourceeditor::everyLineEndBecomesCrLf()
{
    QFETCH(const QString, text);
    QFETCH(const QString, expected);
    editor_->LoadText(text);
    QCOMPARE(editor_->Text(), expected);

    editor_->LoadText(QString());
    editor_->ReplaceSelection(text);
    QCOMPARE(editor_->Text(), expected);
    QCOMPARE(editor_->SelStart(), expected.size());
}

void tst_sourceeditor::everyCharacterOfTheCodePageStaysAsItIs()
{
    for (int byte = 0; byte < 256; ++byte) {
        if (byte == '\r' || byte == '\n') {
            continue;
        }
        const QString text = u'<' + AnsiCodePage::Decode(QByteArray(1, static_cast<char>(byte))) + u'>';
        editor_->LoadText(text);
        QCOMPARE(editor_->Text(), text);
        QCOMPARE(editor_->TextLength(), qsizetype(3));
        editor_->Select(1, 1);
        QCOMPARE(editor_->SelText(), text.mid(1, 1));

        editor_->LoadText(QString());
        editor_->ReplaceSelection(text);
        QCOMPARE(editor_->Text(), text);
        QCOMPARE(AnsiCodePage::Encode(editor_->Text()).at(1), static_cast<char>(byte));
    }
}

void tst_sourceeditor::everyPositionIsFoundAgain()
{
    const QString text = QStringLiteral("\r\nab\r\n\r\nc\r\n");
    editor_->LoadText(text);
    for (qsizetype position = 0; position <= text.size(); ++position) {
        const bool isBetween = position > 0 && position < text.size() && text[position] == u'\n';
        editor_->Select(position, 0);
        QCOMPARE(editor_->SelStart(), isBetween ? position - 1 : position);
        QCOMPARE(editor_->SelLength(), qsizetype(0));
        QCOMPARE(editor_->SelText(), QString());
    }
}

void tst_sourceeditor::selectionTakesTheCharactersGiven_data()
{
    QTest::addColumn<qsizetype>("start");
    QTest::addColumn<qsizetype>("length");
    QTest::addColumn<qsizetype>("expectedStart");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* name, qsizetype start, qsizetype length, qsizetype expectedStart,
                        const char* expected) {
        QTest::newRow(name) << start << length << expectedStart << QString::fromLatin1(expected);
    };
    // The text is "ab\r\ncd\r\n".
    row("within a line", 0, 1, 0, "a");
    row("a line with its end", 0, 4, 0, "ab\r\n");
    row("across a line end", 1, 4, 1, "b\r\nc");
    row("only a line end", 2, 2, 2, "\r\n");
    row("the second line", 4, 2, 4, "cd");
    row("the last line end", 6, 2, 6, "\r\n");
    row("everything", 0, 8, 0, "ab\r\ncd\r\n");
    row("the end", 8, 0, 8, "");
    row("starting between CR and LF", 3, 3, 2, "\r\ncd");
    row("ending between CR and LF", 0, 3, 0, "ab");
    row("half a line end", 2, 1, 2, "");
    row("longer than the text", 4, 100, 4, "cd\r\n");
    row("behind the text", 100, 1, 8, "");
    row("the longest there is", 1, largest, 1, "b\r\ncd\r\n");
    row("from behind everything, the longest there is", largest, largest, 8, "");
    row("before the text", -5, 0, 0, "");
    row("the first position there is", smallest, 0, 0, "");
    row("a negative length", 4, -1, 4, "");
    row("the least length there is", 4, smallest, 4, "");
    row("nothing but limits", smallest, smallest, 0, "");
}

void tst_sourceeditor::selectionTakesTheCharactersGiven()
{
    QFETCH(const qsizetype, start);
    QFETCH(const qsizetype, length);
    QFETCH(const qsizetype, expectedStart);
    QFETCH(const QString, expected);
    editor_->LoadText(QStringLiteral("ab\r\ncd\r\n"));
    editor_->Select(start, length);
    QCOMPARE(editor_->SelStart(), expectedStart);
    QCOMPARE(editor_->SelText(), expected);
    QCOMPARE(editor_->SelLength(), expected.size());
}

void tst_sourceeditor::selectionMadeByKeysCountsLineEndsAsTwo()
{
    editor_->LoadText(QStringLiteral("ab\r\ncd"));
    QTest::keyClick(editor_.get(), Qt::Key_Down);
    QCOMPARE(editor_->SelStart(), qsizetype(4));
    QTest::keyClick(editor_.get(), Qt::Key_Right);
    QTest::keyClick(editor_.get(), Qt::Key_Up, Qt::ShiftModifier);
    QCOMPARE(editor_->SelStart(), qsizetype(1));
    QCOMPARE(editor_->SelLength(), qsizetype(4));
    QCOMPARE(editor_->SelText(), QStringLiteral("b\r\nc"));
}

void tst_sourceeditor::selectionMadeBackwardsStartsAtItsFirstCharacter()
{
    editor_->LoadText(QStringLiteral("abc"));
    QTest::keyClick(editor_.get(), Qt::Key_End);
    QTest::keyClick(editor_.get(), Qt::Key_Left, Qt::ShiftModifier);
    QTest::keyClick(editor_.get(), Qt::Key_Left, Qt::ShiftModifier);
    QCOMPARE(editor_->SelStart(), qsizetype(1));
    QCOMPARE(editor_->SelText(), QStringLiteral("bc"));
    editor_->ReplaceSelection(QStringLiteral("X"));
    QCOMPARE(editor_->Text(), QStringLiteral("aX"));
}

void tst_sourceeditor::noBreakSpacesAreTypedCopiedAndPastedAsTheyAre()
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

void tst_sourceeditor::nulCharactersStay()
{
    const QString text = QStringLiteral("a") + QChar(u'\0') + QStringLiteral("b\r\n") + QChar(u'\0');
    editor_->LoadText(text);
    QCOMPARE(editor_->Text(), text);
    QCOMPARE(editor_->TextLength(), qsizetype(6));
    editor_->Select(1, 5);
    QCOMPARE(editor_->SelText(), text.mid(1));
    editor_->ReplaceSelection(text);
    QCOMPARE(editor_->Text(), u'a' + text);
}

void tst_sourceeditor::charactersOutsideTheBasicPlaneCountAsTwo()
{
    const QString text = QStringLiteral("a\U0001F600b");
    editor_->LoadText(text);
    QCOMPARE(editor_->Text(), text);
    QCOMPARE(editor_->TextLength(), qsizetype(4));
    QTest::keyClick(editor_.get(), Qt::Key_Right);
    QTest::keyClick(editor_.get(), Qt::Key_Right);
    QCOMPARE(editor_->SelStart(), qsizetype(3));
}

void tst_sourceeditor::enterMakesALineEnd_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::newRow("Return") << Qt::Key_Return << Qt::KeyboardModifiers();
    QTest::newRow("Enter of the keypad") << Qt::Key_Enter << Qt::KeyboardModifiers(Qt::KeypadModifier);
    QTest::newRow("Shift+Return") << Qt::Key_Return << Qt::KeyboardModifiers(Qt::ShiftModifier);
    QTest::newRow("Shift+Enter of the keypad") << Qt::Key_Enter << (Qt::ShiftModifier | Qt::KeypadModifier);
}

void tst_sourceeditor::enterMakesALineEnd()
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

void tst_sourceeditor::tabIsACharacterOfThePage()
{
    QTest::keyClick(editor_.get(), Qt::Key_Tab);
    QCOMPARE(editor_->Text(), QStringLiteral("\t"));
}

void tst_sourceeditor::keysOfMenuEntriesAreLeftToTheMenu()
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

void tst_sourceeditor::composedLineEndsAreLineEnds()
{
    QInputMethodEvent event;
    event.setCommitString(QStringLiteral("a\r\nb\rc"));
    QApplication::sendEvent(editor_.get(), &event);
    QCOMPARE(editor_->Text(), QStringLiteral("a\r\nb\r\nc"));
    QCOMPARE(editor_->TextLength(), qsizetype(7));
}

void tst_sourceeditor::charactersOfTheLayoutAreShownAsTheyAreSaved_data()
{
    QTest::addColumn<char16_t>("code");
    QTest::newRow("line separator") << char16_t(0x2028);
    QTest::newRow("paragraph separator") << char16_t(0x2029);
    QTest::newRow("beginning of a frame") << char16_t(0xFDD0);
    QTest::newRow("end of a frame") << char16_t(0xFDD1);
}

void tst_sourceeditor::charactersOfTheLayoutAreShownAsTheyAreSaved()
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

void tst_sourceeditor::pastingRichTextInsertsItsPlainText()
{
    QGuiApplication::clipboard()->setMimeData(RichText().release());
    editor_->LoadText(QStringLiteral("12"));
    QTest::keyClick(editor_.get(), Qt::Key_Right);
    QTest::keyClick(editor_.get(), Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(editor_->Text(), QStringLiteral("1bold\r\n\u00A0italic2"));
    QCOMPARE(editor_->SelStart(), qsizetype(14));
    QVERIFY(!HasFormatting(*editor_));
}

void tst_sourceeditor::pastingFormattingWithoutTextInsertsNothing()
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

void tst_sourceeditor::droppedTextIsIgnored()
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

void tst_sourceeditor::pastingReplacesTheSelectionInOneStepOfUndo()
{
    QGuiApplication::clipboard()->setText(QStringLiteral("x\r\ny"));
    editor_->LoadText(QStringLiteral("abc"));
    editor_->Select(1, 1);
    QTest::keyClick(editor_.get(), Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(editor_->Text(), QStringLiteral("ax\r\nyc"));
    QTest::keyClick(editor_.get(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(editor_->Text(), QStringLiteral("abc"));
}

void tst_sourceeditor::replacingTheSelectionLeavesTheCaretBehindTheNewText()
{
    editor_->LoadText(QStringLiteral("ab\r\ncd"));
    editor_->Select(1, 4);
    editor_->ReplaceSelection(QStringLiteral("<B>\r\n</B>\r\n"));
    QCOMPARE(editor_->Text(), QStringLiteral("a<B>\r\n</B>\r\nd"));
    QCOMPARE(editor_->SelStart(), qsizetype(12));
    QCOMPARE(editor_->SelLength(), qsizetype(0));
    QTest::keyClicks(editor_.get(), QStringLiteral("X"));
    QCOMPARE(editor_->Text(), QStringLiteral("a<B>\r\n</B>\r\nXd"));
}

void tst_sourceeditor::replacingTheSelectionIsOneStepOfUndo()
{
    editor_->LoadText(QStringLiteral("abc"));
    QTest::keyClick(editor_.get(), Qt::Key_End);
    QTest::keyClicks(editor_.get(), QStringLiteral("d"));
    editor_->Select(1, 2);
    editor_->ReplaceSelection(QStringLiteral("1\r\n2"));
    editor_->ReplaceSelection(QStringLiteral("3"));
    QCOMPARE(editor_->Text(), QStringLiteral("a1\r\n23d"));
    QTest::keyClick(editor_.get(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(editor_->Text(), QStringLiteral("a1\r\n2d"));
    QTest::keyClick(editor_.get(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(editor_->Text(), QStringLiteral("abcd"));
    QTest::keyClick(editor_.get(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(editor_->Text(), QStringLiteral("abc"));
}

void tst_sourceeditor::replacingWithNothingRemovesTheSelection()
{
    editor_->LoadText(QStringLiteral("ab\r\ncd"));
    editor_->Select(2, 2);
    editor_->ReplaceSelection(QString());
    QCOMPARE(editor_->Text(), QStringLiteral("abcd"));
    QCOMPARE(editor_->SelStart(), qsizetype(2));
}

void tst_sourceeditor::loadingReplacesEverythingAndCannotBeUndone()
{
    QTest::keyClicks(editor_.get(), QStringLiteral("old"));
    editor_->LoadText(QStringLiteral("new\r\n"));
    QCOMPARE(editor_->SelStart(), qsizetype(0));
    QTest::keyClick(editor_.get(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(editor_->Text(), QStringLiteral("new\r\n"));
    editor_->LoadText(QString());
    QTest::keyClick(editor_.get(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(editor_->Text(), QString());
}

using Edit = std::function<void(SourceEditor&)>;

void tst_sourceeditor::changeIsTold_data()
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

void tst_sourceeditor::changeIsTold()
{
    QFETCH(const Edit, edit);
    editor_->LoadText(QStringLiteral("abc\r\ndef"));
    const QSignalSpy change(editor_.get(), &SourceEditor::Change);
    edit(*editor_);
    QVERIFY(change.count() > 0);
}

void tst_sourceeditor::changeIsNotToldForLoading()
{
    QTest::keyClicks(editor_.get(), QStringLiteral("old"));
    const QSignalSpy change(editor_.get(), &SourceEditor::Change);
    editor_->LoadText(QStringLiteral("new"));
    editor_->LoadText(QString());
    QTest::qWait(20);
    QCOMPARE(change.count(), 0);
}

void tst_sourceeditor::changeIsNotToldForWhatLeavesTheTextAlone_data()
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

void tst_sourceeditor::changeIsNotToldForWhatLeavesTheTextAlone()
{
    QFETCH(const Edit, act);
    editor_->LoadText(QStringLiteral("abc\r\ndef"));
    const QSignalSpy change(editor_.get(), &SourceEditor::Change);
    act(*editor_);
    QTest::qWait(20);
    QCOMPARE(editor_->Text(), QStringLiteral("abc\r\ndef"));
    QCOMPARE(change.count(), 0);
}

void tst_sourceeditor::shorteningALineNeverMakesTheLayoutSearchForTheWidest_data()
{
    QTest::addColumn<QString>("lastLine");
    QTest::addColumn<bool>("isShownBefore");
    QTest::newRow("ending with a line end") << QString() << false;
    QTest::newRow("ending with a line") << QStringLiteral("the last line") << false;
    QTest::newRow("loaded into the shown editor") << QString() << true;
}

void tst_sourceeditor::shorteningALineNeverMakesTheLayoutSearchForTheWidest()
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

QTEST_MAIN(tst_sourceeditor)
#include "tst_sourceeditor.moc"
