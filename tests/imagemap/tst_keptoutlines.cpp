#include "imagemap/PictureSurface.h"

#include <QImage>
#include <QTest>
#include <memory>

namespace {

/** Areas of every shape that lie one over the other. */
MapAreas Mixed(int count, QPoint by = {})
{
    MapAreas areas;
    for (int i = 0; i < count; ++i) {
        const int x = 7 * i % 230 + by.x();
        const int y = 11 * i % 150 + by.y();
        switch (i % 3) {
        case 0:
            areas << MapArea{ AreaShape::Polygon, { x, y, x + 33, y + 9, x + 12, y + 27 }, {}, {}, {} };
            break;
        case 1:
            areas << MapArea{ AreaShape::Circle, { x + 20, y + 20, 5 + i % 13 }, {}, {}, {} };
            break;
        default:
            areas << MapArea{ AreaShape::Rectangle, { x, y, x + 21, y + 14 }, {}, {}, {} };
        }
    }
    return areas;
}

std::unique_ptr<PictureSurface> NewSurface(double zoom)
{
    auto surface = std::make_unique<PictureSurface>();
    QImage picture(300, 200, QImage::Format_RGB32);
    picture.fill(qRgb(200, 190, 40));
    surface->SetPicture(picture);
    surface->SetZoom(zoom);
    return surface;
}

SelectionPicture Selection(const MapAreas& areas)
{
    SelectionPicture selection;
    selection.areas = areas;
    return selection;
}

QImage Shown(PictureSurface& surface, const MapAreas& areas)
{
    surface.ShowSelection(Selection(areas));
    return surface.grab().toImage();
}

/** What a surface shows that has shown nothing before. */
QImage ShownFirst(double zoom, const MapAreas& areas)
{
    return Shown(*NewSurface(zoom), areas);
}

} // namespace

/** Outlines of many areas are kept while the areas move alike, and never seen where they are others. */
class tst_keptoutlines : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void whatIsMovedLooksAsIfPaintedAnew_data();
    void whatIsMovedLooksAsIfPaintedAnew();
    void whatIsTooLargeToBeKeptIsPainted();
    void anyOtherChangeIsSeen_data();
    void anyOtherChangeIsSeen();
    void whatFollowsTheMouseIsNearlyThere();
    void otherColoursAreSeen();
    void anotherZoomIsSeen();
    void nothingIsLeftOfThem();
};

void tst_keptoutlines::whatIsMovedLooksAsIfPaintedAnew_data()
{
    QTest::addColumn<double>("zoom");
    QTest::addColumn<int>("count");
    for (const double zoom : { 0.5, 1.0, 1.25, 3.0 }) {
        for (const int count : { 3, 50, 51, 120 }) {
            QTest::addRow("%d areas at %g", count, zoom) << zoom << count;
        }
    }
}

void tst_keptoutlines::whatIsMovedLooksAsIfPaintedAnew()
{
    QFETCH(const double, zoom);
    QFETCH(const int, count);
    const std::unique_ptr<PictureSurface> surface = NewSurface(zoom);
    for (const QPoint by : { QPoint(), QPoint(1, 0), QPoint(-9, 4), QPoint(60, 50), QPoint(-200, 0) }) {
        QVERIFY2(
            Shown(*surface, Mixed(count, by)) == ShownFirst(zoom, Mixed(count, by)),
            qPrintable(QStringLiteral("%1, %2").arg(by.x()).arg(by.y())));
    }
}

void tst_keptoutlines::whatIsTooLargeToBeKeptIsPainted()
{
    constexpr double zoom = 16;
    const std::unique_ptr<PictureSurface> surface = NewSurface(zoom);
    surface->ShowSelection(Selection(Mixed(60)));
    const QRect part(0, 0, 700, 500);
    QVERIFY(!surface->grab(part).isNull());
    surface->ShowSelection(Selection(Mixed(60, { 3, 2 })));
    const std::unique_ptr<PictureSurface> other = NewSurface(zoom);
    other->ShowSelection(Selection(Mixed(60, { 3, 2 })));
    QCOMPARE(surface->grab(part).toImage(), other->grab(part).toImage());
}

void tst_keptoutlines::anyOtherChangeIsSeen_data()
{
    QTest::addColumn<MapAreas>("areas");
    MapAreas areas = Mixed(80, { 5, 5 });
    areas[40].Coordinates[1] += 1;
    QTest::newRow("one has moved on") << areas;
    areas = Mixed(80, { 5, 5 });
    areas[31].Coordinates[2] += 3;
    QTest::newRow("another radius") << areas;
    areas = Mixed(80, { 5, 5 });
    areas[30].Coordinates << 40 << 90;
    QTest::newRow("another corner") << areas;
    areas = Mixed(80);
    areas[0].Coordinates.clear();
    QTest::newRow("the first without a place") << areas;
    QTest::newRow("one less") << Mixed(79, { 5, 5 });
    QTest::newRow("one more") << Mixed(81);
    QTest::newRow("few") << Mixed(4);
}

void tst_keptoutlines::anyOtherChangeIsSeen()
{
    QFETCH(const MapAreas, areas);
    const std::unique_ptr<PictureSurface> surface = NewSurface(1);
    QVERIFY(!Shown(*surface, Mixed(80)).isNull());
    const QImage shown = Shown(*surface, areas);
    QCOMPARE(shown, ShownFirst(1, areas));
    QCOMPARE(Shown(*surface, Mixed(80)), ShownFirst(1, Mixed(80)));
}

void tst_keptoutlines::whatFollowsTheMouseIsNearlyThere()
{
    // A step of one and a quarter pixels of the screen.
    const std::unique_ptr<PictureSurface> surface = NewSurface(1.25);
    const QImage before = Shown(*surface, Mixed(80));
    SelectionPicture moving = Selection(Mixed(80, { 1, 0 }));
    moving.note = QStringLiteral("1, 0");
    moving.notePlace = QPoint(290, 190);
    surface->ShowSelection(moving);
    const QImage shown = surface->grab().toImage();
    // In what the note is far from, all has moved by one whole pixel.
    const QRect compared(0, 0, 200, 150);
    QCOMPARE(shown.copy(compared.translated(1, 0)), before.copy(compared));
    // And when it is let go of, by what it has to.
    QCOMPARE(Shown(*surface, Mixed(80, { 1, 0 })), ShownFirst(1.25, Mixed(80, { 1, 0 })));
}

void tst_keptoutlines::otherColoursAreSeen()
{
    const std::unique_ptr<PictureSurface> surface = NewSurface(1);
    const QImage before = Shown(*surface, Mixed(80));
    QPalette palette = surface->palette();
    palette.setColor(QPalette::Highlight, Qt::red);
    surface->setPalette(palette);
    QVERIFY(Shown(*surface, Mixed(80)) != before);
}

void tst_keptoutlines::anotherZoomIsSeen()
{
    const std::unique_ptr<PictureSurface> surface = NewSurface(1);
    QVERIFY(!Shown(*surface, Mixed(80)).isNull());
    surface->SetZoom(2);
    QCOMPARE(Shown(*surface, Mixed(80)), ShownFirst(2, Mixed(80)));
}

void tst_keptoutlines::nothingIsLeftOfThem()
{
    const std::unique_ptr<PictureSurface> surface = NewSurface(1);
    const QImage bare = Shown(*surface, {});
    QVERIFY(Shown(*surface, Mixed(80)) != bare);
    QCOMPARE(Shown(*surface, {}), bare);
}

QTEST_MAIN(tst_keptoutlines)
#include "tst_keptoutlines.moc"
