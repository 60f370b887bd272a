#include "imagemap/drawing/FigureDisplay.h"

#include "imagemap/model/AreaGeometry.h"
#include "shared/Rounding.h"

#include <QPoint>
#include <algorithm>
#include <cstdlib>

namespace {

qint16 Clamped(qint16 position, int size)
{
    if (position > size) {
        return static_cast<qint16>(size);
    }
    return position < 0 ? qint16(0) : position;
}

/** The distance between two positions, or nothing where the difference overflows 16 bits. */
std::optional<qint16> Length(int from, int to)
{
    const std::optional<qint16> difference = ToInt16(to - from);
    return difference ? ToInt16(std::abs(*difference)) : std::nullopt;
}

/** The circle's radius: the horizontal or the vertical distance, by the end point's own position. */
std::optional<qint16> CircleRadius(QPoint centre, QPoint rim)
{
    return std::abs(rim.y()) < std::abs(rim.x()) ? Length(centre.x(), rim.x()) : Length(centre.y(), rim.y());
}

bool IsKindKnown(qint16 kind)
{
    return kind == kindRectangle || kind == kindCircle || kind == kindLine;
}

/** What the drawing tools would have left of `area`: a polygon lacks its last corner and closing side. */
void AppendArea(PaintedFigures& figures, const MapArea& area)
{
    if (!IsWhole(area)) {
        return;
    }
    const QList<int>& numbers = area.Coordinates;
    switch (area.Shape) {
    case AreaShape::Rectangle:
        figures << PaintedFigure{ kindRectangle, numbers[0], numbers[1], numbers[2], numbers[3], 0 };
        break;
    case AreaShape::Circle:
        figures << PaintedFigure{ kindCircle, numbers[0], numbers[1], numbers[0], numbers[1], numbers[2] };
        break;
    case AreaShape::Polygon: {
        constexpr qsizetype side = 4;
        for (qsizetype i = 0; i + side + 2 <= numbers.size(); i += 2) {
            figures << PaintedFigure{
                kindLine, numbers[i], numbers[i + 1], numbers[i + 2], numbers[i + 3], 0
            };
        }
        break;
    }
    case AreaShape::Default:
        break;
    }
}

} // namespace

FigureDisplay::FigureDisplay(MapDocument& map, DrawingSurface& surface, DrawingStatus& status)
    : map_(map)
    , surface_(surface)
    , status_(status)
{
    connect(&map_.Drawing(), &MapDrawing::SidesGivenUp, this, &FigureDisplay::Drawing_SidesGivenUp);
    connect(&map_.Drawing(), &MapDrawing::GivenUp, this, &FigureDisplay::Drawing_GivenUp);
    connect(&map_, &MapDocument::Cleared, this, &FigureDisplay::Map_Cleared);
    connect(&map_, &MapDocument::FiguresRemoved, this, &FigureDisplay::Map_FiguresRemoved);
    connect(&map_, &MapDocument::Remade, this, &FigureDisplay::Map_Remade);
}

FigureRecord FigureDisplay::FigureInProgress() const
{
    const FigureStore& figures = map_.Figures();
    FigureRecord figure;
    figure.Kind = figures.CurrentKind;
    figure.X1 = figures.StartX;
    figure.Y1 = figures.StartY;
    figure.X2 = figures.EndX;
    figure.Y2 = figures.EndY;
    return figure;
}

std::optional<PaintedFigure> FigureDisplay::Painted(const FigureRecord& figure) const
{
    PaintedFigure painted = { .kind = figure.Kind,
                              .x1 = figure.X1,
                              .y1 = figure.Y1,
                              .x2 = Clamped(figure.X2, surface_.PictureWidth()),
                              .y2 = Clamped(figure.Y2, surface_.PictureHeight()),
                              .radius = 0 };
    if (painted.kind == kindCircle) {
        const std::optional<qint16> radius =
            CircleRadius({ painted.x1, painted.y1 }, { painted.x2, painted.y2 });
        if (!radius) {
            return std::nullopt;
        }
        painted.radius = *radius;
    }
    return IsKindKnown(painted.kind) ? std::optional(painted) : std::nullopt;
}

std::optional<PaintedFigure> FigureDisplay::Measure(const FigureRecord& figure)
{
    const std::optional<PaintedFigure> painted = Painted(figure);
    if (painted) {
        if (painted->kind == kindCircle) {
            map_.Ledger().CurrentRadius = static_cast<qint16>(painted->radius);
        }
        ShowPoints(*painted);
    }
    if (painted ? ShowSize(*painted) : !IsKindKnown(figure.Kind)) {
        ShowFigureCount();
    }
    return painted;
}

void FigureDisplay::FollowFigure()
{
    surface_.EraseRubberFigure();
    if (const std::optional<PaintedFigure> painted = Measure(FigureInProgress())) {
        surface_.ShowRubberFigure(*painted);
    }
}

void FigureDisplay::FinishFigure()
{
    surface_.EraseRubberFigure();
    (void)Measure(FigureInProgress());
}

void FigureDisplay::ShowFigures()
{
    PaintedFigures figures;
    figures.reserve(map_.Figures().FigureCount);
    if (map_.AreAreasEdited()) {
        for (const MapArea& area : map_.Areas()) {
            AppendArea(figures, area);
        }
        AppendFigures(figures, map_.Figures().FigureCount - map_.FiguresWithoutArea());
    } else {
        AppendFigures(figures, 0);
    }
    surface_.ShowFigures(figures);
    ShowFigureCount();
}

/** Appends the figures of the ledger from `first` on. */
void FigureDisplay::AppendFigures(PaintedFigures& figures, int first) const
{
    const FigureStore& store = map_.Figures();
    for (int i = std::max(first, 0); i < store.FigureCount; ++i) {
        const FigureRecord* const figure = FigureStore::At(store.Figures, i);
        if (const std::optional<PaintedFigure> painted = figure ? Painted(*figure) : std::nullopt) {
            figures << *painted;
        }
    }
}

void FigureDisplay::RedrawFigures()
{
    ShowFigures();
    MeasureAll();
    if (!map_.HasContent() && !map_.Figures().IsDrawing()) {
        ShowEmptyState();
    }
}

/** Leaves the labels as if the figures had been drawn one after the other. */
void FigureDisplay::MeasureAll()
{
    const FigureStore& store = map_.Figures();
    for (int i = 0; i < store.FigureCount; ++i) {
        if (const FigureRecord* const figure = FigureStore::At(store.Figures, i)) {
            (void)Measure(*figure);
        }
    }
}

void FigureDisplay::ShowEmptyState()
{
    ClearPositionLabels();
    status_.EnableFigureCommands(false);
    map_.Script().ForgetModeDefault();
}

void FigureDisplay::ClearPositionLabels()
{
    for (std::size_t label = 0; label < drawingLabelCount; ++label) {
        status_.SetLabel(static_cast<DrawingLabel>(label), QString());
    }
}

void FigureDisplay::ShowPoints(const PaintedFigure& figure)
{
    status_.SetLabel(DrawingLabel::StartPosition1, QString::number(figure.x1) + u',');
    status_.SetLabel(DrawingLabel::StartPosition2, QString::number(figure.y1));
    status_.SetLabel(DrawingLabel::EndPosition1, QString::number(figure.x2) + u',');
    status_.SetLabel(DrawingLabel::EndPosition2, QString::number(figure.y2));
}

bool FigureDisplay::ShowSize(const PaintedFigure& figure)
{
    if (figure.kind == kindCircle) {
        status_.SetLabel(DrawingLabel::Dimensions1, QString::number(figure.radius));
        status_.SetLabel(DrawingLabel::Dimensions2, QString());
        return true;
    }
    const std::optional<qint16> width = Length(figure.x1, figure.x2);
    if (width) {
        status_.SetLabel(DrawingLabel::Dimensions1, QString::number(*width) + u',');
    }
    const std::optional<qint16> height = width ? Length(figure.y1, figure.y2) : std::nullopt;
    if (height) {
        status_.SetLabel(DrawingLabel::Dimensions2, QString::number(*height));
    }
    return height.has_value();
}

void FigureDisplay::ShowFigureCount()
{
    status_.SetLabel(DrawingLabel::Figures, QString::number(map_.Figures().FigureCount));
}

void FigureDisplay::Drawing_SidesGivenUp()
{
    ShowFigures();
    MeasureAll();
}

void FigureDisplay::Drawing_GivenUp()
{
    surface_.EraseRubberFigure();
    if (!map_.HasContent()) {
        ClearPositionLabels();
        status_.EnableFigureCommands(false);
    }
}

void FigureDisplay::Map_Remade()
{
    surface_.EraseRubberFigure();
    ShowFigures();
    status_.EnableFigureCommands(map_.HasContent());
    if (!map_.HasContent()) {
        ClearPositionLabels();
    }
}

void FigureDisplay::Map_Cleared()
{
    surface_.EraseRubberFigure();
    surface_.ShowFigures({});
    status_.EnableFigureCommands(false);
    ClearPositionLabels();
}

void FigureDisplay::Map_FiguresRemoved()
{
    surface_.EraseRubberFigure();
    RedrawFigures();
}
