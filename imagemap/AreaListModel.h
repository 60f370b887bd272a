#pragma once

#include "imagemap/model/MapDocument.h"

#include <QAbstractTableModel>
#include <QHash>
#include <QSize>
#include <QStringList>

/** The columns of the area list. */
enum class AreaColumn {
    Title,
    Link,
    Target,
    Coordinates,
    Message,
};
inline constexpr int areaColumnCount = 5;

/** The areas of a map as a table: one row an area, in their order. */
class AreaListModel final : public QAbstractTableModel
{
    Q_OBJECT

public:
    /** A caption tells what stands below it; one of more characters no longer does, so it is a tool tip too.
     */
    static constexpr qsizetype longestCaption = 120;

    explicit AreaListModel(const MapDocument& map, QObject* parent = nullptr);

    /** Marks the areas that visitors of a page could not use, on a picture of this size; none without a size.
     */
    void MarkFaults(QSize picture);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    [[nodiscard]] QVariant
    headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    void Map_AreasChanged();
    void Map_MessageHeaderChanged();

    const MapDocument& map_;
    [[nodiscard]] QStringList FaultsIn(int row) const;

    QSize picture_;                          ///< of which faults are shown
    mutable QHash<int, QStringList> faults_; ///< by their rows, once they were asked for
    MapAreas shown_;                         ///< what the views have been told of
};
