#include "app/SourceEditor.h"

#include <QAction>
#include <QKeyEvent>
#include <QMimeData>
#include <QTextBlock>
#include <QTextDocument>
#include <algorithm>

namespace {

/** Every kind of line end as the one a document takes for a new line. */
QString WithPlainLineEnds(QString text)
{
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    text.replace(u'\r', u'\n');
    text.replace(QChar::LineSeparator, u'\n');
    text.replace(QChar::ParagraphSeparator, u'\n');
    return text;
}

/** A document's own text, in which new lines are paragraph separators, with CR LF line ends. */
QString WithCrLf(QString text)
{
    return text.replace(QChar::ParagraphSeparator, QLatin1String("\r\n"));
}

/** A document's position, which counts a line end as one, in characters of the text. */
qsizetype TextPosition(const QTextDocument* document, int position)
{
    return qsizetype(position) + document->findBlock(position).blockNumber();
}

/** The document's position of a character of the text; between CR and LF counts as before both. */
int DocumentPosition(const QTextDocument* document, qsizetype position)
{
    const auto start = [document](int number) {
        return qsizetype(document->findBlockByNumber(number).position()) + number;
    };
    int first = 0;
    int count = document->blockCount();
    while (count > 1) {
        const int half = count / 2;
        if (start(first + half) <= position) {
            first += half;
            count -= half;
        } else {
            count = half;
        }
    }
    const QTextBlock block = document->findBlockByNumber(first);
    const qsizetype inBlock = std::clamp<qsizetype>(position - start(first), 0, block.length() - 1);
    return block.position() + static_cast<int>(inBlock);
}

} // namespace

SourceEditor::SourceEditor(QWidget* parent)
    : QPlainTextEdit(parent)
{
    connect(document(), &QTextDocument::contentsChange, this, &SourceEditor::Document_ContentsChange);
}

QString SourceEditor::Text() const
{
    return WithCrLf(document()->toRawText());
}

void SourceEditor::LoadText(const QString& text)
{
    isLoading_ = true;
    setPlainText(WithPlainLineEnds(text));
    isLoading_ = false;
}

qsizetype SourceEditor::TextLength() const
{
    // The document counts a mark behind its last line that is no part of the text.
    return qsizetype(document()->characterCount()) - 1 + document()->blockCount() - 1;
}

qsizetype SourceEditor::SelStart() const
{
    return TextPosition(document(), textCursor().selectionStart());
}

qsizetype SourceEditor::SelLength() const
{
    return TextPosition(document(), textCursor().selectionEnd()) - SelStart();
}

QString SourceEditor::SelText() const
{
    return WithCrLf(textCursor().selectedText());
}

void SourceEditor::Select(qsizetype start, qsizetype length)
{
    QTextCursor cursor = textCursor();
    cursor.setPosition(DocumentPosition(document(), start));
    cursor.setPosition(DocumentPosition(document(), start + length), QTextCursor::KeepAnchor);
    setTextCursor(cursor);
}

void SourceEditor::ReplaceSelection(const QString& text)
{
    QTextCursor cursor = textCursor();
    cursor.beginEditBlock();
    cursor.insertText(WithPlainLineEnds(text));
    cursor.endEditBlock();
    setTextCursor(cursor);
    ensureCursorVisible();
}

void SourceEditor::Document_ContentsChange(int position, int removed, int added)
{
    Q_UNUSED(position)
    if (!isLoading_ && (removed != 0 || added != 0)) {
        Q_EMIT Change();
    }
}

bool SourceEditor::event(QEvent* event)
{
    // Some keys of the menu are also editing keys of the platform (Ctrl+E on X11 goes to the end of the
    // line).
    if (event->type() == QEvent::ShortcutOverride && IsMenuShortcut(*static_cast<QKeyEvent*>(event))) {
        event->ignore();
        return false;
    }
    return QPlainTextEdit::event(event);
}

bool SourceEditor::IsMenuShortcut(const QKeyEvent& key) const
{
    const QKeySequence pressed(key.keyCombination());
    const QList<QAction*> actions = window()->findChildren<QAction*>();
    return std::any_of(actions.begin(), actions.end(), [&pressed](const QAction* action) {
        return action->isEnabled() && action->shortcut() == pressed && !pressed.isEmpty();
    });
}

void SourceEditor::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::InsertLineSeparator)) {
        // Shift+Enter would put in a character that no page can hold.
        ReplaceSelection(QStringLiteral("\n"));
        return;
    }
    QPlainTextEdit::keyPressEvent(event);
}

void SourceEditor::insertFromMimeData(const QMimeData* source)
{
    if (source->hasText()) {
        ReplaceSelection(source->text());
    }
}
