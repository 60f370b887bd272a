#include "imagemap/FigurePainting.h"

#include <QPainter>
#include <algorithm>

namespace {

constexpr int whole = 255;

/** How much red, green and blue count in what the eye tells apart, in tenths. */
constexpr int redWeight = 3;
constexpr int greenWeight = 6;
constexpr int blueWeight = 1;

/** Below this distance, weighed and of 255, a line one pixel wide is lost in what surrounds it. */
constexpr int seenDistance = 56;

/** Up to this grey an outline as dark as can be has less than three times the contrast of nothing. */
constexpr int darkGrey = 96;

constexpr int Square(int number)
{
    return number * number;
}

bool CanBeTold(QRgb a, QRgb b)
{
    const int distance = redWeight * Square(qRed(a) - qRed(b)) + greenWeight * Square(qGreen(a) - qGreen(b)) +
                         blueWeight * Square(qBlue(a) - qBlue(b));
    return distance >= (redWeight + greenWeight + blueWeight) * Square(seenDistance);
}

/** The outline with both corners on it, as four bars that share no pixel. */
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

bool IsBox(const PaintedFigure& figure)
{
    const QRect bounds = BoundsOf(figure);
    return figure.kind == kindRectangle || bounds.width() == 1 || bounds.height() == 1;
}

/** The half of the plane that lies from the centre of `figure` in the direction of `step`. */
QRect HalfPlane(const PaintedFigure& figure, QPoint step)
{
    constexpr int far = 1 << 24;
    const QPoint centre(figure.x1, figure.y1);
    const QRect plane(centre - QPoint(far, far), centre + QPoint(far, far));
    return plane.intersected(plane.translated((far + 1) * step));
}

QRgb* PixelOf(QImage& image, int x, int y)
{
    return reinterpret_cast<QRgb*>(image.scanLine(y)) + x;
}

} // namespace

QRect BoundsOf(const PaintedFigure& figure)
{
    if (figure.kind == kindCircle) {
        const int across = 2 * figure.radius + 1;
        return { figure.x1 - figure.radius, figure.y1 - figure.radius, across, across };
    }
    return { QPoint(std::min(figure.x1, figure.x2), std::min(figure.y1, figure.y2)),
             QPoint(std::max(figure.x1, figure.x2), std::max(figure.y1, figure.y2)) };
}

void PaintOutline(QPainter& painter, const PaintedFigure& figure, const QColor& color)
{
    if (IsBox(figure)) {
        PaintBox(painter, BoundsOf(figure), color);
        return;
    }
    painter.setPen(QPen(color, 1));
    if (figure.kind == kindCircle) {
        painter.drawEllipse(QPoint(figure.x1, figure.y1), figure.radius, figure.radius);
    } else {
        painter.drawLine(figure.x1, figure.y1, figure.x2, figure.y2);
    }
}

void PaintEdge(QPainter& painter, const PaintedFigure& figure, const QColor& color)
{
    if (IsBox(figure)) {
        PaintBox(painter, BoundsOf(figure).adjusted(-1, -1, 1, 1), color);
        return;
    }
    // The outline itself, shifted by a pixel each way: away from a circle's centre only.
    for (const QPoint step : { QPoint(-1, 0), QPoint(1, 0), QPoint(0, -1), QPoint(0, 1) }) {
        painter.save();
        if (figure.kind == kindCircle) {
            painter.setClipRect(HalfPlane(figure, step), Qt::IntersectClip);
        }
        painter.translate(step);
        PaintOutline(painter, figure, color);
        painter.restore();
    }
}

QRgb RubberColor(QRgb ground)
{
    const QRgb inverted = ground ^ RGB_MASK;
    // One colour for all the middle tones, or the line would fall into dots on a rough ground.
    return CanBeTold(ground, inverted) ? inverted : 0xFFFFFFFF;
}

bool NeedsLightEdge(QRgb ground, QRgb outline)
{
    return qGray(ground) < darkGrey || (!CanBeTold(ground, outline) && CanBeTold(ground, lightEdge));
}

QImage EmptyMask(QSize size)
{
    QImage mask(size, QImage::Format_MonoLSB);
    mask.setColorTable({ QColor(Qt::black).rgb(), QColor(maskColor).rgb() });
    mask.fill(0);
    return mask;
}

void PaintFigures(QImage& part, QPoint place, const PaintedFigures& figures, const QColor& color)
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
    const QRgb outline = color.rgb();
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
        PaintOutline(painter, figure, color);
    }
}

void PaintRubber(QImage& part, QPoint place, const PaintedFigure& figure)
{
    QImage mask = EmptyMask(part.size());
    QPainter painter(&mask);
    painter.translate(-place);
    PaintOutline(painter, figure, maskColor);
    painter.end();
    ForEachPixel(mask, mask.rect(), [&part](int x, int y) {
        QRgb* const pixel = PixelOf(part, x, y);
        *pixel = RubberColor(*pixel);
    });
}
