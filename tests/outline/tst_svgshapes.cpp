#include "SvgReadings.h"

#include <QTest>

/** The shapes of drawings as areas. */
class tst_svgshapes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shapesBecomeAreas_data();
    void shapesBecomeAreas();
    void whatIsNotSeenIsLeftOut_data();
    void whatIsNotSeenIsLeftOut();
    void drawingsFitThePicture_data();
    void drawingsFitThePicture();
    void linksAreTakenAlong();
    void textsAreTakenAlong_data();
    void textsAreTakenAlong();
    void groundsAndLinesAreNotTicked();
    void closedPartsOfALineAreTicked();
    void theOrderIsThatOfThePainting();
    void whatFillsAHoleIsInFrontOfIt();
};

void tst_svgshapes::shapesBecomeAreas_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QStringList>("places");
    const auto row = [](const char* name, const char* content, const QStringList& places) {
        QTest::newRow(name) << QByteArray(content) << places;
    };
    row("rectangle", "<rect x='10' y='20' width='30' height='40'/>", { "Rectangle 10, 20, 40, 60" });
    row("in per cent", "<rect x='10%' y='10%' width='50%' height='50%'/>", { "Rectangle 20, 10, 120, 60" });
    row("in millimetres", "<rect width='25.4mm' height='12.7mm'/>", { "Rectangle 0, 0, 96, 48" });
    row("circle", "<circle cx='50' cy='40' r='20'/>", { "Circle 50, 40, 20" });
    row("round ellipse", "<ellipse cx='50' cy='40' rx='20' ry='20'/>", { "Circle 50, 40, 20" });
    row("polygon", "<polygon points='10,10 50,10 30 40'/>", { "Polygon 10, 10, 50, 10, 30, 40" });
    row("polyline", "<polyline points='10,10 50,10 30 40'/>", { "Polygon 10, 10, 50, 10, 30, 40" });
    row("path", "<path d='M10 10h40l-20 30z'/>", { "Polygon 10, 10, 50, 10, 30, 40" });
    row("path that is a rectangle", "<path d='M10 10h40v30h-40z'/>", { "Rectangle 10, 10, 50, 40" });
    row("path that is a circle", "<path d='M30 40a20 20 0 1 0 40 0a20 20 0 1 0 -40 0'/>",
        { "Circle 50, 40, 20" });
    row("islands", "<path d='M10 10h10v10h-10zM50 50h10v10h-10z'/>",
        { "Rectangle 10, 10, 20, 20", "Rectangle 50, 50, 60, 60" });
    row("moved group",
        "<g transform='translate(10 5)'><g transform='scale(2)'><rect x='1' y='2' width='10' "
        "height='5'/></g></g>",
        { "Rectangle 12, 9, 32, 19" });
    row("turned by a quarter", "<rect transform='rotate(90 50 50)' x='40' y='30' width='20' height='40'/>",
        { "Rectangle 30, 40, 70, 60" });
    row("circle that is turned", "<circle transform='rotate(30 50 40)' cx='50' cy='40' r='20'/>",
        { "Circle 50, 40, 20" });
    row("turned rectangle", "<rect transform='rotate(45 50 50)' x='40' y='40' width='20' height='20'/>",
        { "Polygon 50, 36, 64, 50, 50, 64, 36, 50" });
    row("used",
        "<defs><rect id='a' width='10' height='10'/></defs><use href='#a' x='5' y='6'/><use xlink:href='#a' "
        "transform='translate(50)'/>",
        { "Rectangle 5, 6, 15, 16", "Rectangle 50, 0, 60, 10" });
    row("used group", "<g id='a'><rect width='10' height='10'/></g><use href='#a' x='20'/>",
        { "Rectangle 0, 0, 10, 10", "Rectangle 20, 0, 30, 10" });
    row("symbol",
        "<symbol id='s' viewBox='0 0 10 10'><rect width='10' height='5'/></symbol><use href='#s' x='10' "
        "y='20' width='40' height='40'/>",
        { "Rectangle 10, 20, 50, 40" });
    row("drawing within",
        "<svg x='100' y='50' width='50' height='50' viewBox='0 0 100 100'><rect width='50' "
        "height='100'/></svg>",
        { "Rectangle 100, 50, 125, 100" });
    row("switch", "<switch><foreignObject/><g><rect width='10' height='10'/></g></switch>",
        { "Rectangle 0, 0, 10, 10" });
    row("clipped",
        "<clipPath id='c'><circle cx='50' cy='50' r='10'/></clipPath><rect width='200' height='60' "
        "clip-path='url(#c)'/>",
        { "Rectangle 40, 40, 60, 60" });
    row("clipped by what is not there", "<rect width='20' height='10' clip-path='url(#none)'/>",
        { "Rectangle 0, 0, 20, 10" });
    row("clipped in shares of itself",
        "<clipPath id='c' clipPathUnits='objectBoundingBox'><rect width='1' height='1'/></clipPath>"
        "<rect width='20' height='10' clip-path='url(#c)'/>",
        { "Rectangle 0, 0, 20, 10" });
    row("without a size",
        "<rect width='10'/><circle r='0'/><ellipse rx='-5' ry='3'/><path d=''/><polygon/><rect/>", {});
    row("no shapes", "<line x2='50' y2='50'/><text>text</text><image width='50' height='50'/>", {});
}

void tst_svgshapes::shapesBecomeAreas()
{
    QFETCH(const QByteArray, content);
    const SvgShapesReading reading = ReadInner(content);
    QCOMPARE(reading.Problem, QString());
    QTEST(PlacesOf(reading), "places");
}

void tst_svgshapes::whatIsNotSeenIsLeftOut_data()
{
    QTest::addColumn<QByteArray>("content");
    const auto row = [](const char* name, const QByteArray& content) { QTest::newRow(name) << content; };
    const QByteArray shape = "<rect width='10' height='10'/>";
    row("not displayed", "<rect width='10' height='10' display='none'/>");
    row("not displayed by its style", "<rect width='10' height='10' style='fill:red; display : none'/>");
    row("in what is not displayed", "<g style='display:none !important'>" + shape + "</g>");
    row("by a class", "<style>.a, .b { display: none }</style><g class='x b'>" + shape + "</g>");
    row("by its name", "<style><![CDATA[#me{display:none}]]></style><g id='me'>" + shape + "</g>");
    row("by its kind", "<style>/* rect{} */rect{visibility:hidden}</style>" + shape);
    row("hidden", "<g visibility='hidden'>" + shape + "</g>");
    row("collapsed", "<rect width='10' height='10' visibility='collapse'/>");
    for (const char* const name : { "defs", "clipPath", "mask", "symbol", "marker", "pattern", "metadata" }) {
        row(name, QByteArray("<") + name + ">" + shape + "</" + name + ">");
    }
    row("of another kind",
        "<o:g xmlns:o='urn:other'><rect xmlns='http://www.w3.org/2000/svg' width='10' height='10'/></o:g>");
    row("outside of the picture", "<rect x='300' width='10' height='10'/><circle cx='-50' r='20'/>");
    row("used, but not there", "<use href='#none'/><use href='other.svg#a'/><use/>");
    row("clipped away", "<clipPath id='c'><rect x='100' width='50' height='50'/></clipPath>"
                        "<g clip-path='url(#c)'><rect width='50' height='50'/></g>");
    row("clipped by nothing",
        "<clipPath id='c'/><rect width='50' height='50' style='clip-path: url(\"#c\")'/>");
    row("clipped by a name with capitals",
        "<clipPath id='C1'/><rect width='50' height='50' style='CLIP-PATH: url(#C1); FILL: None'/>");
    row("beyond a drawing within", "<svg width='50' height='50'><rect x='60' width='20' height='20'/></svg>");
    row("used by itself", "<g id='a'><use href='#a'/></g>");
}

void tst_svgshapes::whatIsNotSeenIsLeftOut()
{
    QFETCH(const QByteArray, content);
    const SvgShapesReading reading = ReadInner(content);
    QCOMPARE(reading.Problem, QString());
    QCOMPARE(PlacesOf(reading), QStringList());
    // What is seen again within what is hidden counts.
    QCOMPARE(
        ReadInner("<g visibility='hidden'><rect width='10' height='10' visibility='visible'/></g>")
            .Shapes.size(),
        1);
}

void tst_svgshapes::drawingsFitThePicture_data()
{
    QTest::addColumn<QByteArray>("attributes");
    QTest::addColumn<QString>("place"); // of 10, 10, 50, 30 in a picture of 400 by 200
    const auto row = [](const char* name, const char* attributes, const char* place) {
        QTest::newRow(name) << QByteArray(attributes) << QString::fromLatin1(place);
    };
    row("size", "width='200' height='100'", "Rectangle 20, 20, 100, 60");
    row("size in millimetres", "width='52.9166667mm' height='26.4583333mm'", "Rectangle 20, 20, 100, 60");
    row("part alone", "viewBox='0 0 100 50'", "Rectangle 40, 40, 200, 120");
    row("part that does not begin at 0", "viewBox='-10 -10 100 50'", "Rectangle 80, 80, 240, 160");
    row("size and part", "width='800' height='400' viewBox='0 0 100 50'", "Rectangle 40, 40, 200, 120");
    row("part in the middle", "width='200' height='100' viewBox='0 0 100 100'", "Rectangle 120, 20, 200, 60");
    row("part to the left", "width='200' height='100' viewBox='0 0 100 100' preserveAspectRatio='xMinYMin'",
        "Rectangle 20, 20, 100, 60");
    row("part that is stretched", "width='200' height='100' viewBox='0 0 100 100' preserveAspectRatio='none'",
        "Rectangle 40, 20, 200, 60");
    row("per cents", "width='100%' height='100%' viewBox='0 0 100 50'", "Rectangle 40, 40, 200, 120");
    row("width alone", "width='200' viewBox='0 0 100 50'", "Rectangle 40, 40, 200, 120");
    row("nothing", "", "Rectangle 13, 13, 67, 40");
}

void tst_svgshapes::drawingsFitThePicture()
{
    QFETCH(const QByteArray, attributes);
    const SvgShapesReading reading = ReadSvgShapes(
        "<svg xmlns='http://www.w3.org/2000/svg' " + attributes +
            "><rect x='10' y='10' width='40' height='20'/></svg>",
        { 400, 200 });
    QCOMPARE(PlacesOf(reading).size(), 1);
    QTEST(PlacesOf(reading).constFirst(), "place");
}

void tst_svgshapes::linksAreTakenAlong()
{
    const SvgShapesReading reading =
        ReadInner("<a href=' one.htm ' target='_top'><g><rect width='10' height='10'/></g></a>"
                  "<a xlink:href='two.htm'><rect width='10' height='10'/></a>"
                  "<a xlink:href='old.htm' href='new.htm'><rect width='10' height='10'/></a>"
                  "<a href='java&#10;Script:alert(1)'><rect width='10' height='10'/></a>"
                  "<rect width='10' height='10'/>");
    QStringList links;
    for (const AreaCandidate& shape : reading.Shapes) {
        links << shape.Area.Link;
    }
    QCOMPARE(links, (QStringList{ "one.htm", "two.htm", "new.htm", "", "" }));
    QCOMPARE(reading.Shapes.constFirst().Area.Target, "_top");
    QCOMPARE(reading.Shapes.at(1).Area.Target, "");
}

void tst_svgshapes::textsAreTakenAlong_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("text");
    const auto row = [](const char* name, const char* content, const char* text) {
        QTest::newRow(name) << QByteArray(content) << QString::fromUtf8(text);
    };
    row("title", "<rect id='r1' aria-label='label' width='9' height='9'><title> The\n house </title></rect>",
        "The house");
    row("label", "<rect id='r1' aria-label='label' width='9' height='9'/>", "label");
    row("name", "<rect id='r1' width='9' height='9'/>", "r1");
    row("of the group", "<g id='g1'><title>Group</title><rect width='9' height='9'/></g>", "Group");
    row("own before the group's", "<g><title>Group</title><rect id='r1' width='9' height='9'/></g>", "r1");
    row("not of the drawing", "<title>Drawing</title><rect width='9' height='9'/>", "");
    row("of what is used",
        "<defs><rect id='a' width='9' height='9'><title>Used</title></rect></defs><use href='#a'/>", "Used");
    row("of what uses it",
        "<defs><rect id='a' width='9' height='9'/></defs><use href='#a'><title>Here</title></use>", "Here");
    row("of what uses it",
        "<defs><rect id='a' width='9' height='9'><title>Used</title></rect></defs><use "
        "href='#a'><title>Here</title></use>",
        "Here");
    row("no markup", "<rect width='9' height='9'><title>A &lt;b&gt; &amp; C</title></rect>", "A <b> & C");
}

void tst_svgshapes::textsAreTakenAlong()
{
    QFETCH(const QByteArray, content);
    const SvgShapesReading reading = ReadInner(content);
    QCOMPARE(reading.Shapes.size(), 1);
    QTEST(reading.Shapes.constFirst().Area.Text, "text");
    QVERIFY(!reading.Shapes.constFirst().Name.isEmpty());
}

void tst_svgshapes::groundsAndLinesAreNotTicked()
{
    const SvgShapesReading reading = ReadInner(
        "<rect width='100%' height='100%' fill='#eee'/>"
        "<a href='all.htm'><rect width='100%' height='100%'/></a>"
        "<polyline points='10,10 50,10 30,40' fill='none'/>"
        "<path d='M10 10L50 10L30 40Z' style='fill:none'/>"
        "<style>.line{fill:none}</style><g class='line'><path d='M10 10L50 10L30 40'/></g>"
        "<polyline points='10,10 50,10 30,41'/>"
        "<rect x='9' y='9' width='9' height='9'/><rect x='9' y='9' width='9' height='9' stroke='red'/>"
        "<a href='#'><rect x='9' y='9' width='9' height='9'/></a>");
    QList<bool> ticked;
    for (const AreaCandidate& shape : reading.Shapes) {
        ticked << shape.IsTicked;
        QCOMPARE(shape.Note.isEmpty(), shape.IsTicked);
    }
    QCOMPARE(ticked, (QList<bool>{ false, true, false, true, false, true, true, false, true }));
}

void tst_svgshapes::closedPartsOfALineAreTicked()
{
    // As maps are drawn: borders without a filling, some of which close.
    const SvgShapesReading reading = ReadInner(
        "<path fill='none' stroke='black' d='M10 10h30v30h-30z M50 10h30v30 M90 10h30v30h-30v-30'/>");
    QCOMPARE(
        PlacesOf(reading), (QStringList{ "Rectangle 10, 10, 40, 40", "Rectangle 90, 10, 120, 40",
                                         "Polygon 50, 10, 80, 10, 80, 40" }));
    QCOMPARE(TickedAreas(reading.Shapes).size(), 2);
    QVERIFY(!reading.Shapes.constLast().IsTicked);
    QCOMPARE(reading.Shapes.constLast().Note, "a line without an inside");
    // What is filled is one, however it is drawn.
    QVERIFY(ReadInner("<path d='M10 10h30v30h-30z M50 10h30v30'/>").Shapes.constLast().IsTicked);
}

void tst_svgshapes::theOrderIsThatOfThePainting()
{
    QCOMPARE(
        PlacesOf(ReadInner("<g><rect width='10' height='10'/></g><circle cx='50' cy='50' r='9'/><rect "
                           "width='20' height='10'/>")),
        (QStringList{ "Rectangle 0, 0, 10, 10", "Circle 50, 50, 9", "Rectangle 0, 0, 20, 10" }));
}

void tst_svgshapes::whatFillsAHoleIsInFrontOfIt()
{
    QCOMPARE(
        PlacesOf(ReadInner("<rect x='30' y='30' width='20' height='20'/><rect x='5' width='4' height='4'/>"
                           "<path d='M10 10h80v80h-80zM30 30v20h20v-20z'/>")),
        (QStringList{ "Rectangle 5, 0, 9, 4", "Rectangle 10, 10, 90, 90", "Rectangle 30, 30, 50, 50" }));
    // Without a hole nothing of it is seen.
    QCOMPARE(
        PlacesOf(ReadInner("<rect x='30' y='30' width='20' height='20'/><path d='M10 10h80v80h-80z'/>")),
        (QStringList{ "Rectangle 30, 30, 50, 50", "Rectangle 10, 10, 90, 90" }));
}

QTEST_GUILESS_MAIN(tst_svgshapes)

#include "tst_svgshapes.moc"
