#pragma once

#include <QObject>

class DocumentFile;
class ProblemsBar;
class QAction;
class Settings;
class SourceEditor;
class TagCompletion;

/** The commands of the Page menu that work on the text and have no window of their own. */
class PageCommands : public QObject
{
    Q_OBJECT

public:
    PageCommands(QWidget* window, SourceEditor& editor, Settings& settings, const DocumentFile& file);

    /** Shows by its entries whether the Tab key moves lines and whether tags are completed; needed before the
     * commands are used. */
    void SetEntries(QAction& tabEntry, QAction& completeEntry);

    void mnuPGoTo_Click();
    void mnuPIndent_Click();
    void mnuPUnindent_Click();
    void mnuPTabIndents_Click();
    void mnuPComment_Click();
    void mnuPCloseTag_Click();
    void mnuPComplete_Click();
    void mnuPFormat_Click();
    void mnuPCheck_Click();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    enum class Way { In, Out };

    void MoveLines(Way way);
    [[nodiscard]] QString Indent() const;
    [[nodiscard]] bool AreLinesSelected() const;
    [[nodiscard]] bool DoesTabIndent() const;
    void UseTabIndents();

    QWidget* window_;
    SourceEditor& editor_;
    Settings& settings_;
    const DocumentFile& file_;
    QAction* tabEntry_ = nullptr;
    TagCompletion* completion_ = nullptr;
    ProblemsBar* problems_ = nullptr; ///< once it was wanted
};
