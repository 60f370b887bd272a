// Lines that are in several blocks of the document: nobody is to notice.

#include "app/SyntaxColours.h"
#include "app/source/LongLines.h"
#include "app/source/TextSnapshot.h"
#include "tests/app/LongLinesFixture.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QTextLayout>

using namespace std::chrono_literals;

class tst_longlines : public LongLinesFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Start(); }
    void cleanup() { editor_.reset(); }

    void onlyLongLinesAreInPieces();
    void textsComeBackAsTheyWere_data();
    void textsComeBackAsTheyWere();
    void snapshotsHaveNoJoints();
    void mixedLineEndsStayWithTheirLines();
    void theCaretHasNoPlaceTwice();
    void backspaceAndDeleteTakeACharacterAtAJoint();
    void typedTextIsUndoneWithItsCut();
    void typingMakesALongLineAndDeletingAShortOne();
    void rowsEndInFrontOfTheirLastCharacter();
    void unwrappedLinesHaveTheirOwnEnds();
    void wordsGoOnBehindAJoint();
    void threeClicksSelectTheWholeLine();
    void copiedTextHasNoLineEndOfItsOwn();
    void whatIsOneCharacterIsNotCut_data();
    void whatIsOneCharacterIsNotCut();
    void composedTextFits();
    void coloursGoOnBehindAJoint();
    void aLineOfFiftyMegabytesOpens();

private:
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(editor_.get(), key, modifiers);
    }
};

void tst_longlines::onlyLongLinesAreInPieces()
{
    editor_->LoadText(MarkupLine(longLine - 1) + u'\n' + MarkupLine(longLine - 1));
    QCOMPARE(Joints(), 0);
    editor_->LoadText(MarkupLine(longLine - 1) + u'\n' + MarkupLine(longLine));
    QVERIFY(Joints() > 0);
    QCOMPARE(LineCount(*editor_->document()), 2);
    QCOMPARE(Trouble(), QString());
}

void tst_longlines::textsComeBackAsTheyWere_data()
{
    QTest::addColumn<QString>("text");
    const QString line = MarkupLine(25'000);
    QTest::newRow("alone") << line;
    QTest::newRow("first") << line + QStringLiteral("\r\nshort");
    QTest::newRow("last") << QStringLiteral("short\r\n\r\n") + line;
    QTest::newRow("between") << QStringLiteral("a\r\n") + line + QStringLiteral("\r\n\r\n") + line +
                                    QStringLiteral("\r\n");
    QTest::newRow("blanks") << QString(25'000, u' ');
    QTest::newRow("no-break spaces") << QString(25'000, QChar::Nbsp);
    QTest::newRow("tabs") << QString(25'000, u'\t');
    QTest::newRow("wide") << QString(25'000, u'\u65E5');
    QTest::newRow("marks alone") << QString(25'000, u'\u0301');
    QTest::newRow("lone halves") << QString(25'000, QChar(0xD800)) + QString(25'000, QChar(0xDC00));
}

void tst_longlines::textsComeBackAsTheyWere()
{
    QFETCH(const QString, text);
    editor_->LoadText(text);
    QVERIFY(Joints() > 0);
    QVERIFY(editor_->Text() == text);
    QVERIFY(editor_->TextAsLoaded() == text);
    QCOMPARE(editor_->TextLength(), text.size());
    editor_->Select(0, text.size());
    QCOMPARE(editor_->SelLength(), text.size());
    QVERIFY(editor_->SelText() == text);
    for (const qsizetype place : { qsizetype(0), text.size() / 3, text.size() / 2, text.size() }) {
        editor_->Select(place, 0);
        QVERIFY(std::abs(editor_->SelStart() - place) <= 1); // between CR and LF there is no place
    }
}

void tst_longlines::snapshotsHaveNoJoints()
{
    const QString text = MarkupLine(100'000) + QStringLiteral("\r\nb\r\n") + MarkupLine(30'000);
    editor_->LoadText(text);
    const std::unique_ptr<TextSnapshot> snapshot = editor_->BeginSnapshot();
    while (!snapshot->CopyFor(1ms)) {
    }
    QVERIFY(snapshot->Pieces().join(QString()) == text);
}

void tst_longlines::mixedLineEndsStayWithTheirLines()
{
    const QString text = MarkupLine(12'000) + u'\n' + MarkupLine(15'000) + QStringLiteral("\r\nc\r") +
                         MarkupLine(11'000) + QStringLiteral("\r\nd\r\ne\n");
    editor_->LoadText(text);
    QVERIFY(editor_->TextAsLoaded() == text);
    // From inside of the first line into the second, which ends as the first does then.
    Place(5'000, 20'000);
    Press(Qt::Key_Delete);
    QVERIFY(
        editor_->TextAsLoaded() ==
        text.first(5'000) + text.sliced(20'000, 7'001) + u'\n' + text.sliced(27'003));
    editor_->undo();
    QVERIFY(editor_->TextAsLoaded() == text);
}

void tst_longlines::theCaretHasNoPlaceTwice()
{
    editor_->LoadText(MarkupLine(20'000));
    Place(JointPlace(2) - 2, JointPlace(2) - 2);
    for (int i = -1; i <= 2; ++i) {
        Press(Qt::Key_Right);
        QCOMPARE(Caret(), JointPlace(2) + i);
    }
    for (int i = 1; i >= -2; --i) {
        Press(Qt::Key_Left);
        QCOMPARE(Caret(), JointPlace(2) + i);
    }
    Place(JointPlace(2) + 2, JointPlace(2) + 2);
    for (int i = 1; i >= -2; --i) {
        Press(Qt::Key_Left, Qt::ShiftModifier);
        QCOMPARE(Caret(), JointPlace(2) + i);
        QCOMPARE(editor_->SelLength(), 2 - i);
    }
    Place(JointPlace(2) + 2, JointPlace(2));
    Press(Qt::Key_Left); // gives up the selection
    QCOMPARE(Caret(), JointPlace(2));
}

void tst_longlines::backspaceAndDeleteTakeACharacterAtAJoint()
{
    const QString text = MarkupLine(20'000);
    editor_->LoadText(text);
    const int place = JointPlace(1);
    Place(place, place);
    Press(Qt::Key_Backspace);
    QVERIFY(Lines() == QString(text).remove(place - 1, 1));
    QCOMPARE(Caret(), place - 1);
    editor_->undo();
    QVERIFY(Lines() == text);
    QCOMPARE(Caret(), place);
    Press(Qt::Key_Delete);
    QVERIFY(Lines() == QString(text).remove(place, 1));
    Press(Qt::Key_Backspace, Qt::ControlModifier);
    QCOMPARE(Trouble(), QString());
    editor_->undo();
    editor_->undo();
    QVERIFY(Lines() == text);
}

void tst_longlines::typedTextIsUndoneWithItsCut()
{
    const QString text = MarkupLine(20'000);
    editor_->LoadText(text);
    const qsizetype joints = Joints();
    Place(1'000, 1'000);
    for (int i = 0; i < mostInPiece; ++i) {
        Press(Qt::Key_X);
    }
    QCOMPARE(Caret(), 1'000 + mostInPiece);
    QVERIFY(Joints() > joints);
    QCOMPARE(Trouble(), QString());
    QString before = Lines();
    for (int steps = 0; Lines() != text; ++steps) {
        QVERIFY(steps < 10);
        editor_->undo();
        QVERIFY(Lines() != before); // no step is empty
        before = Lines();
    }
    QCOMPARE(Joints(), joints);
    QVERIFY(!editor_->document()->isUndoAvailable());
}

void tst_longlines::typingMakesALongLineAndDeletingAShortOne()
{
    editor_->LoadText(MarkupLine(longLine - 1));
    Place(500, 500);
    Press(Qt::Key_X);
    QVERIFY(Joints() > 0);
    QCOMPARE(Caret(), 501);
    Press(Qt::Key_Backspace);
    QCOMPARE(Joints(), 0);
    QCOMPARE(Caret(), 500);
    editor_->undo();
    QVERIFY(Joints() > 0);
    Press(Qt::Key_Return);
    QCOMPARE(Joints(), 0);
    QCOMPARE(LineCount(*editor_->document()), 2);
    Press(Qt::Key_Backspace);
    QVERIFY(Joints() > 0);
    QCOMPARE(LineCount(*editor_->document()), 1);
}

void tst_longlines::rowsEndInFrontOfTheirLastCharacter()
{
    editor_->LoadText(QStringLiteral("abcd ").repeated(4'000));
    const int joint = JointPlace(0);
    Place(joint - 3, joint - 3);
    const int row = editor_->cursorRect().top();
    Press(Qt::Key_End);
    QCOMPARE(editor_->cursorRect().top(), row);
    QCOMPARE(Caret(), joint - 1);
    Press(Qt::Key_Up);
    Press(Qt::Key_Down);
    QCOMPARE(editor_->cursorRect().top(), row);
    Place(joint, joint);
    Press(Qt::Key_Home);
    QCOMPARE(Caret(), joint);
}

void tst_longlines::unwrappedLinesHaveTheirOwnEnds()
{
    editor_->setLineWrapMode(QPlainTextEdit::NoWrap);
    editor_->LoadText(QStringLiteral("a\n") + MarkupLine(20'000) + QStringLiteral("\nb"));
    Place(7'000, 7'000);
    Press(Qt::Key_End);
    QCOMPARE(Caret(), 20'002);
    Press(Qt::Key_Home, Qt::ShiftModifier);
    QCOMPARE(Caret(), 2);
    QCOMPARE(editor_->SelLength(), 20'000);
}

void tst_longlines::wordsGoOnBehindAJoint()
{
    const QString text = QString(20'000, u'a') + QStringLiteral(" b");
    editor_->LoadText(text);
    QVERIFY(Joints() > 0);
    Place(JointPlace(0) - 5, JointPlace(0) - 5);
    Press(Qt::Key_Right, Qt::ControlModifier);
    QVERIFY(Caret() > JointPlace(0));
    editor_->LoadText(QStringLiteral("abcd ").repeated(4'000));
    for (int joint = 0; joint < 3; ++joint) {
        const int place = JointPlace(joint) / 5 * 5;
        Place(place - 5, place - 5);
        for (int i = 0; i < 3; ++i) {
            Press(Qt::Key_Right, Qt::ControlModifier);
            QCOMPARE(Caret(), place + 5 * i);
        }
        for (int i = 1; i >= -1; --i) {
            Press(Qt::Key_Left, Qt::ControlModifier);
            QCOMPARE(Caret(), place + 5 * i);
        }
    }
}

void tst_longlines::threeClicksSelectTheWholeLine()
{
    editor_->LoadText(QStringLiteral("a\n") + MarkupLine(20'000) + QStringLiteral("\nb"));
    Place(9'000, 9'000);
    const QPoint place = editor_->cursorRect().center();
    QTest::mouseDClick(editor_->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseClick(editor_->viewport(), Qt::LeftButton, {}, place);
    QCOMPARE(editor_->SelStart(), 3);
    QVERIFY(editor_->SelLength() == 20'000 || editor_->SelLength() == 20'002);
}

void tst_longlines::copiedTextHasNoLineEndOfItsOwn()
{
    const QString text = QStringLiteral("a\n") + MarkupLine(20'000) + QStringLiteral("\nb");
    editor_->LoadText(text);
    editor_->selectAll();
    Press(Qt::Key_C, Qt::ControlModifier);
    QVERIFY(QGuiApplication::clipboard()->text() == text);
}

void tst_longlines::whatIsOneCharacterIsNotCut_data()
{
    QTest::addColumn<QString>("character");
    QTest::newRow("pair") << QString::fromUtf8("\xF0\x9F\x98\x80");
    QTest::newRow("with a mark") << QString::fromUtf8("e\xCC\x81");
    QTest::newRow("with three marks") << QString::fromUtf8("e\xCC\x81\xCC\x82\xCC\x83");
    QTest::newRow("blank with a mark") << QString::fromUtf8(" \xCC\x81");
    QTest::newRow("joined") << QString::fromUtf8("\xF0\x9F\x91\xA9\xE2\x80\x8D\xF0\x9F\x91\xA7");
}

void tst_longlines::whatIsOneCharacterIsNotCut()
{
    QFETCH(const QString, character);
    editor_->LoadText(character.repeated(longLine));
    QVERIFY(Joints() > 0);
    for (int i = 0; i < Joints(); ++i) {
        QCOMPARE(JointPlace(i) % character.size(), 0);
    }
    QCOMPARE(Trouble(), QString());
}

void tst_longlines::composedTextFits()
{
    editor_->LoadText(MarkupLine(longLine - 1));
    Place(500, 500);
    QInputMethodEvent event(QStringLiteral("b"), {});
    event.setCommitString(QStringLiteral("a"));
    QCoreApplication::sendEvent(editor_.get(), &event);
    QVERIFY(Joints() > 0);
    QCOMPARE(Caret(), 501);
    QCOMPARE(editor_->textCursor().block().layout()->preeditAreaText(), QStringLiteral("b"));
    QVERIFY(Lines() == MarkupLine(longLine - 1).insert(500, u'a'));
}

void tst_longlines::coloursGoOnBehindAJoint()
{
    SyntaxColours colours(*editor_);
    // In lines of their own, and in one; the blanks between are where it may be cut.
    const QString part = QStringLiteral("<p class=\"note\">Some &amp; <b>more</b></p> <!-- a remark --> ");
    editor_->LoadText(QString(part + u'\n').repeated(3));
    QTRY_VERIFY(!editor_->document()->firstBlock().layout()->formats().isEmpty());
    const auto formats = editor_->document()->firstBlock().layout()->formats();
    editor_->LoadText(part.repeated(500));
    Press(Qt::Key_End, Qt::ControlModifier);
    const QTextBlock last = editor_->document()->lastBlock();
    QTRY_VERIFY(!last.layout()->formats().isEmpty());
    const qsizetype start = last.text().indexOf(QStringLiteral("<p"));
    for (const QTextLayout::FormatRange& range : formats) {
        QTextLayout::FormatRange there = range;
        there.start += static_cast<int>(start);
        QVERIFY(last.layout()->formats().contains(there));
    }
}

void tst_longlines::aLineOfFiftyMegabytesOpens()
{
    const QString line = MarkupLine(50'000'000);
    editor_->LoadText(line);
    QCOMPARE(editor_->TextLength(), line.size());
    Press(Qt::Key_End, Qt::ControlModifier);
    Press(Qt::Key_X);
    QCOMPARE(editor_->SelStart(), line.size() + 1);
    editor_->undo();
    QVERIFY(editor_->Text() == line);
}

QTEST_MAIN(tst_longlines)
#include "tst_longlines.moc"
