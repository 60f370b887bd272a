// The commands of the image map editor: their menus, their toolbar, and what they need.

#include "imagemap/frmImageMap.h"

namespace {

using Row = frmImageMap::Command;
using Need = frmImageMap::Need;
using enum CommandRowKind;

constexpr int toolbarPositions = 18;
constexpr auto commandRows = std::to_array<Row>({
    { Menu, "mnuFile", "&File" },
    { Entry,
      "mnuOpenImage",
      "&Open an Image",
      "",
      &frmImageMap::OpenImage,
      { 3, " Open an Image ", "map-open" } },
    { Entry,
      "mnuNew",
      "&New Image Map",
      "",
      &frmImageMap::NewImageMap,
      { 2, " New Image Map ", "map-new" },
      Need::Figures },
    { Separator, "mnuFSep1" },
    { Entry,
      "mnuInsert",
      "&Insert",
      "",
      &frmImageMap::GenerateMap,
      { 16, "Insert", "insert" },
      Need::Figures },
    { Separator, "mnuFSep2" },
    { Entry, "mnuExit", "E&xit", "", &frmImageMap::CloseImageMapEditor, { 18, " Exit ", "exit" } },
    { Menu, "mnuEdit", "&Edit" },
    { Entry,
      "mnuFigureColors",
      "&Figure Colors...",
      "",
      &frmImageMap::PickFigureColor,
      { 11, " Color ", "color" },
      Need::Picture },
    { Entry,
      "mnuLink",
      "Edit &Data...",
      "",
      &frmImageMap::EditAreaData,
      { 12, "Edit Data", "edit-data" },
      Need::Figures },
    { Separator, "mnuESep1" },
    { Entry,
      "mnuDeleteLast",
      "&Delete Last Figure",
      "",
      &frmImageMap::DeleteLastFigure,
      { 14, " Delete Last Figure ", "delete-last" },
      Need::Figures },
    { Menu, "mnuTool", "&Tools" },
    { Entry,
      "mnuFigNum_5",
      "&Rectangle",
      "",
      &frmImageMap::SelectTool<DrawingTool::Rectangle>,
      { 5, " Rectangle ", "rectangle" },
      Need::Picture,
      DrawingTool::Rectangle },
    { Entry,
      "mnuFigNum_6",
      "C&ircle",
      "",
      &frmImageMap::SelectTool<DrawingTool::Circle>,
      { 6, " Circle ", "circle" },
      Need::Picture,
      DrawingTool::Circle },
    { Entry,
      "mnuFigNum_7",
      "&Line",
      "",
      &frmImageMap::SelectTool<DrawingTool::Line>,
      { 7, " Line ", "line" },
      Need::Picture,
      DrawingTool::Line },
    { Separator, "mnuTSep1" },
    { Entry,
      "mnuCursor",
      "&Cursor",
      "",
      &frmImageMap::SelectTool<DrawingTool::Cursor>,
      { 9, " Cursor ", "cursor" },
      Need::Picture,
      DrawingTool::Cursor },
    { Menu, "mnuJS", "&Java Script" },
    { Entry, "mnuJSOptions", "Java Script &Options...", "", &frmImageMap::mnuJSOptions_Click },
    { Menu, "mnuHelp", "&Help" },
    { Entry, "mnuContents", "&Help...", "", &frmImageMap::ShowHelp },
});
static_assert(IsToolbarWhole(commandRows, toolbarPositions));

} // namespace

std::span<const frmImageMap::Command> frmImageMap::Commands()
{
    return commandRows;
}
