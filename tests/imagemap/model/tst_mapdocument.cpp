// How linking what was drawn changes a map.

#include "tests/imagemap/model/MapTest.h"

#include <QPoint>
#include <QTest>

namespace {

FigureRecord& Slot(FigureStore::Records& records, int index)
{
    return records[index];
}

} // namespace

class tst_mapdocument : public MapTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Begin(); }

    void messageIsTheModesField_data();
    void messageIsTheModesField();
    void defaultBecomesTheMapsWithItsHeader_data();
    void defaultBecomesTheMapsWithItsHeader();

    void rectangleGetsItsLinkAndArea();
    void rectangleFromAnyCornerReadsTheSame_data();
    void rectangleFromAnyCornerReadsTheSame();
    void circleGetsItsLinkAndArea();
    void polygonGetsItsLinkAndArea();
    void polygonOfNLinesListsItsCorners_data();
    void polygonOfNLinesListsItsCorners();
    void polygonsSidesButTheLastStayWithoutALink();
    void linkingAPolygonResetsTheCurrentOne();
    void linkingAFigureLeavesAnUnfinishedPolygon();
    void shapeIsToldByTheChosenToolNotByTheRecord();
    void otherKindsHaveNoArea_data();
    void otherKindsHaveNoArea();
    void linkingInAnEmptyStoreGivesNoArea();
    void lastSlotsOfTheStoreAreLinked();
};

void tst_mapdocument::messageIsTheModesField_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("message");
    QTest::newRow("no script") << int(JSDisabled) << "status bar";
    QTest::newRow("status bar") << int(JSStatusBar) << "status bar";
    QTest::newRow("switching images") << int(JSSwitchImages) << "switch.gif";
    QTest::newRow("text area") << int(JSTextArea) << "text area";
    QTest::newRow("tool tips") << int(JSToolTips) << "tool tip";
}

void tst_mapdocument::messageIsTheModesField()
{
    QFETCH(const int, mode);
    QFETCH(const QString, message);
    map_->Script().SetMode(static_cast<JSMode>(mode));
    QCOMPARE(MessageOf(map_->Script().Mode(), FullEntry()), message);

    DrawFigure(Store(), kindRectangle, { 1, 2 }, { 3, 4 });
    const std::optional<MapArea> area = Link();
    QVERIFY(area);
    QCOMPARE(area->Message, message);
    QCOMPARE(Store().Figures[0].Message, message);
}

void tst_mapdocument::defaultBecomesTheMapsWithItsHeader_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("modeDefault");
    QTest::addColumn<QString>("header");
    QTest::newRow("no script") << int(JSDisabled) << "before"
                               << "";
    QTest::newRow("status bar") << int(JSStatusBar) << "before"
                                << "";
    QTest::newRow("switching images") << int(JSSwitchImages) << "default.gif"
                                      << " Switching Images (Default Image:default.gif):";
    QTest::newRow("text area") << int(JSTextArea) << "default text"
                               << " Text Area Messages (Default Message:default text):";
    QTest::newRow("tool tips") << int(JSToolTips) << "before"
                               << "";
}

void tst_mapdocument::defaultBecomesTheMapsWithItsHeader()
{
    QFETCH(const int, mode);
    QFETCH(const QString, modeDefault);
    QFETCH(const QString, header);
    map_->Script().SetMode(static_cast<JSMode>(mode));
    map_->Script().SetModeDefault("before");
    const QString modesOwn = map_->Script().MessageHeader();
    map_->LinkNewArea(FullEntry());
    QCOMPARE(map_->Script().ModeDefault(), modeDefault);
    QCOMPARE(map_->Script().MessageHeader(), header.isEmpty() ? modesOwn : header);
}

void tst_mapdocument::rectangleGetsItsLinkAndArea()
{
    DrawFigure(Store(), kindCircle, { 0, 0 }, { 9, 9 });
    DrawFigure(Store(), kindRectangle, { 90, 40 }, { 10, 20 });
    const MapArea expected = { AreaShape::Rectangle, { 10, 20, 90, 40 }, "a.html", "_top", "status bar" };
    QVERIFY(Link() == expected);
    const FigureRecord record = { 5, 90, 40, 10, 20, 0, "a.html", "_top", "status bar" };
    QVERIFY(Store().Figures[1] == record);
    QCOMPARE(Store().Figures[0].Link, QString());
    QCOMPARE(Store().PolygonLines[0].Link, QString());
}

void tst_mapdocument::rectangleFromAnyCornerReadsTheSame_data()
{
    QTest::addColumn<QPoint>("start");
    QTest::addColumn<QPoint>("end");
    QTest::addColumn<QString>("coordinates");
    QTest::newRow("top left") << QPoint(10, 20) << QPoint(90, 40) << "10, 20, 90, 40";
    QTest::newRow("top right") << QPoint(90, 20) << QPoint(10, 40) << "10, 20, 90, 40";
    QTest::newRow("bottom left") << QPoint(10, 40) << QPoint(90, 20) << "10, 20, 90, 40";
    QTest::newRow("bottom right") << QPoint(90, 40) << QPoint(10, 20) << "10, 20, 90, 40";
    QTest::newRow("no size") << QPoint(5, 6) << QPoint(5, 6) << "5, 6, 5, 6";
    QTest::newRow("outside the picture") << QPoint(3, 4) << QPoint(-30, -2) << "-30, -2, 3, 4";
    QTest::newRow("largest numbers") << QPoint(32767, -32768) << QPoint(-32768, 32767)
                                     << "-32768, -32768, 32767, 32767";
}

void tst_mapdocument::rectangleFromAnyCornerReadsTheSame()
{
    QFETCH(const QPoint, start);
    QFETCH(const QPoint, end);
    QFETCH(const QString, coordinates);
    DrawFigure(Store(), kindRectangle, start, end);
    QCOMPARE(int(Store().Figures[0].X1), start.x());
    QCOMPARE(CoordinatesText(*Link()), coordinates);
}

void tst_mapdocument::circleGetsItsLinkAndArea()
{
    Store().CurrentRadius = 80;
    DrawFigure(Store(), kindCircle, { 100, 110 }, { 130, 190 });
    Store().CurrentRadius = 5;
    const MapArea expected = { AreaShape::Circle, { 100, 110, 80 }, "a.html", "_top", "status bar" };
    QVERIFY(Link() == expected);
    QCOMPARE(Store().Figures[0].Target, QString("_top"));
}

void tst_mapdocument::polygonGetsItsLinkAndArea()
{
    DrawFigure(Store(), kindRectangle, { 0, 0 }, { 9, 9 });
    DrawPolygon(Store(), triangle);
    const MapArea expected = {
        AreaShape::Polygon, { 1, 2, 30, 4, 5, 60, 1, 2 }, "a.html", "_top", "status bar"
    };
    QVERIFY(Link() == expected);
}

void tst_mapdocument::polygonOfNLinesListsItsCorners_data()
{
    QTest::addColumn<int>("lines");
    for (const int lines : { 2, 3, 4, 40, 500 }) {
        QTest::newRow(qPrintable(QString::number(lines))) << lines;
    }
}

void tst_mapdocument::polygonOfNLinesListsItsCorners()
{
    QFETCH(const int, lines);
    QList<QPoint> points;
    for (int i = 0; i <= lines; ++i) {
        points << QPoint(i, 2 * i);
    }
    DrawPolygon(Store(), points);
    const QStringList numbers = CoordinatesText(*Link()).split(", ");
    QCOMPARE(numbers.size(), 2 * lines + 2);
    QCOMPARE(numbers.constFirst(), QString("0"));
    QCOMPARE(numbers.constLast(), QString::number(2 * lines));
}

void tst_mapdocument::polygonsSidesButTheLastStayWithoutALink()
{
    DrawPolygon(Store(), triangle);
    (void)Link();
    QCOMPARE(Store().PolygonLineCount, 2);
    QCOMPARE(Store().PolygonLines[0].Link, QString());
    QCOMPARE(Store().PolygonLines[1].Link, QString("a.html"));
    QCOMPARE(Store().PolygonLines[1].Target, QString("_top"));
    QCOMPARE(Store().PolygonLines[1].Message, QString());
    QCOMPARE(Store().PolygonLines[2].Link, QString());
    for (int i = 0; i < 4; ++i) {
        QCOMPARE(Slot(Store().Figures, i).Link, QString());
    }
}

void tst_mapdocument::linkingAPolygonResetsTheCurrentOne()
{
    for (int i = 0; i < 6; ++i) {
        Slot(Store().CurrentPolygon, i).Link = "old";
    }
    DrawPolygon(Store(), triangle);
    (void)Link();
    QCOMPARE(Store().CurrentPolygonLineCount, 0);
    QStringList links;
    for (int i = 0; i < 6; ++i) {
        links << Slot(Store().CurrentPolygon, i).Link;
    }
    QCOMPARE(links, QStringList({ "old", "", "", "", "old", "old" }));
    QCOMPARE(Store().CurrentPolygon[2].Target, QString("_top"));
    QCOMPARE(Store().CurrentPolygon[2].Message, QString("status bar"));
}

void tst_mapdocument::linkingAFigureLeavesAnUnfinishedPolygon()
{
    Store().CurrentKind = kindLine;
    Store().AppendSide();
    DrawFigure(Store(), kindRectangle, { 1, 2 }, { 3, 4 });
    QVERIFY(Link());
    QCOMPARE(Store().CurrentPolygonLineCount, 1);
}

void tst_mapdocument::shapeIsToldByTheChosenToolNotByTheRecord()
{
    DrawFigure(Store(), kindRectangle, { 1, 2 }, { 3, 4 });
    Store().CurrentKind = kindCircle;
    Store().Figures[0].Radius = 8;
    QCOMPARE(CoordinatesText(*Link()), QString("1, 2, 8"));
}

void tst_mapdocument::otherKindsHaveNoArea_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("no tool chosen yet") << 0;
    QTest::newRow("before the rectangle") << 4;
    QTest::newRow("behind the line") << 8;
}

void tst_mapdocument::otherKindsHaveNoArea()
{
    QFETCH(const int, kind);
    DrawFigure(Store(), static_cast<qint16>(kind), { 1, 2 }, { 3, 4 });
    QVERIFY(!Link());
    QCOMPARE(Store().Figures[0].Link, QString("a.html"));
}

void tst_mapdocument::linkingInAnEmptyStoreGivesNoArea()
{
    for (const qint16 kind : { kindRectangle, kindCircle, kindLine }) {
        Store().CurrentKind = kind;
        QVERIFY(!Link());
    }
}

void tst_mapdocument::lastSlotsOfTheStoreAreLinked()
{
    while (Store().FigureCount < FigureStore::capacity) {
        DrawFigure(Store(), kindRectangle, { 1, 2 }, { 3, 4 });
    }
    QVERIFY(Link());
    QCOMPARE(Store().Figures.back().Link, QString("a.html"));
    QCOMPARE(Store().Figures[498].Link, QString());
}

QTEST_GUILESS_MAIN(tst_mapdocument)

#include "tst_mapdocument.moc"
