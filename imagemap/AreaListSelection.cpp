#include "imagemap/AreaListSelection.h"

#include "imagemap/AreaList.h"
#include "imagemap/drawing/AreaSelection.h"
#include "imagemap/model/MapDocument.h"

#include <QItemSelectionModel>
#include <QScopedValueRollback>

AreaListSelection::AreaListSelection(AreaList& list, AreaSelection& selection, const MapDocument& map)
    : list_(list)
    , selection_(selection)
    , map_(map)
{
    connect(
        list_.selectionModel(), &QItemSelectionModel::selectionChanged, this,
        &AreaListSelection::List_SelectionChanged);
}

void AreaListSelection::ShowInList()
{
    if (!isSelecting_) {
        const QScopedValueRollback<bool> selecting(isSelecting_, true);
        list_.SelectAreas(selection_.Numbers());
    }
}

void AreaListSelection::List_SelectionChanged()
{
    if (isSelecting_) {
        return;
    }
    const QScopedValueRollback<bool> selecting(isSelecting_, true);
    AreaNumbers numbers = list_.SelectedAreas();
    numbers.removeIf([this](qsizetype number) { return number >= map_.Areas().size(); });
    selection_.Select(numbers);
}
