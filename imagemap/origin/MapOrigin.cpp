#include "imagemap/origin/MapOrigin.h"

#include "mapback/MapPlaces.h"
#include "mapback/NewMap.h"

#include <QStringBuilder>
#include <algorithm>
#include <functional>
#include <utility>

namespace {

/** The part that two places have in common, in characters. */
qsizetype CommonLength(const HtmlSpan& one, const HtmlSpan& other)
{
    return std::min(one.End(), other.End()) - std::max(one.offset, other.offset);
}

/** How well a place fits another one: 1 is the same, nothing in common 0 or less. */
double FitOf(const HtmlSpan& one, const HtmlSpan& other)
{
    const double common = double(CommonLength(one, other));
    return common / (double(one.length) + double(other.length) - common);
}

/** That of `things` which is most at `place`; nullptr if none is. */
template<class Thing, class PlaceOf>
const Thing* BestAt(const std::vector<Thing>& things, const HtmlSpan& place, PlaceOf placeOf)
{
    const auto fit = [&](const Thing& thing) { return FitOf(placeOf(thing), place); };
    const auto best = std::ranges::max_element(things, {}, fit);
    return best != things.end() && CommonLength(placeOf(*best), place) > 0 ? &*best : nullptr;
}

/** The picture at `place`, if no map of the page belongs to it. */
std::optional<ReturnedMap> PictureAt(QStringView page, const PageMaps& maps, const HtmlSpan& place)
{
    std::vector<HtmlSpan> pictures = maps.plainPictures;
    for (const PagePicture& picture : maps.pictures) {
        if (picture.map < 0) {
            pictures.push_back(picture.tag);
        }
    }
    const HtmlSpan* const best = BestAt(pictures, place, std::identity());
    return best != nullptr ? std::optional(ReadPicture(page, *best)) : std::nullopt;
}

bool IsWithin(QStringView page, const HtmlSpan& place)
{
    return place.offset >= 0 && place.End() <= page.size();
}

} // namespace

MapOrigin::MapOrigin(ReturnedMap read, std::unique_ptr<AnchoredRange> range, QString text, ShownMap shown)
{
    Agree(std::move(read), std::move(range), std::move(text), std::move(shown));
}

MapOrigin::MapOrigin(std::unique_ptr<AnchoredRange> range, ShownMap shown)
    : range_(std::move(range))
    , shown_(std::move(shown))
{
}

void MapOrigin::Agree(ReturnedMap read, std::unique_ptr<AnchoredRange> range, QString text, ShownMap shown)
{
    read_ = std::move(read);
    range_ = std::move(range);
    text_ = std::move(text);
    shown_ = std::move(shown);
}

bool MapOrigin::IsAsRead(QStringView page) const
{
    return read_ && IsThere() && range_->Place().Start == read_->Held().offset &&
           IsWithin(page, read_->place) && IsWithin(page, read_->picture) && TextOf(page, *read_) == text_;
}

std::optional<ReturnedMap> MapOrigin::ReadAgain(QStringView page) const
{
    const HtmlSpan place{ range_->Place().Start, range_->Place().Length };
    const PageMaps maps = ReadPageMaps(page);
    if (read_ && !read_->IsInPage()) {
        return PictureAt(page, maps, place);
    }
    const std::vector<MapPlace> places = MapPlacesOf(page, maps);
    const MapPlace* const best = BestAt(places, place, [](const MapPlace& one) { return one.whole; });
    return best != nullptr ? ReadMap(page, maps, *best) : std::nullopt;
}

QString TextOf(QStringView page, const ReturnedMap& map)
{
    return map.place.In(page) % map.picture.In(page);
}
