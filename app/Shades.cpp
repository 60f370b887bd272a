#include "app/Shades.h"

#include <algorithm>
#include <cmath>

namespace {

/** What small text needs to be read. */
constexpr double readableContrast = 4.5;

/** How much of the text's colour the ground of the caret's line has in it. */
constexpr double currentLineShare = 0.08;

/** How light a colour is seen, from 0 to 1. */
double LuminanceOf(const QColor& colour)
{
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

} // namespace

QColor Mixed(const QColor& ground, const QColor& colour, double share)
{
    const auto mix = [share](double from, double to) { return float(from + (to - from) * share); };
    return QColor::fromRgbF(
        mix(ground.redF(), colour.redF()), mix(ground.greenF(), colour.greenF()),
        mix(ground.blueF(), colour.blueF()));
}

double ContrastOf(const QColor& one, const QColor& other)
{
    const double a = LuminanceOf(one) + 0.05;
    const double b = LuminanceOf(other) + 0.05;
    return std::max(a, b) / std::min(a, b);
}

QColor ReadableOn(const QColor& ground, const QColor& colour, const QColor& text)
{
    constexpr int steps = 10;
    for (int step = 0; step < steps; ++step) {
        const QColor mixed = Mixed(colour, text, double(step) / steps);
        if (ContrastOf(ground, mixed) >= readableContrast) {
            return mixed;
        }
    }
    return text;
}

QColor CurrentLineGround(const QPalette& palette)
{
    return Mixed(palette.color(QPalette::Base), palette.color(QPalette::Text), currentLineShare);
}
