#include "imagemap/PictureSurface.h"

#include "imagemap/FigurePainting.h"

#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <algorithm>

namespace {

/** How far beyond its bounds a figure with its edge reaches. */
constexpr int edgeWidth = 1;
/** Where the screen's pixels do not meet the picture's, those at the border belong to both sides of it. */
constexpr int sharedBorder = 1;

QRect Grown(const QRect& rect, int by)
{
    return rect.adjusted(-by, -by, by, by);
}

QRgb* PixelOf(QImage& image, int x, int y)
{
    return reinterpret_cast<QRgb*>(image.scanLine(y)) + x;
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
    outlines_ = {};
    edges_ = {};
    resize(picture_.size());
    update();
}

void PictureSurface::SetForegroundColor(const QColor& color)
{
    foregroundColor_ = color;
    update();
}

void PictureSurface::PaintFigure(const PaintedFigure& figure, Pen pen)
{
    if (pen == Pen::Invert) {
        EraseRubberFigure();
        rubber_ = figure;
    } else if (!drawing_.isNull()) {
        PaintForGood(figure);
    }
    UpdateFigure(figure);
}

void PictureSurface::PaintForGood(const PaintedFigure& figure)
{
    const QRect part = Grown(BoundsOf(figure), edgeWidth) & drawing_.rect();
    if (part.isEmpty()) {
        return;
    }
    if (outlines_.isNull()) {
        outlines_ = EmptyMask(drawing_.size());
        edges_ = outlines_;
    }
    QPainter painter(&drawing_);
    PaintOutline(painter, figure, foregroundColor_);
    QPainter outlines(&outlines_);
    PaintOutline(outlines, figure, maskColor);
    QPainter edges(&edges_);
    PaintEdge(edges, figure, maskColor);
    painted_ << part;
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
    update(Grown(BoundsOf(figure), edgeWidth + sharedBorder));
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
        outlines_.fill(0);
        edges_.fill(0);
    } else if (pixels > 0) {
        // A hundred megapixels are not copied again for the sake of some figures.
        QPainter painter(&drawing_);
        QPainter outlines(&outlines_);
        QPainter edges(&edges_);
        for (const QRect& part : painted_) {
            painter.drawImage(part, picture_, part);
            outlines.fillRect(part, Qt::black);
            edges.fillRect(part, Qt::black);
        }
    }
    painted_.clear();
    update();
}

void PictureSurface::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    const QRect exposed = Grown(event->rect(), sharedBorder) & drawing_.rect();
    const auto isExposed = [&exposed](const QRect& part) { return part.intersects(exposed); };
    const bool hasRubber = rubber_ && isExposed(BoundsOf(*rubber_));
    if (exposed.isEmpty() || (!hasRubber && std::none_of(painted_.begin(), painted_.end(), isExposed))) {
        painter.drawImage(exposed, drawing_, exposed);
        return;
    }
    // In the picture's own pixels, so that figures look the same at every scaling.
    QImage part = drawing_.copy(exposed);
    LightenEdges(part, exposed);
    if (hasRubber) {
        ShowRubber(part, exposed);
    }
    painter.drawImage(exposed, part);
}

/** Gives the outlines in `part`, which shows the picture's pixels in `place`, their light edges. */
void PictureSurface::LightenEdges(QImage& part, const QRect& place) const
{
    if (edges_.isNull()) {
        return;
    }
    const QRgb outline = foregroundColor_.rgb();
    ForEachPixel(edges_, place, [&](int x, int y) {
        // An edge lies under all outlines, also under those that were there before it.
        if (outlines_.pixelIndex(x, y) == 0 && NeedsLightEdge(picture_.pixel(x, y), outline)) {
            *PixelOf(part, x - place.left(), y - place.top()) = lightEdge;
        }
    });
}

void PictureSurface::ShowRubber(QImage& part, const QRect& place) const
{
    QImage mask = EmptyMask(part.size());
    QPainter painter(&mask);
    painter.translate(-place.topLeft());
    PaintOutline(painter, *rubber_, maskColor);
    painter.end();
    ForEachPixel(mask, mask.rect(), [&part](int x, int y) {
        QRgb* const pixel = PixelOf(part, x, y);
        *pixel = RubberColor(*pixel);
    });
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
