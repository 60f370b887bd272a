#include "outline/SvgNumbers.h"

#include <QRectF>
#include <QtMath>
#include <algorithm>
#include <array>
#include <cmath>

namespace {

bool IsSvgBlank(QChar character)
{
    return character == u' ' || character == u'\t' || character == u'\n' || character == u'\r' ||
           character == u'\f';
}

bool IsAsciiDigit(QChar character)
{
    return character >= u'0' && character <= u'9';
}

qsizetype DigitsFrom(QStringView text, qsizetype start)
{
    qsizetype end = start;
    while (end < text.size() && IsAsciiDigit(text[end])) {
        ++end;
    }
    return end;
}

qsizetype BehindSign(QStringView text, qsizetype start)
{
    return start < text.size() && (text[start] == u'+' || text[start] == u'-') ? start + 1 : start;
}

/** How long the number at the beginning of `text` is; 0 where there is none. */
qsizetype LengthOfNumber(QStringView text)
{
    const qsizetype start = BehindSign(text, 0);
    qsizetype end = DigitsFrom(text, start);
    qsizetype digits = end - start;
    if (end < text.size() && text[end] == u'.') {
        const qsizetype behind = DigitsFrom(text, end + 1);
        digits += behind - end - 1;
        end = behind;
    }
    if (digits == 0) {
        return 0;
    }
    // A unit may begin with the letter of an exponent.
    if (end < text.size() && text[end].toLower() == u'e') {
        const qsizetype exponent = BehindSign(text, end + 1);
        const qsizetype behind = DigitsFrom(text, exponent);
        end = behind > exponent ? behind : end;
    }
    return end;
}

/** Units in pixels at 96 dots an inch. */
struct SvgUnit
{
    QStringView name;
    double pixels;
};

constexpr double dotsPerInch = 96;
constexpr double centimetresPerInch = 2.54;
constexpr double fontSize = 16;

constexpr std::array<SvgUnit, 11> svgUnits = { {
    { u"", 1 },
    { u"px", 1 },
    { u"pt", dotsPerInch / 72 },
    { u"pc", dotsPerInch / 6 },
    { u"in", dotsPerInch },
    { u"cm", dotsPerInch / centimetresPerInch },
    { u"mm", dotsPerInch / centimetresPerInch / 10 },
    { u"q", dotsPerInch / centimetresPerInch / 40 },
    { u"em", fontSize },
    { u"rem", fontSize },
    { u"ex", fontSize / 2 },
} };

double ExtentOf(SvgDirection direction, QSizeF viewport)
{
    switch (direction) {
    case SvgDirection::Across:
        return viewport.width();
    case SvgDirection::Down:
        return viewport.height();
    case SvgDirection::Either:
        break;
    }
    return std::hypot(viewport.width(), viewport.height()) / M_SQRT2;
}

using NumberList = QList<double>;

QTransform RotationOf(const NumberList& numbers)
{
    const QPointF centre = numbers.size() == 3 ? QPointF(numbers[1], numbers[2]) : QPointF();
    QTransform transform = QTransform::fromTranslate(centre.x(), centre.y());
    transform.rotate(numbers[0]);
    return transform.translate(-centre.x(), -centre.y());
}

/** A function of the attribute, with how many numbers it takes: as many as `least`, or as `most`. */
struct SvgFunction
{
    QStringView name;
    qsizetype least;
    qsizetype most;
    QTransform (*make)(const NumberList& numbers);
};

constexpr std::array<SvgFunction, 6> svgFunctions = { {
    { u"matrix", 6, 6, [](const NumberList& n) { return QTransform(n[0], n[1], n[2], n[3], n[4], n[5]); } },
    { u"translate", 1, 2,
      [](const NumberList& n) { return QTransform::fromTranslate(n[0], n.value(1, 0)); } },
    { u"scale", 1, 2, [](const NumberList& n) { return QTransform::fromScale(n[0], n.value(1, n[0])); } },
    { u"rotate", 1, 3, &RotationOf },
    { u"skewX", 1, 1,
      [](const NumberList& n) { return QTransform(1, 0, std::tan(qDegreesToRadians(n[0])), 1, 0, 0); } },
    { u"skewY", 1, 1,
      [](const NumberList& n) { return QTransform(1, std::tan(qDegreesToRadians(n[0])), 0, 1, 0, 0); } },
} };

/** The transform of one function; nothing where it is unknown, or takes other numbers. */
std::optional<QTransform> TransformOf(QStringView name, const NumberList& numbers)
{
    const auto function =
        std::find_if(svgFunctions.begin(), svgFunctions.end(), [name](const SvgFunction& one) {
            return one.name == name;
        });
    if (function == svgFunctions.end() ||
        (numbers.size() != function->least && numbers.size() != function->most)) {
        return {};
    }
    return function->make(numbers);
}

/** How much of the room that is left over lies in front: none, half or all of it. */
double ShareInFront(QStringView align, QStringView least, QStringView most)
{
    return align.contains(least) ? 0 : align.contains(most) ? 1 : 0.5;
}

} // namespace

void SvgNumberReader::PassBlanks()
{
    qsizetype end = 0;
    while (end < text_.size() && IsSvgBlank(text_[end])) {
        ++end;
    }
    text_ = text_.sliced(end);
}

void SvgNumberReader::PassSeparator()
{
    PassBlanks();
    if (text_.startsWith(u',')) {
        text_ = text_.sliced(1);
        PassBlanks();
    }
}

std::optional<double> SvgNumberReader::Number()
{
    PassBlanks();
    const qsizetype length = LengthOfNumber(text_);
    if (length == 0) {
        return {};
    }
    const double number = text_.first(length).toDouble();
    text_ = text_.sliced(length);
    PassSeparator();
    // What is beyond all numbers is read as infinite.
    return std::clamp(number, -svgNumberLimit, svgNumberLimit);
}

std::optional<bool> SvgNumberReader::Flag()
{
    PassBlanks();
    if (!text_.startsWith(u'0') && !text_.startsWith(u'1')) {
        return {};
    }
    const bool isSet = text_.front() == u'1';
    text_ = text_.sliced(1);
    PassSeparator();
    return isSet;
}

std::optional<QChar> SvgNumberReader::Letter()
{
    PassBlanks();
    if (text_.isEmpty() || text_.front().unicode() > 0x7F || !text_.front().isLetter()) {
        return {};
    }
    const QChar letter = text_.front();
    text_ = text_.sliced(1);
    return letter;
}

QList<double> SvgNumbers(QStringView text)
{
    SvgNumberReader reader(text);
    QList<double> numbers;
    while (const std::optional<double> number = reader.Number()) {
        numbers << *number;
    }
    return numbers;
}

std::optional<double> SvgLength(QStringView text, SvgDirection direction, QSizeF viewport)
{
    const QStringView trimmed = text.trimmed();
    const qsizetype length = LengthOfNumber(trimmed);
    if (length == 0) {
        return {};
    }
    const double number = std::clamp(trimmed.first(length).toDouble(), -svgNumberLimit, svgNumberLimit);
    const QString unit = trimmed.sliced(length).toString().toLower();
    if (unit == u"%") {
        return number / 100 * ExtentOf(direction, viewport);
    }
    const auto known = std::find_if(
        svgUnits.begin(), svgUnits.end(), [&unit](const SvgUnit& one) { return one.name == unit; });
    return known != svgUnits.end() ? std::optional(number * known->pixels) : std::nullopt;
}

QTransform SvgTransform(QStringView text)
{
    QTransform all;
    QStringView rest = text.trimmed();
    while (!rest.isEmpty()) {
        const qsizetype open = rest.indexOf(u'(');
        const qsizetype close = rest.indexOf(u')');
        if (open < 0 || close < open) {
            return {};
        }
        const std::optional<QTransform> one =
            TransformOf(rest.first(open).trimmed(), SvgNumbers(rest.sliced(open + 1, close - open - 1)));
        if (!one) {
            return {};
        }
        all = *one * all;
        rest = rest.sliced(close + 1).trimmed();
        if (rest.startsWith(u',')) {
            rest = rest.sliced(1).trimmed();
        }
    }
    return all;
}

std::optional<QTransform> SvgFitting(const QRectF& part, QStringView preserveAspectRatio, const QRectF& room)
{
    if (part.isEmpty() || room.isEmpty()) {
        return {};
    }
    double across = room.width() / part.width();
    double down = room.height() / part.height();
    if (!preserveAspectRatio.contains(u"none")) {
        const bool isSliced = preserveAspectRatio.contains(u"slice");
        across = down = isSliced ? std::max(across, down) : std::min(across, down);
    }
    const double left =
        (room.width() - part.width() * across) * ShareInFront(preserveAspectRatio, u"xMin", u"xMax");
    const double top =
        (room.height() - part.height() * down) * ShareInFront(preserveAspectRatio, u"YMin", u"YMax");
    return QTransform::fromTranslate(-part.x(), -part.y()) * QTransform::fromScale(across, down) *
           QTransform::fromTranslate(room.x() + left, room.y() + top);
}

std::optional<QRectF> SvgViewBox(QStringView text)
{
    const QList<double> numbers = SvgNumbers(text);
    constexpr qsizetype numbersOfBox = 4;
    if (numbers.size() != numbersOfBox || numbers[2] <= 0 || numbers[3] <= 0) {
        return {};
    }
    return QRectF(numbers[0], numbers[1], numbers[2], numbers[3]);
}
