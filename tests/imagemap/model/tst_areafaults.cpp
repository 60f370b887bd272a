#include "SampleAreas.h"
#include "imagemap/model/AreaConversion.h"
#include "imagemap/model/AreaFaults.h"

#include <QTest>

/** What is told of areas that a visitor can hardly use. */
class tst_areafaults : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void faultsAreTold();
    void coveredByTwoTogetherIsCovered();
    void whatCannotBeDrawnLiesNowhere();
};

void tst_areafaults::faultsAreTold()
{
    const QSize picture(400, 300);
    QVERIFY(FaultsOf({ box, disc, head }, 1, picture).isEmpty());
    QCOMPARE(
        FaultsOf({ box, Rectangle({ 20, 30, 90, 60 }) }, 1, picture),
        QStringList{ "Areas above cover all of this one" });
    QVERIFY(FaultsOf({ Rectangle({ 20, 30, 90, 60 }), box }, 1, picture).isEmpty());
    QCOMPARE(
        FaultsOf({ Rectangle({ 500, 30, 590, 60 }) }, 0, picture),
        QStringList{ "This area lies outside of the picture" });
    MapArea linkless = disc;
    linkless.Link.clear();
    QCOMPARE(FaultsOf({ linkless }, 0, picture), QStringList{ "This area has no link" });
    QCOMPARE(
        FaultsOf({ Circle({ 100, 100, 10 }) }, 0, picture),
        QStringList{ "This area is smaller than 24 pixels, which is hard to hit" });
    QVERIFY(FaultsOf({ Rectangle({ 0, 0, 23, 23 }) }, 0, picture).isEmpty());
}

void tst_areafaults::coveredByTwoTogetherIsCovered()
{
    const MapArea left = Rectangle({ 0, 0, 60, 100 });
    const MapArea right = Rectangle({ 61, 0, 200, 100 });
    const QSize picture(400, 300);
    QCOMPARE(FaultsOf({ left, right, box }, 2, picture).size(), 1);
    QVERIFY(FaultsOf({ left, Rectangle({ 62, 0, 200, 100 }), box }, 2, picture).isEmpty());
    QCOMPARE(FaultsOf({ Converted(left, AreaShape::Polygon), right, box }, 2, picture).size(), 1);
}

void tst_areafaults::whatCannotBeDrawnLiesNowhere()
{
    const QSize picture(400, 300);
    MapArea rest = box;
    rest.Shape = AreaShape::Default;
    rest.Coordinates.clear();
    QVERIFY(FaultsOf({ rest }, 0, picture).isEmpty());
    MapArea torn = disc;
    torn.Coordinates.clear();
    torn.Link.clear();
    QCOMPARE(
        FaultsOf({ torn }, 0, picture),
        (QStringList{ "This area has no coordinates that it could be drawn by", "This area has no link" }));
}

QTEST_GUILESS_MAIN(tst_areafaults)
#include "tst_areafaults.moc"
