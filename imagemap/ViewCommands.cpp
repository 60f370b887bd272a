#include "imagemap/ViewCommands.h"

#include "imagemap/ZoomControls.h"

#include <utility>

namespace {

using ViewRow = ViewCommands::Command;
using ViewNeed = ViewCommands::Need;
using ViewMark = ViewCommands::Mark;
using enum CommandRowKind;

constexpr int lastViewPosition = 27;

constexpr auto viewRows = std::to_array<ViewRow>({
    { Menu, "mnuView", "&View" },
    { Entry,
      "mnuVZoomIn",
      "Zoom &In",
      "Ctrl++",
      &ViewCommands::ZoomIn,
      { 19, "Zoom In", "zoom-in" },
      ViewNeed::Picture },
    { Entry,
      "mnuVZoomOut",
      "Zoom &Out",
      "Ctrl+-",
      &ViewCommands::ZoomOut,
      { 20, "Zoom Out", "zoom-out" },
      ViewNeed::Picture },
    { Entry,
      "mnuVActual",
      "&Actual Size",
      "Ctrl+0",
      &ViewCommands::ActualSize,
      { 21, "Actual Size", "zoom-actual" },
      ViewNeed::Picture },
    { Entry,
      "mnuVFit",
      "&Fit",
      "Ctrl+9",
      &ViewCommands::ToggleFit,
      { 22, "Fit", "zoom-fit" },
      ViewNeed::Picture,
      ViewMark::Fit },
    { Entry,
      "mnuVFitSelection",
      "Fit S&election",
      "",
      &ViewCommands::FitSelection,
      { 23, "Fit Selection", "zoom-selection" },
      ViewNeed::Selection },
    { Separator, "mnuVSep1" },
    { Entry,
      "mnuVAreas",
      "Show &Areas",
      "",
      &ViewCommands::Switch<Setting::showAreas>,
      { 25, "Show Areas", "area-show" },
      ViewNeed::Picture,
      ViewMark::Areas },
    { Entry,
      "mnuVSnap",
      "S&nap",
      "",
      &ViewCommands::Switch<Setting::snap>,
      { 26, "Snap", "area-snap" },
      ViewNeed::Nothing,
      ViewMark::Snap },
    { Entry,
      "mnuVGuides",
      "&Guides",
      "",
      &ViewCommands::Switch<Setting::guides>,
      { 27, "Guides", "area-guides" },
      ViewNeed::Nothing,
      ViewMark::Guides },
});
static_assert(IsToolbarWhole(viewRows, lastViewPosition));

} // namespace

ViewCommands::ViewCommands(QObject* parent, Parts parts)
    : QObject(parent)
    , parts_(std::move(parts))
{
    commands_.Create(this, &parts_.menus, &parts_.toolbar, viewRows);
    commands_.EntryOf(&ViewCommands::ZoomIn)
        .setShortcuts({ QKeySequence(Qt::CTRL | Qt::Key_Plus), QKeySequence(Qt::CTRL | Qt::Key_Equal) });
    connect(&parts_.zoom, &ZoomControls::FittingChanged, this, &ViewCommands::ShowSettings);
    if (IsOn(Setting::fitPicture)) {
        parts_.zoom.ToggleFit();
    }
    ShowSettings();
}

QMenu& ViewCommands::Menu() const
{
    return commands_.MenuOf(&ViewCommands::ZoomIn);
}

bool ViewCommands::IsOn(const FlagSetting& setting) const
{
    return parts_.settings.Value(setting);
}

void ViewCommands::Enable(bool hasPicture, bool hasSelection)
{
    commands_.Enable(Need::Picture, hasPicture);
    commands_.Enable(Need::Selection, hasPicture && hasSelection);
}

void ViewCommands::ZoomIn()
{
    if (parts_.begin()) {
        parts_.zoom.In();
    }
}

void ViewCommands::ZoomOut()
{
    if (parts_.begin()) {
        parts_.zoom.Out();
    }
}

void ViewCommands::ActualSize()
{
    if (parts_.begin()) {
        parts_.zoom.ActualSize();
    }
}

void ViewCommands::ToggleFit()
{
    if (parts_.begin()) {
        parts_.zoom.ToggleFit();
        parts_.settings.Keep(Setting::fitPicture, parts_.zoom.IsFitting());
    }
    ShowSettings();
}

void ViewCommands::FitSelection()
{
    if (parts_.begin()) {
        parts_.zoom.FitTo(parts_.selection());
    }
}

void ViewCommands::Toggle(const FlagSetting& setting)
{
    if (parts_.begin()) {
        parts_.settings.Keep(setting, !IsOn(setting));
    }
    ShowSettings();
    Q_EMIT Switched();
}

void ViewCommands::ShowSettings()
{
    commands_.SetChecked(Mark::Fit, parts_.zoom.IsFitting());
    commands_.SetChecked(Mark::Areas, IsOn(Setting::showAreas));
    commands_.SetChecked(Mark::Snap, IsOn(Setting::snap));
    commands_.SetChecked(Mark::Guides, IsOn(Setting::guides));
}
