#include "app/PageCommands.h"

#include "app/EditorMargins.h"
#include "app/ProblemsBar.h"
#include "app/SourceEditor.h"
#include "app/TagCompletion.h"
#include "app/rules/CommentRules.h"
#include "app/rules/EndTags.h"
#include "app/rules/LineIndent.h"
#include "app/rules/PageFormat.h"
#include "app/source/LongLines.h"
#include "shared/Settings.h"
#include "widgets/WindowHelpers.h"

#include <QAction>
#include <QInputDialog>
#include <QKeyEvent>
#include <QSpinBox>
#include <QTextBlock>

namespace {

/** So many lines are looked at for how the page indents. */
constexpr int mostLinesLookedAt = 2000;

/** What was decided about the Tab key; the numbers of the setting. */
enum TabKey { Undecided, MovesLines, PutsInTab };

/** The lines that are selected, or the caret's, by the blocks that they begin with. */
struct SelectedLines
{
    explicit SelectedLines(const QTextCursor& caret)
        : First(FirstPieceOf(caret.document()->findBlock(caret.selectionStart())))
        , Last(FirstPieceOf(caret.document()->findBlock(caret.selectionEnd())))
        , EndsAtLineStart(caret.hasSelection() && First != Last && caret.selectionEnd() == Last.position())
    {
        if (EndsAtLineStart) {
            Last = FirstPieceOf(Last.previous());
        }
    }

    QTextBlock First;
    QTextBlock Last;
    bool EndsAtLineStart; ///< the selection goes on to the beginning of the line behind
};

QTextBlock NextLine(const QTextBlock& line)
{
    return LastPieceOf(line).next();
}

} // namespace

PageCommands::PageCommands(
    QWidget* window, SourceEditor& editor, Settings& settings, const DocumentFile& file)
    : QObject(window)
    , window_(window)
    , editor_(editor)
    , settings_(settings)
    , file_(file)
{
    editor_.installEventFilter(this);
}

void PageCommands::SetEntries(QAction& tabEntry, QAction& completeEntry)
{
    completion_ = new TagCompletion(editor_, settings_, file_, completeEntry);
    tabEntry_ = &tabEntry;
    tabEntry_->setCheckable(true);
    tabEntry_->setChecked(DoesTabIndent());
}

void PageCommands::mnuPGoTo_Click()
{
    QInputDialog dialog(window_);
    dialog.setObjectName(QStringLiteral("frmGoTo"));
    dialog.setWindowTitle(QStringLiteral("Go to Line"));
    dialog.setLabelText(QStringLiteral("Line, 1 to %1:").arg(LineCount(*editor_.document())));
    dialog.setInputMode(QInputDialog::IntInput);
    dialog.setIntRange(1, LineCount(*editor_.document()));
    dialog.setIntValue(LineNumberOf(editor_.textCursor().block()) + 1);
    if (auto* const field = dialog.findChild<QSpinBox*>()) {
        field->setObjectName(QStringLiteral("txtLine"));
        field->setAccessibleName(QStringLiteral("Line"));
    }
    if (dialog.exec() == QDialog::Accepted) {
        QTextCursor caret(BlockOfLine(*editor_.document(), dialog.intValue() - 1));
        editor_.setTextCursor(caret);
        editor_.centerCursor();
        editor_.setFocus();
    }
}

void PageCommands::mnuPIndent_Click()
{
    MoveLines(Way::In);
    UseTabIndents();
}

void PageCommands::mnuPUnindent_Click()
{
    MoveLines(Way::Out);
    UseTabIndents();
}

void PageCommands::mnuPTabIndents_Click()
{
    settings_.Keep(Setting::tabIndents, tabEntry_->isChecked() ? MovesLines : PutsInTab);
}

/** Whoever moves lines wants the Tab key for it, unless that was said otherwise. */
void PageCommands::UseTabIndents()
{
    if (settings_.Value(Setting::tabIndents) == Undecided) {
        settings_.Keep(Setting::tabIndents, MovesLines);
    }
    tabEntry_->setChecked(DoesTabIndent());
}

bool PageCommands::DoesTabIndent() const
{
    return settings_.Value(Setting::tabIndents) == MovesLines;
}

/** What the first line that is moved in is moved in by, or the usual. */
QString PageCommands::Indent() const
{
    QTextBlock block = editor_.document()->begin();
    for (int i = 0; i < mostLinesLookedAt && block.isValid(); ++i, block = NextLine(block)) {
        QString indent = IndentOf(block.text());
        if (!indent.isEmpty()) {
            return indent;
        }
    }
    return UsualIndent();
}

void PageCommands::MoveLines(Way way)
{
    const QTextDocument& document = *editor_.document();
    const SelectedLines lines(editor_.textCursor());
    const bool isSelection = editor_.textCursor().hasSelection();
    const bool isOne = lines.First == lines.Last;
    const QString indent = Indent();
    QList<TextReplacement> replacements;
    for (QTextBlock line = lines.First; line.isValid(); line = NextLine(line)) {
        const qsizetype start = TextPosition(document, line.position());
        const qsizetype outdent = OutdentLength(line.text(), indent);
        if (way == Way::Out && outdent > 0) {
            replacements << TextReplacement{ { start, outdent }, QString() };
        } else if (way == Way::In && (isOne || line.length() > 1)) {
            replacements << TextReplacement{ { start, 0 }, indent };
        }
        if (line == lines.Last) {
            break;
        }
    }
    const int firstNumber = LineNumberOf(lines.First);
    const int lastNumber = LineNumberOf(lines.Last);
    editor_.Replace(replacements);
    if (isSelection) {
        // All of the lines, so that the next step moves the same.
        const QTextBlock last = LastPieceOf(BlockOfLine(document, lastNumber));
        QTextCursor caret(BlockOfLine(document, firstNumber));
        caret.setPosition(
            last.position() + last.length() - (lines.EndsAtLineStart ? 0 : 1), QTextCursor::KeepAnchor);
        editor_.setTextCursor(caret);
    }
}

/** Whether the selection goes beyond a line, or is all of one. */
bool PageCommands::AreLinesSelected() const
{
    const QTextCursor caret = editor_.textCursor();
    const QTextBlock first = FirstPieceOf(editor_.document()->findBlock(caret.selectionStart()));
    const QTextBlock last = LastPieceOf(first);
    const int end = last.position() + last.length() - 1;
    const bool isWhole = caret.selectionStart() == first.position() && caret.selectionEnd() == end;
    return caret.hasSelection() && (isWhole || caret.selectionEnd() > end);
}

bool PageCommands::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress && DoesTabIndent()) {
        const auto& key = *static_cast<QKeyEvent*>(event);
        const bool isTab = key.key() == Qt::Key_Tab && key.modifiers() == Qt::NoModifier;
        const bool isBackTab = key.key() == Qt::Key_Backtab && key.modifiers() == Qt::ShiftModifier;
        if ((isTab || isBackTab) && AreLinesSelected()) {
            MoveLines(isTab ? Way::In : Way::Out);
            return true;
        }
    }
    return QObject::eventFilter(watched, event);
}

void PageCommands::mnuPComment_Click()
{
    const CommentChange change = ToggleComment(editor_.Text(), { editor_.SelStart(), editor_.SelLength() });
    editor_.Replace(change.Replacements);
    if (change.Selection) {
        editor_.Select(change.Selection->Start, change.Selection->Length);
    }
    editor_.ensureCursorVisible();
}

void PageCommands::mnuPCloseTag_Click()
{
    const QString endTag = EndTagAt(editor_.Text(), editor_.SelStart() + editor_.SelLength());
    if (!endTag.isEmpty()) {
        editor_.Select(editor_.SelStart() + editor_.SelLength(), 0);
        editor_.ReplaceSelection(endTag);
    }
}

void PageCommands::mnuPComplete_Click()
{
    completion_->mnuPComplete_Click();
}

void PageCommands::mnuPFormat_Click()
{
    ShowHourglass();
    editor_.Replace(FormatPage(editor_.Text()));
    editor_.ensureCursorVisible();
    ShowDefaultPointer();
}

void PageCommands::mnuPCheck_Click()
{
    if (problems_ == nullptr) {
        problems_ = new ProblemsBar(editor_, file_);
        editor_.Margins().SetBar(Qt::BottomEdge, problems_);
    }
    problems_->CheckNow();
}
