#include "app/frmPageMaps.h"

#include "ui_frmPageMaps.h"
#include "widgets/ColumnWidths.h"
#include "widgets/WindowHelpers.h"

#include <QKeyEvent>

namespace {

/** Room for the columns in digits; the last one takes the rest. */
constexpr std::array<int, pageMapColumnCount - 1> columnDigits = { 20, 28, 7, 7 };

} // namespace

frmPageMaps::frmPageMaps(const ImgMap& imgMap, PageMapsModel* model, QWidget* owner)
    : QDialog(owner)
    , imgMap_(imgMap)
    , model_(model)
    , ui_(std::make_unique<Ui::frmPageMaps>())
{
    ui_->setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowModality(Qt::WindowModal);
    model_->setParent(this);
    ui_->lstMaps->setModel(model_);
    connect(ui_->lstMaps, &QTreeView::doubleClicked, this, &frmPageMaps::cmdOpen_Click);
    connect(ui_->cmdOpen, &QPushButton::clicked, this, &frmPageMaps::cmdOpen_Click);
    connect(ui_->cmdClose, &QPushButton::clicked, this, &frmPageMaps::close);
}

frmPageMaps::~frmPageMaps() = default;

void frmPageMaps::Form_Load()
{
    GoToProgramFolder(imgMap_);
    CentreOnScreen(this);
    GiveRoomForDigits(ui_->lstMaps, columnDigits);
    ui_->lstMaps->setCurrentIndex(model_->index(0, 0));
    ui_->lstMaps->setFocus();
}

void frmPageMaps::cmdOpen_Click()
{
    const int row = ui_->lstMaps->currentIndex().row();
    close();
    if (row >= 0) {
        Q_EMIT Chosen(row);
    }
}

void frmPageMaps::keyPressEvent(QKeyEvent* event)
{
    // A list takes Enter for itself and lets it go again; it must not be left to whichever button is next.
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter && ui_->lstMaps->hasFocus()) {
        cmdOpen_Click();
        return;
    }
    QDialog::keyPressEvent(event);
}
