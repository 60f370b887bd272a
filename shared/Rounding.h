#pragma once

#include <QtGlobal>
#include <cmath>
#include <limits>
#include <optional>

/** `value` as a 16-bit number, or nothing where it does not fit. */
[[nodiscard]] constexpr std::optional<qint16> ToInt16(int value)
{
    if (value < std::numeric_limits<qint16>::min() || value > std::numeric_limits<qint16>::max()) {
        return std::nullopt;
    }
    return static_cast<qint16>(value);
}
static_assert(ToInt16(32767) == 32767 && ToInt16(-32768) == -32768);
static_assert(!ToInt16(32768) && !ToInt16(-32769));

/** The whole number nearest to `position`, ties to even, or nothing where it does not fit 16 bits. */
[[nodiscard]] inline std::optional<qint16> RoundToInt16(double position)
{
    const double rounded = std::nearbyint(position);
    if (!(rounded >= std::numeric_limits<qint16>::min() && rounded <= std::numeric_limits<qint16>::max())) {
        return std::nullopt;
    }
    return static_cast<qint16>(rounded);
}

/** The distance between two positions, or nothing where the difference overflows 16 bits. */
[[nodiscard]] constexpr std::optional<qint16> Distance(qint16 from, qint16 to)
{
    const std::optional<qint16> difference = ToInt16(to - from);
    return difference ? ToInt16(*difference < 0 ? -*difference : *difference) : std::nullopt;
}
static_assert(Distance(100, 180) == 80 && Distance(180, 100) == 80);
static_assert(!Distance(-1, 32767) && !Distance(0, -32768));
