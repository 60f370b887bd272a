#include "mapback/TodayFields.h"

#include "codegen/AreaTexts.h"

#include <algorithm>
#include <cmath>

namespace {

MapArea AreaOf(JSMode mode, const TodayArea& today, int source)
{
    MapArea area{ .Shape = today.Shape,
                  .Coordinates = today.Coordinates,
                  .Link = today.Address,
                  .Target = today.Target,
                  .Message = today.Message };
    area.Source = source;
    // What is said without it need not have been typed.
    area.Text = LabelOf(area, mode) == today.Label ? QString() : today.Label;
    return area;
}

} // namespace

MapSource SourceOf(JSMode mode, const TodayMap& map)
{
    MapSource source{ .MapName = map.Name,
                      .Width = map.Shown.isEmpty() ? QString() : QString::number(map.Shown.width()),
                      .Height = map.Shown.isEmpty() ? QString() : QString::number(map.Shown.height()),
                      .AltText = map.AltText,
                      .Align = AlignOfClass(map.AlignClass),
                      .Border = {},
                      .HorizontalSpace = {},
                      .VerticalSpace = {},
                      .PictureReference = map.Picture,
                      .FileNamesOnly = !map.Picture.isEmpty() && !map.Picture.contains(u'/'),
                      .ModeDefault = map.Default,
                      .Areas = {} };
    for (const TodayArea& area : map.Areas) {
        source.Areas << AreaOf(mode, area, int(source.Areas.size()));
    }
    return source;
}

QList<int> Scaled(AreaShape shape, const QList<int>& numbers, const PictureScale& scale)
{
    constexpr double half = 0.5;
    constexpr qsizetype radius = 2;
    QList<int> scaled;
    for (qsizetype i = 0; i < numbers.size(); ++i) {
        const bool isRadius = shape == AreaShape::Circle && i == radius;
        const double factor = isRadius ? std::min(scale.x, scale.y) : i % 2 == 0 ? scale.x : scale.y;
        scaled << int(std::floor(numbers[i] * factor + half));
    }
    return scaled;
}
