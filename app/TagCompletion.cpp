#include "app/TagCompletion.h"

#include "app/SourceEditor.h"
#include "app/rules/DocumentFile.h"
#include "html/CharacterReferences.h"
#include "html/HtmlSyntax.h"
#include "html/HtmlTokens.h"
#include "shared/Settings.h"

#include <QAbstractItemView>
#include <QAction>
#include <QCompleter>
#include <QDir>
#include <QFileInfo>
#include <QKeyEvent>
#include <QScrollBar>
#include <QStringListModel>
#include <algorithm>

namespace {

/** So many characters are read for a key that is typed, not asked for. */
constexpr int mostAtKey = 50'000;
constexpr int rowsOfList = 10;
/** Behind the name of an attribute that wants a value: as it is offered, and as it is put in. */
constexpr QLatin1String markedValue("=\"|\"");
constexpr QLatin1String emptyValue("=\"\"");

/** Whether a line that begins so goes on with a tag. */
bool IsWithinTag(HtmlMode mode)
{
    return mode >= HtmlMode::TagName && mode <= HtmlMode::SelfClosed;
}

} // namespace

TagCompletion::TagCompletion(
    SourceEditor& editor, Settings& settings, const DocumentFile& file, QAction& entry)
    : QObject(&editor)
    , editor_(editor)
    , settings_(settings)
    , file_(file)
    , entry_(entry)
{
    entry_.setCheckable(true);
    entry_.setChecked(IsOn());
    editor_.installEventFilter(this);
    connect(
        editor_.document(), &QTextDocument::contentsChange, this, &TagCompletion::Document_ContentsChange);
}

bool TagCompletion::IsOn() const
{
    return settings_.Value(Setting::completion);
}

void TagCompletion::mnuPComplete_Click()
{
    settings_.Keep(Setting::completion, entry_.isChecked());
}

bool TagCompletion::eventFilter(QObject* watched, QEvent* event)
{
    if (!IsOn() || event->type() != QEvent::KeyPress) {
        return QObject::eventFilter(watched, event);
    }
    const auto& key = *static_cast<QKeyEvent*>(event);
    const bool isTaken = watched == &editor_ ? Editor_KeyPress(key) : List_KeyPress(key);
    return isTaken || QObject::eventFilter(watched, event);
}

bool TagCompletion::Editor_KeyPress(const QKeyEvent& key)
{
    if (key.key() == Qt::Key_Space && key.modifiers() == Qt::ControlModifier) {
        ShowList();
        return true;
    }
    return key.text() == u">" && PutInEndTag();
}

/** The list has the keys while it is there; what is typed goes on to the editor. */
bool TagCompletion::List_KeyPress(const QKeyEvent& key)
{
    switch (key.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Tab: {
        const QString text = completer_->popup()->currentIndex().data().toString();
        completer_->popup()->hide();
        PutIn(text);
        return true;
    }
    case Qt::Key_Escape:
        completer_->popup()->hide();
        return true;
    default:
        break;
    }
    if (key.text() != u">") {
        return false;
    }
    completer_->popup()->hide();
    return PutInEndTag();
}

/** The lines from `line`, which is read with `state`, up to that of `caret`. */
TagCompletion::Part TagCompletion::PartFrom(QTextBlock line, const HtmlState& state, int caret)
{
    Part part{ line.position(), {}, state, caret - line.position() };
    for (; line.isValid() && line.position() <= caret; line = line.next()) {
        part.Text += line.text() + u'\n';
    }
    return part;
}

/** The lines up to the caret's; what is far before them is read alone. */
TagCompletion::Part TagCompletion::PageUpToCaret() const
{
    const QTextCursor caret = editor_.textCursor();
    QTextBlock block = editor_.document()->begin();
    HtmlState state;
    while (caret.position() - block.position() > mostAtKey &&
           block.position() + block.length() <= caret.position()) {
        PassLine(block.text(), state);
        block = block.next();
    }
    return PartFrom(block, state, caret.position());
}

/** The line that the tag at the caret begins in, and those behind it up to the caret's. */
TagCompletion::Part TagCompletion::TagUpToCaret()
{
    FindKnownLine();
    const QTextBlock caretLine = editor_.textCursor().block();
    QTextBlock block = editor_.document()->findBlock(known_.Start);
    HtmlState state = known_.State;
    while (block != caretLine) {
        PassLine(block.text(), state);
        block = block.next();
        if (!IsWithinTag(state.mode)) {
            known_ = { block.position(), state };
        }
    }
    return PartFrom(
        editor_.document()->findBlock(known_.Start), known_.State, editor_.textCursor().position());
}

/** Takes care that a line is known at the caret's or not far before it; a far one is taken for text. */
void TagCompletion::FindKnownLine()
{
    const QTextCursor caret = editor_.textCursor();
    const int line = caret.block().position();
    if (known_.Start >= 0 && known_.Start <= line && caret.position() - known_.Start <= mostAtKey) {
        return;
    }
    const QTextBlock some = editor_.document()->findBlock(std::max(caret.position() - mostAtKey, 0));
    known_ = { some.position() == 0 ? 0 : std::min(some.position() + some.length(), line), {} };
}

void TagCompletion::Document_ContentsChange(int position)
{
    if (position < known_.Start) {
        known_ = {};
    }
}

bool TagCompletion::PutInEndTag()
{
    if (editor_.textCursor().hasSelection()) {
        return false;
    }
    const Part part = TagUpToCaret();
    const QString endTag = EndTagBehind(part.Text, part.State, part.Caret);
    if (endTag.isEmpty()) {
        return false;
    }
    editor_.ReplaceSelection(u'>' + endTag);
    QTextCursor caret = editor_.textCursor();
    caret.movePosition(QTextCursor::PreviousCharacter, QTextCursor::MoveAnchor, int(endTag.size()));
    editor_.setTextCursor(caret);
    return true;
}

void TagCompletion::CreateList()
{
    model_ = new QStringListModel(this);
    completer_ = new QCompleter(model_, this);
    completer_->setWidget(&editor_);
    completer_->setCompletionMode(QCompleter::UnfilteredPopupCompletion);
    completer_->setMaxVisibleItems(rowsOfList);
    QAbstractItemView* const list = completer_->popup();
    list->setObjectName(QStringLiteral("lstCompletions"));
    list->setAccessibleName(QStringLiteral("Completions"));
    list->installEventFilter(this); // before the completer's own
    connect(completer_, qOverload<const QString&>(&QCompleter::activated), this, &TagCompletion::PutIn);
    const auto showAnew = [this] {
        if (completer_->popup()->isVisible()) {
            ShowList();
        }
    };
    connect(&editor_, &SourceEditor::textChanged, this, showAnew);
    connect(&editor_, &SourceEditor::cursorPositionChanged, this, showAnew);
}

/** Shows what can be written at the caret, or nothing; the only one there is, is put in when it is asked for.
 */
void TagCompletion::ShowList()
{
    if (completer_ == nullptr) {
        CreateList();
    }
    const bool isAskedFor = !completer_->popup()->isVisible();
    const Part part = PageUpToCaret();
    const Completions offered = CompletionsAt(
        part.Text, part.State, part.Caret,
        { [this] { return Maps(); }, [this](const QString& folder) { return Files(folder); } });
    begun_ = part.Start + static_cast<int>(offered.Begun.offset);
    offered_ = offered.Texts;
    QStringList shown = offered_;
    for (QString& text : shown) {
        text.remove(markedValue);
    }
    if (shown.isEmpty() || (isAskedFor && shown.size() == 1)) {
        completer_->popup()->hide();
        if (!shown.isEmpty()) {
            PutIn(shown.first());
        }
        return;
    }
    model_->setStringList(shown);
    QAbstractItemView* const list = completer_->popup();
    QRect place = editor_.cursorRect();
    place.setWidth(
        list->sizeHintForColumn(0) + list->verticalScrollBar()->sizeHint().width() + place.height());
    completer_->complete(place.translated(editor_.viewport()->pos()));
    list->setCurrentIndex(completer_->completionModel()->index(0, 0));
}

/** Puts in what was chosen in place of what has been begun of it; the caret goes where a value has to be
 * written.
 */
void TagCompletion::PutIn(const QString& text)
{
    const bool wantsValue = offered_.contains(text + markedValue);
    QTextCursor caret = editor_.textCursor();
    const int end = caret.position();
    caret.setPosition(begun_);
    caret.setPosition(end, QTextCursor::KeepAnchor);
    editor_.setTextCursor(caret);
    editor_.ReplaceSelection(wantsValue ? text + emptyValue : text);
    if (wantsValue) {
        editor_.moveCursor(QTextCursor::PreviousCharacter);
    }
}

QStringList TagCompletion::Maps() const
{
    QStringList names;
    const QString page = editor_.Text();
    HtmlTokens tokens(page);
    for (HtmlToken token; tokens.Next(token);) {
        if (token.kind != HtmlToken::Kind::StartTag || !IsName(token.name.In(page), QLatin1String("map"))) {
            continue;
        }
        if (const HtmlAttribute* const name = token.Find(page, QLatin1String("name"))) {
            names << DecodedValue(name->value.In(page));
        }
    }
    names.removeDuplicates();
    return names;
}

QStringList TagCompletion::Files(const QString& folder) const
{
    if (file_.IsNeverSaved()) {
        return {};
    }
    const QDir place(QFileInfo(file_.Name()).absoluteDir().filePath(folder));
    QStringList names;
    const QFileInfoList entries =
        place.entryInfoList(QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot, QDir::DirsFirst | QDir::Name);
    for (const QFileInfo& entry : entries) {
        names << (entry.isDir() ? entry.fileName() + u'/' : entry.fileName());
    }
    return names;
}
