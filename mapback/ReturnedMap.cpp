#include "mapback/ReturnedMap.h"

#include "codegen/AreaTexts.h"
#include "mapback/Html4Reading.h"
#include "mapback/PageMapReading.h"
#include "mapback/TodayFields.h"
#include "mapback/TodayReading.h"

#include "html/HtmlNames.h"

#include <algorithm>

namespace {

ReturnedMap FromHtml4(const Html4Output& output)
{
    return { .form = MarkupForm::Html4,
             .mode = output.mode,
             .source = output.source,
             .place = output.place,
             .coordinateSize = {},
             .pictureSize = {},
             .today = {},
             .picture = {} };
}

ReturnedMap FromToday(const TodayOutput& output)
{
    return { .form = output.form,
             .mode = output.mode,
             .source = SourceOf(output.mode, output.map),
             .place = output.place,
             .coordinateSize = output.map.Own,
             .pictureSize = {},
             .today = output.map,
             .picture = {} };
}

} // namespace

std::optional<ReturnedMap> ReadMap(QStringView page, const PageMaps& maps, const MapPlace& place)
{
    if (place.IsLikeOwn()) {
        if (const auto html4 = ReadHtml4Output(page, place.ownStart)) {
            return FromHtml4(*html4);
        }
        if (const auto today = ReadTodayOutput(page, place.ownStart)) {
            return FromToday(*today);
        }
    }
    return place.map < 0 ? std::nullopt : std::optional(ReadPageMap(page, maps, place.map));
}

std::optional<ReturnedMap> ReadOwnMap(QStringView page, const HtmlSpan& place)
{
    const QStringView text = place.In(page);
    const auto isBlank = [](QChar one) { return IsHtmlSpace(one.unicode()); };
    const qsizetype start = place.offset + (std::ranges::find_if_not(text, isBlank) - text.begin());
    std::optional<ReturnedMap> map;
    if (const auto html4 = ReadHtml4Output(page, start)) {
        map = FromHtml4(*html4);
    } else if (const auto today = ReadTodayOutput(page, start)) {
        map = FromToday(*today);
    }
    const bool isAll =
        map && map->place.End() <= place.End() &&
        std::ranges::all_of(page.sliced(map->place.End(), place.End() - map->place.End()), isBlank);
    return isAll ? map : std::nullopt;
}

PictureScale ScaleOf(const ReturnedMap& map)
{
    if (map.pictureSize.isEmpty() || map.coordinateSize.isEmpty()) {
        return {};
    }
    return { double(map.pictureSize.width()) / map.coordinateSize.width(),
             double(map.pictureSize.height()) / map.coordinateSize.height() };
}

bool FitToPicture(ReturnedMap& map, QSize picture)
{
    if (picture.isEmpty()) {
        return false;
    }
    map.pictureSize = picture;
    if (!map.form) {
        map.coordinateSize = SizeInPage(map.source, picture);
        const auto fill = [](QString& side, int pixels) {
            side = side.isEmpty() ? QString::number(pixels) : side;
        };
        const QSize shown = map.coordinateSize.isEmpty() ? picture : map.coordinateSize;
        fill(map.source.Width, shown.width());
        fill(map.source.Height, shown.height());
    }
    const PictureScale scale = ScaleOf(map);
    if (scale == PictureScale()) {
        return false;
    }
    for (qsizetype i = 0; i < map.source.Areas.size(); ++i) {
        MapArea& area = map.source.Areas[i];
        if (map.form) {
            area.Coordinates = Scaled(area.Shape, map.today.Areas.at(i).Coordinates, scale);
        } else {
            SetFields(area, scale);
        }
    }
    return true;
}

QList<AreaAttribute> AttributesFor(const MapArea& area, const ReturnedMap& map)
{
    return map.form ? QList<AreaAttribute>() : AttributesFor(area, map.mode, ScaleOf(map));
}

bool SetAttribute(MapArea& area, const QString& name, const QString& value, const ReturnedMap& map)
{
    return !map.form && SetAttribute(area, name, value, map.mode, ScaleOf(map));
}
