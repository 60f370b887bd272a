#pragma once

#include "app/source/LineEnds.h"
#include "app/source/SourceText.h"
#include "shared/PageDocument.h"

#include <QPlainTextEdit>
#include <array>
#include <memory>
#include <optional>

class EditWatch;
class EditorMargins;
class LongLineKeys;
class LongLines;
class ShapedLines;
class TextSnapshot;

/**
 * The editor of the HTML source. Its text goes in and out without loss, with CR LF line ends, and every
 * position and length counts a line end as these two characters.
 */
class SourceEditor : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit SourceEditor(QWidget* parent = nullptr);
    ~SourceEditor() override;
    Q_DISABLE_COPY_MOVE(SourceEditor)

    // Which lines are seen, and where.
    using QPlainTextEdit::blockBoundingGeometry;
    using QPlainTextEdit::contentOffset;
    using QPlainTextEdit::firstVisibleBlock;

    /** The whole text. */
    [[nodiscard]] QString Text() const;

    /** The whole text with the line ends that it was loaded with; new lines take those of their neighbours.
     */
    [[nodiscard]] QString TextAsLoaded() const;

    /** `text` as it would stand here, with LF line ends. */
    [[nodiscard]] QString InEditor(const QString& text) const { return ForDocument(text, layout_); }

    /** Begins to copy the text with the line ends that it was loaded with; the editor must live longer. */
    [[nodiscard]] std::unique_ptr<TextSnapshot> BeginSnapshot() const;

    /** Replaces the whole text without counting as an edit; there is nothing to undo afterwards. */
    void LoadText(const QString& text);

    /** Whether the text is saved in the code page, as at first, or in UTF-8, which has every character. */
    void SetLayoutCharacters(LayoutCharacters layout) { layout_ = layout; }

    /** The room around the text: its indentation, and bars. */
    [[nodiscard]] EditorMargins& Margins() { return *margins_; }

    [[nodiscard]] qsizetype TextLength() const;

    /** Where the selection starts; without one, where the caret is. */
    [[nodiscard]] qsizetype SelStart() const;
    [[nodiscard]] qsizetype SelLength() const;
    [[nodiscard]] QString SelText() const;
    /** The same with a paragraph separator for a line end. */
    [[nodiscard]] QString SelectedLines() const;

    /** Selects `length` characters from `start`; both are cut to the text. */
    void Select(qsizetype start, qsizetype length);

    /** Replaces the selection as one step of undo and leaves the caret behind the new text. */
    void ReplaceSelection(const QString& text);
    /** The same with what `selected` has selected, which becomes the caret. */
    void Replace(QTextCursor selected, const QString& text);

    /**
     * Makes `replacements` as one step of undo, however many. Their places are those before any of them is
     * made, in ascending order and apart from one another; the caret stays with the text around it.
     */
    void Replace(const QList<TextReplacement>& replacements);

    /** Keeps hold of a part of the text; it may outlive the editor. */
    [[nodiscard]] std::unique_ptr<AnchoredRange> Anchor(const TextSpan& place);

    /** Deletes the selection; without one the character or line end behind the caret. */
    void DeleteText();

    /** What is marked in the text without being formatted; later ones lie above. */
    enum class MarkLayer : std::size_t { CurrentLine, Matches, Pairs };
    void SetMarks(MarkLayer layer, const QList<QTextEdit::ExtraSelection>& marks);

    /** Makes what is replaced during its life one step of undo. */
    class UndoStep
    {
    public:
        explicit UndoStep(SourceEditor& editor);
        ~UndoStep();
        Q_DISABLE_COPY_MOVE(UndoStep)

    private:
        SourceEditor& editor_;
    };

Q_SIGNALS:
    /** The text was edited; loading, formatting and composing with an input method are no edits. */
    void Change();

    /** There are more or fewer lines than before. */
    void LineCountChanged();

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    QMimeData* createMimeDataFromSelection() const override;
    void insertFromMimeData(const QMimeData* source) override;

private:
    void BeginStep(QTextCursor& cursor);

    LongLines* longLines_; ///< hears of edits before anything else does
    EditWatch* watch_;
    ShapedLines* shapedLines_;
    EditorMargins* margins_;
    std::unique_ptr<LongLineKeys> keys_;
    LineEnds lineEnds_;
    std::array<QList<QTextEdit::ExtraSelection>, 3> marks_; ///< of each layer
    LayoutCharacters layout_ = LayoutCharacters::AsSaved;
    /** The document's revision when the step of undo began that is being made. */
    std::optional<int> stepStart_;
};
