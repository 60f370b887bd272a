#include "imagemap/model/MapArea.h"

#include <QStringBuilder>
#include <QStringList>

QString TitleOf(const MapArea& area, qsizetype index)
{
    return u" No: " % QString::number(index + 1) % u' ' %
           areaShapeNames[static_cast<std::size_t>(area.Shape)].name;
}

QString CoordinatesText(const MapArea& area)
{
    QStringList texts;
    texts.reserve(area.Coordinates.size());
    for (const int number : area.Coordinates) {
        texts << QString::number(number);
    }
    return texts.join(u", ");
}
