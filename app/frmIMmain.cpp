#include "app/frmIMmain.h"

#include "app/WindowLayout.h"
#include "imagemap/frmImageMap.h"
#include "shared/CommandTables.h"
#include "shared/LinksFile.h"
#include "shared/WindowHelpers.h"
#include "ui_frmIMmain.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>

namespace {

using Row = MenuRow<frmIMmain>;
using Button = ToolbarRow<frmIMmain>;
using enum MenuRowKind;

constexpr auto menuRows = std::to_array<Row>({
    { Menu, "mnuFile", "&File" },
    { Entry, "mnuFNew", "&New", "Ctrl+N", &frmIMmain::NewDocument },
    { Entry, "mnuFOpen", "&Open...", "Ctrl+O", &frmIMmain::OpenDocument },
    { Entry, "mnuFSave", "&Save", "Ctrl+S", &frmIMmain::SaveDocument },
    { Entry, "mnuFSaveAs", "Save &As...", "", &frmIMmain::SaveDocumentAs },
    { Separator, "mnuFSep1" },
    { Entry, "mnuFPrint", "&Print..." },
    { Separator, "mnuFSep2" },
    { Entry, "mnuFExit", "&Exit", "Ctrl+E", &frmIMmain::ExitProgram },
    { Menu, "mnuEdit", "&Edit" },
    { Entry, "mnuEUndo", "&Undo", "Ctrl+Z" },
    { Separator, "mnuESep1" },
    { Entry, "mnuECut", "Cu&t", "Ctrl+X" },
    { Entry, "mnuECopy", "&Copy", "Ctrl+C" },
    { Entry, "mnuEPaste", "&Paste" },
    { Entry, "mnuEDelete", "&Delete", "Del" },
    { Entry, "mnuESelectAll", "Select &All" },
    { Separator, "mnuESep2" },
    { Entry, "mnuEFont", "&Font" },
    { Separator, "mnuESep3" },
    { Submenu, "mnuEEditCase", "&Edit Case" },
    { Entry, "mnuEUpperCase", "&Upper Case" },
    { Entry, "mnuELowerCase", "&Lower Case" },
    { Entry, "mnuEProperCase", "&Proper Case" },
    { EndSubmenu },
    { Menu, "mnuInsert", "&Insert" },
    { Entry, "mnuIimagemaps", "&Image Maps...", "Ctrl+I", &frmIMmain::OpenImageMapEditor },
    { Separator, "mnuISep2" },
    { Entry, "mnuICustomHTML", "Custom &HTML" },
    { Menu, "mnuTools", "&Tools" },
    { Entry, "mnuTPref", "&Preferences...", "Ctrl+P" },
    { Separator, "mnuTSep1" },
    { Entry, "mnuTPreview", "Preview with Default &Browser", "Ctrl+D" },
    { Menu, "mnuHelp", "&Help" },
    { Entry, "mnuHContents", "&Contents", "F1" },
    { Entry, "mnuHSearch", "&Search" },
    { Separator, "mnuHSep1" },
    { Entry, "mnuHHome", "&Cartolen Home Page..." },
    { Separator, "mnuHSep2" },
    { Entry, "mnuHAbout", "&About Cartolen..." },
});

constexpr int toolbarPositions = 21;
constexpr auto toolbarRows = std::to_array<Button>({
    { 2, "New", "new", &frmIMmain::NewDocument },
    { 3, "Open", "open", &frmIMmain::OpenDocument },
    { 4, "Save", "save", &frmIMmain::SaveDocument },
    { 6, "Print", "print" },
    { 8, "Cut", "cut" },
    { 9, "Copy", "copy" },
    { 10, "Paste", "paste" },
    { 11, "Undo", "undo" },
    { 13, "Custom HTML", "custom-html" },
    { 15, "Image Map", "image-map", &frmIMmain::OpenImageMapEditor },
    { 17, "Preview with Default Browser", "preview" },
    { 19, "Help", "help" },
    { 21, "Exit", "exit", &frmIMmain::ExitProgram },
});
static_assert(IsToolbarInOrder(toolbarRows, toolbarPositions));

/** Room between the toolbar's frame and what stands below it, in pixels. */
constexpr int belowToolbar = 4;

} // namespace

frmIMmain::frmIMmain(ImgMap& imgMap)
    : imgMap_(imgMap)
    , ui_(std::make_unique<Ui::frmIMmain>())
{
    ui_->setupUi(this);
    CreateCommands();
    CreateStatusBar();
    PlaceToolbar();
    connect(ui_->MapsText1, &SourceEditor::Change, this, &frmIMmain::MapsText1_Change);
    ui_->MapsText1->installEventFilter(this);
    ui_->centralWidget->installEventFilter(this);
    ui_->MapsText1->setFocus();
}

frmIMmain::~frmIMmain() = default;

void frmIMmain::CreateCommands()
{
    FillMenuBar<frmIMmain>(ui_->MenuBar1, this, menuRows);
    FillToolbar<frmIMmain>(ui_->Toolbar1, this, toolbarRows);
}

void frmIMmain::CreateStatusBar()
{
    panel1_ = new QLabel(QStringLiteral("CAPS"), this);
    panel2_ = new QLabel(this);
    panel3_ = new QLabel(this);
    panel1_->setObjectName(QStringLiteral("StatusBar1_Panel1"));
    panel2_->setObjectName(QStringLiteral("StatusBar1_Panel2"));
    panel3_->setObjectName(QStringLiteral("StatusBar1_Panel3"));
    panel1_->setEnabled(false);
    panel3_->setTextFormat(Qt::PlainText);
    // A long path must not widen the window.
    panel3_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    ui_->StatusBar1->addWidget(panel1_);
    ui_->StatusBar1->addWidget(panel2_);
    ui_->StatusBar1->addWidget(panel3_, 1);
}

void frmIMmain::PlaceToolbar()
{
    ui_->Frame1->resize(ui_->Frame1->width(), ui_->Toolbar1->sizeHint().height());
    const int top = ui_->Frame1->geometry().bottom() + 1 + belowToolbar;
    ui_->SSTab1->move(ui_->SSTab1->x(), top);
    ui_->MapsText1->move(ui_->MapsText1->x(), top);
}

void frmIMmain::Form_Load()
{
    GoToProgramFolder(imgMap_);
    CentreOnScreen(this);
    ToggleFlatLook(ui_->Toolbar1);
    ClearDocument();
    LoadSavedLinks();
}

void frmIMmain::LoadSavedLinks()
{
    const SavedLinks saved = ReadSavedLinks(imgMap_.ProgramFolder + u'/' + linksFileName);
    std::size_t slot = 0;
    for (const SavedLink& link : saved.links) {
        ++slot;
        imgMap_.SavedLinkURL[slot] = link.Url;
        imgMap_.SavedLinkMark[slot] = link.Mark;
        ui_->ListView1->addItem(link.Url);
    }
    if (saved.isDamaged) {
        ShowMessage(this, QMessageBox::Warning, linksDamagedText.toString());
    }
}

bool frmIMmain::event(QEvent* event)
{
    if (event->type() == QEvent::WindowActivate) {
        ShowDefaultPointer();
    }
    return QMainWindow::event(event);
}

bool frmIMmain::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == ui_->MapsText1 && event->type() == QEvent::KeyPress) {
        FollowCapsLock(*static_cast<QKeyEvent*>(event));
    }
    if (watched == ui_->centralWidget && event->type() == QEvent::Resize) {
        Form_Resize();
    }
    return QMainWindow::eventFilter(watched, event);
}

void frmIMmain::FollowCapsLock(const QKeyEvent& key)
{
    // Qt does not tell the lock's state, but what a key typed does.
    const QString text = key.text();
    if (key.key() == Qt::Key_CapsLock) {
        panel1_->setEnabled(!panel1_->isEnabled());
    } else if (text.size() == 1 && text[0].isLetter() && text[0].toUpper() != text[0].toLower()) {
        panel1_->setEnabled(text[0].isUpper() != key.modifiers().testFlag(Qt::ShiftModifier));
    }
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

void frmIMmain::OpenImageMapEditor()
{
    ShowHourglass();
    // A window that has been closed lives on until the event loop comes round.
    if (imageMapEditor_ == nullptr || !imageMapEditor_->isVisible()) {
        imageMapEditor_ = new frmImageMap(imgMap_, *this, this);
        imageMapEditor_->Form_Load();
        imageMapEditor_->show();
    } else {
        imageMapEditor_->setWindowState(imageMapEditor_->windowState() & ~Qt::WindowMinimized);
    }
    imageMapEditor_->raise();
    imageMapEditor_->activateWindow();
    if (imageMapEditor_->isActiveWindow()) {
        ShowDefaultPointer();
    }
}

void frmIMmain::InsertAtCaret(const QString& text)
{
    ui_->MapsText1->ReplaceSelection(text);
}

void frmIMmain::ExitProgram()
{
    close();
}

void frmIMmain::closeEvent(QCloseEvent* event)
{
    if (!QueryUnload()) {
        event->ignore();
        return;
    }
    event->accept();
    Form_Unload();
}

void frmIMmain::Form_Unload()
{
    imgMap_.ContinueAction = true;
    if (imageMapEditor_ != nullptr) {
        imageMapEditor_->close();
    }
    QCoreApplication::quit();
}
