#include "mapback/MapUpdate.h"

#include "mapback/NewMap.h"
#include "mapback/OwnUpdate.h"
#include "mapback/PageMapUpdate.h"

std::optional<MapUpdate> UpdateMap(
    QStringView page, const ReturnedMap& was, JSMode mode, const MapSource& now, const TodayPage& context)
{
    if (!was.IsInPage()) {
        return AddMap(page, was, mode, now, context);
    }
    if (!was.form) {
        return UpdatePageMap(page, was, mode, now, context);
    }
    return *was.form == MarkupForm::Html4 ? UpdateHtml4Map(page, was, mode, now)
                                          : UpdateTodayMap(page, was, mode, now, context);
}
