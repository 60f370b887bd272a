#include "imagemap/frmTable.h"

#include "imagemap/TablePreview.h"
#include "shared/Paths.h"
#include "ui_frmTable.h"
#include "widgets/ColumnWidths.h"
#include "widgets/FileDialog.h"
#include "widgets/WindowHelpers.h"

#include <QClipboard>
#include <QFile>
#include <QGuiApplication>
#include <QSignalBlocker>

namespace {

constexpr QStringView noTableText =
    u"Open the file of a table, or copy cells of one and take them from the clipboard.";
constexpr QStringView noFileText = u"The file cannot be read, or is too large for a table !";
constexpr QStringView noClipboardText = u"There is no table on the clipboard !";
constexpr QStringView clipboardName = u"Clipboard";
constexpr QStringView noColumn = u"(none)";
/** So much of a column's first field tells which it is. */
constexpr qsizetype longestColumnName = 30;
/** Room for the columns in digits; the last one takes the rest. */
constexpr std::array<int, TablePreview::columnCountOfAll - 1> previewDigits = { 16, 22, 9, 16 };

QString Counted(qsizetype count, QStringView one, QStringView several)
{
    return QString::number(count) + u' ' + (count == 1 ? one : several);
}

/** A column as it is offered: its number and what stands in its first row. */
QString NameOfColumn(const TableRows& rows, int column)
{
    const QStringList& first = rows.constFirst();
    const QString text = column < first.size() ? first[column].simplified() : QString();
    const QString name = text.size() > longestColumnName ? text.first(longestColumnName) + u'\u2026' : text;
    return QString::number(column + 1) + (name.isEmpty() ? QString() : u": " + name);
}

} // namespace

frmTable::frmTable(const ImgMap& imgMap, const Subject& subject, QWidget* owner)
    : QDialog(owner)
    , imgMap_(imgMap)
    , subject_(subject)
    , ui_(std::make_unique<Ui::frmTable>())
{
    ui_->setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowModality(Qt::WindowModal);
    columns_ = { ui_->cmbLinkColumn, ui_->cmbTargetColumn, ui_->cmbMessageColumn, ui_->cmbTextColumn };
    preview_ = new TablePreview(subject_.areas, subject_.numbers, this);
    ui_->lstTable->setModel(preview_);
    connect(ui_->cmdFile, &QPushButton::clicked, this, &frmTable::cmdFile_Click);
    connect(ui_->cmdPaste, &QPushButton::clicked, this, &frmTable::cmdPaste_Click);
    connect(ui_->chkHeader, &QCheckBox::clicked, this, &frmTable::chkHeader_Click);
    connect(ui_->optByText, &QRadioButton::toggled, this, &frmTable::cmb_Change);
    for (QComboBox* const column : columns_) {
        connect(column, &QComboBox::currentIndexChanged, this, &frmTable::cmb_Change);
    }
    connect(ui_->cmdOK, &QPushButton::clicked, this, &frmTable::accept);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &frmTable::reject);
}

frmTable::~frmTable() = default;

void frmTable::Form_Load()
{
    GoToProgramFolder(imgMap_);
    CentreOnScreen(this);
    GiveRoomForDigits(ui_->lstTable, previewDigits);
    ShowTable({}, noTableText.toString());
    // A single field is whatever was copied last.
    const TableReading copied = ReadTable(QGuiApplication::clipboard()->text());
    if (copied.Rows.size() > 1 || ColumnCount(copied.Rows) > 1) {
        ShowTable(copied, clipboardName.toString());
    }
    ui_->cmdFile->setFocus();
}

void frmTable::cmdFile_Click()
{
    FileDialog dialog(this, QStringLiteral("CMDialog1"), QFileDialog::ExistingFile, tableFilter);
    const std::optional<QString> path = dialog.Choose();
    GoToProgramFolder(imgMap_);
    if (!path) {
        return;
    }
    QFile file(*path);
    TableReading reading{ {}, noFileText.toString() };
    if (file.size() <= TableReading::mostBytes && file.open(QIODevice::ReadOnly)) {
        reading = ReadTable(TableTextOf(file.readAll()));
    }
    if (reading.Problem.isEmpty()) {
        ShowTable(reading, FileNameOnly(*path));
    } else {
        ShowMessage(this, QMessageBox::Warning, reading.Problem + u'\n' + *path);
    }
}

void frmTable::cmdPaste_Click()
{
    TableReading reading = ReadTable(QGuiApplication::clipboard()->text());
    if (reading.Rows.isEmpty() && reading.Problem.isEmpty()) {
        reading.Problem = noClipboardText.toString();
    }
    if (reading.Problem.isEmpty()) {
        ShowTable(reading, clipboardName.toString());
    } else {
        ShowMessage(this, QMessageBox::Warning, reading.Problem);
    }
}

void frmTable::ShowTable(const TableReading& reading, const QString& source)
{
    rows_ = reading.Rows;
    const qsizetype columns = ColumnCount(rows_);
    ui_->lblSource->setText(
        rows_.isEmpty() ? source
                        : source + u": " + Counted(rows_.size(), u"row", u"rows") + u", " +
                              Counted(columns, u"column", u"columns"));
    FillColumns(GuessColumns(rows_));
    ShowOutcome();
}

void frmTable::FillColumns(const TableColumns& columns)
{
    const QSignalBlocker quietHeader(ui_->chkHeader);
    ui_->chkHeader->setChecked(columns.HasHeader);
    for (const TableUse use : tableUses) {
        QComboBox& box = *columns_[std::size_t(use)];
        const QSignalBlocker quiet(box);
        box.clear();
        box.addItem(noColumn.toString());
        for (int column = 0; column < ColumnCount(rows_); ++column) {
            box.addItem(NameOfColumn(rows_, column));
        }
        box.setCurrentIndex(columns.Of(use) + 1);
        box.setEnabled(!rows_.isEmpty());
    }
    ui_->chkHeader->setEnabled(!rows_.isEmpty());
}

TableColumns frmTable::Columns() const
{
    TableColumns columns;
    for (const TableUse use : tableUses) {
        columns.Numbers[std::size_t(use)] = columns_[std::size_t(use)]->currentIndex() - 1;
    }
    columns.HasHeader = ui_->chkHeader->isChecked();
    return columns;
}

void frmTable::chkHeader_Click()
{
    ShowOutcome();
}

void frmTable::cmb_Change()
{
    ShowOutcome();
}

void frmTable::ShowOutcome()
{
    const auto matching = ui_->optByText->isChecked() ? TableMatching::ByText : TableMatching::InOrder;
    outcome_ = WithTable(subject_.areas, rows_, Columns(), matching);
    preview_->Show(outcome_.Areas);
    const QString areas = subject_.areSelected
                              ? Counted(subject_.areas.size(), u"selected area", u"selected areas")
                              : Counted(subject_.areas.size(), u"area", u"areas");
    QString result = QStringLiteral("Of %1, %2 will be changed.").arg(areas).arg(outcome_.AreasChanged);
    if (outcome_.RowsLeft > 0) {
        result += u' ' + Counted(
                             outcome_.RowsLeft, u"row of the table is for no area.",
                             u"rows of the table are for no area.");
    }
    ui_->lblResult->setText(result);
    ui_->cmdOK->setEnabled(outcome_.AreasChanged > 0);
}
