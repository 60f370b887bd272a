#include "imagemap/PictureSurface.h"

#include "imagemap/SelectionPainting.h"
#include "imagemap/ZoomedPicture.h"

#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <algorithm>
#include <array>
#include <cmath>

namespace {

/** So many figures are repainted one by one; beyond that the whole surface is. */
constexpr int patchesAtMost = 16;
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

/** Where the mouse is in the picture: on another scale than the picture's own in whole pixels. */
QPointF PlaceInPicture(const QMouseEvent& event, double zoom)
{
    const QPointF place = event.position() / zoom;
    return zoom == 1 ? place : QPointF(std::floor(place.x()), std::floor(place.y()));
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
    DrawnPicture& drawn = ground_.ToChange();
    drawn.Picture = picture;
    drawn.Figures.clear();
    drawn.Areas.clear();
    ground_.SetRubber({});
    selection_ = {};
    cross_.reset();
    resize(Zoomed(picture.size(), drawn.Zoom));
    update();
}

void PictureSurface::SetZoom(double zoom)
{
    ground_.ToChange().Zoom = zoom;
    resize(Zoomed(ground_.Drawn().Picture.size(), zoom));
    update();
}

QRect PictureSurface::FromPicture(const QRect& pixels) const
{
    return QRectF(pixels.topLeft() * Zoom(), QSizeF(pixels.size()) * Zoom()).toAlignedRect();
}

void PictureSurface::ShowAreas(const MapAreas& areas)
{
    if (ground_.Drawn().Areas != areas) {
        ground_.ToChange().Areas = areas;
        update();
    }
}

void PictureSurface::UpdateSelection(const SelectionPicture& selection)
{
    // Lines and notes reach anywhere in sight.
    if (!selection.guides.isEmpty() || !selection.note.isEmpty()) {
        update();
    } else {
        update(BoundsOf(selection, Zoom()));
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
    update(CrossBounds(place, Zoom()));
    Q_EMIT CrossMoved(place);
}

void PictureSurface::HideCross()
{
    if (cross_) {
        update(CrossBounds(*cross_, Zoom()));
        cross_.reset();
    }
}

void PictureSurface::SetForegroundColor(const QColor& color)
{
    ground_.ToChange().ForegroundColor = color;
    update();
}

void PictureSurface::ShowFigures(const PaintedFigures& figures)
{
    const PaintedFigures& shown = ground_.Drawn().Figures;
    const auto [gone, come] = std::mismatch(shown.cbegin(), shown.cend(), figures.cbegin(), figures.cend());
    if ((shown.cend() - gone) + (figures.cend() - come) > patchesAtMost) {
        update();
    } else {
        const auto updateFigure = [this](const PaintedFigure& figure) { update(ground_.PlaceOf(figure)); };
        std::for_each(gone, shown.cend(), updateFigure);
        std::for_each(come, figures.cend(), updateFigure);
    }
    if (shown != figures) {
        ground_.ToChange().Figures = figures;
    }
}

void PictureSurface::ShowRubberFigure(const PaintedFigure& figure)
{
    EraseRubberFigure();
    ground_.SetRubber(figure);
    update(ground_.PlaceOf(figure));
}

void PictureSurface::EraseRubberFigure()
{
    if (ground_.Rubber()) {
        update(ground_.PlaceOf(*ground_.Rubber()));
        ground_.SetRubber({});
    }
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
    if (exposed.isEmpty() || ground_.Drawn().Picture.isNull()) {
        return;
    }
    ground_.Paint(painter, *this, exposed);
    ClipForLines(painter, rect());
    PaintSelection(
        painter, selection_, Zoom(), palette(), isVisible() ? visibleRegion().boundingRect() : exposed,
        outlines_);
    if (cross_) {
        PaintCross(painter, *cross_, Zoom());
    }
}

void PictureSurface::changeEvent(QEvent* event)
{
    // Colours and font may have changed.
    ground_.Forget();
    QWidget::changeEvent(event);
}

void PictureSurface::mousePressEvent(QMouseEvent* event)
{
    const QPointF place = PlaceInPicture(*event, Zoom());
    Q_EMIT KeysHeld(event->modifiers());
    Q_EMIT MouseDown(ButtonNumber(event->button()), float(place.x()), float(place.y()));
}

void PictureSurface::mouseDoubleClickEvent(QMouseEvent* event)
{
    mousePressEvent(event);
    if (event->button() == Qt::LeftButton) {
        const QPointF place = PlaceInPicture(*event, Zoom());
        Q_EMIT DoubleClicked(float(place.x()), float(place.y()));
    }
}

void PictureSurface::mouseMoveEvent(QMouseEvent* event)
{
    const QPointF place = PlaceInPicture(*event, Zoom());
    Q_EMIT KeysHeld(event->modifiers());
    Q_EMIT MouseMove(float(place.x()), float(place.y()));
}

void PictureSurface::mouseReleaseEvent(QMouseEvent* event)
{
    const QPointF place = PlaceInPicture(*event, Zoom());
    Q_EMIT KeysHeld(event->modifiers());
    Q_EMIT MouseUp(ButtonNumber(event->button()), float(place.x()), float(place.y()));
}
