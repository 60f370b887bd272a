#include "imagemap/RegionsModel.h"

namespace {

/** A column, and what it shows of a region. */
struct RegionColumn
{
    QStringView header;
    QString (*text)(const AreaCandidate& region);
};

constexpr std::array<RegionColumn, RegionsModel::regionColumnCount> regionColumns = { {
    { u"Name", [](const AreaCandidate& region) { return region.Name; } },
    { u"Shape",
      [](const AreaCandidate& region) {
          return areaShapeNames[std::size_t(region.Area.Shape)].name.toString();
      } },
    { u"Link", [](const AreaCandidate& region) { return region.Area.Link; } },
    { u"Note", [](const AreaCandidate& region) { return region.Note; } },
} };

} // namespace

RegionsModel::RegionsModel(AreaCandidates regions, QObject* parent)
    : QAbstractTableModel(parent)
    , regions_(std::move(regions))
{
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
        return regionColumns[std::size_t(index.column())].text(region);
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
    return isCaption && section < regionColumnCount ? regionColumns[std::size_t(section)].header.toString()
                                                    : QVariant();
}
