#pragma once

#include "outline/Contour.h"

#include <QImage>
#include <algorithm>
#include <cmath>
#include <cstdlib>

// What is asked of contours, told in the plainest way.

inline qint64 TurnAt(QPoint a, QPoint b, QPoint c)
{
    return qint64(b.x() - a.x()) * (c.y() - a.y()) - qint64(b.y() - a.y()) * (c.x() - a.x());
}

inline bool IsOnLine(QPoint a, QPoint b, QPoint place)
{
    return TurnAt(a, b, place) == 0 && place.x() >= std::min(a.x(), b.x()) &&
           place.x() <= std::max(a.x(), b.x()) && place.y() >= std::min(a.y(), b.y()) &&
           place.y() <= std::max(a.y(), b.y());
}

/** Whether two lines have a place in common. */
inline bool DoMeet(QPoint a, QPoint b, QPoint c, QPoint d)
{
    const auto sign = [](qint64 turn) { return turn > 0 ? 1 : turn < 0 ? -1 : 0; };
    if (sign(TurnAt(a, b, c)) * sign(TurnAt(a, b, d)) < 0 &&
        sign(TurnAt(c, d, a)) * sign(TurnAt(c, d, b)) < 0) {
        return true;
    }
    return IsOnLine(a, b, c) || IsOnLine(a, b, d) || IsOnLine(c, d, a) || IsOnLine(c, d, b);
}

/** Whether the closed line neither crosses nor touches itself. */
inline bool IsSimple(const Contour& corners)
{
    const std::size_t count = corners.size();
    for (std::size_t i = 0; i < count; ++i) {
        const QPoint a = corners[i];
        const QPoint b = corners[(i + 1) % count];
        if (a == b || IsOnLine(a, b, corners[(i + 2) % count])) {
            return false;
        }
        for (std::size_t j = i + 2; j < count && j + 1 < count + i; ++j) {
            if (DoMeet(a, b, corners[j], corners[(j + 1) % count])) {
                return false;
            }
        }
    }
    return count >= 3;
}

inline double DistanceToLine(double x, double y, QPoint a, QPoint b)
{
    const double acrossX = b.x() - a.x();
    const double acrossY = b.y() - a.y();
    const double length = acrossX * acrossX + acrossY * acrossY;
    const double along =
        length > 0 ? std::clamp(((x - a.x()) * acrossX + (y - a.y()) * acrossY) / length, 0.0, 1.0) : 0;
    return std::hypot(x - a.x() - along * acrossX, y - a.y() - along * acrossY);
}

inline double DistanceTo(const Contour& contour, double x, double y)
{
    double distance = std::hypot(x - contour.front().x(), y - contour.front().y());
    for (std::size_t i = 0; i < contour.size(); ++i) {
        distance = std::min(distance, DistanceToLine(x, y, contour[i], contour[(i + 1) % contour.size()]));
    }
    return distance;
}

/** How far places of `line`, four a pixel, are from `other` at most. */
inline double FurthestFrom(const Contour& line, const Contour& other)
{
    constexpr double steps = 4;
    double furthest = 0;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const QPoint a = line[i];
        const QPoint way = line[(i + 1) % line.size()] - a;
        const int count = static_cast<int>(std::ceil(steps * std::hypot(way.x(), way.y())));
        for (int step = 0; step < count; ++step) {
            const double part = double(step) / count;
            furthest = std::max(furthest, DistanceTo(other, a.x() + part * way.x(), a.y() + part * way.y()));
        }
    }
    return furthest;
}

/** Whether the line may go from one corner to another, `length` further on, within `precision` of those
 * between them. */
inline bool PassesWithin(const Contour& contour, std::size_t from, std::size_t length, double precision)
{
    const auto at = [&contour, from](std::size_t i) { return contour[(from + i) % contour.size()]; };
    for (std::size_t i = 1; i < length; ++i) {
        if (DistanceToLine(at(i).x(), at(i).y(), at(0), at(length)) > precision + 1e-9) {
            return false;
        }
    }
    return true;
}

/** The fewest corners of the contour with which a closed line keeps within `precision` of all; it may cross
 * itself. */
inline std::size_t FewestCorners(const Contour& contour, double precision)
{
    const std::size_t count = contour.size();
    std::vector<std::vector<std::size_t>> lengths(count);
    for (std::size_t from = 0; from < count; ++from) {
        for (std::size_t length = 1; length < count; ++length) {
            if (PassesWithin(contour, from, length, precision)) {
                lengths[from].push_back(length);
            }
        }
    }
    std::size_t fewest = count;
    for (std::size_t start = 0; start < count; ++start) {
        std::vector<std::size_t> sides(count + 1, count);
        sides[0] = 0;
        for (std::size_t i = 0; i < count; ++i) {
            for (const std::size_t length : lengths[(start + i) % count]) {
                if (i + length <= count) {
                    sides[i + length] = std::min(sides[i + length], sides[i] + 1);
                }
            }
        }
        fewest = std::min(fewest, sides[count]);
    }
    return fewest;
}

/** Sets `bit` of all pixels whose centre is inside; `box` is what `pixels` holds, line by line. */
inline void Paint(const Contour& corners, const QRect& box, int bit, std::vector<int>& pixels)
{
    for (int y = box.top(); y <= box.bottom(); ++y) {
        std::vector<double> crossings;
        const double middle = y + 0.5;
        for (std::size_t i = 0; i < corners.size(); ++i) {
            const QPoint a = corners[i];
            const QPoint b = corners[(i + 1) % corners.size()];
            if ((a.y() > middle) != (b.y() > middle)) {
                crossings.push_back(a.x() + (middle - a.y()) * (b.x() - a.x()) / (b.y() - a.y()));
            }
        }
        std::sort(crossings.begin(), crossings.end());
        for (std::size_t i = 0; i + 1 < crossings.size(); i += 2) {
            for (int x = static_cast<int>(std::ceil(crossings[i] - 0.5)); x + 0.5 < crossings[i + 1]; ++x) {
                pixels[std::size_t(y - box.top()) * std::size_t(box.width()) + std::size_t(x - box.left())] |=
                    bit;
            }
        }
    }
}

/** What the insides of two lines have in common, as a part of what they have together; pixels by their
 * centres. */
inline double ShareOf(const Contour& one, const Contour& other)
{
    constexpr int inOne = 1;
    constexpr int inOther = 2;
    QRect box(one.front(), QSize(1, 1));
    for (const Contour* line : { &one, &other }) {
        for (const QPoint corner : *line) {
            box |= QRect(corner, QSize(1, 1));
        }
    }
    std::vector<int> pixels(std::size_t(box.width()) * std::size_t(box.height()));
    Paint(one, box, inOne, pixels);
    Paint(other, box, inOther, pixels);
    const auto both = std::count(pixels.begin(), pixels.end(), inOne | inOther);
    const auto none = std::count(pixels.begin(), pixels.end(), 0);
    return double(both) / double(qsizetype(pixels.size()) - none);
}
