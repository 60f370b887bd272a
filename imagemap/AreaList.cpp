#include "imagemap/AreaList.h"

#include "imagemap/AreaHeader.h"
#include "imagemap/AreaListModel.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <algorithm>
#include <array>

namespace {

constexpr int messageColumn = static_cast<int>(AreaColumn::Message);
/** Room for the columns before the message, in digits: a row's name, a link, a frame, some coordinates. */
constexpr std::array<int, messageColumn> columnDigits = { 20, 22, 10, 20 };

} // namespace

AreaList::AreaList(QWidget* parent)
    : QTreeView(parent)
    , header_(new AreaHeader(this))
{
    setHeader(header_);
    header_->installEventFilter(this);
    connect(header_, &QHeaderView::sectionResized, this, &AreaList::Header_SectionResized);
}

void AreaList::setModel(QAbstractItemModel* model)
{
    QTreeView::setModel(model);
    connect(model, &QAbstractItemModel::headerDataChanged, this, &AreaList::FitColumns);
    FitColumns();
}

std::optional<qsizetype> AreaList::SelectedArea() const
{
    const QModelIndexList selected =
        selectionModel() != nullptr ? selectionModel()->selectedRows() : QModelIndexList();
    return selected.isEmpty() ? std::nullopt : std::optional<qsizetype>(selected.constFirst().row());
}

AreaNumbers AreaList::SelectedAreas() const
{
    AreaNumbers numbers;
    for (const QModelIndex& row : selectionModel()->selectedRows()) {
        numbers << row.row();
    }
    return numbers;
}

void AreaList::SelectAreas(const AreaNumbers& numbers)
{
    QItemSelection rows;
    for (const qsizetype number : numbers) {
        if (number < model()->rowCount()) {
            const QModelIndex row = model()->index(static_cast<int>(number), 0);
            rows.select(row, row);
        }
    }
    selectionModel()->select(rows, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    if (!rows.isEmpty()) {
        scrollTo(rows.indexes().constFirst());
    }
}

bool AreaList::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == header_ && (event->type() == QEvent::Polish || event->type() == QEvent::FontChange)) {
        // The desktop may have a font of its own for headers, which comes when they are shown.
        QMetaObject::invokeMethod(this, &AreaList::FitColumns, Qt::QueuedConnection);
    }
    return QTreeView::eventFilter(watched, event);
}

void AreaList::keyPressEvent(QKeyEvent* event)
{
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
        QTreeView::keyPressEvent(event);
        return;
    }
    if (!SelectedArea() && currentIndex().isValid()) {
        // Who comes by Tab stands on a row that is not selected yet.
        selectionModel()->select(
            currentIndex(), QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    }
    Q_EMIT EditAsked();
}

void AreaList::mouseDoubleClickEvent(QMouseEvent* event)
{
    QTreeView::mouseDoubleClickEvent(event);
    if (event->button() == Qt::LeftButton) {
        Q_EMIT EditAsked();
    }
}

void AreaList::resizeEvent(QResizeEvent* event)
{
    QTreeView::resizeEvent(event);
    // Once there are rows, the columns are as the user wants them.
    model() == nullptr || model()->rowCount() == 0 ? FitColumns() : FitMessageColumn();
}

void AreaList::rowsInserted(const QModelIndex& parent, int first, int last)
{
    QTreeView::rowsInserted(parent, first, last);
    if (first == 0) {
        FitColumns();
    }
    scrollTo(model()->index(last, 0, parent));
}

void AreaList::Header_SectionResized(int column)
{
    if (column != messageColumn) {
        FitMessageColumn();
    }
}

void AreaList::FitColumns()
{
    if (model() == nullptr) {
        return;
    }
    header_->FitInto(viewport()->width());
    const int digit = fontMetrics().horizontalAdvance(u'0');
    // The first column needs room for the rows' names once there are any. What the columns would like beyond
    // their needs, they share out.
    std::array<int, messageColumn> needs = {};
    std::array<int, messageColumn> wishes = {};
    int wanted = 0;
    int room = viewport()->width() - header_->sectionSizeHint(messageColumn);
    for (std::size_t i = 0; i < needs.size(); ++i) {
        const int hint = header_->sectionSizeHint(static_cast<int>(i));
        const int good = std::max(columnDigits[i] * digit, hint);
        needs[i] = i == 0 && model()->rowCount() > 0 ? good : hint;
        wishes[i] = good - needs[i];
        wanted += wishes[i];
        room -= needs[i];
    }
    const int given = std::clamp(room, 0, wanted);
    for (std::size_t i = 0; i < needs.size(); ++i) {
        const int extra = wanted > 0 ? wishes[i] * given / wanted : 0;
        header_->resizeSection(static_cast<int>(i), needs[i] + extra);
    }
    FitMessageColumn();
}

/** The last column takes the room that the others leave, and no less than its header needs. */
void AreaList::FitMessageColumn()
{
    const int left = viewport()->width() - header_->sectionPosition(messageColumn);
    header_->resizeSection(messageColumn, std::max(header_->sectionSizeHint(messageColumn), left));
}
