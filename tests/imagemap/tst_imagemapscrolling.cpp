// Scrolling the picture of the image map editor.

#include "tests/imagemap/EditorTest.h"

#include <QWheelEvent>

class tst_imagemapscrolling : public EditorTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { BeginWithPicture(); }
    void cleanup() { End(); }

    void scrollingShiftsOnlyTheView();
    void wheelScrollsThePicture();
    void fineStepsOfTheWheelAddUp();

private:
    void Turn(QPoint angle, Qt::KeyboardModifiers modifiers = {});
};

void tst_imagemapscrolling::scrollingShiftsOnlyTheView()
{
    test_->OpenPicture({ 1500, 1200 });
    test_->DrawRectangle({ 150, 60 }, { 180, 90 });
    const FigureRecord before = test_->map.Ledger().Figures[0];
    const QImage pixels = test_->Pixels();
    test_->Find<QScrollBar>("HScroll1")->setValue(100);
    QCOMPARE(test_->Surface()->pos(), QPoint(-100, 0));
    test_->Find<QScrollBar>("VScroll1")->setValue(40);
    QCOMPARE(test_->Surface()->pos(), QPoint(-100, -40));
    QVERIFY(test_->map.Ledger().Figures[0] == before);
    QCOMPARE(test_->Pixels(), pixels);
    QTest::mouseMove(test_->Find<QWidget>("PicNosac"), QPoint(60, 30));
    QCOMPARE(test_->Cursor1And2(), QStringLiteral("160,70"));
    test_->DrawRectangle({ 200, 100 }, { 230, 120 });
    QCOMPARE(test_->Row(1).at(3), QStringLiteral("200, 100, 230, 120"));
}

void tst_imagemapscrolling::Turn(QPoint angle, Qt::KeyboardModifiers modifiers)
{
    const QPointF at(50, 50);
    QWheelEvent event(
        at, test_->Surface()->mapToGlobal(at), {}, angle, Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
    // Only what comes from outside goes on to the widgets around.
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(test_->Surface(), &event);
}

void tst_imagemapscrolling::wheelScrollsThePicture()
{
    test_->OpenPicture({ 1500, 1200 });
    Turn({ 0, -240 });
    const int down = test_->Find<QScrollBar>("VScroll1")->value();
    QVERIFY(down > 0);
    QCOMPARE(test_->Surface()->pos(), QPoint(0, -down));
    Turn({ 0, -120 }, Qt::ShiftModifier);
    const int right = test_->Find<QScrollBar>("HScroll1")->value();
    QVERIFY(right > 0);
    QCOMPARE(test_->Surface()->pos(), QPoint(-right, -down));
    Turn({ 120, 240 });
    QCOMPARE(test_->Surface()->pos(), QPoint(0, 0));
}

void tst_imagemapscrolling::fineStepsOfTheWheelAddUp()
{
    test_->OpenPicture({ 1500, 1200 });
    constexpr int steps = 60;
    constexpr int notch = 120;
    Turn({ 0, -notch });
    const int notchPixels = -test_->Surface()->y();
    QVERIFY(notchPixels > 0);
    for (int i = 0; i < steps; ++i) {
        Turn({ 0, -notch / steps });
        Turn({ -notch / steps, 0 });
    }
    QCOMPARE(test_->Surface()->pos(), QPoint(-notchPixels, -2 * notchPixels));
    // Back by steps that do not divide a notch.
    for (int i = 0; i < 2 * notch; ++i) {
        Turn({ 0, 1 });
    }
    QCOMPARE(test_->Surface()->y(), 0);
}

QTEST_MAIN(tst_imagemapscrolling)

#include "tst_imagemapscrolling.moc"
