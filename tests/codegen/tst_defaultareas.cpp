// What is written of an area that has all of the picture that no other area has.

#include "tests/codegen/PictureMaps.h"

#include <QTest>

namespace {

MapArea Area(AreaShape shape, const QList<int>& numbers, const QString& link)
{
    return { .Shape = shape, .Coordinates = numbers, .Link = link, .Target = {}, .Message = {} };
}

/** A map whose first area is the one for all that is left. */
MapSource Source()
{
    MapSource source = MapOfPicture({ Area(AreaShape::Default, {}, "rest.html"),
                                      Area(AreaShape::Rectangle, { 20, 40, 120, 90 }, "red.html"),
                                      Area(AreaShape::Circle, { 60, 60, 30 }, "disc.html") });
    source.Width = QStringLiteral("800");
    source.Height = QStringLiteral("600");
    return source;
}

/** The lines of a map with an area each. */
QStringList AreaLines(const QString& markup, QStringView start)
{
    QStringList lines = markup.split(u'\n');
    lines.removeIf([start](const QString& line) { return !line.startsWith(start); });
    for (QString& line : lines) {
        line = line.trimmed();
    }
    return lines;
}

} // namespace

class tst_defaultareas : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void inHtml4ItHasNoCoordinates();
    void overAPictureItIsPaintedFirst();
    void inAMapElementItIsTheLastRectangle();
    void itsMessageIsShownLikeAnyOther();
};

void tst_defaultareas::inHtml4ItHasNoCoordinates()
{
    QCOMPARE(
        AreaLines(GenerateStandardMap(Source()), u"<AREA").constFirst(),
        QStringLiteral("<AREA SHAPE=DEFAULT HREF=\"rest.html\">"));
}

void tst_defaultareas::overAPictureItIsPaintedFirst()
{
    const QStringList lines =
        AreaLines(GenerateTodayMap(JSDisabled, MadeForPicture(JSDisabled, Source())), u"<a ");
    QCOMPARE(
        lines,
        (QStringList{ "<a href=\"rest.html\" aria-label=\"rest\"><rect x=\"0\" y=\"0\" width=\"400\" "
                      "height=\"300\"/></a>",
                      "<a href=\"disc.html\" aria-label=\"disc\"><circle cx=\"60\" cy=\"60\" r=\"30\"/></a>",
                      "<a href=\"red.html\" aria-label=\"red\"><rect x=\"20\" y=\"40\" width=\"100\" "
                      "height=\"50\"/></a>" }));
}

void tst_defaultareas::inAMapElementItIsTheLastRectangle()
{
    const QStringList lines =
        AreaLines(GenerateTodayMapElement(JSDisabled, MadeForPicture(JSDisabled, Source())), u"<area");
    QCOMPARE(
        lines,
        (QStringList{ "<area shape=\"rect\" coords=\"40,80,240,180\" href=\"red.html\" alt=\"red\">",
                      "<area shape=\"circle\" coords=\"120,120,60\" href=\"disc.html\" alt=\"disc\">",
                      "<area shape=\"rect\" coords=\"0,0,800,600\" href=\"rest.html\" alt=\"rest\">" }));
}

void tst_defaultareas::itsMessageIsShownLikeAnyOther()
{
    MapSource source = Source();
    source.Areas[0].Message = QStringLiteral("All the rest");
    const QString markup = GenerateTodayMap(JSTextArea, MadeForPicture(JSTextArea, source));
    QVERIFY(markup.contains(QStringLiteral("<a href=\"rest.html\" aria-label=\"All the rest\" "
                                           "aria-describedby=\"m-1\"><rect x=\"0\" y=\"0\"")));
    QVERIFY(markup.contains(QStringLiteral("<p id=\"m-1\">All the rest</p>")));
}

QTEST_GUILESS_MAIN(tst_defaultareas)
#include "tst_defaultareas.moc"
