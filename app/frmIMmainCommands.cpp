// The main window's commands, and the parts that carry them out.

#include "app/DiskWatch.h"
#include "app/DocumentCommands.h"
#include "app/EditCommands.h"
#include "app/EditorClipboard.h"
#include "app/EditorMargins.h"
#include "app/EncodingCommands.h"
#include "app/FileDrops.h"
#include "app/FindBar.h"
#include "app/LinksList.h"
#include "app/MessageBar.h"
#include "app/OutsideCommands.h"
#include "app/PageCommands.h"
#include "app/PageMapCommands.h"
#include "app/RecentFiles.h"
#include "app/RecoveryKeeper.h"
#include "app/TagTree.h"
#include "app/ViewCommands.h"
#include "app/frmIMmain.h"
#include "imagemap/frmImageMap.h"
#include "ui_frmIMmain.h"

#include <functional>

namespace {

using Row = frmIMmain::Command;
using enum CommandRowKind;

/** A procedure of, or for, one of the window's parts. */
template<auto Part, auto Run> void In(frmIMmain& window)
{
    std::invoke(Run, (window.*Part)());
}

constexpr int toolbarPositions = 21;
constexpr auto commandRows = std::to_array<Row>({
    { Menu, "mnuFile", "&File" },
    { Entry,
      "mnuFNew",
      "&New",
      "Ctrl+N",
      In<&frmIMmain::Documents, &DocumentCommands::NewDocument>,
      { 2, "New", "new" } },
    { Entry,
      "mnuFOpen",
      "&Open...",
      "Ctrl+O",
      In<&frmIMmain::Documents, &DocumentCommands::OpenDocument>,
      { 3, "Open", "open" } },
    { Entry,
      "mnuFSave",
      "&Save",
      "Ctrl+S",
      In<&frmIMmain::Documents, &DocumentCommands::SaveDocument>,
      { 4, "Save", "save" } },
    { Entry, "mnuFSaveAs", "Save &As...", "", In<&frmIMmain::Documents, &DocumentCommands::SaveDocumentAs> },
    { Separator, "mnuFSep1" },
    { Entry,
      "mnuFPrint",
      "&Print...",
      "",
      In<&frmIMmain::Outside, &OutsideCommands::PrintDocument>,
      { 6, "Print", "print" } },
    { Separator, "mnuFSep2" },
    { Entry, "mnuFExit", "&Exit", "Ctrl+E", &frmIMmain::ExitProgram, { 21, "Exit", "exit" } },
    { Menu, "mnuEdit", "&Edit" },
    { Entry,
      "mnuEUndo",
      "&Undo",
      "Ctrl+Z",
      In<&frmIMmain::Source, &SourceEditor::undo>,
      { 11, "Undo", "undo" } },
    { Separator, "mnuESep1" },
    { Entry, "mnuECut", "Cu&t", "Ctrl+X", In<&frmIMmain::Source, CutText>, { 8, "Cut", "cut" } },
    { Entry, "mnuECopy", "&Copy", "Ctrl+C", In<&frmIMmain::Source, CopyText>, { 9, "Copy", "copy" } },
    { Entry, "mnuEPaste", "&Paste", "", In<&frmIMmain::Source, PasteText>, { 10, "Paste", "paste" } },
    { Entry, "mnuEDelete", "&Delete", "Del", In<&frmIMmain::Edits, &EditCommands::mnuEDelete_Click> },
    { Entry, "mnuESelectAll", "Select &All", "", In<&frmIMmain::Source, &SourceEditor::selectAll> },
    { Separator, "mnuESep2" },
    { Entry, "mnuEFont", "&Font", "", In<&frmIMmain::Edits, &EditCommands::mnuEFont_Click> },
    { Separator, "mnuESep3" },
    { Submenu, "mnuEEditCase", "&Edit Case" },
    { Entry, "mnuEUpperCase", "&Upper Case", "", In<&frmIMmain::Edits, &EditCommands::mnuEUpperCase_Click> },
    { Entry, "mnuELowerCase", "&Lower Case", "", In<&frmIMmain::Edits, &EditCommands::mnuELowerCase_Click> },
    { Entry, "mnuEProperCase", "&Proper Case", "",
      In<&frmIMmain::Edits, &EditCommands::mnuEProperCase_Click> },
    { EndSubmenu },
    { Menu, "mnuInsert", "&Insert" },
    { Entry,
      "mnuIimagemaps",
      "&Image Maps...",
      "Ctrl+I",
      &frmIMmain::OpenImageMapEditor,
      { 15, "Image Map", "image-map" } },
    { Separator, "mnuISep2" },
    { Entry,
      "mnuICustomHTML",
      "Custom &HTML",
      "",
      In<&frmIMmain::Edits, &EditCommands::InsertPageSkeleton>,
      { 13, "Custom HTML", "custom-html" } },
    { Menu, "mnuTools", "&Tools" },
    { Entry, "mnuTPref", "&Preferences...", "Ctrl+P", &frmIMmain::mnuTPref_Click },
    { Separator, "mnuTSep1" },
    { Entry,
      "mnuTPreview",
      "Preview with Default &Browser",
      "Ctrl+D",
      In<&frmIMmain::Outside, &OutsideCommands::PreviewDocument>,
      { 17, "Preview with Default Browser", "preview" } },
    { Menu, "mnuPage", "&Page" },
    { Entry, "mnuPFind", "&Find...", "Ctrl+F", In<&frmIMmain::Find, &FindBar::ShowFind> },
    { Entry, "mnuPReplace", "&Replace...", "Ctrl+H", In<&frmIMmain::Find, &FindBar::ShowReplace> },
    { Entry, "mnuPNext", "Find &Next", "F3", In<&frmIMmain::Find, &FindBar::FindNext> },
    { Entry, "mnuPPrevious", "Find &Previous", "Shift+F3", In<&frmIMmain::Find, &FindBar::FindPrevious> },
    { Separator, "mnuPSep1" },
    { Entry, "mnuPGoTo", "&Go to Line...", "Ctrl+G", In<&frmIMmain::Pages, &PageCommands::mnuPGoTo_Click> },
    { Separator, "mnuPSep2" },
    { Entry, "mnuPRedo", "Red&o", "Ctrl+Y", In<&frmIMmain::Source, &SourceEditor::redo> },
    { Separator, "mnuPSep3" },
    { Entry, "mnuPNewPage", "New Page for &Today", "",
      In<&frmIMmain::Documents, &DocumentCommands::mnuPNewPage_Click> },
    { Submenu, "mnuPRecent", "R&ecent Files", "", In<&frmIMmain::Recent, &RecentFiles::mnuPRecent_Show> },
    { EndSubmenu },
    { Separator, "mnuPSep4" },
    { Entry, "mnuPIndent", "&Indent Lines", "", In<&frmIMmain::Pages, &PageCommands::mnuPIndent_Click> },
    { Entry, "mnuPUnindent", "&Unindent Lines", "",
      In<&frmIMmain::Pages, &PageCommands::mnuPUnindent_Click> },
    { Entry, "mnuPTabIndents", "Tab Ke&y Indents", "",
      In<&frmIMmain::Pages, &PageCommands::mnuPTabIndents_Click> },
    { Entry, "mnuPComment", "Co&mment", "Ctrl+/", In<&frmIMmain::Pages, &PageCommands::mnuPComment_Click> },
    { Entry, "mnuPCloseTag", "&Close Tag", "", In<&frmIMmain::Pages, &PageCommands::mnuPCloseTag_Click> },
    { Entry, "mnuPComplete", "Tag Comp&letion", "",
      In<&frmIMmain::Pages, &PageCommands::mnuPComplete_Click> },
    { Entry, "mnuPFormat", "Form&at Page", "", In<&frmIMmain::Pages, &PageCommands::mnuPFormat_Click> },
    { Separator, "mnuPSep5" },
    { Entry, "mnuPCheck", "Chec&k Page", "", In<&frmIMmain::Pages, &PageCommands::mnuPCheck_Click> },
    { Separator, "mnuPSep6" },
    { Entry, "mnuPEditMap", "&Edit Image Map...", "Ctrl+M",
      In<&frmIMmain::Maps, &PageMapCommands::mnuPEditMap_Click> },
    { Entry, "mnuPToToday", "&Bring Map up to Date", "",
      In<&frmIMmain::Maps, &PageMapCommands::mnuPToToday_Click> },
    { Menu, "mnuView", "&View" },
    { .kind = Entry,
      .name = "mnuVColours",
      .caption = "Syntax &Colours",
      .run = In<&frmIMmain::Views, &ViewCommands::mnuVColours_Click>,
      .choice = ViewChoice::Colours },
    { .kind = Entry,
      .name = "mnuVLineNumbers",
      .caption = "Line &Numbers",
      .run = In<&frmIMmain::Views, &ViewCommands::mnuVLineNumbers_Click>,
      .choice = ViewChoice::LineNumbers },
    { .kind = Entry,
      .name = "mnuVCurrentLine",
      .caption = "Cu&rrent Line",
      .run = In<&frmIMmain::Views, &ViewCommands::mnuVCurrentLine_Click>,
      .choice = ViewChoice::CurrentLine },
    { .kind = Entry,
      .name = "mnuVSpaces",
      .caption = "&Spaces and Tabs",
      .run = In<&frmIMmain::Views, &ViewCommands::mnuVSpaces_Click>,
      .choice = ViewChoice::Spaces },
    { .kind = Entry,
      .name = "mnuVWrap",
      .caption = "&Wrap Long Lines",
      .run = In<&frmIMmain::Views, &ViewCommands::mnuVWrap_Click>,
      .choice = ViewChoice::Wrap },
    { Separator, "mnuVSep1" },
    { Entry, "mnuVLarger", "&Larger Text", "Ctrl++", In<&frmIMmain::Views, &ViewCommands::mnuVLarger_Click> },
    { Entry, "mnuVSmaller", "S&maller Text", "Ctrl+-",
      In<&frmIMmain::Views, &ViewCommands::mnuVSmaller_Click> },
    { Menu, "mnuHelp", "&Help" },
    { Entry, "mnuHContents", "&Contents", "F1", &frmIMmain::ShowHelpContents, { 19, "Help", "help" } },
    { Entry, "mnuHSearch", "&Search", "", &frmIMmain::ShowHelpSearch },
    { Separator, "mnuHSep1" },
    { Entry, "mnuHHome", "&Cartolen Home Page...", "",
      In<&frmIMmain::Outside, &OutsideCommands::OpenHomePage> },
    { Separator, "mnuHSep2" },
    { Entry, "mnuHAbout", "&About Cartolen...", "", In<&frmIMmain::Outside, &OutsideCommands::ShowAbout> },
});
static_assert(IsToolbarWhole(commandRows, toolbarPositions));

} // namespace

/** Makes what the window is put together from. */
void frmIMmain::CreateParts()
{
    SourceEditor& source = *ui_->MapsText1;
    documents_ = std::make_unique<DocumentCommands>(this, imgMap_, source, file_);
    edits_ = std::make_unique<EditCommands>(this, source, *ui_->txtCTags);
    page_ = std::make_unique<EditedPage>(source, file_);
    pages_ = new PageCommands(this, source, imgMap_.Remembered, file_);
    maps_ = new PageMapCommands(this, imgMap_, *page_, [this]() -> frmImageMap& {
        OpenImageMapEditor();
        return *imageMapEditor_;
    });
    messages_ = new MessageBar(&source);
    source.Margins().SetBar(Qt::TopEdge, messages_);
    encodings_ = new EncodingCommands(this, imgMap_.Remembered, source, file_, *documents_, *messages_);
    new FileDrops(this, &source, [this](const QStringList& paths) { OpenFiles(paths); });
    new DiskWatch(this, source, file_, *documents_, *messages_);
    recovery_ = new RecoveryKeeper(
        { imgMap_, map_, source, file_, *documents_, *encodings_, *messages_,
          [this] { return imageMapEditor_.data(); }, [this] { OpenImageMapEditor(); } },
        this);
    outside_ = new OutsideCommands(this, desktop_, *documents_, file_, source);
    tags_ = new TagTree(ui_->TreeView1, ui_->lblQTagsO, ui_->lblQTagsC, source);
    links_ = new LinksList(
        imgMap_, ui_->txtCTags, ui_->ListView1,
        { .Add = ui_->btnAdd, .Delete = ui_->btnDelete, .Save = ui_->btnSave });
    commands_.Create(this, ui_->MenuBar1, ui_->Toolbar1, commandRows);
    recent_ = new RecentFiles(
        this, commands_.MenuOf(In<&frmIMmain::Recent, &RecentFiles::mnuPRecent_Show>), imgMap_, file_,
        [this](const QString& path) { documents_->OpenNamed(path); },
        [this](const QString& path) { OpenPicture(path); });
    pages_->SetEntries(
        commands_.EntryOf(In<&frmIMmain::Pages, &PageCommands::mnuPTabIndents_Click>),
        commands_.EntryOf(In<&frmIMmain::Pages, &PageCommands::mnuPComplete_Click>));
    views_ = std::make_unique<ViewCommands>(
        source, imgMap_.Remembered, commands_.MenuOf(In<&frmIMmain::Views, &ViewCommands::mnuVColours_Click>),
        [this](ViewChoice choice, bool isOn) { commands_.SetChecked(choice, isOn); });
}

SourceEditor& frmIMmain::Source()
{
    return *ui_->MapsText1;
}

DocumentCommands& frmIMmain::Documents()
{
    return *documents_;
}

EditCommands& frmIMmain::Edits()
{
    return *edits_;
}

OutsideCommands& frmIMmain::Outside()
{
    return *outside_;
}

RecentFiles& frmIMmain::Recent()
{
    return *recent_;
}

PageCommands& frmIMmain::Pages()
{
    return *pages_;
}

PageMapCommands& frmIMmain::Maps()
{
    return *maps_;
}

ViewCommands& frmIMmain::Views()
{
    return *views_;
}

FindBar& frmIMmain::Find()
{
    if (find_ == nullptr) {
        find_ = new FindBar(*ui_->MapsText1, imgMap_.Remembered, file_);
        ui_->MapsText1->Margins().SetBar(Qt::BottomEdge, find_);
    }
    return *find_;
}
