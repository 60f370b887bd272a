// What is offered while a tag is written.

#include "tests/support/WidgetDriving.h"

#include "tests/app/DocumentsFixture.h"

#include <QAbstractItemView>

class tst_tagcompletion : public DocumentsFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { Finish(); }

    void nothingIsOfferedUntilItIsTurnedOn();
    void choiceIsRemembered();
    void elementsAreOfferedAndPutIn();
    void listFollowsWhatIsTyped();
    void onlyOneIsPutInAtOnce();
    void attributesGetTheirQuotes();
    void listGoesWhereNothingIsToBeOffered();
    void escapeLeavesWhatIsWritten();
    void clickPutsIn();
    void filesBesideThePageAreOffered();
    void mapsOfThePageAreOffered();
    void endTagComesWithTheStartTag();
    void endTagComesWhileTheListIsThere();
    void endTagComesBehindATagOfManyLines();
    void endTagsFollowWhatIsEditedAbove();
    void noEndTagWhileItIsOff();
    void putInIsOneStepOfUndo();
    void placesFarDownAreRead();

private:
    SourceEditor* Editor() { return test_->Editor(); }
    void TurnOn() { test_->ClickMenu("mnuPage", "mnuPComplete"); }
    void Ask() { test_->Press(Qt::Key_Space, Qt::ControlModifier); }
    QAbstractItemView* List();
    QStringList Offered();
    void Fill(const char* marked);
    QString Shown();
};

void tst_tagcompletion::init()
{
    Start();
    test_->folder.imgMap.Remembered.Open(test_->folder.imgMap.ProgramFolder);
}

/** The list while it is shown, else nothing. */
QAbstractItemView* tst_tagcompletion::List()
{
    for (QWidget* const widget : QApplication::topLevelWidgets()) {
        if (widget->objectName() == u"lstCompletions" && widget->isVisible()) {
            return qobject_cast<QAbstractItemView*>(widget);
        }
    }
    return nullptr;
}

QStringList tst_tagcompletion::Offered()
{
    QStringList texts;
    for (int i = 0; List() != nullptr && i < List()->model()->rowCount(); ++i) {
        texts << List()->model()->index(i, 0).data().toString();
    }
    return texts;
}

void tst_tagcompletion::Fill(const char* marked)
{
    const QString text = QString::fromLatin1(marked);
    Editor()->LoadText(QString(text).remove(u'|'));
    Editor()->Select(text.indexOf(u'|'), 0);
}

QString tst_tagcompletion::Shown()
{
    QString text = Editor()->Text();
    return text.insert(Editor()->SelStart(), u'|');
}

void tst_tagcompletion::nothingIsOfferedUntilItIsTurnedOn()
{
    Fill("<bl|");
    Ask();
    QVERIFY(List() == nullptr);
    QVERIFY(!test_->window.File().IsChanged());
    QVERIFY(!test_->Find<QAction>("mnuPComplete")->isChecked());
    QVERIFY(!QFile::exists(Path("Data/Settings.ini")));
}

void tst_tagcompletion::choiceIsRemembered()
{
    TurnOn();
    QVERIFY(test_->Find<QAction>("mnuPComplete")->isChecked());
    ImgMap next;
    next.ProgramFolder = next.HelpFolder = test_->folder.imgMap.ProgramFolder;
    next.Remembered.Open(next.ProgramFolder);
    frmIMmain window(next, test_->folder.map, test_->desktop);
    QVERIFY(window.findChild<QAction*>(QStringLiteral("mnuPComplete"))->isChecked());
}

void tst_tagcompletion::elementsAreOfferedAndPutIn()
{
    TurnOn();
    Fill("<p>a<bl|");
    Ask();
    QCOMPARE(Offered().join(u' '), QStringLiteral("blink blockquote"));
    QTest::keyClick(List(), Qt::Key_Down);
    QTest::keyClick(List(), Qt::Key_Return);
    QVERIFY(List() == nullptr);
    QCOMPARE(Shown(), QStringLiteral("<p>a<blockquote|"));
}

void tst_tagcompletion::listFollowsWhatIsTyped()
{
    TurnOn();
    Fill("<|");
    Ask();
    QVERIFY(Offered().size() > 100);
    QTest::keyClicks(List(), QStringLiteral("ta"));
    QCOMPARE(Offered(), QStringList(QStringLiteral("table")));
    QTest::keyClick(List(), Qt::Key_Backspace);
    QVERIFY(Offered().contains(QStringLiteral("td")));
    QTest::keyClick(List(), Qt::Key_Tab);
    QCOMPARE(Shown(), QStringLiteral("<table|"));
}

void tst_tagcompletion::onlyOneIsPutInAtOnce()
{
    TurnOn();
    Fill("<ul><li>a</|");
    Ask();
    QCOMPARE(Offered().join(u' '), QStringLiteral("li> ul>"));
    QTest::keyClick(List(), Qt::Key_Escape);
    Fill("<blockq| class=a>");
    Ask();
    QVERIFY(List() == nullptr);
    QCOMPARE(Shown(), QStringLiteral("<blockquote| class=a>"));
}

void tst_tagcompletion::attributesGetTheirQuotes()
{
    TurnOn();
    Fill("<a hr|");
    Ask();
    QCOMPARE(Offered().join(u' '), QStringLiteral("href hreflang"));
    QTest::keyClick(List(), Qt::Key_Return);
    QCOMPARE(Shown(), QStringLiteral("<a href=\"|\""));
    Fill("<img isma|>");
    Ask();
    QCOMPARE(Shown(), QStringLiteral("<img ismap|>"));
    Fill("<a charse|>");
    Ask();
    QCOMPARE(Shown(), QStringLiteral("<a charset=\"|\">"));
}

void tst_tagcompletion::listGoesWhereNothingIsToBeOffered()
{
    TurnOn();
    Fill("text|");
    Ask();
    QVERIFY(List() == nullptr);
    Fill("<t|");
    Ask();
    QVERIFY(List() != nullptr);
    QTest::keyClicks(List(), QStringLiteral("xq"));
    QVERIFY(List() == nullptr);
    QCOMPARE(Shown(), QStringLiteral("<txq|"));
}

void tst_tagcompletion::escapeLeavesWhatIsWritten()
{
    TurnOn();
    Fill("<bl|");
    Ask();
    QTest::keyClick(List(), Qt::Key_Escape);
    QVERIFY(List() == nullptr);
    QCOMPARE(Shown(), QStringLiteral("<bl|"));
}

void tst_tagcompletion::clickPutsIn()
{
    TurnOn();
    Fill("<bl|");
    Ask();
    const QRect row = List()->visualRect(List()->model()->index(1, 0));
    QTest::mouseClick(List()->viewport(), Qt::LeftButton, {}, row.center());
    QCOMPARE(Shown(), QStringLiteral("<blockquote|"));
}

void tst_tagcompletion::filesBesideThePageAreOffered()
{
    QVERIFY(QDir(test_->folder.imgMap.ProgramFolder).mkpath(QStringLiteral("site/img")));
    QVERIFY(WriteBytes(Path("site/img/a b.jpg"), "x"));
    QVERIFY(OpenFile("site/page.htm", "<img src=\"\">"));
    TurnOn();
    Editor()->Select(10, 0);
    Ask();
    QCOMPARE(Offered().join(u' '), QStringLiteral("img/ page.htm"));
    QTest::keyClick(List(), Qt::Key_Return);
    QCOMPARE(Shown(), QStringLiteral("<img src=\"img/|\">"));
    Ask();
    QCOMPARE(Shown(), QStringLiteral("<img src=\"img/a%20b.jpg|\">"));
}

void tst_tagcompletion::mapsOfThePageAreOffered()
{
    TurnOn();
    Fill("<img usemap=\"|\">\r\n<map name=\"one\"></map><map name=\"two\"></map>");
    Ask();
    QCOMPARE(Offered().join(u' '), QStringLiteral("#one #two"));
}

void tst_tagcompletion::endTagComesWithTheStartTag()
{
    TurnOn();
    test_->Type("<div class='a'>x");
    QCOMPARE(Shown(), QStringLiteral("<div class='a'>x|</div>"));
    Fill("<br|");
    test_->Type(">");
    QCOMPARE(Shown(), QStringLiteral("<br>|"));
    Fill("a |");
    test_->Type("> b");
    QCOMPARE(Shown(), QStringLiteral("a > b|"));
}

void tst_tagcompletion::endTagComesWhileTheListIsThere()
{
    TurnOn();
    Fill("<b|");
    Ask();
    QVERIFY(List() != nullptr);
    QTest::keyClick(List(), Qt::Key_Greater);
    QVERIFY(List() == nullptr);
    QCOMPARE(Shown(), QStringLiteral("<b>|</b>"));
}

void tst_tagcompletion::endTagComesBehindATagOfManyLines()
{
    TurnOn();
    Fill("<p>a</p>\r\n|");
    test_->Type("<div\rid='a>b'\r\rclass=c");
    test_->Type(">");
    QCOMPARE(Shown(), QStringLiteral("<p>a</p>\r\n<div\r\nid='a>b'\r\n\r\nclass=c>|</div>"));
    test_->Type("\r<b>");
    QVERIFY(Shown().endsWith(u"class=c>\r\n<b>|</b></div>"));
}

void tst_tagcompletion::endTagsFollowWhatIsEditedAbove()
{
    TurnOn();
    Fill("\r\n\r\n\r\n|\r\n\r\n<!-- a -->");
    test_->Type("<b>");
    QCOMPARE(Shown(), QStringLiteral("\r\n\r\n\r\n<b>|</b>\r\n\r\n<!-- a -->"));
    Editor()->Select(0, 0);
    test_->Type("<!--");
    Editor()->Select(4 + 3 * 2, 0);
    test_->Type("<i>");
    QCOMPARE(Shown(), QStringLiteral("<!--\r\n\r\n\r\n<i>|<b></b>\r\n\r\n<!-- a -->"));
    Editor()->Select(0, 4);
    test_->Press(Qt::Key_Delete);
    Editor()->Select(3 * 2, 0);
    test_->Type("<u>");
    QCOMPARE(Shown(), QStringLiteral("\r\n\r\n\r\n<u>|</u><i><b></b>\r\n\r\n<!-- a -->"));
    Editor()->Select(2, 0);
    test_->Type("<s>");
    QCOMPARE(Shown(), QStringLiteral("\r\n<s>|</s>\r\n\r\n<u></u><i><b></b>\r\n\r\n<!-- a -->"));
    Fill("<style>\r\na\r\n|");
    test_->Type("<q>");
    QCOMPARE(Shown(), QStringLiteral("<style>\r\na\r\n<q>|"));
}

void tst_tagcompletion::noEndTagWhileItIsOff()
{
    test_->Type("<div>");
    QCOMPARE(Shown(), QStringLiteral("<div>|"));
}

void tst_tagcompletion::putInIsOneStepOfUndo()
{
    TurnOn();
    Fill("<blockq|");
    Ask();
    test_->Press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(Editor()->Text(), QStringLiteral("<blockq"));
    QVERIFY(!Editor()->document()->isUndoAvailable());
}

void tst_tagcompletion::placesFarDownAreRead()
{
    TurnOn();
    const QString lines = QStringLiteral("<p>0123456789</p>\r\n").repeated(8000);
    Editor()->LoadText(lines + u"<script><b");
    test_->Press(Qt::Key_End, Qt::ControlModifier);
    Ask();
    QVERIFY(List() == nullptr);
    Editor()->LoadText(lines + u"<blockq");
    test_->Press(Qt::Key_End, Qt::ControlModifier);
    Ask();
    QVERIFY(Editor()->Text().endsWith(u"</p>\r\n<blockquote"));
    test_->Type(">");
    QVERIFY(Editor()->Text().endsWith(u"\r\n<blockquote></blockquote>"));
}

QTEST_MAIN(tst_tagcompletion)
#include "tst_tagcompletion.moc"
