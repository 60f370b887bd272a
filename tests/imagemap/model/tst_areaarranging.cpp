#include "SampleAreas.h"
#include "imagemap/model/AreaArranging.h"
#include "imagemap/model/AreaGeometry.h"

#include <QTest>

/** The order of areas, and lining them up. */
class tst_areaarranging : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theOrderChanges();
    void areasAreLinedUp();
    void nothingIsLinedUpWithAnAreaWithoutPlace();
};

void tst_areaarranging::theOrderChanges()
{
    MapAreas areas;
    for (int i = 0; i < 5; ++i) {
        areas << Rectangle({ i, 0, i + 1, 1 });
    }
    const auto order = [](const ArrangedAreas& arranged) {
        QList<int> firsts;
        for (const MapArea& area : arranged.areas) {
            firsts << area.Coordinates[0];
        }
        return firsts;
    };
    QCOMPARE(order(Reordered(areas, { 2, 3 }, OrderChange::Up)), (QList{ 0, 2, 3, 1, 4 }));
    QCOMPARE(Reordered(areas, { 2, 3 }, OrderChange::Up).moved, (AreaNumbers{ 1, 2 }));
    QCOMPARE(order(Reordered(areas, { 0, 2 }, OrderChange::Up)), (QList{ 0, 2, 1, 3, 4 }));
    QCOMPARE(order(Reordered(areas, { 0, 1 }, OrderChange::Up)), (QList{ 0, 1, 2, 3, 4 }));
    QCOMPARE(order(Reordered(areas, { 1, 4 }, OrderChange::Down)), (QList{ 0, 2, 1, 3, 4 }));
    QCOMPARE(order(Reordered(areas, { 1, 3 }, OrderChange::InFront)), (QList{ 1, 3, 0, 2, 4 }));
    QCOMPARE(Reordered(areas, { 1, 3 }, OrderChange::Behind).moved, (AreaNumbers{ 3, 4 }));
    QCOMPARE(order(Reordered(areas, { 1, 3 }, OrderChange::Behind)), (QList{ 0, 2, 4, 1, 3 }));
}

void tst_areaarranging::areasAreLinedUp()
{
    const MapAreas areas = { box, disc, head };
    const AreaNumbers all = { 0, 1, 2 };
    QCOMPARE(BoundsOf(Aligned(areas, all, Alignment::Left)[1]).left(), 10);
    QCOMPARE(BoundsOf(Aligned(areas, all, Alignment::Right)[2]).right(), 110);
    QCOMPARE(BoundsOf(Aligned(areas, all, Alignment::Top)[1]).top(), 20);
    QCOMPARE(BoundsOf(Aligned(areas, all, Alignment::Bottom)[2]).bottom(), 70);
    QCOMPARE(Aligned(areas, all, Alignment::Centre)[1].Coordinates, (QList{ 60, 100, 50 }));
    QCOMPARE(Aligned(areas, all, Alignment::Middle)[1].Coordinates, (QList{ 100, 45, 50 }));
    QCOMPARE(BoundsOf(Aligned(areas, all, Alignment::SameHeight)[2]).height(), BoundsOf(box).height());
    QCOMPARE(BoundsOf(Aligned(areas, all, Alignment::SameSize)[2]).size(), BoundsOf(box).size());
    QCOMPARE(Aligned(areas, all, Alignment::SameSize)[1].Coordinates, (QList{ 100, 100, 25 }));
    QCOMPARE(Aligned(areas, all, Alignment::SameWidth)[0], box);
    QCOMPARE(Aligned(areas, {}, Alignment::Left), areas);
}

void tst_areaarranging::nothingIsLinedUpWithAnAreaWithoutPlace()
{
    MapArea rest = box;
    rest.Shape = AreaShape::Default;
    rest.Coordinates.clear();
    const MapAreas areas = { rest, disc };
    QCOMPARE(Aligned(areas, { 0, 1 }, Alignment::Left), areas);
    QCOMPARE(Aligned(areas, { 0, 1 }, Alignment::SameSize), areas);
}

QTEST_GUILESS_MAIN(tst_areaarranging)
#include "tst_areaarranging.moc"
