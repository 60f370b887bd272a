#include "imagemap/model/AreaLedger.h"

#include "imagemap/model/AreaGeometry.h"
#include "shared/Rounding.h"

#include <algorithm>

namespace {

/** Stands in for the link of a polygon that has none: without any text its end could not be found. */
constexpr QStringView unlinkedMark = u"#";

bool FitsTheLedger(const MapArea& area)
{
    return IsWhole(area) && std::all_of(area.Coordinates.begin(), area.Coordinates.end(), [](int number) {
               return ToInt16(number).has_value();
           });
}

FigureRecord NewRecord(qint16 kind, QPoint from, QPoint to)
{
    FigureRecord record;
    record.Kind = kind;
    record.X1 = static_cast<qint16>(from.x());
    record.Y1 = static_cast<qint16>(from.y());
    record.X2 = static_cast<qint16>(to.x());
    record.Y2 = static_cast<qint16>(to.y());
    return record;
}

void Append(FigureStore::Records& records, int& count, const FigureRecord& record)
{
    if (count == records.size()) {
        records.append(record);
    } else {
        records[count] = record;
    }
    ++count;
}

/** The point of the rim from which the drawing tools would compute the same radius. */
QPoint RimOf(const QList<int>& circle)
{
    const QPoint across(circle[0] + circle[2], circle[1]);
    const QPoint down(circle[0], circle[1] + circle[2]);
    return std::abs(across.y()) < std::abs(across.x()) && ToInt16(across.x()) ? across : down;
}

void AppendFigure(FigureStore& ledger, const MapArea& area)
{
    const QList<int>& numbers = area.Coordinates;
    FigureRecord record;
    if (area.Shape == AreaShape::Circle) {
        const QPoint rim = RimOf(numbers);
        if (!ToInt16(rim.x()) || !ToInt16(rim.y())) {
            return;
        }
        record = NewRecord(kindCircle, { numbers[0], numbers[1] }, rim);
        record.Radius = static_cast<qint16>(numbers[2]);
    } else {
        record = NewRecord(kindRectangle, { numbers[0], numbers[1] }, { numbers[2], numbers[3] });
    }
    record.Link = area.Link;
    record.Target = area.Target;
    record.Message = area.Message;
    Append(ledger.Figures, ledger.FigureCount, record);
}

void AppendSides(FigureStore& ledger, const MapArea& area)
{
    const QList<QPoint> corners = CornersOf(area);
    for (qsizetype i = 0; i + 2 < corners.size(); ++i) {
        FigureRecord side = NewRecord(kindLine, corners[i], corners[i + 1]);
        Append(ledger.Figures, ledger.FigureCount, side);
        if (i + leastCorners == corners.size()) {
            side.Link = area.Link.isEmpty() ? unlinkedMark.toString() : area.Link;
            side.Target = area.Target;
        }
        Append(ledger.PolygonLines, ledger.PolygonLineCount, side);
    }
}

} // namespace

FigureStore LedgerOf(const MapAreas& areas)
{
    FigureStore ledger;
    for (const MapArea& area : areas) {
        if (!FitsTheLedger(area)) {
            continue;
        }
        if (area.Shape == AreaShape::Polygon) {
            AppendSides(ledger, area);
        } else {
            AppendFigure(ledger, area);
        }
    }
    return ledger;
}
