#include "imagemap/AreaAttributes.h"

#include "imagemap/MapOrigins.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QTableWidget>

namespace {

constexpr int attributeNameColumn = 0;
constexpr int attributeValueColumn = 1;
/** Room in a row beside its text, in pixels. */
constexpr int rowAir = 8;
constexpr QStringView codeTip = u"Code for a template or a server: it is left as it is";
constexpr QStringView refusedTip = u"No tag can have that attribute, or code stands in its way";

} // namespace

AreaAttributes::AreaAttributes(const Parts& parts)
    : QObject(&parts.table)
    , parts_(parts)
{
    QTableWidget& table = parts_.table;
    table.setColumnCount(2);
    table.setHorizontalHeaderLabels({ QStringLiteral("Attribute"), QStringLiteral("Value") });
    table.horizontalHeader()->setStretchLastSection(true);
    table.horizontalHeader()->setHighlightSections(false);
    table.verticalHeader()->hide();
    table.verticalHeader()->setDefaultSectionSize(table.fontMetrics().lineSpacing() + rowAir);
    table.installEventFilter(this);
    connect(&table, &QTableWidget::itemChanged, this, &AreaAttributes::tblAttributes_Changed);
    connect(
        &parts_.editing.Selection(), &AreaSelection::Changed, this, &AreaAttributes::Refresh,
        Qt::QueuedConnection);
    connect(
        &parts_.editing.Map(), &MapDocument::AreasChanged, this, &AreaAttributes::Refresh,
        Qt::QueuedConnection);
    connect(&parts_.origins, &MapOrigins::Changed, this, &AreaAttributes::Refresh, Qt::QueuedConnection);
    Refresh();
}

void AreaAttributes::AddRow(const AreaAttribute& attribute, bool isNew)
{
    QTableWidget& table = parts_.table;
    const int row = table.rowCount();
    table.setRowCount(row + 1);
    auto* const name = new QTableWidgetItem(attribute.Name);
    auto* const value = new QTableWidgetItem(attribute.Value);
    if (!isNew) {
        name->setFlags(name->flags() & ~Qt::ItemIsEditable);
    }
    if (attribute.IsCode) {
        value->setFlags(value->flags() & ~Qt::ItemIsEditable);
        name->setToolTip(codeTip.toString());
        value->setToolTip(codeTip.toString());
    }
    table.setItem(row, attributeNameColumn, name);
    table.setItem(row, attributeValueColumn, value);
}

void AreaAttributes::Refresh()
{
    const MapAreas areas = parts_.editing.SelectedAreas();
    const MapOrigin* const origin = parts_.origins.Present();
    const ReturnedMap* const map = origin != nullptr ? origin->Read() : nullptr;
    const bool isShown = areas.size() == 1 && map != nullptr && !map->form;
    QTableWidget& table = parts_.table;
    isFilling_ = true;
    const int row = table.currentRow();
    table.setRowCount(0);
    if (isShown) {
        for (const AreaAttribute& attribute : AttributesFor(areas.constFirst(), *map)) {
            AddRow(attribute, false);
        }
        AddRow({}, true);
        table.setCurrentCell(std::clamp(row, 0, table.rowCount() - 1), attributeValueColumn);
    }
    table.setEnabled(isShown);
    isFilling_ = false;
}

void AreaAttributes::Set(const QString& name, const QString& value)
{
    MapAreas areas = parts_.editing.SelectedAreas();
    const MapOrigin* const origin = parts_.origins.Present();
    if (areas.size() != 1 || origin == nullptr || origin->Read() == nullptr || !parts_.begin()) {
        return;
    }
    if (SetAttribute(areas[0], name, value, *origin->Read())) {
        parts_.tell({});
        parts_.editing.Replace(areas, u"Change of an Attribute");
    } else {
        parts_.tell(refusedTip.toString());
    }
    // What was refused is shown as it was.
    QMetaObject::invokeMethod(this, &AreaAttributes::Refresh, Qt::QueuedConnection);
}

void AreaAttributes::tblAttributes_Changed(QTableWidgetItem* item)
{
    if (isFilling_) {
        return;
    }
    const QString name = parts_.table.item(item->row(), attributeNameColumn)->text().trimmed();
    const QString value = parts_.table.item(item->row(), attributeValueColumn)->text();
    if (!name.isEmpty()) {
        Set(name, value.isNull() ? QString(QLatin1String("")) : value);
    }
}

void AreaAttributes::RemoveCurrent()
{
    const QTableWidgetItem* const name = parts_.table.item(parts_.table.currentRow(), attributeNameColumn);
    if (name != nullptr && !name->text().isEmpty()) {
        Set(name->text(), QString());
    }
}

bool AreaAttributes::eventFilter(QObject* watched, QEvent* event)
{
    const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
    const auto* const key = isKey ? static_cast<QKeyEvent*>(event) : nullptr;
    const bool isDelete =
        key != nullptr && key->key() == Qt::Key_Delete && key->modifiers() == Qt::NoModifier;
    if (isDelete && event->type() == QEvent::KeyPress) {
        RemoveCurrent();
        return true;
    }
    if (isDelete) {
        event->accept(); // not the command of that key
        return true;
    }
    return QObject::eventFilter(watched, event);
}
