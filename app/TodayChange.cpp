#include "app/TodayChange.h"

#include "codegen/InsertPlace.h"
#include "imagemap/TodayInsert.h"
#include "imagemap/origin/PagePicture.h"
#include "mapback/LineReplacements.h"
#include "mapback/ReturnedMap.h"
#include "mapreader/PageLines.h"
#include "mapreader/TagChanges.h"

#include <QImageReader>
#include <algorithm>
#include <array>

namespace {

/** What the form for today's browsers has a place for. */
constexpr std::array<QStringView, 8> placedAttributes = { u"shape", u"coords", u"href",   u"target",
                                                          u"alt",   u"title",  u"nohref", u"/" };

TodayChange Refused(const QString& problem)
{
    TodayChange change;
    change.problem = problem;
    return change;
}

/** Names of attributes of the areas that get lost, each once. */
QStringList AttributesLeft(const MapAreas& areas)
{
    QStringList names;
    for (const MapArea& area : areas) {
        for (const AreaAttribute& attribute : area.Attributes) {
            const bool isPlaced =
                std::find(placedAttributes.begin(), placedAttributes.end(), attribute.Name) !=
                placedAttributes.end();
            if (!isPlaced && !names.contains(attribute.Name)) {
                names << attribute.Name;
            }
        }
    }
    return names;
}

bool HoldsCode(const MapAreas& areas)
{
    return std::any_of(areas.begin(), areas.end(), [](const MapArea& area) {
        return std::any_of(area.Attributes.begin(), area.Attributes.end(), [](const AreaAttribute& one) {
            return one.IsCode;
        });
    });
}

/** The picture's own size, or that which the page says. */
QSize SizeOf(const ReturnedMap& map, const QString& path)
{
    const QSize own = path.isEmpty() ? QSize() : QImageReader(path).size();
    if (!own.isEmpty()) {
        return own;
    }
    return map.coordinateSize.isEmpty() ? SizeOfGround({}, {}, map.source.Areas) : map.coordinateSize;
}

/** Why the map cannot be written anew; empty where nothing is in the way. */
QString ProblemOf(const ReturnedMap& map, const PageMaps& maps, const MapPlace& place)
{
    if (map.form && *map.form != MarkupForm::Html4) {
        return QStringLiteral("The map is in the form for today's browsers already !");
    }
    if (!map.form && map.picture.length == 0) {
        return QStringLiteral("No picture of the page uses the map !");
    }
    if (place.map >= 0 && maps.maps[std::size_t(place.map)].pictureCount > 1) {
        return QStringLiteral("Several pictures of the page use the map !");
    }
    return HoldsCode(map.source.Areas)
               ? QStringLiteral("Code for a template or a server is in the map, which would get lost !")
               : QString();
}

/** What the new markup does not show. */
QStringList NotesOf(const ReturnedMap& map, const InsertPlace& place, NeededBlocks needed)
{
    QStringList notes;
    if ((needed.style && !place.style.IsCurrent()) || (needed.script && !place.script.IsCurrent())) {
        notes << QStringLiteral("What such maps share is put into the page's head, or in front of the map.");
    }
    if (const QStringList left = AttributesLeft(map.source.Areas); !left.isEmpty()) {
        notes << QStringLiteral("The new form has no place for these attributes: ") +
                     left.join(QStringLiteral(", "));
    }
    return notes;
}

/** The places that the new markup comes in place of, in their order. */
QList<HtmlSpan> OldPlaces(QStringView text, const ReturnedMap& map)
{
    const HtmlSpan whole = map.form ? map.place : WithItsLine(text, map.place);
    const bool isAround = map.picture.offset >= map.place.offset && map.picture.End() <= map.place.End();
    if (map.form || isAround) {
        return { whole };
    }
    return map.picture.offset < whole.offset ? QList<HtmlSpan>{ map.picture, whole }
                                             : QList<HtmlSpan>{ whole, map.picture };
}

} // namespace

TodayChange
PrepareTodayChange(const PageDocument& page, const QString& text, const PageMaps& maps, const MapPlace& place)
{
    std::optional<ReturnedMap> map = ReadMap(text, maps, place);
    if (!map) {
        return Refused(QStringLiteral("The map was changed by hand, so that it cannot be read any more !"));
    }
    if (const QString problem = ProblemOf(*map, maps, place); !problem.isEmpty()) {
        return Refused(problem);
    }
    const FoundPicture found = FindPicture(map->source.PictureReference, maps.base, page.FileName());
    const QSize size = SizeOf(*map, found.path);
    (void)FitToPicture(*map, size);

    TodayChange change;
    QString rest = text;
    qsizetype caret = map->form ? map->place.offset : map->picture.offset;
    const QList<HtmlSpan> places = OldPlaces(text, *map);
    for (auto old = places.rbegin(); old != places.rend(); ++old) {
        change.before =
            old->In(text) + (change.before.isEmpty() ? QString() : QStringLiteral("\r\n")) + change.before;
        rest.remove(old->offset, old->length);
        caret = old->offset < caret ? std::max(caret - old->length, old->offset) : caret;
    }
    const InsertPlace there = FindInsertPlace(rest, { caret, 0 });
    if (there.refusal) {
        return Refused(RefusalText(*there.refusal));
    }
    // Without a file the picture keeps the reference that it has.
    const TodayMap today = MakeTodayMap(map->mode, map->source, ContextOf(page, text, rest, { {}, size }));
    const NeededBlocks needed = BlocksFor(MarkupForm::Today, map->mode, today);
    const QString markup = GenerateTodayMap(map->mode, today);
    const MapInsertion insertion = InsertMap(rest, there, markup, needed, QStringLiteral("\r\n"));
    change.after = markup;
    change.notes = NotesOf(*map, there, needed);
    change.changes = DifferencesOf(
        text, { 0, text.size() },
        Replaced(rest, insertion.changes).replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
    return change;
}
