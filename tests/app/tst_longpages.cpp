// Pages that a tool has put into one line, in the main window.

#include "app/source/LongLines.h"
#include "tests/support/WidgetDriving.h"

#include "tests/app/DocumentsFixture.h"

#include <QCheckBox>
#include <QContextMenuEvent>
#include <QPushButton>
#include <QSpinBox>
#include <QTextBlock>

namespace {

/** Three lines, the middle one long. */
QByteArray Page()
{
    return "<p>first</p>\r\n" + QByteArray("<b>some</b> text, ").repeated(2'000) + "\r\n<p>last</p>\r\n";
}

} // namespace

class tst_longpages : public DocumentsFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Start(); }
    void cleanup() { Finish(); }

    void areSavedAsTheyWereOpened();
    void placesAreThoseOfTheText();
    void goToLineGoesToTheWholeLine();
    void whatIsCutIsFound();
    void expressionsSeeOneLine();
    void allMatchesAreReplacedInOneStep();
    void linesAreMovedInAsAWhole();
    void theMenuOfTheTextEditsThemToo();

private:
    SourceEditor* Editor() { return test_->Editor(); }
    QString Count() { return test_->Find<QLabel>("lblMatches")->text(); }
    QString PlaceSaid() { return test_->Find<QLabel>("lblPlace")->text(); }
    const QList<int>& Joints() { return LongLines::Of(*Editor()->document())->Joints(); }

    void Look(const QString& what, Qt::Key key = Qt::Key_F)
    {
        test_->Press(key, Qt::ControlModifier);
        auto* const field = test_->Find<QLineEdit>("txtFind");
        field->clear();
        QTest::keyClicks(field, what);
    }
};

void tst_longpages::areSavedAsTheyWereOpened()
{
    QVERIFY(OpenFile("page.htm", Page()));
    QVERIFY(!Joints().isEmpty());
    test_->Press(Qt::Key_S, Qt::ControlModifier);
    QVERIFY(BytesOf(Path("page.htm")) == Page() + "\r\n");
    Editor()->Select(20'000, 0);
    test_->Type("x");
    test_->Press(Qt::Key_S, Qt::ControlModifier);
    QVERIFY(BytesOf(Path("page.htm")) == Page().insert(20'000, 'x') + "\r\n");
}

void tst_longpages::placesAreThoseOfTheText()
{
    QVERIFY(OpenFile("page.htm", Page()));
    for (const int joint : { Joints().first(), Joints().at(5), Joints().last() }) {
        for (const int position : { joint - 1, joint + 1, joint + 2 }) {
            QTextCursor caret(Editor()->document());
            caret.setPosition(position);
            Editor()->setTextCursor(caret);
            const qsizetype column = Editor()->SelStart() - Page().indexOf('\n');
            QCOMPARE(PlaceSaid(), QStringLiteral("Line 2, column %1").arg(column));
        }
    }
    test_->Press(Qt::Key_End, Qt::ControlModifier);
    QCOMPARE(PlaceSaid(), QStringLiteral("Line 4, column 1"));
}

void tst_longpages::goToLineGoesToTheWholeLine()
{
    QVERIFY(OpenFile("page.htm", Page()));
    test_->robot.Act([](QDialog& dialog) {
        auto* const field = dialog.findChild<QSpinBox*>(QStringLiteral("txtLine"));
        QCOMPARE(field->maximum(), 4);
        field->setValue(3);
        dialog.accept();
    });
    test_->Press(Qt::Key_G, Qt::ControlModifier);
    QTRY_COMPARE(PlaceSaid(), QStringLiteral("Line 3, column 1"));
    QCOMPARE(Editor()->SelStart(), Page().indexOf("<p>last"));
}

void tst_longpages::whatIsCutIsFound()
{
    QVERIFY(OpenFile("page.htm", Page()));
    const qsizetype place = TextPosition(*Editor()->document(), Joints().at(3)) - 6;
    const QString what = QString::fromLatin1(Page().sliced(place, 12));
    Look(what);
    QVERIFY(Count().endsWith(QStringLiteral("of %1").arg(Page().count(what.toLatin1()))));
    for (int i = 0; i < 60; ++i) {
        test_->Press(Qt::Key_F3);
        QCOMPARE(Editor()->SelText(), what);
    }
}

void tst_longpages::expressionsSeeOneLine()
{
    QVERIFY(OpenFile("page.htm", Page()));
    Look(QStringLiteral("^.{20,}$"));
    QTest::mouseClick(test_->Find<QCheckBox>("chkRegex"), Qt::LeftButton, {}, QPoint(8, 8));
    QCOMPARE(Count(), QStringLiteral("1 of 1"));
    QCOMPARE(Editor()->SelLength(), 2'000 * 18);
}

void tst_longpages::allMatchesAreReplacedInOneStep()
{
    QVERIFY(OpenFile("page.htm", Page()));
    Look(QStringLiteral("<b>some</b>"), Qt::Key_H);
    QTest::keyClicks(test_->Find<QLineEdit>("txtReplace"), QStringLiteral("x"));
    Click(test_->Find<QPushButton>("btnReplaceAll"));
    QCOMPARE(Count(), QStringLiteral("2000 replaced"));
    QVERIFY(Editor()->Text() == QString::fromLatin1(Page().replace("<b>some</b>", "x")));
    QVERIFY(!Joints().isEmpty());
    Editor()->undo();
    QVERIFY(Editor()->Text() == QString::fromLatin1(Page()));
    QVERIFY(!Editor()->document()->isUndoAvailable());
    Editor()->redo();
    QVERIFY(Editor()->Text() == QString::fromLatin1(Page().replace("<b>some</b>", "x")));
}

void tst_longpages::linesAreMovedInAsAWhole()
{
    QVERIFY(OpenFile("page.htm", Page()));
    Editor()->Select(10'000, 0);
    test_->ClickMenu("mnuPage", "mnuPIndent");
    const qsizetype start = Page().indexOf('\n') + 1;
    QVERIFY(Editor()->Text() == QString::fromLatin1(Page().insert(start, '\t')));
    test_->ClickMenu("mnuPage", "mnuPUnindent");
    QVERIFY(Editor()->Text() == QString::fromLatin1(Page()));
}

void tst_longpages::theMenuOfTheTextEditsThemToo()
{
    QVERIFY(OpenFile("page.htm", Page()));
    const qsizetype start = Page().indexOf('\n') + 1;
    Editor()->Select(start, 30'000);
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(5, 5), Editor()->mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(Editor()->viewport(), &event);
    auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    QVERIFY(menu != nullptr);
    auto* const entry = menu->findChild<QAction*>(QStringLiteral("edit-delete"));
    QVERIFY(entry != nullptr);
    entry->trigger();
    menu->close();
    QVERIFY(Editor()->Text() == QString::fromLatin1(Page().remove(start, 30'000)));
    QVERIFY(Joints().isEmpty());
    Editor()->undo();
    QVERIFY(Editor()->Text() == QString::fromLatin1(Page()));
    QVERIFY(!Joints().isEmpty());
}

QTEST_MAIN(tst_longpages)
#include "tst_longpages.moc"
