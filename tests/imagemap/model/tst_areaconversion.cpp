#include "SampleAreas.h"
#include "imagemap/model/AreaConversion.h"
#include "imagemap/model/AreaGeometry.h"

#include <QTest>
#include <cmath>
#include <cstdlib>

/** Areas of one shape that become another, and coordinates that are typed. */
class tst_areaconversion : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shapesAreConverted();
    void aCircleComesBackFromItsPolygon();
    void aCirclesPolygonKeepsClose();
    void coordinatesAreReadInEveryForm_data();
    void coordinatesAreReadInEveryForm();
    void whatBrowsersPassOverIsNoted_data();
    void whatBrowsersPassOverIsNoted();
    void wrongCoordinatesAreTold_data();
    void wrongCoordinatesAreTold();
};

void tst_areaconversion::shapesAreConverted()
{
    QCOMPARE(Converted(box, AreaShape::Polygon).Coordinates, (QList{ 10, 20, 110, 20, 110, 70, 10, 70 }));
    QCOMPARE(Converted(box, AreaShape::Circle).Coordinates, (QList{ 60, 45, 25 }));
    QCOMPARE(Converted(head, AreaShape::Rectangle).Coordinates, (QList{ 0, 0, 100, 100 }));
    QCOMPARE(Converted(disc, AreaShape::Rectangle).Coordinates, (QList{ 50, 50, 150, 150 }));
    QCOMPARE(Converted(box, AreaShape::Polygon).Link, box.Link);
}

void tst_areaconversion::aCircleComesBackFromItsPolygon()
{
    const MapArea polygon = Converted(disc, AreaShape::Polygon);
    QCOMPARE(polygon.Shape, AreaShape::Polygon);
    QCOMPARE(Converted(polygon, AreaShape::Circle).Coordinates, disc.Coordinates);
}

void tst_areaconversion::aCirclesPolygonKeepsClose()
{
    for (const int radius : { 1, 7, 50, 400 }) {
        const MapArea circle = Circle({ 500, 500, radius });
        const QList<QPoint> corners = CornersOf(Converted(circle, AreaShape::Polygon));
        QVERIFY(corners.size() >= 8);
        for (const QPoint corner : corners) {
            const QPoint away = corner - QPoint(500, 500);
            QVERIFY(std::abs(std::hypot(away.x(), away.y()) - radius) < 1);
        }
    }
}

void tst_areaconversion::coordinatesAreReadInEveryForm_data()
{
    QTest::addColumn<AreaShape>("shape");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QList<int>>("expected");

    QTest::newRow("as it is written")
        << AreaShape::Rectangle << "10, 20, 110, 70" << QList{ 10, 20, 110, 70 };
    QTest::newRow("no blanks") << AreaShape::Rectangle << "10,20,110,70" << QList{ 10, 20, 110, 70 };
    QTest::newRow("blanks alone") << AreaShape::Circle << " 10\t20\n5 " << QList{ 10, 20, 5 };
    QTest::newRow("semicolons") << AreaShape::Circle << "10;20;5" << QList{ 10, 20, 5 };
    QTest::newRow("decimals") << AreaShape::Circle << "9.6,20.4,4.5" << QList{ 10, 20, 5 };
    QTest::newRow("negative") << AreaShape::Polygon << "-5,0 10,0 10,+10" << QList{ -5, 0, 10, 0, 10, 10 };
    QTest::newRow("corners swapped") << AreaShape::Rectangle << "110,70,10,20" << QList{ 10, 20, 110, 70 };
    QTest::newRow("exponent") << AreaShape::Circle << "1e2,2E1,5" << QList{ 100, 20, 5 };
}

void tst_areaconversion::coordinatesAreReadInEveryForm()
{
    QFETCH(const AreaShape, shape);
    QFETCH(const QString, text);
    const CoordinatesReading reading = ReadCoordinates(shape, text);
    QCOMPARE(reading.problem, QString());
    QTEST(reading.numbers, "expected");
}

void tst_areaconversion::whatBrowsersPassOverIsNoted_data()
{
    QTest::addColumn<AreaShape>("shape");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QList<int>>("numbers");
    QTest::addColumn<QString>("note");

    QTest::newRow("nothing") << AreaShape::Circle << "10,2,3" << QList{ 10, 2, 3 } << QString();
    QTest::newRow("per cent") << AreaShape::Circle << "10%,2,3" << QList{ 10, 2, 3 }
                              << "Browsers read \"10%\" as 10";
    QTest::newRow("pixels") << AreaShape::Rectangle << "1px,2px,3px,4px" << QList{ 1, 2, 3, 4 }
                            << "Browsers read \"1px\" as 1";
    QTest::newRow("one too many") << AreaShape::Rectangle << "1,2,3,4,5" << QList{ 1, 2, 3, 4 }
                                  << "Browsers read the first 4 numbers, and no more";
    QTest::newRow("half a corner") << AreaShape::Polygon << "1,2,3,4,5,6,7" << QList{ 1, 2, 3, 4, 5, 6 }
                                   << "Browsers read the first 6 numbers, and no more";
}

void tst_areaconversion::whatBrowsersPassOverIsNoted()
{
    QFETCH(const AreaShape, shape);
    QFETCH(const QString, text);
    const CoordinatesReading reading = ReadCoordinates(shape, text);
    QCOMPARE(reading.problem, QString());
    QTEST(reading.numbers, "numbers");
    QTEST(reading.note, "note");
}

void tst_areaconversion::wrongCoordinatesAreTold_data()
{
    QTest::addColumn<AreaShape>("shape");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("problem");

    const QString four = QStringLiteral("A rectangle takes four numbers: left, top, right, bottom");
    QTest::newRow("nothing") << AreaShape::Rectangle << "" << four;
    QTest::newRow("one too few") << AreaShape::Rectangle << "1,2,3" << four;
    QTest::newRow("a word") << AreaShape::Circle << "1,two,3"
                            << "\"two\" is no number";
    QTest::newRow("infinite") << AreaShape::Circle << "inf,2,3"
                              << "\"inf\" is no number";
    QTest::newRow("far away") << AreaShape::Circle << "1e30,2,3"
                              << "1e30 lies too far away";
    QTest::newRow("no radius") << AreaShape::Circle << "1,2,0"
                               << "A radius is 1 at least";
    QTest::newRow("two corners") << AreaShape::Polygon << "1,2,3,4"
                                 << "A polygon takes three corners at least";
}

void tst_areaconversion::wrongCoordinatesAreTold()
{
    QFETCH(const AreaShape, shape);
    QFETCH(const QString, text);
    QTEST(ReadCoordinates(shape, text).problem, "problem");
}

QTEST_GUILESS_MAIN(tst_areaconversion)
#include "tst_areaconversion.moc"
