#include "imagemap/frmImageMap.h"

#include "imagemap/AreaCommands.h"
#include "imagemap/AreaListModel.h"
#include "imagemap/AreaTab.h"
#include "imagemap/EditorPanels.h"
#include "imagemap/PictureCommands.h"
#include "imagemap/TodayInsert.h"
#include "imagemap/ZoomControls.h"
#include "imagemap/drawing/KeyedDrawing.h"
#include "imagemap/frmJSOptions.h"
#include "linkdialog/frmIMLink.h"
#include "shared/HelpViewer.h"
#include "shared/Paths.h"
#include "ui_frmImageMap.h"
#include "widgets/OneLineField.h"
#include "widgets/WindowHelpers.h"

#include <QCloseEvent>
#include <QColorDialog>
#include <QShortcut>
#include <QThread>

namespace {

using Need = frmImageMap::Need;

/** Room for the list with its headers, and to draw in. */
constexpr QSize leastSize(680, 600);
constexpr QStringView helpPage = u"image-map-editor";
constexpr const char* deleteMapQuestion = "Do you want to delete your Image Map?";

QString FullStoreMessage(FullStoreText text)
{
    return QStringLiteral("         The array is full.\n      You have entered the\nmaximum number of %1.")
        .arg(text == FullStoreText::Lines ? u"lines" : u"figures");
}

} // namespace

frmImageMap::frmImageMap(
    ImgMap& imgMap, MapDocument& map, PageDocument& document, HelpViewer& help, QWidget* owner)
    : QMainWindow(owner, Qt::Window)
    , imgMap_(imgMap)
    , map_(map)
    , document_(document)
    , help_(help)
    , ui_(std::make_unique<Ui::frmImageMap>())
{
    ui_->setupUi(this);
    HoldOneLine(this);
    setAttribute(Qt::WA_DeleteOnClose);
    ui_->cmbAlign->setCompleter(nullptr);
    ui_->cmbAlign->setCurrentIndex(-1);
    NameParts(ui_->cmbAlign);
    for (const QStringView name : markupFormNames) {
        ui_->cmbMarkup->addItem(name.toString());
    }
    ui_->cmbMarkup->setCurrentIndex(imgMap_.Remembered.Value(Setting::markupForm));
    connect(ui_->cmbMarkup, &QComboBox::activated, this, &frmImageMap::cmbMarkup_Activated);
    commands_.Create(this, ui_->MenuBar1, ui_->Toolbar1, Commands());
    CreateKeys();
    panels_ = std::make_unique<EditorPanels>(
        *ui_->StatusBar1,
        EditorPanels::Labels{ ui_->lblCursor1, ui_->lblCursor2, ui_->lblStartPosition1,
                              ui_->lblStartPosition2, ui_->lblEndPosition1, ui_->lblEndPosition2,
                              ui_->lblDimensions1, ui_->lblDimensions2, ui_->lblFigures });
    DrawingStatus& status = *this;
    display_ = std::make_unique<FigureDisplay>(map_, ui_->picturePane->Surface(), status);
    protocol_ = std::make_unique<DrawingProtocol>(map_, ui_->picturePane->Surface(), status, *display_);
    connect(ui_->picturePane, &PicturePane::ToolUsed, this, &frmImageMap::ShowHint);
    CreateAreaParts();
    connect(ui_->ListView1, &AreaList::EditAsked, this, &frmImageMap::EditSelectedArea, Qt::QueuedConnection);
    connect(&map_, &MapDocument::Cleared, this, &frmImageMap::ShowHint);
}

frmImageMap::~frmImageMap() = default;

void frmImageMap::CreateAreaParts()
{
    PicturePane& pane = *ui_->picturePane;
    auto* const model = new AreaListModel(map_, this);
    ui_->ListView1->setModel(model);
    ui_->Splitter1->setStretchFactor(0, 1);
    drawing_ = std::make_unique<KeyedDrawing>(*protocol_, pane.Surface(), pane.Surface());
    pane.SetTool(drawing_.get());
    zoom_ = new ZoomControls(pane, *ui_->StatusBar1);
    const auto begin = [this] { return BeginCommand(); };
    DrawingStatus& status = *this;
    areaCommands_ = new AreaCommands(
        { *this, *ui_->MenuBar1, *ui_->Toolbar2, pane, *ui_->ListView1, *model, status, *drawing_, begin },
        map_, *zoom_, imgMap_.Remembered);
    areaTab_ = new AreaTab(imgMap_, areaCommands_->Editing(), begin, ui_->SSTab1);
    areaTab_->setObjectName(QStringLiteral("tabArea"));
    ui_->SSTab1->addTab(areaTab_, QStringLiteral("Area"));
    connect(areaCommands_, &AreaCommands::ToolTaken, this, &frmImageMap::AreaCommands_ToolTaken);
    connect(areaCommands_, &AreaCommands::HintGiven, this, [this](const QString& hint) {
        panels_->ShowHint(hint);
    });
    connect(areaCommands_, &AreaCommands::EditAsked, this, &frmImageMap::EditSelectedArea);
    connect(&map_, &MapDocument::PictureChanged, this, &frmImageMap::Map_PictureChanged);
    CreatePictureCommands();
}

bool frmImageMap::BeginCommand()
{
    GiveUpDrawing();
    return !isMessagePending_ && (linkDialog_ == nullptr || linkDialog_->IsUnloaded());
}

void frmImageMap::AreaCommands_ToolTaken()
{
    protocol_->SelectTool(DrawingTool::Cursor);
    commands_.Check(DrawingTool::None);
}

void frmImageMap::CreateKeys()
{
    connect(new QShortcut(Qt::Key_F1, this), &QShortcut::activated, this, &frmImageMap::ShowPageOfHelp);
    escape_ = new QShortcut(Qt::Key_Escape, this);
    connect(escape_, &QShortcut::activated, this, &frmImageMap::GiveUpDrawing);
}

void frmImageMap::Form_Load()
{
    GoToProgramFolder(imgMap_);
    ensurePolished();
    panels_->KeepRoomForNumbers({ ui_->lblWidthPic, ui_->lblHeightPic, ui_->lblFigures });
    CentreOnScreen(this);
    setMinimumSize(
        (leastSize * TextGrowth(this)).boundedTo(RoomOnScreen(this)).expandedTo(minimumSizeHint()));
    ToggleFlatLook(ui_->Toolbar1);
    map_.BeginEditing();
    protocol_->SelectTool(DrawingTool::Cursor);
    panels_->ShowStatus(noPictureText);
    EnableFigureCommands(false);
    commands_.Enable(Need::Picture, false);
}

bool frmImageMap::event(QEvent* event)
{
    if (event->type() == QEvent::WindowActivate) {
        ShowDefaultPointer();
    }
    return QMainWindow::event(event);
}

void frmImageMap::NewImageMap()
{
    if (!map_.HasContent()) {
        map_.Drawing().GiveUp();
        map_.ForgetAreas();
        ShowHint();
    } else if (DiscardMap()) {
        map_.Script().ResetMessageHeader();
    }
}

void frmImageMap::CloseImageMapEditor()
{
    if (DiscardMap()) {
        close();
    }
}

bool frmImageMap::DiscardMap()
{
    if (!map_.HasContent()) {
        return true;
    }
    if (!AskYesNo(this, QString::fromLatin1(deleteMapQuestion))) {
        return false;
    }
    map_.Clear();
    return true;
}

void frmImageMap::closeEvent(QCloseEvent* event)
{
    // What waits for an answer further up, in an event loop of its own, still needs its window afterwards.
    // The window is left to its owner then.
    const bool mayDelete = QThread::currentThread()->loopLevel() <= 1;
    setAttribute(Qt::WA_DeleteOnClose, mayDelete);
    CloseDialogs(mayDelete);
    if (!QueryUnload()) {
        event->ignore();
        return;
    }
    map_.Drawing().GiveUp();
    ShowDefaultPointer();
    event->accept();
}

void frmImageMap::CloseDialogs(bool mayDelete)
{
    if (linkDialog_ != nullptr) {
        linkDialog_->setAttribute(Qt::WA_DeleteOnClose, mayDelete);
        // It may be hidden yet, behind a message, where closing it would do nothing.
        linkDialog_->reject();
    }
    if (jsOptions_ != nullptr) {
        jsOptions_->setAttribute(Qt::WA_DeleteOnClose, mayDelete);
        jsOptions_->close();
    }
}

bool frmImageMap::QueryUnload()
{
    if (!map_.HasContent()) {
        return true;
    }
    if (imgMap_.ContinueAction) {
        ShowMessage(this, QMessageBox::NoIcon, QStringLiteral("Your Image Map must be deleted"));
    } else if (!AskYesNo(
                   this, QString::fromLatin1(deleteMapQuestion), QStringLiteral("Client Side Image Map !"))) {
        return false;
    }
    map_.Clear();
    return true;
}

void frmImageMap::EditAreaData()
{
    EditArea(QStringLiteral("To edit already set data, select an Item in the Image Map Preview Box !"));
}

void frmImageMap::EditSelectedArea()
{
    if (!map_.Areas().isEmpty()) {
        EditArea(QStringLiteral("To edit already set data, double click on an Item !"));
    }
}

void frmImageMap::EditArea(const QString& hint)
{
    const std::optional<qsizetype> selected = ui_->ListView1->SelectedArea();
    if (!selected) {
        ShowMessage(this, QMessageBox::Information, hint);
    } else if (linkDialog_ == nullptr || !linkDialog_->isVisible()) {
        panels_->ShowStatus(TextsOf(map_.Script().Mode()).replacePrompt);
        OpenLinkDialog(selected);
    }
}

void frmImageMap::OpenLinkDialog(std::optional<qsizetype> replaced)
{
    linkDialog_ = new frmIMLink(imgMap_, map_, this);
    connect(linkDialog_, &QDialog::finished, this, &frmImageMap::ShowDrawingMode);
    linkDialog_->Form_Load(replaced);
    if (!linkDialog_->IsUnloaded()) {
        panels_->ShowHint(linkingHint);
        linkDialog_->show();
    }
}

void frmImageMap::mnuJSOptions_Click()
{
    panels_->ShowStatus(u"Set Java Script Options!");
    jsOptions_ = new frmJSOptions(imgMap_, map_, help_, this);
    connect(jsOptions_, &QDialog::finished, this, &frmImageMap::ShowDrawingMode);
    jsOptions_->Form_Load();
    jsOptions_->show();
}

void frmImageMap::ShowHelp()
{
    GoToProgramFolder(imgMap_);
    help_.ShowContents(this);
}

void frmImageMap::ShowPageOfHelp()
{
    GoToProgramFolder(imgMap_);
    help_.ShowTopic(this, helpPage);
}

void frmImageMap::DeleteLastFigure()
{
    map_.DeleteLastFigure();
    ShowHint();
}

void frmImageMap::GiveUpDrawing()
{
    // A figure whose dialog is open, or about to be, is no longer being drawn.
    const bool isLinking = isMessagePending_ || (linkDialog_ != nullptr && !linkDialog_->IsUnloaded());
    if (!isLinking) {
        drawing_->Abandon();
        ShowHint();
    }
}

void frmImageMap::PickFigureColor()
{
    panels_->ShowStatus(u"Pick a Color!");
    PictureSurface& surface = ui_->picturePane->Surface();
    QColorDialog dialog(surface.ForegroundColor(), this);
    dialog.setObjectName(QStringLiteral("CMDialog1"));
    if (dialog.exec() == QDialog::Accepted) {
        surface.SetForegroundColor(dialog.selectedColor());
        display_->RedrawFigures();
    }
    ShowDrawingMode();
}

void frmImageMap::SetLabel(DrawingLabel label, const QString& text)
{
    panels_->SetLabel(label, text);
}

void frmImageMap::EnableFigureCommands(bool enable)
{
    commands_.Enable(Need::Figures, enable);
    ui_->Check1->setEnabled(enable);
}

void frmImageMap::ShowTool()
{
    areaCommands_->LeaveTool();
    commands_.Check(protocol_->Tool());
    ShowDrawingMode();
}

void frmImageMap::ShowDrawingMode()
{
    panels_->ShowStatus(DrawingModeText(protocol_->Tool()));
    ShowHint();
}

void frmImageMap::ShowHint()
{
    const DrawingMoment moment = { .hasPicture = ui_->picturePane->Surface().PictureWidth() > 0,
                                   .hasFigures = map_.HasContent(),
                                   .isInProgress = map_.Drawing().IsInProgress(),
                                   .drawState = map_.Figures().DrawState,
                                   .tool = protocol_->Tool() };
    if (pictures_->IsChanged() && !moment.isInProgress) {
        panels_->ShowHint(changedPictureHint, [this] { pictures_->LoadAnew(); });
    } else {
        panels_->ShowHint(areaCommands_->HasTool() ? areaCommands_->Hint() : DrawingHint(moment));
    }
    // Where nothing is drawn the key is left to whoever has the focus.
    escape_->setEnabled(moment.isInProgress && !isMessagePending_);
}

template<class Act> void frmImageMap::AfterTheMouse(Act act)
{
    // A dialog that opens inside a mouse handler would swallow the button's release.
    isMessagePending_ = true;
    ui_->picturePane->HoldTool(true);
    const auto run = [this, act] {
        isMessagePending_ = false;
        ui_->picturePane->HoldTool(false);
        act();
    };
    QMetaObject::invokeMethod(this, run, Qt::QueuedConnection);
}

void frmImageMap::ReportFullStore(FullStoreText text)
{
    AfterTheMouse([this, text] {
        ShowMessage(this, QMessageBox::Warning, FullStoreMessage(text));
        ShowHint();
    });
}

void frmImageMap::LinkNewFigure(QStringView prompt)
{
    panels_->ShowStatus(prompt);
    AfterTheMouse([this] { OpenLinkDialog(); });
}
