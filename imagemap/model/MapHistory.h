#pragma once

#include "imagemap/model/PackedState.h"

/**
 * The states that a map went through, from its first one, with the name of the step that led to each. Steps
 * that are undone can be done again until another step is kept.
 */
class MapHistory
{
public:
    /** Keeps the step that led to `now`, unless it changed nothing that can be seen. A step with the same
     * `joinKey` as the last one, which must not be empty, becomes part of it. */
    void Keep(const MapState& now, const QString& name, const QString& joinKey = {});

    /** Puts `now` in place of the present state if it looks the same, so that freed slots are kept too. */
    void Amend(const MapState& now);

    /** Makes `now` the present state, whatever it was: what a new window begins with. */
    void Replace(const MapState& now) { present_ = now; }

    /** Keeps the present state alone: nothing can be undone or done again. */
    void Forget()
    {
        states_ = { Step() };
        now_ = 0;
    }

    /** Whatever comes next is a step of its own. */
    void EndJoining() { states_[now_].joinKey.clear(); }

    [[nodiscard]] bool CanUndo() const { return now_ > 0; }
    [[nodiscard]] bool CanRedo() const { return now_ + 1 < states_.size(); }

    /** How many steps can be undone. */
    [[nodiscard]] qsizetype Position() const { return now_; }

    /** What would be undone, or done again, as in "Move of 3 Areas"; empty where there is nothing. */
    [[nodiscard]] QString UndoName() const { return CanUndo() ? states_[now_].name : QString(); }
    [[nodiscard]] QString RedoName() const { return CanRedo() ? states_[now_ + 1].name : QString(); }

    /** Goes back, or on, by one step; returns the state to be restored, which holds until the next change.
     * There must be such a step. */
    [[nodiscard]] const MapState& Undo();
    [[nodiscard]] const MapState& Redo();

private:
    struct Step
    {
        PackedState state; ///< of the present step only once it is left
        QString name;      ///< of what led to the state
        QString joinKey;   ///< what may be joined to it
    };

    void PackPresent();

    QList<Step> states_ = { Step() };
    qsizetype now_ = 0;
    MapState present_; ///< the state at `now_`
};

/** What a step is called that did `what` to so many areas: "Move of an Area", "Move of 3 Areas". */
[[nodiscard]] QString StepName(QStringView what, qsizetype count);
