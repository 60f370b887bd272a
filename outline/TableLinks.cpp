#include "outline/TableLinks.h"

#include "shared/OneLine.h"

#include <QHash>
#include <algorithm>

namespace {

/** The names that people give to such columns, in small letters and parted by blanks. */
struct ColumnNames
{
    TableUse use;
    QStringView names;
    QString MapArea::*field;
};

constexpr std::array<ColumnNames, tableUseCount> columnNames = { {
    { TableUse::Link, u" link href url uri address page web ", &MapArea::Link },
    { TableUse::Target, u" target frame window ", &MapArea::Target },
    { TableUse::Message, u" message tip tooltip tool-tip title status ", &MapArea::Message },
    { TableUse::Text, u" text alt name label caption description region ", &MapArea::Text },
} };

static_assert(
    [] {
        for (std::size_t i = 0; i < tableUseCount; ++i) {
            if (columnNames[i].use != tableUses[i] || tableUses[i] != static_cast<TableUse>(i)) {
                return false;
            }
        }
        return true;
    }(),
    "the rows stand in the order of the uses");

/** Addresses are told by what is in them, in no more than so many rows. */
constexpr qsizetype rowsSearched = 50;

QString FieldIn(const QStringList& row, int column)
{
    return column >= 0 && column < row.size() ? OneLine(row[column]).trimmed() : QString();
}

TableColumns NamedColumns(const QStringList& header)
{
    TableColumns columns;
    for (qsizetype column = 0; column < header.size(); ++column) {
        const QString name = header[column].trimmed().toLower();
        for (const ColumnNames& one : columnNames) {
            int& number = columns.Numbers[std::size_t(one.use)];
            const bool isName =
                !name.isEmpty() && !name.contains(u' ') && one.names.contains(QString(u' ' + name + u' '));
            if (isName && number < 0) {
                number = int(column);
                columns.HasHeader = true;
            }
        }
    }
    return columns;
}

bool IsAddress(QStringView field)
{
    return field.contains(u'/') || field.startsWith(u'#') || field.startsWith(u"mailto:") ||
           field.endsWith(u".html") || field.endsWith(u".htm");
}

int ColumnOfAddresses(const TableRows& rows)
{
    QList<int> counts(ColumnCount(rows), 0);
    for (const QStringList& row : rows.first(std::min(rows.size(), rowsSearched))) {
        for (qsizetype column = 0; column < row.size(); ++column) {
            counts[column] += IsAddress(row[column].trimmed()) ? 1 : 0;
        }
    }
    const auto most = std::max_element(counts.begin(), counts.end());
    return most == counts.end() || *most == 0 ? -1 : int(most - counts.begin());
}

/** Areas and rows are brought together by this. */
QString KeyOf(const QString& text)
{
    return text.simplified().toCaseFolded();
}

/** The row of each area, or -1. */
QList<qsizetype> RowsByText(const MapAreas& areas, const TableRows& rows, int column)
{
    QHash<QString, qsizetype> byText;
    for (qsizetype row = rows.size() - 1; row >= 0; --row) {
        byText.insert(KeyOf(FieldIn(rows[row], column)), row);
    }
    byText.remove(QString());
    QList<qsizetype> found;
    for (const MapArea& area : areas) {
        found << byText.value(KeyOf(area.Text), -1);
    }
    return found;
}

QList<qsizetype> RowsInOrder(const MapAreas& areas, const TableRows& rows)
{
    QList<qsizetype> found;
    for (qsizetype area = 0; area < areas.size(); ++area) {
        found << (area < rows.size() ? area : -1);
    }
    return found;
}

/** The area with what is in `row`, but for the text if that is what they were brought together by. */
MapArea Filled(MapArea area, const QStringList& row, const TableColumns& columns, TableMatching matching)
{
    for (const ColumnNames& one : columnNames) {
        const QString field = FieldIn(row, columns.Of(one.use));
        const bool isKey = matching == TableMatching::ByText && one.use == TableUse::Text;
        if (!field.isEmpty() && !isKey) {
            area.*one.field = field;
        }
    }
    return area;
}

} // namespace

TableColumns GuessColumns(const TableRows& rows)
{
    if (rows.isEmpty()) {
        return {};
    }
    TableColumns columns = NamedColumns(rows.constFirst());
    if (columns.HasHeader) {
        return columns;
    }
    const int link = ColumnOfAddresses(rows);
    columns.Numbers[std::size_t(TableUse::Link)] = link;
    const int text = link == 0 ? 1 : 0;
    columns.Numbers[std::size_t(TableUse::Text)] = text < ColumnCount(rows) ? text : -1;
    return columns;
}

TableOutcome
WithTable(MapAreas areas, const TableRows& rows, const TableColumns& columns, TableMatching matching)
{
    const TableRows content = rows.sliced(columns.HasHeader && !rows.isEmpty() ? 1 : 0);
    const QList<qsizetype> found = matching == TableMatching::ByText
                                       ? RowsByText(areas, content, columns.Of(TableUse::Text))
                                       : RowsInOrder(areas, content);
    TableOutcome outcome;
    QList<bool> used(content.size(), false);
    for (qsizetype i = 0; i < areas.size(); ++i) {
        if (found[i] >= 0) {
            used[found[i]] = true;
            const MapArea filled = Filled(areas[i], content[found[i]], columns, matching);
            outcome.AreasChanged += filled == areas[i] ? 0 : 1;
            areas[i] = filled;
        }
    }
    outcome.Areas = areas;
    outcome.RowsLeft = used.count(false);
    return outcome;
}

const QString& FieldOf(const MapArea& area, TableUse use)
{
    return area.*columnNames[std::size_t(use)].field;
}
