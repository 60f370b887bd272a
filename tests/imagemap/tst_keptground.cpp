#include "imagemap/PictureSurface.h"
#include "imagemap/SelectionPainting.h"

#include <QPainter>
#include <QTest>
#include <memory>

namespace {

constexpr QSize pictureSize(300, 200);

QImage MakePicture()
{
    QImage picture(pictureSize, QImage::Format_RGB32);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            picture.setPixel(x, y, qRgb(x * 7 % 256, y * 5 % 256, (x ^ y) % 256));
        }
    }
    return picture;
}

MapAreas Triangles(int count)
{
    MapAreas triangles;
    for (int i = 0; i < count; ++i) {
        const int x = 7 * i % 260;
        const int y = 11 * i % 170;
        triangles << MapArea{ AreaShape::Polygon, { x, y, x + 33, y + 9, x + 12, y + 27 }, {}, {}, {} };
    }
    return triangles;
}

PaintedFigures Boxes(int count)
{
    PaintedFigures boxes;
    for (int i = 0; i < count; ++i) {
        const int x = 13 * i % 250;
        const int y = 17 * i % 160;
        boxes << PaintedFigure{ .kind = kindRectangle, .x1 = x, .y1 = y, .x2 = x + 40, .y2 = y + 30 };
    }
    return boxes;
}

/** The picture with these areas shown whole, painted at once and without anything kept. */
QImage PaintedAtOnce(const PictureSurface& surface, const MapAreas& areas)
{
    QPixmap painted(surface.size() * surface.devicePixelRatioF());
    painted.setDevicePixelRatio(surface.devicePixelRatioF());
    QPainter painter(&painted);
    painter.setFont(surface.font());
    painter.drawImage(surface.rect(), MakePicture());
    PaintAreas(painter, areas, 1, surface.palette(), surface.rect());
    painter.end();
    return painted.toImage();
}

} // namespace

/** A ground with much on it is kept as it was painted, and never seen once it is another. */
class tst_keptground : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { surface_.reset(); }

    void whatIsKeptLooksAsIfPaintedAnew();
    void whatMovesOverItLeavesNoTrace();
    void otherAreasAreSeen();
    void otherColoursAreSeen();
    void anotherZoomIsSeen();
    void aPartIsTakenFromItsPlace();
    void whatIsBeingDrawnIsSeenOverAllFigures();

private:
    [[nodiscard]] QImage Shown() const { return surface_->grab().toImage(); }

    std::unique_ptr<PictureSurface> surface_;
};

void tst_keptground::init()
{
    surface_ = std::make_unique<PictureSurface>();
    surface_->SetPicture(MakePicture());
    surface_->ShowAreas(Triangles(200));
}

void tst_keptground::whatIsKeptLooksAsIfPaintedAnew()
{
    const QImage expected = PaintedAtOnce(*surface_, Triangles(200));
    QCOMPARE(Shown(), expected);
    QCOMPARE(Shown(), expected);
}

void tst_keptground::whatMovesOverItLeavesNoTrace()
{
    const QImage before = Shown();
    SelectionPicture selection;
    selection.areas = Triangles(100);
    surface_->ShowSelection(selection);
    QVERIFY(Shown() != before);
    surface_->ShowSelection({});
    QCOMPARE(Shown(), before);
}

void tst_keptground::otherAreasAreSeen()
{
    QVERIFY(!Shown().isNull());
    surface_->ShowAreas(Triangles(150));
    QCOMPARE(Shown(), PaintedAtOnce(*surface_, Triangles(150)));
    surface_->ShowAreas({});
    QCOMPARE(Shown(), PaintedAtOnce(*surface_, {}));
}

void tst_keptground::otherColoursAreSeen()
{
    const QImage before = Shown();
    QPalette palette = surface_->palette();
    palette.setColor(QPalette::Highlight, Qt::red);
    surface_->setPalette(palette);
    QVERIFY(Shown() != before);
    QCOMPARE(Shown(), PaintedAtOnce(*surface_, Triangles(200)));
}

void tst_keptground::anotherZoomIsSeen()
{
    const QImage before = Shown();
    surface_->SetZoom(2);
    QVERIFY(Shown() != before);
    surface_->SetZoom(1);
    QCOMPARE(Shown(), before);
}

void tst_keptground::aPartIsTakenFromItsPlace()
{
    const QRect part(100, 60, 80, 50);
    const QImage whole = Shown();
    const QImage shown = surface_->grab(part).toImage();
    const QPoint place = part.topLeft() * surface_->devicePixelRatioF();
    QCOMPARE(shown, whole.copy(QRect(place, shown.size())));
    QCOMPARE(Shown(), whole);
}

void tst_keptground::whatIsBeingDrawnIsSeenOverAllFigures()
{
    const PaintedFigures figures = Boxes(100);
    const PaintedFigure drawn{ .kind = kindRectangle, .x1 = 20, .y1 = 10, .x2 = 240, .y2 = 150 };
    surface_->ShowAreas({});
    surface_->ShowFigures(figures);
    // One step after the other, the last of which is over what was kept for the first.
    for (int x = 100; x < drawn.x2; x += 50) {
        surface_->ShowRubberFigure({ .kind = kindRectangle, .x1 = 20, .y1 = 10, .x2 = x, .y2 = 150 });
        QVERIFY(!Shown().isNull());
    }
    surface_->ShowRubberFigure(drawn);
    PictureSurface fresh;
    fresh.SetPicture(MakePicture());
    fresh.ShowFigures(figures);
    fresh.ShowRubberFigure(drawn);
    QCOMPARE(Shown(), fresh.grab().toImage());
    // Other figures below it are seen at once.
    surface_->ShowFigures(Boxes(90));
    fresh.ShowFigures(Boxes(90));
    QCOMPARE(Shown(), fresh.grab().toImage());
    surface_->EraseRubberFigure();
    fresh.EraseRubberFigure();
    QCOMPARE(Shown(), fresh.grab().toImage());
}

QTEST_MAIN(tst_keptground)
#include "tst_keptground.moc"
