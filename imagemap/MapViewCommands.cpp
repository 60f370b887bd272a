#include "imagemap/MapViewCommands.h"

#include "imagemap/ZoomControls.h"

#include <utility>

namespace {

using MapViewRow = MapViewCommands::Command;
using ViewNeed = MapViewCommands::Need;
using ViewMark = MapViewCommands::Mark;
using enum CommandRowKind;

constexpr int lastViewPosition = 27;

constexpr auto mapViewRows = std::to_array<MapViewRow>({
    { Menu, "mnuView", "&View" },
    { Entry,
      "mnuVZoomIn",
      "Zoom &In",
      "Ctrl++",
      &MapViewCommands::ZoomIn,
      { 19, "Zoom In", "zoom-in" },
      ViewNeed::Picture },
    { Entry,
      "mnuVZoomOut",
      "Zoom &Out",
      "Ctrl+-",
      &MapViewCommands::ZoomOut,
      { 20, "Zoom Out", "zoom-out" },
      ViewNeed::Picture },
    { Entry,
      "mnuVActual",
      "&Actual Size",
      "Ctrl+0",
      &MapViewCommands::ActualSize,
      { 21, "Actual Size", "zoom-actual" },
      ViewNeed::Picture },
    { Entry,
      "mnuVFit",
      "&Fit",
      "Ctrl+9",
      &MapViewCommands::ToggleFit,
      { 22, "Fit", "zoom-fit" },
      ViewNeed::Picture,
      ViewMark::Fit },
    { Entry,
      "mnuVFitSelection",
      "Fit S&election",
      "",
      &MapViewCommands::FitSelection,
      { 23, "Fit Selection", "zoom-selection" },
      ViewNeed::Selection },
    { Separator, "mnuVSep1" },
    { Entry,
      "mnuVAreas",
      "Show &Areas",
      "",
      &MapViewCommands::Switch<Setting::showAreas>,
      { 25, "Show Areas", "area-show" },
      ViewNeed::Picture,
      ViewMark::Areas },
    { Entry,
      "mnuVSnap",
      "S&nap",
      "",
      &MapViewCommands::Switch<Setting::snap>,
      { 26, "Snap", "area-snap" },
      ViewNeed::Nothing,
      ViewMark::Snap },
    { Entry,
      "mnuVGuides",
      "&Guides",
      "",
      &MapViewCommands::Switch<Setting::guides>,
      { 27, "Guides", "area-guides" },
      ViewNeed::Nothing,
      ViewMark::Guides },
});
static_assert(IsToolbarWhole(mapViewRows, lastViewPosition));

} // namespace

MapViewCommands::MapViewCommands(QObject* parent, Parts parts)
    : QObject(parent)
    , parts_(std::move(parts))
{
    commands_.Create(this, &parts_.menus, &parts_.toolbar, mapViewRows);
    commands_.EntryOf(&MapViewCommands::ZoomIn)
        .setShortcuts({ QKeySequence(Qt::CTRL | Qt::Key_Plus), QKeySequence(Qt::CTRL | Qt::Key_Equal) });
    connect(&parts_.zoom, &ZoomControls::FittingChanged, this, &MapViewCommands::ShowSettings);
    if (IsOn(Setting::fitPicture)) {
        parts_.zoom.ToggleFit();
    }
    ShowSettings();
}

QMenu& MapViewCommands::Menu() const
{
    return commands_.MenuOf(&MapViewCommands::ZoomIn);
}

bool MapViewCommands::IsOn(const FlagSetting& setting) const
{
    return parts_.settings.Value(setting);
}

void MapViewCommands::Enable(bool hasPicture, bool hasSelection)
{
    commands_.Enable(Need::Picture, hasPicture);
    commands_.Enable(Need::Selection, hasPicture && hasSelection);
}

void MapViewCommands::ZoomIn()
{
    if (parts_.begin()) {
        parts_.zoom.In();
    }
}

void MapViewCommands::ZoomOut()
{
    if (parts_.begin()) {
        parts_.zoom.Out();
    }
}

void MapViewCommands::ActualSize()
{
    if (parts_.begin()) {
        parts_.zoom.ActualSize();
    }
}

void MapViewCommands::ToggleFit()
{
    if (parts_.begin()) {
        parts_.zoom.ToggleFit();
        parts_.settings.Keep(Setting::fitPicture, parts_.zoom.IsFitting());
    }
    ShowSettings();
}

void MapViewCommands::FitSelection()
{
    if (parts_.begin()) {
        parts_.zoom.FitTo(parts_.selection());
    }
}

void MapViewCommands::Toggle(const FlagSetting& setting)
{
    if (parts_.begin()) {
        parts_.settings.Keep(setting, !IsOn(setting));
    }
    ShowSettings();
    Q_EMIT Switched();
}

void MapViewCommands::ShowSettings()
{
    commands_.SetChecked(Mark::Fit, parts_.zoom.IsFitting());
    commands_.SetChecked(Mark::Areas, IsOn(Setting::showAreas));
    commands_.SetChecked(Mark::Snap, IsOn(Setting::snap));
    commands_.SetChecked(Mark::Guides, IsOn(Setting::guides));
}
