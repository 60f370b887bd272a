#pragma once

#include <QPlainTextEdit>

/**
 * The editor of the HTML source. Its text goes in and out without loss, with CR LF line ends, and every
 * position and length counts a line end as these two characters.
 */
class SourceEditor : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit SourceEditor(QWidget* parent = nullptr);

    /** The whole text. */
    [[nodiscard]] QString Text() const;

    /** Replaces the whole text without counting as an edit; there is nothing to undo afterwards. */
    void LoadText(const QString& text);

    [[nodiscard]] qsizetype TextLength() const;

    /** Where the selection starts; without one, where the caret is. */
    [[nodiscard]] qsizetype SelStart() const;
    [[nodiscard]] qsizetype SelLength() const;
    [[nodiscard]] QString SelText() const;

    /** Selects `length` characters from `start`; both are cut to the text. */
    void Select(qsizetype start, qsizetype length);

    /** Replaces the selection as one step of undo and leaves the caret behind the new text. */
    void ReplaceSelection(const QString& text);

Q_SIGNALS:
    /** The text was edited; loading, formatting and composing with an input method are no edits. */
    void Change();

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    QMimeData* createMimeDataFromSelection() const override;
    void insertFromMimeData(const QMimeData* source) override;

private:
    void Document_ContentsChange(int position, int removed, int added);
    [[nodiscard]] bool RememberText(int position, int length);
    [[nodiscard]] bool IsMenuKey(const QKeyEvent& key) const;
    void LoadLines(const QString& lines);
    void KeepWidestLine();

    bool isLoading_ = false;
};
