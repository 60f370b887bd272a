#pragma once

#include <QImage>
#include <QList>
#include <QPoint>
#include <algorithm>
#include <cmath>

/** Where the regions of the made-up map lie, in hundredths of its size; a place inside of each. */
inline const QList<QPoint> regionPlaces = { { 18, 22 }, { 45, 18 }, { 76, 24 }, { 30, 50 }, { 58, 48 },
                                            { 84, 56 }, { 20, 78 }, { 50, 80 }, { 78, 84 } };

/** A map of regions, each in a colour of its own, with lines between them and sea around. */
inline QImage RegionsPicture(QSize size)
{
    constexpr int hundredths = 100;
    constexpr double rim = 0.06;
    constexpr double line = 1.6;
    const QColor sea(200, 222, 240);
    const QColor border(70, 70, 70);
    QImage picture(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            QList<std::pair<double, int>> reach;
            for (int i = 0; i < regionPlaces.size(); ++i) {
                const double dx = x - regionPlaces[i].x() * size.width() / double(hundredths);
                const double dy = y - regionPlaces[i].y() * size.height() / double(hundredths);
                reach << std::pair(std::hypot(dx, dy), i);
            }
            std::sort(reach.begin(), reach.end());
            const bool isSea = x < rim * size.width() || x >= (1 - rim) * size.width() ||
                               y < rim * size.height() || y >= (1 - rim) * size.height();
            const bool isLine = reach[1].first - reach[0].first < line;
            const QColor land = QColor::fromHsv(reach[0].second * 137 % 360, 70, 235);
            picture.setPixelColor(x, y, isSea ? sea : isLine ? border : land);
        }
    }
    return picture;
}
