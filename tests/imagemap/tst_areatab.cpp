#include "EditorTest.h"
#include "shared/SavedLinks.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QTabWidget>

/** The tab "Area": the saved links that it offers. */
class tst_areatab : public EditorTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { End(); }

    void savedLinksAreOffered();
    void linksSavedLaterAreOfferedToo();
    void aChosenLinkIsSetAsOneStep();
    void aLinkIsChosenByTheArrows();
    void whatIsTypedOutlivesTheOffer();
    void aChosenLinkGoesToAllSelectedAreas();

private:
    [[nodiscard]] QComboBox* Links() const { return test_->Find<QComboBox>("cmbAreaLink"); }
    [[nodiscard]] QStringList Offered() const;
    void Choose(int row);
    [[nodiscard]] QString LinkOf(qsizetype area) const { return test_->map.Areas().at(area).Link; }
};

void tst_areatab::init()
{
    BeginWithPicture();
    AddSavedLink(test_->imgMap, "saved-1.htm");
    AddSavedLink(test_->imgMap, "saved-2.htm");
    test_->DrawRectangle({ 10, 10 }, { 70, 50 }, "one.htm");
    test_->DrawRectangle({ 100, 20 }, { 160, 60 }, "two.htm");
    test_->editor->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(test_->editor));
    test_->Entry("mnuASelect")->trigger();
    test_->ClickAt({ 20, 20 });
    test_->Find<QTabWidget>("SSTab1")->setCurrentIndex(2);
}

QStringList tst_areatab::Offered() const
{
    QStringList offered;
    for (int i = 0; i < Links()->count(); ++i) {
        offered << Links()->itemText(i);
    }
    return offered;
}

/** Opens the list and clicks one of its rows. */
void tst_areatab::Choose(int row)
{
    Links()->showPopup();
    QAbstractItemView* const list = Links()->view();
    QVERIFY(QTest::qWaitForWindowExposed(list->window()));
    // A list that has just come up takes a click for the one that opened it.
    QTest::qWait(QApplication::doubleClickInterval());
    QTest::mouseClick(
        list->viewport(), Qt::LeftButton, {}, list->visualRect(list->model()->index(row, 0)).center());
    QTRY_VERIFY(!list->isVisible());
}

void tst_areatab::savedLinksAreOffered()
{
    Links()->setFocus();
    QCOMPARE(Offered(), (QStringList{ "saved-1.htm", "saved-2.htm" }));
    QCOMPARE(Links()->currentText(), "one.htm");
    QCOMPARE(LinkOf(0), "one.htm");
}

void tst_areatab::linksSavedLaterAreOfferedToo()
{
    Links()->setFocus();
    AddSavedLink(test_->imgMap, "saved-3.htm");
    DeleteSavedLink(test_->imgMap, 1);
    Links()->showPopup();
    QCOMPARE(Offered(), (QStringList{ "saved-2.htm", "saved-3.htm" }));
    Links()->hidePopup();
    QCOMPARE(Links()->currentText(), "one.htm");
    QCOMPARE(LinkOf(0), "one.htm");
}

void tst_areatab::aChosenLinkIsSetAsOneStep()
{
    Choose(1);
    QCOMPARE(LinkOf(0), "saved-2.htm");
    QCOMPARE(LinkOf(1), "two.htm");
    QCOMPARE(test_->map.History().UndoName(), "Change of the Link of an Area");
    test_->Entry("mnuAUndo")->trigger();
    QCOMPARE(LinkOf(0), "one.htm");
    QCOMPARE(Links()->currentText(), "one.htm");
    Choose(1);
    QCOMPARE(LinkOf(0), "saved-2.htm");
}

void tst_areatab::aLinkIsChosenByTheArrows()
{
    Links()->setFocus();
    QTest::keyClick(Links(), Qt::Key_Down);
    QCOMPARE(LinkOf(0), "saved-1.htm");
    QTest::keyClick(Links(), Qt::Key_Down);
    QCOMPARE(LinkOf(0), "saved-2.htm");
    test_->Entry("mnuAUndo")->trigger();
    QCOMPARE(LinkOf(0), "one.htm");
}

void tst_areatab::whatIsTypedOutlivesTheOffer()
{
    Links()->setFocus();
    Links()->lineEdit()->selectAll();
    QTest::keyClicks(Links()->lineEdit(), "sav");
    AddSavedLink(test_->imgMap, "saved-3.htm");
    Links()->showPopup();
    Links()->hidePopup();
    QCOMPARE(Links()->currentText(), "sav");
    QCOMPARE(LinkOf(0), "sav");
}

void tst_areatab::aChosenLinkGoesToAllSelectedAreas()
{
    test_->Entry("mnuASelectAll")->trigger();
    Choose(0);
    QCOMPARE(LinkOf(0), "saved-1.htm");
    QCOMPARE(LinkOf(1), "saved-1.htm");
    test_->Entry("mnuAUndo")->trigger();
    QCOMPARE(LinkOf(0), "one.htm");
    QCOMPARE(LinkOf(1), "two.htm");
}

QTEST_MAIN(tst_areatab)
#include "tst_areatab.moc"
