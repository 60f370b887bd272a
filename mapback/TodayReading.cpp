#include "mapback/TodayReading.h"

#include "codegen/PaintingOrder.h"
#include "mapback/LineReplacements.h"
#include "mapback/TodayMarkup.h"

#include <algorithm>
#include <array>

namespace {

/** The mode whose markup it is; where nothing tells, one that could have written it. */
JSMode ModeOf(const TodayPieces& pieces)
{
    if (!pieces.isFigure) {
        return pieces.hasTitles ? JSStatusBar : JSDisabled;
    }
    return pieces.arePictures ? JSSwitchImages : pieces.areTips ? JSToolTips : JSTextArea;
}

/** The areas in the order of the list, as far as it can be known; nothing if their numbers are none. */
std::optional<QList<TodayArea>> InListOrder(const std::vector<PaintedArea>& painted)
{
    MapAreas shapes;
    for (const PaintedArea& one : painted) {
        shapes << MapArea{ .Shape = one.area.Shape,
                           .Coordinates = one.area.Coordinates,
                           .Link = {},
                           .Target = {},
                           .Message = {} };
    }
    std::vector<const PaintedArea*> placed(painted.size());
    for (const PaintedArea& one : painted) {
        if (one.number > 0) {
            const auto index = std::size_t(one.number - 1);
            if (index >= placed.size() || placed[index] != nullptr) {
                return std::nullopt;
            }
            placed[index] = &one;
        }
    }
    // What was turned round once, is turned back by the same.
    auto next = placed.begin();
    for (const qsizetype index : PaintingOrder(shapes)) {
        const PaintedArea& one = painted[std::size_t(index)];
        if (one.number == 0) {
            next = std::find(next, placed.end(), nullptr);
            *next = &one;
        }
    }
    QList<TodayArea> areas;
    for (const PaintedArea* const one : placed) {
        areas << one->area;
    }
    return areas;
}

/** Finds the way of writing that gives just what is in the page. */
std::optional<TodayOutput>
Checked(QStringView page, qsizetype start, MarkupForm form, JSMode mode, TodayMap map)
{
    for (const PageCharset charset : { PageCharset::Ascii, PageCharset::Windows1252, PageCharset::Unicode }) {
        map.Charset = charset;
        QString text = GenerateToday(form, mode, map);
        text.chop(1);
        if (const auto length = LengthOfSame(page, start, text)) {
            return TodayOutput{ .form = form, .mode = mode, .map = map, .place = { start, *length } };
        }
    }
    return std::nullopt;
}

} // namespace

QString GenerateToday(MarkupForm form, JSMode mode, const TodayMap& map)
{
    return form == MarkupForm::Today ? GenerateTodayMap(mode, map) : GenerateTodayMapElement(mode, map);
}

std::optional<TodayOutput> ReadTodayOutput(QStringView page, qsizetype start)
{
    // Which of them overlap takes a look at each pair.
    constexpr std::size_t mostAreas = 5000;
    std::optional<TodayPieces> pieces = ReadTodayMarkup(page, start);
    if (!pieces || pieces->painted.empty() || pieces->painted.size() > mostAreas) {
        return std::nullopt;
    }
    const JSMode mode = ModeOf(*pieces);
    TodayMap& map = pieces->map;
    if (pieces->isElement) {
        for (const PaintedArea& one : pieces->painted) {
            map.Areas << one.area;
        }
        return Checked(page, start, MarkupForm::TodayMapElement, mode, map);
    }
    const auto areas = InListOrder(pieces->painted);
    if (!areas) {
        return std::nullopt;
    }
    map.Areas = *areas;
    if (auto output = Checked(page, start, MarkupForm::Today, mode, map)) {
        return output;
    }
    // What is painted first may be the area for all that is left, though it looks like a rectangle.
    const TodayArea& first = pieces->painted.front().area;
    const QList<int> whole = { 0, 0, map.Own.width(), map.Own.height() };
    for (TodayArea& area : map.Areas) {
        if (area == first && area.Coordinates == whole) {
            area.Shape = AreaShape::Default;
            area.Coordinates = {};
        }
    }
    return Checked(page, start, MarkupForm::Today, mode, map);
}
