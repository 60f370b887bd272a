#include "imagemap/frmRegions.h"

#include "imagemap/RegionsModel.h"
#include "ui_frmRegions.h"
#include "widgets/ColumnWidths.h"
#include "widgets/WindowHelpers.h"

#include <chrono>

namespace {

using namespace std::chrono_literals;

constexpr auto longSearch = 200ms;
constexpr QStringView searchingText = u"Looking for regions...";
constexpr QStringView stoppedText = u"The search was stopped. Change a field to begin another one.";
constexpr QStringView noRegionText = u"There is no region of that size.";

/** Room for the columns in digits; the last one takes the rest. */
constexpr std::array<int, RegionsModel::regionColumnCount - 1> regionDigits = { 18, 10, 14 };

} // namespace

frmRegions::frmRegions(
    const ImgMap& imgMap, const QString& title, const AreaCandidates& regions, QWidget* owner)
    : frmRegions(imgMap, title, regions, RegionsSource::Links, owner)
{
    ui_->pnlSearch->hide();
}

frmRegions::frmRegions(
    const ImgMap& imgMap, const QString& title, const RegionGround& ground, const RegionWish& wish,
    QWidget* owner)
    : frmRegions(imgMap, title, {}, RegionsSource::Picture, owner)
{
    finding_ = new RegionFinding(ground.picture, ground.way, this);
    selected_ = ground.selected;
    ShowWish(wish, ground.way.hasTolerance);
    // The list does not jump when a search takes long.
    QSizePolicy policy = ui_->pnlProgress->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    ui_->pnlProgress->setSizePolicy(policy);
    patience_.setSingleShot(true);
    patience_.setInterval(longSearch);
    connect(&patience_, &QTimer::timeout, this, &frmRegions::ShowSearching);
    connect(finding_, &RegionFinding::Progressed, ui_->prgSearch, &QProgressBar::setValue);
    connect(finding_, &RegionFinding::Found, this, &frmRegions::Finding_Found);
    connect(this, &frmRegions::finished, finding_, &RegionFinding::GiveUp);
    connect(ui_->spnLeastPixels, &QSpinBox::valueChanged, this, &frmRegions::Search);
    connect(ui_->spnPrecision, &QDoubleSpinBox::valueChanged, this, &frmRegions::Search);
    connect(ui_->spnTolerance, &QSpinBox::valueChanged, this, &frmRegions::Search);
    connect(ui_->chkSelected, &QCheckBox::toggled, this, &frmRegions::Search);
    connect(ui_->cmdStop, &QPushButton::clicked, this, &frmRegions::cmdStop_Click);
}

frmRegions::frmRegions(
    const ImgMap& imgMap, const QString& title, const AreaCandidates& regions, RegionsSource source,
    QWidget* owner)
    : QDialog(owner)
    , imgMap_(imgMap)
    , model_(new RegionsModel(regions, source, this))
    , ui_(std::make_unique<Ui::frmRegions>())
{
    ui_->setupUi(this);
    setWindowTitle(title);
    setAccessibleName(title);
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowModality(Qt::WindowModal);
    ui_->pnlProgress->hide();
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
    if (finding_ != nullptr) {
        ui_->spnLeastPixels->setFocus();
        ui_->spnLeastPixels->selectAll();
        Search();
        return;
    }
    ui_->lstRegions->setCurrentIndex(model_->index(0, 0));
    ui_->lstRegions->setFocus();
    lstRegions_Change();
}

void frmRegions::ShowWish(const RegionWish& wish, bool hasTolerance)
{
    ui_->spnLeastPixels->setValue(int(wish.leastPixels));
    ui_->spnPrecision->setValue(wish.precision);
    ui_->spnTolerance->setValue(int(wish.tolerance));
    ui_->lblTolerance->setVisible(hasTolerance);
    ui_->spnTolerance->setVisible(hasTolerance);
    ui_->chkSelected->setVisible(hasTolerance);
    ui_->chkSelected->setEnabled(!selected_.isNull());
    ui_->chkSelected->setChecked(!selected_.isNull());
}

RegionWish frmRegions::Wish() const
{
    return { .within = ui_->chkSelected->isChecked() ? selected_ : QRect(),
             .tolerance = double(ui_->spnTolerance->value()),
             .leastPixels = ui_->spnLeastPixels->value(),
             .precision = ui_->spnPrecision->value() };
}

void frmRegions::Search()
{
    // Return makes a field tell its value again.
    const RegionWish wish = Wish();
    if (searched_ == wish) {
        return;
    }
    searched_ = wish;
    isSearching_ = true;
    ui_->cmdOK->setEnabled(false);
    ui_->prgSearch->setValue(0);
    if (!ui_->pnlProgress->isVisible()) {
        patience_.start();
    }
    finding_->Find(wish);
}

void frmRegions::ShowSearching()
{
    patience_.stop();
    ui_->pnlProgress->setVisible(isSearching_);
    ui_->lstRegions->setEnabled(!isSearching_);
    ui_->cmdAll->setEnabled(!isSearching_);
    ui_->cmdNone->setEnabled(!isSearching_);
    if (isSearching_) {
        ui_->lblRegions->setText(searchingText.toString());
    }
}

void frmRegions::Finding_Found(const AreaCandidates& candidates, bool areSame)
{
    isSearching_ = false;
    ShowSearching();
    const int row = areSame ? ui_->lstRegions->currentIndex().row() : 0;
    model_->Replace(candidates, areSame);
    ui_->lstRegions->setCurrentIndex(model_->index(std::max(row, 0), 0));
    lstRegions_Change();
}

void frmRegions::cmdStop_Click()
{
    finding_->GiveUp();
    searched_.reset();
    isSearching_ = false;
    ShowSearching();
    model_->Replace({}, false);
    lstRegions_Change();
    ui_->lblRegions->setText(stoppedText.toString());
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
    const qsizetype all = model_->Regions().size();
    QString text = QStringLiteral("%1 of %2 will be made.").arg(count).arg(all);
    if (all == 0) {
        text = noRegionText.toString();
    } else if (finding_ != nullptr && all >= qsizetype(mostRegions)) {
        text += QStringLiteral(" Only the %1 largest are listed.").arg(mostRegions);
    }
    ui_->lblRegions->setText(text);
    ui_->cmdOK->setEnabled(count > 0 && !isSearching_);
    Q_EMIT Changed();
}
