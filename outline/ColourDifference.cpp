#include "outline/ColourDifference.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr int channelValues = 256;
constexpr int opaqueAlpha = 255;

/** What of the light each value of an sRGB channel stands for, from 0 to 1. */
std::array<float, channelValues> MadeLightOfChannel()
{
    constexpr double straightUpTo = 0.04045;
    constexpr double straightSlope = 12.92;
    constexpr double offset = 0.055;
    constexpr double exponent = 2.4;
    std::array<float, channelValues> light{};
    for (int i = 0; i < channelValues; ++i) {
        const double value = i / double(channelValues - 1);
        light[std::size_t(i)] = static_cast<float>(
            value <= straightUpTo ? value / straightSlope
                                  : std::pow((value + offset) / (1 + offset), exponent));
    }
    return light;
}

/** Steps between the kept roots; what is read between them is less than a hundredth of a difference of 1 off.
 */
constexpr int rootSteps = 4096;
/** One more, so that there is always a next one. */
using Roots = std::array<float, rootSteps + 2>;

/** The cube roots of CIELAB, which are a straight line near black. */
Roots MadeRoots()
{
    constexpr double linearUpTo = 216.0 / 24389;
    constexpr double slope = 24389.0 / 27 / 116;
    constexpr double start = 16.0 / 116;
    Roots roots{};
    for (std::size_t i = 0; i < roots.size(); ++i) {
        const double light = double(i) / rootSteps;
        roots[i] = static_cast<float>(light > linearUpTo ? std::cbrt(light) : slope * light + start);
    }
    return roots;
}

/** The root of `light`, which is between 0 and 1 but for rounding. */
float RootOf(const Roots& roots, float light)
{
    const float place = std::clamp(light, 0.0F, 1.0F) * rootSteps;
    const auto step = static_cast<std::size_t>(place);
    return roots[step] + (roots[step + 1] - roots[step]) * (place - static_cast<float>(step));
}

float SquareOf(float number)
{
    return number * number;
}

float Distance(const LabColour& one, const LabColour& other)
{
    return std::sqrt(
        SquareOf(one.lightness - other.lightness) + SquareOf(one.redness - other.redness) +
        SquareOf(one.yellowness - other.yellowness));
}

/** What is seen of `colour` on a grey ground of this value. */
QRgb Shown(QRgb colour, int ground)
{
    const int alpha = qAlpha(colour);
    const auto mixed = [alpha, ground](int channel) {
        return (channel * alpha + ground * (opaqueAlpha - alpha) + opaqueAlpha / 2) / opaqueAlpha;
    };
    return qRgb(mixed(qRed(colour)), mixed(qGreen(colour)), mixed(qBlue(colour)));
}

constexpr int black = 0;
constexpr int white = 255;

bool IsOpaque(QRgb colour)
{
    return qAlpha(colour) == opaqueAlpha;
}

} // namespace

LabColour LabOf(QRgb colour)
{
    static const std::array<float, channelValues> lightOfChannel = MadeLightOfChannel();
    static const Roots roots = MadeRoots();
    const float red = lightOfChannel[std::size_t(qRed(colour))];
    const float green = lightOfChannel[std::size_t(qGreen(colour))];
    const float blue = lightOfChannel[std::size_t(qBlue(colour))];
    // The primaries of sRGB as parts of its white, so that each line adds up to 1.
    const float x = RootOf(roots, 0.433953F * red + 0.376219F * green + 0.189828F * blue);
    const float y = RootOf(roots, 0.212671F * red + 0.715160F * green + 0.072169F * blue);
    const float z = RootOf(roots, 0.017758F * red + 0.109477F * green + 0.872765F * blue);
    return { 116 * y - 16, 500 * (x - y), 200 * (y - z) };
}

float DifferenceOf(QRgb one, QRgb other)
{
    const float onBlack = Distance(LabOf(Shown(one, black)), LabOf(Shown(other, black)));
    if (IsOpaque(one) && IsOpaque(other)) {
        return onBlack;
    }
    return std::max(onBlack, Distance(LabOf(Shown(one, white)), LabOf(Shown(other, white))));
}

ColourDistances::ColourDistances(QRgb from)
    : from_(from)
    , kept_(std::size_t(1) << keptBits)
{
}

void ColourDistances::SetFrom(QRgb from)
{
    from_ = from;
    ++turn_;
}

float ColourDistances::Measure(Kept& kept, QRgb colour) const
{
    kept = { colour, turn_, DifferenceOf(from_, colour) };
    return kept.distance;
}
