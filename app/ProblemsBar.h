#pragma once

#include "app/EditorBar.h"
#include "app/rules/PageCheck.h"

#include <QList>
#include <QTextCursor>

class DocumentFile;
class QLabel;
class QListWidget;
class SourceEditor;

/** The bar below the text that lists what may be wrong in the page. */
class ProblemsBar : public EditorBar
{
    Q_OBJECT

public:
    ProblemsBar(SourceEditor& editor, const DocumentFile& file);

    /** Looks through the page and shows what was found, or that nothing was. */
    void CheckNow();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void lstProblems_Activate(int row);
    void btnCloseProblems_Click();

    void AddControls();
    void Show(const PageProblems& problems);
    void AddRow(const QString& text);

    SourceEditor& editor_;
    const DocumentFile& file_;
    QLabel* count_ = nullptr;
    QListWidget* list_ = nullptr;
    QList<QTextCursor> places_; ///< of the rows, each selects what its row tells of; they follow the edits
};
