#include "tests/codegen/TodayPages.h"

#include "tests/codegen/PictureMaps.h"

#include <array>

namespace {

constexpr std::array<const char*, jsModeTexts.size()> modeNames = { "links", "messages", "pictures", "texts",
                                                                    "tips" };

QString NameOf(MarkupForm form, JSMode mode)
{
    const QString start = form == MarkupForm::Today ? QStringLiteral("svg") : QStringLiteral("map");
    return start + u'-' + QString::fromLatin1(modeNames[mode]);
}

MapArea Area(AreaShape shape, const QList<int>& numbers, const QString& link, const QString& text)
{
    return {
        .Shape = shape, .Coordinates = numbers, .Link = link, .Target = {}, .Message = {}, .Text = text
    };
}

/** A square, a disc and a kite, as they are in the picture that the pages show. */
MapAreas ThreeAreas(JSMode mode)
{
    MapAreas areas = { Area(AreaShape::Rectangle, { 20, 20, 120, 120 }, "red.html", "Red"),
                       Area(AreaShape::Circle, { 250, 80, 50 }, "green.html", "Green disc"),
                       Area(AreaShape::Polygon, { 60, 160, 180, 200, 100, 280, 20, 240 }, "blue.html", {}) };
    const std::array<QString, 3> messages = { "Leads to red", "Go & see<br>the <green> disc", "A \"kite\"" };
    const std::array<QString, 3> pictures = { "red.png", "green.png", "blue.png" };
    for (std::size_t i = 0; mode != JSDisabled && i < messages.size(); ++i) {
        areas[qsizetype(i)].Message = mode == JSSwitchImages ? pictures[i] : messages[i];
    }
    areas[1].Target = QStringLiteral("_blank");
    return areas;
}

MapSource Source(JSMode mode, const MapAreas& areas)
{
    const QString start = mode == JSSwitchImages ? QStringLiteral("none.png")
                          : mode == JSTextArea   ? QStringLiteral("Point at a shape.")
                                                 : QString();
    MapSource source = MapOfPicture(areas);
    source.MapName = QStringLiteral("Shapes");
    source.AltText = QStringLiteral("Four shapes");
    source.ModeDefault = start;
    return source;
}

struct FormAndMode
{
    MarkupForm form;
    JSMode mode;
};

QList<FormAndMode> AllForms()
{
    QList<FormAndMode> all;
    for (const JSModeTexts& row : jsModeTexts) {
        all << FormAndMode{ MarkupForm::Today, row.mode };
        if (HasMapElement(row.mode)) {
            all << FormAndMode{ MarkupForm::TodayMapElement, row.mode };
        }
    }
    return all;
}

TodayTestPage Page(const QString& name, const FormAndMode& kind, const MapSource& source)
{
    return { name, WithTodayMap(EmptyTodayPage(name), kind.form, kind.mode, source), source.Areas };
}

/** A dead square on a linked one, a message without a link, two that overlap, in a picture at twice its
 * width. */
TodayTestPage SpecialPage(const FormAndMode& kind)
{
    MapAreas areas = { Area(AreaShape::Rectangle, { 40, 40, 80, 80 }, {}, {}),
                       Area(AreaShape::Circle, { 120, 120, 60 }, "above.html", "Above"),
                       Area(AreaShape::Rectangle, { 120, 120, 20, 20 }, "below.html", "Below"),
                       Area(AreaShape::Rectangle, { 220, 160, 380, 280 }, {}, "Orange field") };
    if (kind.mode != JSDisabled) {
        areas[3].Message =
            kind.mode == JSSwitchImages ? QStringLiteral("orange.png") : QStringLiteral("No link here");
    }
    MapSource source = Source(kind.mode, areas);
    source.Width = QStringLiteral("800");
    source.Align = QStringLiteral("right");
    return Page(NameOf(kind.form, kind.mode) + u"-special", kind, source);
}

MapSource ManyAreas(JSMode mode, int count)
{
    constexpr int columns = 25;
    MapAreas areas;
    for (int i = 0; i < count; ++i) {
        const int x = i % columns * 16;
        const int y = i / columns * 15;
        areas << Area(
            AreaShape::Rectangle, { x, y, x + 15, y + 14 }, QStringLiteral("page%1.html").arg(i),
            QStringLiteral("Field %1").arg(i));
        areas.last().Message = mode == JSDisabled       ? QString()
                               : mode == JSSwitchImages ? QStringLiteral("red.png")
                                                        : QStringLiteral("Message %1").arg(i);
    }
    return Source(mode, areas);
}

/** The same three areas in a picture that is shown half as large again. */
TodayTestPage LargerPage(const FormAndMode& kind)
{
    MapSource source = Source(kind.mode, ThreeAreas(kind.mode));
    source.Width = QStringLiteral("600");
    source.Height = QStringLiteral("450");
    return Page(NameOf(kind.form, kind.mode) + u"-larger", kind, source);
}

/** Areas as they may become by moving and typing: beside the picture, without an inside, turned over. */
TodayTestPage OddPage(const FormAndMode& kind)
{
    MapAreas areas;
    const auto add = [&areas, &kind](AreaShape shape, const QList<int>& numbers) {
        const QString name = QStringLiteral("odd%1").arg(areas.size());
        areas << Area(shape, numbers, name + u".html", name);
        areas.last().Message = kind.mode == JSDisabled       ? QString()
                               : kind.mode == JSSwitchImages ? QStringLiteral("red.png")
                                                             : name;
    };
    add(AreaShape::Rectangle, { -30, -20, 60, 40 });
    add(AreaShape::Rectangle, { 200, 100, 200, 100 });
    add(AreaShape::Rectangle, { 380, 280, 300, 200 });
    add(AreaShape::Circle, { 390, 290, 60 });
    add(AreaShape::Circle, { 100, 100, 0 });
    add(AreaShape::Circle, { -200, -200, 20 });
    add(AreaShape::Polygon, { 10, 10 });
    add(AreaShape::Polygon, { 10, 10, 90, 90 });
    add(AreaShape::Polygon, { 150, 10, 150, 10, 150, 10 });
    add(AreaShape::Polygon, { 100, 100, 200, 200, 200, 100, 100, 200, 150 });
    return Page(NameOf(kind.form, kind.mode) + u"-odd", kind, Source(kind.mode, areas));
}

const QStringList& HostileTexts()
{
    static const QStringList texts = {
        QStringLiteral("\"><script>alert(1)</script>"),
        QStringLiteral("</title></svg></p></figure><p>"),
        QStringLiteral("&amp; &lt; &#0; &copy &notit; &"),
        QStringLiteral("it's <!-- not --> a `comment` -->"),
        QStringLiteral("a b\tc%zz%41#x#y?z?[1]{2}|3^4\\5"),
        QStringLiteral("http://[bad:host/ x"),
        QStringLiteral("javascript:alert(\"<b>\")"),
        QStringLiteral("_reserved _blank"),
        QStringLiteral("\u65e5\u672c \u0645\u0631\u062d\u0628\u0627 \U0001F600 \u202e\u00e4"),
        QString(u"nul" + QString(QChar(0)) + QChar(0x85) + QChar(0xD800) + QChar(0xFFFE) + QChar(7) + u"end"),
        QStringLiteral("one<br>two<BR />three<br"),
        QStringLiteral("   "),
        QStringLiteral("]]> <![CDATA[ x ]]> <?php y ?>"),
        QStringLiteral("The long story of the house that stands on the hill. ").repeated(60),
        QStringLiteral("data:text/html"),
        QStringLiteral("//"),
        QStringLiteral("https:"),
        QStringLiteral("http://m\u00fcnchen.example:80/\u00fc?\u00fc#\u00fc"),
        QStringLiteral("mailto:"),
        QStringLiteral("C:\\Eigene Dateien\\ro\u0161a.html"),
        QStringLiteral("-->"),
        QStringLiteral("1"),
        QStringLiteral("http://1.2.3.999/"),
        QStringLiteral("file:///C|/a b"),
        QStringLiteral("::"),
        QStringLiteral("%20"),
        QStringLiteral("\u0001"),
    };
    return texts;
}

/** The text wherever a map has one. */
TodayTestPage HostilePage(const FormAndMode& kind, int number)
{
    const QString& text = HostileTexts()[number];
    MapAreas areas = ThreeAreas(kind.mode);
    for (MapArea& area : areas) {
        area.Link = text;
        area.Target = text;
        area.Text = text;
        area.Message = area.Message.isEmpty() ? QString() : text;
    }
    areas[1].Text.clear();
    areas[2].Link.clear();
    MapSource source = Source(kind.mode, areas);
    source.MapName = text;
    source.Width = text;
    source.Height = text;
    source.AltText = text;
    source.Align = text;
    source.Border = text;
    source.PictureReference = text + u".png";
    source.ModeDefault = source.ModeDefault.isEmpty() ? QString() : text;
    return Page(QStringLiteral("%1-hostile-%2").arg(NameOf(kind.form, kind.mode)).arg(number), kind, source);
}

/** The same three areas in a page that is written from right to left. */
TodayTestPage RightToLeftPage(const FormAndMode& kind)
{
    const QString name = NameOf(kind.form, kind.mode) + u"-rtl";
    const MapSource source = Source(kind.mode, ThreeAreas(kind.mode));
    const QString page = EmptyTodayPage(name).replace(
        QStringLiteral("<html lang=\"en\">"), QStringLiteral("<html lang=\"ar\" dir=\"rtl\">"));
    return { name, WithTodayMap(page, kind.form, kind.mode, source), source.Areas };
}

/** A map in a page of HTML 4, which is as valid as it was. */
TodayTestPage OldPage(const FormAndMode& kind)
{
    const MapSource source = Source(kind.mode, ThreeAreas(kind.mode));
    return { NameOf(kind.form, kind.mode) + u"-in-old",
             WithTodayMap(OldHtmlPage(), kind.form, kind.mode, source), source.Areas };
}

TodayTestPage SeveralMaps()
{
    QString page = EmptyTodayPage(QStringLiteral("several"));
    for (const FormAndMode& kind : AllForms()) {
        page = WithTodayMap(page, kind.form, kind.mode, Source(kind.mode, ThreeAreas(kind.mode)));
    }
    return { QStringLiteral("several"), page, {} };
}

} // namespace

QString EmptyTodayPage(const QString& title)
{
    return QStringLiteral("<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
                          "<meta name=\"viewport\" content=\"width=device-width\">\n<title>%1</title>\n"
                          "</head>\n<body>\n<main>\n<h1>%1</h1>\n</main>\n</body>\n</html>\n")
        .arg(title);
}

QString OldHtmlPage()
{
    return QStringLiteral("<html>\n<head><title>Harbour</title></head>\n<body>\n"
                          "<center><font size=2>Old</font></center>\n</body>\n</html>\n");
}

QString
WithTodayMap(const QString& page, MarkupForm form, JSMode mode, const MapSource& source, QSize picture)
{
    const qsizetype mainEnd = page.indexOf(QStringLiteral("</main>"));
    const qsizetype caret = mainEnd < 0 ? page.indexOf(QStringLiteral("</body>")) : mainEnd;
    const InsertPlace place = FindInsertPlace(page, { caret, 0 });
    const TodayPage context{ .Text = page,
                             .Path = {},
                             .Charset = PageCharset::Ascii,
                             .PicturePath = {},
                             .PictureSize = picture,
                             .SizeOf = [](const QString&) { return QSize(160, 120); } };
    const TodayMap map = MakeTodayMap(mode, source, context);
    const bool isSvg = form == MarkupForm::Today;
    const QString markup = isSvg ? GenerateTodayMap(mode, map) : GenerateTodayMapElement(mode, map);
    const QList<TextReplacement> changes =
        InsertMap(page, place, markup, BlocksFor(form, mode, map), QStringLiteral("\n")).changes;
    QString text = page;
    for (auto change = changes.rbegin(); change != changes.rend(); ++change) {
        text.replace(change->Place.Start, change->Place.Length, change->Text);
    }
    return text;
}

QList<TodayTestPage> SmallTodayPages()
{
    QList<TodayTestPage> pages;
    for (const FormAndMode& kind : AllForms()) {
        const QString name = NameOf(kind.form, kind.mode);
        const MapAreas areas = ThreeAreas(kind.mode);
        pages << Page(name + u"-0", kind, Source(kind.mode, {}))
              << Page(name + u"-1", kind, Source(kind.mode, areas.mid(0, 1)))
              << Page(name + u"-3", kind, Source(kind.mode, areas)) << SpecialPage(kind);
    }
    return pages << SeveralMaps();
}

QList<TodayTestPage> LargeTodayPages()
{
    QList<TodayTestPage> pages;
    for (const FormAndMode& kind : AllForms()) {
        pages << RightToLeftPage(kind) << LargerPage(kind) << OddPage(kind) << OldPage(kind);
        for (const int count : { 40, 500 }) {
            pages << Page(
                QStringLiteral("%1-%2").arg(NameOf(kind.form, kind.mode)).arg(count), kind,
                ManyAreas(kind.mode, count));
        }
        for (int i = 0; i < HostileTexts().size(); ++i) {
            pages << HostilePage(kind, i);
        }
    }
    return pages;
}
