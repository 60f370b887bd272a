// Whatever is wished for any map of any page comes true, and changes nothing else.

#include "MapWishes.h"

#include <QDir>
#include <QTest>
#include <array>

namespace {

/** What a wish comes to: attributes by name, geometry as browsers see it. */
QStringList Meaning(const MapWish& wish)
{
    QStringList meaning;
    const auto add = [&meaning](QList<AttributeWish> attributes) {
        QStringList words;
        for (const AttributeWish& one : attributes) {
            words += one.name + u'=' + one.value;
        }
        words.sort();
        meaning += words.join(u'|');
    };
    add(wish.attributes);
    for (const AreaWish& area : wish.areas) {
        add(area.attributes);
    }
    return meaning;
}

/** From one map to the next that is tried: of many, not all. */
qsizetype StepOf(const PageMaps& maps)
{
    return 1 + qsizetype(maps.maps.size()) / 8;
}

/** Whether there may be code in the page, which not all can be done to. */
bool MayHoldCode(QStringView page)
{
    return page.contains(u"<?") || page.contains(u"<%") || page.contains(u'{');
}

using Editing = void (*)(MapWish&, qsizetype area);

struct Edit
{
    const char* name;
    Editing edit;
    bool changesOnePlace;
};

const std::array<Edit, 7> edits = { {
    { "nothing", [](MapWish&, qsizetype) {}, false },
    { "geometry", [](MapWish& wish, qsizetype area) { Value(wish.areas[area], "coords") = "11,12,13,14"; },
      true },
    { "link", [](MapWish& wish, qsizetype area) { Value(wish.areas[area], "href") = "a new \"place\"?x&y"; },
      true },
    { "text added", [](MapWish& wish, qsizetype area) { Value(wish.areas[area], "data-new") = "it's"; },
      true },
    { "deleted", [](MapWish& wish, qsizetype area) { wish.areas.removeAt(area); }, true },
    { "added behind", [](MapWish& wish, qsizetype area) { wish.areas.insert(area + 1, NewArea()); }, true },
    { "added before", [](MapWish& wish, qsizetype area) { wish.areas.insert(area, NewArea()); }, true },
} };

} // namespace

class tst_mapwishes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void oneChangeChangesOnePlace_data();
    void oneChangeChangesOnePlace();
    void anyWishComesTrue_data();
    void anyWishComesTrue();
};

void tst_mapwishes::oneChangeChangesOnePlace_data()
{
    QTest::addColumn<QString>("path");
    for (const QString& folder : { QStringLiteral("pages"), QStringLiteral("../html/pages") }) {
        const QDir pages(QString(QT_TESTCASE_SOURCEDIR) + u'/' + folder);
        for (const QString& name : pages.entryList(QDir::Files, QDir::Name)) {
            QTest::newRow(qPrintable(folder + u'/' + name)) << pages.filePath(name);
        }
    }
}

/** Every edit of every area of the page: at most one place changes, and then the map is as wished. */
void tst_mapwishes::oneChangeChangesOnePlace()
{
    QFETCH(const QString, path);
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QString page = QString::fromUtf8(file.readAll());
    const PageMaps maps = ReadPageMaps(page);
    for (qsizetype map = 0; map < qsizetype(maps.maps.size()); map += StepOf(maps)) {
        const MapWish before = WishOf(page, maps, map);
        for (qsizetype area = 0; area < before.areas.size(); ++area) {
            for (const Edit& edit : edits) {
                MapWish wish = before;
                edit.edit(wish, area);
                const auto changes = ChangeMap(page, maps, map, wish);
                if (!changes) {
                    QVERIFY2(MayHoldCode(page), edit.name);
                    continue;
                }
                QVERIFY2(changes->size() == (edit.changesOnePlace ? 1 : 0), edit.name);
                if (!edit.changesOnePlace) {
                    continue;
                }
                const QString changed = Replaced(page, *changes);
                const PageMaps again = ReadPageMaps(changed);
                QCOMPARE(again.maps.size(), maps.maps.size());
                QCOMPARE(Meaning(WishOf(changed, again, map)), Meaning(wish));
            }
        }
    }
}

void tst_mapwishes::anyWishComesTrue_data()
{
    oneChangeChangesOnePlace_data();
}

/** Areas taken away, turned round and added at once. */
void tst_mapwishes::anyWishComesTrue()
{
    QFETCH(const QString, path);
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QString page = QString::fromUtf8(file.readAll());
    const PageMaps maps = ReadPageMaps(page);
    for (qsizetype map = 0; map < qsizetype(maps.maps.size()); map += StepOf(maps)) {
        for (unsigned seed = 1; seed < 8; ++seed) {
            MapWish wish = WishOf(page, maps, map);
            const qsizetype count = wish.areas.size();
            for (qsizetype i = count; i > 0; --i) {
                const auto chosen = unsigned(i) * 7 + seed;
                if (chosen % 3 == 0) {
                    wish.areas.removeAt(i - 1);
                } else if (chosen % 5 == 0) {
                    wish.areas.insert(i - 1, NewArea());
                } else if (chosen % 7 == 0) {
                    Value(wish.areas[i - 1], "title") = "x";
                }
            }
            if (seed % 4 == 0) {
                std::ranges::reverse(wish.areas);
            }
            wish.areas << NewArea();
            const auto changes = ChangeMap(page, maps, map, wish);
            if (!changes) {
                QVERIFY(MayHoldCode(page));
                continue;
            }
            qsizetype end = -1;
            for (const TextReplacement& change : *changes) {
                QVERIFY(change.Place.Start > end);
                end = change.Place.Start + change.Place.Length;
            }
            const QString changed = Replaced(page, *changes);
            QCOMPARE(Meaning(WishOf(changed, ReadPageMaps(changed), map)), Meaning(wish));
        }
    }
}

QTEST_GUILESS_MAIN(tst_mapwishes)
#include "tst_mapwishes.moc"
