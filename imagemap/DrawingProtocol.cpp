#include "imagemap/DrawingProtocol.h"

#include "shared/Rounding.h"

#include <cstdlib>
#include <utility>

namespace {

/** Digits of a mouse position on screen: those of a single precision number. */
constexpr int positionDigits = 7;

QString PositionText(float position)
{
    return QString::number(position, 'g', positionDigits);
}

qint16 Clamped(qint16 position, int size)
{
    if (position > size) {
        return static_cast<qint16>(size);
    }
    return position < 0 ? qint16(0) : position;
}

/** The circle's radius: the horizontal or the vertical distance, by the end point's own position. */
std::optional<qint16> CircleRadius(qint16 x1, qint16 y1, qint16 x2, qint16 y2)
{
    return std::abs(int(y2)) < std::abs(int(x2)) ? Distance(x1, x2) : Distance(y1, y2);
}

/** Stores a rounded position; one that does not fit leaves the old value. */
void Assign(qint16& target, float position)
{
    target = RoundToInt16(position).value_or(target);
}

} // namespace

QStringView DrawingModeText(DrawingTool tool)
{
    switch (tool) {
    case DrawingTool::Rectangle:
        return u"Drawing Mode - Rectangle !";
    case DrawingTool::Circle:
        return u"Drawing Mode - Circle !";
    case DrawingTool::Line:
        return u"Drawing Mode - Line, draw Polygons !";
    case DrawingTool::None:
    case DrawingTool::Cursor:
        break;
    }
    return u"Creating Mode !";
}

DrawingProtocol::DrawingProtocol(ImgMap& imgMap, DrawingView& view)
    : imgMap_(imgMap)
    , view_(view)
{
}

void DrawingProtocol::SelectTool(int index)
{
    tool_ = static_cast<DrawingTool>(index);
    imgMap_.Store.CurrentKind = static_cast<qint16>(index);
    view_.ShowTool();
}

void DrawingProtocol::SelectCursor()
{
    tool_ = DrawingTool::Cursor;
    view_.SetSurfacePointer(SurfacePointer::Arrow);
    view_.ShowTool();
}

void DrawingProtocol::MouseDown(int button, float x, float y)
{
    if (button == leftButton) {
        isLeftHeld_ = true;
        isReleaseVoid_ = false;
    }
    if (tool_ == DrawingTool::Cursor) {
        return;
    }
    if (tool_ == DrawingTool::Line) {
        PressInLineMode(button);
    } else {
        PressInFigureMode(button, x, y);
    }
}

void DrawingProtocol::PressInFigureMode(int button, float x, float y)
{
    FigureStore& store = imgMap_.Store;
    if (store.DrawState == drawIdle && button == leftButton) {
        StartFigure(x, y, FullStoreText::Lines);
    } else if (store.DrawState == drawDrawing && button == rightButton) {
        store.DrawState = drawMoving;
    }
}

void DrawingProtocol::PressInLineMode(int button)
{
    FigureStore& store = imgMap_.Store;
    if (store.DrawState == drawMoving && button == rightButton) {
        store.DrawState = drawDrawing;
        return;
    }
    if (store.DrawState != drawDrawing || (button != leftButton && button != rightButton)) {
        return;
    }
    PaintForGood();
    store.AppendSide();
    ShowFigureCount();
    if (button == rightButton) {
        EndPolygon();
    }
}

void DrawingProtocol::EndPolygon()
{
    FigureStore& store = imgMap_.Store;
    if (store.CurrentPolygonLineCount == 1) {
        DeleteLastFigure();
        return;
    }
    store.RetractLastSide();
    view_.ClearDrawing();
    RedrawFigures();
    // A polygon's prompt is the plain one in every mode.
    view_.LinkNewFigure(TextsOf(JSDisabled).newPrompt);
}

void DrawingProtocol::MouseUp(int button, float x, float y)
{
    FigureStore& store = imgMap_.Store;
    const bool isVoid = button == leftButton && std::exchange(isReleaseVoid_, false);
    isLeftHeld_ = isLeftHeld_ && button != leftButton;
    if (tool_ == DrawingTool::Cursor || isVoid) {
        return;
    }
    if (tool_ == DrawingTool::Line) {
        if (store.DrawState == drawIdle && button == leftButton) {
            StartFigure(x, y, FullStoreText::Figures);
        }
        return;
    }
    if (store.DrawState == drawDrawing && button == leftButton) {
        CommitFigure();
    } else if (store.DrawState == drawMoving && button == rightButton) {
        store.DrawState = drawDrawing;
    }
}

void DrawingProtocol::CommitFigure()
{
    // Between the sides and their next one another figure would break the polygon in two.
    GiveUpSides();
    PaintForGood();
    imgMap_.Store.AppendFigure();
    ShowFigureCount();
    view_.LinkNewFigure(NewAreaPrompt());
}

void DrawingProtocol::StartFigure(float x, float y, FullStoreText fullText)
{
    FigureStore& store = imgMap_.Store;
    if (store.FigureCount >= FigureStore::capacity) {
        view_.ReportFullStore(fullText);
        return;
    }
    store.DrawState = drawDrawing;
    Assign(store.StartX, x);
    Assign(store.EndX, x);
    Assign(store.StartY, y);
    Assign(store.EndY, y);
    view_.EnableFigureCommands(true);
}

void DrawingProtocol::MouseMove(float x, float y)
{
    view_.SetLabel(DrawingLabel::Cursor1, PositionText(x) + u',');
    view_.SetLabel(DrawingLabel::Cursor2, PositionText(y));
    if (tool_ == DrawingTool::Cursor) {
        view_.SetSurfacePointer(SurfacePointer::Arrow);
        return;
    }
    // Only one coordinate an event is clamped; the painting clamps the other.
    if (x > static_cast<float>(view_.PictureWidth())) {
        x = static_cast<float>(view_.PictureWidth());
    } else if (y > static_cast<float>(view_.PictureHeight())) {
        y = static_cast<float>(view_.PictureHeight());
    }
    view_.SetSurfacePointer(SurfacePointer::Cross);
    if (imgMap_.Store.DrawState == drawDrawing) {
        FollowMouse(x, y);
    } else if (imgMap_.Store.DrawState == drawMoving) {
        MoveFigure(x, y);
    }
}

void DrawingProtocol::FollowMouse(float x, float y)
{
    FigureStore& store = imgMap_.Store;
    Assign(store.EndX, x);
    Assign(store.EndY, y);
    ShowRubberFigure();
}

void DrawingProtocol::MoveFigure(float x, float y)
{
    FigureStore& store = imgMap_.Store;
    Assign(store.StartX, x - float(store.EndX) + float(store.StartX));
    Assign(store.StartY, y - float(store.EndY) + float(store.StartY));
    Assign(store.EndX, x);
    Assign(store.EndY, y);
    ShowRubberFigure();
}

void DrawingProtocol::ShowRubberFigure()
{
    const FigureStore& store = imgMap_.Store;
    view_.EraseRubberFigure();
    DrawFigure(store.CurrentKind, store.StartX, store.StartY, store.EndX, store.EndY, Pen::Invert);
}

void DrawingProtocol::PaintForGood()
{
    FigureStore& store = imgMap_.Store;
    store.DrawState = drawIdle;
    view_.EraseRubberFigure();
    DrawFigure(store.CurrentKind, store.StartX, store.StartY, store.EndX, store.EndY, Pen::Copy);
}

void DrawingProtocol::DrawFigure(qint16 kind, qint16 x1, qint16 y1, qint16 x2, qint16 y2, Pen pen)
{
    x2 = Clamped(x2, view_.PictureWidth());
    y2 = Clamped(y2, view_.PictureHeight());
    PaintedFigure figure = { kind, x1, y1, x2, y2, 0 };
    if (kind == kindCircle) {
        const std::optional<qint16> radius = CircleRadius(x1, y1, x2, y2);
        if (!radius) {
            return;
        }
        imgMap_.Store.CurrentRadius = *radius;
        figure.radius = *radius;
    }
    if (kind == kindRectangle || kind == kindCircle || kind == kindLine) {
        view_.PaintFigure(figure, pen);
        ShowPoints(figure);
        if (!ShowSize(figure)) {
            return;
        }
    }
    ShowFigureCount();
}

void DrawingProtocol::ShowPoints(const PaintedFigure& figure)
{
    view_.SetLabel(DrawingLabel::StartPosition1, QString::number(figure.x1) + u',');
    view_.SetLabel(DrawingLabel::StartPosition2, QString::number(figure.y1));
    view_.SetLabel(DrawingLabel::EndPosition1, QString::number(figure.x2) + u',');
    view_.SetLabel(DrawingLabel::EndPosition2, QString::number(figure.y2));
}

bool DrawingProtocol::ShowSize(const PaintedFigure& figure)
{
    if (figure.kind == kindCircle) {
        view_.SetLabel(DrawingLabel::Dimensions1, QString::number(figure.radius));
        view_.SetLabel(DrawingLabel::Dimensions2, QString());
        return true;
    }
    const std::optional<qint16> width = Distance(figure.x1, figure.x2);
    if (width) {
        view_.SetLabel(DrawingLabel::Dimensions1, QString::number(*width) + u',');
    }
    const std::optional<qint16> height = width ? Distance(figure.y1, figure.y2) : std::nullopt;
    if (height) {
        view_.SetLabel(DrawingLabel::Dimensions2, QString::number(*height));
    }
    return height.has_value();
}

void DrawingProtocol::ShowFigureCount()
{
    view_.SetLabel(DrawingLabel::Figures, QString::number(imgMap_.Store.FigureCount));
}

void DrawingProtocol::RedrawFigures()
{
    PaintAllFigures();
    if (imgMap_.Store.FigureCount == 0 && !IsDrawing()) {
        ShowEmptyState();
    }
}

void DrawingProtocol::PaintAllFigures()
{
    FigureStore& store = imgMap_.Store;
    view_.BeginPaintingAll();
    for (int i = 0; i < store.FigureCount; ++i) {
        if (const FigureRecord* const figure = FigureStore::At(store.Figures, i)) {
            DrawFigure(figure->Kind, figure->X1, figure->Y1, figure->X2, figure->Y2, Pen::Copy);
        }
    }
    view_.EndPaintingAll();
    ShowFigureCount();
}

void DrawingProtocol::ShowEmptyState()
{
    ClearPositionLabels();
    view_.EnableFigureCommands(false);
    imgMap_.ModeDefault.clear();
    view_.ShowModeHeader();
}

void DrawingProtocol::ClearFigures()
{
    imgMap_.Store.Clear();
    view_.ClearDrawing();
    view_.EnableFigureCommands(false);
}

void DrawingProtocol::ClearPositionLabels()
{
    for (const DrawingLabelName& label : drawingLabels) {
        view_.SetLabel(label.label, QString());
    }
}

void DrawingProtocol::DeleteLastFigure()
{
    FigureStore& store = imgMap_.Store;
    const FigureRecord* const last = store.LastFigure();
    if (last == nullptr || (IsDrawing() && !store.HasUnfinishedPolygon())) {
        AbandonDrawing();
        return;
    }
    const bool isUnfinished = last->Kind == kindLine && store.HasUnfinishedPolygon();
    if (last->Kind == kindLine) {
        store.ResetCurrentPolygon();
    }
    StopDrawing();
    store.RemoveLast();
    view_.ClearDrawing();
    RedrawFigures();
    if (!isUnfinished) {
        view_.RemoveLastArea();
    }
}

void DrawingProtocol::StopDrawing()
{
    imgMap_.Store.DrawState = drawIdle;
    view_.EraseRubberFigure();
}

void DrawingProtocol::AbandonDrawing()
{
    if (!IsInProgress()) {
        return;
    }
    StopDrawing();
    imgMap_.Store.ResetCurrentPolygon();
    DisableWithoutFigures();
}

void DrawingProtocol::GiveUpDrawing()
{
    if (!IsInProgress()) {
        return;
    }
    isReleaseVoid_ = isLeftHeld_;
    StopDrawing();
    GiveUpSides();
    DisableWithoutFigures();
}

void DrawingProtocol::GiveUpSides()
{
    if (!imgMap_.Store.HasUnfinishedPolygon()) {
        return;
    }
    imgMap_.Store.RemoveCurrentPolygon();
    view_.ClearDrawing();
    PaintAllFigures();
}

void DrawingProtocol::DisableWithoutFigures()
{
    if (imgMap_.Store.FigureCount == 0) {
        ClearPositionLabels();
        view_.EnableFigureCommands(false);
    }
}
