#include "outline/SvgPath.h"

#include <QTest>
#include <cmath>

namespace {

/** The ends of the lines and curves, as a text. */
QString EndsOf(const QPainterPath& path)
{
    QStringList ends;
    for (int i = 0; i < path.elementCount(); ++i) {
        const QPainterPath::Element element = path.elementAt(i);
        if (element.isCurveTo()) {
            i += 2;
        }
        const QPointF end = path.elementAt(i);
        const QString kind = element.isMoveTo() ? "M" : element.isLineTo() ? "L" : "C";
        ends << kind + QStringLiteral("%1,%2")
                           .arg(std::round(end.x() * 100) / 100)
                           .arg(std::round(end.y() * 100) / 100);
    }
    return ends.join(u' ');
}

} // namespace

/** Path data of drawings. */
class tst_svgpath : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void commandsAreRead_data();
    void commandsAreRead();
    void smoothCurvesGoOn();
    void arcsKeepToTheirEllipse_data();
    void arcsKeepToTheirEllipse();
};

void tst_svgpath::commandsAreRead_data()
{
    QTest::addColumn<QString>("data");
    QTest::addColumn<QString>("ends");
    const auto row = [](const char* name, const char* data, const char* ends) {
        QTest::newRow(name) << QString::fromLatin1(data) << QString::fromLatin1(ends);
    };
    row("lines", "M1 2L3 4 5,6", "M1,2 L3,4 L5,6");
    row("relative", "m1 2l3 4 5,6", "M1,2 L4,6 L9,12");
    row("a move goes on as lines", "M0 0 1 1 2 2m1 1 1 1", "M0,0 L1,1 L2,2 M3,3 L4,4");
    row("across and down", "M1 2H5V6h-1v-2H0 9", "M1,2 L5,2 L5,6 L4,6 L4,4 L0,4 L9,4");
    row("closed, and on from there", "M1 1H5V5ZL9 9", "M1,1 L5,1 L5,5 L1,1 M1,1 L9,9");
    row("closed, and on from there relatively", "M1 1h4v4zm2 2h1", "M1,1 L5,1 L5,5 L1,1 M3,3 L4,3");
    row("curves", "M0 0C1 1 2 2 3 3c1 1 2 2 3 3S9 9 10 10s1 1 2 2", "M0,0 C3,3 C6,6 C10,10 C12,12");
    row("quadratic curves", "M0 0Q1 1 2 0T4 0q1 1 2 0t2 0", "M0,0 C2,0 C4,0 C6,0 C8,0");
    row("flags without blanks", "M0 0a5 5 0 0110 0", "M0,0 C5,-5 C10,0");
    row("arcs without a radius", "M0 0A0 5 0 0 1 10 0", "M0,0 L10,0");
    row("arcs that go nowhere", "M3 3a5 5 0 1 1 0 0", "M3,3");
    row("arcs that are too small", "M0 0a1 1 0 0 1 10 0", "M0,0 C5,-5 C10,0");
    row("up to what is wrong", "M0 0L1 1 X L2 2", "M0,0 L1,1");
    row("up to a number too few", "M0 0L1 1 2", "M0,0 L1,1");
    row("not begun by a move", "L1 1 2 2", "");
    row("nothing", "", "");
    row("a letter alone", "M", "");
    row("no letters", "1 2 3 4", "");
}

void tst_svgpath::commandsAreRead()
{
    QFETCH(const QString, data);
    QTEST(EndsOf(SvgPath(data)), "ends");
}

void tst_svgpath::smoothCurvesGoOn()
{
    const QPainterPath cubic = SvgPath(u"M0 0C0 10 10 10 10 0S20 -10 20 0");
    QCOMPARE(QPointF(cubic.elementAt(4)), QPointF(10, -10));
    const QPainterPath after = SvgPath(u"M0 0L10 0S20 -10 20 0");
    QCOMPARE(QPointF(after.elementAt(2)), QPointF(10, 0));
    const QPainterPath quadratic = SvgPath(u"M0 0Q5 6 10 0T20 0");
    // Two thirds of the way to the mirrored control point.
    QVERIFY((QPointF(quadratic.elementAt(4)) - QPointF(10 + 10.0 / 3, -4)).manhattanLength() < 1e-9);
}

void tst_svgpath::arcsKeepToTheirEllipse_data()
{
    QTest::addColumn<QString>("flags");
    QTest::addColumn<QPointF>("centre");
    QTest::addColumn<double>("length"); // of the arc, in turns
    // From 10, 0 to 0, 10 by a circle of radius 10.
    QTest::newRow("small, clockwise") << "0 1" << QPointF(0, 0) << 0.25;
    QTest::newRow("large, clockwise") << "1 1" << QPointF(10, 10) << 0.75;
    QTest::newRow("small, the other way") << "0 0" << QPointF(10, 10) << 0.25;
    QTest::newRow("large, the other way") << "1 0" << QPointF(0, 0) << 0.75;
}

void tst_svgpath::arcsKeepToTheirEllipse()
{
    QFETCH(const QString, flags);
    QFETCH(const QPointF, centre);
    QFETCH(const double, length);
    const QPainterPath path = SvgPath(QString(u"M10 0A10 10 30 " + flags + u" 0 10"));
    for (int i = 0; i <= 20; ++i) {
        const QPointF off = path.pointAtPercent(i / 20.0) - centre;
        QVERIFY2(std::abs(std::hypot(off.x(), off.y()) - 10) < 0.01, qPrintable(flags));
    }
    const double off = std::abs(path.length() - length * 2 * M_PI * 10);
    QVERIFY2(off < 0.1, qPrintable(QString::number(off)));
    QVERIFY((path.currentPosition() - QPointF(0, 10)).manhattanLength() < 1e-9);
}

QTEST_GUILESS_MAIN(tst_svgpath)

#include "tst_svgpath.moc"
