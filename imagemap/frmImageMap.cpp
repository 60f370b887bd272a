#include "imagemap/frmImageMap.h"

#include "imagemap/AreaCommands.h"
#include "imagemap/AreaListModel.h"
#include "imagemap/AreaTab.h"
#include "imagemap/DrawCommands.h"
#include "imagemap/EditorDialogs.h"
#include "imagemap/EditorPanels.h"
#include "imagemap/InsertCommand.h"
#include "imagemap/MapDiscarding.h"
#include "imagemap/MapFields.h"
#include "imagemap/MapOpening.h"
#include "imagemap/OutlineBar.h"
#include "imagemap/PictureCommands.h"
#include "imagemap/UpdateCommand.h"
#include "imagemap/ZoomControls.h"
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
    fields_ = std::make_unique<MapFields>(*ui_, imgMap_.Remembered);
    commands_.Create(this, ui_->MenuBar1, ui_->Toolbar1, Commands());
    panels_ = std::make_unique<EditorPanels>(
        *ui_->StatusBar1,
        EditorPanels::Labels{ ui_->lblCursor1, ui_->lblCursor2, ui_->lblStartPosition1,
                              ui_->lblStartPosition2, ui_->lblEndPosition1, ui_->lblEndPosition2,
                              ui_->lblDimensions1, ui_->lblDimensions2, ui_->lblFigures });
    CreateDrawing();
    connect(new QShortcut(Qt::Key_F1, this), &QShortcut::activated, this, [this] {
        GoToProgramFolder(imgMap_);
        help_.ShowTopic(this, helpPage);
    });
    connect(ui_->picturePane, &PicturePane::ToolUsed, this, &frmImageMap::ShowHint);
    CreateAreaParts();
    connect(&map_, &MapDocument::Cleared, this, &frmImageMap::ShowHint);
}

frmImageMap::~frmImageMap() = default;

void frmImageMap::CreateDrawing()
{
    PicturePane& pane = *ui_->picturePane;
    dialogs_ = std::make_unique<EditorDialogs>(
        EditorDialogs::Parts{ *this, imgMap_, map_, help_, pane, *ui_->ListView1, *panels_ });
    drawing_ = std::make_unique<EditorDrawing>(map_, pane.Surface(), *panels_, *dialogs_);
    pane.SetTool(&drawing_->Keyed());
    connect(drawing_.get(), &EditorDrawing::ToolChosen, this, &frmImageMap::Drawing_ToolChosen);
    connect(
        drawing_.get(), &EditorDrawing::FigureCommandsEnabled, this,
        &frmImageMap::Drawing_FigureCommandsEnabled);
    connect(drawing_.get(), &EditorDrawing::MomentChanged, this, &frmImageMap::ShowHint);
    escape_ = new QShortcut(Qt::Key_Escape, this);
    connect(escape_, &QShortcut::activated, drawing_.get(), &EditorDrawing::GiveUp);
    connect(
        ui_->ListView1, &AreaList::EditAsked, dialogs_.get(), &EditorDialogs::EditSelectedArea,
        Qt::QueuedConnection);
}

void frmImageMap::CreateAreaParts()
{
    PicturePane& pane = *ui_->picturePane;
    auto* const model = new AreaListModel(map_, this);
    ui_->ListView1->setModel(model);
    ui_->Splitter1->setStretchFactor(0, 1);
    auto* const zoom = new ZoomControls(pane, *ui_->StatusBar1);
    const auto begin = [this] { return drawing_->BeginCommand(); };
    areaCommands_ = new AreaCommands(
        { *this, *ui_->MenuBar1, *ui_->Toolbar2, pane, *ui_->ListView1, *model, drawing_->Status(),
          drawing_->Keyed(), begin },
        map_, *zoom, imgMap_.Remembered);
    auto* const areaTab = new AreaTab(imgMap_, areaCommands_->Editing(), begin, ui_->SSTab1);
    areaTab->setObjectName(QStringLiteral("tabArea"));
    areaTab->OfferAttributes(MapOrigins::Of(map_));
    ui_->SSTab1->addTab(areaTab, QStringLiteral("Area"));
    AreaTools& tools = areaCommands_->Tools();
    connect(&tools, &AreaTools::Taken, this, [this] {
        drawing_->Protocol().SelectTool(DrawingTool::Cursor);
        commands_.Check(DrawingTool::None);
    });
    connect(&tools, &AreaTools::HintGiven, this, [this](const QString& hint) { panels_->ShowHint(hint); });
    connect(&tools, &AreaTools::EditAsked, dialogs_.get(), &EditorDialogs::EditSelectedArea);
    connect(&map_, &MapDocument::PictureChanged, this, &frmImageMap::Map_PictureChanged);
    CreatePictureCommands();
    update_ = new UpdateCommand(
        { *this, areaCommands_->Menu(), *ui_->Toolbar2, map_, document_, *fields_, *panels_, pane, begin });
    discarding_ = std::make_unique<MapDiscarding>(*this, imgMap_, map_, *update_);
    auto* const outlineBar = new OutlineBar(imgMap_.Remembered, this);
    ui_->windowLayout->addWidget(outlineBar);
    drawCommands_ = new DrawCommands(
        { *this, *areaCommands_, map_, pane, *ui_->ListView1, *dialogs_, *outlineBar, imgMap_, begin });
    opening_ = std::make_unique<MapOpening>(
        MapOpening::Parts{ *this, imgMap_, map_, document_, *fields_, *panels_, *update_,
                           [this](const QString& path, const QImage& picture) {
                               ShowPicture(path, picture);
                               drawing_->Figures().ShowFigures();
                           },
                           begin, [this] { return discarding_->Discard(); } });
    insert_ = std::make_unique<InsertCommand>(
        InsertCommand::Parts{ *this, imgMap_, map_, document_, *fields_, *panels_, pane, *pictures_,
                              *ui_->ListView1, *ui_->SSTab1, *areaTab, *update_ });
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
    drawing_->Protocol().SelectTool(DrawingTool::Cursor);
    panels_->ShowStatus(noPictureText);
    Drawing_FigureCommandsEnabled(false);
    commands_.Enable(Need::Picture, false);
}

bool frmImageMap::event(QEvent* event)
{
    if (event->type() == QEvent::WindowActivate) {
        ShowDefaultPointer();
        update_->Enable(); // the page may be another one by now
    }
    return QMainWindow::event(event);
}

void frmImageMap::NewImageMap()
{
    if (!map_.HasContent()) {
        map_.Drawing().GiveUp();
        map_.ForgetAreas();
        ShowHint();
    } else if (discarding_->Discard()) {
        map_.Script().ResetMessageHeader();
    }
}

void frmImageMap::CloseImageMapEditor()
{
    if (discarding_->Discard()) {
        close();
    }
}

void frmImageMap::closeEvent(QCloseEvent* event)
{
    // What waits for an answer further up, in an event loop of its own, still needs its window afterwards.
    // The window is left to its owner then.
    const bool mayDelete = QThread::currentThread()->loopLevel() <= 1;
    setAttribute(Qt::WA_DeleteOnClose, mayDelete);
    dialogs_->Close(mayDelete);
    if (!discarding_->DiscardAtClosing()) {
        event->ignore();
        return;
    }
    map_.Drawing().GiveUp();
    ShowDefaultPointer();
    event->accept();
}

void frmImageMap::GenerateMap()
{
    insert_->Insert();
}

void frmImageMap::EditAreaData()
{
    dialogs_->EditArea(
        QStringLiteral("To edit already set data, select an Item in the Image Map Preview Box !"));
}

void frmImageMap::mnuJSOptions_Click()
{
    dialogs_->OpenOptions();
}

void frmImageMap::ShowHelp()
{
    GoToProgramFolder(imgMap_);
    help_.ShowContents(this);
}

void frmImageMap::DeleteLastFigure()
{
    map_.DeleteLastFigure();
    ShowHint();
}

void frmImageMap::PickFigureColor()
{
    panels_->ShowStatus(u"Pick a Color!");
    PictureSurface& surface = ui_->picturePane->Surface();
    QColorDialog dialog(surface.ForegroundColor(), this);
    dialog.setObjectName(QStringLiteral("CMDialog1"));
    if (dialog.exec() == QDialog::Accepted) {
        surface.SetForegroundColor(dialog.selectedColor());
        drawing_->Figures().RedrawFigures();
    }
    drawing_->ShowMode();
}

void frmImageMap::Drawing_FigureCommandsEnabled(bool enable)
{
    commands_.Enable(Need::Figures, enable);
    ui_->Check1->setEnabled(enable);
}

void frmImageMap::ResumePolygon(const QList<QPoint>& corners)
{
    if (!corners.isEmpty()) {
        drawing_->Protocol().ResumePolygon(corners);
    }
}

void frmImageMap::Drawing_ToolChosen(DrawingTool tool)
{
    areaCommands_->Tools().Leave();
    commands_.Check(tool);
}

void frmImageMap::ShowHint()
{
    const DrawingMoment moment = drawing_->Moment();
    if (pictures_->IsChanged() && !moment.isInProgress) {
        panels_->ShowHint(changedPictureHint, [this] { pictures_->LoadAnew(); });
    } else {
        panels_->ShowHint(
            areaCommands_->Tools().HaveMouse() ? areaCommands_->Tools().Hint() : DrawingHint(moment));
    }
    // Where nothing is drawn the key is left to whoever has the focus.
    escape_->setEnabled(moment.isInProgress && !dialogs_->IsOpening());
}
