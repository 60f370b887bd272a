#include "app/frmMapChange.h"

#include "app/TodayChange.h"
#include "ui_frmMapChange.h"
#include "widgets/WindowHelpers.h"

#include <QFontDatabase>

frmMapChange::frmMapChange(const ImgMap& imgMap, const TodayChange& change, QWidget* owner)
    : QDialog(owner)
    , imgMap_(imgMap)
    , ui_(std::make_unique<Ui::frmMapChange>())
{
    ui_->setupUi(this);
    for (QPlainTextEdit* const text : { ui_->txtBefore, ui_->txtAfter }) {
        text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    }
    ui_->txtBefore->setPlainText(change.before);
    ui_->txtAfter->setPlainText(change.after);
    ui_->lblNotes->setText(change.notes.join(u'\n'));
    ui_->lblNotes->setVisible(!change.notes.isEmpty());
    connect(ui_->cmdOK, &QPushButton::clicked, this, &frmMapChange::accept);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &frmMapChange::reject);
}

frmMapChange::~frmMapChange() = default;

void frmMapChange::Form_Load()
{
    GoToProgramFolder(imgMap_);
    CentreOnScreen(this);
    ui_->cmdOK->setFocus();
}
