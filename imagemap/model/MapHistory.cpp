#include "imagemap/model/MapHistory.h"

#include "imagemap/model/AreaLedger.h"
#include "imagemap/model/MapDocument.h"

#include <algorithm>

namespace {

bool HaveSameFigures(const FigureStore& a, const FigureStore& b)
{
    const auto shown = [](const FigureStore& ledger) {
        return ledger.Figures.first(std::min(qsizetype(ledger.FigureCount), ledger.Figures.size()));
    };
    return a.FigureCount == b.FigureCount &&
           (a.Figures.constData() == b.Figures.constData() || shown(a) == shown(b));
}

} // namespace

FigureStore LedgerOf(const MapState& state)
{
    return state.IsLedgerOfAreas ? LedgerOf(state.Areas) : state.Figures;
}

bool LooksTheSame(const MapState& a, const MapState& b)
{
    if (a.Areas != b.Areas || a.Mode != b.Mode || a.ModeDefault != b.ModeDefault || a.Picture != b.Picture) {
        return false;
    }
    const bool isBothOfAreas = a.IsLedgerOfAreas && b.IsLedgerOfAreas;
    return isBothOfAreas || HaveSameFigures(LedgerOf(a), LedgerOf(b));
}

void MapHistory::PackPresent()
{
    const PackedState& before = states_[now_ > 0 ? now_ - 1 : now_].state;
    states_[now_].state = PackedState(present_, before);
}

void MapHistory::TakePresent(const MapState& now)
{
    present_ = now;
    states_[now_].serial = map_.Serial().Number();
}

void MapHistory::EndStep(const QString& name, const QString& joinKey)
{
    if (--openSteps_ == 0) {
        Keep(name, joinKey);
        Q_EMIT Changed();
    }
}

void MapHistory::EndStepUnkept()
{
    --openSteps_;
    TakePresent(map_.State());
    Q_EMIT Changed();
}

void MapHistory::Amend()
{
    const MapState now = map_.State();
    if (LooksTheSame(present_, now)) {
        TakePresent(now);
    }
}

void MapHistory::Forget()
{
    states_ = { Step() };
    now_ = 0;
    states_[now_].serial = map_.Serial().Number();
    Q_EMIT Changed();
}

void MapHistory::Keep(const QString& name, const QString& joinKey)
{
    const MapState now = map_.State();
    if (LooksTheSame(present_, now)) {
        TakePresent(now);
        return;
    }
    const bool isJoined = !joinKey.isEmpty() && joinKey == states_[now_].joinKey;
    states_.resize(now_ + 1);
    if (!isJoined) {
        PackPresent();
        states_ << Step{ {}, name, joinKey, map_.Serial().Number() };
        ++now_;
        TakePresent(now);
        return;
    }
    TakePresent(now);
    states_[now_].name = name;
    if (LooksTheSame(states_[now_ - 1].state.Unpacked(), now)) {
        // There and back again is no step.
        states_.removeLast();
        --now_;
        TakePresent(now);
    }
}

/** What was given up since the last step was kept has left its marks in freed slots. */
void MapHistory::FinishLastStep()
{
    map_.Drawing().GiveUp();
    Keep(QStringLiteral("Change of the Map"));
}

void MapHistory::RestorePresent()
{
    present_ = states_[now_].state.Unpacked();
    map_.Serial().ReturnTo(states_[now_].serial);
    // Whoever hears of it may change the map.
    map_.Restore(MapState(present_));
    Q_EMIT Changed();
}

void MapHistory::Undo()
{
    FinishLastStep();
    if (CanUndo()) {
        EndJoining();
        PackPresent();
        --now_;
        EndJoining();
        RestorePresent();
    }
}

void MapHistory::Redo()
{
    FinishLastStep();
    if (CanRedo()) {
        PackPresent();
        ++now_;
        EndJoining();
        RestorePresent();
    }
}

void MapHistory::PutBack(const MapState& state)
{
    map_.Drawing().GiveUp();
    const MapDocument::Step step(map_, QStringLiteral("Restoring of the Map"));
    map_.Serial().Begin();
    map_.Restore(state);
}

QString StepName(QStringView what, qsizetype count)
{
    return count == 1 ? what + QStringLiteral(" of an Area")
                      : what + QStringLiteral(" of %1 Areas").arg(count);
}
