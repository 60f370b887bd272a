// Any map of any text can be opened and is left alone where nobody has changed it; what is changed in the
// editor is written or refused, and then stands in the page as it was said.

#include "FuzzTarget.h"
#include "mapback/MapUpdate.h"
#include "mapreader/TagChanges.h"

namespace {

void TryPlaces(const QString& page, const std::vector<MapPlace>& places)
{
    qsizetype last = -1;
    for (const MapPlace& place : places) {
        Demand(place.whole.offset >= last && place.whole.End() <= page.size(), "maps follow each other");
        Demand(place.map >= 0 || place.IsLikeOwn(), "what has no element is of this program");
        last = place.whole.offset;
    }
}

/** Lets the input say what becomes of the map in the editor. */
MapSource ChangedBy(FuzzInput& input, MapSource now)
{
    enum Step { Keep, Delete, Swap, SetLink, SetMessage, Move, Copy, Steps };
    for (qsizetype i = now.Areas.size() - 1; i >= 0; --i) {
        switch (input.Below(Steps)) {
        case Delete:
            now.Areas.removeAt(i);
            break;
        case Swap:
            now.Areas.swapItemsAt(i, now.Areas.size() - 1);
            break;
        case SetLink:
            now.Areas[i].Link = QString::fromLatin1(input.Field());
            break;
        case SetMessage:
            now.Areas[i].Message = QString::fromLatin1(input.Field());
            break;
        case Move:
            for (int& number : now.Areas[i].Coordinates) {
                ++number;
            }
            break;
        case Copy:
            now.Areas.insert(i, now.Areas[i]);
            break;
        default:
            break;
        }
    }
    if (input.Below(4) == 0) {
        now.AltText = QString::fromLatin1(input.Field());
    }
    return now;
}

void TryUpdate(const QString& page, const ReturnedMap& map, const MapSource& now)
{
    const TodayPage context{
        .Text = {}, .Path = {}, .PicturePath = {}, .PictureSize = { 90, 60 }, .SizeOf = {}
    };
    const auto update = UpdateMap(page, map, map.mode, now, context);
    if (!update) {
        return;
    }
    qsizetype end = -1;
    for (const TextReplacement& change : update->changes) {
        Demand(change.Place.Start > end && change.Place.Length >= 0, "changes are apart");
        end = change.Place.Start + change.Place.Length;
        Demand(end <= page.size(), "changes are in the page");
    }
    const QString changed = Replaced(page, update->changes);
    Demand(update->after.place.End() <= changed.size(), "the map is in the page");
    const auto same = UpdateMap(changed, update->after, map.mode, now, context);
    Demand(!same || same->changes.isEmpty(), "what was written needs no writing");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr std::size_t mostTried = 6;
    const QString page = QString::fromLatin1(BytesOf(data, size));
    const PageMaps maps = ReadPageMaps(page);
    const std::vector<MapPlace> places = MapPlacesOf(page, maps);
    TryPlaces(page, places);
    FuzzInput input(BytesOf(data, size));
    for (std::size_t i = 0; i < std::min(places.size(), mostTried); ++i) {
        auto map = ReadMap(page, maps, places[i]);
        if (!map) {
            continue;
        }
        (void)FitToPicture(*map, { 90, 60 });
        const auto nothing = UpdateMap(page, *map, map->mode, map->source, {});
        Demand(nothing && nothing->changes.isEmpty(), "what nobody has changed is left alone");
        TryUpdate(page, *map, ChangedBy(input, map->source));
    }
    return 0;
}
