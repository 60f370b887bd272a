#include "app/LongLineKeys.h"

#include "app/EditorClipboard.h"
#include "app/SourceEditor.h"
#include "app/source/LineFitter.h"
#include "app/source/LongLines.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QTextBlock>
#include <QTextLayout>
#include <algorithm>
#include <array>

namespace {

using Operation = QTextCursor::MoveOperation;
using enum QTextCursor::MoveMode;

/** A key that moves the caret, and where to. */
struct MoveKey
{
    QKeySequence::StandardKey Key;
    Operation Way;
    QTextCursor::MoveMode Mode;
};

constexpr std::array moveKeys = {
    MoveKey{ QKeySequence::MoveToNextChar, Operation::Right, MoveAnchor },
    MoveKey{ QKeySequence::SelectNextChar, Operation::Right, KeepAnchor },
    MoveKey{ QKeySequence::MoveToPreviousChar, Operation::Left, MoveAnchor },
    MoveKey{ QKeySequence::SelectPreviousChar, Operation::Left, KeepAnchor },
    MoveKey{ QKeySequence::MoveToNextWord, Operation::WordRight, MoveAnchor },
    MoveKey{ QKeySequence::SelectNextWord, Operation::WordRight, KeepAnchor },
    MoveKey{ QKeySequence::MoveToPreviousWord, Operation::WordLeft, MoveAnchor },
    MoveKey{ QKeySequence::SelectPreviousWord, Operation::WordLeft, KeepAnchor },
    MoveKey{ QKeySequence::MoveToStartOfLine, Operation::StartOfLine, MoveAnchor },
    MoveKey{ QKeySequence::SelectStartOfLine, Operation::StartOfLine, KeepAnchor },
    MoveKey{ QKeySequence::MoveToEndOfLine, Operation::EndOfLine, MoveAnchor },
    MoveKey{ QKeySequence::SelectEndOfLine, Operation::EndOfLine, KeepAnchor },
    MoveKey{ QKeySequence::MoveToStartOfBlock, Operation::StartOfBlock, MoveAnchor },
    MoveKey{ QKeySequence::SelectStartOfBlock, Operation::StartOfBlock, KeepAnchor },
    MoveKey{ QKeySequence::MoveToEndOfBlock, Operation::EndOfBlock, MoveAnchor },
    MoveKey{ QKeySequence::SelectEndOfBlock, Operation::EndOfBlock, KeepAnchor },
};

/** A key that removes something; without a selection what is between the caret and where it moves. */
struct RemoveKey
{
    QKeySequence::StandardKey Key;
    Operation Way;
};

constexpr std::array removeKeys = {
    RemoveKey{ QKeySequence::Delete, Operation::NextCharacter },
    RemoveKey{ QKeySequence::DeleteStartOfWord, Operation::PreviousWord },
    RemoveKey{ QKeySequence::DeleteEndOfWord, Operation::NextWord },
    RemoveKey{ QKeySequence::DeleteEndOfLine, Operation::EndOfBlock },
};

bool HasJoints(const SourceEditor& editor)
{
    return LineCount(*editor.document()) != editor.blockCount();
}

bool IsPiece(const QTextBlock& block)
{
    return BeginsAtJoint(block) || EndsAtJoint(block);
}

int EndOf(const QTextBlock& block)
{
    return block.position() + block.length() - 1;
}

bool IsInFrontOfJoint(const QTextCursor& caret, int position)
{
    const QTextBlock block = caret.document()->findBlock(position);
    return position == EndOf(block) && EndsAtJoint(block);
}

bool IsBehindJoint(const QTextCursor& caret)
{
    return caret.atBlockStart() && BeginsAtJoint(caret.block());
}

bool IsForward(Operation way, const QTextBlock& block)
{
    const bool isRight = way == Operation::Right || way == Operation::WordRight;
    const bool isToTheSide = isRight || way == Operation::Left || way == Operation::WordLeft;
    return isToTheSide ? isRight == (block.textDirection() == Qt::LeftToRight)
                       : way == Operation::NextWord || way == Operation::NextCharacter;
}

/** Moves by a word, which may go on in the pieces beside the caret's. */
void MoveByWord(QTextCursor& caret, bool isForward, QTextCursor::MoveMode mode)
{
    const QTextBlock block = caret.block();
    const QTextBlock before = BeginsAtJoint(block) ? block.previous() : QTextBlock();
    const QTextBlock behind = EndsAtJoint(block) ? block.next() : QTextBlock();
    const auto ownStart = static_cast<int>(before.text().size());
    const int ownEnd = ownStart + block.length() - 1;
    const int place = ownStart + caret.positionInBlock();
    const QString text = before.text() + block.text() + behind.text();
    if (place == (isForward ? text.size() : 0)) {
        caret.movePosition(isForward ? Operation::NextWord : Operation::PreviousWord, mode);
        return;
    }
    const QTextLayout layout(text);
    const int to = isForward ? layout.nextCursorPosition(place, QTextLayout::SkipWords)
                             : layout.previousCursorPosition(place, QTextLayout::SkipWords);
    const bool isBehind = behind.isValid() && to >= ownEnd;
    caret.setPosition(
        to < ownStart ? before.position() + to
        : isBehind    ? behind.position() + to - ownEnd
                      : block.position() + to - ownStart,
        mode);
}

/** Moves the caret, which is in a piece; a row is one that is seen. */
void MoveInPieces(QTextCursor& caret, Operation way, QTextCursor::MoveMode mode)
{
    const QTextBlock block = caret.block();
    switch (way) {
    case Operation::WordLeft:
    case Operation::WordRight:
    case Operation::NextWord:
    case Operation::PreviousWord:
        MoveByWord(caret, IsForward(way, block), mode);
        break;
    case Operation::StartOfBlock:
        caret.setPosition(FirstPieceOf(block).position(), mode);
        break;
    case Operation::EndOfBlock:
        caret.setPosition(EndOf(LastPieceOf(block)), mode);
        break;
    case Operation::EndOfLine:
        caret.movePosition(way, mode);
        if (IsInFrontOfJoint(caret, caret.position())) {
            caret.movePosition(Operation::PreviousCharacter, mode); // as at the end of every row but the last
        }
        break;
    default:
        // A selection that is given up leaves the caret at its side.
        if (IsBehindJoint(caret) && !IsForward(way, block) && way != Operation::StartOfLine &&
            (mode == KeepAnchor || !caret.hasSelection())) {
            caret.setPosition(caret.position() - 1, mode);
        }
        caret.movePosition(way, mode);
        break;
    }
    if (IsInFrontOfJoint(caret, caret.position())) {
        caret.setPosition(caret.position() + 1, mode);
    }
}

bool IsBackspace(const QKeyEvent& key)
{
    const Qt::KeyboardModifiers other = key.modifiers() & ~(Qt::ShiftModifier | Qt::GroupSwitchModifier);
    return key.key() == Qt::Key_Backspace && other == Qt::NoModifier;
}

/** Selects the character before the caret, of which Backspace takes what was typed last. */
void SelectBack(QTextCursor& caret)
{
    const int end = caret.position() - (IsBehindJoint(caret) ? 1 : 0);
    const QTextDocument& document = *caret.document();
    const bool isPair = end > 1 && document.characterAt(end - 1).isLowSurrogate() &&
                        document.characterAt(end - 2).isHighSurrogate();
    caret.setPosition(std::max(end - (isPair ? 2 : 1), 0));
    caret.setPosition(end, KeepAnchor);
}

/** Selects the whole line, with the line end if there is one. */
void SelectLine(QTextCursor& caret)
{
    const QTextBlock last = LastPieceOf(caret.block());
    caret.setPosition(FirstPieceOf(caret.block()).position());
    caret.setPosition(EndOf(last) + (last.next().isValid() ? 1 : 0), KeepAnchor);
}

/** Whether `key` removes more than a character; without a selection. */
bool RemovesMore(const QKeyEvent& key)
{
    return !IsBackspace(key) && !key.matches(QKeySequence::Delete);
}

/** Selects what `key` removes; false if that is nothing. */
bool SelectRemoved(QTextCursor& caret, const QKeyEvent& key)
{
    if (key.matches(QKeySequence::DeleteCompleteLine)) {
        SelectLine(caret);
        return caret.hasSelection();
    }
    const auto* const found =
        std::ranges::find_if(removeKeys, [&key](const RemoveKey& one) { return key.matches(one.Key); });
    if (!IsBackspace(key) && found == removeKeys.end()) {
        return false;
    }
    if (caret.hasSelection()) {
        return true;
    }
    if (IsBackspace(key)) {
        SelectBack(caret);
    } else if (IsPiece(caret.block())) {
        const bool isAtEnd = caret.position() == EndOf(LastPieceOf(caret.block()));
        MoveInPieces(caret, isAtEnd ? Operation::NextCharacter : found->Way, KeepAnchor);
    } else {
        caret.movePosition(caret.atBlockEnd() ? Operation::NextCharacter : found->Way, KeepAnchor);
    }
    return caret.hasSelection();
}

/** Whether the editor takes `key` for text. */
bool IsTyped(const QKeyEvent& key)
{
    const Qt::KeyboardModifiers modifiers = key.modifiers() & ~Qt::ShiftModifier;
    if (key.text().isEmpty() || modifiers == Qt::ControlModifier) {
        return false;
    }
    const QChar first = key.text().front();
    return first.isPrint() || first == u'\t' || first.category() == QChar::Other_Format ||
           first.category() == QChar::Other_PrivateUse;
}

} // namespace

LongLineKeys::LongLineKeys(SourceEditor& editor)
    : editor_(editor)
{
}

bool LongLineKeys::Press(const QKeyEvent& key)
{
    LeaveJoint(false); // undoing may have put the caret there
    return IsTyped(key) ? PutIn(key) : Remove(key) || PutIn(key) || Move(key);
}

/** Removes what `key` does, if it is one that removes, where the editor's own way would not be right. */
bool LongLineKeys::Remove(const QKeyEvent& key)
{
    QTextCursor removed = editor_.textCursor();
    const bool isOwn = IsPiece(removed.block()) && !removed.hasSelection() && RemovesMore(key);
    if (!SelectRemoved(removed, key) || (!isOwn && !NeedsFitting(removed, {}))) {
        return false;
    }
    editor_.Replace(removed, QString());
    return true;
}

bool LongLineKeys::PutIn(const QKeyEvent& key)
{
    const QTextCursor caret = editor_.textCursor();
    if (key.matches(QKeySequence::InsertParagraphSeparator)) {
        if (!IsPiece(caret.block()) && !NeedsFitting(caret, {})) {
            return false;
        }
        editor_.ReplaceSelection(QStringLiteral("\n"));
        return true;
    }
    if (!IsTyped(key) || !NeedsFitting(caret, key.text())) {
        return false;
    }
    editor_.ReplaceSelection(key.text());
    return true;
}

bool LongLineKeys::Move(const QKeyEvent& key)
{
    QTextCursor caret = editor_.textCursor();
    if (!IsPiece(caret.block())) {
        return false;
    }
    const auto* const found =
        std::ranges::find_if(moveKeys, [&key](const MoveKey& one) { return key.matches(one.Key); });
    if (found == moveKeys.end()) {
        return false;
    }
    Operation way = found->Way;
    if (editor_.lineWrapMode() == QPlainTextEdit::NoWrap) {
        way = way == Operation::StartOfLine ? Operation::StartOfBlock
              : way == Operation::EndOfLine ? Operation::EndOfBlock
                                            : way;
    }
    caret.setVisualNavigation(true);
    MoveInPieces(caret, way, found->Mode);
    editor_.setTextCursor(caret);
    editor_.ensureCursorVisible();
    return true;
}

void LongLineKeys::SettleAfter(const QKeyEvent& key)
{
    constexpr std::array rowKeys = { Qt::Key_Up, Qt::Key_Down, Qt::Key_PageUp, Qt::Key_PageDown };
    LeaveJoint(std::ranges::find(rowKeys, key.key()) != rowKeys.end());
}

bool LongLineKeys::ShowMenu(const QContextMenuEvent& event)
{
    if (!HasJoints(editor_)) {
        return false;
    }
    QMenu* const menu = editor_.createStandardContextMenu(event.pos());
    menu->setAttribute(Qt::WA_DeleteOnClose);
    // What these entries do of themselves would leave pieces that do not fit.
    const auto take = [this, menu](const char* name, auto act) {
        if (const auto* const entry = menu->findChild<QAction*>(QString::fromLatin1(name))) {
            QObject::disconnect(entry, &QAction::triggered, nullptr, nullptr);
            QObject::connect(entry, &QAction::triggered, &editor_, act);
        }
    };
    take("edit-cut", [this] { CutText(editor_); });
    take("edit-delete", &SourceEditor::DeleteText);
    menu->popup(event.globalPos());
    return true;
}

void LongLineKeys::SettleAfterMouse(const QEvent& event)
{
    constexpr std::array mouseEvents = { QEvent::MouseButtonPress, QEvent::MouseMove,
                                         QEvent::MouseButtonRelease, QEvent::MouseButtonDblClick };
    if (std::ranges::find(mouseEvents, event.type()) == mouseEvents.end() || !HasJoints(editor_)) {
        return;
    }
    // A third click selects a line.
    const bool mayBeLine = event.type() == QEvent::MouseButtonPress &&
                           !static_cast<const QMouseEvent&>(event).modifiers().testFlag(Qt::ShiftModifier);
    QTextCursor caret = editor_.textCursor();
    const QTextBlock block = caret.document()->findBlock(caret.anchor());
    const bool isWhole = caret.anchor() == block.position() && caret.position() >= EndOf(block);
    if (mayBeLine && isWhole && caret.hasSelection() && IsPiece(block)) {
        caret.setPosition(block.position());
        SelectLine(caret);
        editor_.setTextCursor(caret);
    } else {
        LeaveJoint(!caret.hasSelection());
    }
}

void LongLineKeys::LeaveJoint(bool staysInRow)
{
    QTextCursor caret = editor_.textCursor();
    const bool isCaretThere = IsInFrontOfJoint(caret, caret.position());
    const bool isAnchorThere = IsInFrontOfJoint(caret, caret.anchor());
    if (!isCaretThere && !isAnchorThere) {
        return;
    }
    const int x = caret.verticalMovementX();
    const int position = caret.position();
    const QTextCursor::MoveMode mode = caret.hasSelection() ? KeepAnchor : MoveAnchor;
    caret.setPosition(caret.anchor() + (isAnchorThere && mode == KeepAnchor ? 1 : 0));
    caret.setPosition(position + (isCaretThere && !staysInRow ? 1 : 0), mode);
    if (isCaretThere && staysInRow) {
        caret.movePosition(Operation::PreviousCharacter, mode);
    }
    caret.setVerticalMovementX(x);
    editor_.setTextCursor(caret);
}
