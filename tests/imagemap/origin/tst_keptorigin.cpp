#include "imagemap/origin/MapOrigin.h"

#include <QTest>

namespace {

constexpr QLatin1String
    someMap("<map name=m><area href=a coords=1,2,3,4><area href=b coords=5,6,7,8></map>\n");

KeptOrigin KeptMapAt(qint64 start)
{
    return { .Text = QString(someMap).trimmed(), .Start = start, .Sources = { 4, 2 }, .IsPicture = false };
}

} // namespace

/** Where a map came from is found again in a page that may have been changed since. */
class tst_keptorigin : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nearestOfSeveralIsTaken();
    void otherTextIsNotTaken();
    void pictureIsFoundByItsTag();
    void areasKeepTheirSources();
};

void tst_keptorigin::nearestOfSeveralIsTaken()
{
    const QString page = QString(someMap) + QString(someMap) + QString(someMap);
    const qsizetype length = someMap.size();
    for (const qsizetype number : { 0, 1, 2 }) {
        const auto found = FindKept(page, KeptMapAt(number * length + 3));
        QVERIFY(found);
        QCOMPARE(found->place.offset, number * length);
    }
}

void tst_keptorigin::otherTextIsNotTaken()
{
    QString page = someMap;
    page.replace(QStringLiteral("href=b"), QStringLiteral("href=c"));
    QVERIFY(!FindKept(page, KeptMapAt(0)));
    QVERIFY(!FindKept(QString(), KeptMapAt(0)));
    // With a picture that uses it, it is another map than without.
    QVERIFY(!FindKept(QString(QStringLiteral("<img src=x usemap=#m>") + someMap), KeptMapAt(0)));
}

void tst_keptorigin::pictureIsFoundByItsTag()
{
    const QString page = QStringLiteral("<p><img src=a><img src=b></p>");
    const KeptOrigin kept{
        .Text = QStringLiteral("<img src=b>"), .Start = 0, .Sources = {}, .IsPicture = true
    };
    const auto found = FindKept(page, kept);
    QVERIFY(found);
    QCOMPARE(found->picture.In(page), QStringView(u"<img src=b>"));
    QVERIFY(!found->IsInPage());
    QVERIFY(!FindKept(QStringLiteral("<!-- <img src=b> -->"), kept));
}

void tst_keptorigin::areasKeepTheirSources()
{
    const auto found = FindKept(QString(someMap), KeptMapAt(0));
    QVERIFY(found);
    QCOMPARE(found->source.Areas.at(0).Source, 4);
    QCOMPARE(found->source.Areas.at(1).Source, 2);
}

QTEST_APPLESS_MAIN(tst_keptorigin)
#include "tst_keptorigin.moc"
