#include "imagemap/ZoomedPicture.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

namespace {

constexpr int percent = 100;
/** Lines between pixels, seen on light and on dark ones and hiding neither. */
constexpr QRgb gridColor = qRgba(128, 128, 128, 110);

int Scaled(int position, double zoom)
{
    return static_cast<int>(std::floor((position + 1 / 2.0) * zoom));
}

/** The positions in the picture that are mixed for each of `count` pixels from `first` on: two each. */
QList<int> Samples(int first, int count, double zoom, int limit)
{
    constexpr double early = 0.25;
    constexpr double late = 0.75;
    constexpr double middle = 0.5;
    QList<int> samples;
    samples.reserve(qsizetype(2) * count);
    for (int i = first; i < first + count; ++i) {
        for (const double at : { zoom < 1 ? early : middle, zoom < 1 ? late : middle }) {
            samples << std::clamp(static_cast<int>((i + at) / zoom), 0, limit - 1);
        }
    }
    return samples;
}

QRgb Mixed(QRgb a, QRgb b)
{
    // Each part of the colour on its own, halved before they are added.
    constexpr QRgb upperBits = 0xFEFEFEFE;
    constexpr QRgb lowestBits = 0x01010101;
    return ((a & upperBits) >> 1) + ((b & upperBits) >> 1) + (a & b & lowestBits);
}

/** Every other of `samples`: what is enlarged takes one place a pixel. */
void FillRow(QRgb* to, const QRgb* upper, const QRgb* lower, const QList<int>& samples)
{
    for (qsizetype i = 0; i + 1 < samples.size(); i += 2) {
        const int left = samples[i];
        const int right = samples[i + 1];
        *to++ = upper == lower && left == right
                    ? upper[left]
                    : Mixed(Mixed(upper[left], lower[right]), Mixed(upper[right], lower[left]));
    }
}

void PaintGrid(QImage& image, double zoom, QPoint place)
{
    QPainter painter(&image);
    const QColor color = QColor::fromRgba(gridColor);
    const auto lines = [zoom](int from, int length, auto paint) {
        for (int i = static_cast<int>(std::ceil(from / zoom)); i * zoom < from + length; ++i) {
            paint(static_cast<int>(std::floor(i * zoom)) - from);
        }
    };
    lines(place.x(), image.width(), [&](int x) { painter.fillRect(x, 0, 1, image.height(), color); });
    lines(place.y(), image.height(), [&](int y) { painter.fillRect(0, y, image.width(), 1, color); });
}

} // namespace

double NextZoom(double zoom, int direction)
{
    const double now = zoom * percent;
    if (direction > 0) {
        const auto* const next = std::find_if(
            zoomSteps.begin(), zoomSteps.end(), [now](int step) { return step > now + 1 / 2.0; });
        return next != zoomSteps.end() ? double(*next) / percent : zoom;
    }
    const auto next =
        std::find_if(zoomSteps.rbegin(), zoomSteps.rend(), [now](int step) { return step < now - 1 / 2.0; });
    return next != zoomSteps.rend() ? double(*next) / percent : zoom;
}

QSize Zoomed(QSize size, double zoom)
{
    const auto scaled = [zoom](int length) {
        return length == 0 ? 0 : std::max(1, static_cast<int>(std::lround(length * zoom)));
    };
    return { scaled(size.width()), scaled(size.height()) };
}

PaintedFigure Zoomed(const PaintedFigure& figure, double zoom)
{
    return { figure.kind,
             Scaled(figure.x1, zoom),
             Scaled(figure.y1, zoom),
             Scaled(figure.x2, zoom),
             Scaled(figure.y2, zoom),
             static_cast<int>(std::lround(figure.radius * zoom)) };
}

QImage ZoomedPart(const QImage& picture, double zoom, const QRect& part)
{
    QImage zoomed(part.size(), QImage::Format_RGB32);
    const QImage source = picture.depth() == 32 ? picture : picture.convertToFormat(QImage::Format_RGB32);
    const QList<int> columns = Samples(part.left(), part.width(), zoom, source.width());
    const QList<int> rows = Samples(part.top(), part.height(), zoom, source.height());
    for (int y = 0; y < part.height(); ++y) {
        const qsizetype mixed = qsizetype(2) * y;
        const auto* const upper = reinterpret_cast<const QRgb*>(source.constScanLine(rows[mixed]));
        const auto* const lower = reinterpret_cast<const QRgb*>(source.constScanLine(rows[mixed + 1]));
        FillRow(reinterpret_cast<QRgb*>(zoomed.scanLine(y)), upper, lower, columns);
    }
    if (zoom > gridZoom) {
        PaintGrid(zoomed, zoom, part.topLeft());
    }
    return zoomed;
}
