#include "mapback/PageMapReading.h"

#include "mapback/PictureFields.h"
#include "mapreader/AttributeWishes.h"

#include <algorithm>

namespace {

MapArea ReadArea(QStringView page, const HtmlSpan& place, int source)
{
    const PageTag tag(page, place);
    const bool isCut = tag.Template() == TemplateCode::Cut;
    MapArea area;
    area.Source = source;
    for (const HtmlAttribute& attribute : tag.Attributes()) {
        if (!attribute.isDuplicate) {
            area.Attributes << AreaAttribute{ .Name = NameOf(attribute.name.In(page)),
                                              .Value = tag.ValueOf(attribute),
                                              .IsCode = isCut || tag.HoldsTemplate(attribute) };
        }
    }
    SetFields(area, {});
    return area;
}

/** A width or height as an attribute says it in whole pixels; nought for any other. */
int PixelsOf(const QString& value)
{
    bool isNumber = false;
    const int pixels = value.trimmed().toInt(&isNumber);
    return isNumber && pixels > 0 ? pixels : 0;
}

/** The other side of a picture of which a page gives one. */
int InProportion(int side, int own, int other)
{
    return own <= 0 ? 0 : std::max(int(qint64(side) * other / own), 1);
}

} // namespace

QSize SizeInPage(const MapSource& source, QSize picture)
{
    QSize shown(PixelsOf(source.Width), PixelsOf(source.Height));
    if (shown.width() > 0 && source.Height.isEmpty()) {
        shown.setHeight(InProportion(shown.width(), picture.width(), picture.height()));
    } else if (shown.height() > 0 && source.Width.isEmpty()) {
        shown.setWidth(InProportion(shown.height(), picture.height(), picture.width()));
    }
    return shown.isEmpty() ? QSize() : shown;
}

void SetSizes(ReturnedMap& map, const ReturnedMap& was, const MapSource& now, const TodayPage& context)
{
    const bool isOtherPicture = now.PictureReference != was.source.PictureReference;
    map.pictureSize = isOtherPicture ? context.PictureSize : was.pictureSize;
    const bool isSameSize = now.Width == was.source.Width && now.Height == was.source.Height;
    map.coordinateSize = isSameSize ? was.coordinateSize : SizeInPage(now, map.pictureSize);
}

ReturnedMap ReadPageMap(QStringView page, const PageMaps& maps, qsizetype map)
{
    const PageMap& one = maps.maps[std::size_t(map)];
    ReturnedMap read{ .form = std::nullopt,
                      .mode = JSDisabled,
                      .source = {},
                      .place = one.whole,
                      .coordinateSize = {},
                      .pictureSize = {},
                      .today = {},
                      .picture = {} };
    read.source.MapName = one.name.isEmpty() ? one.id : one.name;
    const auto picture = std::ranges::find(maps.pictures, map, &PagePicture::map);
    if (picture != maps.pictures.end()) {
        read.picture = picture->tag;
        SetPictureFields(read.source, page, picture->tag);
    }
    read.coordinateSize = SizeInPage(read.source, {});
    for (qsizetype i = 0; i < one.areaCount; ++i) {
        read.source.Areas << ReadArea(page, maps.areas[std::size_t(one.firstArea + i)], int(i));
        read.mode = read.source.Areas.last().Message.isEmpty() ? read.mode : JSStatusBar;
    }
    return read;
}
