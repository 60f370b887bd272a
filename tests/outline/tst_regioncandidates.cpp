#include "outline/RegionCandidates.h"
#include "outline/RegionShape.h"

#include <QTest>

namespace {

constexpr QRgb reddish = qRgb(200, 10, 20);

/** A region whose outline goes to and fro between two heights, with so many teeth. */
PictureRegion Comb(int teeth)
{
    constexpr int height = 20;
    PictureRegion region;
    region.region = { QRect(0, 0, 2 * teeth, 2 * height), 3 * height * teeth, QPoint(0, 0) };
    region.colour = reddish;
    for (int tooth = 0; tooth < teeth; ++tooth) {
        const int x = 2 * tooth;
        region.contour.insert(region.contour.end(), { { x, 0 }, { x + 1, 0 }, { x + 1, height } });
        region.contour.push_back({ x + 2, height });
    }
    region.contour.insert(region.contour.end(), { { 2 * teeth, 2 * height }, { 0, 2 * height } });
    return region;
}

} // namespace

/** What is offered of a region. */
class tst_regioncandidates : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void regionIsDescribed();
    void whatIsNothingToClickAtIsNotTicked_data();
    void whatIsNothingToClickAtIsNotTicked();
    void whatCannotBeFollowedIsTold();
};

void tst_regioncandidates::regionIsDescribed()
{
    PictureRegion box;
    box.region = { QRect(5, 6, 20, 10), 200, QPoint(5, 6) };
    box.colour = reddish;
    box.contour = { { 5, 6 }, { 25, 6 }, { 25, 16 }, { 5, 16 } };
    const AreaCandidate candidate = CandidateOf(box, 7, usualPrecision);
    QCOMPARE(candidate.Area.Shape, AreaShape::Rectangle);
    QCOMPARE(candidate.Area.Coordinates, (QList<int>{ 5, 6, 25, 16 }));
    QCOMPARE(candidate.Area.Link, "");
    QCOMPARE(candidate.Name, "Region 7");
    QCOMPARE(candidate.Note, "");
    QVERIFY(candidate.IsTicked);
    QCOMPARE(candidate.Pixels, 200);
    QCOMPARE(candidate.Colour.value_or(0), reddish);
}

void tst_regioncandidates::whatIsNothingToClickAtIsNotTicked_data()
{
    QTest::addColumn<RegionRole>("role");
    QTest::addColumn<QString>("note");
    QTest::newRow("ground") << RegionRole::Ground << "background";
    QTest::newRow("line") << RegionRole::Line << "line or letter";
}

void tst_regioncandidates::whatIsNothingToClickAtIsNotTicked()
{
    QFETCH(const RegionRole, role);
    QFETCH(const QString, note);
    PictureRegion region = Comb(5);
    region.role = role;
    const AreaCandidate candidate = CandidateOf(region, 1, usualPrecision);
    QVERIFY(!candidate.IsTicked);
    QCOMPARE(candidate.Note, note);
}

void tst_regioncandidates::whatCannotBeFollowedIsTold()
{
    // Four corners a tooth.
    constexpr int fewTeeth = mostCorners / 5;
    QCOMPARE(CandidateOf(Comb(fewTeeth), 1, 0.5).Note, "");
    PictureRegion region = Comb(mostCorners);
    const AreaCandidate candidate = CandidateOf(region, 1, 0.5);
    const double deviation = ShapeOf(region.contour, 0.5).deviation;
    QVERIFY(deviation > 0.5);
    QVERIFY(candidate.IsTicked);
    QCOMPARE(candidate.Note, QStringLiteral("up to %1 px off").arg(deviation, 0, 'f', 1));
    region.role = RegionRole::Ground;
    QVERIFY(CandidateOf(region, 1, 0.5).Note.startsWith("background; up to "));
}

QTEST_GUILESS_MAIN(tst_regioncandidates)
#include "tst_regioncandidates.moc"
