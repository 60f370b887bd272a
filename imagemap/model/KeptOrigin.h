#pragma once

#include <QList>
#include <QString>

/** What is kept of where a map came from in a page, to find it there again. */
struct KeptOrigin
{
    QString Text = {};       ///< what stood there when map and page agreed last; empty for a map of no page
    qint64 Start = 0;        ///< where that was
    QList<int> Sources = {}; ///< those of the map's areas
    bool IsPicture = false;  ///< there was the tag of a picture that has no map yet

    bool operator==(const KeptOrigin&) const = default;
};
