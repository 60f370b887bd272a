#include "imagemap/frmImageMap.h"

#include "codegen/MapMarkup.h"
#include "imagemap/AreaHeader.h"
#include "imagemap/DrawingHints.h"
#include "imagemap/PictureFile.h"
#include "imagemap/ToolMarks.h"
#include "imagemap/frmJSOptions.h"
#include "linkdialog/frmIMLink.h"
#include "shared/CommandTables.h"
#include "shared/ElidedLabel.h"
#include "shared/FileDialog.h"
#include "shared/HelpViewer.h"
#include "shared/OneLineField.h"
#include "shared/Paths.h"
#include "shared/RowDelegate.h"
#include "shared/WindowHelpers.h"
#include "ui_frmImageMap.h"

#include <QCloseEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QShortcut>
#include <QThread>
#include <algorithm>

namespace {

using Row = MenuRow<frmImageMap>;
using Button = ToolbarRow<frmImageMap>;
using enum MenuRowKind;

constexpr auto menuRows = std::to_array<Row>({
    { Menu, "mnuFile", "&File" },
    { Entry, "mnuOpenImage", "&Open an Image", "", &frmImageMap::OpenImage },
    { Entry, "mnuNew", "&New Image Map", "", &frmImageMap::NewImageMap },
    { Separator, "mnuFSep1" },
    { Entry, "mnuInsert", "&Insert", "", &frmImageMap::GenerateMap },
    { Separator, "mnuFSep2" },
    { Entry, "mnuExit", "E&xit", "", &frmImageMap::CloseImageMapEditor },
    { Menu, "mnuEdit", "&Edit" },
    { Entry, "mnuFigureColors", "&Figure Colors...", "", &frmImageMap::PickFigureColor },
    { Entry, "mnuLink", "Edit &Data...", "", &frmImageMap::EditAreaData },
    { Separator, "mnuESep1" },
    { Entry, "mnuDeleteLast", "&Delete Last Figure", "", &frmImageMap::DeleteLastFigure },
    { Menu, "mnuTool", "&Tools" },
    { CheckedEntry, "mnuFigNum_5", "&Rectangle", "", &frmImageMap::SelectRectangle },
    { CheckedEntry, "mnuFigNum_6", "C&ircle", "", &frmImageMap::SelectCircle },
    { CheckedEntry, "mnuFigNum_7", "&Line", "", &frmImageMap::SelectLine },
    { Separator, "mnuTSep1" },
    { CheckedEntry, "mnuCursor", "&Cursor", "", &frmImageMap::SelectCursor },
    { Menu, "mnuJS", "&Java Script" },
    { Entry, "mnuJSOptions", "Java Script &Options...", "", &frmImageMap::mnuJSOptions_Click },
    { Menu, "mnuHelp", "&Help" },
    { Entry, "mnuContents", "&Help...", "", &frmImageMap::ShowHelp },
});

constexpr int toolbarPositions = 18;
constexpr auto toolbarRows = std::to_array<Button>({
    { 2, " New Image Map ", "map-new", &frmImageMap::NewImageMap },
    { 3, " Open an Image ", "map-open", &frmImageMap::OpenImage },
    { 5, " Rectangle ", "rectangle", &frmImageMap::SelectRectangle },
    { 6, " Circle ", "circle", &frmImageMap::SelectCircle },
    { 7, " Line ", "line", &frmImageMap::SelectLine },
    { 9, " Cursor ", "cursor", &frmImageMap::SelectCursor },
    { 11, " Color ", "color", &frmImageMap::PickFigureColor },
    { 12, "Edit Data", "edit-data", &frmImageMap::EditAreaData },
    { 14, " Delete Last Figure ", "delete-last", &frmImageMap::DeleteLastFigure },
    { 16, "Insert", "insert", &frmImageMap::GenerateMap },
    { 18, " Exit ", "exit", &frmImageMap::CloseImageMapEditor },
});
static_assert(IsToolbarInOrder(toolbarRows, toolbarPositions));

constexpr int messageColumn = 4;
/** Room for the columns before the message, in digits: a row's name, a link, a frame, some coordinates. */
constexpr int columnDigits[messageColumn] = { 20, 22, 10, 20 };
/** Room for the list with its headers, and to draw in. */
constexpr QSize leastSize(760, 560);
constexpr QStringView helpPage = u"image-map-editor";
/** Room for a number of pixels or figures, and for a frame with two positions, in digits. */
constexpr int countDigits = 5;
constexpr int framedDigits = 16;
constexpr const char* noPictureText = "Open an Image !";
constexpr const char* deleteMapQuestion = "Do you want to delete your Image Map?";

/** The icon of a row by its number in the area list. */
QIcon SmallIcon(int number)
{
    static constexpr std::array names = { "area-rectangle", "area-circle", "area-polygon" };
    const auto index = static_cast<std::size_t>(number - 1);
    return index < names.size()
               ? QIcon(QStringLiteral(":/icons/%1.svg").arg(QString::fromLatin1(names[index])))
               : QIcon();
}

QString TextOrCaption(const QLineEdit* field, const QLabel* fallback)
{
    return field->text().isEmpty() ? fallback->text() : field->text();
}

} // namespace

frmImageMap::frmImageMap(ImgMap& imgMap, DocumentSink& document, HelpViewer& help, QWidget* owner)
    : QMainWindow(owner, Qt::Window)
    , imgMap_(imgMap)
    , document_(document)
    , help_(help)
    , ui_(std::make_unique<Ui::frmImageMap>())
    , protocol_(imgMap, *this)
{
    ui_->setupUi(this);
    HoldOneLine(this);
    setAttribute(Qt::WA_DeleteOnClose);
    for (QScrollBar* const bar : { ui_->HScroll1, ui_->VScroll1 }) {
        bar->setFocusPolicy(Qt::TabFocus);
    }
    ui_->HScroll1->installEventFilter(this);
    for (std::size_t i = 0; i < labels_.size(); ++i) {
        labels_[i] = findChild<QLabel*>(QString::fromLatin1(drawingLabels[i].name));
    }
    ui_->cmbAlign->setCompleter(nullptr);
    ui_->cmbAlign->setCurrentIndex(-1);
    NameParts(ui_->cmbAlign);
    CreateCommands();
    CreateKeys();
    CreateStatusBar();
    CreateList();
    ConnectPicture();
}

frmImageMap::~frmImageMap() = default;

void frmImageMap::CreateCommands()
{
    FillMenuBar<frmImageMap>(ui_->MenuBar1, this, menuRows);
    FillToolbar<frmImageMap>(ui_->Toolbar1, this, toolbarRows);
    for (const ToolMark& mark : toolMarks) {
        ToolbarButton(ui_->Toolbar1, mark.position)->setCheckable(true);
    }
}

void frmImageMap::CreateKeys()
{
    connect(new QShortcut(Qt::Key_F1, this), &QShortcut::activated, this, &frmImageMap::ShowPageOfHelp);
    escape_ = new QShortcut(Qt::Key_Escape, this);
    connect(escape_, &QShortcut::activated, this, &frmImageMap::GiveUpDrawing);
}

void frmImageMap::CreateStatusBar()
{
    // The parts of the width that the panels take.
    struct Panel
    {
        ElidedLabel*& label;
        const char* name;
        int part;
    };
    const std::array<Panel, 3> panels = { {
        { panel1_, "StatusBar1_Panel1", 4 },
        { panel2_, "StatusBar1_Panel2", 3 },
        { panel3_, "StatusBar1_Panel3", 5 },
    } };
    for (const Panel& panel : panels) {
        panel.label = new ElidedLabel(this);
        panel.label->setObjectName(QString::fromLatin1(panel.name));
        ui_->StatusBar1->addWidget(panel.label, panel.part);
    }
    // Of a file's name, beginning and ending tell most.
    panel2_->SetElideMode(Qt::ElideMiddle);
    panel1_->setText(QString::fromLatin1(noPictureText));
    panel2_->setText(QString::fromLatin1(noPictureText));
}

void frmImageMap::CreateList()
{
    header_ = new AreaHeader(ui_->ListView1);
    ui_->ListView1->setHeader(header_);
    FitColumns();
    connect(header_, &QHeaderView::sectionResized, this, [this](int column) {
        if (column != messageColumn) {
            FitMessageColumn();
        }
    });
    ui_->ListView1->setItemDelegate(new RowDelegate(ui_->ListView1));
    header_->installEventFilter(this);
    ui_->ListView1->installEventFilter(this);
    ui_->ListView1->viewport()->installEventFilter(this);
}

void frmImageMap::FitColumns()
{
    header_->FitInto(ui_->ListView1->viewport()->width());
    const int digit = fontMetrics().horizontalAdvance(u'0');
    // The first column needs room for the rows' names once there are any. What the columns would like beyond
    // their needs, they share out.
    std::array<int, messageColumn> needs = {};
    std::array<int, messageColumn> wishes = {};
    int wanted = 0;
    int room = ui_->ListView1->viewport()->width() - header_->sectionSizeHint(messageColumn);
    for (std::size_t i = 0; i < needs.size(); ++i) {
        const int hint = header_->sectionSizeHint(static_cast<int>(i));
        const int good = std::max(columnDigits[i] * digit, hint);
        needs[i] = i == 0 && AreaCount() > 0 ? good : hint;
        wishes[i] = good - needs[i];
        wanted += wishes[i];
        room -= needs[i];
    }
    const int given = std::clamp(room, 0, wanted);
    for (std::size_t i = 0; i < needs.size(); ++i) {
        const int extra = wanted > 0 ? wishes[i] * given / wanted : 0;
        header_->resizeSection(static_cast<int>(i), needs[i] + extra);
    }
    FitMessageColumn();
}

/** The last column takes the room that the others leave, and no less than its header needs. */
void frmImageMap::FitMessageColumn()
{
    const int left = ui_->ListView1->viewport()->width() - header_->sectionPosition(messageColumn);
    header_->resizeSection(messageColumn, std::max(header_->sectionSizeHint(messageColumn), left));
}

void frmImageMap::ConnectPicture()
{
    connect(ui_->PictureDisplay, &PictureSurface::MouseDown, this, &frmImageMap::PictureDisplay_MouseDown);
    connect(ui_->PictureDisplay, &PictureSurface::MouseMove, this, &frmImageMap::PictureDisplay_MouseMove);
    connect(ui_->PictureDisplay, &PictureSurface::MouseUp, this, &frmImageMap::PictureDisplay_MouseUp);
    connect(ui_->PicNosac, &PictureView::Resized, this, &frmImageMap::PicNosac_Resize);
    connect(ui_->PicNosac, &PictureView::WheelTurned, this, &frmImageMap::PicNosac_Wheel);
    connect(ui_->HScroll1, &QScrollBar::valueChanged, this, &frmImageMap::HScroll1_Change);
    connect(ui_->VScroll1, &QScrollBar::valueChanged, this, &frmImageMap::VScroll1_Change);
}

void frmImageMap::Form_Load()
{
    GoToProgramFolder(imgMap_);
    KeepRoomForNumbers();
    CentreOnScreen(this);
    setMinimumSize(
        (leastSize * TextGrowth(this)).boundedTo(RoomOnScreen(this)).expandedTo(minimumSizeHint()));
    ToggleFlatLook(ui_->Toolbar1);
    AbandonDrawing();
    protocol_.SelectCursor();
    ShowStatus(QString::fromLatin1(noPictureText));
    EnableFigureCommands(false);
    EnablePictureCommands(false);
    ShowModeHeader();
}

/** Keeps the room of the numbers that are still to come, so that nothing moves when they do. */
void frmImageMap::KeepRoomForNumbers()
{
    ensurePolished();
    const QSize digit(fontMetrics().horizontalAdvance(u'0'), fontMetrics().height());
    for (QLabel* const count : { ui_->lblWidthPic, ui_->lblHeightPic, ui_->lblFigures }) {
        count->setMinimumSize(digit.width() * countDigits, digit.height());
    }
    for (const DrawingLabelName& row : drawingLabels) {
        QLabel* const label = labels_[static_cast<std::size_t>(row.label)];
        label->setMinimumHeight(digit.height());
        if (row.isPosition) {
            label->parentWidget()->setMinimumWidth(digit.width() * framedDigits);
        }
    }
}

bool frmImageMap::event(QEvent* event)
{
    if (event->type() == QEvent::WindowActivate) {
        ShowDefaultPointer();
    }
    return QMainWindow::event(event);
}

bool frmImageMap::eventFilter(QObject* watched, QEvent* event)
{
    const bool isDoubleClick = watched == ui_->ListView1->viewport() &&
                               event->type() == QEvent::MouseButtonDblClick &&
                               static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton;
    const bool isEnter = watched == ui_->ListView1 && event->type() == QEvent::KeyPress &&
                         (static_cast<QKeyEvent*>(event)->key() == Qt::Key_Return ||
                          static_cast<QKeyEvent*>(event)->key() == Qt::Key_Enter);
    if (watched == ui_->ListView1->header() &&
        (event->type() == QEvent::Polish || event->type() == QEvent::FontChange)) {
        // The desktop may have a font of its own for headers, which comes when they are shown.
        QMetaObject::invokeMethod(this, &frmImageMap::FitColumns, Qt::QueuedConnection);
    }
    if (watched == ui_->ListView1->viewport() && event->type() == QEvent::Resize) {
        // Once there are rows, the columns are as the user wants them.
        AreaCount() == 0 ? FitColumns() : FitMessageColumn();
    }
    if (watched == ui_->HScroll1 && event->type() == QEvent::KeyPress &&
        HScroll1_KeyDown(*static_cast<QKeyEvent*>(event))) {
        return true;
    }
    if (isEnter && ui_->ListView1->selectedItems().isEmpty()) {
        // Who comes by Tab stands on a row that is not selected yet.
        ui_->ListView1->setCurrentItem(ui_->ListView1->currentItem());
    }
    if (isDoubleClick || isEnter) {
        QMetaObject::invokeMethod(this, &frmImageMap::EditSelectedArea, Qt::QueuedConnection);
        return isEnter;
    }
    return QMainWindow::eventFilter(watched, event);
}

void frmImageMap::OpenImage()
{
    if (!DiscardMap()) {
        return;
    }
    AbandonDrawing();
    const std::optional<QString> path = AskForPicture(this);
    if (!path) {
        return;
    }
    GoToProgramFolder(imgMap_);
    // Rows can outlive their figures.
    ui_->ListView1->clear();
    ShowHourglass();
    ShowPicture(*path);
    ShowDefaultPointer();
}

void frmImageMap::ShowPicture(const QString& path)
{
    ui_->PictureDisplay->hide();
    ui_->PictureDisplay->SetPicture({});
    ui_->PictureDisplay->move(0, 0);
    ui_->PictureDisplay->SetPicture(LoadPicture(path));
    ui_->PictureDisplay->show();
    ui_->lblWidthPic->setText(QString::number(PictureWidth()));
    ui_->lblHeightPic->setText(QString::number(PictureHeight()));
    ui_->HScroll1->setValue(0);
    ui_->VScroll1->setValue(0);
    UpdateScrollBars();
    ui_->txtImgWidth->setText(ui_->lblWidthPic->text());
    ui_->txtImgHeight->setText(ui_->lblHeightPic->text());
    panel2_->setText(FileNameOnly(path));
    panel2_->setToolTip(PlainToolTip(panel2_->text()));
    imgMap_.ImageUrl = path;
    PathToFileUrl(imgMap_.ImageUrl);
    ui_->Check1->setEnabled(true);
    EnablePictureCommands(true);
    if (protocol_.Tool() == DrawingTool::Cursor) {
        protocol_.SelectCursor();
    }
    ShowHint();
}

void frmImageMap::NewImageMap()
{
    if (imgMap_.Store.FigureCount == 0) {
        AbandonDrawing();
        ui_->ListView1->clear();
        ShowHint();
    } else if (DiscardMap()) {
        ShowModeHeader();
    }
}

void frmImageMap::GenerateMap()
{
    if (ui_->txtName->text().isEmpty()) {
        ShowMessage(this, QMessageBox::Information, QStringLiteral("Please, enter the Image Map Name !"));
        ui_->SSTab1->setCurrentWidget(ui_->tabCreating);
        ui_->txtName->setFocus();
        return;
    }
    MapSource source = { .MapName = ui_->txtName->text(),
                         .Width = TextOrCaption(ui_->txtImgWidth, ui_->lblWidthPic),
                         .Height = TextOrCaption(ui_->txtImgHeight, ui_->lblHeightPic),
                         .AltText = ui_->txtAltDescript->text(),
                         .Align = ui_->cmbAlign->currentText(),
                         .Border = ui_->txtBorder->text(),
                         .HorizontalSpace = ui_->txtHorSp->text(),
                         .VerticalSpace = ui_->txtVertSp->text(),
                         .PictureReference = ui_->Check1->isChecked() ? panel2_->text() : imgMap_.ImageUrl,
                         .FileNamesOnly = ui_->Check1->isChecked(),
                         .ModeDefault = imgMap_.ModeDefault,
                         .Areas = {} };
    for (int i = 0; i < AreaCount(); ++i) {
        source.Areas << RowAt(i);
    }
    const int line = document_.InsertAtCaret(GenerateMapFor(imgMap_.Mode, source));
    panel3_->setText(InsertedHint(line));
}

void frmImageMap::CloseImageMapEditor()
{
    if (DiscardMap()) {
        close();
    }
}

void frmImageMap::DeleteMap()
{
    AbandonDrawing();
    protocol_.ClearFigures();
    protocol_.ClearPositionLabels();
    ui_->ListView1->clear();
    ShowHint();
}

void frmImageMap::AbandonDrawing()
{
    protocol_.AbandonDrawing();
}

bool frmImageMap::DiscardMap()
{
    if (imgMap_.Store.FigureCount == 0) {
        return true;
    }
    if (!AskYesNo(this, QString::fromLatin1(deleteMapQuestion))) {
        return false;
    }
    DeleteMap();
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
    AbandonDrawing();
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
    if (imgMap_.Store.FigureCount == 0) {
        return true;
    }
    if (imgMap_.ContinueAction) {
        ShowMessage(this, QMessageBox::NoIcon, QStringLiteral("Your Image Map must be deleted"));
    } else if (!AskYesNo(
                   this, QString::fromLatin1(deleteMapQuestion), QStringLiteral("Client Side Image Map !"))) {
        return false;
    }
    DeleteMap();
    return true;
}

void frmImageMap::EditAreaData()
{
    EditArea(QStringLiteral("To edit already set data, select an Item in the Image Map Preview Box !"));
}

void frmImageMap::EditSelectedArea()
{
    if (AreaCount() > 0) {
        EditArea(QStringLiteral("To edit already set data, double click on an Item !"));
    }
}

AreaRow frmImageMap::RowAt(int index) const
{
    const QTreeWidgetItem* const item = ui_->ListView1->topLevelItem(index);
    return { .Text = item->text(0),
             .Link = item->text(1),
             .Target = item->text(2),
             .Coordinates = item->text(3),
             .Message = item->text(messageColumn),
             .SmallIcon = 0 };
}

qsizetype frmImageMap::AreaCount() const
{
    return ui_->ListView1->topLevelItemCount();
}

void frmImageMap::AppendArea(const AreaRow& row)
{
    auto* const item =
        new QTreeWidgetItem(ui_->ListView1, { row.Text, row.Link, row.Target, row.Coordinates, row.Message });
    item->setIcon(0, SmallIcon(row.SmallIcon));
    if (AreaCount() == 1) {
        FitColumns();
    }
    ui_->ListView1->scrollToItem(item);
}

void frmImageMap::ReplaceSelectedArea(const QString& link, const QString& message)
{
    const QList<QTreeWidgetItem*> selected = ui_->ListView1->selectedItems();
    if (!selected.isEmpty()) {
        selected.constFirst()->setText(1, link);
        selected.constFirst()->setText(messageColumn, message);
    }
}

void frmImageMap::SetMessageHeader(const QString& header)
{
    ui_->ListView1->headerItem()->setText(messageColumn, header);
    FitColumns();
}

void frmImageMap::ShowModeHeader()
{
    SetMessageHeader(TextsOf(imgMap_.Mode).header.toString());
}

void frmImageMap::RemoveLastArea()
{
    delete ui_->ListView1->topLevelItem(ui_->ListView1->topLevelItemCount() - 1);
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

void frmImageMap::mnuJSOptions_Click()
{
    ShowStatus(u"Set Java Script Options!");
    jsOptions_ = new frmJSOptions(imgMap_, help_, *this);
    jsOptions_->Form_Load();
    jsOptions_->show();
}

void frmImageMap::EnablePictureCommands(bool enable)
{
    EnableButtons({ 5, 6, 7, 9, 11 }, enable);
    EnableEntries({ "mnuFigNum_5", "mnuFigNum_6", "mnuFigNum_7", "mnuCursor", "mnuFigureColors" }, enable);
}

void frmImageMap::EnableButtons(std::initializer_list<int> positions, bool enable)
{
    for (const int position : positions) {
        ToolbarButton(ui_->Toolbar1, position)->setEnabled(enable);
    }
}

void frmImageMap::EnableEntries(std::initializer_list<const char*> names, bool enable)
{
    for (const char* const name : names) {
        ui_->MenuBar1->findChild<QAction*>(QString::fromLatin1(name))->setEnabled(enable);
    }
}

void frmImageMap::ShowStatus(QStringView text)
{
    panel1_->setText(text.toString());
}

void frmImageMap::ShowHint()
{
    const FigureStore& store = imgMap_.Store;
    const DrawingMoment moment = { .hasPicture = PictureWidth() > 0,
                                   .hasFigures = store.FigureCount > 0,
                                   .isInProgress = protocol_.IsInProgress(),
                                   .drawState = store.DrawState,
                                   .tool = protocol_.Tool() };
    panel3_->setText(DrawingHint(moment).toString());
    // Where nothing is drawn the key is left to whoever has the focus.
    escape_->setEnabled(moment.isInProgress && !isMessagePending_);
}
