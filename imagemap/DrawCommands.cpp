#include "imagemap/DrawCommands.h"

#include "codegen/PaintingOrder.h"
#include "imagemap/AreaCommands.h"
#include "imagemap/AreaList.h"
#include "imagemap/PicturePane.h"
#include "imagemap/frmGrid.h"
#include "imagemap/frmRegions.h"
#include "imagemap/frmTable.h"
#include "outline/SvgShapes.h"
#include "outline/SvgTree.h"
#include "widgets/FileDialog.h"
#include "widgets/OwnKeys.h"
#include "widgets/WindowHelpers.h"

#include <QFile>
#include <QMainWindow>
#include <numeric>

namespace {

using DrawRow = DrawCommands::Command;
using DrawNeed = DrawCommands::Need;
using DrawMark = DrawCommands::Mark;

constexpr auto drawRows = std::to_array<DrawRow>({
    { CommandRowKind::Submenu, "mnuADraw", "Dra&w" },
    { CommandRowKind::Entry,
      "mnuAOutline",
      "&Outline by Colour",
      "W",
      &DrawCommands::ChooseOutline,
      {},
      DrawNeed::Picture,
      DrawMark::Outline },
    { CommandRowKind::Entry,
      "mnuAOutlineAll",
      "Outline &All Regions...",
      "",
      &DrawCommands::OutlineAll,
      {},
      DrawNeed::Picture },
    { CommandRowKind::Entry,
      "mnuATransparency",
      "Areas from T&ransparency...",
      "",
      &DrawCommands::OutlineOpaque,
      {},
      DrawNeed::Picture },
    { CommandRowKind::Entry,
      "mnuAFromSvg",
      "Shapes of an &SVG...",
      "",
      &DrawCommands::ShapesOfSvg,
      {},
      DrawNeed::Picture },
    { CommandRowKind::Entry, "mnuAGrid", "&Grid...", "", &DrawCommands::DrawGrid, {}, DrawNeed::Picture },
    { CommandRowKind::Entry,
      "mnuATable",
      "Links from a &Table...",
      "",
      &DrawCommands::LinkFromTable,
      {},
      DrawNeed::Areas },
});

constexpr QStringView noSvgFileText = u"The file cannot be read, or is too large for a drawing !";
constexpr QStringView noShapesText = u"The drawing has no shapes that could be areas !";

/** The shapes of the drawing in the file `path`, for a picture of that size. */
SvgShapesReading ShapesIn(const QString& path, QSize picture)
{
    QFile file(path);
    if (file.size() > SvgTree::mostBytes || !file.open(QIODevice::ReadOnly)) {
        return { {}, noSvgFileText.toString() };
    }
    SvgShapesReading reading = ReadSvgShapes(file.readAll(), picture);
    if (reading.Problem.isEmpty() && reading.Shapes.isEmpty()) {
        reading.Problem = noShapesText.toString();
    }
    return reading;
}

/** The areas in the order of a map, whose first is on top, given in the order in which they are painted. */
MapAreas TopmostFirst(const MapAreas& painted)
{
    // The two orders are each other's: those that overlap change places.
    return Chosen(painted, PaintingOrder(painted));
}

} // namespace

std::span<const DrawCommands::Command> DrawCommands::Commands()
{
    return drawRows;
}

DrawCommands::DrawCommands(const Parts& parts)
    : QObject(&parts.window)
    , parts_(parts)
    , outline_({ parts.areas, parts.map, parts.pane, parts.dialogs, parts.outlineBar })
{
    commands_.Append(this, &parts_.areas.Menu(), Commands());
    CreateKeys();
    connect(&parts_.areas.Tools(), &AreaTools::Switched, this, &DrawCommands::ShowTool);
    connect(&parts_.map, &MapDocument::AreasChanged, this, &DrawCommands::EnableCommands);
    EnableCommands();
}

void DrawCommands::CreateKeys()
{
    commands_.MenuOf(&DrawCommands::DrawGrid).installEventFilter(new OwnKeys(this));
    // A letter is for typing wherever else the focus is.
    QAction& outline = commands_.EntryOf(&DrawCommands::ChooseOutline);
    outline.setShortcutContext(Qt::WidgetShortcut);
    parts_.pane.Surface().addAction(&outline);
    parts_.list.addAction(&outline);
}

void DrawCommands::ChooseOutline()
{
    if (parts_.begin()) {
        parts_.areas.Tools().Take(AreaTools::Tool::Outline);
    }
    ShowTool();
}

void DrawCommands::ShowTool()
{
    commands_.SetChecked(Mark::Outline, parts_.areas.Tools().Chosen() == AreaTools::Tool::Outline);
}

QSize DrawCommands::PictureSize() const
{
    const PictureSurface& surface = parts_.pane.Surface();
    return { surface.PictureWidth(), surface.PictureHeight() };
}

void DrawCommands::EnableCommands()
{
    const bool hasPicture = !PictureSize().isEmpty();
    commands_.Enable(Need::Picture, hasPicture);
    commands_.Enable(Need::Areas, hasPicture && !parts_.map.Areas().isEmpty());
}

void DrawCommands::ShowPreview(const MapAreas& areas)
{
    SelectionPicture preview;
    preview.areas = areas;
    parts_.pane.Surface().ShowSelection(preview);
}

void DrawCommands::EndPreview()
{
    parts_.areas.Tools().ShowSelection();
}

void DrawCommands::Add(const MapAreas& areas, qsizetype place, QStringView what)
{
    parts_.areas.ChooseSelect();
    parts_.areas.Editing().InsertAt(place, areas, what);
}

void DrawCommands::OfferRegions(frmRegions& dialog)
{
    connect(&dialog, &frmRegions::Changed, this, [this, &dialog] {
        SelectionPicture preview;
        preview.areas = dialog.Ticked();
        preview.frame = BoundsOf(dialog.Current());
        parts_.pane.Surface().ShowSelection(preview);
    });
    connect(&dialog, &frmRegions::finished, this, &DrawCommands::EndPreview);
    dialog.Form_Load();
    dialog.show();
}

void DrawCommands::ShapesOfSvg()
{
    if (!parts_.begin()) {
        return;
    }
    FileDialog dialog(&parts_.window, QStringLiteral("CMDialog1"), QFileDialog::ExistingFile, svgFilter);
    if (const QString picture = parts_.map.Picture(); picture.endsWith(u".svg", Qt::CaseInsensitive)) {
        dialog.selectFile(picture);
    }
    const std::optional<QString> path = dialog.Choose();
    GoToProgramFolder(parts_.imgMap);
    if (!path) {
        return;
    }
    ShowHourglass();
    const SvgShapesReading reading = ShapesIn(*path, PictureSize());
    ShowDefaultPointer();
    if (!reading.Problem.isEmpty()) {
        ShowMessage(&parts_.window, QMessageBox::Warning, reading.Problem + u'\n' + *path);
        return;
    }
    auto* const shapes =
        new frmRegions(parts_.imgMap, QStringLiteral("Shapes of an SVG"), reading.Shapes, &parts_.window);
    connect(shapes, &frmRegions::accepted, this, [this, shapes] {
        Add(TopmostFirst(shapes->Ticked()), parts_.map.Areas().size(), u"Shapes");
    });
    OfferRegions(*shapes);
}

void DrawCommands::DrawGrid()
{
    if (!parts_.begin()) {
        return;
    }
    AreaEditing& editing = parts_.areas.Editing();
    frmGrid::Rooms rooms{ RoomOf(PictureSize()), {} };
    const MapAreas selected = editing.SelectedAreas();
    if (selected.size() == 1 && selected.constFirst().Shape == AreaShape::Rectangle) {
        rooms.selected = BoundsOf(selected.constFirst());
    }
    auto* const dialog = new frmGrid(parts_.imgMap, rooms, grid_, &parts_.window);
    connect(dialog, &frmGrid::Changed, this, [this, dialog] { ShowPreview(dialog->Areas()); });
    connect(dialog, &frmGrid::finished, this, &DrawCommands::EndPreview);
    connect(dialog, &frmGrid::accepted, this, [this, dialog] {
        grid_ = dialog->Plan();
        // A grid over an area lies in front of it, or nobody could click on it; any other behind what is
        // there.
        const AreaNumbers& numbers = parts_.areas.Editing().Selection().Numbers();
        const qsizetype place = dialog->IsOverSelected() ? numbers.constFirst() : parts_.map.Areas().size();
        Add(dialog->Areas(), place, u"Grid");
    });
    dialog->Form_Load();
    dialog->show();
}

void DrawCommands::LinkFromTable()
{
    if (!parts_.begin()) {
        return;
    }
    const AreaEditing& editing = parts_.areas.Editing();
    frmTable::Subject subject{ parts_.map.Areas(), AreaNumbers(parts_.map.Areas().size()), false };
    std::iota(subject.numbers.begin(), subject.numbers.end(), qsizetype(0));
    if (const MapAreas selected = editing.SelectedAreas(); !selected.isEmpty()) {
        subject = { selected, editing.Selection().Numbers(), true };
    }
    auto* const dialog = new frmTable(parts_.imgMap, subject, &parts_.window);
    connect(dialog, &frmTable::accepted, this, [this, dialog, numbers = subject.numbers] {
        MapAreas areas = parts_.map.Areas();
        for (qsizetype i = 0; i < numbers.size(); ++i) {
            areas[numbers[i]] = dialog->Outcome().Areas[i];
        }
        parts_.map.ChangeAreas(areas, StepName(u"Linking", dialog->Outcome().AreasChanged));
    });
    dialog->Form_Load();
    dialog->show();
}
