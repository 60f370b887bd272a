// The maps of any text have their places in it, and any change of one is made or refused, and made nowhere
// else.

#include "FuzzTarget.h"
#include "mapreader/MapChanges.h"
#include "mapreader/PageShapes.h"

namespace {

bool Contains(const HtmlSpan& outer, const HtmlSpan& inner)
{
    return inner.length >= 0 && inner.offset >= outer.offset && inner.End() <= outer.End();
}

void TryCoordinates(QStringView list)
{
    qsizetype end = -1;
    for (const PageCoordinate& coordinate : CoordinatesIn(list)) {
        Demand(coordinate.offset > end && coordinate.length > 0, "numbers follow each other");
        end = coordinate.offset + coordinate.length;
        Demand(end <= list.size(), "numbers are in their list");
        Demand(coordinate.number - coordinate.number == 0, "numbers are finite");
    }
}

void TryPlaces(const QString& page, const PageMaps& maps)
{
    const HtmlSpan whole{ 0, page.size() };
    qsizetype last = -1;
    for (const HtmlSpan& area : maps.areas) {
        Demand(area.offset > last && Contains(whole, area), "areas follow each other");
        last = area.offset;
        TryCoordinates(PageTag(page, area).Value(QLatin1String("coords")));
        (void)OdditiesOfArea(page, area);
    }
    for (const PageMap& map : maps.maps) {
        Demand(Contains(whole, map.whole), "a map is in its page");
        Demand(Contains(map.whole, map.tag) && Contains(map.whole, map.endTag), "its tags are in it");
        for (qsizetype i = map.firstArea; i < map.firstArea + map.areaCount; ++i) {
            Demand(Contains(map.whole, maps.areas[std::size_t(i)]), "an area is in its map");
        }
    }
    for (const PagePicture& picture : maps.pictures) {
        Demand(Contains(whole, picture.tag), "a picture is in its page");
        Demand(picture.map < qsizetype(maps.maps.size()), "what it finds is a map");
        (void)OdditiesOf(page, picture);
    }
}

/** Lets the input say what becomes of each area. */
MapWish ChangedBy(FuzzInput& input, MapWish wish)
{
    enum Step { Keep, Delete, Move, SetLink, SetPlace, Add, Steps };
    for (qsizetype i = wish.areas.size() - 1; i >= 0; --i) {
        switch (input.Below(Steps)) {
        case Delete:
            wish.areas.removeAt(i);
            break;
        case Move:
            wish.areas.move(i, wish.areas.size() - 1);
            break;
        case SetLink:
            wish.areas[i].attributes << AttributeWish{ "data-new", QString::fromLatin1(input.Field()) };
            break;
        case SetPlace:
            wish.areas[i].attributes.removeIf([](const AttributeWish& one) { return one.name == u"coords"; });
            break;
        case Add:
            wish.areas.insert(i, AreaWish{ -1, { { "href", QString::fromLatin1(input.Field()) } } });
            break;
        default:
            break;
        }
    }
    return wish;
}

void TryChange(const QString& page, const PageMaps& maps, qsizetype map, const MapWish& wish)
{
    const auto changes = ChangeMap(page, maps, map, wish);
    qsizetype end = -1;
    for (const TextReplacement& change : changes.value_or(QList<TextReplacement>())) {
        Demand(change.Place.Start > end && change.Place.Length >= 0, "changes are apart");
        end = change.Place.Start + change.Place.Length;
        Demand(end <= page.size(), "changes are in the page");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr qsizetype mostTried = 8;
    const QString page = QString::fromLatin1(BytesOf(data, size));
    const PageMaps maps = ReadPageMaps(page);
    TryPlaces(page, maps);
    FuzzInput input(BytesOf(data, size));
    for (qsizetype map = 0; map < std::min(qsizetype(maps.maps.size()), mostTried); ++map) {
        const MapWish wish = WishOf(page, maps, map);
        const auto nothing = ChangeMap(page, maps, map, wish);
        Demand(nothing && nothing->isEmpty(), "what is as it shall be is left alone");
        TryChange(page, maps, map, ChangedBy(input, wish));
    }
    return 0;
}
