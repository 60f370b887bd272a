#include "imagemap/model/MapArea.h"

#include <QStringBuilder>
#include <QStringList>
#include <algorithm>

QString TitleOf(const MapArea& area, qsizetype index)
{
    return u" No: " % QString::number(index + 1) % u' ' %
           areaShapeNames[static_cast<std::size_t>(area.Shape)].name;
}

QString CoordinatesText(const MapArea& area)
{
    if (area.Coordinates.isEmpty()) {
        const auto written =
            std::ranges::find(area.Attributes, QLatin1String("coords"), &AreaAttribute::Name);
        return written == area.Attributes.end() ? QString() : written->Value;
    }
    QStringList texts;
    texts.reserve(area.Coordinates.size());
    for (const int number : area.Coordinates) {
        texts << QString::number(number);
    }
    return texts.join(u", ");
}
