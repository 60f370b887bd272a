// The maps of a page, with their areas and pictures.

#include "tests/mapreader/ShownMaps.h"

#include <QDir>
#include <QTest>

namespace {

/** What is odd about each map and its areas, in words. */
QString OdditiesIn(QStringView page)
{
    static const QStringList words = { "no-name",  "other-id", "duplicate", "hash",      "no-picture",
                                       "no-areas", "in-map",   "ignored",   "no-end",    "template",
                                       "shape",    "few",      "many",      "no-number", "no-address",
                                       "errors",   "cut",      "no-map" };
    const PageMaps read = ReadPageMaps(page);
    QStringList maps;
    for (const PageMap& map : read.maps) {
        const MapOddities oddities = OdditiesOf(page, read, map);
        QStringList found;
        for (int i = 0; i < words.size(); ++i) {
            if (oddities.testFlag(MapOddity(1U << unsigned(i)))) {
                found += words[i];
            }
        }
        maps += found.join(u' ');
    }
    return maps.join(QLatin1String(" | "));
}

/** The map that each picture finds, in the order of the pictures. */
QList<int> FoundBy(QStringView page)
{
    QList<int> found;
    for (const PagePicture& picture : ReadPageMaps(page).pictures) {
        found += int(picture.map);
    }
    return found;
}

} // namespace

class tst_pagemaps : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void mapsHaveTheirAreas_data();
    void mapsHaveTheirAreas();
    void mapsHaveTheirPlaces();
    void picturesFindTheirMaps_data();
    void picturesFindTheirMaps();
    void theFirstBaseWithAnAddressCounts_data();
    void theFirstBaseWithAnAddressCounts();
    void whatIsOddIsTold_data();
    void whatIsOddIsTold();
    void whatIsOddAboutAPictureIsTold();
    void placesAreInThePage_data();
    void placesAreInThePage();
    void hostilePagesTakeTheirTime_data();
    void hostilePagesTakeTheirTime();
};

void tst_pagemaps::mapsHaveTheirAreas_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("maps");
    const auto row = [](const char* name, const char* page, const char* maps) {
        QTest::newRow(name) << QString::fromUtf8(page) << QString::fromUtf8(maps);
    };
    row("nothing", "", "");
    row("no map", "<p>x<area alt=a></p>", "");
    row("plain", "<map name=m><area alt=a><area alt=b/></map><area alt=c>", "m(a b/)");
    row("upper case", "<MAP NAME=M><AREA ALT=a></MAP>", "M(a)");
    row("named by id", "<map id='m'><area alt=a></map>", "m(a)");
    row("without a name", "<map><area alt=a></map>", "(a)");
    row("closed by itself, which is nothing", "<map name=m/><area alt=a></map>", "m/(a)");
    row("several", "<map name=m><area alt=a></map><map name=n><area alt=b></map>", "m(a) n(b)");
    row("areas at any depth",
        "<map name=m><div><ul><li><a href=x>y</a><area alt=a><li><area alt=b></ul></div><area alt=c></map>",
        "m(a b c)");
    row("comments and text in it", "<map name=m><!-- <area alt=x> -->text<area alt=a></map>", "m(a)");
    row("around its picture", "<map name=m><img usemap=#m><area alt=a></map><area alt=b>", "m(a)");
    row("map in a map",
        "<map name=m><area alt=a><map name=n><area alt=b></map><area alt=c></map><area alt=d>",
        "m(a b c) n(b)");
    row("never closed", "<map name=m><area alt=a><p>text", "m(a)");
    row("ended by what is around", "<div><map name=m><area alt=a></div><area alt=b>", "m(a)");
    row("an open paragraph hides its end tag",
        "<map name=m><p><area alt=a></map><area alt=b><map name=n><area alt=c></map>", "m(a b c) n(c)");
    row("an open link does not", "<map name=m><a><area alt=a></map><area alt=b>", "m(a)");
    row("an end tag of another cell", "<table><td><map name=m><area alt=a><td><area alt=b></table>", "m(a)");
    row("a list item ends the one before", "<ul><li><map name=m><area alt=a><li><area alt=b></ul>", "m(a)");
    row("a link ends another", "<a><map name=m><area alt=a><a><area alt=b></a>", "m(a)");
    row("bold ends across", "<b><map name=m><area alt=a></b><area alt=b>", "m(a)");
    row("a form ends alone", "<form><map name=m><area alt=a></form><area alt=b></map>", "m(a b)");
    row("a stray end tag", "</map><map name=m></div></p></span><area alt=a></map>", "m(a)");
    row("a heading", "<map name=m><h2>x</h2><area alt=a></map><area alt=b>", "m(a)");
    row("in a comment", "<!-- <map name=m><area alt=a></map> -->", "");
    row("in a script", "<script>'<map name=m><area alt=a></map>'</script>", "");
    row("in a textarea", "<textarea><map name=m><area alt=a></map></textarea>", "");
    row("in a title", "<title><map name=m><area alt=a></map></title>", "");
    row("in escaped text", "<p>&lt;map name=m>&lt;area alt=a>&lt;/map></p>", "");
    row("in a template", "<template><map name=m><area alt=a></map></template><map name=n><area alt=b></map>",
        "n(b)");
    row("around a template", "<map name=m><template><area alt=x></template><area alt=a></map>", "m(a)");
    row("in a template in a template",
        "<template><template></template><map name=m></map></template><map name=n></map>", "n()");
    row("in a drawing", "<svg><map name=m><area alt=a></map></svg>", "");
    row("in HTML in a drawing", "<svg><foreignObject><map name=m><area alt=a></map></foreignObject></svg>",
        "m(a)");
    row("around a drawing", "<map name=m><svg><g><path/></g></svg><area alt=a></map><area alt=b>", "m(a)");
    row("in noscript", "<noscript><map name=m><area alt=a></map></noscript>", "m(a)");
    row("in an attribute", "<p title='<map name=m><area alt=a></map>'>", "");
    row("in plain text", "<plaintext><map name=m>", "");
    row("in a section of characters", "<svg><![CDATA[<map name=m>]]></svg>", "");
    row("in a conditional comment", "<!--[if IE]><map name=m></map><![endif]-->", "");
    row("a tag that never ends", "<map name=m><area alt=a><area alt=b", "m(a)");
    row("in a select", "<select><map name=m><area alt=a></map></select>", "m(a)");
    row("cells of no table", "<map name=m><td><area alt=a></td></map><area alt=b>", "m(a)");
    row("references in its name", "<map name='a&amp;b&eacute;'></map>", "a&b\xc3\xa9()");
}

void tst_pagemaps::mapsHaveTheirAreas()
{
    QFETCH(const QString, page);
    QTEST(MapsOf(page), "maps");
}

void tst_pagemaps::mapsHaveTheirPlaces()
{
    const QString page =
        QStringLiteral("<p><map name=m id=n><area></map ><div><map>\r\n<area></div><map><area>");
    const PageMaps read = ReadPageMaps(page);
    QCOMPARE(read.maps.size(), 3U);
    QCOMPARE(read.maps[0].tag.In(page), u"<map name=m id=n>");
    QCOMPARE(read.maps[0].endTag.In(page), u"</map >");
    QCOMPARE(read.maps[0].whole.In(page), u"<map name=m id=n><area></map >");
    QCOMPARE(read.maps[0].name, QStringLiteral("m"));
    QCOMPARE(read.maps[0].id, QStringLiteral("n"));
    QCOMPARE(read.maps[1].whole.In(page), u"<map>\r\n<area>");
    QCOMPARE(read.maps[1].endTag.In(page), u"");
    QVERIFY(read.maps[1].name.isNull() && read.maps[1].id.isNull());
    QCOMPARE(read.maps[2].whole.In(page), u"<map><area>");
    QCOMPARE(read.areas.size(), 3U);
    QCOMPARE(read.maps[2].firstArea, 2);
}

void tst_pagemaps::picturesFindTheirMaps_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QList<int>>("found");
    const QString maps =
        QStringLiteral("<map name=a></map><map id=b></map><map name=a></map><map name='#a'></map>"
                       "<map name=' c '></map><map name=''></map><map name=d id=e></map>");
    const auto row = [&maps](const char* usemap, int found) {
        QTest::newRow(usemap) << QString(u"<img usemap='" + QLatin1String(usemap) + u"'>" + maps)
                              << QList<int>{ found };
    };
    row("#a", 0);
    row("#b", 1);
    row("page.html#a", 0);
    row("\n\t #a", 0);
    row("##a", 3);
    row("#A", -1);
    row("#a ", -1);
    row("# c ", 4);
    row("#c", -1);
    row("a", -1);
    row("#", -1);
    row("", -1);
    row("#d", 6);
    row("#e", 6);
    row("#&#97;", 0);
    row("#%61", -1);
    QTest::newRow("pictures of any kind")
        << QString(u"<img><IMG USEMAP=#a><image usemap=#b><svg><image usemap=#a /></svg><img usemap>" + maps)
        << QList<int>{ 0, 1, -1 };
    QTest::newRow("behind the map") << QString(maps + u"<a href=x><img ismap usemap=#a src=y></a>")
                                    << QList<int>{ 0 };
    QTest::newRow("an id before a name")
        << QString("<map id=x></map><map name=x></map><img usemap=#x>") << QList<int>{ 0 };
    QTest::newRow("in a template") << QString("<template><img usemap=#a></template>") << QList<int>();
    QTest::newRow("a map in a template")
        << QString("<template><map name=a></map></template><img usemap=#a>") << QList<int>{ -1 };
}

void tst_pagemaps::picturesFindTheirMaps()
{
    QFETCH(const QString, page);
    QTEST(FoundBy(page), "found");
}

void tst_pagemaps::theFirstBaseWithAnAddressCounts_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("base");
    QTest::newRow("none") << "<p>" << QString();
    QTest::newRow("one") << "<base href='a&amp;b/'>"
                         << "a&b/";
    QTest::newRow("target first") << "<base target=x><base href=a><base href=b>"
                                  << "a";
    QTest::newRow("in the body") << "<body><p><base href=a>"
                                 << "a";
    QTest::newRow("in a template") << "<template><base href=a></template>" << QString();
    QTest::newRow("empty") << "<base href=''><base href=a>"
                           << "";
}

void tst_pagemaps::theFirstBaseWithAnAddressCounts()
{
    QFETCH(const QString, page);
    const PageMaps read = ReadPageMaps(page);
    QTEST(read.base, "base");
    QCOMPARE(read.baseTag.length > 0, !read.base.isNull());
}

void tst_pagemaps::whatIsOddIsTold_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("oddities");
    const auto row = [](const char* name, const char* page, const char* oddities) {
        QTest::newRow(name) << QString::fromUtf8(page) << QString::fromUtf8(oddities);
    };
    const auto area = [&row](const char* name, const char* attributes, const char* oddities) {
        const QByteArray page =
            QByteArray("<img usemap=#m><map name=m><area href=x ") + attributes + "></map>";
        row(name, page.constData(), oddities);
    };
    row("nothing", "<img usemap=#m><map name=m><area href=x coords=1,2,3,4></map>", "");
    row("no picture", "<map name=m><area href=x coords=1,2,3,4></map>", "no-picture");
    row("no name", "<map><area href=x coords=1,2,3,4></map>", "no-name no-picture");
    row("empty name", "<map name=''><area href=x coords=1,2,3,4></map>", "no-name no-picture");
    row("no areas", "<img usemap=#m><map name=m></map>", "no-areas");
    row("no end tag", "<img usemap=#m><map name=m>", "no-areas no-end");
    row("id and name differ", "<img usemap=#m><map name=m id=n></map>", "other-id no-areas");
    row("hash", "<img usemap=##m><map name='#m'></map>", "hash no-areas");
    row("duplicate", "<img usemap=#m><map name=m></map><map name=m></map>",
        "no-areas | duplicate no-picture no-areas");
    row("duplicate of an id", "<img usemap=#m><map id=m></map><map name=m id=n></map>",
        "no-areas | other-id duplicate no-picture no-areas");
    row("in a map", "<img usemap=#m><img usemap=#n><map name=m><map name=n></map></map>",
        "no-areas | no-areas in-map");
    row("end tag ignored", "<img usemap=#m><map name=m><p></map>", "no-areas ignored no-end");
    row("template", "<img usemap='#{{x}}'><map name='{{x}}'></map>", "no-areas template");
    area("few", "shape=poly coords=1,2,3,4", "few");
    area("no coordinates", "", "few");
    area("default takes none", "shape=default", "");
    area("default takes none though there are some", "shape=default coords=1", "many");
    area("many", "shape=circle coords=1,2,3,4", "many");
    area("odd number of a polygon", "shape=poly coords=1,2,3,4,5,6,7", "many");
    area("no numbers", "coords=1,2px,3,4", "no-number");
    area("unknown shape", "shape=square coords=1,2,3,4", "shape");
    area("errors", "coords=1,2,3,4 onclick='x';", "errors");
    area("namesakes", "coords=1,2,3,4 href=y", "errors");
    area("template in an area", "coords=1,2,3,4 alt='{{x}}'", "template");
    area("cut by a template", "coords=1,2,3,4 <?php $a->b ?> alt=y", "template errors cut");
    row("leads nowhere", "<img usemap=#m><map name=m><area nohref coords=1,2,3,4></map>", "no-address");
}

void tst_pagemaps::whatIsOddIsTold()
{
    QFETCH(const QString, page);
    QTEST(OdditiesIn(page), "oddities");
}

void tst_pagemaps::whatIsOddAboutAPictureIsTold()
{
    const QString page = QStringLiteral("<map name=m></map><img usemap=#m><img usemap=#n src='{{x}}'>");
    const PageMaps read = ReadPageMaps(page);
    QCOMPARE(OdditiesOf(page, read.pictures[0]), MapOddities());
    QCOMPARE(OdditiesOf(page, read.pictures[1]), MapOddity::NoMap | MapOddity::HoldsTemplate);
}

void tst_pagemaps::placesAreInThePage_data()
{
    QTest::addColumn<QString>("path");
    for (const QString& folder : { QStringLiteral("pages"), QStringLiteral("../html/pages") }) {
        const QDir pages(QString(QT_TESTCASE_SOURCEDIR) + u'/' + folder);
        for (const QString& name : pages.entryList(QDir::Files, QDir::Name)) {
            QTest::newRow(qPrintable(folder + u'/' + name)) << pages.filePath(name);
        }
    }
}

void tst_pagemaps::placesAreInThePage()
{
    QFETCH(const QString, path);
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QString page = QString::fromUtf8(file.readAll());
    const PageMaps read = ReadPageMaps(page);
    qsizetype last = -1;
    for (const PageMap& map : read.maps) {
        QVERIFY(map.whole.offset > last && map.whole.End() <= page.size());
        QVERIFY(map.tag.In(page).startsWith(u"<map", Qt::CaseInsensitive));
        QVERIFY(map.endTag.length == 0 || map.endTag.In(page).startsWith(u"</map", Qt::CaseInsensitive));
        QCOMPARE(map.endTag.End(), map.whole.End());
        for (qsizetype i = map.firstArea; i < map.firstArea + map.areaCount; ++i) {
            const HtmlSpan area = read.areas[std::size_t(i)];
            QVERIFY(area.offset > map.tag.offset && area.End() <= map.whole.End());
            QVERIFY(area.In(page).startsWith(u"<area", Qt::CaseInsensitive));
        }
        last = map.whole.offset;
    }
    for (const PagePicture& picture : read.pictures) {
        QVERIFY(picture.tag.In(page).startsWith(u"<im", Qt::CaseInsensitive));
        QCOMPARE(picture.map, read.Find(picture.usemap));
    }
}

void tst_pagemaps::hostilePagesTakeTheirTime_data()
{
    QTest::addColumn<QString>("page");
    constexpr qsizetype many = 10'000;
    const auto row = [](const char* name, const QString& begin, const QString& repeated, const QString& end) {
        QTest::newRow(name) << QString(begin + repeated.repeated(many) + end);
    };
    row("maps in maps", "", "<map name=m><area>", "");
    row("maps in maps that end", "", "<map name=m><area>", QStringLiteral("</map>").repeated(many));
    row("open formatting", "", "<b><map>", QStringLiteral("</b>").repeated(many));
    row("formatting around blocks", "", "<b><div><map>", QStringLiteral("</b></div>").repeated(many));
    row("links in links", "", "<a><map><p>", "");
    row("open blocks", "<map>", "<div>", QStringLiteral("</map></b></x></p></td>").repeated(many));
    row("tables in tables", "", "<table><td><map>", QStringLiteral("</table>").repeated(many));
    row("drawings in drawings", "", "<svg><foreignObject><map>", QStringLiteral("</svg>").repeated(many));
    row("templates", "", "<template>", "<map></template>");
    row("items", "<ul>", "<li><map><p>", "");
    row("attributes", "<map name=m><area ", "a=b a ", "></map>");
    row("one value", "<map name=m><area alt='", "<?{{<%", "'></map><img usemap=#m>");
    row("pictures", "<map name=m></map>", "<img usemap=#m>", "");
    row("forms", "", "<form><map>", QStringLiteral("</form>").repeated(many));
}

/** What grows faster than its input would take hours here. */
void tst_pagemaps::hostilePagesTakeTheirTime()
{
    QFETCH(const QString, page);
    const PageMaps read = ReadPageMaps(page);
    for (const PageMap& map : read.maps) {
        QVERIFY(map.whole.End() <= page.size());
        QVERIFY(map.firstArea + map.areaCount <= qsizetype(read.areas.size()));
    }
    for (const HtmlSpan& area : read.areas) {
        (void)OdditiesOfArea(page, area);
    }
}

QTEST_GUILESS_MAIN(tst_pagemaps)
#include "tst_pagemaps.moc"
