#include "imagemap/frmRegions.h"

#include "imagemap/RegionsModel.h"
#include "ui_frmRegions.h"
#include "widgets/ColumnWidths.h"
#include "widgets/WindowHelpers.h"

namespace {

/** Room for the columns in digits; the last one takes the rest. */
constexpr std::array<int, RegionsModel::regionColumnCount - 1> regionDigits = { 18, 10, 14 };

} // namespace

frmRegions::frmRegions(
    const ImgMap& imgMap, const QString& title, const AreaCandidates& regions, QWidget* owner)
    : QDialog(owner)
    , imgMap_(imgMap)
    , model_(new RegionsModel(regions, this))
    , ui_(std::make_unique<Ui::frmRegions>())
{
    ui_->setupUi(this);
    setWindowTitle(title);
    setAccessibleName(title);
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowModality(Qt::WindowModal);
    ui_->lstRegions->setModel(model_);
    connect(model_, &RegionsModel::dataChanged, this, &frmRegions::lstRegions_Change);
    connect(
        ui_->lstRegions->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
        &frmRegions::lstRegions_Change);
    connect(ui_->cmdAll, &QPushButton::clicked, this, &frmRegions::cmdAll_Click);
    connect(ui_->cmdNone, &QPushButton::clicked, this, &frmRegions::cmdNone_Click);
    connect(ui_->cmdOK, &QPushButton::clicked, this, &frmRegions::accept);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &frmRegions::reject);
}

frmRegions::~frmRegions() = default;

void frmRegions::Form_Load()
{
    GoToProgramFolder(imgMap_);
    PlaceAtCorner(this);
    GiveRoomForDigits(ui_->lstRegions, regionDigits);
    ui_->lstRegions->setCurrentIndex(model_->index(0, 0));
    ui_->lstRegions->setFocus();
    lstRegions_Change();
}

MapAreas frmRegions::Ticked() const
{
    return TickedAreas(model_->Regions());
}

MapArea frmRegions::Current() const
{
    const QModelIndex current = ui_->lstRegions->currentIndex();
    return current.isValid() ? model_->Regions().at(current.row()).Area : MapArea();
}

void frmRegions::cmdAll_Click()
{
    model_->TickAll(true);
}

void frmRegions::cmdNone_Click()
{
    model_->TickAll(false);
}

void frmRegions::lstRegions_Change()
{
    const qsizetype count = Ticked().size();
    ui_->lblRegions->setText(
        QStringLiteral("%1 of %2 will be made.").arg(count).arg(model_->Regions().size()));
    ui_->cmdOK->setEnabled(count > 0);
    Q_EMIT Changed();
}
