#include "imagemap/PictureSurface.h"

#include "imagemap/FigurePainting.h"
#include "imagemap/SelectionPainting.h"
#include "imagemap/ZoomedPicture.h"

#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>

namespace {

/** How far beyond its bounds a figure with its edge reaches. */
constexpr int edgeWidth = 1;
/** Where the screen's pixels do not meet the picture's, those at the border belong to both sides of it. */
constexpr int sharedBorder = 1;
/** So many figures are repainted one by one; beyond that the whole surface is. */
constexpr int patchesAtMost = 16;
/** With more figures or areas than this, what was painted is kept. */
constexpr int keptFrom = 64;

QRect Grown(const QRect& rect, int by)
{
    return rect.adjusted(-by, -by, by, by);
}

/** Cuts nothing off, but Qt paints thin lines several times as fast when it is told a clip. */
void ClipForLines(QPainter& painter, const QRect& surface)
{
    painter.setClipRect(Grown(surface, sharedBorder));
}

/** `figure` of the picture as the screen shows it. */
PaintedFigure FigureOnScreen(const PaintedFigure& figure, double zoom)
{
    return zoom == 1 ? figure : Zoomed(figure, zoom);
}

/** Those of `figures` that `place` of the screen shows something of, as it shows them. */
PaintedFigures FiguresIn(const PaintedFigures& figures, double zoom, const QRect& place)
{
    PaintedFigures shown;
    for (const PaintedFigure& one : figures) {
        const PaintedFigure figure = FigureOnScreen(one, zoom);
        if (Grown(BoundsOf(figure), edgeWidth).intersects(place)) {
            shown << figure;
        }
    }
    return shown;
}

int ButtonNumber(Qt::MouseButton button)
{
    switch (button) {
    case Qt::LeftButton:
        return 1;
    case Qt::RightButton:
        return 2;
    case Qt::MiddleButton:
        return 4;
    default:
        return 0;
    }
}

} // namespace

PictureSurface::PictureSurface(QWidget* parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    resize(0, 0);
}

void PictureSurface::SetPicture(const QImage& picture)
{
    ForgetGround();
    picture_ = picture;
    figures_.clear();
    rubber_.reset();
    areas_.clear();
    selection_ = {};
    cross_.reset();
    resize(Zoomed(picture_.size(), zoom_));
    update();
}

void PictureSurface::SetZoom(double zoom)
{
    ForgetGround();
    zoom_ = zoom;
    resize(Zoomed(picture_.size(), zoom_));
    update();
}

QRect PictureSurface::FromPicture(const QRect& pixels) const
{
    return QRectF(pixels.topLeft() * zoom_, QSizeF(pixels.size()) * zoom_).toAlignedRect();
}

void PictureSurface::ShowAreas(const MapAreas& areas)
{
    if (areas_ != areas) {
        ForgetGround();
        areas_ = areas;
        update();
    }
}

void PictureSurface::UpdateSelection(const SelectionPicture& selection)
{
    // Lines and notes reach anywhere in sight.
    if (!selection.guides.isEmpty() || !selection.note.isEmpty()) {
        update();
    } else {
        update(BoundsOf(selection, zoom_));
    }
}

void PictureSurface::ShowSelection(const SelectionPicture& selection)
{
    if (selection_ != selection) {
        UpdateSelection(selection_);
        selection_ = selection;
        UpdateSelection(selection_);
    }
}

void PictureSurface::ShowCross(QPoint place)
{
    HideCross();
    cross_ = place;
    update(CrossBounds(place, zoom_));
    Q_EMIT CrossMoved(place);
}

void PictureSurface::HideCross()
{
    if (cross_) {
        update(CrossBounds(*cross_, zoom_));
        cross_.reset();
    }
}

void PictureSurface::SetForegroundColor(const QColor& color)
{
    ForgetGround();
    foregroundColor_ = color;
    update();
}

void PictureSurface::ShowFigures(const PaintedFigures& figures)
{
    const auto [gone, come] =
        std::mismatch(figures_.cbegin(), figures_.cend(), figures.cbegin(), figures.cend());
    if ((figures_.cend() - gone) + (figures.cend() - come) > patchesAtMost) {
        update();
    } else {
        std::for_each(gone, figures_.cend(), [this](const PaintedFigure& figure) { UpdateFigure(figure); });
        std::for_each(come, figures.cend(), [this](const PaintedFigure& figure) { UpdateFigure(figure); });
    }
    if (figures_ != figures) {
        ForgetGround();
        figures_ = figures;
    }
}

void PictureSurface::ShowRubberFigure(const PaintedFigure& figure)
{
    EraseRubberFigure();
    rubber_ = figure;
    UpdateFigure(figure);
}

void PictureSurface::EraseRubberFigure()
{
    if (rubber_) {
        UpdateFigure(*rubber_);
        rubber_.reset();
    }
}

void PictureSurface::UpdateFigure(const PaintedFigure& figure)
{
    update(Grown(BoundsOf(FigureOnScreen(figure, zoom_)), edgeWidth + sharedBorder));
}

void PictureSurface::SetPointer(SurfacePointer pointer)
{
    static constexpr std::array shapes = { Qt::ArrowCursor, Qt::CrossCursor, Qt::SizeAllCursor,
                                           Qt::PointingHandCursor };
    const Qt::CursorShape shape = shapes[static_cast<std::size_t>(pointer)];
    if (cursor().shape() != shape) {
        setCursor(shape);
    }
}

void PictureSurface::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    const QRect exposed = Grown(event->rect(), sharedBorder) & rect();
    if (exposed.isEmpty() || picture_.isNull()) {
        return;
    }
    if (!rubber_ && std::max(figures_.size(), areas_.size()) > keptFrom) {
        ground_.Paint(painter, exposed, [this, exposed](QPainter& keeper) { PaintGround(keeper, exposed); });
    } else {
        PaintGround(painter, exposed);
    }
    PaintOverlay(painter, exposed);
}

void PictureSurface::ForgetGround()
{
    ground_.Forget();
    underRubber_.Forget();
}

void PictureSurface::changeEvent(QEvent* event)
{
    // Colours and font may have changed.
    ForgetGround();
    QWidget::changeEvent(event);
}

void PictureSurface::PaintGround(QPainter& painter, const QRect& exposed)
{
    PaintPicture(painter, exposed);
    if (!areas_.isEmpty()) {
        ClipForLines(painter, rect());
        PaintAreas(painter, areas_, zoom_, palette(), exposed);
    }
}

void PictureSurface::PaintPicture(QPainter& painter, const QRect& exposed)
{
    const bool hasRubber = rubber_ && BoundsOf(FigureOnScreen(*rubber_, zoom_)).intersects(exposed);
    const bool isKept = hasRubber && figures_.size() > keptFrom;
    if (zoom_ == 1 && !hasRubber && FiguresIn(figures_, zoom_, exposed).isEmpty()) {
        painter.drawImage(exposed, picture_, exposed);
        return;
    }
    // In the picture's own pixels, so that figures look the same at every scaling.
    const auto make = [this](const QRect& place) {
        QImage drawn = zoom_ == 1 ? picture_.copy(place) : ZoomedPart(picture_, zoom_, place);
        const PaintedFigures figures = FiguresIn(figures_, zoom_, place);
        if (!figures.isEmpty()) {
            PaintFigures(drawn, place.topLeft(), figures, foregroundColor_);
        }
        return drawn;
    };
    const QRect seen = Grown(visibleRegion().boundingRect(), sharedBorder) & rect();
    QImage part = isKept ? underRubber_.Of(exposed, seen, make) : make(exposed);
    if (hasRubber) {
        PaintRubber(part, exposed.topLeft(), FigureOnScreen(*rubber_, zoom_));
    }
    painter.drawImage(exposed, part);
}

void PictureSurface::PaintOverlay(QPainter& painter, const QRect& exposed)
{
    ClipForLines(painter, rect());
    PaintSelection(
        painter, selection_, zoom_, palette(), isVisible() ? visibleRegion().boundingRect() : exposed,
        outlines_);
    if (cross_) {
        PaintCross(painter, *cross_, zoom_);
    }
}

QPointF PictureSurface::PlaceOf(const QMouseEvent& event) const
{
    const QPointF place = ToPicture(event.position());
    return zoom_ == 1 ? place : QPointF(std::floor(place.x()), std::floor(place.y()));
}

void PictureSurface::mousePressEvent(QMouseEvent* event)
{
    const QPointF place = PlaceOf(*event);
    Q_EMIT KeysHeld(event->modifiers());
    Q_EMIT MouseDown(ButtonNumber(event->button()), float(place.x()), float(place.y()));
}

void PictureSurface::mouseDoubleClickEvent(QMouseEvent* event)
{
    mousePressEvent(event);
    if (event->button() == Qt::LeftButton) {
        const QPointF place = PlaceOf(*event);
        Q_EMIT DoubleClicked(float(place.x()), float(place.y()));
    }
}

void PictureSurface::mouseMoveEvent(QMouseEvent* event)
{
    const QPointF place = PlaceOf(*event);
    Q_EMIT KeysHeld(event->modifiers());
    Q_EMIT MouseMove(float(place.x()), float(place.y()));
}

void PictureSurface::mouseReleaseEvent(QMouseEvent* event)
{
    const QPointF place = PlaceOf(*event);
    Q_EMIT KeysHeld(event->modifiers());
    Q_EMIT MouseUp(ButtonNumber(event->button()), float(place.x()), float(place.y()));
}
