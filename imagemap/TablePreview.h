#pragma once

#include "imagemap/model/AreaArranging.h"
#include "outline/TableLinks.h"

#include <QAbstractTableModel>

/** Areas as a table will make them: a row an area, what is new in bold. */
class TablePreview final : public QAbstractTableModel
{
    Q_OBJECT

public:
    /** The title and what a table gives. */
    static constexpr int columnCountOfAll = 1 + int(tableUseCount);

    /** Shows `areas`, whose numbers in the map are `numbers`. */
    TablePreview(MapAreas areas, AreaNumbers numbers, QObject* parent);

    /** Shows what becomes of the areas. */
    void Show(const MapAreas& areas);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    [[nodiscard]] QVariant
    headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    MapAreas before_;
    MapAreas after_;
    AreaNumbers numbers_;
};
