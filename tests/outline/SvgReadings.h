#pragma once

#include "outline/SvgShapes.h"

#include <QStringList>

/** The shapes of a drawing with that content, which is 200 by 100 units as large as its picture. */
inline SvgShapesReading ReadInner(const QByteArray& content)
{
    return ReadSvgShapes(
        "<svg xmlns='http://www.w3.org/2000/svg' xmlns:xlink='http://www.w3.org/1999/xlink' width='200' "
        "height='100'>" +
            content + "</svg>",
        { 200, 100 });
}

/** Each shape as "Rectangle 1, 2, 3, 4". */
inline QStringList PlacesOf(const SvgShapesReading& reading)
{
    QStringList places;
    for (const AreaCandidate& shape : reading.Shapes) {
        places << areaShapeNames[std::size_t(shape.Area.Shape)].name + u' ' + CoordinatesText(shape.Area);
    }
    return places;
}
