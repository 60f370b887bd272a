#include "app/SourceEditor.h"

#include "app/EditorClipboard.h"
#include "app/EditorMargins.h"
#include "app/LongLineKeys.h"
#include "app/TagDrops.h"
#include "app/source/LineFitter.h"
#include "app/source/LongLines.h"
#include "app/source/ShapedLines.h"
#include "app/source/SourceRange.h"
#include "app/source/TextSnapshot.h"
#include "app/source/WidestLine.h"
#include "widgets/CommandTable.h"
#include "widgets/WindowHelpers.h"

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QResizeEvent>
#include <QTextDocument>
#include <algorithm>
#include <cmath>

namespace {

/** Whether `key` is that of an entry of the menu bar of `editor`'s window. */
bool IsMenuKey(const SourceEditor& editor, const QKeyEvent& key)
{
    const bool isCombined = key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    if (!isCombined && !key.text().isEmpty() && key.text().front().isPrint()) {
        return false; // typing must not wait for a look through the menus
    }
    return EntryOfKey(editor.window(), key) != nullptr;
}

} // namespace

SourceEditor::SourceEditor(QWidget* parent)
    : QPlainTextEdit(parent)
    , longLines_(new LongLines(*document()))
    , watch_(new EditWatch(document()))
    , shapedLines_(new ShapedLines(*document()))
    , margins_(new EditorMargins(*this, [this](const QMargins& margins) { setViewportMargins(margins); }))
    , keys_(std::make_unique<LongLineKeys>(*this))
{
    // The room left by an indentation belongs to the text.
    setBackgroundRole(QPalette::Base);
    setAutoFillBackground(true);
    connect(watch_, &EditWatch::Edited, this, &SourceEditor::Change);
    connect(this, &QPlainTextEdit::blockCountChanged, this, &SourceEditor::LineCountChanged);
    connect(longLines_, &LongLines::CountChanged, this, &SourceEditor::LineCountChanged);
    new TagDrops(*this);
    LoadText(QString());
}

SourceEditor::~SourceEditor() = default;

QString SourceEditor::Text() const
{
    return WithCrLf(WithoutJoints(*document(), document()->toRawText()));
}

QString SourceEditor::TextAsLoaded() const
{
    return lineEnds_.TextOf(*document());
}

std::unique_ptr<TextSnapshot> SourceEditor::BeginSnapshot() const
{
    return std::make_unique<TextSnapshot>(*document(), lineEnds_);
}

void SourceEditor::LoadText(const QString& text)
{
    const LinesInPieces pieces = WithCuts(ForDocument(text, layout_));
    const EditWatch::Loading loading(*watch_);
    document()->setUndoRedoEnabled(false);
    {
        const LongLines::Loading joints(*longLines_, pieces.Joints);
        // A new text would take the look of the old one.
        document()->clear();
        setCurrentCharFormat(QTextCharFormat());
        setPlainText(pieces.Lines);
        MarkJoints(*document(), pieces.Joints);
    }
    lineEnds_ = LineEnds(text, *document());
    KeepWidestLine(*document());
    QResizeEvent toThisWidth(viewport()->size(), QSize());
    resizeEvent(&toThisWidth);
    document()->setUndoRedoEnabled(true);
}

qsizetype SourceEditor::TextLength() const
{
    // The document counts a mark behind its last line that is no part of the text.
    return TextPosition(*document(), document()->characterCount() - 1);
}

qsizetype SourceEditor::SelStart() const
{
    return TextPosition(*document(), textCursor().selectionStart());
}

qsizetype SourceEditor::SelLength() const
{
    return TextPosition(*document(), textCursor().selectionEnd()) - SelStart();
}

QString SourceEditor::SelText() const
{
    return WithCrLf(SelectedLines());
}

QString SourceEditor::SelectedLines() const
{
    const QTextCursor caret = textCursor();
    return WithoutJoints(*document(), caret.selectedText(), caret.selectionStart());
}

void SourceEditor::Select(qsizetype start, qsizetype length)
{
    const qsizetype first = std::clamp<qsizetype>(start, 0, TextLength());
    const qsizetype count = std::clamp<qsizetype>(length, 0, TextLength() - first);
    QTextCursor cursor = textCursor();
    cursor.setPosition(DocumentPosition(*document(), first));
    cursor.setPosition(DocumentPosition(*document(), first + count), QTextCursor::KeepAnchor);
    setTextCursor(cursor);
}

void SourceEditor::ReplaceSelection(const QString& text)
{
    const QTextCursor cursor = textCursor();
    if (text.isEmpty() && !cursor.hasSelection()) {
        return; // nothing to undo: what comes next must not join the step before
    }
    Replace(cursor, text);
}

void SourceEditor::Replace(QTextCursor selected, const QString& text)
{
    BeginStep(selected);
    const int start = selected.selectionStart();
    InsertLines(selected, ForDocument(text, layout_));
    longLines_->Fit(start, selected.position());
    selected.endEditBlock();
    setTextCursor(selected);
    ensureCursorVisible();
}

void SourceEditor::Replace(const QList<TextReplacement>& replacements)
{
    if (replacements.isEmpty()) {
        return; // as in ReplaceSelection()
    }
    QTextCursor cursor(document());
    BeginStep(cursor);
    const EditedPart edited = ReplaceEach(cursor, replacements, layout_);
    longLines_->Fit(edited.From, edited.To);
    cursor.endEditBlock();
}

/** Begins a block of edits that is a step of undo of its own, or joins the one that is being made. */
void SourceEditor::BeginStep(QTextCursor& cursor)
{
    if (stepStart_ && document()->revision() != *stepStart_) {
        cursor.joinPreviousEditBlock();
    } else {
        cursor.beginEditBlock();
    }
}

std::unique_ptr<AnchoredRange> SourceEditor::Anchor(const TextSpan& place)
{
    return std::make_unique<SourceRange>(document(), watch_, place);
}

SourceEditor::UndoStep::UndoStep(SourceEditor& editor)
    : editor_(editor)
{
    editor_.stepStart_ = editor_.document()->revision();
}

SourceEditor::UndoStep::~UndoStep()
{
    editor_.stepStart_.reset();
}

void SourceEditor::DeleteText()
{
    keys_->LeaveJoint(false);
    QTextCursor cursor = textCursor();
    QTextCursor deleted = cursor;
    if (!deleted.hasSelection()) {
        deleted.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor);
    }
    if (NeedsFitting(deleted, {})) {
        Replace(deleted, QString());
        return;
    }
    cursor.deleteChar();
    setTextCursor(cursor);
    ensureCursorVisible();
}

void SourceEditor::SetMarks(MarkLayer layer, const QList<QTextEdit::ExtraSelection>& marks)
{
    QList<QTextEdit::ExtraSelection>& ofLayer = marks_[static_cast<std::size_t>(layer)];
    if (marks.isEmpty() && ofLayer.isEmpty()) {
        return;
    }
    ofLayer = marks;
    QList<QTextEdit::ExtraSelection> all;
    for (const QList<QTextEdit::ExtraSelection>& some : marks_) {
        all << some;
    }
    setExtraSelections(all);
}

void SourceEditor::resizeEvent(QResizeEvent* event)
{
    QPlainTextEdit::resizeEvent(event);
    margins_->Refresh();
}

bool SourceEditor::event(QEvent* event)
{
    // Some keys of the menu are also editing keys of the platform (Ctrl+E on X11 goes to the end of the
    // line).
    if (event->type() == QEvent::ShortcutOverride && IsMenuKey(*this, *static_cast<QKeyEvent*>(event))) {
        event->ignore();
        return false;
    }
    return QPlainTextEdit::event(event);
}

void SourceEditor::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Copy)) {
        CopyText(*this);
    } else if (event->matches(QKeySequence::Cut)) {
        CutText(*this);
    } else if (event->matches(QKeySequence::Paste)) {
        PasteText(*this);
    } else if (event->matches(QKeySequence::InsertLineSeparator)) {
        // Shift+Enter would put in a character that no page can hold.
        ReplaceSelection(QStringLiteral("\n"));
    } else if (std::ranges::any_of(event->text(), IsOfLayout)) {
        ReplaceSelection(event->text());
    } else if (!keys_->Press(*event)) {
        QPlainTextEdit::keyPressEvent(event);
        keys_->SettleAfter(*event);
    }
}

void SourceEditor::contextMenuEvent(QContextMenuEvent* event)
{
    if (!keys_->ShowMenu(*event)) {
        QPlainTextEdit::contextMenuEvent(event);
    }
}

bool SourceEditor::viewportEvent(QEvent* event)
{
    if (event->type() == QEvent::Paint) {
        const int mostSeen = viewport()->height() / fontMetrics().lineSpacing() + 2;
        shapedLines_->Keep(firstVisibleBlock(), mostSeen);
    }
    const bool isDone = QPlainTextEdit::viewportEvent(event);
    if (keys_ != nullptr) {
        keys_->SettleAfterMouse(*event);
    }
    return isDone;
}

void SourceEditor::inputMethodEvent(QInputMethodEvent* event)
{
    const QString& commit = event->commitString();
    const bool isReplacement = event->replacementLength() != 0;
    if (!commit.isEmpty() && !isReplacement && NeedsFitting(textCursor(), commit)) {
        QInputMethodEvent end;
        QPlainTextEdit::inputMethodEvent(&end);
        ReplaceSelection(commit);
        QInputMethodEvent rest(event->preeditString(), event->attributes());
        QPlainTextEdit::inputMethodEvent(&rest);
        return;
    }
    if (IsForDocument(commit)) {
        QPlainTextEdit::inputMethodEvent(event);
        return;
    }
    QInputMethodEvent plain(event->preeditString(), event->attributes());
    plain.setCommitString(
        ForDocument(event->commitString(), layout_), event->replacementStart(), event->replacementLength());
    QPlainTextEdit::inputMethodEvent(&plain);
}

QMimeData* SourceEditor::createMimeDataFromSelection() const
{
    return SelectedData(*this);
}

void SourceEditor::insertFromMimeData(const QMimeData* source)
{
    if (source->hasText()) {
        ReplaceSelection(source->text());
    }
}
