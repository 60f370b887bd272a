#pragma once

#include "outline/AreaCandidate.h"

#include <QAbstractTableModel>

/** What areas could be made of; it is what is told about them. */
enum class RegionsSource {
    Links,   ///< something that may have a link for them
    Picture, ///< regions of a picture, with a colour and a size
};

/** Areas that could be made, a row each, with a tick in front of those that will be. */
class RegionsModel final : public QAbstractTableModel
{
    Q_OBJECT

public:
    /** Name, shape, link or size, and note. */
    static constexpr int regionColumnCount = 4;

    RegionsModel(AreaCandidates regions, RegionsSource source, QObject* parent);

    [[nodiscard]] const AreaCandidates& Regions() const { return regions_; }

    /** Shows other areas; with `keepTicks` the same ones in another shape, which keep what is ticked. */
    void Replace(AreaCandidates regions, bool keepTicks);

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
    RegionsSource source_;
};
