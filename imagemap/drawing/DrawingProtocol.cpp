#include "imagemap/drawing/DrawingProtocol.h"

#include "shared/Rounding.h"

#include <utility>

namespace {

/** Digits of a mouse position on screen: those of a single precision number. */
constexpr int positionDigits = 7;

QString PositionText(float position)
{
    return QString::number(position, 'g', positionDigits);
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

DrawingProtocol::DrawingProtocol(
    MapDocument& map, DrawingSurface& surface, DrawingStatus& status, FigureDisplay& display)
    : map_(map)
    , surface_(surface)
    , status_(status)
    , display_(display)
{
}

void DrawingProtocol::SelectTool(DrawingTool tool)
{
    tool_ = tool;
    isPressedInVain_ = false;
    if (tool == DrawingTool::Cursor) {
        surface_.SetPointer(SurfacePointer::Arrow);
    } else {
        Ledger().CurrentKind = static_cast<qint16>(tool);
    }
    status_.ShowTool();
}

void DrawingProtocol::MouseDown(int button, float x, float y)
{
    if (button == leftButton) {
        isLeftHeld_ = true;
        isReleaseVoid_ = false;
    }
    if (tool_ == DrawingTool::Cursor) {
        isPressedInVain_ = true;
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
    FigureStore& store = Ledger();
    if (store.DrawState == drawIdle && button == leftButton) {
        StartFigure(x, y, FullStoreText::Lines);
    } else if (store.DrawState == drawDrawing && button == rightButton) {
        store.DrawState = drawMoving;
    }
}

void DrawingProtocol::PressInLineMode(int button)
{
    FigureStore& store = Ledger();
    if (store.DrawState == drawMoving && button == rightButton) {
        store.DrawState = drawDrawing;
        return;
    }
    if (store.DrawState != drawDrawing || (button != leftButton && button != rightButton)) {
        return;
    }
    CommitSide();
    if (button == rightButton) {
        EndPolygon();
    }
}

void DrawingProtocol::CommitSide()
{
    Ledger().DrawState = drawIdle;
    display_.FinishFigure();
    map_.Drawing().AddSide();
    display_.ShowFigures();
}

void DrawingProtocol::ResumePolygon(const QList<QPoint>& corners)
{
    SelectTool(DrawingTool::Line);
    for (qsizetype i = 0; i < corners.size(); ++i) {
        if (i > 0) {
            FollowMouse(float(corners[i].x()), float(corners[i].y()));
            CommitSide();
        }
        StartFigure(float(corners[i].x()), float(corners[i].y()), FullStoreText::Figures);
    }
}

void DrawingProtocol::EndPolygon()
{
    FigureStore& store = Ledger();
    if (store.CurrentPolygonLineCount == 1) {
        map_.DeleteLastFigure();
        return;
    }
    store.RetractLastSide();
    display_.RedrawFigures();
    // A polygon's prompt is the plain one in every mode.
    status_.LinkNewFigure(TextsOf(JSDisabled).newPrompt);
}

void DrawingProtocol::MouseUp(int button, float x, float y)
{
    FigureStore& store = Ledger();
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
    map_.Drawing().GiveUpSides();
    Ledger().DrawState = drawIdle;
    display_.FinishFigure();
    Ledger().AppendFigure();
    display_.ShowFigures();
    status_.LinkNewFigure(TextsOf(map_.Script().Mode()).newPrompt);
}

void DrawingProtocol::Abandon()
{
    isReleaseVoid_ = isLeftHeld_ && map_.Drawing().IsInProgress();
    map_.Drawing().GiveUp();
}

void DrawingProtocol::StartFigure(float x, float y, FullStoreText fullText)
{
    FigureStore& store = Ledger();
    if (!store.HasRoom()) {
        status_.ReportFullStore(fullText);
        return;
    }
    store.DrawState = drawDrawing;
    Assign(store.StartX, x);
    Assign(store.EndX, x);
    Assign(store.StartY, y);
    Assign(store.EndY, y);
    status_.EnableFigureCommands(true);
}

void DrawingProtocol::MouseMove(float x, float y)
{
    status_.SetLabel(DrawingLabel::Cursor1, PositionText(x) + u',');
    status_.SetLabel(DrawingLabel::Cursor2, PositionText(y));
    if (tool_ == DrawingTool::Cursor) {
        surface_.SetPointer(SurfacePointer::Arrow);
        return;
    }
    // Only one coordinate an event is clamped; the painting clamps the other.
    if (x > static_cast<float>(surface_.PictureWidth())) {
        x = static_cast<float>(surface_.PictureWidth());
    } else if (y > static_cast<float>(surface_.PictureHeight())) {
        y = static_cast<float>(surface_.PictureHeight());
    }
    surface_.SetPointer(SurfacePointer::Cross);
    if (Ledger().DrawState == drawDrawing) {
        FollowMouse(x, y);
    } else if (Ledger().DrawState == drawMoving) {
        MoveFigure(x, y);
    }
}

void DrawingProtocol::FollowMouse(float x, float y)
{
    FigureStore& store = Ledger();
    Assign(store.EndX, x);
    Assign(store.EndY, y);
    display_.FollowFigure();
}

void DrawingProtocol::MoveFigure(float x, float y)
{
    FigureStore& store = Ledger();
    Assign(store.StartX, x - float(store.EndX) + float(store.StartX));
    Assign(store.StartY, y - float(store.EndY) + float(store.StartY));
    Assign(store.EndX, x);
    Assign(store.EndY, y);
    display_.FollowFigure();
}
