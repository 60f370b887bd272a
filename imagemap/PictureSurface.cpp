#include "imagemap/PictureSurface.h"

#include "imagemap/FigurePainting.h"

#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <algorithm>
#include <iterator>

namespace {

/** How far beyond its bounds a figure with its edge reaches. */
constexpr int edgeWidth = 1;
/** Where the screen's pixels do not meet the picture's, those at the border belong to both sides of it. */
constexpr int sharedBorder = 1;
/** So many figures are repainted one by one; beyond that the whole surface is. */
constexpr int patchesAtMost = 16;

QRect Grown(const QRect& rect, int by)
{
    return rect.adjusted(-by, -by, by, by);
}

QRgb* PixelOf(QImage& image, int x, int y)
{
    return reinterpret_cast<QRgb*>(image.scanLine(y)) + x;
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
    figures_.clear();
    rubber_.reset();
    resize(picture_.size());
    update();
}

void PictureSurface::SetForegroundColor(const QColor& color)
{
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
    figures_ = figures;
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
    update(Grown(BoundsOf(figure), edgeWidth + sharedBorder));
}

void PictureSurface::SetPointer(SurfacePointer pointer)
{
    const Qt::CursorShape shape = pointer == SurfacePointer::Cross ? Qt::CrossCursor : Qt::ArrowCursor;
    if (cursor().shape() != shape) {
        setCursor(shape);
    }
}

void PictureSurface::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    const QRect exposed = Grown(event->rect(), sharedBorder) & picture_.rect();
    if (exposed.isEmpty()) {
        return;
    }
    const PaintedFigures figures = FiguresIn(exposed);
    const bool hasRubber = rubber_ && BoundsOf(*rubber_).intersects(exposed);
    if (figures.isEmpty() && !hasRubber) {
        painter.drawImage(exposed, picture_, exposed);
        return;
    }
    // In the picture's own pixels, so that figures look the same at every scaling.
    QImage part = picture_.copy(exposed);
    PaintFigures(part, exposed.topLeft(), figures);
    if (hasRubber) {
        PaintRubber(part, exposed.topLeft());
    }
    painter.drawImage(exposed, part);
}

PaintedFigures PictureSurface::FiguresIn(const QRect& place) const
{
    PaintedFigures figures;
    std::copy_if(
        figures_.begin(), figures_.end(), std::back_inserter(figures), [&place](const PaintedFigure& figure) {
            return Grown(BoundsOf(figure), edgeWidth).intersects(place);
        });
    return figures;
}

/** Paints `figures` on `part`, which shows the picture from `place` on. */
void PictureSurface::PaintFigures(QImage& part, QPoint place, const PaintedFigures& figures) const
{
    QImage outlines = EmptyMask(part.size());
    QImage edges = outlines;
    QPainter outlinePainter(&outlines);
    QPainter edgePainter(&edges);
    outlinePainter.translate(-place);
    edgePainter.translate(-place);
    for (const PaintedFigure& figure : figures) {
        PaintOutline(outlinePainter, figure, maskColor);
        PaintEdge(edgePainter, figure, maskColor);
    }
    outlinePainter.end();
    edgePainter.end();
    const QRgb outline = foregroundColor_.rgb();
    ForEachPixel(edges, edges.rect(), [&part, &outlines, outline](int x, int y) {
        // An edge lies under all outlines, also under those of other figures.
        QRgb* const pixel = PixelOf(part, x, y);
        if (outlines.pixelIndex(x, y) == 0 && NeedsLightEdge(*pixel, outline)) {
            *pixel = lightEdge;
        }
    });
    QPainter painter(&part);
    painter.translate(-place);
    for (const PaintedFigure& figure : figures) {
        PaintOutline(painter, figure, foregroundColor_);
    }
}

void PictureSurface::PaintRubber(QImage& part, QPoint place) const
{
    QImage mask = EmptyMask(part.size());
    QPainter painter(&mask);
    painter.translate(-place);
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
