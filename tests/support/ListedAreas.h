#pragma once

#include "imagemap/model/MapDocument.h"

#include <QList>
#include <QString>

/** One area as the area list shows it. */
struct AreaRow
{
    QString Text;
    QString Link;
    QString Target;
    QString Coordinates;
    QString Message;
    int SmallIcon = 0; ///< 1 rectangle, 2 circle, 3 polygon

    bool operator==(const AreaRow&) const = default;
};

using AreaRows = QList<AreaRow>;

/** The areas of `map` as they are listed. */
inline AreaRows RowsOf(const MapDocument& map)
{
    AreaRows rows;
    for (const MapArea& area : map.Areas()) {
        rows << AreaRow{ .Text = TitleOf(area, rows.size()),
                         .Link = area.Link,
                         .Target = area.Target,
                         .Coordinates = CoordinatesText(area),
                         .Message = area.Message,
                         .SmallIcon = static_cast<int>(area.Shape) + 1 };
    }
    return rows;
}
