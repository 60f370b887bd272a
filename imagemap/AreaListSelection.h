#pragma once

#include <QObject>

class AreaList;
class AreaSelection;
class MapDocument;

/** Keeps the rows that are selected in the list and the selected areas the same. */
class AreaListSelection final : public QObject
{
    Q_OBJECT

public:
    /** `list`, which has its model, `selection` and `map` must live as long. */
    AreaListSelection(AreaList& list, AreaSelection& selection, const MapDocument& map);

    /** Selects the rows of the selected areas, unless it was the list that selected these. */
    void ShowInList();

private:
    void List_SelectionChanged();

    AreaList& list_;
    AreaSelection& selection_;
    const MapDocument& map_;
    bool isSelecting_ = false;
};
