#include "imagemap/origin/MapOrigin.h"

#include "mapback/MapPlaces.h"

#include <QStringBuilder>
#include <algorithm>
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

/** That of `places` which is most at `place`; nullptr if none is. */
const MapPlace* BestPlace(const std::vector<MapPlace>& places, const HtmlSpan& place)
{
    const auto best =
        std::max_element(places.begin(), places.end(), [&place](const MapPlace& one, const MapPlace& other) {
            return FitOf(one.whole, place) < FitOf(other.whole, place);
        });
    return best != places.end() && CommonLength(best->whole, place) > 0 ? &*best : nullptr;
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
    return read_ && IsThere() && range_->Place().Start == read_->place.offset &&
           IsWithin(page, read_->place) && IsWithin(page, read_->picture) && TextOf(page, *read_) == text_;
}

std::optional<ReturnedMap> MapOrigin::ReadAgain(QStringView page) const
{
    const TextSpan place = range_->Place();
    const PageMaps maps = ReadPageMaps(page);
    const std::vector<MapPlace> places = MapPlacesOf(page, maps);
    const MapPlace* const best = BestPlace(places, { place.Start, place.Length });
    return best != nullptr ? ReadMap(page, maps, *best) : std::nullopt;
}

QString TextOf(QStringView page, const ReturnedMap& map)
{
    return map.place.In(page) % map.picture.In(page);
}
