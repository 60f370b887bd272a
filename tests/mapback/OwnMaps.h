#pragma once

#include "mapback/MapUpdate.h"
#include "mapreader/TagChanges.h"

#include <QStringList>

// Maps as this program writes them, for tests of how they come back.

/** Texts with what programs like to stumble over. */
inline const QStringList& OddTexts()
{
    static const QStringList texts = {
        QStringLiteral("a plain text"),
        QString(),
        QStringLiteral("say \"when\""),
        QStringLiteral("it's 'so'"),
        QStringLiteral("one<br>two<br>three"),
        QStringLiteral("$1 $& $$ ${x} %1 %2 %L3 %%"),
        QStringLiteral("C:\\new\\table D:\\x\\"),
        QStringLiteral("Caf\u00e9 \u201cGr\u00f6\u00dfe\u201d \u20ac \u017e\u2026 \u00ff"),
        QStringLiteral("\u65e5\u672c \u0645\u0631\u062d\u0628\u0627 \U0001F600"),
        QStringLiteral("\"><script>alert(1)</script>"),
        QStringLiteral("</title></svg></p></figure></map><p>"),
        QStringLiteral("&amp; &lt; &#0; &copy &notit; &"),
        QStringLiteral("it's <!-- not --> a `comment` -->"),
        QStringLiteral("a b\tc%zz%41#x#y?z?[1]{2}|3^4"),
        QStringLiteral("{{ code }} <?php x ?>"),
        QStringLiteral("';return true\" onMouseOut=\""),
        QStringLiteral("\";"),
        QStringLiteral("\">"),
        QStringLiteral("   "),
        QStringLiteral("-->"),
    };
    return texts;
}

/** An area of each shape in turn, each in a place of its own. */
inline MapArea OddArea(int number, const QString& text, JSMode mode)
{
    const int x = number % 20 * 20;
    const int y = number / 20 * 20;
    MapArea area;
    switch (number % 3) {
    case 0:
        area.Coordinates = { x, y, x + 15, y + 14 };
        break;
    case 1:
        area.Shape = AreaShape::Circle;
        area.Coordinates = { x + 9, y + 8, 7 };
        break;
    default:
        area.Shape = AreaShape::Polygon;
        area.Coordinates = { x, y, x + 15, y + 3, x + 2, y + 12 };
    }
    area.Link = number % 4 == 3 ? QString() : QStringLiteral("p%1.html?q=").arg(number) + text;
    area.Target = number % 2 == 1 ? QStringLiteral("frame") : QString();
    area.Text = number % 5 == 0 ? QStringLiteral("Area %1 ").arg(number) + text : QString();
    if (mode == JSSwitchImages) {
        area.Message = QStringLiteral("pic%1.gif").arg(number);
    } else if (mode != JSDisabled && number % 6 != 5) {
        area.Message = QStringLiteral("m%1 ").arg(number) + text;
    }
    return area;
}

inline MapSource OddSource(JSMode mode, int areas, const QString& text, bool hasAll)
{
    MapSource source{ .MapName = QStringLiteral("map") + text,
                      .Width = hasAll ? QStringLiteral("800") : QStringLiteral("400"),
                      .Height = QStringLiteral("300"),
                      .AltText = text,
                      .Align = hasAll ? QStringLiteral("LEFT") : QString(),
                      .Border = hasAll ? QStringLiteral("3") : QStringLiteral("0"),
                      .HorizontalSpace = hasAll ? QStringLiteral("5") : QString(),
                      .VerticalSpace = hasAll ? QStringLiteral("6") : QString(),
                      .PictureReference =
                          hasAll ? QStringLiteral("pics/plan.png") : QStringLiteral("plan.png"),
                      .FileNamesOnly = !hasAll,
                      .ModeDefault = {},
                      .Areas = {} };
    if (mode == JSSwitchImages) {
        source.ModeDefault = QStringLiteral("none.gif");
    } else if (mode == JSTextArea) {
        source.ModeDefault = text;
    }
    for (int i = 0; i < areas; ++i) {
        source.Areas << OddArea(i, text, mode);
    }
    return source;
}

/** The areas without what tells where they come from. */
inline MapAreas Bare(MapAreas areas)
{
    for (MapArea& area : areas) {
        area.Source = -1;
        area.Attributes.clear();
    }
    return areas;
}

inline TodayPage SomePage(PageCharset charset = PageCharset::Ascii, QSize picture = { 400, 300 })
{
    return { .Text = {},
             .Path = {},
             .Charset = charset,
             .PicturePath = {},
             .PictureSize = picture,
             .SizeOf = [](const QString&) { return QSize(160, 120); } };
}

/** The markup of a map in a form for today's browsers, with lines that end in LF. */
inline QString TodayMarkup(
    MarkupForm form, JSMode mode, const MapSource& source, PageCharset charset = PageCharset::Ascii,
    QSize picture = { 400, 300 })
{
    const TodayMap map = MakeTodayMap(mode, source, SomePage(charset, picture));
    return form == MarkupForm::Today ? GenerateTodayMap(mode, map) : GenerateTodayMapElement(mode, map);
}

/** The only map of a page. */
inline std::optional<ReturnedMap> OnlyMap(QStringView page)
{
    const PageMaps maps = ReadPageMaps(page);
    const std::vector<MapPlace> places = MapPlacesOf(page, maps);
    return places.size() == 1 ? ReadMap(page, maps, places.front()) : std::nullopt;
}
