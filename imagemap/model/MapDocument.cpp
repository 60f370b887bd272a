#include "imagemap/model/MapDocument.h"

#include <algorithm>

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
FigureRecord* LinkedRecord(FigureStore& figures)
{
    return figures.CurrentKind == kindLine
               ? FigureStore::At(figures.CurrentPolygon, figures.CurrentPolygonLineCount - 1)
               : figures.LastFigure();
}

void WriteLinkData(FigureStore& figures, const LinkEntry& entry, const QString& message)
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

} // namespace

void MapDocument::BeginEditing()
{
    figures_.DrawState = drawIdle;
    figures_.ResetCurrentPolygon();
    ForgetAreas();
    ResetMessageHeader();
}

void MapDocument::SetMode(JSMode mode)
{
    mode_ = mode;
    ResetMessageHeader();
}

void MapDocument::SetMessageHeader(const QString& header)
{
    messageHeader_ = header;
    Q_EMIT MessageHeaderChanged();
}

void MapDocument::ResetMessageHeader()
{
    SetMessageHeader(TextsOf(mode_).header.toString());
}

void MapDocument::ForgetModeDefault()
{
    modeDefault_.clear();
    ResetMessageHeader();
}

void MapDocument::TakeModeDefault(const LinkEntry& entry)
{
    const LinkRules& rules = RulesOf(mode_);
    if (rules.modeDefault) {
        SetModeDefault(entry.Text(*rules.modeDefault));
        SetMessageHeader(rules.headerStart.toString() + modeDefault_ + u"):");
    }
}

void MapDocument::LinkNewArea(const LinkEntry& entry)
{
    TakeModeDefault(entry);
    WriteLinkData(figures_, entry, MessageOf(mode_, entry));
    const auto* const shape =
        std::find_if(figureShapes.begin(), figureShapes.end(), [this](const FigureShape& row) {
            return row.kind == figures_.CurrentKind;
        });
    const FigureRecord* const record = LinkedRecord(figures_);
    if (shape == figureShapes.end() || record == nullptr) {
        return;
    }
    AppendArea({ .Shape = shape->shape,
                 .Coordinates = shape->coordinates(figures_, *record),
                 .Link = record->Link,
                 .Target = record->Target,
                 .Message = record->Message });
    if (shape->kind == kindLine) {
        figures_.ResetCurrentPolygon();
    }
}

void MapDocument::AppendArea(MapArea area)
{
    areas_ << std::move(area);
    Q_EMIT AreasChanged();
}

void MapDocument::RelinkArea(qsizetype index, const LinkEntry& entry)
{
    if (index >= 0 && index < areas_.size()) {
        areas_[index].Link = entry.Text(LinkField::Link);
        areas_[index].Message = MessageOf(mode_, entry);
        Q_EMIT AreasChanged();
    }
    TakeModeDefault(entry);
}

void MapDocument::DiscardNewArea()
{
    const FigureRecord* const last = std::as_const(figures_).LastFigure();
    if (last != nullptr && last->Kind == kindLine) {
        figures_.ResetCurrentPolygon();
    }
    figures_.RemoveLast();
    Q_EMIT FiguresRemoved();
}

void MapDocument::DeleteLastFigure()
{
    const FigureRecord* const last = std::as_const(figures_).LastFigure();
    if (last == nullptr || (figures_.IsDrawing() && !figures_.HasUnfinishedPolygon())) {
        GiveUpDrawing();
        return;
    }
    const bool isUnfinished = last->Kind == kindLine && figures_.HasUnfinishedPolygon();
    if (last->Kind == kindLine) {
        figures_.ResetCurrentPolygon();
    }
    figures_.DrawState = drawIdle;
    figures_.RemoveLast();
    Q_EMIT FiguresRemoved();
    if (!isUnfinished && !areas_.isEmpty()) {
        areas_.removeLast();
        Q_EMIT AreasChanged();
    }
}

void MapDocument::GiveUpDrawing()
{
    if (IsDrawingInProgress()) {
        figures_.DrawState = drawIdle;
        GiveUpSides();
        Q_EMIT DrawingGivenUp();
    }
}

void MapDocument::GiveUpSides()
{
    if (figures_.HasUnfinishedPolygon()) {
        figures_.RemoveCurrentPolygon();
        Q_EMIT SidesGivenUp();
    }
}

void MapDocument::ForgetAreas()
{
    areas_.clear();
    Q_EMIT AreasChanged();
}

void MapDocument::Clear()
{
    figures_.DrawState = drawIdle;
    figures_.ResetCurrentPolygon();
    figures_.Clear();
    Q_EMIT Cleared();
    ForgetAreas();
}
