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

void MapHistory::Amend(const MapState& now)
{
    if (LooksTheSame(states_[now_].state, now)) {
        Replace(now);
    }
}

void MapHistory::Keep(const MapState& now, const QString& name, const QString& joinKey)
{
    if (LooksTheSame(states_[now_].state, now)) {
        Replace(now);
        return;
    }
    const bool isJoined = !joinKey.isEmpty() && joinKey == states_[now_].joinKey;
    states_.resize(now_ + 1);
    if (!isJoined) {
        states_ << Step{ now, name, joinKey };
        ++now_;
        return;
    }
    Replace(now);
    states_[now_].name = name;
    if (LooksTheSame(states_[now_ - 1].state, now)) {
        // There and back again is no step.
        states_.removeLast();
        --now_;
        Replace(now);
    }
}

const MapState& MapHistory::Undo()
{
    EndJoining();
    --now_;
    EndJoining();
    return states_[now_].state;
}

const MapState& MapHistory::Redo()
{
    ++now_;
    EndJoining();
    return states_[now_].state;
}

QString StepName(QStringView what, qsizetype count)
{
    return count == 1 ? what + QStringLiteral(" of an Area")
                      : what + QStringLiteral(" of %1 Areas").arg(count);
}
