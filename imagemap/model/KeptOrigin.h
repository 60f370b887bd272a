#pragma once

#include <QList>
#include <QString>

/** What is kept of where a map came from in a page, to find it there again. */
struct KeptOrigin
{
    enum Kind {
        Map,      ///< the page had it, or got it by an update
        Picture,  ///< there was the tag of a picture that has no map yet
        Inserted, ///< it was put in at the caret
        Kinds
    };

    QString Text = {};       ///< what stood there when map and page agreed last; empty for a map of no page
    qint64 Start = 0;        ///< where that was
    QList<int> Sources = {}; ///< those of the map's areas
    Kind Of = Map;

    bool operator==(const KeptOrigin&) const = default;
};
