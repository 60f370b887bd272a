#include "imagemap/PictureView.h"
#include "tests/imagemap/Drawing.h"

#include <QRandomGenerator>
#include <QScreen>
#include <QTest>
#include <utility>

/**
 * What the figure that follows the mouse leaves on the screen itself, at scalings where its pixels do not
 * meet the picture's. Grabbing a widget paints it anew and shows nothing of this.
 */
class tst_rubber : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rubberFigureLeavesNoTraceOnTheScreen_data();
    void rubberFigureLeavesNoTraceOnTheScreen();
};

namespace {

QImage Photograph()
{
    QImage picture(700, 500, QImage::Format_RGB32);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            picture.setPixel(x, y, qRgb(20 + x / 5, (x ^ y) % 200, y / 3));
        }
    }
    return picture;
}

QImage OnScreen(const QWidget& window)
{
    return window.screen()->grabWindow(window.winId()).toImage().convertToFormat(QImage::Format_RGB32);
}

/** Whether nothing but a ground of one colour is there. */
bool IsEmpty(const QImage& image)
{
    QImage ground = image;
    ground.fill(image.pixelColor(0, 0));
    return image == ground;
}

} // namespace

void tst_rubber::rubberFigureLeavesNoTraceOnTheScreen_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("rectangle") << int(kindRectangle);
    QTest::newRow("circle") << int(kindCircle);
    QTest::newRow("line") << int(kindLine);
}

void tst_rubber::rubberFigureLeavesNoTraceOnTheScreen()
{
    QFETCH(const int, kind);
    if (QGuiApplication::platformName() != QStringLiteral("xcb")) {
        QSKIP("only a true screen shows what was painted bit by bit");
    }
    // Moved by odd pixels, as a picture that is scrolled.
    QWidget window;
    window.resize(640, 460);
    PictureView view(&window);
    view.setGeometry(7, 31, 601, 401);
    Drawing surface(&view);
    surface.SetPicture(Photograph());
    surface.move(-13, -9);
    // A figure for good, whose edge must come through it all.
    surface.Add({ kindCircle, 200, 150, 0, 0, 90 });
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    // The screen may show the window a while before its picture, and parts of that before the whole.
    QImage before;
    QVERIFY(QTest::qWaitFor([&before, &window] {
        const QImage earlier = std::exchange(before, OnScreen(window));
        return before == earlier && !IsEmpty(before);
    }));
    QRandomGenerator random(7);
    constexpr int figures = 30;
    constexpr int moves = 25;
    for (int i = 0; i < figures; ++i) {
        const auto x1 = qint16(random.bounded(20, 500));
        const auto y1 = qint16(random.bounded(20, 350));
        for (int move = 0; move < moves; ++move) {
            const auto x2 = qint16(random.bounded(20, 500));
            const auto y2 = qint16(random.bounded(20, 350));
            surface.ShowRubberFigure({ qint16(kind), x1, y1, x2, y2, qint16(std::abs(x2 - x1) / 3) });
            QCoreApplication::processEvents();
        }
        QVERIFY(OnScreen(window) != before);
        surface.EraseRubberFigure();
        QCoreApplication::processEvents();
        QTRY_VERIFY_WITH_TIMEOUT(OnScreen(window) == before, 1000);
    }
}

QTEST_MAIN(tst_rubber)
#include "tst_rubber.moc"
