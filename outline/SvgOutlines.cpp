#include "outline/SvgOutlines.h"

#include "outline/SvgPath.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

double LengthAcross(const SvgElement& shape, const char* attribute, QSizeF viewport)
{
    return LengthOf(shape, QLatin1String(attribute), SvgDirection::Across, viewport);
}

double LengthDown(const SvgElement& shape, const char* attribute, QSizeF viewport)
{
    return LengthOf(shape, QLatin1String(attribute), SvgDirection::Down, viewport);
}

QPainterPath EllipseAbout(QPointF centre, double across, double down)
{
    QPainterPath path;
    if (across > 0 && down > 0) {
        path.addEllipse(centre, across, down);
    }
    return path;
}

QPainterPath OfRectangle(const SvgElement& shape, QSizeF viewport)
{
    const double width = LengthAcross(shape, "width", viewport);
    const double height = LengthDown(shape, "height", viewport);
    QPainterPath path;
    if (width <= 0 || height <= 0) {
        return path;
    }
    // One radius alone is that of both.
    const auto radius = [&shape, viewport](const char* name, SvgDirection direction) {
        return SvgLength(shape.Value(QLatin1String(name)), direction, viewport);
    };
    const std::optional<double> rx = radius("rx", SvgDirection::Across);
    const std::optional<double> ry = radius("ry", SvgDirection::Down);
    const double across = std::clamp(rx.value_or(ry.value_or(0)), 0.0, width / 2);
    const double down = std::clamp(ry.value_or(rx.value_or(0)), 0.0, height / 2);
    const QRectF place(LengthAcross(shape, "x", viewport), LengthDown(shape, "y", viewport), width, height);
    if (across > 0 && down > 0) {
        path.addRoundedRect(place, across, down);
    } else {
        path.addRect(place);
    }
    return path;
}

QPainterPath OfCircle(const SvgElement& shape, QSizeF viewport)
{
    const double radius = LengthOf(shape, QLatin1String("r"), SvgDirection::Either, viewport);
    return EllipseAbout(
        { LengthAcross(shape, "cx", viewport), LengthDown(shape, "cy", viewport) }, radius, radius);
}

QPainterPath OfEllipse(const SvgElement& shape, QSizeF viewport)
{
    return EllipseAbout(
        { LengthAcross(shape, "cx", viewport), LengthDown(shape, "cy", viewport) },
        LengthAcross(shape, "rx", viewport), LengthDown(shape, "ry", viewport));
}

QPainterPath OfPoints(const SvgElement& shape, bool isClosed)
{
    const QList<double> numbers = SvgNumbers(shape.Value(QLatin1String("points")));
    QPainterPath path;
    for (qsizetype i = 0; i + 1 < numbers.size(); i += 2) {
        const QPointF place(numbers[i], numbers[i + 1]);
        if (i == 0) {
            path.moveTo(place);
        } else {
            path.lineTo(place);
        }
    }
    if (isClosed && !path.isEmpty()) {
        path.closeSubpath();
    }
    return path;
}

QPainterPath OfPolygon(const SvgElement& shape, QSizeF)
{
    return OfPoints(shape, true);
}

QPainterPath OfPolyline(const SvgElement& shape, QSizeF)
{
    return OfPoints(shape, false);
}

QPainterPath OfPath(const SvgElement& shape, QSizeF)
{
    return SvgPath(shape.Value(QLatin1String("d")));
}

/** A kind of shape, and how its outline is made. */
struct SvgShapeKind
{
    QStringView name;
    QPainterPath (*outline)(const SvgElement& shape, QSizeF viewport);
};

constexpr std::array<SvgShapeKind, 6> shapeKinds = { {
    { u"path", &OfPath },
    { u"rect", &OfRectangle },
    { u"circle", &OfCircle },
    { u"ellipse", &OfEllipse },
    { u"polygon", &OfPolygon },
    { u"polyline", &OfPolyline },
} };

const SvgShapeKind* KindNamed(QStringView name)
{
    const auto* const kind = std::find_if(
        shapeKinds.begin(), shapeKinds.end(), [name](const SvgShapeKind& one) { return one.name == name; });
    return kind != shapeKinds.end() ? kind : nullptr;
}

/** The elements of a path from one number on, which begins it, to another. */
QPainterPath PartOf(const QPainterPath& path, int from, int end)
{
    QPainterPath part{ QPointF(path.elementAt(from)) };
    for (int i = from + 1; i < end; ++i) {
        const QPainterPath::Element place = path.elementAt(i);
        if (place.isLineTo()) {
            part.lineTo(place);
        } else if (place.isCurveTo() && i + 2 < end) {
            part.cubicTo(place, path.elementAt(i + 1), path.elementAt(i + 2));
            i += 2;
        }
    }
    return part;
}

} // namespace

bool IsSvgShape(const QString& name)
{
    return KindNamed(name) != nullptr;
}

QPainterPath SvgOutline(const SvgElement& shape, QSizeF viewport)
{
    const SvgShapeKind* const kind = KindNamed(shape.Name);
    return kind != nullptr ? kind->outline(shape, viewport) : QPainterPath();
}

double LengthOf(
    const SvgElement& element, QLatin1String attribute, SvgDirection direction, QSizeF viewport, double other)
{
    return SvgLength(element.Value(attribute), direction, viewport).value_or(other);
}

QPainterPath PartsOf(const QPainterPath& path, PathEnds ends)
{
    /** Ends that meet are no further apart, in pixels. */
    constexpr double mostApart = 0.5;
    QPainterPath parts;
    parts.setFillRule(path.fillRule());
    int from = 0;
    for (int i = 1; i <= path.elementCount(); ++i) {
        if (i < path.elementCount() && !path.elementAt(i).isMoveTo()) {
            continue;
        }
        const QPointF gap = QPointF(path.elementAt(i - 1)) - QPointF(path.elementAt(from));
        if ((std::hypot(gap.x(), gap.y()) <= mostApart) == (ends == PathEnds::Meet)) {
            parts.addPath(PartOf(path, from, i));
        }
        from = i;
    }
    return parts;
}
