#include "EditorFixture.h"
#include "imagemap/PicturePane.h"
#include "imagemap/ZoomedPicture.h"

#include <QComboBox>
#include <QLineEdit>
#include <QNativeGestureEvent>
#include <QWheelEvent>
#include <memory>

/** The picture shown larger and smaller, and what is drawn on it then. */
class tst_picturezoom : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { test_.reset(); }

    void theStepsGoUpAndDown();
    void aPartIsEnlargedPixelByPixel();
    void whatIsMadeSmallerIsMixed();
    void theSurfaceHasThePicturesSizeTimesTheZoom();
    void theFieldTellsAndSetsTheZoom();
    void theLimitsHold();
    void fittingFollowsTheRoom();
    void anotherPictureIsShownInItsOwnSize();
    void theWheelZoomsAtThePointer();
    void theMiddleButtonPans();
    void theSpaceBarWithTheMousePans();
    void pinchingZoomsBetweenTheFingers();
    void fingersOnTheScreenZoom();
    void oneFingerDrawsAndASecondGivesThatUp();
    void figuresAreDrawnAtEveryZoom_data();
    void figuresAreDrawnAtEveryZoom();
    void outlinesStayOnePixelWide();
    void pixelsArePartedFromEightTimesOn();
    void theGreatestZoomTakesNoMemory();

private:
    [[nodiscard]] PicturePane* Pane() const { return test_->Find<PicturePane>("picturePane"); }
    void Trigger(const char* name) { test_->Entry(name)->trigger(); }

    void Spread(QPoint middle, int from, int to);

    std::unique_ptr<EditorFixture> test_;
    QPointingDevice* const screen_ = QTest::createTouchDevice();
};

void tst_picturezoom::init()
{
    test_ = std::make_unique<EditorFixture>();
    QVERIFY(test_->Start());
}

void tst_picturezoom::theStepsGoUpAndDown()
{
    QCOMPARE(NextZoom(1, 1), 1.25);
    QCOMPARE(NextZoom(1, -1), 0.75);
    QCOMPARE(NextZoom(1.1, 1), 1.25);
    QCOMPARE(NextZoom(32, 1), 32.0);
    QCOMPARE(NextZoom(0.05, -1), 0.05);
}

void tst_picturezoom::aPartIsEnlargedPixelByPixel()
{
    QImage picture(10, 10, QImage::Format_RGB32);
    picture.fill(Qt::white);
    picture.setPixel(3, 4, qRgb(255, 0, 0));
    const QImage part = ZoomedPart(picture, 4, { 10, 10, 12, 14 });
    QCOMPARE(part.size(), QSize(12, 14));
    for (int y = 0; y < part.height(); ++y) {
        for (int x = 0; x < part.width(); ++x) {
            const bool isRed = (x + 10) / 4 == 3 && (y + 10) / 4 == 4;
            QCOMPARE(part.pixel(x, y), isRed ? qRgb(255, 0, 0) : qRgb(255, 255, 255));
        }
    }
}

void tst_picturezoom::whatIsMadeSmallerIsMixed()
{
    QImage picture(8, 8, QImage::Format_RGB32);
    for (int y = 0; y < 8; ++y) {
        for (int x = 0; x < 8; ++x) {
            picture.setPixel(x, y, x % 2 == 0 ? qRgb(0, 0, 0) : qRgb(200, 100, 50));
        }
    }
    const QImage part = ZoomedPart(picture, 0.5, { 0, 0, 4, 4 });
    const QRgb mixed = part.pixel(2, 2);
    QVERIFY(std::abs(qRed(mixed) - 100) <= 1);
    QVERIFY(std::abs(qGreen(mixed) - 50) <= 1);
    QVERIFY(std::abs(qBlue(mixed) - 25) <= 1);
}

void tst_picturezoom::theSurfaceHasThePicturesSizeTimesTheZoom()
{
    test_->OpenPicture({ 300, 200 });
    QCOMPARE(test_->Surface()->size(), QSize(300, 200));
    Pane()->SetZoom(2);
    QCOMPARE(test_->Surface()->size(), QSize(600, 400));
    Pane()->SetZoom(0.33);
    QCOMPARE(test_->Surface()->size(), QSize(99, 66));
    Trigger("mnuVActual");
    QCOMPARE(test_->Surface()->size(), QSize(300, 200));
}

void tst_picturezoom::theFieldTellsAndSetsTheZoom()
{
    auto* const field = test_->Find<QComboBox>("cmbZoom");
    QVERIFY(!field->isEnabled());
    test_->OpenPicture();
    QCOMPARE(field->currentText(), "100 %");
    Trigger("mnuVZoomIn");
    QCOMPARE(field->currentText(), "125 %");
    field->setFocus();
    field->lineEdit()->selectAll();
    QTest::keyClicks(field->lineEdit(), "250");
    QTest::keyClick(field->lineEdit(), Qt::Key_Return);
    QCOMPARE(Pane()->Zoom(), 2.5);
    QCOMPARE(field->currentText(), "250 %");
    field->lineEdit()->selectAll();
    QTest::keyClicks(field->lineEdit(), "much");
    QTest::keyClick(field->lineEdit(), Qt::Key_Return);
    QCOMPARE(Pane()->Zoom(), 2.5);
    QCOMPARE(field->currentText(), "250 %");
}

void tst_picturezoom::theLimitsHold()
{
    test_->OpenPicture();
    Pane()->SetZoom(100);
    QCOMPARE(Pane()->Zoom(), 32.0);
    Pane()->SetZoom(0.001);
    QCOMPARE(Pane()->Zoom(), 0.05);
}

void tst_picturezoom::fittingFollowsTheRoom()
{
    test_->OpenPicture({ 2000, 400 });
    Trigger("mnuVFit");
    const QWidget* const view = test_->Find<QWidget>("PicNosac");
    QVERIFY(test_->Surface()->width() <= view->width());
    QVERIFY(test_->Surface()->width() > view->width() - 25);
    test_->editor->resize(test_->editor->width() + 100, test_->editor->height());
    QTRY_VERIFY(test_->Surface()->width() > view->width() - 25);
    test_->OpenPicture({ 3000, 400 });
    QVERIFY(test_->Surface()->width() <= view->width());
    Trigger("mnuVZoomIn");
    QVERIFY(!test_->Entry("mnuVFit")->isChecked());
}

void tst_picturezoom::anotherPictureIsShownInItsOwnSize()
{
    test_->OpenPicture();
    Pane()->SetZoom(4);
    test_->OpenPicture({ 200, 100 });
    QCOMPARE(test_->Surface()->size(), QSize(200, 100));
    QCOMPARE(test_->Find<QComboBox>("cmbZoom")->currentText(), "100 %");
}

void tst_picturezoom::theWheelZoomsAtThePointer()
{
    test_->OpenPicture({ 1600, 1200 });
    auto* const view = test_->Find<QWidget>("PicNosac");
    const QPoint at(200, 100);
    const QPoint before = test_->Surface()->mapFrom(view, at);
    for (int i = 0; i < 4; ++i) {
        QWheelEvent event(
            at, view->mapToGlobal(at), {}, { 0, 120 }, Qt::NoButton, Qt::ControlModifier, Qt::NoScrollPhase,
            false);
        QApplication::sendEvent(view, &event);
    }
    QVERIFY(Pane()->Zoom() > 2.3);
    const QPointF after = QPointF(test_->Surface()->mapFrom(view, at)) / Pane()->Zoom();
    QVERIFY(QLineF(before, after).length() < 3);
}

void tst_picturezoom::theMiddleButtonPans()
{
    test_->OpenPicture({ 1600, 1200 });
    auto* const across = test_->Find<QScrollBar>("HScroll1");
    test_->Press({ 300, 100 }, Qt::MiddleButton);
    QMouseEvent move(
        QEvent::MouseMove, QPointF(200, 100), test_->Surface()->mapToGlobal(QPointF(200, 100)), Qt::NoButton,
        Qt::MiddleButton, {});
    QApplication::sendEvent(test_->Surface(), &move);
    QCOMPARE(across->value(), 100);
    test_->Release({ 300, 100 }, Qt::MiddleButton);
    QCOMPARE(across->value(), 100);
}

void tst_picturezoom::theSpaceBarWithTheMousePans()
{
    test_->OpenPicture({ 1600, 1200 });
    test_->ClickButton(5);
    auto* const across = test_->Find<QScrollBar>("HScroll1");
    auto* const down = test_->Find<QScrollBar>("VScroll1");
    test_->Surface()->setFocus();
    QTest::keyPress(test_->Surface(), Qt::Key_Space);
    test_->Press({ 300, 200 });
    test_->Move({ 220, 170 });
    QCOMPARE(across->value(), 80);
    QCOMPARE(down->value(), 30);
    // The picture has followed the mouse.
    test_->Release({ 300, 200 });
    QCOMPARE(across->value(), 80);
    QTest::keyRelease(test_->Surface(), Qt::Key_Space);
    QVERIFY(!test_->map.Drawing().IsInProgress());
    QCOMPARE(test_->RowCount(), 0);
    // Without it the mouse draws again.
    test_->Press({ 300, 200 });
    test_->Move({ 320, 220 });
    QVERIFY(test_->map.Drawing().IsInProgress());
    QCOMPARE(across->value(), 80);
}

void tst_picturezoom::pinchingZoomsBetweenTheFingers()
{
    test_->OpenPicture({ 1600, 1200 });
    auto* const view = test_->Find<QWidget>("PicNosac");
    const QPoint at(200, 100);
    const QPointF before = QPointF(test_->Surface()->mapFrom(view, at));
    const auto pinch = [this, view, at](double by) {
        // The picture lies under the fingers.
        const QPointF place = test_->Surface()->mapFrom(view, at);
        QNativeGestureEvent event(
            Qt::ZoomNativeGesture, QPointingDevice::primaryPointingDevice(), 2, place,
            test_->Surface()->mapTo(test_->editor, place), view->mapToGlobal(QPointF(at)), by, {});
        QApplication::sendEvent(test_->Surface(), &event);
    };
    for (int i = 0; i < 10; ++i) {
        pinch(0.1);
    }
    QVERIFY(Pane()->Zoom() > 2.4);
    const QPointF after = QPointF(test_->Surface()->mapFrom(view, at)) / Pane()->Zoom();
    QVERIFY2(QLineF(before, after).length() < 3, qPrintable(QString::number(QLineF(before, after).length())));
    for (int i = 0; i < 20; ++i) {
        pinch(-0.1);
    }
    QVERIFY(Pane()->Zoom() < 0.4);
}

/** Spreads two fingers on the picture from `from` pixels between them to `to`, about `middle`. */
void tst_picturezoom::Spread(QPoint middle, int from, int to)
{
    QWidget* const view = test_->Find<QWidget>("PicNosac");
    const auto place = [middle](int finger, int apart) {
        return middle + QPoint(finger == 0 ? -apart / 2 : apart / 2, 0);
    };
    QTest::touchEvent(view, screen_).press(0, place(0, from), view);
    QTest::touchEvent(view, screen_).stationary(0).press(1, place(1, from), view);
    constexpr int steps = 10;
    for (int i = 1; i <= steps; ++i) {
        const int apart = from + (to - from) * i / steps;
        QTest::touchEvent(view, screen_).move(0, place(0, apart), view).move(1, place(1, apart), view);
    }
    QTest::touchEvent(view, screen_).release(0, place(0, to), view).release(1, place(1, to), view);
}

void tst_picturezoom::fingersOnTheScreenZoom()
{
    test_->OpenPicture({ 1600, 1200 });
    auto* const view = test_->Find<QWidget>("PicNosac");
    const QPoint at(200, 100);
    const QPointF before = QPointF(test_->Surface()->mapFrom(view, at));
    Spread(at, 60, 180);
    // A first step tells that it is a pinch, and is lost.
    QVERIFY2(std::abs(Pane()->Zoom() - 180 / 72.0) < 0.1, qPrintable(QString::number(Pane()->Zoom())));
    const QPointF after = QPointF(test_->Surface()->mapFrom(view, at)) / Pane()->Zoom();
    QVERIFY2(QLineF(before, after).length() < 4, qPrintable(QString::number(QLineF(before, after).length())));
    Spread(at, 180, 60);
    QVERIFY2(std::abs(Pane()->Zoom() - 150 / 168.0) < 0.1, qPrintable(QString::number(Pane()->Zoom())));
}

void tst_picturezoom::oneFingerDrawsAndASecondGivesThatUp()
{
    test_->OpenPicture({ 1600, 1200 });
    test_->ClickButton(5);
    Spread({ 200, 100 }, 60, 180);
    EditorFixture::Settle();
    QVERIFY(!test_->map.HasContent());
    QVERIFY(!test_->map.Drawing().IsInProgress());
    Pane()->SetZoom(1);
    QWidget* const view = test_->Find<QWidget>("PicNosac");
    QTest::touchEvent(view, screen_).press(0, { 20, 20 }, view);
    QTest::touchEvent(view, screen_).move(0, { 60, 50 }, view);
    QVERIFY(test_->map.Drawing().IsInProgress());
    QTest::touchEvent(view, screen_).move(0, { 90, 80 }, view);
    test_->Link("area.htm", [this, view] { QTest::touchEvent(view, screen_).release(0, { 90, 80 }, view); });
    QCOMPARE(test_->map.Areas().at(0).Coordinates, (QList{ 20, 20, 90, 80 }));
}

void tst_picturezoom::figuresAreDrawnAtEveryZoom_data()
{
    QTest::addColumn<double>("zoom");

    for (const double zoom : { 0.5, 1.0, 2.0, 3.0, 8.0 }) {
        QTest::addRow("%g", zoom) << zoom;
    }
}

void tst_picturezoom::figuresAreDrawnAtEveryZoom()
{
    QFETCH(const double, zoom);
    test_->OpenPicture({ 300, 200 });
    Pane()->SetZoom(zoom);
    test_->Find<QScrollBar>("HScroll1")->setValue(0);
    test_->Find<QScrollBar>("VScroll1")->setValue(0);
    const auto at = [zoom](int x, int y) { return QPoint(int(x * zoom), int(y * zoom)); };
    test_->DrawRectangle(at(4, 6), at(60, 40));
    QCOMPARE(test_->map.Areas().at(0).Coordinates, (QList{ 4, 6, 60, 40 }));
}

void tst_picturezoom::outlinesStayOnePixelWide()
{
    test_->OpenPicture({ 100, 60 });
    test_->DrawRectangle({ 5, 5 }, { 20, 15 });
    Pane()->SetZoom(4);
    const QImage shown = test_->Pixels();
    const QRgb outline = qRgb(0, 0, 0);
    // Through the middle of the pixels in the fifth column.
    QCOMPARE(shown.pixel(22, 40), outline);
    QVERIFY(shown.pixel(20, 40) != outline);
    QVERIFY(shown.pixel(24, 40) != outline);
}

void tst_picturezoom::pixelsArePartedFromEightTimesOn()
{
    QImage picture(4, 4, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QCOMPARE(ZoomedPart(picture, 8, { 0, 0, 32, 32 }).pixel(8, 4), qRgb(255, 255, 255));
    QVERIFY(ZoomedPart(picture, 12, { 0, 0, 48, 48 }).pixel(12, 4) != qRgb(255, 255, 255));
    QCOMPARE(ZoomedPart(picture, 12, { 0, 0, 48, 48 }).pixel(14, 4), qRgb(255, 255, 255));
}

void tst_picturezoom::theGreatestZoomTakesNoMemory()
{
    test_->OpenPicture({ 3000, 2000 });
    Pane()->SetZoom(greatestZoom);
    QCOMPARE(test_->Surface()->size(), QSize(96000, 64000));
    test_->Find<QScrollBar>("HScroll1")->setValue(90000);
    test_->Find<QScrollBar>("VScroll1")->setValue(60000);
    // Only what is in sight is painted, or this would take 24 GB.
    QCOMPARE(test_->Find<QWidget>("PicNosac")->grab().isNull(), false);
}

QTEST_MAIN(tst_picturezoom)
#include "tst_picturezoom.moc"
