#include "imagemap/model/LastFigure.h"

#include "imagemap/model/FigureStore.h"
#include "imagemap/model/LinkRules.h"

#include <algorithm>
#include <array>

namespace {

QList<int> RectangleCoordinates(const FigureRecord& rectangle)
{
    const auto [left, right] = std::minmax(rectangle.X1, rectangle.X2);
    const auto [top, bottom] = std::minmax(rectangle.Y1, rectangle.Y2);
    return { left, top, right, bottom };
}

/** The corners of the current polygon: the first side's start, then every side's end. */
QList<int> PolygonCoordinates(const FigureStore& figures)
{
    QList<int> coordinates;
    for (int i = 0; i < figures.CurrentPolygonLineCount; ++i) {
        const FigureRecord* const side = FigureStore::At(figures.CurrentPolygon, i);
        if (side == nullptr) {
            break;
        }
        if (i == 0) {
            coordinates << side->X1 << side->Y1;
        }
        coordinates << side->X2 << side->Y2;
    }
    return coordinates;
}

/** Where the ledger keeps the link data of the figure drawn last. */
template<class Store> auto* LinkedRecord(Store& figures)
{
    return figures.CurrentKind == kindLine
               ? FigureStore::At(figures.CurrentPolygon, figures.CurrentPolygonLineCount - 1)
               : figures.LastFigure();
}

struct FigureShape
{
    qint16 kind;
    AreaShape shape;
    QList<int> (*coordinates)(const FigureStore& figures, const FigureRecord& record);
};

constexpr std::array<FigureShape, 3> figureShapes = { {
    { kindRectangle, AreaShape::Rectangle,
      [](const FigureStore&, const FigureRecord& record) { return RectangleCoordinates(record); } },
    { kindCircle, AreaShape::Circle,
      [](const FigureStore&, const FigureRecord& record) {
          return QList<int>{ record.X1, record.Y1, record.Radius };
      } },
    { kindLine, AreaShape::Polygon,
      [](const FigureStore& figures, const FigureRecord&) { return PolygonCoordinates(figures); } },
} };

const FigureShape* RowOf(const FigureStore& figures)
{
    const auto* const row = std::ranges::find(figureShapes, figures.CurrentKind, &FigureShape::kind);
    return row != figureShapes.end() ? row : nullptr;
}

} // namespace

std::optional<AreaShape> ShapeOfLastFigure(const FigureStore& figures)
{
    const FigureShape* const row = RowOf(figures);
    return row != nullptr ? std::optional(row->shape) : std::nullopt;
}

std::optional<MapArea> AreaOfLastFigure(const FigureStore& figures)
{
    const FigureShape* const row = RowOf(figures);
    const FigureRecord* const record = LinkedRecord(figures);
    if (row == nullptr || record == nullptr) {
        return std::nullopt;
    }
    return MapArea{ .Shape = row->shape,
                    .Coordinates = row->coordinates(figures, *record),
                    .Link = record->Link,
                    .Target = record->Target,
                    .Message = record->Message };
}

void LinkLastFigure(FigureStore& figures, const LinkEntry& entry, const QString& message)
{
    if (FigureRecord* const record = LinkedRecord(figures)) {
        record->Link = entry.Text(LinkField::Link);
        record->Target = entry.Target;
        record->Message = message;
    }
    if (figures.CurrentKind != kindLine) {
        return;
    }
    if (FigureRecord* const endMark = FigureStore::At(figures.PolygonLines, figures.PolygonLineCount - 1)) {
        endMark->Link = entry.Text(LinkField::Link);
        endMark->Target = entry.Target;
    }
}
