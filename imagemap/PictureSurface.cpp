#include "imagemap/PictureSurface.h"

#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <algorithm>

namespace {

/** The pixels a figure can touch. */
QRect BoundsOf(const PaintedFigure& figure)
{
    if (figure.kind == kindCircle) {
        const int across = 2 * figure.radius + 1;
        return { figure.x1 - figure.radius, figure.y1 - figure.radius, across, across };
    }
    return { QPoint(std::min(figure.x1, figure.x2), std::min(figure.y1, figure.y2)),
             QPoint(std::max(figure.x1, figure.x2), std::max(figure.y1, figure.y2)) };
}

/** The outline with both corners on it, as four bars that share no pixel: inverting twice would undo. */
void PaintBox(QPainter& painter, const QRect& box, const QColor& color)
{
    painter.fillRect(QRect(box.topLeft(), QSize(box.width(), 1)), color);
    if (box.height() > 1) {
        painter.fillRect(QRect(box.bottomLeft(), QSize(box.width(), 1)), color);
    }
    const QSize side(1, box.height() - 2);
    if (side.height() <= 0) {
        return;
    }
    painter.fillRect(QRect(box.topLeft() + QPoint(0, 1), side), color);
    if (box.width() > 1) {
        painter.fillRect(QRect(box.topRight() + QPoint(0, 1), side), color);
    }
}

/** Paints the outline of `figure`, one pixel wide. */
void PaintOutline(QPainter& painter, const PaintedFigure& figure, const QColor& color)
{
    const QRect bounds = BoundsOf(figure);
    if (figure.kind == kindRectangle || bounds.width() == 1 || bounds.height() == 1) {
        PaintBox(painter, bounds, color);
        return;
    }
    painter.setPen(QPen(color, 1));
    if (figure.kind == kindCircle) {
        painter.drawEllipse(QPoint(figure.x1, figure.y1), figure.radius, figure.radius);
    } else {
        painter.drawLine(figure.x1, figure.y1, figure.x2, figure.y2);
    }
}

qint64 PixelsOf(QSize size)
{
    return qint64(size.width()) * size.height();
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
    picture_ = picture;
    rubber_.reset();
    drawing_ = picture_;
    painted_.clear();
    resize(picture_.size());
    update();
}

void PictureSurface::PaintFigure(const PaintedFigure& figure, Pen pen)
{
    if (pen == Pen::Invert) {
        EraseRubberFigure();
        rubber_ = figure;
    } else if (!drawing_.isNull()) {
        QPainter painter(&drawing_);
        PaintOutline(painter, figure, foregroundColor_);
        const QRect part = BoundsOf(figure).adjusted(-1, -1, 1, 1) & drawing_.rect();
        if (!part.isEmpty()) {
            painted_ << part;
        }
    }
    update(BoundsOf(figure));
}

void PictureSurface::EraseRubberFigure()
{
    if (rubber_) {
        update(BoundsOf(*rubber_));
        rubber_.reset();
    }
}

void PictureSurface::ClearDrawing()
{
    rubber_.reset();
    qint64 pixels = 0;
    for (const QRect& part : painted_) {
        pixels += PixelsOf(part.size());
    }
    if (pixels > PixelsOf(drawing_.size())) {
        drawing_ = picture_;
    } else if (pixels > 0) {
        // A hundred megapixels are not copied again for the sake of some figures.
        QPainter painter(&drawing_);
        for (const QRect& part : painted_) {
            painter.drawImage(part, picture_, part);
        }
    }
    painted_.clear();
    update();
}

void PictureSurface::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    const QRect exposed = event->rect() & drawing_.rect();
    if (!rubber_ || !BoundsOf(*rubber_).intersects(exposed)) {
        painter.drawImage(exposed, drawing_, exposed);
        return;
    }
    // Inverted in the picture's own pixels, so that the figure looks the same at every scaling.
    QImage part = drawing_.copy(exposed);
    QPainter inverter(&part);
    inverter.translate(-exposed.topLeft());
    inverter.setCompositionMode(QPainter::CompositionMode_Difference);
    PaintOutline(inverter, *rubber_, Qt::white);
    inverter.end();
    painter.drawImage(exposed, part);
}

void PictureSurface::mousePressEvent(QMouseEvent* event)
{
    Q_EMIT MouseDown(
        ButtonNumber(event->button()), float(event->position().x()), float(event->position().y()));
}

void PictureSurface::mouseDoubleClickEvent(QMouseEvent* event)
{
    mousePressEvent(event);
}

void PictureSurface::mouseMoveEvent(QMouseEvent* event)
{
    Q_EMIT MouseMove(float(event->position().x()), float(event->position().y()));
}

void PictureSurface::mouseReleaseEvent(QMouseEvent* event)
{
    Q_EMIT MouseUp(ButtonNumber(event->button()), float(event->position().x()), float(event->position().y()));
}
