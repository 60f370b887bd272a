#include "imagemap/RegionsModel.h"

#include <QColor>

namespace {

/** A column, and what it shows of a region. */
struct RegionColumn
{
    QStringView header;
    QString (*text)(const AreaCandidate& region);
};

constexpr RegionColumn nameColumn = { u"Name", [](const AreaCandidate& region) { return region.Name; } };
constexpr RegionColumn shapeColumn = {
    u"Shape",
    [](const AreaCandidate& region) { return areaShapeNames[std::size_t(region.Area.Shape)].name.toString(); }
};
constexpr RegionColumn linkColumn = { u"Link", [](const AreaCandidate& region) { return region.Area.Link; } };
constexpr RegionColumn pixelsColumn = { u"Pixels", [](const AreaCandidate& region) {
                                           return QString::number(region.Pixels);
                                       } };
constexpr RegionColumn noteColumn = { u"Note", [](const AreaCandidate& region) { return region.Note; } };

using RegionColumns = std::array<RegionColumn, RegionsModel::regionColumnCount>;

/** The columns for each RegionsSource. */
constexpr std::array<RegionColumns, 2> regionColumns = {
    { { nameColumn, shapeColumn, linkColumn, noteColumn },
      { nameColumn, shapeColumn, pixelsColumn, noteColumn } }
};

} // namespace

RegionsModel::RegionsModel(AreaCandidates regions, RegionsSource source, QObject* parent)
    : QAbstractTableModel(parent)
    , regions_(std::move(regions))
    , source_(source)
{
}

void RegionsModel::Replace(AreaCandidates regions, bool keepTicks)
{
    beginResetModel();
    if (keepTicks && regions.size() == regions_.size()) {
        for (qsizetype i = 0; i < regions.size(); ++i) {
            regions[i].IsTicked = regions_[i].IsTicked;
        }
    }
    regions_ = std::move(regions);
    endResetModel();
}

void RegionsModel::TickAll(bool isTicked)
{
    for (AreaCandidate& region : regions_) {
        region.IsTicked = isTicked;
    }
    if (!regions_.isEmpty()) {
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, 0), { Qt::CheckStateRole });
    }
}

int RegionsModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(regions_.size());
}

int RegionsModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : regionColumnCount;
}

Qt::ItemFlags RegionsModel::flags(const QModelIndex& index) const
{
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    return index.isValid() && index.column() == 0 ? flags | Qt::ItemIsUserCheckable : flags;
}

QVariant RegionsModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid()) {
        return {};
    }
    const AreaCandidate& region = regions_[index.row()];
    if (role == Qt::DisplayRole) {
        return regionColumns[std::size_t(source_)][std::size_t(index.column())].text(region);
    }
    if (role == Qt::DecorationRole && index.column() == 0 && region.Colour) {
        return QColor(*region.Colour);
    }
    if (role == Qt::CheckStateRole && index.column() == 0) {
        return region.IsTicked ? Qt::Checked : Qt::Unchecked;
    }
    return {};
}

bool RegionsModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (!index.isValid() || index.column() != 0 || role != Qt::CheckStateRole) {
        return false;
    }
    regions_[index.row()].IsTicked = value.toInt() == Qt::Checked;
    Q_EMIT dataChanged(index, index, { role });
    return true;
}

QVariant RegionsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    const bool isCaption = orientation == Qt::Horizontal && role == Qt::DisplayRole;
    return isCaption && section < regionColumnCount
               ? regionColumns[std::size_t(source_)][std::size_t(section)].header.toString()
               : QVariant();
}
