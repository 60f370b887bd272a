// Check Page and the list of what it has found.

#include "tests/support/WidgetDriving.h"

#include "app/ProblemsBar.h"
#include "tests/app/DocumentsFixture.h"

#include <QListWidget>
#include <QPushButton>

class tst_problemsbar : public DocumentsFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Start(); }
    void cleanup() { Finish(); }

    void problemsAreListedWithTheirLines();
    void nothingFoundIsTold();
    void clickGoesThere();
    void enterGoesThere();
    void placesFollowTheEdits();
    void escapeClosesTheList();
    void buttonClosesTheList();
    void checkingAgainTellsWhatIsLeft();
    void missingFilesAreThoseBesideThePage();
    void anotherPageClosesTheList();
    void listStandsAboveTheFindBar();
    void documentStaysAsItIs();

private:
    SourceEditor* Editor() { return test_->Editor(); }
    ProblemsBar* Bar() { return test_->Find<ProblemsBar>("barProblems"); }
    QListWidget* List() { return test_->Find<QListWidget>("lstProblems"); }
    QString Count() { return test_->Find<QLabel>("lblProblems")->text(); }
    void Check(const char* page);
    QStringList Rows();
    void ClickRow(int row);
};

void tst_problemsbar::Check(const char* page)
{
    Editor()->LoadText(QString::fromLatin1(page));
    test_->ClickMenu("mnuPage", "mnuPCheck");
    QVERIFY(Bar()->isVisible());
}

QStringList tst_problemsbar::Rows()
{
    QStringList rows;
    for (int i = 0; i < List()->count(); ++i) {
        rows << List()->item(i)->text();
    }
    return rows;
}

void tst_problemsbar::ClickRow(int row)
{
    const QPoint place = List()->visualItemRect(List()->item(row)).center();
    QTest::mouseClick(List()->viewport(), Qt::LeftButton, {}, place);
}

void tst_problemsbar::problemsAreListedWithTheirLines()
{
    Check("<p>a\r\n<foo>b</foo>\r\n</i>");
    QCOMPARE(
        Rows(), QStringList({ QStringLiteral("Line 2: The tag <foo> is unknown"),
                              QStringLiteral("Line 3: </i> closes nothing that is open") }));
    QCOMPARE(Count(), QStringLiteral("2 problems"));
    QVERIFY(List()->hasFocus());
}

void tst_problemsbar::nothingFoundIsTold()
{
    Check("<p>a");
    QCOMPARE(Rows(), QStringList(QStringLiteral("Nothing found")));
    QCOMPARE(Count(), QStringLiteral("Nothing found"));
    ClickRow(0);
    QTest::keyClick(List(), Qt::Key_Return);
    QCOMPARE(Editor()->SelLength(), 0);
    QTest::keyClick(List(), Qt::Key_Escape);
    QVERIFY(!Bar()->isVisible());
}

void tst_problemsbar::clickGoesThere()
{
    Check("<p>a\r\n<foo>b</foo>\r\n</i>");
    ClickRow(1);
    QCOMPARE(Editor()->SelText(), QStringLiteral("</i>"));
    QVERIFY(Editor()->hasFocus());
    QVERIFY(Bar()->isVisible());
    ClickRow(0);
    QCOMPARE(Editor()->SelText(), QStringLiteral("<foo>"));
}

void tst_problemsbar::enterGoesThere()
{
    Check("<p>a\r\n<foo>b</foo>\r\n</i>");
    QTest::keyClick(List(), Qt::Key_Down);
    QCOMPARE(Editor()->SelLength(), 0);
    QTest::keyClick(List(), Qt::Key_Return);
    QCOMPARE(Editor()->SelText(), QStringLiteral("</i>"));
    QVERIFY(Editor()->hasFocus());
    QCOMPARE(Editor()->Text(), QStringLiteral("<p>a\r\n<foo>b</foo>\r\n</i>"));
}

void tst_problemsbar::placesFollowTheEdits()
{
    Check("<p>a\r\n</i>");
    Editor()->Select(0, 0);
    test_->Type("more ");
    test_->Press(Qt::Key_Return);
    ClickRow(0);
    QCOMPARE(Editor()->SelText(), QStringLiteral("</i>"));
}

void tst_problemsbar::escapeClosesTheList()
{
    Check("</i>");
    QTest::keyClick(List(), Qt::Key_Escape);
    QVERIFY(!Bar()->isVisible());
    QVERIFY(Editor()->hasFocus());
}

void tst_problemsbar::buttonClosesTheList()
{
    Check("</i>");
    const QSize before = Editor()->viewport()->size();
    QTest::mouseClick(test_->Find<QPushButton>("btnCloseProblems"), Qt::LeftButton);
    QVERIFY(!Bar()->isVisible());
    QVERIFY(Editor()->viewport()->height() > before.height());
}

void tst_problemsbar::checkingAgainTellsWhatIsLeft()
{
    Check("<b>a");
    QCOMPARE(Count(), QStringLiteral("1 problem"));
    test_->Press(Qt::Key_End, Qt::ControlModifier);
    test_->Type("</b>");
    test_->ClickMenu("mnuPage", "mnuPCheck");
    QCOMPARE(Count(), QStringLiteral("Nothing found"));
}

void tst_problemsbar::missingFilesAreThoseBesideThePage()
{
    Check("<img src=there.gif><img src=gone.gif>");
    QCOMPARE(Count(), QStringLiteral("Nothing found"));
    QVERIFY(WriteBytes(Path("there.gif"), "GIF"));
    QVERIFY(OpenFile("page.htm", "<img src=there.gif><img src=gone.gif>"));
    test_->ClickMenu("mnuPage", "mnuPCheck");
    QCOMPARE(Rows(), QStringList(QStringLiteral("Line 1: The file \"gone.gif\" is missing")));
}

void tst_problemsbar::anotherPageClosesTheList()
{
    Check("</i>");
    test_->Press(Qt::Key_N, Qt::ControlModifier);
    QVERIFY(!Bar()->isVisible());
}

void tst_problemsbar::listStandsAboveTheFindBar()
{
    test_->window.resize(900, 700);
    Check("</i>");
    test_->Press(Qt::Key_F, Qt::ControlModifier);
    const auto* const find = test_->Find<QFrame>("barFind");
    QTRY_VERIFY(find->isVisible());
    QVERIFY(!Bar()->geometry().intersects(find->geometry()));
    QVERIFY(!Editor()->viewport()->geometry().intersects(Bar()->geometry()));
    QVERIFY(!Editor()->viewport()->geometry().intersects(find->geometry()));
    QVERIFY(Bar()->height() > 50 && find->height() > 30);
}

void tst_problemsbar::documentStaysAsItIs()
{
    QVERIFY(OpenFile("page.htm", "<foo>\r\n"));
    test_->ClickMenu("mnuPage", "mnuPCheck");
    QTest::keyClicks(List(), QStringLiteral("abc"));
    QVERIFY(!test_->window.File().IsChanged());
    QVERIFY(!Editor()->document()->isUndoAvailable());
}

QTEST_MAIN(tst_problemsbar)
#include "tst_problemsbar.moc"
