#include "imagemap/PictureSurface.h"
#include "shared/FigureStore.h"

#include <QRandomGenerator>
#include <QTest>

namespace {

QImage MakePicture(QSize size)
{
    QImage picture(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            picture.setPixel(x, y, qRgb(x * 7 % 256, y * 5 % 256, (x ^ y) % 256));
        }
    }
    return picture;
}

/** The picture's pixels as they are shown, one each also on a dense screen. */
QImage ShownBy(PictureSurface& surface)
{
    QImage shown = surface.grab().toImage().convertToFormat(QImage::Format_RGB32);
    shown.setDevicePixelRatio(1);
    return shown.scaled(surface.size());
}

} // namespace

/** What is taken off the picture leaves no trace, however much was painted. */
class tst_picturesurface : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void clearingShowsTheBarePicture_data();
    void clearingShowsTheBarePicture();
    void clearedDrawingTakesFiguresAgain();
};

void tst_picturesurface::clearingShowsTheBarePicture_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("most"); // distance of coordinates from the picture's middle
    for (const int kind : { int(kindRectangle), int(kindCircle), int(kindLine) }) {
        QTest::addRow("one of kind %d", kind) << kind << 1 << 40;
        QTest::addRow("a few small ones of kind %d", kind) << kind << 5 << 15;
        QTest::addRow("many of kind %d", kind) << kind << 500 << 150;
        QTest::addRow("beyond the picture, kind %d", kind) << kind << 50 << 400;
    }
    QTest::newRow("none") << int(kindRectangle) << 0 << 10;
}

void tst_picturesurface::clearingShowsTheBarePicture()
{
    QFETCH(const int, kind);
    QFETCH(const int, count);
    QFETCH(const int, most);
    const QImage picture = MakePicture({ 200, 150 });
    PictureSurface surface;
    surface.SetPicture(picture);
    QRandomGenerator random(quint32(kind * 1000 + count));
    const auto number = [&random](int low, int high) { return qint16(random.bounded(low, high)); };
    for (int i = 0; i < count; ++i) {
        surface.PaintFigure(
            { qint16(kind), number(100 - most, 100 + most), number(75 - most, 75 + most),
              number(100 - most, 100 + most), number(75 - most, 75 + most), number(0, most) },
            Pen::Copy);
    }
    if (count > 1) {
        QVERIFY(ShownBy(surface) != picture);
    }
    surface.ClearDrawing();
    QCOMPARE(ShownBy(surface), picture);
}

void tst_picturesurface::clearedDrawingTakesFiguresAgain()
{
    const PaintedFigure box{ kindRectangle, 10, 10, 60, 40, 0 };
    PictureSurface once;
    once.SetPicture(MakePicture({ 200, 150 }));
    once.PaintFigure(box, Pen::Copy);
    PictureSurface again;
    again.SetPicture(MakePicture({ 200, 150 }));
    again.PaintFigure({ kindCircle, 100, 70, 0, 0, 50 }, Pen::Copy);
    again.ClearDrawing();
    again.PaintFigure(box, Pen::Copy);
    QCOMPARE(ShownBy(again), ShownBy(once));
}

QTEST_MAIN(tst_picturesurface)
#include "tst_picturesurface.moc"
