#include "mapreader/MapChanges.h"

#include "mapreader/PageLines.h"

#include <QSet>
#include <QStringBuilder>
#include <algorithm>

namespace {

constexpr QStringView nameName = u"name";
constexpr QStringView idName = u"id";
constexpr QStringView usemapName = u"usemap";
constexpr QStringView endTagOfArea = u"</area>";

/** Makes the replacements of one map. */
class MapChanger
{
public:
    MapChanger(QStringView page, const PageMaps& maps, qsizetype map)
        : page_(page)
        , maps_(maps)
        , map_(maps.maps[std::size_t(map)])
        , index_(map)
    {
    }

    std::optional<QList<TextReplacement>> Run(const MapWish& wish);

private:
    [[nodiscard]] HtmlSpan UnitOf(qsizetype area) const;
    [[nodiscard]] PageTag TagOf(qsizetype area) const { return { page_, maps_.areas[std::size_t(area)] }; }

    void ChangeOwnTag(QList<AttributeWish> attributes);
    void RenamePictures(const QString& from, const QString& to);
    void FillSlots(const QList<AreaWish>& areas);
    void FillSlot(qsizetype slot, const AreaWish& area);
    void RemoveOthers();
    void AddBehind(qsizetype slot, const QList<AreaWish>& areas);
    void AddBefore(qsizetype slot, const QList<AreaWish>& areas);
    void AddFirst(const QList<AreaWish>& areas);
    [[nodiscard]] QString SeparatorAt(qsizetype offset) const;

    [[nodiscard]] std::optional<QList<TextReplacement>> ChangesOf(const AreaWish& area) const;
    [[nodiscard]] QString NewArea(const QList<AttributeWish>& attributes, qsizetype like);
    [[nodiscard]] QString Unstyled(const QList<AttributeWish>& attributes);
    [[nodiscard]] QString
    Tag(QStringView name, const QList<AttributeWish>& attributes, const TagStyle& style);
    void Change(const PageTag& tag, const QList<AttributeWish>& wishes);
    void Replace(const HtmlSpan& place, const QString& text)
    {
        changes_ << TextReplacement{ { place.offset, place.length }, text };
    }
    /** Notes that something cannot be changed. */
    void Refuse() { isRefused_ = true; }
    void RefuseUnlessWhole(qsizetype area)
    {
        isRefused_ = isRefused_ || TagOf(area).Template() == TemplateCode::Cut;
    }
    [[nodiscard]] QList<TextReplacement> Joined();

    QStringView page_;
    const PageMaps& maps_;
    const PageMap& map_;
    qsizetype index_;
    QList<qsizetype> slots_; ///< the areas in whose places there will be one, in the order of the page
    QList<TextReplacement> changes_;
    bool isRefused_ = false;
};

/** The place of an area with the end tag that it has in XHTML. */
HtmlSpan MapChanger::UnitOf(qsizetype area) const
{
    const HtmlSpan& tag = maps_.areas[std::size_t(area)];
    const QStringView behind = page_.sliced(tag.End());
    if (!behind.startsWith(endTagOfArea, Qt::CaseInsensitive)) {
        return tag;
    }
    return { tag.offset, tag.length + endTagOfArea.size() };
}

std::optional<QList<TextReplacement>> MapChanger::Run(const MapWish& wish)
{
    ChangeOwnTag(wish.attributes);
    for (const AreaWish& area : wish.areas) {
        if (area.source >= 0) {
            slots_ << area.source;
        }
    }
    std::ranges::sort(slots_);
    const bool areOwn = slots_.isEmpty() ||
                        (slots_.first() >= map_.firstArea && slots_.last() < map_.firstArea + map_.areaCount);
    const bool areApart = std::ranges::adjacent_find(slots_) == slots_.end();
    if (!areOwn || !areApart) {
        return std::nullopt;
    }
    if (slots_.isEmpty() && !wish.areas.isEmpty() && map_.areaCount > 0) {
        // Where no area stays, the first new one comes in the place of the first old one.
        slots_ << map_.firstArea;
    }
    FillSlots(wish.areas);
    RemoveOthers();
    return isRefused_ ? std::nullopt : std::optional(Joined());
}

void MapChanger::Change(const PageTag& tag, const QList<AttributeWish>& wishes)
{
    const auto changes = ChangeTag(tag, wishes);
    if (changes) {
        changes_ += *changes;
    } else {
        Refuse();
    }
}

void MapChanger::ChangeOwnTag(QList<AttributeWish> attributes)
{
    const PageTag tag(page_, map_.tag);
    const QString name = ValueIn(attributes, nameName);
    const QString id = ValueIn(attributes, idName);
    if (!map_.name.isEmpty() && map_.id == map_.name && id == map_.id && !name.isEmpty() && name != id) {
        std::ranges::find(attributes, idName, &AttributeWish::name)->value = name;
    }
    const QString newId = ValueIn(attributes, idName);
    Change(tag, DifferencesOf(tag, attributes));
    for (const QString& old : { map_.name, map_.id }) {
        if (!old.isEmpty() && old != name && old != newId) {
            RenamePictures(old, old == map_.name && !name.isEmpty() ? name : newId);
            if (map_.id == map_.name) {
                break;
            }
        }
    }
}

/** Lets the pictures that find the map by a name that it loses find it by another. */
void MapChanger::RenamePictures(const QString& from, const QString& to)
{
    for (const PagePicture& picture : maps_.pictures) {
        const qsizetype behindHash = picture.usemap.indexOf(u'#') + 1;
        if (picture.map == index_ && picture.usemap.sliced(behindHash) == from && !to.isEmpty()) {
            Change(
                PageTag(page_, picture.tag),
                { { usemapName.toString(), picture.usemap.first(behindHash) + to } });
        }
    }
}

/** Writes the areas into the places where there will be one, and new ones between them. */
void MapChanger::FillSlots(const QList<AreaWish>& areas)
{
    qsizetype next = 0;
    QList<AreaWish> added;
    const bool takesFirstPlace =
        std::ranges::none_of(areas, [](const AreaWish& one) { return one.source >= 0; });
    for (const AreaWish& area : areas) {
        const bool isForSlot = area.source >= 0 || (takesFirstPlace && next < slots_.size());
        if (!isForSlot) {
            added << area;
            continue;
        }
        if (next == 0) {
            AddBefore(slots_.first(), added);
        } else {
            AddBehind(slots_[next - 1], added);
        }
        added.clear();
        FillSlot(slots_[next++], area);
    }
    if (next > 0) {
        AddBehind(slots_[next - 1], added);
    } else {
        AddFirst(added);
    }
}

std::optional<QList<TextReplacement>> MapChanger::ChangesOf(const AreaWish& area) const
{
    const PageTag tag = TagOf(area.source);
    return ChangeTag(tag, DifferencesOf(tag, area.attributes));
}

void MapChanger::FillSlot(qsizetype slot, const AreaWish& area)
{
    if (area.source < 0) {
        RefuseUnlessWhole(slot);
        Replace(UnitOf(slot), NewArea(area.attributes, slot));
        return;
    }
    const auto changes = ChangesOf(area);
    if (!changes) {
        Refuse();
    } else if (area.source == slot) {
        changes_ += *changes;
    } else {
        RefuseUnlessWhole(slot);
        RefuseUnlessWhole(area.source);
        const HtmlSpan unit = UnitOf(area.source);
        Replace(UnitOf(slot), Replaced(unit.In(page_), *changes, unit.offset));
    }
}

/** Takes away the areas in whose places there will be none, neighbours together. */
void MapChanger::RemoveOthers()
{
    const QSet<qsizetype> kept(slots_.begin(), slots_.end());
    std::optional<HtmlSpan> run;
    const auto end = [&] {
        if (run) {
            Replace(WithItsLine(page_, *run), {});
            run.reset();
        }
    };
    for (qsizetype i = map_.firstArea; i < map_.firstArea + map_.areaCount; ++i) {
        if (kept.contains(i)) {
            end();
            continue;
        }
        RefuseUnlessWhole(i);
        const HtmlSpan unit = UnitOf(i);
        const bool goesOn = run && IsBlankText(page_.sliced(run->End(), unit.offset - run->End()));
        if (goesOn) {
            run->length = unit.End() - run->offset;
        } else {
            end();
            run = unit;
        }
    }
    end();
}

/** The tag of a new area, written like another. */
QString MapChanger::NewArea(const QList<AttributeWish>& attributes, qsizetype like)
{
    const PageTag tag = TagOf(like);
    const TagStyle style = StyleOf(tag);
    QList<AttributeWish> ordered = attributes;
    const auto placeOf = [&tag](const AttributeWish& wish) {
        const auto& known = tag.Attributes();
        return std::ranges::find_if(
            known, [&](const HtmlAttribute& one) { return IsSameName(one.name.In(tag.Page()), wish.name); });
    };
    std::ranges::stable_sort(ordered, {}, placeOf);
    QString written = Tag(tag.Token().name.In(page_), ordered, style);
    const HtmlSpan unit = UnitOf(like);
    return written += page_.sliced(tag.Token().whole.End(), unit.End() - tag.Token().whole.End());
}

/** What parts an area that begins there from a neighbour: a line of its own, or nothing. */
QString MapChanger::SeparatorAt(qsizetype offset) const
{
    return BeginsItsLine(page_, offset) ? LineEndAt(page_, offset) + IndentAt(page_, offset) : QString();
}

void MapChanger::AddBehind(qsizetype slot, const QList<AreaWish>& areas)
{
    if (areas.isEmpty()) {
        return;
    }
    RefuseUnlessWhole(slot);
    const HtmlSpan unit = UnitOf(slot);
    const QString separator = SeparatorAt(unit.offset);
    QString text;
    for (const AreaWish& area : areas) {
        text += separator + NewArea(area.attributes, slot);
    }
    Replace({ separator.isEmpty() ? unit.End() : BehindComment(page_, unit.End()), 0 }, text);
}

void MapChanger::AddBefore(qsizetype slot, const QList<AreaWish>& areas)
{
    if (areas.isEmpty()) {
        return;
    }
    RefuseUnlessWhole(slot);
    const HtmlSpan unit = UnitOf(slot);
    const QString separator = SeparatorAt(unit.offset);
    QString text;
    for (const AreaWish& area : areas) {
        text += NewArea(area.attributes, slot) + separator;
    }
    Replace({ unit.offset, 0 }, text);
}

/** Adds areas to a map that has none, each on a line of its own. */
void MapChanger::AddFirst(const QList<AreaWish>& areas)
{
    constexpr QLatin1String step("  ");
    if (areas.isEmpty()) {
        return;
    }
    const qsizetype start = map_.tag.offset;
    const QString line = LineEndAt(page_, start) + IndentAt(page_, start);
    QString text;
    for (const AreaWish& area : areas) {
        text += line + step + Unstyled(area.attributes);
    }
    Replace({ map_.tag.End(), 0 }, EndsItsLine(page_, map_.tag.End()) ? text : QString(text + line));
}

/** The tag of an area, written like that of the map. */
QString MapChanger::Unstyled(const QList<AttributeWish>& attributes)
{
    const PageTag tag(page_, map_.tag);
    TagStyle style = StyleOf(tag);
    style.separator = QStringLiteral(" ");
    style.ending = QStringLiteral(">");
    const bool inCapitals = tag.Token().name.In(page_).startsWith(u'M');
    return Tag(inCapitals ? u"AREA" : u"area", attributes, style);
}

/** A tag with just these attributes. */
QString MapChanger::Tag(QStringView name, const QList<AttributeWish>& attributes, const TagStyle& style)
{
    QString written = u'<' + name;
    for (const AttributeWish& attribute : attributes) {
        written += style.separator + Written(attribute, style);
    }
    written += style.ending;
    HtmlTokens tokens(written);
    HtmlToken token;
    const bool isOne = tokens.Next(token) && token.isClosed && token.whole.length == written.size();
    if (!isOne || AttributesOf(PageTag(written, token.whole)) != attributes) {
        Refuse();
    }
    return written;
}

/** The changes in their order, those that touch as one. */
QList<TextReplacement> MapChanger::Joined()
{
    std::ranges::stable_sort(changes_, [](const TextReplacement& one, const TextReplacement& other) {
        return one.Place.Start < other.Place.Start ||
               (one.Place.Start == other.Place.Start && one.Place.Length < other.Place.Length);
    });
    QList<TextReplacement> joined;
    for (const TextReplacement& change : changes_) {
        const bool touches =
            !joined.isEmpty() && joined.last().Place.Start + joined.last().Place.Length >= change.Place.Start;
        if (touches) {
            TextReplacement& last = joined.last();
            last.Place.Length = change.Place.Start + change.Place.Length - last.Place.Start;
            last.Text += change.Text;
        } else {
            joined << change;
        }
    }
    return joined;
}

} // namespace

MapWish WishOf(QStringView page, const PageMaps& maps, qsizetype map)
{
    const PageMap& one = maps.maps[std::size_t(map)];
    MapWish wish{ .attributes = AttributesOf(PageTag(page, one.tag)), .areas = {} };
    for (qsizetype i = one.firstArea; i < one.firstArea + one.areaCount; ++i) {
        wish.areas << AreaWish{ i, AttributesOf(PageTag(page, maps.areas[std::size_t(i)])) };
    }
    return wish;
}

std::optional<QList<TextReplacement>>
ChangeMap(QStringView page, const PageMaps& maps, qsizetype map, const MapWish& wish)
{
    return MapChanger(page, maps, map).Run(wish);
}
