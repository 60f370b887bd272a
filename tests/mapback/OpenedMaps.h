#pragma once

#include "OwnMaps.h"

// The only map of a page, as tests open and change it.

/** The only map of a page, in the editor, with a picture of that size. */
inline ReturnedMap Opened(const QString& page, QSize picture = {})
{
    ReturnedMap map = OnlyMap(page).value_or(ReturnedMap());
    (void)FitToPicture(map, picture);
    return map;
}

/** The page with changes made to its only map by `change`. */
template<class Change> QString Changed(const QString& page, Change change, QSize picture = {})
{
    const ReturnedMap map = Opened(page, picture);
    MapSource now = map.source;
    change(now);
    const auto update = UpdateMap(page, map, map.mode, now, SomePage());
    return update ? Replaced(page, update->changes) : QStringLiteral("cannot");
}
