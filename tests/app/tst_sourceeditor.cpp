#include "shared/AnsiCodePage.h"
#include "tests/app/SourceEditorFixture.h"

#include <QSignalSpy>

#include <limits>

namespace {

constexpr qsizetype largest = std::numeric_limits<qsizetype>::max();

constexpr qsizetype smallest = std::numeric_limits<qsizetype>::min();

} // namespace

class tst_sourceeditor : public SourceEditorFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Start(); }

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
    void nulCharactersStay();
    void charactersOutsideTheBasicPlaneCountAsTwo();

    void replacingTheSelectionLeavesTheCaretBehindTheNewText();
    void replacingTheSelectionIsOneStepOfUndo();
    void replacingWithNothingRemovesTheSelection();
    void manyReplacementsAreOneStepOfUndo();
    void manyReplacementsLeaveTheCaretWithItsText();
    void manyReplacementsJoinAStepThatIsBeingMade();
    void loadingReplacesEverythingAndCannotBeUndone();
};

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

void tst_sourceeditor::manyReplacementsAreOneStepOfUndo()
{
    constexpr int lines = 2000;
    const QString text = QStringLiteral("one two\r\n").repeated(lines);
    QList<TextReplacement> replacements;
    for (int line = 0; line < lines; ++line) {
        replacements << TextReplacement{ { line * 9 + 4, 3 }, QStringLiteral("three") };
    }
    editor_->LoadText(text);
    const QSignalSpy change(editor_.get(), &SourceEditor::Change);
    editor_->Replace(replacements);
    QCOMPARE(editor_->Text(), QStringLiteral("one three\r\n").repeated(lines));
    QCOMPARE(change.count(), 1);
    editor_->undo();
    QCOMPARE(editor_->Text(), text);
    QVERIFY(!editor_->document()->isUndoAvailable());
    editor_->redo();
    QCOMPARE(editor_->Text(), QStringLiteral("one three\r\n").repeated(lines));
    editor_->Replace({});
    editor_->undo();
    QCOMPARE(editor_->Text(), text);
}

void tst_sourceeditor::manyReplacementsLeaveTheCaretWithItsText()
{
    editor_->LoadText(QStringLiteral("one two one"));
    editor_->Select(4, 3);
    editor_->Replace({ { { 0, 3 }, QStringLiteral("number") }, { { 8, 3 }, QString() } });
    QCOMPARE(editor_->SelText(), QStringLiteral("two"));
    QCOMPARE(editor_->SelStart(), qsizetype(7));
}

void tst_sourceeditor::manyReplacementsJoinAStepThatIsBeingMade()
{
    editor_->LoadText(QStringLiteral("abc"));
    {
        const SourceEditor::UndoStep step(*editor_);
        editor_->ReplaceSelection(QStringLiteral("x"));
        editor_->Replace({ { { 1, 1 }, QStringLiteral("A") }, { { 3, 1 }, QStringLiteral("C") } });
    }
    QCOMPARE(editor_->Text(), QStringLiteral("xAbC"));
    editor_->undo();
    QCOMPARE(editor_->Text(), QStringLiteral("abc"));
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

QTEST_MAIN(tst_sourceeditor)
#include "tst_sourceeditor.moc"
