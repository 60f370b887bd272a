#pragma once

#include "imagemap/model/PackedState.h"

#include <QObject>

class MapDocument;

/**
 * The states that a map went through, from its first one, with the name of the step that led to each. Steps
 * that are undone can be done again until another step is kept.
 */
class MapHistory final : public QObject
{
    Q_OBJECT

public:
    explicit MapHistory(MapDocument& map)
        : map_(map)
    {
    }

    /** Begins a step, or a part of the one that is open. See MapDocument::Step, which ends it too. */
    void BeginStep() { ++openSteps_; }

    /** Ends what was begun last; the outermost step is kept, called `name`, unless it changed nothing that
     * can be seen. A step with the same `joinKey` as the last one, which must not be empty, becomes part of
     * it. */
    void EndStep(const QString& name, const QString& joinKey = {});

    /** Ends a step without keeping it: the map as it is now is what the next one begins with. */
    void EndStepUnkept();

    /** The map has changed without a step: keeps its freed slots too, if it looks the same. */
    void Amend();

    /** Keeps the map as it is, and nothing that could be undone or done again. */
    void Forget();

    /** Whatever is changed next is a step of its own. */
    void EndJoining() { states_[now_].joinKey.clear(); }

    [[nodiscard]] bool CanUndo() const { return now_ > 0; }
    [[nodiscard]] bool CanRedo() const { return now_ + 1 < states_.size(); }

    /** How many steps can be undone. */
    [[nodiscard]] qsizetype Position() const { return now_; }

    /** What would be undone, or done again, as in "Move of 3 Areas"; empty where there is nothing. */
    [[nodiscard]] QString UndoName() const { return CanUndo() ? states_[now_].name : QString(); }
    [[nodiscard]] QString RedoName() const { return CanRedo() ? states_[now_ + 1].name : QString(); }

    /** Goes a step back, or on again; what is being drawn is given up. Does nothing where there is none. */
    void Undo();
    void Redo();

    /** Puts `state` in place of the map, as one step; what is being drawn is given up. */
    void PutBack(const MapState& state);

Q_SIGNALS:
    /** There are other steps to be undone or done again. */
    void Changed();

private:
    struct Step
    {
        PackedState state; ///< of the present step only once it is left
        QString name;      ///< of what led to the state
        QString joinKey;   ///< what may be joined to it
        int serial = 0;    ///< of the map that it is a state of
    };

    void Keep(const QString& name, const QString& joinKey = {});
    void FinishLastStep();
    void PackPresent();
    void TakePresent(const MapState& now);
    void RestorePresent();

    MapDocument& map_;
    int openSteps_ = 0;
    QList<Step> states_ = { Step() };
    qsizetype now_ = 0;
    MapState present_; ///< the state at `now_`
};

/** What a step is called that did `what` to so many areas: "Move of an Area", "Move of 3 Areas". */
[[nodiscard]] QString StepName(QStringView what, qsizetype count);
