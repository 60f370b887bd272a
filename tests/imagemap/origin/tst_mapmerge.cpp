#include "imagemap/origin/AreaLikeness.h"
#include "imagemap/origin/MapMerge.h"

#include <QTest>

namespace {

MapArea Area(int left, const char* link, int source)
{
    return { .Shape = AreaShape::Rectangle,
             .Coordinates = { left, 0, left + 10, 10 },
             .Link = QString::fromLatin1(link),
             .Target = {},
             .Message = {},
             .Source = source };
}

EditedMap MapOf(const MapAreas& areas)
{
    EditedMap map;
    map.source.MapName = QStringLiteral("m");
    map.source.Areas = areas;
    return map;
}

/** The links of a map's areas, with their sources. */
QString Shown(const MapAreas& areas)
{
    QStringList shown;
    for (const MapArea& area : areas) {
        shown << area.Link + u'@' + QString::number(area.Coordinates.value(0)) + u'#' +
                     QString::number(area.Source);
    }
    return shown.join(u' ');
}

} // namespace

/** Two changes of one map, put together. */
class tst_mapmerge : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void whatOneSideChangedIsTaken();
    void bothSidesOfOneAreaAreTaken();
    void editorCountsWhereBothChangedTheSame();
    void areaTakenOutOfThePageStaysOut();
    void changedAreaThatThePageLostComesBack();
    void areaDeletedInTheEditorGoes();
    void changedAreaThatTheEditorDeletedIsTold();
    void newAreasOfBothSidesStay();
    void newAreaOfThePageStaysBehindADeletedOne();
    void fieldsAreMergedOneByOne();
    void modeThatBothChangedIsTold();
    void fileNamesOnlyIsMerged();
    void attributesAreMergedOneByOne();
    void copiesOfAnAreaAreNew();
    void sourcesAreKept();

private:
    const MapAreas was_ = { Area(0, "a", 0), Area(20, "b", 1), Area(40, "c", 2) };

    [[nodiscard]] MergedMap Merged(const MapAreas& mine, const MapAreas& theirs) const
    {
        return Merge(MapOf(was_), MapOf(mine), MapOf(theirs));
    }
};

void tst_mapmerge::whatOneSideChangedIsTaken()
{
    const MergedMap merged = Merged(
        { Area(0, "x", 0), Area(20, "b", 1), Area(40, "c", 2) },
        { Area(0, "a", 0), Area(20, "b", 1), Area(41, "c", 2) });
    QCOMPARE(Shown(merged.map.source.Areas), QStringLiteral("x@0#0 b@20#1 c@41#2"));
    QCOMPARE(merged.losses, QStringList());
}

void tst_mapmerge::bothSidesOfOneAreaAreTaken()
{
    const MergedMap merged = Merged(
        { Area(0, "x", 0), Area(20, "b", 1), Area(40, "c", 2) },
        { Area(5, "a", 0), Area(20, "b", 1), Area(40, "c", 2) });
    QCOMPARE(Shown(merged.map.source.Areas), QStringLiteral("x@5#0 b@20#1 c@40#2"));
    QCOMPARE(merged.losses, QStringList());
}

void tst_mapmerge::editorCountsWhereBothChangedTheSame()
{
    const MergedMap merged = Merged(
        { Area(0, "x", 0), Area(20, "b", 1), Area(40, "c", 2) },
        { Area(0, "y", 0), Area(20, "b", 1), Area(40, "c", 2) });
    QCOMPARE(Shown(merged.map.source.Areas), QStringLiteral("x@0#0 b@20#1 c@40#2"));
    QCOMPARE(merged.losses.size(), 1);
    QVERIFY(merged.losses.constFirst().startsWith(u"Area 1 "));
}

void tst_mapmerge::areaTakenOutOfThePageStaysOut()
{
    const MergedMap merged = Merged(was_, { Area(0, "a", 0), Area(40, "c", 2) });
    QCOMPARE(Shown(merged.map.source.Areas), QStringLiteral("a@0#0 c@40#2"));
    QCOMPARE(merged.losses, QStringList());
}

void tst_mapmerge::changedAreaThatThePageLostComesBack()
{
    const MergedMap merged = Merged(
        { Area(0, "a", 0), Area(20, "x", 1), Area(40, "c", 2) }, { Area(0, "a", 0), Area(40, "c", 2) });
    QCOMPARE(Shown(merged.map.source.Areas), QStringLiteral("a@0#0 x@20#-1 c@40#2"));
    QCOMPARE(merged.losses.size(), 1);
}

void tst_mapmerge::areaDeletedInTheEditorGoes()
{
    const MergedMap merged = Merged({ Area(0, "a", 0), Area(40, "c", 2) }, was_);
    QCOMPARE(Shown(merged.map.source.Areas), QStringLiteral("a@0#0 c@40#2"));
    QCOMPARE(merged.losses, QStringList());
}

void tst_mapmerge::changedAreaThatTheEditorDeletedIsTold()
{
    const MergedMap merged = Merged(
        { Area(0, "a", 0), Area(40, "c", 2) }, { Area(0, "a", 0), Area(20, "y", 1), Area(40, "c", 2) });
    QCOMPARE(Shown(merged.map.source.Areas), QStringLiteral("a@0#0 c@40#2"));
    QCOMPARE(merged.losses.size(), 1);
}

void tst_mapmerge::newAreasOfBothSidesStay()
{
    const MergedMap merged = Merged(
        { Area(0, "a", 0), Area(60, "mine", -1), Area(20, "b", 1), Area(40, "c", 2) },
        { Area(0, "a", 0), Area(20, "b", 1), Area(80, "theirs", 7), Area(40, "c", 2) });
    QCOMPARE(Shown(merged.map.source.Areas), QStringLiteral("a@0#0 mine@60#-1 b@20#1 theirs@80#7 c@40#2"));
    QCOMPARE(merged.losses, QStringList());
}

void tst_mapmerge::newAreaOfThePageStaysBehindADeletedOne()
{
    const MergedMap merged = Merged(
        { Area(0, "a", 0), Area(20, "b", 1) },
        { Area(0, "a", 0), Area(20, "b", 1), Area(40, "c", 2), Area(80, "theirs", 7) });
    QCOMPARE(Shown(merged.map.source.Areas), QStringLiteral("a@0#0 b@20#1 theirs@80#7"));
}

void tst_mapmerge::fieldsAreMergedOneByOne()
{
    EditedMap mine = MapOf(was_);
    EditedMap theirs = MapOf(was_);
    mine.source.AltText = QStringLiteral("mine");
    theirs.source.Width = QStringLiteral("300");
    mine.source.MapName = QStringLiteral("x");
    theirs.source.MapName = QStringLiteral("y");
    const MergedMap merged = Merge(MapOf(was_), mine, theirs);
    QCOMPARE(merged.map.source.AltText, QStringLiteral("mine"));
    QCOMPARE(merged.map.source.Width, QStringLiteral("300"));
    QCOMPARE(merged.map.source.MapName, QStringLiteral("x"));
    QCOMPARE(
        merged.losses,
        QStringList(QStringLiteral("The map's name was changed in the page too; the editor's counts")));
}

void tst_mapmerge::modeThatBothChangedIsTold()
{
    EditedMap mine = MapOf(was_);
    EditedMap theirs = MapOf(was_);
    mine.mode = JSToolTips;
    const MergedMap one = Merge(MapOf(was_), mine, theirs);
    QCOMPARE(one.map.mode, JSToolTips);
    QCOMPARE(one.losses, QStringList());
    theirs.mode = JSTextArea;
    const MergedMap both = Merge(MapOf(was_), mine, theirs);
    QCOMPARE(both.map.mode, JSToolTips);
    QCOMPARE(
        both.losses, QStringList(QStringLiteral(
                         "The map's JavaScript mode was changed in the page too; the editor's counts")));
}

/** There are only two states, so that nothing of it can get lost. */
void tst_mapmerge::fileNamesOnlyIsMerged()
{
    EditedMap mine = MapOf(was_);
    EditedMap theirs = MapOf(was_);
    theirs.source.FileNamesOnly = true;
    const MergedMap one = Merge(MapOf(was_), mine, theirs);
    QVERIFY(one.map.source.FileNamesOnly);
    mine.source.FileNamesOnly = true;
    const MergedMap both = Merge(MapOf(was_), mine, theirs);
    QVERIFY(both.map.source.FileNamesOnly);
    QCOMPARE(one.losses + both.losses, QStringList());
}

void tst_mapmerge::attributesAreMergedOneByOne()
{
    const auto with = [](const QList<AreaAttribute>& attributes) {
        MapArea area = Area(0, "a", 0);
        area.Attributes = attributes;
        return MapAreas{ area };
    };
    const AreaAttribute rel{ QStringLiteral("rel"), QStringLiteral("next") };
    const AreaAttribute id{ QStringLiteral("id"), QStringLiteral("i") };
    const AreaAttribute data{ QStringLiteral("data-x"), QStringLiteral("1") };
    const MergedMap merged =
        Merge(MapOf(with({ rel })), MapOf(with({ rel, id })), MapOf(with({ rel, data })));
    QCOMPARE(merged.map.source.Areas.constFirst().Attributes, QList<AreaAttribute>({ rel, data, id }));
    const MergedMap without =
        Merge(MapOf(with({ rel, id })), MapOf(with({ rel })), MapOf(with({ rel, id, data })));
    QCOMPARE(without.map.source.Areas.constFirst().Attributes, QList<AreaAttribute>({ rel, data }));
}

void tst_mapmerge::copiesOfAnAreaAreNew()
{
    const MergedMap merged =
        Merged({ Area(0, "a", 0), Area(10, "a", 0), Area(20, "b", 1), Area(40, "c", 2) }, was_);
    QCOMPARE(Shown(merged.map.source.Areas), QStringLiteral("a@0#0 a@10#-1 b@20#1 c@40#2"));
}

void tst_mapmerge::sourcesAreKept()
{
    MapAreas page = { Area(60, "new", 0), Area(20, "b", 1), Area(0, "a", 2) };
    KeepSources(page, was_, { Area(0, "a", 0), Area(90, "n", 5) });
    QCOMPARE(Shown(page), QStringLiteral("new@60#6 b@20#1 a@0#0"));
}

QTEST_APPLESS_MAIN(tst_mapmerge)
#include "tst_mapmerge.moc"
