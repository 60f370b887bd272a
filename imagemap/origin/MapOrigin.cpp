#include "imagemap/origin/MapOrigin.h"

#include "mapback/MapPlaces.h"
#include "mapback/NewMap.h"

#include <QStringBuilder>
#include <algorithm>
#include <cstdlib>
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

/** The tags of the pictures that no map of the page belongs to. */
std::vector<HtmlSpan> PicturesWithoutMap(const PageMaps& maps)
{
    std::vector<HtmlSpan> pictures = maps.plainPictures;
    for (const PagePicture& picture : maps.pictures) {
        if (picture.map < 0) {
            pictures.push_back(picture.tag);
        }
    }
    return pictures;
}

/** The picture at `place`, if no map of the page belongs to it. */
std::optional<ReturnedMap> PictureAt(QStringView page, const PageMaps& maps, const HtmlSpan& place)
{
    const std::vector<HtmlSpan> pictures = PicturesWithoutMap(maps);
    const HtmlSpan* const best = BestAt(pictures, place, std::identity());
    return best != nullptr ? std::optional(ReadPicture(page, *best)) : std::nullopt;
}

/** All that may be what was kept: reading each map of a page would take too long. */
std::vector<ReturnedMap> CandidatesFor(QStringView page, const KeptOrigin& kept)
{
    const PageMaps maps = ReadPageMaps(page);
    const auto isLikeKept = [&](const HtmlSpan& place) { return kept.Text.startsWith(place.In(page)); };
    std::vector<ReturnedMap> found;
    if (kept.Of == KeptOrigin::Picture) {
        for (const HtmlSpan& picture : PicturesWithoutMap(maps)) {
            if (isLikeKept(picture)) {
                found.push_back(ReadPicture(page, picture));
            }
        }
        return found;
    }
    for (const MapPlace& place : MapPlacesOf(page, maps)) {
        const bool isLike = isLikeKept(place.whole) ||
                            (place.map >= 0 && isLikeKept(maps.maps[std::size_t(place.map)].whole));
        const std::optional<ReturnedMap> map = isLike ? ReadMap(page, maps, place) : std::nullopt;
        if (map) {
            found.push_back(*map);
        }
    }
    return found;
}

KeptOrigin::Kind KindOf(const std::optional<ReturnedMap>& read)
{
    if (!read) {
        return KeptOrigin::Inserted;
    }
    return read->IsInPage() ? KeptOrigin::Map : KeptOrigin::Picture;
}

TextAtPlace PlacesOf(QStringView page)
{
    return [page](const HtmlSpan& place) { return page.mid(place.offset, place.length).toString(); };
}

} // namespace

MapOrigin::MapOrigin(ReturnedMap read, std::unique_ptr<AnchoredRange> range, QString text, ShownMap shown)
{
    Agree(std::move(read), std::move(range), std::move(text), std::move(shown));
}

MapOrigin::MapOrigin(std::unique_ptr<AnchoredRange> range, QString text, ShownMap shown)
    : range_(std::move(range))
    , text_(std::move(text))
    , shown_(std::move(shown))
{
}

void MapOrigin::Agree(ReturnedMap read, std::unique_ptr<AnchoredRange> range, QString text, ShownMap shown)
{
    if (read_ && !read_->IsInPage() && read.IsInPage()) {
        picture_ = std::move(range_);
    }
    read_ = std::move(read);
    range_ = std::move(range);
    text_ = std::move(text);
    shown_ = std::move(shown);
}

bool MapOrigin::IsAsRead(QStringView page) const
{
    return IsAsRead(PlacesOf(page));
}

bool MapOrigin::IsAsRead(const TextAtPlace& textAt) const
{
    return read_ && IsThere() && range_->Place().Start == read_->Held().offset &&
           TextOf(textAt, *read_) == text_;
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
    if (best != nullptr) {
        return ReadMap(page, maps, *best);
    }
    // The update that gave the picture its map may have been undone.
    return picture_ != nullptr ? PictureAt(page, maps, { picture_->Place().Start, picture_->Place().Length })
                               : std::nullopt;
}

KeptOrigin MapOrigin::Kept(const KeptOrigin& last) const
{
    if (!IsThere()) {
        return {};
    }
    const TextSpan place = range_->Place();
    // Others of the same text are at least its length away, so less than half of that leads to none of them.
    const bool isNear = 2 * std::abs(qint64(place.Start) - last.Start) < place.Length;
    KeptOrigin kept;
    kept.Text = text_;
    kept.Start = isNear && last.Text == text_ ? last.Start : place.Start;
    kept.Of = KindOf(read_);
    if (read_) {
        for (const MapArea& area : read_->source.Areas) {
            kept.Sources << area.Source;
        }
    }
    return kept;
}

std::optional<ReturnedMap> FindKept(QStringView page, const KeptOrigin& kept)
{
    std::optional<ReturnedMap> best;
    const auto distance = [&kept](const ReturnedMap& map) {
        return std::abs(qint64(map.Held().offset) - kept.Start);
    };
    for (const ReturnedMap& map : CandidatesFor(page, kept)) {
        if (TextOf(page, map) == kept.Text && (!best || distance(map) < distance(*best))) {
            best = map;
        }
    }
    if (best && best->source.Areas.size() == kept.Sources.size()) {
        for (qsizetype i = 0; i < kept.Sources.size(); ++i) {
            best->source.Areas[i].Source = kept.Sources[i];
        }
    }
    return best;
}

std::optional<TextSpan> FindInserted(QStringView page, const KeptOrigin& kept)
{
    const qsizetype length = kept.Text.size();
    const qsizetype start = std::clamp<qsizetype>(kept.Start, 0, page.size());
    const qsizetype before = length > 0 ? page.lastIndexOf(kept.Text, start) : -1;
    const qsizetype behind = length > 0 ? page.indexOf(kept.Text, start) : -1;
    if (before < 0 && behind < 0) {
        return std::nullopt;
    }
    const bool isBefore = behind < 0 || (before >= 0 && start - before <= behind - start);
    return TextSpan{ isBefore ? before : behind, length };
}

QString TextOf(QStringView page, const ReturnedMap& map)
{
    return TextOf(PlacesOf(page), map);
}

QString TextOf(const TextAtPlace& textAt, const ReturnedMap& map)
{
    return textAt(map.place) % textAt(map.picture);
}
