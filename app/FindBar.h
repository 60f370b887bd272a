#pragma once

#include "app/EditorBar.h"
#include "app/rules/TextSearch.h"

#include <QTimer>
#include <optional>

class DocumentFile;
class QCheckBox;
class QGridLayout;
class QLabel;
class QPushButton;
class Settings;
class SourceEditor;
struct FlagSetting;

/** The bar below the text that finds and replaces in it. */
class FindBar : public EditorBar
{
    Q_OBJECT

public:
    FindBar(SourceEditor& editor, Settings& settings, const DocumentFile& file);

    /** Shows the bar, with what is selected in its field. */
    void ShowFind();
    void ShowReplace();

    /** Selects the next match behind the selection, after the last one the first; shows the bar if nothing
     * has been looked for. */
    void FindNext();
    void FindPrevious();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void txtFind_Change();
    void btnReplace_Click();
    void btnReplaceAll_Click();
    void chkSelection_Click(bool isChecked);
    void btnCloseFind_Click();

    void AddControls();
    void AddButtons(QGridLayout& grid);
    QCheckBox* NewCheck(const char* name, const QString& caption, const FlagSetting* setting);
    void Open(bool withReplacing);
    void StartAnew();

    [[nodiscard]] SearchTerms Terms() const;
    [[nodiscard]] QList<TextReplacement>
    Replacements(const QString& lines, const QList<TextSpan>& matches) const;
    [[nodiscard]] QString Lines() const;
    [[nodiscard]] TextSpan Within(const QString& lines) const;
    void Search();
    void SearchIfStale();
    [[nodiscard]] TextSpan Selected() const;
    [[nodiscard]] qsizetype SelectedMatch() const;
    [[nodiscard]] bool IsAnythingFound();
    void SelectMatch(qsizetype index);
    void ShowMarks();
    void ShowCount();

    SourceEditor& editor_;
    Settings& settings_;
    const DocumentFile& file_;
    QLineEdit* find_ = nullptr;
    QLineEdit* replace_ = nullptr;
    QLabel* replaceLabel_ = nullptr;
    QPushButton* replaceOne_ = nullptr;
    QPushButton* replaceAll_ = nullptr;
    QLabel* count_ = nullptr;
    QCheckBox* case_ = nullptr;
    QCheckBox* words_ = nullptr;
    QCheckBox* regex_ = nullptr;
    QCheckBox* selection_ = nullptr;
    std::unique_ptr<AnchoredRange> range_; ///< what was selected when only that is to be searched
    SearchResult result_;
    QTimer afterEdits_;
    bool isStale_ = true; ///< whether the text has changed since it was searched
    qsizetype from_ = 0;  ///< where the search began that follows what is typed
};
