#include "imagemap/model/AreaGeometry.h"
#include "imagemap/model/MapDocument.h"

#include <QTest>

#if __has_include(<malloc.h>)
#include <malloc.h>
#endif

namespace {

constexpr int manySteps = 1000;

/** What has been allocated so far, in bytes; nothing where that cannot be told. */
std::optional<std::size_t> AllocatedBytes()
{
#ifdef __GLIBC__
    const struct mallinfo2 info = mallinfo2();
    // A sanitizer's own allocator tells nothing.
    if (info.uordblks > 0) {
        return info.uordblks + info.hblkhd;
    }
#endif
    return {};
}

MapArea RectangleAt(int x)
{
    return { AreaShape::Rectangle, { x, 10, x + 30, 30 }, QStringLiteral("a.htm"), {}, {} };
}

void DrawRectangle(MapDocument& map, int x)
{
    FigureStore& ledger = map.Ledger();
    ledger.CurrentKind = kindRectangle;
    ledger.StartX = static_cast<qint16>(x);
    ledger.EndX = static_cast<qint16>(x + 30);
    ledger.AppendFigure();
    LinkEntry entry;
    entry.Fields.fill(QStringLiteral("a.htm"));
    map.LinkNewArea(entry);
}

/** Draws and deletes by turns, with `count` rectangles on the picture. */
void DrawAndDelete(MapDocument& map, int count)
{
    while (map.Figures().FigureCount < count) {
        DrawRectangle(map, map.Figures().FigureCount);
    }
    map.History().Forget();
    for (int i = 0; i < manySteps; i += 2) {
        map.DeleteLastFigure();
        DrawRectangle(map, i % 200);
    }
}

/** Moves one of so many areas, another one each time. */
void MoveEach(MapDocument& map, int count)
{
    MapAreas areas;
    for (int i = 0; i < count; ++i) {
        areas << RectangleAt(i);
    }
    map.ChangeAreas(areas, QStringLiteral("made"));
    map.History().Forget();
    for (int i = 0; i < manySteps; ++i) {
        areas[i % count] = Moved(areas[i % count], { 1, 0 });
        map.ChangeAreas(areas, QStringLiteral("Move of an Area"));
    }
}

} // namespace

/** How states of a map are kept: to the last slot, and in little memory. */
class tst_packedstate : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aFreshMapComesBack();
    void freedSlotsComeBack();
    void aListComesBackAtEveryLength();
    void aLongerLedgerComesBack();
    void aThousandStepsTakeLittle_data();
    void aThousandStepsTakeLittle();
};

void tst_packedstate::aFreshMapComesBack()
{
    QCOMPARE(PackedState(MapState(), PackedState()).Unpacked(), MapState());
}

void tst_packedstate::freedSlotsComeBack()
{
    MapDocument map;
    DrawAndDelete(map, 40);
    const PackedState before(map.State(), PackedState());
    for (int i = 0; i < 35; ++i) {
        map.DeleteLastFigure();
    }
    const MapState state = map.State();
    QCOMPARE(state.Figures.FigureCount, 5);
    QVERIFY(state.Figures.Figures[39] != FigureRecord());
    QCOMPARE(PackedState(state, before).Unpacked(), state);
}

void tst_packedstate::aListComesBackAtEveryLength()
{
    PackedList<int> before;
    for (int length = 0; length < 70; ++length) {
        QList<int> list;
        for (int i = 0; i < length; ++i) {
            list << i;
        }
        const PackedList<int> packed(list, before);
        QCOMPARE(packed.Unpacked(), list);
        for (QList<int> other : { list, list }) {
            for (int place = 0; place < length; ++place) {
                // Noughts count as never used, wherever they stand.
                other[place] = place % 2 == 0 ? 0 : -1;
                QCOMPARE(PackedList<int>(other, packed).Unpacked(), other);
            }
        }
        before = packed;
    }
}

void tst_packedstate::aLongerLedgerComesBack()
{
    MapState state;
    state.Figures.Figures.resize(FigureStore::capacity + 77);
    state.Figures.PolygonLines.resize(3);
    state.Figures.Figures.last().Kind = kindLine;
    QCOMPARE(PackedState(state, PackedState()).Unpacked(), state);
}

void tst_packedstate::aThousandStepsTakeLittle_data()
{
    using Work = void (*)(MapDocument&, int);
    QTest::addColumn<Work>("work");
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("mostBytesAStep");

    QTest::newRow("drawing, 10 areas") << &DrawAndDelete << 10 << 8 * 1024;
    QTest::newRow("drawing, 490 areas") << &DrawAndDelete << 490 << 8 * 1024;
    QTest::newRow("moving, 10 areas") << &MoveEach << 10 << 6 * 1024;
    QTest::newRow("moving, 490 areas") << &MoveEach << 490 << 6 * 1024;
}

void tst_packedstate::aThousandStepsTakeLittle()
{
    using Work = void (*)(MapDocument&, int);
    QFETCH(const Work, work);
    QFETCH(const int, count);
    QFETCH(const int, mostBytesAStep);
    const std::optional<std::size_t> before = AllocatedBytes();
    if (!before) {
        QSKIP("this system does not tell what is allocated");
    }
    MapDocument map;
    work(map, count);
    QCOMPARE(map.History().Position(), manySteps);
    const std::size_t whole = *AllocatedBytes() - *before;
    map.History().Forget();
    const std::size_t ofSteps = whole - (*AllocatedBytes() - *before);
    qInfo("1,000 steps take %zu bytes", ofSteps);
    QVERIFY(ofSteps > 0);
    QVERIFY2(
        ofSteps / manySteps < std::size_t(mostBytesAStep), qPrintable(QString::number(ofSteps / manySteps)));
}

QTEST_GUILESS_MAIN(tst_packedstate)
#include "tst_packedstate.moc"
