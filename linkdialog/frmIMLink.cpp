#include "linkdialog/frmIMLink.h"

#include "imagemap/model/MapDocument.h"
#include "shared/LinksFile.h"
#include "ui_frmIMLink.h"
#include "widgets/FileDialog.h"
#include "widgets/OneLineField.h"
#include "widgets/WindowHelpers.h"

#include <QScrollBar>
#include <cmath>

namespace {

constexpr int designWidth = 460;
/** The dialog's own sizes in twips: without and with a frame for the mode's texts. */
constexpr int plainHeight = 3360;
constexpr int plainButtonsTop = 2520;
constexpr int scriptHeight = 5565;
constexpr int scriptButtonsTop = 4680;

int Grown(int pixels, qreal growth)
{
    return static_cast<int>(std::nearbyint(pixels * growth));
}

/** Makes the children of `widget`, and what stands inside a frame of them, `growth` times as large. */
void GrowChildren(const QWidget* widget, qreal growth)
{
    for (QWidget* const child : widget->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        const QRect old = child->geometry();
        child->setGeometry(
            Grown(old.x(), growth), Grown(old.y(), growth), Grown(old.width(), growth),
            Grown(old.height(), growth));
        if (qobject_cast<QGroupBox*>(child) != nullptr) {
            GrowChildren(child, growth);
        }
    }
}

} // namespace

frmIMLink::frmIMLink(ImgMap& imgMap, MapDocument& map, QWidget* owner)
    : QDialog(owner)
    , imgMap_(imgMap)
    , map_(map)
    , ui_(std::make_unique<Ui::frmIMLink>())
{
    ui_->setupUi(this);
    HoldOneLine(this);
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowModality(Qt::ApplicationModal);
    for (QComboBox* const box : { ui_->cmbLink, ui_->cmbTarget }) {
        // Completion would turn what was typed into something else.
        box->setCompleter(nullptr);
        box->setCurrentIndex(-1);
        NameParts(box);
    }
    connect(ui_->SSCmdOK, &QPushButton::clicked, this, &frmIMLink::SSCmdOK_Click);
    connect(ui_->SSCmdReplace, &QPushButton::clicked, this, &frmIMLink::SSCmdReplace_Click);
    connect(ui_->SSCmdClose, &QPushButton::clicked, this, &frmIMLink::SSCmdClose_Click);
    connect(ui_->Command1, &QPushButton::clicked, this, &frmIMLink::Command1_Click);
    connect(ui_->Command2, &QPushButton::clicked, this, &frmIMLink::Command2_Click);
}

frmIMLink::~frmIMLink() = default;

void frmIMLink::Form_Load(std::optional<qsizetype> replaced)
{
    GoToProgramFolder(imgMap_);
    growth_ = TextGrowth(this);
    GrowChildren(ui_->contents, growth_);
    CentreOnScreen(this);
    setWindowTitle(TextsOf(map_.Script().Mode()).linkCaption.toString());
    ui_->SSCmdReplace->setEnabled(false);
    ui_->SSCmdOK->setDefault(true);
    ShowModeFields();
    const bool isLoaded = LoadLinks();
    replaced_ = replaced;
    if (replaced_) {
        PrepareReplacing();
    }
    ui_->cmbLink->setFocus();
    if (!isLoaded) {
        ShowMessage(parentWidget(), QMessageBox::Warning, linksDamagedText.toString());
    }
}

bool frmIMLink::LoadLinks()
{
    const SavedLinks saved = ReadSavedLinks(imgMap_.ProgramFolder + u'/' + linksFileName);
    for (const SavedLink& link : saved.links) {
        ui_->cmbLink->addItem(link.Url);
    }
    ui_->cmbLink->setCurrentIndex(-1);
    ui_->cmbLink->clearEditText();
    return !saved.isDamaged;
}

void frmIMLink::ShowModeFields()
{
    const std::array<QWidget*, jsModeTexts.size()> frames = {
        nullptr, ui_->frmStatusBarMessage, ui_->frmSwitchingImages, ui_->frmTextArea, ui_->frmToolTip,
    };
    const QWidget* const shown = frames[static_cast<std::size_t>(map_.Script().Mode())];
    for (QWidget* const frame : frames) {
        if (frame != nullptr) {
            frame->setVisible(frame == shown);
        }
    }
    SetHeight((shown != nullptr ? scriptHeight : plainHeight) / twipsPerPixel);
    const int buttonsTop =
        Grown((shown != nullptr ? scriptButtonsTop : plainButtonsTop) / twipsPerPixel, growth_);
    for (QPushButton* const button : { ui_->SSCmdOK, ui_->SSCmdReplace, ui_->SSCmdClose }) {
        button->move(button->x(), buttonsTop);
    }
    if (const std::optional<LinkField> modeDefault = RulesOf(map_.Script().Mode()).modeDefault) {
        FieldEdit(*modeDefault)->setText(map_.Script().ModeDefault());
    }
}

/** Gives the dialog the height of its design; on a screen too small for it there are scroll bars. */
void frmIMLink::SetHeight(int pixels)
{
    QSize needed(Grown(designWidth, growth_), Grown(pixels, growth_));
    ui_->contents->resize(needed);
    if (needed.height() > RoomOnScreen(this).height()) {
        needed.rwidth() += ui_->scrollArea->verticalScrollBar()->sizeHint().width();
    }
    setFixedSize(needed.boundedTo(RoomOnScreen(this)));
}

void frmIMLink::PrepareReplacing()
{
    const MapArea& area = map_.Areas().at(*replaced_);
    ui_->cmbLink->setEditText(area.Link);
    if (map_.Script().Mode() != JSDisabled) {
        FieldEdit(RulesOf(map_.Script().Mode()).message)->setText(area.Message);
    }
    ui_->Frame1->setTitle(TitleOf(area, *replaced_));
    ui_->SSCmdReplace->setEnabled(true);
    ui_->SSCmdReplace->setDefault(true);
    ui_->SSCmdOK->setEnabled(false);
}

QLineEdit* frmIMLink::FieldEdit(LinkField field) const
{
    const std::array<QLineEdit*, linkFieldCount> edits = {
        ui_->cmbLink->lineEdit(), ui_->txtStatusBarMessage,    ui_->txtDefaultImage,
        ui_->txtSwitchImage,      ui_->txtDefaultTAreaMessage, ui_->txtSwitchingTAreaMessage,
        ui_->txtToolTipMessage,
    };
    return edits[static_cast<std::size_t>(field)];
}

LinkEntry frmIMLink::Entry() const
{
    LinkEntry entry;
    for (std::size_t i = 0; i < linkFieldCount; ++i) {
        entry.Fields[i] = FieldEdit(static_cast<LinkField>(i))->text();
    }
    entry.Target = ui_->cmbTarget->currentText();
    return entry;
}

bool frmIMLink::IsComplete(const LinkEntry& entry, QStringView linkCaption)
{
    const std::optional<RequiredField> missing = MissingField(map_.Script().Mode(), entry);
    if (!missing) {
        return true;
    }
    const QStringView caption = missing->field == LinkField::Link ? linkCaption : applicationTitle;
    ShowMessage(
        this, QMessageBox::Information, missing->message.toString(), QMessageBox::Ok, caption.toString());
    FieldEdit(missing->field)->setFocus();
    return false;
}

void frmIMLink::SSCmdOK_Click()
{
    GoToProgramFolder(imgMap_);
    const LinkEntry entry = Entry();
    if (IsComplete(entry, RulesOf(map_.Script().Mode()).newLinkCaption)) {
        map_.LinkNewArea(entry);
        Unload(Accepted);
    }
}

void frmIMLink::SSCmdReplace_Click()
{
    const LinkEntry entry = Entry();
    if (replaced_ && IsComplete(entry, applicationTitle)) {
        map_.RelinkArea(*replaced_, entry);
        Unload(Accepted);
    }
}

void frmIMLink::SSCmdClose_Click()
{
    if (!replaced_) {
        map_.DiscardNewArea();
    }
    Unload(Rejected);
}

void frmIMLink::reject()
{
    if (!isUnloaded_) {
        SSCmdClose_Click();
    }
}

void frmIMLink::Unload(int result)
{
    isUnloaded_ = true;
    done(result);
}

void frmIMLink::Command1_Click()
{
    ChooseImage(ui_->txtDefaultImage);
}

void frmIMLink::Command2_Click()
{
    ChooseImage(ui_->txtSwitchImage);
}

void frmIMLink::ChooseImage(QLineEdit* field)
{
    GoToProgramFolder(imgMap_);
    if (const std::optional<QString> path = AskForPicture(this)) {
        field->setText(*path);
    }
    GoToProgramFolder(imgMap_);
}
