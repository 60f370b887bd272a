#include "outline/SvgPath.h"

#include "outline/SvgNumbers.h"

#include <QtMath>
#include <algorithm>
#include <array>
#include <cmath>

namespace {

/** How an elliptical arc is told between two points. */
struct SvgArc
{
    QPointF radii;
    double rotation = 0; ///< of the ellipse, in degrees
    bool isLarge = false;
    bool isClockwise = false;
};

/** Adds a part of the unit circle, no more than a quarter, as seen by `transform`. */
void AddQuarter(QPainterPath& path, const QTransform& transform, double from, double sweep)
{
    const double reach = 4.0 / 3.0 * std::tan(sweep / 4);
    const double to = from + sweep;
    const QPointF start(std::cos(from), std::sin(from));
    const QPointF end(std::cos(to), std::sin(to));
    path.cubicTo(
        transform.map(start + reach * QPointF(-start.y(), start.x())),
        transform.map(end - reach * QPointF(-end.y(), end.x())), transform.map(end));
}

/** Adds the arc from where the path is to `end`. */
void AddArc(QPainterPath& path, SvgArc arc, QPointF end)
{
    const QPointF start = path.currentPosition();
    double across = std::abs(arc.radii.x());
    double down = std::abs(arc.radii.y());
    if (across == 0 || down == 0 || start == end) {
        path.lineTo(end);
        return;
    }
    // Seen from the middle between the ends, with the ellipse upright.
    QTransform upright;
    upright.rotate(-arc.rotation);
    const QPointF half = upright.map((start - end) / 2);
    const double stretch = std::pow(half.x() / across, 2) + std::pow(half.y() / down, 2);
    if (stretch > 1) {
        across *= std::sqrt(stretch);
        down *= std::sqrt(stretch);
    }
    // On the unit circle, whose middle lies across the line between the ends.
    const QPointF unitHalf(half.x() / across, half.y() / down);
    const double square = QPointF::dotProduct(unitHalf, unitHalf);
    const double distance = std::sqrt(std::max(1 / square - 1, 0.0));
    const double side = arc.isLarge == arc.isClockwise ? -1 : 1;
    const QPointF centre = side * distance * QPointF(unitHalf.y(), -unitHalf.x());
    const double from = std::atan2(unitHalf.y() - centre.y(), unitHalf.x() - centre.x());
    double sweep = std::atan2(-unitHalf.y() - centre.y(), -unitHalf.x() - centre.x()) - from;
    if (arc.isClockwise && sweep < 0) {
        sweep += 2 * M_PI;
    } else if (!arc.isClockwise && sweep > 0) {
        sweep -= 2 * M_PI;
    }
    QTransform toPath;
    toPath.translate((start.x() + end.x()) / 2, (start.y() + end.y()) / 2);
    toPath.rotate(arc.rotation);
    toPath.scale(across, down);
    toPath.translate(centre.x(), centre.y());
    const int pieces = std::max(int(std::ceil(std::abs(sweep) / M_PI_2 - 1e-9)), 1);
    for (int piece = 0; piece < pieces; ++piece) {
        AddQuarter(path, toPath, from + sweep * piece / pieces, sweep / pieces);
    }
}

/** Reads path data command by command. */
class SvgPathReader
{
public:
    explicit SvgPathReader(QStringView text)
        : numbers_(text)
    {
    }

    QPainterPath Read()
    {
        while (const std::optional<QChar> letter = numbers_.Letter()) {
            isRelative_ = letter->isLower();
            const QChar command = letter->toUpper();
            if ((path_.elementCount() == 0 && command != u'M') || !ReadCommand(command)) {
                break;
            }
        }
        return path_;
    }

private:
    struct Command
    {
        char16_t letter;
        bool (SvgPathReader::*read)();
    };

    /** Reads the command as often as its numbers are repeated; false at what cannot be understood. */
    bool ReadCommand(QChar letter)
    {
        if (letter == u'Z') {
            path_.closeSubpath();
            curve_ = quadratic_ = path_.currentPosition();
            return true;
        }
        static constexpr std::array<Command, 9> commands = { {
            { u'M', &SvgPathReader::Move },
            { u'L', &SvgPathReader::Line },
            { u'H', &SvgPathReader::Across },
            { u'V', &SvgPathReader::Down },
            { u'C', &SvgPathReader::Curve },
            { u'S', &SvgPathReader::SmoothCurve },
            { u'Q', &SvgPathReader::Quadratic },
            { u'T', &SvgPathReader::SmoothQuadratic },
            { u'A', &SvgPathReader::Arc },
        } };
        const auto* const command = std::find_if(
            commands.begin(), commands.end(), [letter](const Command& one) { return letter == one.letter; });
        if (command == commands.end() || !(this->*command->read)()) {
            return false;
        }
        // Behind a move there are lines.
        const auto read = letter == u'M' ? &SvgPathReader::Line : command->read;
        while ((this->*read)()) {
        }
        return numbers_.Rest().isEmpty() || numbers_.Rest().front().isLetter();
    }

    std::optional<QPointF> Point()
    {
        const std::optional<double> x = numbers_.Number();
        const std::optional<double> y = x ? numbers_.Number() : x;
        return y ? std::optional(Origin() + QPointF(*x, *y)) : std::nullopt;
    }

    [[nodiscard]] QPointF Origin() const { return isRelative_ ? path_.currentPosition() : QPointF(); }

    /** Where a curve that goes on smoothly from the last one turns to. */
    [[nodiscard]] QPointF Mirrored(QPointF control) const { return 2 * path_.currentPosition() - control; }

    /** What was added has these control points; the end where it has none. */
    bool Added(std::optional<QPointF> curve = {}, std::optional<QPointF> quadratic = {})
    {
        curve_ = curve.value_or(path_.currentPosition());
        quadratic_ = quadratic.value_or(path_.currentPosition());
        return true;
    }

    bool Move()
    {
        const std::optional<QPointF> to = Point();
        if (!to) {
            return false;
        }
        path_.moveTo(*to);
        return Added();
    }

    bool LineTo(QPointF to)
    {
        path_.lineTo(to);
        return Added();
    }

    bool Line()
    {
        const std::optional<QPointF> to = Point();
        return to && LineTo(*to);
    }

    bool Across()
    {
        const std::optional<double> x = numbers_.Number();
        return x && LineTo({ Origin().x() + *x, path_.currentPosition().y() });
    }

    bool Down()
    {
        const std::optional<double> y = numbers_.Number();
        return y && LineTo({ path_.currentPosition().x(), Origin().y() + *y });
    }

    bool CurveFrom(std::optional<QPointF> first)
    {
        const std::optional<QPointF> second = first ? Point() : first;
        const std::optional<QPointF> to = second ? Point() : second;
        if (!to) {
            return false;
        }
        path_.cubicTo(*first, *second, *to);
        return Added(second);
    }

    bool Curve() { return CurveFrom(Point()); }
    bool SmoothCurve() { return CurveFrom(Mirrored(curve_)); }

    bool QuadraticFrom(std::optional<QPointF> control)
    {
        const std::optional<QPointF> to = control ? Point() : control;
        if (!to) {
            return false;
        }
        path_.quadTo(*control, *to);
        return Added({}, control);
    }

    bool Quadratic() { return QuadraticFrom(Point()); }
    bool SmoothQuadratic() { return QuadraticFrom(Mirrored(quadratic_)); }

    bool Arc()
    {
        const std::optional<double> across = numbers_.Number();
        const std::optional<double> down = across ? numbers_.Number() : across;
        const std::optional<double> rotation = down ? numbers_.Number() : down;
        const std::optional<bool> isLarge = rotation ? numbers_.Flag() : std::nullopt;
        const std::optional<bool> isClockwise = isLarge ? numbers_.Flag() : isLarge;
        const std::optional<QPointF> to = isClockwise ? Point() : std::nullopt;
        if (!to) {
            return false;
        }
        AddArc(path_, { { *across, *down }, *rotation, *isLarge, *isClockwise }, *to);
        return Added();
    }

    SvgNumberReader numbers_;
    QPainterPath path_;
    QPointF curve_;     ///< the second control point of the last curve
    QPointF quadratic_; ///< the control point of the last quadratic curve
    bool isRelative_ = false;
};

} // namespace

QPainterPath SvgPath(QStringView text)
{
    return SvgPathReader(text).Read();
}
