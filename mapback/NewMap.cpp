#include "mapback/NewMap.h"

#include "codegen/UniqueName.h"
#include "mapback/PageMapReading.h"
#include "mapback/PictureFields.h"
#include "mapreader/TagChanges.h"

#include <QStringBuilder>
#include <algorithm>

namespace {

constexpr QLatin1String usemapName("usemap");
constexpr QStringView areaStep = u"  ";

/** What browsers look for among the names of maps. */
QString MapNameIn(const QString& usemap)
{
    return usemap.mid(usemap.indexOf(u'#') + 1);
}

bool AsksForMap(const QString& usemap)
{
    return usemap.contains(u'#');
}

/** How the tags of a map are written whose picture has that tag. */
TagStyle StyleLike(const PageTag& picture)
{
    TagStyle style = StyleOf(picture);
    style.separator = QStringLiteral(" ");
    const bool hasBlank = style.ending.startsWith(u' ') || style.ending.contains(u'\n');
    style.ending =
        style.ending.contains(u'/') ? QString::fromLatin1(hasBlank ? " />" : "/>") : QStringLiteral(">");
    return style;
}

QString TagIn(const TagStyle& style, QStringView name, const QList<AttributeWish>& attributes)
{
    QString written = u'<' + name;
    for (const AttributeWish& attribute : attributes) {
        written += style.separator + Written(attribute, style);
    }
    return written + style.ending;
}

QList<AttributeWish> WishesFor(const MapArea& area, JSMode mode, const PictureScale& scale)
{
    QList<AttributeWish> wishes;
    for (const AreaAttribute& attribute : AttributesFor(area, mode, scale)) {
        const QString value = attribute.Value.isNull() ? QString(QLatin1String("")) : attribute.Value;
        wishes << AttributeWish{ attribute.Name, value };
    }
    return wishes;
}

/** Gives one picture its map. */
class MapAdder
{
public:
    MapAdder(QStringView page, const ReturnedMap& picture, JSMode mode, const MapSource& now)
        : page_(page)
        , tag_(page, picture.picture)
        , was_(picture)
        , mode_(mode)
        , now_(now)
    {
    }

    std::optional<MapUpdate> Run(const TodayPage& context);

private:
    [[nodiscard]] QList<AttributeWish> WishesOfPicture(const TodayPage& context) const;
    [[nodiscard]] QString Markup(const NewMapPlace& place) const;
    [[nodiscard]] std::optional<ReturnedMap> After(const QList<TextReplacement>& changes) const;
    [[nodiscard]] bool IsAsWished(const ReturnedMap& after) const;

    QStringView page_;
    PageTag tag_;
    const ReturnedMap& was_;
    JSMode mode_;
    const MapSource& now_;
    ReturnedMap sizes_;
};

std::optional<MapUpdate> MapAdder::Run(const TodayPage& context)
{
    const NewMapPlace place = FindNewMapPlace(page_, was_.picture);
    const QString usemap = tag_.Value(usemapName);
    if (place.refusal || TemplateCodeIn(usemap) != TemplateCode::None || ChangesCode(was_.source, now_)) {
        return std::nullopt;
    }
    SetSizes(sizes_, was_, now_, context);
    std::optional<QList<TextReplacement>> changes = ChangeTag(tag_, WishesOfPicture(context));
    if (!changes) {
        return std::nullopt;
    }
    *changes << TextReplacement{ { place.offset, 0 }, Markup(place) };
    std::optional<ReturnedMap> after = After(*changes);
    return after ? std::optional(MapUpdate{ .changes = *changes, .after = *std::move(after) }) : std::nullopt;
}

QList<AttributeWish> MapAdder::WishesOfPicture(const TodayPage& context) const
{
    QList<AttributeWish> wishes = PictureWishes(page_, was_.source, now_, context);
    const QString usemap = tag_.Value(usemapName);
    if (!AsksForMap(usemap) || MapNameIn(usemap) != now_.MapName) {
        wishes << AttributeWish{ usemapName, u'#' + now_.MapName };
    }
    return wishes;
}

QString MapAdder::Markup(const NewMapPlace& place) const
{
    const TagStyle style = StyleLike(tag_);
    TagStyle open = style;
    open.ending = QStringLiteral(">");
    const bool inCapitals = tag_.Token().name.In(page_).startsWith(u'I');
    const QStringView mapTag = inCapitals ? u"MAP" : u"map";
    const QStringView areaTag = inCapitals ? u"AREA" : u"area";
    QString markup = place.line % TagIn(open, mapTag, { { QStringLiteral("name"), now_.MapName } });
    for (const MapArea& area : now_.Areas) {
        markup += place.line.isNull() ? QString() : QString(place.line % areaStep);
        markup += TagIn(style, areaTag, WishesFor(area, mode_, ScaleOf(sizes_)));
    }
    return markup % place.line % u"</" % mapTag % u'>';
}

/** What stands in the page once the changes are made, the last of which is the map. */
std::optional<ReturnedMap> MapAdder::After(const QList<TextReplacement>& changes) const
{
    const QString page = Replaced(page_, changes);
    const PageMaps maps = ReadPageMaps(page);
    const auto picture = std::ranges::find(
        maps.pictures, was_.picture.offset, [](const PagePicture& one) { return one.tag.offset; });
    if (picture == maps.pictures.end() || picture->map < 0) {
        return std::nullopt;
    }
    ReturnedMap after = ReadPageMap(page, maps, picture->map);
    after.picture = picture->tag;
    after.mode = mode_;
    after.pictureSize = sizes_.pictureSize;
    after.coordinateSize = sizes_.coordinateSize;
    const TextReplacement& map = changes.last();
    const qsizetype end = page.size() - (page_.size() - map.Place.Start);
    const bool isThere = after.place.End() == end && end - after.place.offset <= map.Text.size();
    if (!isThere || !IsAsWished(after)) {
        return std::nullopt;
    }
    const MapAreas areas = after.source.Areas;
    after.source = now_;
    after.source.Areas = areas;
    for (qsizetype i = 0; i < areas.size(); ++i) {
        after.source.Areas[i].Source = now_.Areas[i].Source;
        SetFields(after.source.Areas[i], ScaleOf(sizes_));
    }
    return after;
}

/** Whatever is odd in names and texts: what comes out has to say what it was written from. */
bool MapAdder::IsAsWished(const ReturnedMap& after) const
{
    const auto saysWhatWasWished = [this](const MapArea& written, const MapArea& wished) {
        const QList<AttributeWish> wishes = WishesFor(wished, mode_, ScaleOf(sizes_));
        return std::ranges::equal(
            written.Attributes, wishes, [](const AreaAttribute& one, const AttributeWish& other) {
                return one.Name == other.name && one.Value == other.value;
            });
    };
    return after.source.MapName == now_.MapName &&
           std::ranges::equal(after.source.Areas, now_.Areas, saysWhatWasWished);
}

} // namespace

ReturnedMap ReadPicture(QStringView page, const HtmlSpan& tag)
{
    ReturnedMap map;
    map.picture = tag;
    SetPictureFields(map.source, page, tag);
    map.source.MapName = MapNameIn(PageTag(page, tag).Value(usemapName));
    map.coordinateSize = SizeInPage(map.source, {});
    return map;
}

QString NameOfNewMap(QStringView page, const ReturnedMap& picture, const QString& wanted)
{
    const QString usemap = PageTag(page, picture.picture).Value(usemapName);
    // No map has it, or the picture would not be without one.
    const bool isAskedFor = AsksForMap(usemap) && MapNameIn(usemap) == wanted;
    return isAskedFor ? wanted : UniqueMapName(wanted, page);
}

std::optional<MapUpdate> AddMap(
    QStringView page, const ReturnedMap& picture, JSMode mode, const MapSource& now, const TodayPage& context)
{
    return HasMapElement(mode) ? MapAdder(page, picture, mode, now).Run(context) : std::nullopt;
}
