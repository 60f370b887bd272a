#include "linkdialog/frmIMLink.h"

#include "shared/LinksFile.h"
#include "shared/WindowHelpers.h"
#include "ui_frmIMLink.h"

namespace {

/** The dialog's own sizes in twips: without and with a frame for the mode's texts. */
constexpr int plainHeight = 3360;
constexpr int plainButtonsTop = 2520;
constexpr int scriptHeight = 5565;
constexpr int scriptButtonsTop = 4680;

} // namespace

frmIMLink::frmIMLink(ImgMap& imgMap, AreaEditor& editor, QWidget* owner)
    : QDialog(owner)
    , imgMap_(imgMap)
    , editor_(editor)
    , ui_(std::make_unique<Ui::frmIMLink>())
{
    ui_->setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowModality(Qt::ApplicationModal);
    setFixedWidth(width());
    for (QComboBox* const box : { ui_->cmbLink, ui_->cmbTarget }) {
        // Completion would turn what was typed into something else.
        box->setCompleter(nullptr);
        box->setCurrentIndex(-1);
    }
    connect(ui_->SSCmdOK, &QPushButton::clicked, this, &frmIMLink::SSCmdOK_Click);
    connect(ui_->SSCmdReplace, &QPushButton::clicked, this, &frmIMLink::SSCmdReplace_Click);
    connect(ui_->SSCmdClose, &QPushButton::clicked, this, &frmIMLink::SSCmdClose_Click);
    connect(ui_->Command1, &QPushButton::clicked, this, &frmIMLink::Command1_Click);
    connect(ui_->Command2, &QPushButton::clicked, this, &frmIMLink::Command2_Click);
}

frmIMLink::~frmIMLink() = default;

void frmIMLink::Form_Load(const AreaRow* replaced)
{
    GoToProgramFolder(imgMap_);
    CentreOnScreen(this);
    setWindowTitle(TextsOf(imgMap_.Mode).linkCaption.toString());
    ui_->SSCmdReplace->setEnabled(false);
    ui_->SSCmdOK->setDefault(true);
    ShowModeFields();
    const bool isLoaded = LoadLinks();
    if (replaced != nullptr) {
        PrepareReplacing(*replaced);
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
    const QWidget* const shown = frames[static_cast<std::size_t>(imgMap_.Mode)];
    for (QWidget* const frame : frames) {
        if (frame != nullptr) {
            frame->setVisible(frame == shown);
        }
    }
    setFixedHeight((shown != nullptr ? scriptHeight : plainHeight) / twipsPerPixel);
    const int buttonsTop = (shown != nullptr ? scriptButtonsTop : plainButtonsTop) / twipsPerPixel;
    for (QPushButton* const button : { ui_->SSCmdOK, ui_->SSCmdReplace, ui_->SSCmdClose }) {
        button->move(button->x(), buttonsTop);
    }
    if (const std::optional<LinkField> modeDefault = RulesOf(imgMap_.Mode).modeDefault) {
        FieldEdit(*modeDefault)->setText(imgMap_.ModeDefault);
    }
}

void frmIMLink::PrepareReplacing(const AreaRow& area)
{
    isReplacing_ = true;
    ui_->cmbLink->setEditText(area.Link);
    if (imgMap_.Mode != JSDisabled) {
        FieldEdit(RulesOf(imgMap_.Mode).message)->setText(area.Message);
    }
    ui_->Frame1->setTitle(area.Text);
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
    const std::optional<RequiredField> missing = MissingField(imgMap_.Mode, entry);
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
    if (!IsComplete(entry, RulesOf(imgMap_.Mode).newLinkCaption)) {
        return;
    }
    if (const std::optional<QString> header = TakeModeDefault(imgMap_, entry)) {
        editor_.SetMessageHeader(*header);
    }
    if (const std::optional<AreaRow> row = LinkNewArea(imgMap_, entry, editor_.AreaCount() + 1)) {
        editor_.AppendArea(*row);
    }
    Unload(Accepted);
}

void frmIMLink::SSCmdReplace_Click()
{
    const LinkEntry entry = Entry();
    if (!IsComplete(entry, applicationTitle)) {
        return;
    }
    editor_.ReplaceSelectedArea(entry.Text(LinkField::Link), MessageOf(imgMap_.Mode, entry));
    if (const std::optional<QString> header = TakeModeDefault(imgMap_, entry)) {
        editor_.SetMessageHeader(*header);
    }
    Unload(Accepted);
}

void frmIMLink::SSCmdClose_Click()
{
    if (!isReplacing_) {
        DiscardNewArea(imgMap_.Store);
        editor_.RepaintFigures();
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
    editor_.ShowDrawingMode();
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
