#pragma once

#include "mapreader/PageMaps.h"
#include "mapreader/PageShapes.h"
#include "mapreader/PageTag.h"

#include <QStringList>

/** What the areas of a map are called by the tests: their `alt`, or their number in the page. */
inline QString AreasOf(QStringView page, const PageMaps& read, const PageMap& map)
{
    QStringList areas;
    for (qsizetype i = map.firstArea; i < map.firstArea + map.areaCount; ++i) {
        const QString alt = PageTag(page, read.areas[std::size_t(i)]).Value(QLatin1String("alt"));
        areas += alt.isEmpty() ? QString::number(i) : alt;
    }
    return areas.join(u' ');
}

/** The maps of a page, each as "name(areas)". */
inline QString MapsOf(QStringView page)
{
    const PageMaps read = ReadPageMaps(page);
    QStringList maps;
    for (const PageMap& map : read.maps) {
        maps += (map.name.isNull() ? map.id : map.name) + u'(' + AreasOf(page, read, map) + u')';
    }
    return maps.join(u' ');
}
