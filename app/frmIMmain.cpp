#include "app/frmIMmain.h"

#include "app/DocumentCommands.h"
#include "app/EditCommands.h"
#include "app/EncodingCommands.h"
#include "app/FileDrops.h"
#include "app/LinksList.h"
#include "app/LogoPicture.h"
#include "app/MainPanels.h"
#include "app/OutsideCommands.h"
#include "app/PageCommands.h"
#include "app/RecentFiles.h"
#include "app/RecoveryKeeper.h"
#include "app/TagTree.h"
#include "app/ViewCommands.h"
#include "app/frmMapOptions.h"
#include "app/rules/NamedFiles.h"
#include "app/rules/WindowLayout.h"
#include "help/HelpDisplay.h"
#include "help/HelpWindow.h"
#include "imagemap/UpdateCommand.h"
#include "imagemap/frmImageMap.h"
#include "ui_frmIMmain.h"
#include "widgets/ElidedLabel.h"
#include "widgets/OneLineField.h"
#include "widgets/WindowHelpers.h"

#include <QCloseEvent>
#include <QLabel>
#include <QUrl>
#include <QWindow>

namespace {

/** Room between the toolbar's frame and what stands below it, in pixels. */
constexpr int belowToolbar = 4;

/** What the user cannot make the window smaller than: there are its tools, some tags and some source. */
constexpr QSize leastSize(520, 360);

void PlaceToolbar(const Ui::frmIMmain& ui)
{
    ui.Frame1->resize(ui.Frame1->width(), ui.Toolbar1->sizeHint().height());
    const int top = ui.Frame1->geometry().bottom() + 1 + belowToolbar;
    ui.SSTab1->move(ui.SSTab1->x(), top);
    ui.MapsText1->move(ui.MapsText1->x(), top);
}

/** Makes the source's letters, and the room for the tags beside it, larger on a desktop with large text. */
void GrowWithText(const Ui::frmIMmain& ui, qreal growth)
{
    const int tabWidth = static_cast<int>(ui.SSTab1->width() * growth);
    ui.SSTab1->resize(tabWidth, ui.SSTab1->height());
    ui.MapsText1->move(ui.SSTab1->x() + tabWidth, ui.MapsText1->y());
    QFont source = ui.MapsText1->font();
    source.setPointSizeF(source.pointSizeF() * growth);
    ui.MapsText1->setFont(source);
}

} // namespace

frmIMmain::frmIMmain(ImgMap& imgMap, MapDocument& map, Desktop& desktop)
    : imgMap_(imgMap)
    , map_(map)
    , desktop_(desktop)
    , ui_(std::make_unique<Ui::frmIMmain>())
    , help_(std::make_unique<HelpDisplay>(imgMap))
{
    ui_->setupUi(this);
    HoldOneLine(this);
    CreateParts();
    const auto* const panels = new MainPanels(ui_->StatusBar1, desktop_, file_);
    encodings_->AddTo(*ui_->StatusBar1, panels->Height());
    PlaceToolbar(*ui_);
    // A tag is known by its beginning.
    ui_->lblQTagsO->SetElideMode(Qt::ElideRight);
    ui_->lblQTagsC->SetElideMode(Qt::ElideRight);
    GrowWithText(*ui_, TextGrowth(this));
    ConnectControls();
    ui_->MapsText1->setFocus();
}

frmIMmain::~frmIMmain() = default;

void frmIMmain::ConnectControls()
{
    connect(ui_->MapsText1, &SourceEditor::Change, &file_, &DocumentFile::MarkChanged);
    connect(help_.get(), &HelpDisplay::LinkToOutside, this, &frmIMmain::Help_LinkToOutside);
    for (QLabel* const picture : { ui_->Picture1, ui_->Picture2 }) {
        connect(new LogoPicture(picture), &LogoPicture::Click, outside_, &OutsideCommands::OpenHomePage);
    }
    ui_->centralWidget->installEventFilter(this);
}

void frmIMmain::Form_Load()
{
    GoToProgramFolder(imgMap_);
    CentreOnScreen(this);
    ToggleFlatLook(ui_->Toolbar1);
    documents_->ClearDocument();
    views_->Restore();
    tags_->Build();
    links_->Load();
    recovery_->OfferLeftBehind();
}

bool frmIMmain::event(QEvent* event)
{
    if (event->type() == QEvent::WindowActivate) {
        ShowDefaultPointer();
    }
    const bool isHandled = QMainWindow::event(event);
    if (event->type() == QEvent::Show || event->type() == QEvent::LayoutRequest) {
        KeepLeastSize();
    }
    return isHandled;
}

/**
 * Tells the desktop how small the user may make the window. The window itself may have any size: its parts
 * know what to do in less room.
 */
void frmIMmain::KeepLeastSize()
{
    if (windowHandle() != nullptr) {
        windowHandle()->setMinimumSize((leastSize * TextGrowth(this)).boundedTo(RoomOnScreen(this)));
    }
}

bool frmIMmain::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize && watched == ui_->centralWidget) {
        Form_Resize();
    }
    return QMainWindow::eventFilter(watched, event);
}

void frmIMmain::Form_Resize()
{
    if (isMinimized()) {
        return;
    }
    const auto twips = [](int pixels) { return pixels * twipsPerPixel; };
    const auto pixels = [](int size) { return (size + twipsPerPixel / 2) / twipsPerPixel; };
    const MainLayout old = { .frameWidth = twips(ui_->Frame1->width()),
                             .editorTop = twips(ui_->MapsText1->y()),
                             .editorWidth = twips(ui_->MapsText1->width()),
                             .editorHeight = twips(ui_->MapsText1->height()),
                             .tabWidth = twips(ui_->SSTab1->width()),
                             .tabHeight = twips(ui_->SSTab1->height()) };
    const QSize inside = ui_->centralWidget->size();
    const MainLayout fitted = FitToWindow(old, twips(inside.width()), twips(inside.height()));
    ui_->Frame1->resize(pixels(fitted.frameWidth), ui_->Frame1->height());
    ui_->MapsText1->resize(pixels(fitted.editorWidth), pixels(fitted.editorHeight));
    ui_->SSTab1->resize(ui_->SSTab1->width(), pixels(fitted.tabHeight));
}

/** Makes and shows a window that is not there, or brings it to the front. */
template<class Window, class Make> void frmIMmain::ShowOnce(QPointer<Window>& window, Make make)
{
    ShowHourglass();
    // A window that has been closed lives on until the event loop comes round.
    if (window == nullptr || !window->isVisible()) {
        window = make();
        window->Form_Load();
        window->show();
    } else {
        window->setWindowState(window->windowState() & ~Qt::WindowMinimized);
    }
    window->raise();
    window->activateWindow();
    if (window->isActiveWindow()) {
        ShowDefaultPointer();
    }
}

void frmIMmain::OpenImageMapEditor()
{
    ShowOnce(imageMapEditor_, [this] {
        auto* const editor = new frmImageMap(imgMap_, map_, *page_, *help_, this);
        new FileDrops(editor, nullptr, [this](const QStringList& paths) { OpenFiles(paths); });
        connect(editor, &frmImageMap::PictureFileKnown, recent_, &RecentFiles::NotePicture);
        return editor;
    });
}

void frmIMmain::OpenFiles(const QStringList& paths)
{
    const NamedFiles files = SortFiles(paths);
    setWindowState(windowState() & ~Qt::WindowMinimized);
    raise();
    activateWindow();
    if (!files.Page.isEmpty()) {
        documents_->OpenNamed(files.Page);
    }
    if (!files.Picture.isEmpty()) {
        OpenPicture(files.Picture);
    }
}

void frmIMmain::OpenPicture(const QString& path)
{
    OpenImageMapEditor();
    imageMapEditor_->OpenNamedImage(path);
}

void frmIMmain::mnuTPref_Click()
{
    ShowOnce(options_, [this] { return new frmMapOptions(imgMap_, *ui_->MapsText1, this); });
}

void frmIMmain::ShowHelpContents()
{
    GoToProgramFolder(imgMap_);
    help_->ShowContents(this);
}

void frmIMmain::ShowHelpSearch()
{
    GoToProgramFolder(imgMap_);
    help_->ShowSearch(this);
}

void frmIMmain::Help_LinkToOutside(const QUrl& url)
{
    outside_->OpenAddress(url.toString(QUrl::FullyEncoded));
}

bool frmIMmain::QueryUnload()
{
    return documents_->QueryUnload();
}

void frmIMmain::ExitProgram()
{
    close();
}

void frmIMmain::closeEvent(QCloseEvent* event)
{
    const bool isEditing = imageMapEditor_ != nullptr && imageMapEditor_->isVisible();
    if ((isEditing && !imageMapEditor_->Updating().MayLeave()) || !QueryUnload()) {
        event->ignore();
        return;
    }
    event->accept();
    Form_Unload();
}

void frmIMmain::Form_Unload()
{
    if (imageMapEditor_ != nullptr) {
        imageMapEditor_->Updating().Forget();
    }
    recovery_->End();
    imgMap_.ContinueAction = true;
    if (imageMapEditor_ != nullptr) {
        imageMapEditor_->close();
    }
    if (options_ != nullptr) {
        options_->close();
    }
    if (help_->Window() != nullptr) {
        help_->Window()->close();
    }
    QCoreApplication::quit();
}
