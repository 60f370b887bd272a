#include "outline/SvgNumbers.h"

#include <QTest>

/** The numbers, lengths and transforms of drawings. */
class tst_svgnumbers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void numbersAreParted_data();
    void numbersAreParted();
    void lengthsHaveUnits_data();
    void lengthsHaveUnits();
    void transformsFollowEachOther_data();
    void transformsFollowEachOther();
    void partsAreFitted_data();
    void partsAreFitted();
};

void tst_svgnumbers::numbersAreParted_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QList<double>>("numbers");
    QTest::newRow("commas and blanks") << "1, 2 ,3\n4" << QList<double>{ 1, 2, 3, 4 };
    QTest::newRow("signs part too") << "1-2+3" << QList<double>{ 1, -2, 3 };
    QTest::newRow("a second point begins a number") << "1.5.25.5" << QList<double>{ 1.5, 0.25, 0.5 };
    QTest::newRow("exponents") << "1e2 1E-1,2.5e+1" << QList<double>{ 100, 0.1, 25 };
    QTest::newRow("a point at the end") << "1. 2" << QList<double>{ 1, 2 };
    QTest::newRow("up to what is no number") << "1 2 x 3" << QList<double>{ 1, 2 };
    QTest::newRow("two commas") << "1,,2" << QList<double>{ 1 };
    QTest::newRow("a sign alone") << "-" << QList<double>();
    QTest::newRow("a point alone") << "." << QList<double>();
    QTest::newRow("beyond all numbers") << "1e999 -1e999" << QList<double>{ svgNumberLimit, -svgNumberLimit };
}

void tst_svgnumbers::numbersAreParted()
{
    QFETCH(const QString, text);
    QTEST(SvgNumbers(text), "numbers");
}

void tst_svgnumbers::lengthsHaveUnits_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("length");
    QTest::newRow("none") << "12.5" << 12.5;
    QTest::newRow("pixels") << " 12px " << 12.0;
    QTest::newRow("points") << "72pt" << 96.0;
    QTest::newRow("picas") << "6pc" << 96.0;
    QTest::newRow("inches") << "1IN" << 96.0;
    QTest::newRow("millimetres") << "25.4mm" << 96.0;
    QTest::newRow("centimetres") << "2.54cm" << 96.0;
    QTest::newRow("quarters") << "101.6Q" << 96.0;
    QTest::newRow("ems") << "2em" << 32.0;
    QTest::newRow("exes") << "2ex" << 16.0;
    QTest::newRow("per cent") << "50%" << 100.0;
    QTest::newRow("unknown") << "5furlongs" << -1.0;
    QTest::newRow("no length") << "auto" << -1.0;
}

void tst_svgnumbers::lengthsHaveUnits()
{
    QFETCH(const QString, text);
    QTEST(SvgLength(text, SvgDirection::Across, { 200, 100 }).value_or(-1), "length");
    QCOMPARE(SvgLength(u"10%", SvgDirection::Down, { 200, 100 }).value_or(-1), 10.0);
    QCOMPARE(SvgLength(u"10%", SvgDirection::Either, { 100, 100 }).value_or(-1), 10.0);
}

void tst_svgnumbers::transformsFollowEachOther_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QPointF>("place"); // of 10, 20
    QTest::newRow("none") << "" << QPointF(10, 20);
    QTest::newRow("matrix") << "matrix(1 2 3 4 5 6)" << QPointF(75, 106);
    QTest::newRow("shift") << "translate(5)" << QPointF(15, 20);
    QTest::newRow("shift both ways") << "translate(5,-5)" << QPointF(15, 15);
    QTest::newRow("scale") << "scale(2)" << QPointF(20, 40);
    QTest::newRow("scale both ways") << "scale(2 -1)" << QPointF(20, -20);
    QTest::newRow("turn") << "rotate(90)" << QPointF(-20, 10);
    QTest::newRow("turn about a place") << "rotate(90 10 10)" << QPointF(0, 10);
    QTest::newRow("skew across") << "skewX(45)" << QPointF(30, 20);
    QTest::newRow("skew down") << "skewY(45)" << QPointF(10, 30);
    QTest::newRow("the last comes first") << "translate(100,0) , scale(2)" << QPointF(120, 40);
    QTest::newRow("unknown") << "translate(5) spin(3)" << QPointF(10, 20);
    QTest::newRow("too few numbers") << "matrix(1 2 3)" << QPointF(10, 20);
    QTest::newRow("without an end") << "translate(5" << QPointF(10, 20);
}

void tst_svgnumbers::transformsFollowEachOther()
{
    QFETCH(const QString, text);
    QFETCH(const QPointF, place);
    const QPointF mapped = SvgTransform(text).map(QPointF(10, 20));
    QVERIFY2((mapped - place).manhattanLength() < 1e-9, qPrintable(text));
}

void tst_svgnumbers::partsAreFitted_data()
{
    QTest::addColumn<QString>("how");
    QTest::addColumn<QRectF>("shown"); // where 0, 0, 100, 100 comes to
    QTest::newRow("in the middle") << "" << QRectF(60, 10, 100, 100);
    QTest::newRow("to the left") << "xMinYMid meet" << QRectF(10, 10, 100, 100);
    QTest::newRow("to the right") << "xMaxYMax" << QRectF(110, 10, 100, 100);
    QTest::newRow("filled") << "xMidYMin slice" << QRectF(10, 10, 200, 200);
    QTest::newRow("filled from below") << "xMidYMax slice" << QRectF(10, -90, 200, 200);
    QTest::newRow("stretched") << "none" << QRectF(10, 10, 200, 100);
}

void tst_svgnumbers::partsAreFitted()
{
    QFETCH(const QString, how);
    const auto fitting = SvgFitting({ 0, 0, 100, 100 }, how, { 10, 10, 200, 100 });
    QVERIFY(fitting.has_value());
    QTEST(fitting->mapRect(QRectF(0, 0, 100, 100)), "shown");
    QVERIFY(!SvgFitting({ 0, 0, 0, 100 }, how, { 10, 10, 200, 100 }));
}

QTEST_GUILESS_MAIN(tst_svgnumbers)

#include "tst_svgnumbers.moc"
