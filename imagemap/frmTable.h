#pragma once

#include "imagemap/model/AreaArranging.h"
#include "outline/TableLinks.h"
#include "shared/ImgMap.h"

#include <QDialog>
#include <memory>

namespace Ui {
class frmTable;
}
class QComboBox;
class TablePreview;

/** Takes links and texts for areas out of a table, and shows what the areas will have of it. Modal to its
 * owner. */
class frmTable : public QDialog
{
    Q_OBJECT

public:
    /** What the table is for. */
    struct Subject
    {
        MapAreas areas;
        AreaNumbers numbers;      ///< of the areas in their map
        bool areSelected = false; ///< whether others are left out
    };

    frmTable(const ImgMap& imgMap, const Subject& subject, QWidget* owner);
    ~frmTable() override;

    /** Centres the window; what is on the clipboard is taken if it is a table. */
    void Form_Load();

    /** The areas with what the table gives them. */
    [[nodiscard]] const TableOutcome& Outcome() const { return outcome_; }

private:
    void cmdFile_Click();
    void cmdPaste_Click();
    void chkHeader_Click();
    void cmb_Change();
    void ShowTable(const TableReading& reading, const QString& source);
    void FillColumns(const TableColumns& columns);
    void ShowOutcome();
    [[nodiscard]] TableColumns Columns() const;

    const ImgMap& imgMap_;
    Subject subject_;
    std::unique_ptr<Ui::frmTable> ui_;
    std::array<QComboBox*, tableUseCount> columns_;
    TablePreview* preview_;
    TableRows rows_;
    TableOutcome outcome_;
};
