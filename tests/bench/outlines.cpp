// Costs of areas that draw themselves: taking a region of a large picture by its colour, beside the plainest
// way to find the same pixels.

#include "outline/PictureRegions.h"
#include "outline/RegionChoice.h"
#include "outline/RegionShape.h"
#include "tests/bench/Bench.h"

#include <QPainter>
#include <cmath>
#include <numbers>

namespace {

struct Case
{
    QSize size;
    const char* name;
};
constexpr Case cases[] = { { { 6000, 4000 }, "24 MP" }, { { 12500, 8000 }, "100 MP" } };
/** Larger pictures take too long where instructions are counted. */
constexpr int mostCountedWidth = 6000;

/** A country with bays, smooth at its edge, that has a third of the picture. */
QImage CountryOf(QSize size)
{
    constexpr int corners = 300;
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPolygonF coast;
    for (int i = 0; i < corners; ++i) {
        const double angle = 2 * std::numbers::pi * i / corners;
        const double reach =
            size.height() * (0.36 + 0.06 * std::sin(7 * angle) + 0.01 * std::sin(71 * angle));
        coast << QPointF(
            size.width() / 2.0 + 1.2 * reach * std::cos(angle),
            size.height() / 2.0 + reach * std::sin(angle));
    }
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::darkGreen);
    painter.drawPolygon(coast);
    return picture;
}

/** From pixel to neighbour of the same colour: a byte a pixel and a list of those to go on from. */
qint64 FillPlainly(const QImage& picture, QPoint seed)
{
    const int width = picture.width();
    const int height = picture.height();
    const auto* const pixels = reinterpret_cast<const QRgb*>(picture.constBits());
    std::vector<quint8> isTaken(std::size_t(width) * std::size_t(height), 0);
    std::vector<int> waiting;
    qint64 count = 0;
    const int first = seed.y() * width + seed.x();
    const auto take = [&](int place) {
        if (isTaken[std::size_t(place)] == 0 && pixels[place] == pixels[first]) {
            isTaken[std::size_t(place)] = 1;
            waiting.push_back(place);
            ++count;
        }
    };
    take(first);
    while (!waiting.empty()) {
        const int place = waiting.back();
        waiting.pop_back();
        if (place % width > 0) {
            take(place - 1);
        }
        if (place % width + 1 < width) {
            take(place + 1);
        }
        if (place >= width) {
            take(place - width);
        }
        if (place / width + 1 < height) {
            take(place + width);
        }
    }
    return count;
}

void BenchRegion(const Case& one)
{
    const QImage picture = CountryOf(one.size);
    const QPoint middle = picture.rect().center();
    const QString where = QStringLiteral(" at ") + QString::fromLatin1(one.name);
    qint64 pixels = 0;
    const Cost plain = CostOf([&picture, middle, &pixels] { pixels = FillPlainly(picture, middle); });
    qint64 taken = 0;
    const Cost click = CostOf([&picture, middle, &taken] {
        RegionChoice choice(picture);
        choice.Take(middle, RegionTaking::Alone, usualTolerance);
        const auto pieces = choice.Pieces(PieceHoles::Ignored);
        taken = pieces.front().region.pixels;
        (void)ShapeOf(pieces.front().contour);
    });
    if (taken < pixels) {
        qFatal("the region is not the one that the plain way finds");
    }
    PrintRow(
        QStringLiteral("take a region and its shape") + where + QStringLiteral("; plain flood fill"), click,
        plain, 1);
    RegionChoice choice(picture);
    choice.Take(middle, RegionTaking::Alone, usualTolerance);
    double tolerance = usualTolerance;
    const Cost live = CostOf([&choice, &tolerance] {
        choice.SetTolerance(tolerance += 1);
        (void)choice.Pieces(PieceHoles::Ignored);
    });
    PrintRow(
        QStringLiteral("a larger tolerance") + where + QStringLiteral("; plain flood fill"), live, plain,
        0.5);
    const Cost all = CostOf([&picture] { (void)RegionsOf(picture, {}); });
    PrintRow(
        QStringLiteral("all regions") + where + QStringLiteral("; plain flood fill of one"), all, plain, 4);
}

} // namespace

void BenchOutlines()
{
    for (const Case& one : cases) {
        if (!IsCounting() || one.size.width() <= mostCountedWidth) {
            BenchRegion(one);
        }
    }
}
