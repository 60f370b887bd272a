#include "DrawnAreasTest.h"

#include <QComboBox>
#include <QLineEdit>
#include <QTabWidget>

/** The tab "Area": what is typed there changes the selected areas. */
class tst_areatabfields : public DrawnAreasTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Begin(); }
    void cleanup() { End(); }

    void theAreaTabShowsTheSelectedArea();
    void typingInTheAreaTabIsOneStep();
    void coordinatesAreCheckedWhileTheyAreTyped();
    void shapesAreConvertedInTheTab();
};

void tst_areatabfields::theAreaTabShowsTheSelectedArea()
{
    DrawTwo();
    Trigger("mnuASelect");
    test_->Find<QTabWidget>("SSTab1")->setCurrentIndex(2);
    QVERIFY(!test_->Find<QLineEdit>("txtAreaCoords")->isEnabled());
    test_->ClickAt({ 20, 20 });
    QCOMPARE(test_->Find<QLineEdit>("txtAreaCoords")->text(), "10, 10, 70, 50");
    QCOMPARE(test_->Find<QComboBox>("cmbAreaLink")->currentText(), "one.htm");
    QCOMPARE(test_->Find<QComboBox>("cmbAreaShape")->currentText(), "Rectangle");
}

void tst_areatabfields::typingInTheAreaTabIsOneStep()
{
    DrawTwo();
    Trigger("mnuASelectAll");
    test_->Find<QTabWidget>("SSTab1")->setCurrentIndex(2);
    auto* const text = test_->Find<QLineEdit>("txtAreaText");
    text->setFocus();
    QTest::keyClicks(text, "harbour");
    QCOMPARE(test_->map.Areas().at(0).Text, "harbour");
    QCOMPARE(test_->map.Areas().at(1).Text, "harbour");
    QCOMPARE(test_->map.History().UndoName(), "Change of the Text of 2 Areas");
    Trigger("mnuAUndo");
    QCOMPARE(test_->map.Areas().at(0).Text, QString());
}

void tst_areatabfields::coordinatesAreCheckedWhileTheyAreTyped()
{
    DrawTwo();
    Trigger("mnuASelect");
    test_->ClickAt({ 20, 20 });
    test_->Find<QTabWidget>("SSTab1")->setCurrentIndex(2);
    auto* const field = test_->Find<QLineEdit>("txtAreaCoords");
    field->setFocus();
    field->selectAll();
    QTest::keyClicks(field, "1 2 30");
    QCOMPARE(test_->Text("lblAreaProblem"), "A rectangle takes four numbers: left, top, right, bottom");
    QCOMPARE(Numbers(0), (QList{ 10, 10, 70, 50 }));
    QTest::keyClicks(field, " 40");
    QCOMPARE(test_->Text("lblAreaProblem"), QString());
    QCOMPARE(Numbers(0), (QList{ 1, 2, 30, 40 }));
    QCOMPARE(field->text(), "1 2 30 40");
    QTest::keyClick(field, Qt::Key_Return);
    QCOMPARE(field->text(), "1, 2, 30, 40");
}

void tst_areatabfields::shapesAreConvertedInTheTab()
{
    DrawTwo();
    Trigger("mnuASelect");
    test_->ClickAt({ 20, 20 });
    test_->Find<QTabWidget>("SSTab1")->setCurrentIndex(2);
    auto* const shape = test_->Find<QComboBox>("cmbAreaShape");
    shape->setFocus();
    QTest::keyClick(shape, Qt::Key_End);
    QCOMPARE(test_->map.Areas().at(0).Shape, AreaShape::Polygon);
    QCOMPARE(Numbers(0), (QList{ 10, 10, 70, 10, 70, 50, 10, 50 }));
}

QTEST_MAIN(tst_areatabfields)
#include "tst_areatabfields.moc"
