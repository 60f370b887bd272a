#include "outline/ColourDifference.h"

#include <QTest>

class tst_colourdifference : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void coloursHaveTheirPlaces_data();
    void coloursHaveTheirPlaces();
    void blackAndWhiteAreHundredApart();
    void differenceIsTheSameBothWays();
    void transparentPixelsAreAlike();
    void veilDiffersAsItDoesOnTheWorseGround();
    void keptDistancesAreTheMeasuredOnes();
};

void tst_colourdifference::coloursHaveTheirPlaces_data()
{
    QTest::addColumn<QRgb>("colour");
    QTest::addColumn<float>("lightness");
    QTest::addColumn<float>("redness");
    QTest::addColumn<float>("yellowness");
    QTest::newRow("black") << qRgb(0, 0, 0) << 0.0F << 0.0F << 0.0F;
    QTest::newRow("white") << qRgb(255, 255, 255) << 100.0F << 0.0F << 0.0F;
    QTest::newRow("grey") << qRgb(119, 119, 119) << 50.03F << 0.0F << 0.0F;
    QTest::newRow("red") << qRgb(255, 0, 0) << 53.24F << 80.09F << 67.20F;
    QTest::newRow("green") << qRgb(0, 255, 0) << 87.74F << -86.18F << 83.18F;
    QTest::newRow("blue") << qRgb(0, 0, 255) << 32.30F << 79.19F << -107.86F;
    QTest::newRow("near black") << qRgb(2, 2, 2) << 0.55F << 0.0F << 0.0F;
}

void tst_colourdifference::coloursHaveTheirPlaces()
{
    QFETCH(const QRgb, colour);
    QFETCH(const float, lightness);
    QFETCH(const float, redness);
    QFETCH(const float, yellowness);
    constexpr float near = 0.03F;
    const LabColour found = LabOf(colour);
    QVERIFY(qAbs(found.lightness - lightness) < near);
    QVERIFY(qAbs(found.redness - redness) < near);
    QVERIFY(qAbs(found.yellowness - yellowness) < near);
}

void tst_colourdifference::blackAndWhiteAreHundredApart()
{
    constexpr float near = 0.01F;
    QVERIFY(qAbs(DifferenceOf(qRgb(0, 0, 0), qRgb(255, 255, 255)) - 100) < near);
}

void tst_colourdifference::differenceIsTheSameBothWays()
{
    const QRgb leaf = qRgb(60, 130, 40);
    const QRgb sky = qRgba(120, 170, 230, 90);
    QCOMPARE(DifferenceOf(leaf, sky), DifferenceOf(sky, leaf));
    QCOMPARE(DifferenceOf(leaf, leaf), 0.0F);
    QVERIFY(DifferenceOf(leaf, sky) > 20);
}

void tst_colourdifference::transparentPixelsAreAlike()
{
    QCOMPARE(DifferenceOf(qRgba(255, 0, 0, 0), qRgba(0, 20, 255, 0)), 0.0F);
}

void tst_colourdifference::veilDiffersAsItDoesOnTheWorseGround()
{
    // On white ground nothing of it is seen.
    QVERIFY(DifferenceOf(qRgb(255, 255, 255), qRgba(255, 255, 255, 0)) > 99);
    // Nor of this on black.
    QVERIFY(DifferenceOf(qRgba(0, 0, 0, 255), qRgba(0, 0, 0, 0)) > 99);
}

void tst_colourdifference::keptDistancesAreTheMeasuredOnes()
{
    ColourDistances distances(qRgb(10, 200, 90));
    constexpr int step = 5;
    // More colours than are kept, so that they drive each other out, and each of them twice.
    for (int turn = 0; turn < 2; ++turn) {
        for (int red = 0; red < 256; red += step) {
            for (int blue = 0; blue < 256; ++blue) {
                const QRgb colour = qRgb(red, blue / 2, blue);
                QCOMPARE(distances.To(colour), DifferenceOf(colour, qRgb(10, 200, 90)));
            }
        }
    }
}

QTEST_GUILESS_MAIN(tst_colourdifference)
#include "tst_colourdifference.moc"
