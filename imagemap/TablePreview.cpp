#include "imagemap/TablePreview.h"

#include <QFont>

namespace {

constexpr std::array<QStringView, TablePreview::columnCountOfAll> previewHeaders = { u"Area", u"Link",
                                                                                     u"Target", u"Message",
                                                                                     u"Text" };

TableUse UseOf(int column)
{
    return tableUses[std::size_t(column - 1)];
}

} // namespace

TablePreview::TablePreview(MapAreas areas, AreaNumbers numbers, QObject* parent)
    : QAbstractTableModel(parent)
    , before_(areas)
    , after_(std::move(areas))
    , numbers_(std::move(numbers))
{
}

void TablePreview::Show(const MapAreas& areas)
{
    after_ = areas;
    if (!after_.isEmpty()) {
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
    }
}

int TablePreview::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(after_.size());
}

int TablePreview::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : columnCountOfAll;
}

QVariant TablePreview::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::FontRole)) {
        return {};
    }
    const MapArea& area = after_[index.row()];
    if (index.column() == 0) {
        return role == Qt::DisplayRole ? TitleOf(area, numbers_[index.row()]).trimmed() : QVariant();
    }
    const TableUse use = UseOf(index.column());
    if (role == Qt::DisplayRole) {
        return FieldOf(area, use);
    }
    QFont bold;
    bold.setBold(true);
    bold.setResolveMask(QFont::WeightResolved);
    return FieldOf(area, use) != FieldOf(before_[index.row()], use) ? bold : QVariant();
}

QVariant TablePreview::headerData(int section, Qt::Orientation orientation, int role) const
{
    const bool isCaption = orientation == Qt::Horizontal && role == Qt::DisplayRole;
    return isCaption && section < columnCountOfAll ? previewHeaders[std::size_t(section)].toString()
                                                   : QVariant();
}
