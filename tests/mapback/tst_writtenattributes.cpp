// Attributes of areas as the page has them and the editor shows them.

#include "OpenedMaps.h"

#include <QTest>

class tst_writtenattributes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void codeIsNeitherChangedNorLost();
    void attributesAreSeenAndSet();
    void attributesAreWrittenAsTheyWereTyped();
    void copyOfAnEmptyAttributeIsWrittenOnce();
};

void tst_writtenattributes::codeIsNeitherChangedNorLost()
{
    const QString page = QStringLiteral("<map name=m><area href=\"{{ a }}\" alt=x><area href=b "
                                        "coords=\"<?= $c ?>\"></map>");
    QCOMPARE(
        Changed(page, [](MapSource& now) { now.Areas[0].Link = QStringLiteral("b"); }),
        QStringLiteral("cannot"));
    QCOMPARE(
        Changed(
            page,
            [](MapSource& now) {
                now.Areas[1].Coordinates = { 1, 2, 3, 4 };
            }),
        QStringLiteral("cannot"));
    QCOMPARE(
        Changed(page, [](MapSource& now) { now.Areas[0].Text = QStringLiteral("y"); }),
        QString(page).replace("alt=x", "alt=y"));
    QCOMPARE(
        Changed(page, [](MapSource& now) { now.Areas[1].Link = QStringLiteral("c"); }),
        QString(page).replace("href=b", "href=c"));
}

void tst_writtenattributes::attributesAreSeenAndSet()
{
    const QString page = QStringLiteral("<map name=m><area data-x=1 href='{{ a }}' coords=1,2,3,4></map>");
    const ReturnedMap map = Opened(page);
    MapArea area = map.source.Areas[0];
    QCOMPARE(AttributesFor(area, map), area.Attributes);
    QVERIFY(!SetAttribute(area, QStringLiteral("href"), QStringLiteral("b"), map));
    QVERIFY(!SetAttribute(area, QStringLiteral("a b"), QStringLiteral("b"), map));
    QVERIFY(!SetAttribute(area, QString(), QStringLiteral("b"), map));
    QCOMPARE(area, map.source.Areas[0]);
    QVERIFY(SetAttribute(area, QStringLiteral("COORDS"), QStringLiteral("5,6,7"), map));
    QVERIFY(area.Coordinates.isEmpty());
    QVERIFY(SetAttribute(area, QStringLiteral("shape"), QStringLiteral("circle"), map));
    QCOMPARE(area.Coordinates, (QList<int>{ 5, 6, 7 }));
    QVERIFY(SetAttribute(area, QStringLiteral("title"), QStringLiteral("Tip"), map));
    QCOMPARE(area.Message, QStringLiteral("Tip"));
    QVERIFY(SetAttribute(area, QStringLiteral("data-x"), QString(), map));
    QVERIFY(SetAttribute(area, QStringLiteral("rel"), QString(QLatin1String("")), map));
    QCOMPARE(
        Changed(page, [&area](MapSource& now) { now.Areas[0] = area; }),
        QStringLiteral("<map name=m><area href='{{ a }}' coords=5,6,7 shape=circle title=Tip "
                       "rel=\"\"></map>"));
}

void tst_writtenattributes::attributesAreWrittenAsTheyWereTyped()
{
    const QString page = QStringLiteral("<map name=m><area coords='1,2,3,4'></map>");
    const ReturnedMap map = Opened(page);
    MapArea area = map.source.Areas[0];
    QVERIFY(SetAttribute(area, QStringLiteral("coords"), QStringLiteral("1, 2, 3, 4"), map));
    QVERIFY(SetAttribute(area, QStringLiteral("shape"), QStringLiteral("rect"), map));
    QCOMPARE(
        Changed(page, [&area](MapSource& now) { now.Areas[0] = area; }),
        QStringLiteral("<map name=m><area coords='1, 2, 3, 4' shape='rect'></map>"));
}

void tst_writtenattributes::copyOfAnEmptyAttributeIsWrittenOnce()
{
    QString page = QStringLiteral("<map name=m>\n<area shape>\n<area a>\n<area></map>");
    const ReturnedMap map = Opened(page);
    MapSource now = map.source;
    now.Areas = { now.Areas[0], now.Areas[0], now.Areas[2], now.Areas[2] };
    const auto update = UpdateMap(page, map, map.mode, now, SomePage());
    QVERIFY(update);
    page = Replaced(page, update->changes);
    QCOMPARE(page.count(QStringLiteral("shape")), 2);
    const auto same = UpdateMap(page, update->after, map.mode, now, SomePage());
    QVERIFY(same && same->changes.isEmpty());
}

QTEST_GUILESS_MAIN(tst_writtenattributes)
#include "tst_writtenattributes.moc"
