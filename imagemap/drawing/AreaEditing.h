#pragma once

#include "imagemap/drawing/AreaSelection.h"
#include "imagemap/model/MapDocument.h"

#include <QSize>

/** The commands that change the selected areas of a map, each as one step of undo. */
class AreaEditing
{
public:
    AreaEditing(MapDocument& map, AreaSelection& selection)
        : map_(map)
        , selection_(selection)
    {
    }

    /** The room in which areas are kept, in picture pixels. */
    void SetPictureSize(QSize size) { picture_ = size; }

    [[nodiscard]] MapAreas SelectedAreas() const;
    [[nodiscard]] const MapDocument& Map() const { return map_; }
    [[nodiscard]] AreaSelection& Selection() const { return selection_; }

    /** Puts `areas` in place of the selected ones; `what` names the step, as "Move". */
    void Replace(const MapAreas& areas, QStringView what, const QString& joinKey = {});

    /** Whatever is changed next is a step of its own. */
    void EndJoining() { map_.History().EndJoining(); }

    /** Moves the selected areas, or the selected corner; within the picture unless `isFree`. */
    void Nudge(QPoint by, bool isFree);
    void Resize(QPoint by);

    /** Takes the selected corner out, or else the selected areas. */
    void Delete();
    void Cut();
    void Duplicate();
    /** Adds `areas` in front of all others and selects them. */
    void Paste(const MapAreas& areas);

    /** Adds `areas` in front of the area `place` and selects them; `what` names the step, as "Paste". */
    void InsertAt(qsizetype place, const MapAreas& areas, QStringView what);

    void SelectAll();
    /** Selects the next area, or the one before; false behind the last one. */
    [[nodiscard]] bool SelectNext(int step);
    /** The same with the corners of the only selected polygon; goes round. */
    [[nodiscard]] bool SelectNextVertex(int step);
    /** Puts a corner into the middle of the side behind the selected one. */
    [[nodiscard]] bool InsertVertex();

    void Reorder(OrderChange change);
    void Align(Alignment alignment);

    /** Go a step back or on, and select what was changed by it. */
    void Undo();
    void Redo();

private:
    void ChangeVertex(const MapArea& area, std::optional<int> vertex, const QString& name);
    void DeleteAreas(QStringView what);
    void SelectChanges(const MapAreas& before);

    MapDocument& map_;
    AreaSelection& selection_;
    QSize picture_;
};
