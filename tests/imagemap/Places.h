#pragma once

#include <QImage>
#include <QPoint>
#include <algorithm>
#include <set>
#include <utility>

struct ByRow
{
    bool operator()(QPoint a, QPoint b) const { return std::pair(a.y(), a.x()) < std::pair(b.y(), b.x()); }
};
using Places = std::set<QPoint, ByRow>;

inline Places DifferentPlaces(const QImage& a, const QImage& b)
{
    Places places;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            if (a.pixel(x, y) != b.pixel(x, y)) {
                places.insert({ x, y });
            }
        }
    }
    return places;
}

/** The outline of a box with both its corners. */
inline Places BoxOutline(QPoint topLeft, QPoint bottomRight)
{
    Places places;
    for (int x = topLeft.x(); x <= bottomRight.x(); ++x) {
        places.insert({ x, topLeft.y() });
        places.insert({ x, bottomRight.y() });
    }
    for (int y = topLeft.y(); y <= bottomRight.y(); ++y) {
        places.insert({ topLeft.x(), y });
        places.insert({ bottomRight.x(), y });
    }
    return places;
}

inline bool AllInverted(const QImage& before, const QImage& after, const Places& places)
{
    return std::all_of(places.begin(), places.end(), [&](QPoint place) {
        return (before.pixel(place) ^ 0xffffffU) == after.pixel(place);
    });
}

inline bool AllOfColor(const QImage& image, const Places& places, QRgb color)
{
    return std::all_of(
        places.begin(), places.end(), [&](QPoint place) { return image.pixel(place) == color; });
}

inline constexpr QRgb black = qRgb(0, 0, 0);
