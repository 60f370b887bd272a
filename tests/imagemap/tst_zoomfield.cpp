#include "DrawnAreasTest.h"
#include "imagemap/PicturePane.h"

#include <QComboBox>
#include <QLineEdit>
#include <QWheelEvent>

/** The field that tells how large the picture is shown, and steps of the wheel that are smaller than a notch.
 */
class tst_zoomfield : public DrawnAreasTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { BeginWithPicture(); }
    void cleanup() { End(); }

    void whatIsTypedIsUnderstood_data();
    void whatIsTypedIsUnderstood();
    void arrowsGoOnFromTheZoomInForce();
    void whatIsNotEnteredGoesWithTheFocus();
    void fineStepsOfTheWheelAddUp();
    void fineStepsBeginAtTheZoomInForce();

private:
    [[nodiscard]] QComboBox* Field() const { return test_->Find<QComboBox>("cmbZoom"); }
    [[nodiscard]] PicturePane* Pane() const { return test_->Find<PicturePane>("picturePane"); }

    void Type(const QString& text)
    {
        Field()->setFocus();
        Field()->lineEdit()->selectAll();
        QTest::keyClicks(Field()->lineEdit(), text);
    }

    void Turn(int eighths)
    {
        auto* const view = test_->Find<QWidget>("PicNosac");
        const QPoint at(100, 60);
        QWheelEvent event(
            at, view->mapToGlobal(at), {}, { 0, eighths }, Qt::NoButton, Qt::ControlModifier,
            Qt::NoScrollPhase, false);
        QApplication::sendEvent(view, &event);
    }
};

void tst_zoomfield::whatIsTypedIsUnderstood_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("zoom");
    QTest::newRow("a number") << "250" << 2.5;
    QTest::newRow("with its sign") << " 250 % " << 2.5;
    QTest::newRow("parts") << "12.5" << 0.125;
    QTest::newRow("parts behind a comma") << "12,5 %" << 0.125;
    QTest::newRow("a comma between thousands") << "3,200 %" << 32.0;
    QTest::newRow("a blank between thousands") << "1 600 %" << 16.0;
    QTest::newRow("beyond the limit") << "5000" << 32.0;
    QTest::newRow("far beyond it") << QString(400, u'9') << 32.0;
    QTest::newRow("below the limit") << "1" << 0.05;
    QTest::newRow("nothing") << "" << 2.0;
    QTest::newRow("nought") << "0" << 2.0;
    QTest::newRow("less than nought") << "-50" << 2.0;
    QTest::newRow("no number") << "much" << 2.0;
}

void tst_zoomfield::whatIsTypedIsUnderstood()
{
    QFETCH(const QString, text);
    QFETCH(const double, zoom);
    Pane()->SetZoom(2);
    Type(text);
    if (text.isEmpty()) {
        QTest::keyClick(Field()->lineEdit(), Qt::Key_Delete);
    }
    QTest::keyClick(Field()->lineEdit(), Qt::Key_Return);
    QCOMPARE(Pane()->Zoom(), zoom);
    QCOMPARE(Field()->currentText(), QStringLiteral("%1 %").arg(zoom * 100));
}

void tst_zoomfield::arrowsGoOnFromTheZoomInForce()
{
    Field()->setFocus();
    QTest::keyClick(Field(), Qt::Key_Down);
    QCOMPARE(Pane()->Zoom(), 1.25);
    QTest::keyClick(Field(), Qt::Key_Up);
    QTest::keyClick(Field(), Qt::Key_Up);
    QCOMPARE(Pane()->Zoom(), 0.75);
    Pane()->SetZoom(3.5);
    QCOMPARE(Field()->currentText(), "350 %");
    QTest::keyClick(Field(), Qt::Key_Down);
    QCOMPARE(Pane()->Zoom(), 4.0);
    QCOMPARE(Field()->currentText(), "400 %");
}

void tst_zoomfield::whatIsNotEnteredGoesWithTheFocus()
{
    Activate();
    Type(QStringLiteral("3"));
    QCOMPARE(Field()->currentText(), "3");
    test_->List()->setFocus();
    QCOMPARE(Field()->currentText(), "100 %");
    QCOMPARE(Pane()->Zoom(), 1.0);
}

void tst_zoomfield::fineStepsOfTheWheelAddUp()
{
    constexpr int steps = 60;
    Pane()->SetZoom(0.05);
    for (int i = 0; i < steps; ++i) {
        Turn(8);
    }
    // As far as four whole notches.
    QCOMPARE(Pane()->Zoom(), 0.12);
    for (int i = 0; i < steps; ++i) {
        Turn(-8);
    }
    QCOMPARE(Pane()->Zoom(), 0.05);
}

void tst_zoomfield::fineStepsBeginAtTheZoomInForce()
{
    Pane()->SetZoom(0.05);
    Turn(8);
    Pane()->SetZoom(4);
    Turn(120);
    QCOMPARE(Pane()->Zoom(), 5.0);
    // What was turned beyond an end is not to be turned back.
    Pane()->SetZoom(32);
    for (int i = 0; i < 5; ++i) {
        Turn(120);
    }
    Turn(-120);
    QCOMPARE(Pane()->Zoom(), 25.6);
}

QTEST_MAIN(tst_zoomfield)
#include "tst_zoomfield.moc"
