#include "mapback/MapPlaces.h"

#include "codegen/MapMarkup.h"
#include "mapreader/PageLines.h"

#include <algorithm>
#include <array>

namespace {

constexpr QStringView paragraphStart = u"<p>";
constexpr QStringView paragraphEnd = u"</p>";
constexpr QStringView figureStart = u"<figure class=\"imap-fig";
constexpr QStringView figureEnd = u"</figure>";
constexpr QStringView pictureStart = u"<p><img";

/** The end of what ends with `mark`, looked for up to `limit`; `otherwise` if it does not come. */
qsizetype EndBehind(QStringView page, qsizetype from, QStringView mark, qsizetype limit, qsizetype otherwise)
{
    const qsizetype found = page.first(limit).indexOf(mark, from);
    return found < 0 ? otherwise : found + mark.size();
}

/** Finds the places of all maps. */
class PlaceCollector
{
public:
    PlaceCollector(QStringView page, const PageMaps& maps)
        : page_(page)
        , maps_(maps)
    {
        takenBy_.resize(maps.maps.size(), false);
    }

    std::vector<MapPlace> Run();

private:
    void TakeOwnStart(qsizetype start, qsizetype limit);
    void TakeHtml4(qsizetype start, qsizetype limit);
    void TakeShapes(qsizetype span, qsizetype limit);
    [[nodiscard]] qsizetype FirstMapIn(const HtmlSpan& span) const;
    [[nodiscard]] qsizetype StartOfElementOutput(const PageMap& map) const;

    QStringView page_;
    const PageMaps& maps_;
    std::vector<MapPlace> places_;
    std::vector<bool> takenBy_; ///< which maps are in an own output
};

std::vector<MapPlace> PlaceCollector::Run()
{
    const std::vector<qsizetype>& starts = maps_.ownStarts;
    for (std::size_t i = 0; i < starts.size(); ++i) {
        TakeOwnStart(starts[i], i + 1 < starts.size() ? starts[i + 1] : page_.size());
    }
    for (std::size_t i = 0; i < maps_.maps.size(); ++i) {
        if (takenBy_[i]) {
            continue;
        }
        const PageMap& map = maps_.maps[i];
        const qsizetype start = StartOfElementOutput(map);
        const qsizetype from = start < 0 ? map.whole.offset : start;
        places_.push_back(
            { .whole = { from, map.whole.End() - from }, .map = qsizetype(i), .ownStart = start });
    }
    std::ranges::stable_sort(places_, {}, [](const MapPlace& place) { return place.whole.offset; });
    return std::move(places_);
}

void PlaceCollector::TakeOwnStart(qsizetype start, qsizetype limit)
{
    if (page_.sliced(start).startsWith(u"<!--")) {
        TakeHtml4(start, limit);
    } else {
        TakeShapes(start, limit);
    }
}

void PlaceCollector::TakeHtml4(qsizetype start, qsizetype limit)
{
    const qsizetype block = EndBehind(page_, start, mapEndMark, limit, -1);
    if (block < 0) {
        return;
    }
    // What two modes show stands behind the map.
    qsizetype end = block;
    for (const QStringView mark :
         { QStringView(u"<!-- End Default Image -->"), QStringView(u"<!-- End Textarea -->") }) {
        constexpr qsizetype farthest = 100'000;
        end = EndBehind(page_, block, mark, std::min(limit, block + farthest), end);
    }
    const qsizetype map = FirstMapIn({ start, block - start });
    if (map >= 0) {
        takenBy_[std::size_t(map)] = true;
    }
    places_.push_back({ .whole = { start, end - start }, .map = map, .ownStart = start });
}

void PlaceCollector::TakeShapes(qsizetype span, qsizetype limit)
{
    const QStringView before = page_.first(span);
    if (before.endsWith(paragraphStart)) {
        const qsizetype start = span - paragraphStart.size();
        const qsizetype end = EndBehind(page_, span, paragraphEnd, limit, span);
        places_.push_back({ .whole = { start, end - start }, .map = -1, .ownStart = start });
        return;
    }
    const qsizetype figure = before.lastIndexOf(u'<');
    if (figure >= 0 && before.sliced(figure).startsWith(figureStart) && before.endsWith(u'>')) {
        const qsizetype end = EndBehind(page_, span, figureEnd, limit, span);
        places_.push_back({ .whole = { figure, end - figure }, .map = -1, .ownStart = figure });
    }
}

/** The first map whose tag is there; -1 if there is none. */
qsizetype PlaceCollector::FirstMapIn(const HtmlSpan& span) const
{
    const auto found = std::ranges::lower_bound(
        maps_.maps, span.offset, {}, [](const PageMap& map) { return map.tag.offset; });
    const bool isThere = found != maps_.maps.end() && found->tag.offset < span.End();
    return isThere ? found - maps_.maps.begin() : -1;
}

/** Where the paragraph with the picture begins that this program writes in front of a map; -1 if it is none.
 */
qsizetype PlaceCollector::StartOfElementOutput(const PageMap& map) const
{
    const qsizetype start = map.tag.offset;
    if (!BeginsItsLine(page_, start)) {
        return -1;
    }
    QStringView before = page_.first(start);
    before.chop(before.endsWith(u"\r\n") ? 2 : before.isEmpty() ? 0 : 1);
    if (!before.endsWith(paragraphEnd)) {
        return -1;
    }
    qsizetype line = before.size();
    while (line > 0 && before[line - 1] != u'\n' && before[line - 1] != u'\r') {
        --line;
    }
    return before.sliced(line).startsWith(pictureStart) ? line : -1;
}

} // namespace

std::vector<MapPlace> MapPlacesOf(QStringView page, const PageMaps& maps)
{
    return PlaceCollector(page, maps).Run();
}

qsizetype MapAt(const std::vector<MapPlace>& places, const PageMaps& maps, qsizetype caret)
{
    const auto isIn = [caret](const HtmlSpan& span) { return caret >= span.offset && caret <= span.End(); };
    qsizetype found = -1;
    for (std::size_t i = 0; i < places.size(); ++i) {
        const bool isInner = found < 0 || places[i].whole.length < places[std::size_t(found)].whole.length;
        if (isIn(places[i].whole) && isInner) {
            found = qsizetype(i);
        }
    }
    if (found >= 0) {
        return found;
    }
    const auto picture = std::ranges::find_if(
        maps.pictures, [&](const PagePicture& one) { return one.map >= 0 && isIn(one.tag); });
    if (picture == maps.pictures.end()) {
        return -1;
    }
    const auto place = std::ranges::find(places, picture->map, &MapPlace::map);
    return place == places.end() ? -1 : place - places.begin();
}
