#pragma once

#include <QList>
#include <QString>

/** One linked area as the area list shows it and the generators read it. */
struct AreaRow
{
    QString Text;        ///< " No: " + number + " Rectangle", " Circle" or " Polygon"
    QString Link;        ///< the address the area leads to
    QString Target;      ///< the frame it opens in, or empty
    QString Coordinates; ///< picture pixels, joined by ", "
    QString Message;     ///< what the mode in force shows for the area
    int SmallIcon = 0;   ///< 1 rectangle, 2 circle, 3 polygon

    bool operator==(const AreaRow&) const = default;
};

using AreaRows = QList<AreaRow>;
