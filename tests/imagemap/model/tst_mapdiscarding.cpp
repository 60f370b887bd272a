// How taking back what was drawn changes a map.

#include "tests/imagemap/model/MapTest.h"

#include <QTest>

class tst_mapdiscarding : public MapTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Begin(); }

    void discardingAFigureTakesItAlone_data();
    void discardingAFigureTakesItAlone();
    void discardingAPolygonTakesItsSidesAndThePreviousEndMark();
    void discardingTheFirstPolygonEmptiesTheSides();
    void discardingResetsACurrentPolygonOfOneSide();
    void discardingAFigureLeavesAnUnfinishedPolygon();
    void discardingFromAnEmptyStoreDoesNothing();
};

void tst_mapdiscarding::discardingAFigureTakesItAlone_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("rectangle") << int(kindRectangle);
    QTest::newRow("circle") << int(kindCircle);
}

void tst_mapdiscarding::discardingAFigureTakesItAlone()
{
    QFETCH(const int, kind);
    DrawPolygon(Store(), triangle);
    (void)Link();
    DrawFigure(Store(), static_cast<qint16>(kind), { 1, 2 }, { 3, 4 });
    map_->DiscardNewArea();
    QCOMPARE(Store().FigureCount, 2);
    QCOMPARE(Store().PolygonLineCount, 2);
    QCOMPARE(Store().PolygonLines[1].Link, QString("a.html"));
}

void tst_mapdiscarding::discardingAPolygonTakesItsSidesAndThePreviousEndMark()
{
    DrawPolygon(Store(), triangle);
    (void)Link();
    DrawPolygon(Store(), triangle);
    QCOMPARE(Store().FigureCount, 4);
    map_->DiscardNewArea();
    QCOMPARE(Store().FigureCount, 2);
    QCOMPARE(Store().PolygonLineCount, 2);
    QCOMPARE(Store().CurrentPolygonLineCount, 0);
    QCOMPARE(Store().PolygonLines[1].Link, QString());

    DrawPolygon(Store(), triangle);
    map_->DiscardNewArea();
    QCOMPARE(Store().FigureCount, 0);
}

void tst_mapdiscarding::discardingTheFirstPolygonEmptiesTheSides()
{
    DrawFigure(Store(), kindRectangle, { 1, 2 }, { 3, 4 });
    DrawPolygon(Store(), triangle);
    map_->DiscardNewArea();
    QCOMPARE(Store().FigureCount, 1);
    QCOMPARE(Store().PolygonLineCount, 0);
    QCOMPARE(Store().CurrentPolygonLineCount, 0);
}

void tst_mapdiscarding::discardingResetsACurrentPolygonOfOneSide()
{
    Store().CurrentKind = kindLine;
    Store().AppendSide();
    Store().CurrentPolygon[1].Link = "old";
    map_->DiscardNewArea();
    QCOMPARE(Store().CurrentPolygonLineCount, 0);
    QCOMPARE(Store().CurrentPolygon[1].Link, QString());
    QCOMPARE(Store().FigureCount, 0);
}

void tst_mapdiscarding::discardingAFigureLeavesAnUnfinishedPolygon()
{
    Store().CurrentKind = kindLine;
    Store().AppendSide();
    DrawFigure(Store(), kindRectangle, { 1, 2 }, { 3, 4 });
    map_->DiscardNewArea();
    QCOMPARE(Store().FigureCount, 1);
    QCOMPARE(Store().PolygonLineCount, 1);
    QCOMPARE(Store().CurrentPolygonLineCount, 1);
}

void tst_mapdiscarding::discardingFromAnEmptyStoreDoesNothing()
{
    map_->DiscardNewArea();
    QCOMPARE(Store().FigureCount, 0);
    QCOMPARE(Store().PolygonLineCount, 0);
}

QTEST_GUILESS_MAIN(tst_mapdiscarding)

#include "tst_mapdiscarding.moc"
