#include "app/SourceEditor.h"

#include "widgets/CommandTable.h"
#include "widgets/WindowHelpers.h"

#include <QAbstractTextDocumentLayout>
#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QMimeData>
#include <QResizeEvent>
#include <QSignalBlocker>
#include <QTextBlock>
#include <QTextDocument>
#include <algorithm>
#include <cmath>
#include <limits>

namespace {

/** Wider than any window, in pixels. */
constexpr qreal beyondAnyWindow = 1e6;
/** So much room stays for the text beside any indentation, in pixels. */
constexpr int leastTextWidth = 60;

/** The label that is being dragged; nothing when it is something else. */
const QLabel* DraggedLabel(const QDropEvent& event)
{
    return qobject_cast<const QLabel*>(event.source());
}

bool IsLineEnd(QChar character)
{
    return character == u'\n' || character == u'\r';
}

/** What a document takes for a line end or the edge of a frame of its own, and cannot hold as a character. */
bool IsOfLayout(QChar character)
{
    constexpr char16_t beginningOfFrame = 0xFDD0;
    constexpr char16_t endOfFrame = 0xFDD1;
    return character == QChar::LineSeparator || character == QChar::ParagraphSeparator ||
           character == beginningOfFrame || character == endOfFrame;
}

/** Whether a document would make something else of `text`. */
bool IsForDocument(const QString& text)
{
    return std::ranges::none_of(text, [](QChar c) { return IsLineEnd(c) || IsOfLayout(c); });
}

/** How a character outside the code page is saved. */
constexpr QChar replacement = u'?';

/**
 * `text` as a document can hold it, in one pass over any length: every kind of line end as the one that it
 * takes for a new line, and the characters of its layout as they would be saved.
 */
QString ForDocument(const QString& text)
{
    QString lines(text.size(), Qt::Uninitialized);
    QChar* to = lines.data();
    const QChar* const end = text.constEnd();
    for (const QChar* from = text.constBegin(); from != end; ++from) {
        if (*from == u'\r' && from + 1 != end && from[1] == u'\n') {
            continue;
        }
        *to++ = IsLineEnd(*from) ? QChar(u'\n') : IsOfLayout(*from) ? replacement : *from;
    }
    lines.truncate(to - lines.constData());
    return lines;
}

/** A document's own text, in which new lines are paragraph separators, with CR LF line ends. */
QString WithCrLf(const QString& lines)
{
    QString text(lines.size() + lines.count(QChar::ParagraphSeparator), Qt::Uninitialized);
    QChar* to = text.data();
    for (const QChar character : lines) {
        if (character == QChar::ParagraphSeparator) {
            *to++ = u'\r';
            *to++ = u'\n';
        } else {
            *to++ = character;
        }
    }
    return text;
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

/** A number that tells the text of `block` from another; never that of a block without one. */
int TextMark(const QTextBlock& block)
{
    return static_cast<int>(qHash(block.text(), 0) & size_t(std::numeric_limits<int>::max()));
}

} // namespace

SourceEditor::SourceEditor(QWidget* parent)
    : QPlainTextEdit(parent)
{
    // The room left by an indentation belongs to the text.
    setBackgroundRole(QPalette::Base);
    setAutoFillBackground(true);
    connect(document(), &QTextDocument::contentsChange, this, &SourceEditor::Document_ContentsChange);
    LoadText(QString());
}

QString SourceEditor::Text() const
{
    return WithCrLf(document()->toRawText());
}

void SourceEditor::LoadText(const QString& text)
{
    isLoading_ = true;
    LoadLines(ForDocument(text));
    isLoading_ = false;
}

void SourceEditor::LoadLines(const QString& lines)
{
    document()->setUndoRedoEnabled(false);
    // A new text would take the look of the old one.
    document()->clear();
    setCurrentCharFormat(QTextCharFormat());
    setPlainText(lines);
    KeepWidestLine();
    document()->setUndoRedoEnabled(true);
}

/**
 * Spares the layout its search for the widest line. When that line gets shorter, the plain text layout looks
 * through all the others for the next widest: a pause at every such key in a large document. Lines wrap at
 * the window's edge, so none is wider than the window; here the layout comes to believe that a line just
 * behind the last is as wide as that, and follows this line's number as others come and go before it.
 */
void SourceEditor::KeepWidestLine()
{
    QTextCharFormat wide;
    wide.setFontLetterSpacingType(QFont::AbsoluteSpacing);
    wide.setFontLetterSpacing(beyondAnyWindow);
    QTextCursor cursor(document());
    // In a block of edits the cursor does not ask for its place, which would lay out its line.
    const auto edit = [this, &cursor](const auto& change) {
        cursor.beginEditBlock();
        cursor.setPosition(document()->characterCount() - 1);
        change();
        cursor.endEditBlock();
    };
    {
        // Nor may the scroll bars, which ask for the last lines.
        const QSignalBlocker quiet(document()->documentLayout());
        edit([&cursor] { cursor.insertBlock(); });
        edit([&cursor, &wide] { cursor.insertText(QStringLiteral("-"), wide); });
        edit([&cursor] {
            cursor.setPosition(cursor.position() - 2, QTextCursor::KeepAnchor);
            cursor.removeSelectedText();
        });
        edit([&cursor] { cursor.insertBlock(); });
        edit([&cursor] { cursor.deletePreviousChar(); });
    }
    QResizeEvent toThisWidth(viewport()->size(), QSize());
    resizeEvent(&toThisWidth);
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
    const qsizetype first = std::clamp<qsizetype>(start, 0, TextLength());
    const qsizetype count = std::clamp<qsizetype>(length, 0, TextLength() - first);
    QTextCursor cursor = textCursor();
    cursor.setPosition(DocumentPosition(document(), first));
    cursor.setPosition(DocumentPosition(document(), first + count), QTextCursor::KeepAnchor);
    setTextCursor(cursor);
}

void SourceEditor::ReplaceSelection(const QString& text)
{
    QTextCursor cursor = textCursor();
    if (text.isEmpty() && !cursor.hasSelection()) {
        return; // nothing to undo: what comes next must not join the step before
    }
    if (stepStart_ && document()->revision() != *stepStart_) {
        cursor.joinPreviousEditBlock();
    } else {
        cursor.beginEditBlock();
    }
    cursor.insertText(ForDocument(text));
    cursor.endEditBlock();
    setTextCursor(cursor);
    ensureCursorVisible();
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

void SourceEditor::CopyText()
{
    QGuiApplication::clipboard()->clear();
    QGuiApplication::clipboard()->setMimeData(createMimeDataFromSelection());
}

void SourceEditor::CutText()
{
    CopyText();
    ReplaceSelection(QString());
}

void SourceEditor::PasteText()
{
    ReplaceSelection(QGuiApplication::clipboard()->text());
}

void SourceEditor::DeleteText()
{
    QTextCursor cursor = textCursor();
    cursor.deleteChar();
    setTextCursor(cursor);
    ensureCursorVisible();
}

void SourceEditor::SetSelFormat(const QTextCharFormat& format)
{
    mergeCurrentCharFormat(format);
}

void SourceEditor::SetIndent(double twips)
{
    indent_ = twips;
    ShowIndent();
}

void SourceEditor::ShowIndent()
{
    const int room = std::max(contentsRect().width() - leastTextWidth, 0);
    const int wanted = static_cast<int>(std::nearbyint(indent_ / twipsPerPixel));
    const QMargins margins(std::min(wanted, room), 0, 0, 0);
    if (viewportMargins() != margins) {
        setViewportMargins(margins);
    }
}

void SourceEditor::resizeEvent(QResizeEvent* event)
{
    QPlainTextEdit::resizeEvent(event);
    ShowIndent();
}

void SourceEditor::Document_ContentsChange(int position, int removed, int added)
{
    // Formatting is told as if as much text came as went.
    const bool isOtherText = RememberText(position, added);
    if (!isLoading_ && (removed != added || isOtherText)) {
        Q_EMIT Change();
    }
}

/** Marks the blocks of a range by their texts; true when one of them had another text before. */
bool SourceEditor::RememberText(int position, int length)
{
    bool isOtherText = false;
    QTextBlock block = document()->findBlock(position);
    for (; block.isValid() && block.position() <= position + length; block = block.next()) {
        const int mark = TextMark(block);
        if (block.userState() != mark) {
            isOtherText = true;
            block.setUserState(mark);
        }
    }
    return isOtherText;
}

bool SourceEditor::event(QEvent* event)
{
    // Some keys of the menu are also editing keys of the platform (Ctrl+E on X11 goes to the end of the
    // line).
    if (event->type() == QEvent::ShortcutOverride && IsMenuKey(*static_cast<QKeyEvent*>(event))) {
        event->ignore();
        return false;
    }
    return QPlainTextEdit::event(event);
}

bool SourceEditor::IsMenuKey(const QKeyEvent& key) const
{
    const bool isCombined = key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    if (!isCombined && !key.text().isEmpty() && key.text().front().isPrint()) {
        return false; // typing must not wait for a look through the menus
    }
    return EntryOfKey(window(), key) != nullptr;
}

void SourceEditor::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Copy)) {
        CopyText();
    } else if (event->matches(QKeySequence::Cut)) {
        CutText();
    } else if (event->matches(QKeySequence::Paste)) {
        PasteText();
    } else if (event->matches(QKeySequence::InsertLineSeparator)) {
        // Shift+Enter would put in a character that no page can hold.
        ReplaceSelection(QStringLiteral("\n"));
    } else if (std::ranges::any_of(event->text(), IsOfLayout)) {
        ReplaceSelection(event->text());
    } else {
        QPlainTextEdit::keyPressEvent(event);
    }
}

void SourceEditor::inputMethodEvent(QInputMethodEvent* event)
{
    if (IsForDocument(event->commitString())) {
        QPlainTextEdit::inputMethodEvent(event);
        return;
    }
    QInputMethodEvent plain(event->preeditString(), event->attributes());
    plain.setCommitString(
        ForDocument(event->commitString()), event->replacementStart(), event->replacementLength());
    QPlainTextEdit::inputMethodEvent(&plain);
}

QMimeData* SourceEditor::createMimeDataFromSelection() const
{
    // Only the text, and all of it: the usual way turns no-break spaces into blanks.
    auto* const text = new QMimeData;
    text->setText(textCursor().selectedText().replace(QChar::ParagraphSeparator, u'\n'));
    return text;
}

void SourceEditor::insertFromMimeData(const QMimeData* source)
{
    if (source->hasText()) {
        ReplaceSelection(source->text());
    }
}

void SourceEditor::dragEnterEvent(QDragEnterEvent* event)
{
    dragMoveEvent(event);
}

void SourceEditor::dragMoveEvent(QDragMoveEvent* event)
{
    event->setDropAction(Qt::CopyAction);
    event->setAccepted(DraggedLabel(*event) != nullptr);
}

void SourceEditor::dragLeaveEvent(QDragLeaveEvent* event)
{
    event->accept();
}

void SourceEditor::dropEvent(QDropEvent* event)
{
    const QLabel* const label = DraggedLabel(*event);
    event->setDropAction(Qt::CopyAction);
    event->setAccepted(label != nullptr);
    if (label != nullptr) {
        ReplaceSelection(label->text());
        setFocus();
    }
}
