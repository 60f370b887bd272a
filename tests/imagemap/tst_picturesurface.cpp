#include "imagemap/FigurePainting.h"
#include "imagemap/model/FigureStore.h"
#include "tests/imagemap/Drawing.h"

#include <QPainter>
#include <QRandomGenerator>
#include <QTest>
#include <cmath>

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
    void rubberFigureShowsOnEveryGrey();
    void rubberFigureKeepsInvertingWhereThatShows();
    void outlineHasALightEdgeOutsideOnDarkGround_data();
    void outlineHasALightEdgeOutsideOnDarkGround();
    void outlineHasNoEdgeWhereItShows();
    void edgeNeverCoversAnotherOutline();
    void edgesGoWithTheirFigures();
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
    Drawing surface;
    surface.SetPicture(picture);
    QRandomGenerator random(quint32(kind * 1000 + count));
    const auto number = [&random](int low, int high) { return qint16(random.bounded(low, high)); };
    for (int i = 0; i < count; ++i) {
        surface.Add({ qint16(kind), number(100 - most, 100 + most), number(75 - most, 75 + most),
                      number(100 - most, 100 + most), number(75 - most, 75 + most), number(0, most) });
    }
    if (count > 1) {
        QVERIFY(ShownBy(surface) != picture);
    }
    surface.Clear();
    QCOMPARE(ShownBy(surface), picture);
}

void tst_picturesurface::clearedDrawingTakesFiguresAgain()
{
    const PaintedFigure box{ kindRectangle, 10, 10, 60, 40, 0 };
    Drawing once;
    once.SetPicture(MakePicture({ 200, 150 }));
    once.Add(box);
    Drawing again;
    again.SetPicture(MakePicture({ 200, 150 }));
    again.Add({ kindCircle, 100, 70, 0, 0, 50 });
    again.Clear();
    again.Add(box);
    QCOMPARE(ShownBy(again), ShownBy(once));
}

void tst_picturesurface::rubberFigureShowsOnEveryGrey()
{
    QImage greys(256, 10, QImage::Format_RGB32);
    for (int x = 0; x < greys.width(); ++x) {
        for (int y = 0; y < greys.height(); ++y) {
            greys.setPixel(x, y, qRgb(x, x, x));
        }
    }
    Drawing surface;
    surface.SetPicture(greys);
    surface.ShowRubberFigure({ kindLine, 0, 5, 255, 5, 0 });
    const QImage shown = ShownBy(surface);
    for (int x = 0; x < greys.width(); ++x) {
        constexpr int seen = 56;
        QVERIFY2(std::abs(qRed(shown.pixel(x, 5)) - x) >= seen, qPrintable(QString::number(x)));
    }
    surface.EraseRubberFigure();
    QCOMPARE(ShownBy(surface), greys);
}

void tst_picturesurface::rubberFigureKeepsInvertingWhereThatShows()
{
    for (const QRgb ground : { 0xFF000000, 0xFFFFFFFF, 0xFF2050A0, 0xFF509678, 0xFFF0C040 }) {
        QCOMPARE(RubberColor(ground), ground ^ 0xFFFFFFU);
    }
    QCOMPARE(RubberColor(0xFF7F7F7F), 0xFFFFFFFF);
    QCOMPARE(RubberColor(0xFF808080), 0xFFFFFFFF);
}

void tst_picturesurface::outlineHasALightEdgeOutsideOnDarkGround_data()
{
    QTest::addColumn<PaintedFigure>("figure");
    QTest::addColumn<QColor>("color");
    for (const QColor& color : { QColor(Qt::black), QColor(Qt::red), QColor(Qt::darkBlue) }) {
        const QByteArray name = color.name().toLatin1();
        QTest::addRow("rectangle in %s", name.constData()) << PaintedFigure{ 5, 30, 20, 90, 60, 0 } << color;
        QTest::addRow("circle in %s", name.constData()) << PaintedFigure{ 6, 80, 70, 0, 0, 41 } << color;
        QTest::addRow("small circle in %s", name.constData()) << PaintedFigure{ 6, 80, 70, 0, 0, 3 } << color;
        QTest::addRow("line in %s", name.constData()) << PaintedFigure{ 7, 30, 20, 90, 47, 0 } << color;
        QTest::addRow("steep line in %s", name.constData()) << PaintedFigure{ 7, 60, 90, 47, 12, 0 } << color;
        QTest::addRow("point in %s", name.constData()) << PaintedFigure{ 5, 60, 60, 60, 60, 0 } << color;
    }
}

/** Whether `place` lies within the figure, not on it: a line has no inside. */
static bool IsInside(const PaintedFigure& figure, QPoint place)
{
    if (figure.kind == kindRectangle) {
        return BoundsOf(figure).adjusted(1, 1, -1, -1).contains(place);
    }
    return figure.kind == kindCircle &&
           std::hypot(place.x() - figure.x1, place.y() - figure.y1) < figure.radius;
}

void tst_picturesurface::outlineHasALightEdgeOutsideOnDarkGround()
{
    QFETCH(const PaintedFigure, figure);
    QFETCH(const QColor, color);
    const QRgb ground = qRgb(12, 16, 20);
    QImage dark(200, 150, QImage::Format_RGB32);
    dark.fill(ground);
    QImage outline(dark);
    QPainter painter(&outline);
    PaintOutline(painter, figure, color);
    painter.end();
    Drawing surface;
    surface.SetForegroundColor(color);
    surface.SetPicture(dark);
    surface.Add(figure);
    const QImage shown = ShownBy(surface);
    const auto isOnOutline = [&](QPoint place) {
        return outline.rect().contains(place) && outline.pixel(place) == color.rgb();
    };
    const auto isBesideOutline = [&](QPoint place) {
        return isOnOutline(place + QPoint(1, 0)) || isOnOutline(place - QPoint(1, 0)) ||
               isOnOutline(place + QPoint(0, 1)) || isOnOutline(place - QPoint(0, 1));
    };
    const auto isAtCorner = [&](QPoint place) {
        return isOnOutline(place + QPoint(1, 1)) || isOnOutline(place - QPoint(1, 1)) ||
               isOnOutline(place + QPoint(-1, 1)) || isOnOutline(place - QPoint(-1, 1));
    };
    for (int y = 0; y < dark.height(); ++y) {
        for (int x = 0; x < dark.width(); ++x) {
            const QPoint place(x, y);
            const QRgb pixel = shown.pixel(place);
            if (isOnOutline(place)) {
                QCOMPARE(pixel, color.rgb());
            } else if (isBesideOutline(place) && !IsInside(figure, place)) {
                QCOMPARE(pixel, qRgb(255, 255, 255));
            } else if (IsInside(figure, place) || !isAtCorner(place)) {
                QCOMPARE(pixel, ground);
            }
        }
    }
}

void tst_picturesurface::outlineHasNoEdgeWhereItShows()
{
    QImage light(200, 150, QImage::Format_RGB32);
    light.fill(qRgb(180, 200, 220));
    Drawing surface;
    surface.SetPicture(light);
    surface.Add({ kindRectangle, 30, 20, 90, 60, 0 });
    QPainter painter(&light);
    PaintOutline(painter, { kindRectangle, 30, 20, 90, 60, 0 }, Qt::black);
    painter.end();
    QCOMPARE(ShownBy(surface), light);
}

void tst_picturesurface::edgeNeverCoversAnotherOutline()
{
    QImage dark(200, 150, QImage::Format_RGB32);
    dark.fill(qRgb(12, 16, 20));
    // Side by side, crossing and within one another, in both orders.
    QList<PaintedFigure> figures = {
        { kindRectangle, 30, 20, 90, 60, 0 }, { kindRectangle, 91, 20, 150, 60, 0 },
        { kindRectangle, 31, 21, 60, 50, 0 }, { kindCircle, 90, 60, 0, 0, 30 },
        { kindLine, 10, 10, 150, 120, 0 },    { kindLine, 10, 11, 150, 121, 0 }
    };
    QImage first;
    for (int order = 0; order < 2; ++order) {
        Drawing surface;
        surface.SetPicture(dark);
        QImage outlines(dark);
        for (const PaintedFigure& figure : figures) {
            surface.Add(figure);
            QPainter painter(&outlines);
            PaintOutline(painter, figure, Qt::black);
        }
        const QImage shown = ShownBy(surface);
        for (int y = 0; y < dark.height(); ++y) {
            for (int x = 0; x < dark.width(); ++x) {
                QVERIFY(outlines.pixel(x, y) != qRgb(0, 0, 0) || shown.pixel(x, y) == qRgb(0, 0, 0));
            }
        }
        QVERIFY(first.isNull() || first == shown);
        first = shown;
        std::reverse(figures.begin(), figures.end());
    }
}

void tst_picturesurface::edgesGoWithTheirFigures()
{
    QImage dark(200, 150, QImage::Format_RGB32);
    dark.fill(qRgb(12, 16, 20));
    Drawing surface;
    surface.SetPicture(dark);
    surface.Add({ kindRectangle, 30, 20, 90, 60, 0 });
    const QImage one = ShownBy(surface);
    surface.Add({ kindCircle, 90, 60, 0, 0, 30 });
    QVERIFY(ShownBy(surface) != one);
    surface.Clear();
    QCOMPARE(ShownBy(surface), dark);
    surface.Add({ kindRectangle, 30, 20, 90, 60, 0 });
    QCOMPARE(ShownBy(surface), one);
}

QTEST_MAIN(tst_picturesurface)
#include "tst_picturesurface.moc"
