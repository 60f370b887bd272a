#include "imagemap/model/MapHistory.h"

#include "imagemap/model/AreaLedger.h"

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

void MapHistory::Amend(const MapState& now)
{
    if (LooksTheSame(present_, now)) {
        Replace(now);
    }
}

void MapHistory::Keep(const MapState& now, const QString& name, const QString& joinKey)
{
    if (LooksTheSame(present_, now)) {
        Replace(now);
        return;
    }
    const bool isJoined = !joinKey.isEmpty() && joinKey == states_[now_].joinKey;
    states_.resize(now_ + 1);
    if (!isJoined) {
        PackPresent();
        states_ << Step{ {}, name, joinKey };
        ++now_;
        Replace(now);
        return;
    }
    Replace(now);
    states_[now_].name = name;
    if (LooksTheSame(states_[now_ - 1].state.Unpacked(), now)) {
        // There and back again is no step.
        states_.removeLast();
        --now_;
        Replace(now);
    }
}

const MapState& MapHistory::Undo()
{
    EndJoining();
    PackPresent();
    --now_;
    EndJoining();
    present_ = states_[now_].state.Unpacked();
    return present_;
}

const MapState& MapHistory::Redo()
{
    PackPresent();
    ++now_;
    EndJoining();
    present_ = states_[now_].state.Unpacked();
    return present_;
}

QString StepName(QStringView what, qsizetype count)
{
    return count == 1 ? what + QStringLiteral(" of an Area")
                      : what + QStringLiteral(" of %1 Areas").arg(count);
}
