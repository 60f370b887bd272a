#include "mapback/PageMapUpdate.h"

#include "mapback/AreaMatching.h"
#include "mapback/PageMapReading.h"
#include "mapback/PictureFields.h"
#include "mapreader/MapChanges.h"

#include <QSet>
#include <algorithm>
#include <utility>

namespace {

using Changes = QList<TextReplacement>;

bool IsWithin(const TextReplacement& change, const HtmlSpan& place)
{
    return change.Place.Start >= place.offset && change.Place.Start + change.Place.Length <= place.End();
}

/** The changes that lie in `place`. */
Changes Within(const Changes& changes, const HtmlSpan& place)
{
    Changes within;
    std::ranges::copy_if(changes, std::back_inserter(within), [&place](const TextReplacement& one) {
        return IsWithin(one, place);
    });
    return within;
}

qsizetype GrowthOf(const Changes& changes)
{
    qsizetype growth = 0;
    for (const TextReplacement& change : changes) {
        growth += change.Text.size() - change.Place.Length;
    }
    return growth;
}

/** A place once the changes are made. */
HtmlSpan Moved(const HtmlSpan& place, const Changes& changes)
{
    Changes inFront = changes;
    inFront.removeIf([&place](const TextReplacement& one) {
        return one.Place.Start >= place.offset || IsWithin(one, place);
    });
    return { place.offset + GrowthOf(inFront), place.length + GrowthOf(Within(changes, place)) };
}

/** Makes the changes of one map. */
class PageMapUpdater
{
public:
    PageMapUpdater(QStringView page, const ReturnedMap& was, JSMode mode, const MapSource& now)
        : page_(page)
        , was_(was)
        , mode_(mode)
        , now_(now)
    {
    }

    std::optional<MapUpdate> Run(const TodayPage& context);

private:
    void FindScales(const TodayPage& context);
    [[nodiscard]] bool IsAgainstCode() const;
    bool ReadMaps();
    [[nodiscard]] MapWish Wish() const;
    void WishName(QList<AttributeWish>& attributes) const;
    bool ChangePicture(Changes& changes, const TodayPage& context) const;
    [[nodiscard]] QList<AreaAttribute> AttributesOf(const MapArea& area) const
    {
        return AttributesFor(area, mode_, scale_);
    }
    [[nodiscard]] MapAreas AreasAfter(const Changes& changes, const HtmlSpan& place) const;
    [[nodiscard]] ReturnedMap After(const Changes& changes) const;

    QStringView page_;
    const ReturnedMap& was_;
    JSMode mode_;
    const MapSource& now_;
    QStringView text_;     ///< that the maps were read from: the page, or the map alone
    qsizetype offset_ = 0; ///< of that in the page
    PageMaps maps_;
    qsizetype map_ = 0;
    QSize pictureSize_;
    QSize coordinateSize_;
    PictureScale scale_; ///< of the page as it will be
};

void PageMapUpdater::FindScales(const TodayPage& context)
{
    ReturnedMap sizes;
    SetSizes(sizes, was_, now_, context);
    pictureSize_ = sizes.pictureSize;
    coordinateSize_ = sizes.coordinateSize;
    scale_ = ScaleOf(sizes);
}

bool PageMapUpdater::IsAgainstCode() const
{
    return ChangesCode(was_.source, now_) || std::ranges::any_of(now_.Areas, [this](const MapArea& area) {
               return ::IsAgainstCode(area, scale_);
           });
}

/** Reads the map again; the page as a whole only where its pictures count, or where it decides what the map
 * is. */
bool PageMapUpdater::ReadMaps()
{
    if (now_.MapName == was_.source.MapName) {
        text_ = was_.place.In(page_);
        offset_ = was_.place.offset;
        maps_ = ReadPageMaps(text_);
        if (IsReadAlone(maps_, text_, was_)) {
            return true;
        }
    }
    text_ = page_;
    offset_ = 0;
    maps_ = ReadPageMaps(page_);
    const auto found = std::ranges::find(maps_.maps, was_.place, &PageMap::whole);
    map_ = found - maps_.maps.begin();
    return found != maps_.maps.end() && found->areaCount == was_.source.Areas.size();
}

/** Gives the map its new name where it has its old one. */
void PageMapUpdater::WishName(QList<AttributeWish>& attributes) const
{
    if (now_.MapName == was_.source.MapName) {
        return;
    }
    const PageMap& map = maps_.maps[std::size_t(map_)];
    const QString name =
        map.name.isEmpty() && !map.id.isEmpty() ? QStringLiteral("id") : QStringLiteral("name");
    const auto found = std::ranges::find(attributes, name, &AttributeWish::name);
    if (found == attributes.end()) {
        attributes << AttributeWish{ name, now_.MapName };
    } else {
        found->value = now_.MapName;
    }
}

MapWish PageMapUpdater::Wish() const
{
    const PageMap& map = maps_.maps[std::size_t(map_)];
    MapWish wish{ .attributes = ::AttributesOf(PageTag(text_, map.tag)), .areas = {} };
    WishName(wish.attributes);
    const auto saysTheSame = [this](const MapArea& inPage, const MapArea& inEditor) {
        return inPage.Attributes == AttributesOf(inEditor);
    };
    const QList<qsizetype> matches = MatchedAreas(was_.source.Areas, now_.Areas, saysTheSame);
    for (qsizetype i = 0; i < now_.Areas.size(); ++i) {
        AreaWish area{ .source = matches[i] < 0 ? -1 : map.firstArea + matches[i], .attributes = {} };
        for (const AreaAttribute& attribute : AttributesOf(now_.Areas[i])) {
            const QString value = attribute.Value.isNull() ? QString(QLatin1String("")) : attribute.Value;
            area.attributes << AttributeWish{ attribute.Name, value };
        }
        wish.areas << area;
    }
    return wish;
}

/** Adds the changes of the picture's tag, together with those that a new name of the map has made in it. */
bool PageMapUpdater::ChangePicture(Changes& changes, const TodayPage& context) const
{
    QList<AttributeWish> wishes =
        was_.picture.length == 0 ? QList<AttributeWish>() : PictureWishes(page_, was_.source, now_, context);
    if (wishes.isEmpty()) {
        return true;
    }
    const Changes ofName = Within(changes, was_.picture);
    if (!ofName.isEmpty()) {
        const QString tag = Replaced(was_.picture.In(page_), ofName, was_.picture.offset);
        wishes << AttributeWish{ QStringLiteral("usemap"),
                                 PageTag(tag, { 0, tag.size() }).Value(QLatin1String("usemap")) };
        changes.removeIf([this](const TextReplacement& one) { return IsWithin(one, was_.picture); });
    }
    const auto ofPicture = ChangeTag(PageTag(page_, was_.picture), wishes);
    changes += ofPicture.value_or(Changes());
    std::ranges::sort(changes, {}, [](const TextReplacement& one) { return one.Place.Start; });
    return ofPicture.has_value();
}

/** The areas of the map in `place` once the changes are made. */
MapAreas PageMapUpdater::AreasAfter(const Changes& changes, const HtmlSpan& place) const
{
    const QString alone = Replaced(was_.place.In(page_), Within(changes, was_.place), was_.place.offset);
    const PageMaps inIt = ReadPageMaps(alone);
    if (!inIt.maps.empty() && inIt.maps.front().areaCount == now_.Areas.size()) {
        return ReadPageMap(alone, inIt, 0).source.Areas;
    }
    // What is around it may decide what is in it.
    const QString page = Replaced(page_, changes, 0);
    const PageMaps all = ReadPageMaps(page);
    const auto found = std::ranges::find(all.maps, place, &PageMap::whole);
    return found != all.maps.end() ? ReadPageMap(page, all, found - all.maps.begin()).source.Areas
                                   : MapAreas();
}

/** What stands in the page once the changes are made. */
ReturnedMap PageMapUpdater::After(const Changes& changes) const
{
    ReturnedMap after = was_;
    after.place = Moved(was_.place, changes);
    after.picture = was_.picture.length == 0 ? HtmlSpan() : Moved(was_.picture, changes);
    after.mode = mode_;
    after.pictureSize = pictureSize_;
    after.coordinateSize = coordinateSize_;
    after.source = now_;
    after.source.Areas = AreasAfter(changes, after.place);
    QSet<int> sources; // a copy of an area has the same
    for (qsizetype i = 0; i < after.source.Areas.size(); ++i) {
        MapArea& area = after.source.Areas[i];
        const int known = i < now_.Areas.size() ? now_.Areas[i].Source : -1;
        area.Source = sources.contains(known) ? -1 : known;
        sources.insert(known);
        SetFields(area, scale_);
    }
    return after;
}

std::optional<MapUpdate> PageMapUpdater::Run(const TodayPage& context)
{
    FindScales(context);
    if (IsAgainstCode() || !ReadMaps()) {
        return std::nullopt;
    }
    auto changes = ChangeMap(text_, maps_, map_, Wish());
    if (!changes) {
        return std::nullopt;
    }
    for (TextReplacement& change : *changes) {
        change.Place.Start += offset_;
    }
    if (!ChangePicture(*changes, context)) {
        return std::nullopt;
    }
    ReturnedMap after = After(*changes);
    // What stood around an area that is taken out may make a tag together.
    if (after.source.Areas.size() != now_.Areas.size()) {
        return std::nullopt;
    }
    return MapUpdate{ .changes = *changes, .after = std::move(after) };
}

} // namespace

bool IsReadAlone(const PageMaps& maps, QStringView text, const ReturnedMap& was)
{
    return !maps.maps.empty() && maps.maps.front().whole.length == text.size() &&
           maps.maps.front().areaCount == was.source.Areas.size();
}

std::optional<MapUpdate> UpdatePageMap(
    QStringView page, const ReturnedMap& was, JSMode mode, const MapSource& now, const TodayPage& context)
{
    return HasMapElement(mode) ? PageMapUpdater(page, was, mode, now).Run(context) : std::nullopt;
}
