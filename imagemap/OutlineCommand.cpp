#include "imagemap/OutlineCommand.h"

#include "imagemap/AreaCommands.h"
#include "imagemap/EditorDialogs.h"
#include "imagemap/OutlineBar.h"
#include "imagemap/PicturePane.h"

#include <algorithm>

namespace {

/** Where new areas belong: in front of the first area that they lie within, or nobody could click on them;
 * else behind all others, as what is drawn. */
qsizetype PlaceOf(const MapAreas& made, const MapAreas& all)
{
    const QRect bounds = BoundsOf(made);
    const auto around = std::find_if(all.begin(), all.end(), [&bounds](const MapArea& area) {
        return IsWhole(area) && BoundsOf(area).contains(bounds);
    });
    return around - all.begin();
}

} // namespace

OutlineCommand::OutlineCommand(const Parts& parts)
    : parts_(parts)
    , protocol_(parts_.areas.Tools().Outline())
{
    protocol_.SetTolerance(parts_.bar.Tolerance());
    protocol_.SetPlan(parts_.bar.Plan());
    parts_.bar.hide();
    connect(&parts_.areas.Tools(), &AreaTools::Switched, this, &OutlineCommand::Tools_Switched);
    connect(&protocol_, &OutlineProtocol::OutlineChanged, this, &OutlineCommand::Protocol_OutlineChanged);
    connect(&protocol_, &OutlineProtocol::ToleranceDragged, this, &OutlineCommand::Protocol_ToleranceDragged);
    connect(&protocol_, &OutlineProtocol::TakesLong, &parts_.bar, &OutlineBar::TellWork);
    connect(&protocol_, &OutlineProtocol::MakeAsked, this, &OutlineCommand::Protocol_MakeAsked);
    connect(&parts_.bar, &OutlineBar::ToleranceChanged, &protocol_, &OutlineProtocol::SetTolerance);
    connect(&parts_.bar, &OutlineBar::PlanChanged, &protocol_, &OutlineProtocol::SetPlan);
    connect(&parts_.bar, &OutlineBar::MakeAsked, &protocol_, &OutlineProtocol::Make);
}

OutlineCommand::~OutlineCommand() = default;

void OutlineCommand::Tools_Switched()
{
    parts_.bar.setVisible(parts_.areas.Tools().Chosen() == AreaTools::Tool::Outline);
}

void OutlineCommand::Protocol_OutlineChanged()
{
    parts_.bar.Tell(protocol_.Outline());
}

void OutlineCommand::Protocol_ToleranceDragged(double tolerance)
{
    parts_.bar.SetTolerance(tolerance);
}

void OutlineCommand::Protocol_MakeAsked()
{
    if (step_ || parts_.dialogs.IsLinking()) {
        return;
    }
    const RegionOutline& outline = protocol_.Outline();
    const MapAreas areas = outline.Plain();
    areHoles_.clear();
    for (const OutlinedArea& outlined : outline.Areas) {
        areHoles_ << outlined.IsHole;
    }
    before_ = parts_.map.State();
    step_.emplace(parts_.map, StepName(u"Outline", areas.size()));
    const qsizetype place = PlaceOf(areas, parts_.map.Areas());
    parts_.areas.Editing().InsertAt(place, areas, u"Outline");
    // The largest is the last one.
    parts_.dialogs.LinkMadeArea(
        place + areas.size() - 1, [this, place](bool isLinked) { EndLinking(place, isLinked); });
}

/** Every island leads where the largest does. */
void OutlineCommand::Link(qsizetype place)
{
    MapAreas all = parts_.map.Areas();
    const MapArea linked = all.at(place + areHoles_.size() - 1);
    for (qsizetype i = 0; i < areHoles_.size(); ++i) {
        if (!areHoles_[i]) {
            MapArea& area = all[place + i];
            area.Link = linked.Link;
            area.Target = linked.Target;
            area.Message = linked.Message;
        }
    }
    parts_.map.ChangeAreas(all, StepName(u"Outline", areHoles_.size()));
}

void OutlineCommand::EndLinking(qsizetype place, bool isLinked)
{
    if (isLinked) {
        Link(place);
    } else {
        parts_.map.Restore(before_);
    }
    step_.reset();
    before_ = {};
    // An outline without its area can be tried again.
    if (isLinked) {
        protocol_.Abandon();
    }
    parts_.pane.Surface().setFocus();
}
