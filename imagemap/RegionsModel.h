#pragma once

#include "outline/AreaCandidate.h"

#include <QAbstractTableModel>

/** Areas that could be made, a row each, with a tick in front of those that will be. */
class RegionsModel final : public QAbstractTableModel
{
    Q_OBJECT

public:
    /** Name, shape, link and note. */
    static constexpr int regionColumnCount = 4;

    RegionsModel(AreaCandidates regions, QObject* parent);

    [[nodiscard]] const AreaCandidates& Regions() const { return regions_; }

    /** Ticks all of them, or none. */
    void TickAll(bool isTicked);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
    [[nodiscard]] QVariant
    headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    AreaCandidates regions_;
};
