#pragma once

#include "mapback/MapPlaces.h"
#include "shared/PageDocument.h"

/** What writing a map of a page anew, in the form for today's browsers, changes. */
struct TodayChange
{
    QString problem;   ///< why it cannot be done, for the user; then there is no more
    QString before;    ///< the picture and the map as they are
    QString after;     ///< what comes in their place
    QStringList notes; ///< what else is to be told, a sentence each
    QList<TextReplacement> changes;
};

/** For the map at `place` of `page`, which holds `text` with `maps`. */
[[nodiscard]] TodayChange PrepareTodayChange(
    const PageDocument& page, const QString& text, const PageMaps& maps, const MapPlace& place);
