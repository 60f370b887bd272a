#include "mapback/LocalUpdate.h"

#include "mapback/PageMapUpdate.h"

#include <algorithm>

namespace {

/** A larger part of a page is no shorter way than the whole. */
constexpr qsizetype largestPart = 1'000'000;

/** The smallest part of a page that has both places; an empty place counts for nothing. */
HtmlSpan PartWith(const HtmlSpan& one, const HtmlSpan& other)
{
    if (other.length == 0) {
        return one;
    }
    const qsizetype start = std::min(one.offset, other.offset);
    return { start, std::max(one.End(), other.End()) - start };
}

/** The map as it is in a page in which all stands by `distance` further on. */
ReturnedMap MovedBy(ReturnedMap map, qsizetype distance)
{
    map.place.offset += distance;
    map.picture.offset += map.picture.length > 0 ? distance : 0;
    return map;
}

bool SaysEnough(QStringView text, const ReturnedMap& was)
{
    return was.form ? *was.form == MarkupForm::Html4 : IsReadAlone(ReadPageMaps(text), text, was);
}

} // namespace

std::optional<MapUpdate> UpdateMapAlone(
    const TextAtPlace& textAt, const ReturnedMap& was, JSMode mode, const MapSource& now,
    const TodayPage& context)
{
    const HtmlSpan part = PartWith(was.place, was.picture);
    if (!was.IsInPage() || part.length > largestPart || now.MapName != was.source.MapName ||
        now.PictureReference != was.source.PictureReference) {
        return std::nullopt;
    }
    const QString text = textAt(part);
    const ReturnedMap inPart = MovedBy(was, -part.offset);
    if (text.size() != part.length || !SaysEnough(inPart.place.In(text), was)) {
        return std::nullopt;
    }
    std::optional<MapUpdate> update = UpdateMap(text, inPart, mode, now, context);
    if (!update || update->after.source.Areas.size() != now.Areas.size()) {
        return std::nullopt;
    }
    for (TextReplacement& change : update->changes) {
        change.Place.Start += part.offset;
    }
    update->after = MovedBy(update->after, part.offset);
    return update;
}
