#include "imagemap/model/AreaConversion.h"

#include "imagemap/model/AreaGeometry.h"
#include "mapreader/PageShapes.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace {

constexpr int leastRoundCorners = 8;
constexpr int mostRoundCorners = 64;

/** How many sides it takes to keep within half a pixel of a circle; four times a whole number. */
int SidesOf(int radius)
{
    constexpr int quarters = 4;
    constexpr double tolerance = 0.5;
    const double angle = std::acos(std::max(1.0 - tolerance / std::max(radius, 1), 0.0));
    const int sides = static_cast<int>(std::ceil(std::numbers::pi / angle));
    return std::clamp((sides + quarters - 1) / quarters * quarters, leastRoundCorners, mostRoundCorners);
}

QList<int> RoundPolygon(const QList<int>& circle)
{
    const int sides = SidesOf(circle[2]);
    QList<int> coordinates;
    coordinates.reserve(qsizetype(2) * sides);
    for (int i = 0; i < sides; ++i) {
        const double angle = 2 * std::numbers::pi * i / sides;
        coordinates << circle[0] + static_cast<int>(std::lround(circle[2] * std::cos(angle)))
                    << circle[1] + static_cast<int>(std::lround(circle[2] * std::sin(angle)));
    }
    return coordinates;
}

QList<int> CircleIn(const QRect& box)
{
    const int radius = std::min(box.right() - box.left(), box.bottom() - box.top()) / 2;
    return { (box.left() + box.right()) / 2, (box.top() + box.bottom()) / 2, std::max(radius, 1) };
}

QList<int> CornersAsPolygon(const QRect& box)
{
    return { box.left(),  box.top(),    box.right(), box.top(),
             box.right(), box.bottom(), box.left(),  box.bottom() };
}

/** What is wrong with so many numbers for a shape; empty where nothing is, or there are too many. */
QString ProblemOfCount(AreaShape shape, qsizetype count)
{
    switch (shape) {
    case AreaShape::Rectangle:
        return count >= rectangleNumbers
                   ? QString()
                   : QStringLiteral("A rectangle takes four numbers: left, top, right, bottom");
    case AreaShape::Circle:
        return count >= circleNumbers
                   ? QString()
                   : QStringLiteral("A circle takes three numbers: across, down and its radius");
    case AreaShape::Default:
        return count == 0 ? QString() : QStringLiteral("A default area takes no numbers");
    case AreaShape::Polygon:
        break;
    }
    return count >= qsizetype(2) * leastCorners ? QString()
                                                : QStringLiteral("A polygon takes three corners at least");
}

/** How many of so many numbers a shape takes. */
qsizetype NumbersTaken(AreaShape shape, qsizetype count)
{
    switch (shape) {
    case AreaShape::Rectangle:
        return std::min<qsizetype>(count, rectangleNumbers);
    case AreaShape::Circle:
        return std::min<qsizetype>(count, circleNumbers);
    case AreaShape::Polygon:
    case AreaShape::Default:
        break;
    }
    return count - count % 2;
}

/** `numbers` with the corners of a rectangle in their order: browsers swap them so. */
QList<int> InOrder(AreaShape shape, const QList<int>& numbers)
{
    if (shape != AreaShape::Rectangle) {
        return numbers;
    }
    return { std::min(numbers[0], numbers[2]), std::min(numbers[1], numbers[3]),
             std::max(numbers[0], numbers[2]), std::max(numbers[1], numbers[3]) };
}

} // namespace

MapArea Converted(const MapArea& area, AreaShape shape)
{
    if (area.Shape == shape || !IsWhole(area)) {
        return area;
    }
    MapArea converted = area;
    const QRect bounds = BoundsOf(area);
    converted.Shape = shape;
    switch (shape) {
    case AreaShape::Rectangle:
        converted.Coordinates = { bounds.left(), bounds.top(), bounds.right(), bounds.bottom() };
        break;
    case AreaShape::Circle:
        converted.Coordinates = CircleIn(bounds);
        break;
    case AreaShape::Polygon:
        converted.Coordinates =
            area.Shape == AreaShape::Circle ? RoundPolygon(area.Coordinates) : CornersAsPolygon(bounds);
        break;
    case AreaShape::Default:
        converted.Coordinates = {};
        break;
    }
    return converted;
}

CoordinatesReading ReadCoordinates(AreaShape shape, QStringView text)
{
    CoordinatesReading reading;
    for (const PageCoordinate& read : CoordinatesIn(text)) {
        const QStringView word = text.sliced(read.offset, read.length);
        if (std::ranges::none_of(word, [](QChar character) { return character.isDigit(); })) {
            reading.problem = u'"' % word % u"\" is no number";
            return reading;
        }
        if (std::abs(read.number) > coordinateLimit) {
            reading.problem = word % u" lies too far away";
            return reading;
        }
        reading.numbers << static_cast<int>(std::lround(read.number));
        if (!read.isPlain && reading.note.isEmpty()) {
            reading.note =
                u"Browsers read \"" % word % u"\" as " % QString::number(reading.numbers.constLast());
        }
    }
    const qsizetype taken = NumbersTaken(shape, reading.numbers.size());
    if (taken < reading.numbers.size()) {
        reading.note = QStringLiteral("Browsers read the first %1 numbers, and no more").arg(taken);
        reading.numbers.resize(taken);
    }
    reading.problem = ProblemOfCount(shape, taken);
    if (reading.problem.isEmpty() && shape == AreaShape::Circle && reading.numbers[2] < 1) {
        reading.problem = QStringLiteral("A radius is 1 at least");
    }
    if (reading.problem.isEmpty()) {
        reading.numbers = InOrder(shape, reading.numbers);
    }
    return reading;
}
