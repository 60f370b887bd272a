// Pictures of a page that have no map get one.

#include "OwnMaps.h"
#include "mapback/NewMap.h"
#include "mapback/PageMapReading.h"

#include <QTest>

namespace {

constexpr QSize pictureSize(300, 200);

QString Text(const char* text)
{
    return QString::fromUtf8(text);
}

/** The first picture of the page that has no map, with a picture of 300 by 200 in the editor. */
ReturnedMap PictureOf(const QString& page)
{
    const PageMaps maps = ReadPageMaps(page);
    std::vector<HtmlSpan> tags = maps.plainPictures;
    for (const PagePicture& picture : maps.pictures) {
        if (picture.map < 0) {
            tags.push_back(picture.tag);
        }
    }
    ReturnedMap map = ReadPicture(page, tags.at(0));
    (void)FitToPicture(map, pictureSize);
    return map;
}

MapAreas TwoAreas()
{
    MapArea one;
    one.Coordinates = { 1, 2, 30, 40 };
    one.Link = QStringLiteral("a.htm?x&y");
    one.Text = QStringLiteral("A \"quay\"");
    MapArea other;
    other.Shape = AreaShape::Circle;
    other.Coordinates = { 100, 90, 20 };
    other.Link = QStringLiteral("b.htm");
    other.Message = QStringLiteral("Bee");
    return { one, other };
}

struct Added
{
    QString page;
    std::optional<MapUpdate> update;
};

/** The page once its picture has two areas, and what `change` does besides. */
template<class Change> Added AddedTo(const QString& page, Change change)
{
    const ReturnedMap map = PictureOf(page);
    MapSource now = map.source;
    now.Areas = TwoAreas();
    now.MapName = NameOfNewMap(page, map, QStringLiteral("m"));
    change(now);
    std::optional<MapUpdate> update = UpdateMap(page, map, JSStatusBar, now, SomePage());
    const QString changed = update ? Replaced(page, update->changes) : QStringLiteral("cannot");
    return { changed, std::move(update) };
}

Added AddedTo(const QString& page)
{
    return AddedTo(page, [](MapSource&) {});
}

} // namespace

class tst_newmaps : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void mapStandsBehindThePicture_data();
    void mapStandsBehindThePicture();
    void areasAreWrittenLikeThePicture_data();
    void areasAreWrittenLikeThePicture();
    void pageHasTheMapAfterwards();
    void secondUpdateWritesWhatChangedAlone();
    void nameIsUnique();
    void nameThatThePictureAsksForStays();
    void fieldsOfThePictureAreWritten();
    void coordinatesAreInTheShownSize();
    void refusedPictures_data();
    void refusedPictures();
    void codeIsNotChanged_data();
    void codeIsNotChanged();
};

void tst_newmaps::mapStandsBehindThePicture_data()
{
    QTest::addColumn<QString>("page"); // with the map at "@", or "#" where it is within a line
    const auto row = [](const char* name, const char* page) { QTest::newRow(name) << Text(page); };
    row("line", "<p>One\r\n  <img src=\"a.png\">@\r\n</p>");
    row("end of the page", "<p>One</p>\n<img src=\"a.png\">@");
    row("blanks behind", "\n\t<img src=\"a.png\">@ \t\nx");
    row("comment behind", "\n<img src=\"a.png\"> <!-- the plan -->@\nx");
    row("old line ends", "x\r <img src=\"a.png\">@\ry");
    row("paragraph", "x\r\n  <p><img src=\"a.png\"></p>@\r\ny");
    row("marks in a paragraph", "x\n <p>a <b><i><img src=\"a.png\"></i> b</b> c</p>@\ny");
    row("heading", "x\n<h1><img src=\"a.png\"> Plan</h1>@\n");
    row("paragraph over lines", "x\n<p><img src=\"a.png\"> text\ntext</p>@\n");
    row("figure", "x\n<figure>\n <img src=\"a.png\">@\n <figcaption>A</figcaption></figure>");
    row("picture element", "x\n<picture><source srcset=b>\n  <img src=\"a.png\">\n</picture>@\ny");
    row("pre", "x\n<pre>\na <img src=\"a.png\">\n</pre>@\n");
    row("other map", "x\n<map name=o>\n<img src=\"a.png\">\n<area href=o></map>@\n");
    row("open paragraph", "x\n<p><img src=\"a.png\">@\n<p>y");
    row("within a line", "<div>a <img src=\"a.png\"># b</div>\n");
    row("cells", "<tr><td><img src=\"a.png\">#</td><td>b</td></tr>\n");
    row("list", "<ul>\n<li><img src=\"a.png\"># one <li>two</ul>");
    row("picture element in a line", "<div><picture><img src=\"a.png\"></picture># b</div>\n");
    row("pre without an end", "<pre>\n<img src=\"a.png\">#\n");
    row("ended by another", "<div>x <p><img src=\"a.png\"># y</div>\n");
    row("no element of text", "<div><img src=\"a.png\">#</div>\n");
}

void tst_newmaps::mapStandsBehindThePicture()
{
    QFETCH(const QString, page);
    const bool isInLine = page.contains(u'#');
    const QChar mark = isInLine ? u'#' : u'@';
    QString bare = page;
    bare.remove(mark);
    const Added added = AddedTo(bare);
    QVERIFY(added.update);
    QString written = added.page;
    written.remove(QStringLiteral(" usemap=\"#m\""));
    const qsizetype place = page.indexOf(mark);
    QCOMPARE(written.first(place), bare.first(place));
    QCOMPARE(written.last(bare.size() - place), bare.sliced(place));
    const QString map = written.sliced(place, written.size() - bare.size());
    QVERIFY2(map.trimmed().startsWith(u"<map name=\"m\">"), qPrintable(map));
    QVERIFY2(map.endsWith(u"</map>"), qPrintable(map));
    QCOMPARE(map.contains(u'\n') || map.contains(u'\r'), !isInLine);
    QCOMPARE(added.page.count(u"usemap"), 1);
}

void tst_newmaps::areasAreWrittenLikeThePicture_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("changed");
    QTest::newRow("small") << Text("x\r\n  <img src=\"a.png\">\r\n")
                           << Text("x\r\n  <img src=\"a.png\" usemap=\"#m\">\r\n"
                                   "  <map name=\"m\">\r\n"
                                   "    <area shape=\"rect\" coords=\"1,2,30,40\" href=\"a.htm?x&amp;y\" "
                                   "alt=\"A &quot;quay&quot;\">\r\n"
                                   "    <area shape=\"circle\" coords=\"100,90,20\" href=\"b.htm\" "
                                   "alt=\"Bee\" title=\"Bee\">\r\n"
                                   "  </map>\r\n");
    QTest::newRow("capitals without quotes")
        << Text("x\n<IMG SRC=a.png BORDER=0>\n")
        << Text("x\n<IMG SRC=a.png BORDER=0 USEMAP=#m>\n"
                "<MAP NAME=m>\n"
                "  <AREA SHAPE=rect COORDS=1,2,30,40 HREF=a.htm?x&amp;y ALT=\"A &quot;quay&quot;\">\n"
                "  <AREA SHAPE=circle COORDS=100,90,20 HREF=b.htm ALT=Bee TITLE=Bee>\n"
                "</MAP>\n");
    QTest::newRow("slash and single quotes")
        << Text("<p>x</p>\n<p><img src='a.png' alt=''/></p>\n")
        << Text("<p>x</p>\n<p><img src='a.png' alt='' usemap='#m'/></p>\n"
                "<map name='m'>\n"
                "  <area shape='rect' coords='1,2,30,40' href='a.htm?x&amp;y' alt='A \"quay\"'/>\n"
                "  <area shape='circle' coords='100,90,20' href='b.htm' alt='Bee' title='Bee'/>\n"
                "</map>\n");
    QTest::newRow("within a line")
        << Text("<td><img\n  src=\"a.png\"\n  alt=\"x\"\n/></td>")
        << Text("<td><img\n  src=\"a.png\"\n  alt=\"x\"\n  usemap=\"#m\"\n/><map name=\"m\">"
                "<area shape=\"rect\" coords=\"1,2,30,40\" href=\"a.htm?x&amp;y\" alt=\"A "
                "&quot;quay&quot;\" />"
                "<area shape=\"circle\" coords=\"100,90,20\" href=\"b.htm\" alt=\"Bee\" title=\"Bee\" />"
                "</map></td>");
}

void tst_newmaps::areasAreWrittenLikeThePicture()
{
    QFETCH(const QString, page);
    QFETCH(const QString, changed);
    QCOMPARE(AddedTo(page).page, changed);
}

void tst_newmaps::pageHasTheMapAfterwards()
{
    for (const char* const page : { "<img src=a.png>", "x\r\n<p><b><img src=a.png></b></p>\r\ny" }) {
        const Added added = AddedTo(Text(page));
        QVERIFY(added.update);
        const PageMaps maps = ReadPageMaps(added.page);
        QCOMPARE(maps.maps.size(), std::size_t(1));
        const ReturnedMap read = ReadPageMap(added.page, maps, 0);
        const ReturnedMap& after = added.update->after;
        QCOMPARE(after.place, read.place);
        QCOMPARE(after.picture, read.picture);
        QVERIFY(!after.form);
        QCOMPARE(after.mode, JSStatusBar);
        QCOMPARE(after.source.MapName, read.source.MapName);
        QCOMPARE(after.source.Areas.size(), 2);
        QCOMPARE(after.source.Areas[1].Attributes, read.source.Areas[1].Attributes);
        QCOMPARE(Bare(after.source.Areas)[1].Message, QStringLiteral("Bee"));
    }
}

void tst_newmaps::secondUpdateWritesWhatChangedAlone()
{
    const Added added = AddedTo(Text("x\n<p><img src=\"a.png\"></p>\n"));
    QVERIFY(added.update);
    MapSource now = added.update->after.source;
    now.Areas = TwoAreas(); // as the editor has them
    const auto same = UpdateMap(added.page, added.update->after, JSStatusBar, now, SomePage());
    QVERIFY(same);
    QCOMPARE(Replaced(added.page, same->changes), added.page);
    now.Areas[1].Link = QStringLiteral("c.htm");
    const auto next = UpdateMap(added.page, added.update->after, JSStatusBar, now, SomePage());
    QVERIFY(next);
    QCOMPARE(
        Replaced(added.page, next->changes),
        QString(added.page).replace(QStringLiteral("b.htm"), QStringLiteral("c.htm")));
}

void tst_newmaps::nameIsUnique()
{
    const QString page = Text("<a name=M></a><map name=m2></map>\n<img src=a.png>\n");
    QCOMPARE(NameOfNewMap(page, PictureOf(page), QStringLiteral("m")), QStringLiteral("m3"));
    QCOMPARE(NameOfNewMap(page, PictureOf(page), QStringLiteral("my plan")), QStringLiteral("my-plan"));
    QVERIFY(AddedTo(page).page.contains(u"<img src=a.png usemap=#m3>\n<map name=m3>"));
}

void tst_newmaps::nameThatThePictureAsksForStays()
{
    const QString page = Text("<p>x</p>\n<img src=\"a.png\" usemap=\"#the plan\" alt=x>\n");
    const ReturnedMap map = PictureOf(page);
    QCOMPARE(map.source.MapName, QStringLiteral("the plan"));
    QCOMPARE(NameOfNewMap(page, map, map.source.MapName), QStringLiteral("the plan"));
    const Added added = AddedTo(page, [](MapSource& now) { now.MapName = QStringLiteral("the plan"); });
    QVERIFY(added.update);
    QCOMPARE(added.update->changes.size(), 1);
    QVERIFY(added.page.contains(u"<map name=\"the plan\">"));
    const Added renamed = AddedTo(page);
    QVERIFY(renamed.page.contains(u"usemap=\"#m\" alt=x>\n<map name="));
}

void tst_newmaps::fieldsOfThePictureAreWritten()
{
    const QString page = Text("x\n<img src=\"a.png\" border=\"2\">\n");
    const Added added = AddedTo(page, [](MapSource& now) {
        now.AltText = QStringLiteral("The plan");
        now.Border.clear();
    });
    QVERIFY2(
        added.page.startsWith(u"x\n<img src=\"a.png\" alt=\"The plan\" usemap=\"#m\">\n<map"),
        qPrintable(added.page));
    QVERIFY(added.update);
    QCOMPARE(added.update->after.source.AltText, QStringLiteral("The plan"));
}

void tst_newmaps::coordinatesAreInTheShownSize()
{
    const Added added = AddedTo(Text("x\n<img src=\"a.png\" width=\"150\">\n"));
    QVERIFY2(added.page.contains(u"coords=\"50,45,10\""), qPrintable(added.page));
    QVERIFY(added.update);
    QCOMPARE(added.update->after.source.Areas[1].Coordinates, QList<int>({ 100, 90, 20 }));
}

void tst_newmaps::refusedPictures_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<NewMapRefusal>("refusal");
    QTest::newRow("link") << Text("<p><a href=b><b><img src=a></b></a>") << NewMapRefusal::InLink;
    QTest::newRow("button") << Text("<button><img src=a></button>") << NewMapRefusal::InLink;
    QTest::newRow("server") << Text("<IMG ISMAP SRC=a>") << NewMapRefusal::OnServer;
    QTest::newRow("server in a link") << Text("<a href=b><img src=a ismap></a>") << NewMapRefusal::OnServer;
}

void tst_newmaps::refusedPictures()
{
    QFETCH(const QString, page);
    QFETCH(const NewMapRefusal, refusal);
    QCOMPARE(FindNewMapPlace(page, PictureOf(page).picture).refusal, std::optional(refusal));
    QVERIFY(!AddedTo(page).update);
    QVERIFY(!FindNewMapPlace(QStringLiteral("<a name=x><img src=a></a>"), { 10, 11 }).refusal);
}

void tst_newmaps::codeIsNotChanged_data()
{
    QTest::addColumn<QString>("page");
    QTest::newRow("tag that code ends") << Text("<img src=\"a.png\" <?php echo 1 ?> alt=x>");
    QTest::newRow("usemap") << Text("<img src=\"a.png\" usemap=\"#<?= $name ?>\">");
}

void tst_newmaps::codeIsNotChanged()
{
    QFETCH(const QString, page);
    QVERIFY(!AddedTo(page).update);
}

QTEST_APPLESS_MAIN(tst_newmaps)
#include "tst_newmaps.moc"
