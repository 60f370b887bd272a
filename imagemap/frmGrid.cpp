#include "imagemap/frmGrid.h"

#include "ui_frmGrid.h"
#include "widgets/WindowHelpers.h"

namespace {

constexpr QStringView noRoomText = u"There is no room for that many cells.";

/** How many areas there are and how large, by the smallest. */
QString GridText(const MapAreas& areas)
{
    int width = GridPlan::widestGap;
    int height = GridPlan::widestGap;
    for (const MapArea& area : areas) {
        width = std::min(width, area.Coordinates[2] - area.Coordinates[0]);
        height = std::min(height, area.Coordinates[3] - area.Coordinates[1]);
    }
    const QString count =
        areas.size() == 1 ? QStringLiteral("1 area") : QStringLiteral("%1 areas").arg(areas.size());
    return count + QStringLiteral(" of %1 by %2 pixels").arg(width).arg(height);
}

} // namespace

frmGrid::frmGrid(const ImgMap& imgMap, const Rooms& rooms, const GridPlan& plan, QWidget* owner)
    : QDialog(owner)
    , imgMap_(imgMap)
    , rooms_(rooms)
    , ui_(std::make_unique<Ui::frmGrid>())
{
    ui_->setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowModality(Qt::WindowModal);
    ShowPlan(plan);
    ui_->chkSelected->setEnabled(rooms_.selected.has_value());
    ui_->chkSelected->setChecked(rooms_.selected.has_value());
    for (QSpinBox* const field : findChildren<QSpinBox*>()) {
        connect(field, &QSpinBox::valueChanged, this, &frmGrid::spn_Change);
    }
    connect(ui_->chkSelected, &QCheckBox::toggled, this, &frmGrid::spn_Change);
    connect(ui_->cmdOK, &QPushButton::clicked, this, &frmGrid::accept);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &frmGrid::reject);
}

frmGrid::~frmGrid() = default;

void frmGrid::Form_Load()
{
    GoToProgramFolder(imgMap_);
    PlaceAtCorner(this);
    ui_->spnRows->setFocus();
    ui_->spnRows->selectAll();
    spn_Change();
}

void frmGrid::ShowPlan(const GridPlan& plan)
{
    ui_->spnRows->setMaximum(GridPlan::mostLines);
    ui_->spnColumns->setMaximum(GridPlan::mostLines);
    ui_->spnRows->setValue(plan.Rows);
    ui_->spnColumns->setValue(plan.Columns);
    ui_->spnGapX->setValue(plan.GapX);
    ui_->spnGapY->setValue(plan.GapY);
    ui_->spnMarginLeft->setValue(plan.Margins.left());
    ui_->spnMarginTop->setValue(plan.Margins.top());
    ui_->spnMarginRight->setValue(plan.Margins.right());
    ui_->spnMarginBottom->setValue(plan.Margins.bottom());
}

GridPlan frmGrid::Plan() const
{
    return { .Rows = ui_->spnRows->value(),
             .Columns = ui_->spnColumns->value(),
             .GapX = ui_->spnGapX->value(),
             .GapY = ui_->spnGapY->value(),
             .Margins = { ui_->spnMarginLeft->value(), ui_->spnMarginTop->value(),
                          ui_->spnMarginRight->value(), ui_->spnMarginBottom->value() } };
}

bool frmGrid::IsOverSelected() const
{
    return ui_->chkSelected->isChecked();
}

MapAreas frmGrid::Areas() const
{
    return GridAreas(Plan(), IsOverSelected() ? *rooms_.selected : rooms_.picture);
}

void frmGrid::spn_Change()
{
    const MapAreas areas = Areas();
    ui_->cmdOK->setEnabled(!areas.isEmpty());
    ui_->lblCells->setText(areas.isEmpty() ? noRoomText.toString() : GridText(areas));
    Q_EMIT Changed();
}
