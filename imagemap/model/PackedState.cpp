#include "imagemap/model/PackedState.h"

namespace {

/** `state` without its lists. */
MapState WithoutLists(MapState state)
{
    state.Figures.Figures = {};
    state.Figures.PolygonLines = {};
    state.Figures.CurrentPolygon = {};
    state.Areas = {};
    return state;
}

} // namespace

PackedState::PackedState()
    : rest_([]() -> const MapState& {
        static const MapState nothing = WithoutLists({});
        return nothing;
    }())
{
}

PackedState::PackedState(const MapState& state, const PackedState& before)
    : figures_(state.Figures.Figures, before.figures_)
    , polygonLines_(state.Figures.PolygonLines, before.polygonLines_)
    , currentPolygon_(state.Figures.CurrentPolygon, before.currentPolygon_)
    , areas_(state.Areas, before.areas_)
    , rest_(WithoutLists(state))
{
}

MapState PackedState::Unpacked() const
{
    MapState state = rest_;
    state.Figures.Figures = figures_.Unpacked();
    state.Figures.PolygonLines = polygonLines_.Unpacked();
    state.Figures.CurrentPolygon = currentPolygon_.Unpacked();
    state.Areas = areas_.Unpacked();
    return state;
}
