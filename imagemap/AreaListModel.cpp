#include "imagemap/AreaListModel.h"

#include "imagemap/model/AreaFaults.h"

#include <QIcon>
#include <algorithm>
#include <array>

namespace {

/** The headers of all columns but the last, which has the map's own. */
constexpr std::array<QStringView, areaColumnCount - 1> columnHeaders = {
    u"Figure :",
    u"Link to get conected to :",
    u"Target :",
    u"Coordinates :",
};

QIcon IconOf(AreaShape shape)
{
    static constexpr std::array<const char*, areaShapeNames.size()> files = {
        ":/icons/area-rectangle.svg",
        ":/icons/area-circle.svg",
        ":/icons/area-polygon.svg",
        ":/icons/area-default.svg",
    };
    return QIcon(QString::fromLatin1(files[static_cast<std::size_t>(shape)]));
}

QString TextOf(const MapAreas& areas, const QModelIndex& index)
{
    const MapArea& area = areas.at(index.row());
    switch (static_cast<AreaColumn>(index.column())) {
    case AreaColumn::Title:
        return TitleOf(area, index.row());
    case AreaColumn::Link:
        return area.Link;
    case AreaColumn::Target:
        return area.Target;
    case AreaColumn::Coordinates:
        return CoordinatesText(area);
    case AreaColumn::Message:
        return area.Message;
    }
    return {};
}

} // namespace

AreaListModel::AreaListModel(const MapDocument& map, QObject* parent)
    : QAbstractTableModel(parent)
    , map_(map)
    , shown_(map.Areas())
{
    connect(&map_, &MapDocument::AreasChanged, this, &AreaListModel::Map_AreasChanged);
    connect(&map_.Script(), &MapScript::MessageHeaderChanged, this, &AreaListModel::Map_MessageHeaderChanged);
}

int AreaListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(shown_.size());
}

int AreaListModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : areaColumnCount;
}

QVariant AreaListModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid()) {
        return {};
    }
    if (role == Qt::DisplayRole) {
        return TextOf(shown_, index);
    }
    if (role == Qt::DecorationRole && index.column() == static_cast<int>(AreaColumn::Title)) {
        return IconOf(shown_.at(index.row()).Shape);
    }
    if (role == Qt::ToolTipRole && !FaultsIn(index.row()).isEmpty()) {
        return FaultsIn(index.row()).join(u'\n');
    }
    if (role == Qt::DecorationRole && index.column() == static_cast<int>(AreaColumn::Coordinates) &&
        !FaultsIn(index.row()).isEmpty()) {
        return QIcon(QStringLiteral(":/icons/area-fault.svg"));
    }
    if (role == Qt::AccessibleDescriptionRole) {
        return FaultsIn(index.row()).join(u' ');
    }
    return {};
}

QStringList AreaListModel::FaultsIn(int row) const
{
    if (picture_.isEmpty()) {
        return {};
    }
    if (!faults_.contains(row)) {
        faults_.insert(row, FaultsOf(shown_, row, picture_));
    }
    return faults_.value(row);
}

void AreaListModel::MarkFaults(QSize picture)
{
    if (picture != picture_) {
        picture_ = picture;
        faults_.clear();
        if (!shown_.isEmpty()) {
            Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, areaColumnCount - 1));
        }
    }
}

QVariant AreaListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || (role != Qt::DisplayRole && role != Qt::ToolTipRole)) {
        return {};
    }
    const QString caption = section == static_cast<int>(AreaColumn::Message)
                                ? map_.Script().MessageHeader()
                                : columnHeaders[static_cast<std::size_t>(section)].toString();
    const bool isShown = role == Qt::DisplayRole || caption.size() > longestCaption;
    return isShown ? QVariant(caption) : QVariant();
}

/** Tells of rows that came, went or changed, and of no others: what is selected stays so. */
void AreaListModel::Map_AreasChanged()
{
    const MapAreas& areas = map_.Areas();
    faults_.clear();
    const auto old = static_cast<int>(shown_.size());
    const auto now = static_cast<int>(areas.size());
    if (now < old) {
        beginRemoveRows({}, now, old - 1);
        shown_.resize(now);
        endRemoveRows();
    } else if (now > old) {
        beginInsertRows({}, old, now - 1);
        shown_ += areas.sliced(old);
        endInsertRows();
    }
    for (int row = 0; row < std::min(old, now); ++row) {
        if (shown_.at(row) != areas.at(row)) {
            shown_[row] = areas.at(row);
            Q_EMIT dataChanged(index(row, 0), index(row, areaColumnCount - 1));
        }
    }
    // From here on both share one list.
    shown_ = areas;
}

void AreaListModel::Map_MessageHeaderChanged()
{
    const auto message = static_cast<int>(AreaColumn::Message);
    Q_EMIT headerDataChanged(Qt::Horizontal, message, message);
}
