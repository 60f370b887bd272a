// Whatever this program writes comes back as the same map, and is written the same again.

#include "OwnMaps.h"
#include "tests/codegen/TodayPages.h"

#include <QTest>
#include <algorithm>

namespace {

constexpr std::array counts = { 0, 1, 3, 40 };
constexpr std::array charsets = { PageCharset::Ascii, PageCharset::Windows1252, PageCharset::Unicode };

QString Around(const QString& markup)
{
    return QStringLiteral("<html><body>\r\n<p>\"Before\" <!-- it\r\n") + u"-->\r\n" + markup +
           u"\r\n<p>Behind <b>it</b>\r\n</body></html>\r\n";
}

/** Where a text stands in a page, without the line ends at its end. */
HtmlSpan PlaceOf(const QString& page, QString text)
{
    while (text.endsWith(u'\n') || text.endsWith(u'\r')) {
        text.chop(1);
    }
    return { page.indexOf(text), text.size() };
}

QString Described(JSMode mode, int count, const QString& text)
{
    return QStringLiteral("mode %1, %2 areas, \"%3\"").arg(mode).arg(count).arg(text);
}

} // namespace

class tst_ownmaps : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void html4MapComesBack_data();
    void html4MapComesBack();
    void todaysMapComesBack_data();
    void todaysMapComesBack();
    void pagesOfTheGeneratorsComeBack();
    void areasThatOverlapKeepTheirOrder();
    void areaForAllThatIsLeftComesBackAsItsRectangle();
    void lineEndsOfAnyKindAreTheSame_data();
    void lineEndsOfAnyKindAreTheSame();
    void mapChangedByHandIsLikeAnyOther_data();
    void mapChangedByHandIsLikeAnyOther();
    void whatWasChangedByHandWithinTheFormIsRead();
    void shapesChangedByHandAreNotRead_data();
    void shapesChangedByHandAreNotRead();
    void severalMapsOfAPageAreTold();
    void whatIsNoMarkupIsNoMap();
    void caretFindsItsMap();
};

void tst_ownmaps::html4MapComesBack_data()
{
    QTest::addColumn<int>("mode");
    for (const JSModeTexts& row : jsModeTexts) {
        QTest::addRow("mode %d", int(row.mode)) << int(row.mode);
    }
}

void tst_ownmaps::html4MapComesBack()
{
    QFETCH(const int, mode);
    const auto jsMode = JSMode(mode);
    for (const int count : counts) {
        for (const QString& text : OddTexts()) {
            for (const bool hasAll : { false, true }) {
                MapSource source = OddSource(jsMode, count, text, hasAll);
                for (MapArea& area : source.Areas) {
                    area.Text.clear(); // it is in no such map
                }
                const QString written = GenerateMapFor(jsMode, source);
                const QString page = Around(written);
                const HtmlSpan place = PlaceOf(page, written);
                const auto read = ReadOwnMap(page, place);
                QVERIFY2(read, qPrintable(Described(jsMode, count, text) + u'\n' + written));
                QCOMPARE(read->form, MarkupForm::Html4);
                QCOMPARE(read->place, place);
                QCOMPARE(GenerateMapFor(read->mode, read->source), written);
                QCOMPARE(Bare(read->source.Areas), source.Areas);
                QCOMPARE(read->source.MapName, source.MapName);
                QCOMPARE(read->source.AltText, source.AltText);
                QCOMPARE(read->source.FileNamesOnly, source.FileNamesOnly);
                QCOMPARE(read->source.Align, source.Align);
                QCOMPARE(read->source.HorizontalSpace, source.HorizontalSpace);
                QCOMPARE(read->source.ModeDefault, source.ModeDefault);
                const bool hasMessages = std::ranges::any_of(
                    source.Areas, [](const MapArea& area) { return !area.Message.isEmpty(); });
                QCOMPARE(read->mode, jsMode == JSStatusBar && !hasMessages ? JSDisabled : jsMode);
            }
        }
    }
}

void tst_ownmaps::todaysMapComesBack_data()
{
    QTest::addColumn<int>("form");
    QTest::addColumn<int>("mode");
    for (const JSModeTexts& row : jsModeTexts) {
        QTest::addRow("shapes, mode %d", int(row.mode)) << int(MarkupForm::Today) << int(row.mode);
        if (HasMapElement(row.mode)) {
            QTest::addRow("element, mode %d", int(row.mode))
                << int(MarkupForm::TodayMapElement) << int(row.mode);
        }
    }
}

void tst_ownmaps::todaysMapComesBack()
{
    QFETCH(const int, form);
    QFETCH(const int, mode);
    const auto markupForm = MarkupForm(form);
    const auto jsMode = JSMode(mode);
    for (const int count : counts) {
        for (const QString& text : count == 40 ? OddTexts().mid(0, 3) : OddTexts()) {
            for (const PageCharset charset : charsets) {
                const MapSource source = OddSource(jsMode, count, text, charset == PageCharset::Ascii);
                const QString written = TodayMarkup(markupForm, jsMode, source, charset);
                const QString page = Around(written);
                const HtmlSpan place = PlaceOf(page, written);
                const auto read = ReadOwnMap(page, place);
                // A picture alone says nothing of a map.
                QCOMPARE(read.has_value(), count > 0);
                if (count == 0) {
                    continue;
                }
                QCOMPARE(read->form, markupForm);
                QCOMPARE(read->place, place);
                const QString again = markupForm == MarkupForm::Today
                                          ? GenerateTodayMap(read->mode, read->today)
                                          : GenerateTodayMapElement(read->mode, read->today);
                QCOMPARE(again, written);
                QCOMPARE(read->source.Areas.size(), source.Areas.size());
                QCOMPARE(read->source.Align, source.Align);
                const auto same = UpdateMap(page, *read, read->mode, read->source, SomePage(charset));
                QVERIFY(same && same->changes.isEmpty());
                if (text == OddTexts().constFirst()) {
                    const QString fromFields =
                        TodayMarkup(markupForm, read->mode, read->source, charset, read->coordinateSize);
                    QCOMPARE(fromFields, written);
                }
            }
        }
    }
}

void tst_ownmaps::pagesOfTheGeneratorsComeBack()
{
    const QList<TodayTestPage> pages = SmallTodayPages() + LargeTodayPages();
    int read = 0;
    for (const TodayTestPage& page : pages) {
        if (page.Areas.isEmpty()) {
            continue;
        }
        const auto map = OnlyMap(page.Text);
        QVERIFY2(map, qPrintable(page.Name));
        QVERIFY2(map->form.has_value(), qPrintable(page.Name));
        const auto same = UpdateMap(page.Text, *map, map->mode, map->source, SomePage());
        QVERIFY2(same && same->changes.isEmpty(), qPrintable(page.Name));
        ++read;
    }
    QVERIFY(read > 200);
}

void tst_ownmaps::areasThatOverlapKeepTheirOrder()
{
    for (const JSMode mode : { JSDisabled, JSTextArea }) {
        MapSource source = OddSource(mode, 0, QStringLiteral("x"), false);
        for (int i = 0; i < 8; ++i) {
            MapArea area = OddArea(0, QString::number(i), mode);
            area.Coordinates = { 10 * i, 10 * i, 10 * i + 25, 10 * i + 25 };
            source.Areas << area;
        }
        std::swap(source.Areas[2], source.Areas[6]);
        const auto read = OnlyMap(TodayMarkup(MarkupForm::Today, mode, source));
        QVERIFY(read && read->form == MarkupForm::Today);
        // Those that overlap lie on each other as before, whichever way the others are put.
        QCOMPARE(
            TodayMarkup(MarkupForm::Today, mode, read->source), TodayMarkup(MarkupForm::Today, mode, source));
        if (mode == JSTextArea) {
            QCOMPARE(Bare(read->source.Areas), source.Areas);
        }
    }
}

void tst_ownmaps::areaForAllThatIsLeftComesBackAsItsRectangle()
{
    MapSource source = OddSource(JSDisabled, 3, QStringLiteral("x"), false);
    MapArea rest;
    rest.Shape = AreaShape::Default;
    rest.Link = QStringLiteral("rest.html");
    source.Areas.prepend(rest);
    const QString html4 = GenerateMapFor(JSDisabled, source);
    const auto fromHtml4 = OnlyMap(html4);
    QVERIFY(fromHtml4 && fromHtml4->form == MarkupForm::Html4);
    QCOMPARE(fromHtml4->source.Areas.constFirst().Shape, AreaShape::Default);
    for (const MarkupForm form : { MarkupForm::Today, MarkupForm::TodayMapElement }) {
        const QString written = TodayMarkup(form, JSDisabled, source);
        const auto read = OnlyMap(written);
        QVERIFY(read && read->form == form);
        const MapArea whole = read->source.Areas.constLast();
        QCOMPARE(whole.Coordinates, (QList<int>{ 0, 0, 400, 300 }));
        QCOMPARE(TodayMarkup(form, JSDisabled, read->source), written);
    }
}

void tst_ownmaps::lineEndsOfAnyKindAreTheSame_data()
{
    QTest::addColumn<QString>("end");
    QTest::newRow("LF") << "\n";
    QTest::newRow("CR") << "\r";
    QTest::newRow("CR LF") << "\r\n";
}

void tst_ownmaps::lineEndsOfAnyKindAreTheSame()
{
    QFETCH(const QString, end);
    const MapSource source = OddSource(JSTextArea, 3, QStringLiteral("one<br>two"), true);
    for (QString page : { GenerateMapFor(JSTextArea, source).remove(u'\r'),
                          TodayMarkup(MarkupForm::Today, JSTextArea, source),
                          TodayMarkup(MarkupForm::TodayMapElement, JSStatusBar, source) }) {
        page.replace(u'\n', end);
        const auto map = OnlyMap(page);
        QVERIFY(map && map->form);
        MapSource now = map->source;
        now.Areas.removeAt(1);
        const auto update = UpdateMap(page, *map, map->mode, now, SomePage());
        QVERIFY(update);
        const QString changed = Replaced(page, update->changes);
        QCOMPARE(changed.count(u'\n'), end.contains(u'\n') ? changed.count(end) : 0);
        QCOMPARE(changed.count(u'\r'), end.contains(u'\r') ? changed.count(end) : 0);
        const auto again = OnlyMap(changed);
        QVERIFY(again && again->form);
        QCOMPARE(again->source.Areas.size(), now.Areas.size());
        QCOMPARE(again->place, update->after.place);
    }
}

void tst_ownmaps::mapChangedByHandIsLikeAnyOther_data()
{
    QTest::addColumn<int>("form");
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    const auto row = [](const char* name, MarkupForm form, const char* before, const char* after) {
        QTest::newRow(name) << int(form) << QString::fromLatin1(before) << QString::fromLatin1(after);
    };
    row("an attribute more", MarkupForm::Html4, "HREF=\"p0", "TITLE=\"x\" HREF=\"p0");
    row("other case", MarkupForm::Html4, "<AREA SHAPE=RECT", "<area shape=RECT");
    row("a blank more", MarkupForm::Html4, "SHAPE=RECT ", "SHAPE=RECT  ");
    row("a line more", MarkupForm::Html4, "</MAP>", "<!-- mine -->\r\n</MAP>");
    row("another attribute of the picture", MarkupForm::Html4, " BORDER=", " ID=plan BORDER=");
    row("an attribute more", MarkupForm::TodayMapElement, "href=\"p0", "rel=\"next\" href=\"p0");
    row("a comment", MarkupForm::TodayMapElement, "</map>", "<!-- mine -->\n</map>");
    row("a number that is none", MarkupForm::TodayMapElement, "coords=\"0,", "coords=\"0.5,");
}

void tst_ownmaps::mapChangedByHandIsLikeAnyOther()
{
    QFETCH(const int, form);
    QFETCH(const QString, before);
    QFETCH(const QString, after);
    const MapSource source = OddSource(JSDisabled, 3, QStringLiteral("x"), false);
    QString page = MarkupForm(form) == MarkupForm::Html4
                       ? GenerateMapFor(JSDisabled, source)
                       : TodayMarkup(MarkupForm::TodayMapElement, JSDisabled, source);
    QVERIFY(page.contains(before));
    page.replace(before, after);
    const auto map = OnlyMap(page);
    QVERIFY(map);
    QVERIFY(!map->form.has_value());
    QCOMPARE(map->source.Areas.size(), 3);
    QCOMPARE(map->source.Areas[1].Shape, AreaShape::Circle);
    QCOMPARE(map->source.Width, QStringLiteral("400"));
    const auto same = UpdateMap(page, *map, map->mode, map->source, SomePage());
    QVERIFY(same && same->changes.isEmpty());
}

void tst_ownmaps::whatWasChangedByHandWithinTheFormIsRead()
{
    const MapSource source = OddSource(JSTextArea, 3, QStringLiteral("x"), false);
    const auto html4 =
        OnlyMap(GenerateMapFor(JSTextArea, source).replace("p0.html", "q.html").replace("m1 x", "other"));
    QVERIFY(html4 && html4->form == MarkupForm::Html4);
    QCOMPARE(html4->source.Areas[0].Link, QStringLiteral("q.html?q=x"));
    QCOMPARE(html4->source.Areas[1].Message, QStringLiteral("other"));
    const auto shapes = OnlyMap(TodayMarkup(MarkupForm::Today, JSTextArea, source)
                                    .replace("p0.html", "q.html")
                                    .replace("\">m1 x", "\">other")
                                    .replace("r=\"7\"", "r=\"8\""));
    QVERIFY(shapes && shapes->form == MarkupForm::Today);
    QCOMPARE(shapes->source.Areas[0].Link, QStringLiteral("q.html?q=x"));
    QCOMPARE(shapes->source.Areas[1].Message, QStringLiteral("other"));
    QCOMPARE(shapes->source.Areas[1].Coordinates.constLast(), 8);
}

void tst_ownmaps::shapesChangedByHandAreNotRead_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    const auto row = [](const char* name, const char* before, const char* after) {
        QTest::newRow(name) << QString::fromLatin1(before) << QString::fromLatin1(after);
    };
    row("an attribute more", "<circle ", "<circle class=\"x\" ");
    row("another element", "</svg>", "<ellipse rx=\"1\"/>\n</svg>");
    row("a fraction", "r=\"7\"", "r=\"7.5\"");
    row("other text", "</span>", "text</span>");
    row("no end", "</p>", "");
}

void tst_ownmaps::shapesChangedByHandAreNotRead()
{
    QFETCH(const QString, before);
    QFETCH(const QString, after);
    QString page =
        TodayMarkup(MarkupForm::Today, JSDisabled, OddSource(JSDisabled, 3, QStringLiteral("x"), false));
    QVERIFY(page.contains(before));
    page.replace(before, after);
    const PageMaps maps = ReadPageMaps(page);
    const std::vector<MapPlace> places = MapPlacesOf(page, maps);
    QCOMPARE(places.size(), std::size_t(1));
    QVERIFY(!ReadMap(page, maps, places.front()));
}

void tst_ownmaps::severalMapsOfAPageAreTold()
{
    QString page = QStringLiteral("<body>\n");
    QList<MarkupForm> forms;
    for (const JSModeTexts& row : jsModeTexts) {
        MapSource source = OddSource(row.mode, 3, QStringLiteral("text"), true);
        source.MapName = QStringLiteral("m%1").arg(forms.size());
        page += GenerateMapFor(row.mode, source).remove(u'\r') + u"\n<hr>\n";
        page += TodayMarkup(MarkupForm::Today, row.mode, source) + u"<hr>\n";
        forms << MarkupForm::Html4 << MarkupForm::Today;
        if (HasMapElement(row.mode)) {
            page += TodayMarkup(MarkupForm::TodayMapElement, row.mode, source);
            forms << MarkupForm::TodayMapElement;
        }
    }
    page += QStringLiteral("<map name=other><area href=a></map>");
    const PageMaps maps = ReadPageMaps(page);
    const std::vector<MapPlace> places = MapPlacesOf(page, maps);
    QCOMPARE(places.size(), std::size_t(forms.size() + 1));
    for (qsizetype i = 0; i < forms.size(); ++i) {
        const auto map = ReadMap(page, maps, places[std::size_t(i)]);
        QVERIFY(map);
        QCOMPARE(map->form, forms[i]);
        QCOMPARE(map->source.Areas.size(), 3);
        QCOMPARE(MapAt(places, maps, map->place.offset + map->place.length / 2), i);
    }
    const auto other = ReadMap(page, maps, places.back());
    QVERIFY(other && !other->form);
    QCOMPARE(other->source.MapName, QStringLiteral("other"));
}

void tst_ownmaps::whatIsNoMarkupIsNoMap()
{
    const MapSource source = OddSource(JSDisabled, 1, QStringLiteral("x"), false);
    const QString svg = TodayMarkup(MarkupForm::Today, JSDisabled, source);
    const QString html4 = GenerateMapFor(JSDisabled, source);
    for (const QString& page :
         { QString(u"<textarea>" + svg + u"</textarea>"), QString(u"<script>" + svg + u"</script>"),
           QString(u"<!-- " + svg + u" -->"), QString(u"<xmp>" + html4 + u"</xmp>"),
           QString(u"<title>" + html4 + u"</title>") }) {
        QVERIFY2(MapPlacesOf(page, ReadPageMaps(page)).empty(), qPrintable(page));
    }
}

void tst_ownmaps::caretFindsItsMap()
{
    const QString page = QStringLiteral("<img usemap=#b><map name=a><area></map> x <map name=b>"
                                        "<map name=c></map></map><img usemap=#d>");
    const PageMaps maps = ReadPageMaps(page);
    const std::vector<MapPlace> places = MapPlacesOf(page, maps);
    const auto nameAt = [&](const char* what, qsizetype by) {
        const qsizetype found = MapAt(places, maps, page.indexOf(QLatin1String(what)) + by);
        return found < 0 ? QString() : maps.maps[std::size_t(places[std::size_t(found)].map)].name;
    };
    QCOMPARE(nameAt("<map name=a>", 0), QStringLiteral("a"));
    QCOMPARE(nameAt("<area>", 2), QStringLiteral("a"));
    QCOMPARE(nameAt(" x ", 0), QStringLiteral("a"));
    QCOMPARE(nameAt(" x ", 1), QString());
    QCOMPARE(nameAt("<map name=b>", 3), QStringLiteral("b"));
    QCOMPARE(nameAt("<map name=c>", 3), QStringLiteral("c"));
    QCOMPARE(nameAt("<img usemap=#b>", 3), QStringLiteral("b"));
    QCOMPARE(nameAt("<img usemap=#d>", 3), QString());
}

QTEST_GUILESS_MAIN(tst_ownmaps)
#include "tst_ownmaps.moc"
