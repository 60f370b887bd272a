#include "imagemap/origin/MapOrigin.h"

#include <QTest>

namespace {

constexpr QLatin1String
    someMap("<map name=m><area href=a coords=1,2,3,4><area href=b coords=5,6,7,8></map>\n");

KeptOrigin KeptMapAt(qint64 start)
{
    return { .Text = QString(someMap).trimmed(), .Start = start, .Sources = { 4, 2 }, .Of = KeptOrigin::Map };
}

/** Where the page of a test says that a map is. */
class FakeRange : public AnchoredRange
{
public:
    explicit FakeRange(const TextSpan& place)
        : place_(place)
    {
    }
    [[nodiscard]] bool IsThere() const override { return true; }
    [[nodiscard]] TextSpan Place() const override { return place_; }

private:
    TextSpan place_;
};

/** The map that a page has at `start`. */
MapOrigin OriginAt(const QString& page, qsizetype start)
{
    ReturnedMap map = FindKept(page, KeptMapAt(start)).value();
    const TextSpan place{ map.place.offset, map.place.length };
    const QString text = TextOf(page, map);
    return { std::move(map), std::make_unique<FakeRange>(place), text, {} };
}

} // namespace

/** Where a map came from is found again in a page that may have been changed since. */
class tst_keptorigin : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nearestOfSeveralIsTaken();
    void placeIsKeptAsLongAsItLeadsToTheMap();
    void otherTextIsNotTaken();
    void pictureIsFoundByItsTag();
    void areasKeepTheirSources();
    void whatWasPutInIsFoundByItsText();
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

void tst_keptorigin::placeIsKeptAsLongAsItLeadsToTheMap()
{
    const QString maps = QString(someMap).trimmed().repeated(3);
    const qsizetype length = maps.size() / 3;
    KeptOrigin last;
    int changes = 0;
    for (qsizetype typed = 0; typed < 3 * length; ++typed) {
        const QString page = QString(typed, u'x') + maps;
        const qsizetype start = typed + length;
        const KeptOrigin now = OriginAt(page, start).Kept(last);
        changes += now != last ? 1 : 0;
        QCOMPARE(FindKept(page, now)->place.offset, start);
        last = now;
    }
    QVERIFY2(changes >= 3 && changes <= 7, qPrintable(QString::number(changes)));
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
        .Text = QStringLiteral("<img src=b>"), .Start = 0, .Sources = {}, .Of = KeptOrigin::Picture
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

void tst_keptorigin::whatWasPutInIsFoundByItsText()
{
    const QString page = QStringLiteral("abc<map></map>abc<map></map>abc");
    KeptOrigin kept{
        .Text = QStringLiteral("<map></map>"), .Start = 0, .Sources = {}, .Of = KeptOrigin::Inserted
    };
    const auto found = [&] { return FindInserted(page, kept).value_or(TextSpan()).Start; };
    QCOMPARE(found(), 3);
    kept.Start = 10;
    QCOMPARE(found(), 3);
    kept.Start = 11;
    QCOMPARE(found(), 17);
    kept.Start = qint64(1) << 40;
    QCOMPARE(found(), 17);
    QVERIFY(!FindInserted(QStringLiteral("<map></ma>"), kept));
    kept.Text.clear();
    QVERIFY(!FindInserted(page, kept));
}

QTEST_APPLESS_MAIN(tst_keptorigin)
#include "tst_keptorigin.moc"
