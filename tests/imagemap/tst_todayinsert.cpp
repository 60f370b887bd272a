// Insert for today's browsers: what the user chooses, is asked and is told, and what the page is then.

#include "tests/imagemap/EditorFixture.h"

#include <QComboBox>
#include <QFile>
#include <QTabWidget>
#include <memory>

namespace {

constexpr const char* page = "<!DOCTYPE html>\r\n<html lang=\"en\">\r\n<head>\r\n<title>Harbour</title>\r\n"
                             "</head>\r\n<body>\r\n<p>Before</p>\r\n</body>\r\n</html>\r\n";

} // namespace

class tst_todayinsert : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void html4IsChosenUntilTheUserChangesIt();
    void choiceIsRememberedOnceChanged();
    void choiceLeavesTheOtherOptionsWhereTheyAre();
    void shapesGoIntoThePageWithTheirStyle();
    void mapElementGoesIntoThePageAlone();
    void mapElementOffersShapesWhereTheModeHasMessages_data();
    void mapElementOffersShapesWhereTheModeHasMessages();
    void unsavedPageIsAskedAboutOnlyForWholePaths();
    void caretInATagIsToldAndNothingInserted();
    void secondMapHasANameOfItsOwn();
    void textsAreWrittenAsThePageIsRead_data();
    void textsAreWrittenAsThePageIsRead();
    void panelNamesMissingTextsAndAClickLeadsThere();
    void clickOnThePanelLeadsToTheFirstAreaWithoutAText();
    void panelTellsWhatIsLeftOut();
    void panelTellsWhatAPageWithoutAHeadGetsInFront_data();
    void panelTellsWhatAPageWithoutAHeadGetsInFront();
    void oldFormTellsWhereItsMessagesAreSeenNoMore_data();
    void oldFormTellsWhereItsMessagesAreSeenNoMore();

private:
    void Choose(int form) const;
    void SetPage(const QString& text = QString::fromLatin1(page)) const;
    [[nodiscard]] QString Page() const { return test_->document.Text(); }
    [[nodiscard]] QString Hint() const { return test_->Text("StatusBar1_Panel3"); }
    void DrawAndChoose(int form) const;
    void DrawAndInsert(int form) const;

    std::unique_ptr<EditorFixture> test_;
};

void tst_todayinsert::init()
{
    test_ = std::make_unique<EditorFixture>();
    QVERIFY(test_->Start());
    test_->OpenPicture();
    SetPage();
}

void tst_todayinsert::cleanup()
{
    test_.reset();
}

void tst_todayinsert::SetPage(const QString& text) const
{
    test_->document.SetText(text);
    test_->document.selection = { text.indexOf(QStringLiteral("</body>")), 0 };
    test_->document.fileName = test_->folder.Path(QStringLiteral("harbour.htm"));
}

/** By the keys of a user who has come to the field. */
void tst_todayinsert::Choose(int form) const
{
    auto* const field = test_->Find<QComboBox>("cmbMarkup");
    test_->Find<QTabWidget>("SSTab1")->setCurrentIndex(1);
    field->setFocus();
    while (field->currentIndex() != form) {
        QTest::keyClick(field, field->currentIndex() < form ? Qt::Key_Down : Qt::Key_Up);
    }
}

void tst_todayinsert::DrawAndChoose(int form) const
{
    test_->DrawRectangle({ 20, 20 }, { 120, 90 }, "red room.htm");
    Choose(form);
}

void tst_todayinsert::DrawAndInsert(int form) const
{
    DrawAndChoose(form);
    test_->ClickButton(16);
}

void tst_todayinsert::html4IsChosenUntilTheUserChangesIt()
{
    const auto* const field = test_->Find<QComboBox>("cmbMarkup");
    QStringList names;
    for (int i = 0; i < field->count(); ++i) {
        names << field->itemText(i);
    }
    QCOMPARE(names, (QStringList{ "HTML 4, as ever", "Today's browsers", "Today's browsers, map element" }));
    QCOMPARE(field->currentIndex(), 0);
    test_->DrawRectangle({ 20, 20 }, { 120, 90 });
    test_->ClickButton(16);
    QCOMPARE(test_->document.inserted.size(), 1);
    QVERIFY(test_->document.inserted[0].startsWith(QStringLiteral("<!-- This Image Map")));
    QCOMPARE(test_->document.replaced, 0);
}

void tst_todayinsert::choiceIsRememberedOnceChanged()
{
    test_->imgMap.Remembered.Open(test_->imgMap.ProgramFolder);
    const QString file = test_->folder.Path(QStringLiteral("Data/Settings.ini"));
    Choose(0);
    QVERIFY(!QFile::exists(file));
    Choose(2);
    QVERIFY(QFile::exists(file));
    test_->LoadEditor();
    QCOMPARE(test_->Find<QComboBox>("cmbMarkup")->currentIndex(), 2);
    Settings next;
    next.Open(test_->imgMap.ProgramFolder);
    QCOMPARE(next.Value(Setting::markupForm), 2);
}

void tst_todayinsert::choiceLeavesTheOtherOptionsWhereTheyAre()
{
    auto* const tabs = test_->Find<QTabWidget>("SSTab1");
    tabs->setCurrentIndex(1);
    const auto places = [this, tabs] {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
        QCoreApplication::processEvents();
        QList<QRect> all = { tabs->geometry(), test_->Surface()->parentWidget()->geometry() };
        for (const char* const name :
             { "txtAltDescript", "txtImgWidth", "txtImgHeight", "txtBorder", "txtHorSp", "txtVertSp",
               "cmbAlign", "Label6", "Label11", "Label12" }) {
            all << test_->Find<QWidget>(name)->geometry();
        }
        return all;
    };
    const QSize least = test_->editor->minimumSize();
    const QList<QRect> with = places();
    test_->editor->resize(least);
    const QList<QRect> withAtLeast = places();
    delete test_->Find<QWidget>("cmbMarkup");
    delete test_->Find<QWidget>("lblMarkup");
    QCOMPARE(places(), withAtLeast);
    test_->editor->resize(900, 740);
    test_->LoadEditor();
    QVERIFY(test_->Start());
    test_->Find<QTabWidget>("SSTab1")->setCurrentIndex(1);
    QCOMPARE(test_->editor->minimumSize(), least);
    QCOMPARE(with.size(), withAtLeast.size());
}

void tst_todayinsert::shapesGoIntoThePageWithTheirStyle()
{
    DrawAndInsert(1);
    QVERIFY(test_->document.inserted.isEmpty());
    QCOMPARE(test_->document.replaced, 1);
    QVERIFY(Page().contains(QStringLiteral("<title>Harbour</title>\r\n<style data-imap=\"1\">\r\n.imap{")));
    QVERIFY(!Page().contains(QStringLiteral("<script")));
    const QString map = QStringLiteral("<p>Before</p>\r\n<p><span class=\"imap\" id=\"MyImageMap\">\r\n"
                                       "<img src=\"picture.jpg\" width=\"300\" height=\"200\" alt=\"\">\r\n"
                                       "<svg width=\"300\" height=\"200\" viewBox=\"0 0 300 200\" "
                                       "fill=\"transparent\" fill-rule=\"evenodd\">\r\n"
                                       "<a href=\"red%20room.htm\" aria-label=\"red room\"><rect x=\"20\" "
                                       "y=\"20\" width=\"100\" height=\"70\"/></a>"
                                       "\r\n</svg></span></p>\r\n</body>");
    QVERIFY2(Page().contains(map), qPrintable(Page()));
}

void tst_todayinsert::mapElementGoesIntoThePageAlone()
{
    DrawAndInsert(2);
    QVERIFY(!Page().contains(QStringLiteral("<style")));
    const QString map = QStringLiteral(
        "<p><img src=\"picture.jpg\" width=\"300\" height=\"200\" alt=\"\" usemap=\"#MyImageMap\"></p>"
        "\r\n<map name=\"MyImageMap\">\r\n<area shape=\"rect\" coords=\"20,20,120,90\" "
        "href=\"red%20room.htm\" alt=\"red room\">\r\n</map>\r\n</body>");
    QVERIFY2(Page().contains(map), qPrintable(Page()));
}

void tst_todayinsert::mapElementOffersShapesWhereTheModeHasMessages_data()
{
    QTest::addColumn<bool>("isTaken");
    QTest::newRow("taken") << true;
    QTest::newRow("declined") << false;
}

void tst_todayinsert::mapElementOffersShapesWhereTheModeHasMessages()
{
    QFETCH(const bool, isTaken);
    test_->DrawRectangle({ 20, 20 }, { 120, 90 });
    test_->map.Script().SetMode(JSTextArea);
    Choose(2);
    test_->robot.AnswerBox(isTaken ? QMessageBox::Yes : QMessageBox::No);
    test_->ClickButton(16);
    test_->robot.WaitUntilDone();
    QCOMPARE(test_->document.replaced, isTaken ? 1 : 0);
    QCOMPARE(Page().contains(QStringLiteral("<svg")), isTaken);
    QVERIFY(test_->robot.Boxes().constLast().text.contains(QStringLiteral("map element")));
}

void tst_todayinsert::unsavedPageIsAskedAboutOnlyForWholePaths()
{
    test_->document.fileName.clear();
    DrawAndChoose(1);
    test_->robot.AnswerBox(QMessageBox::No);
    test_->ClickButton(16);
    test_->robot.WaitUntilDone();
    QCOMPARE(test_->document.replaced, 0);
    QVERIFY(test_->robot.Boxes().constLast().text.startsWith(QStringLiteral("The page has not been saved")));
    test_->robot.AnswerBox(QMessageBox::Yes);
    test_->ClickButton(16);
    test_->robot.WaitUntilDone();
    QCOMPARE(test_->document.replaced, 1);
    QVERIFY(Page().contains(QStringLiteral("<img src=\"file:///")));
    SetPage();
    test_->document.fileName.clear();
    Click(test_->Find<QWidget>("Check1"));
    test_->ClickButton(16);
    QVERIFY(Page().contains(QStringLiteral("<img src=\"picture.jpg\"")));
}

void tst_todayinsert::caretInATagIsToldAndNothingInserted()
{
    test_->document.selection = { Page().indexOf(QStringLiteral("tle>")), 0 };
    DrawAndChoose(1);
    test_->robot.AnswerBox(QMessageBox::Ok);
    test_->ClickButton(16);
    test_->robot.WaitUntilDone();
    QCOMPARE(Page(), QString::fromLatin1(page));
    QVERIFY(test_->robot.Boxes().constLast().text.startsWith(
        QStringLiteral("The caret of the page is inside a tag")));
}

void tst_todayinsert::secondMapHasANameOfItsOwn()
{
    DrawAndInsert(1);
    test_->document.selection = { Page().indexOf(QStringLiteral("</body>")), 0 };
    test_->ClickButton(16);
    QCOMPARE(Page().count(QStringLiteral("<style")), 1);
    QVERIFY(Page().contains(QStringLiteral("id=\"MyImageMap\"")));
    QVERIFY(Page().contains(QStringLiteral("id=\"MyImageMap2\"")));
}

void tst_todayinsert::textsAreWrittenAsThePageIsRead_data()
{
    QTest::addColumn<QString>("declared");
    QTest::addColumn<std::optional<TextEncoding>>("chosen");
    QTest::addColumn<QString>("written");
    const QString references = QStringLiteral("alt=\"&#xE4; &#x65E5;\"");
    const QString german = QStringLiteral("alt=\"\u00e4 &#x65E5;\"");
    const QString whole = QStringLiteral("alt=\"\u00e4 \u65e5\"");
    const auto row = [](const char* name, const char* declared, std::optional<TextEncoding> chosen,
                        const QString& written) {
        QTest::newRow(name) << QString::fromLatin1(declared) << chosen << written;
    };
    row("nothing said", "", {}, references);
    row("says UTF-8, saved otherwise", "utf-8", {}, references);
    row("Windows-1252", "windows-1252", {}, german);
    row("Windows-1252 chosen", "windows-1252", TextEncoding::Windows1252, german);
    row("UTF-8", "utf-8", TextEncoding::Utf8, whole);
    row("UTF-8, not said", "", TextEncoding::Utf8, references);
    row("UTF-8, says otherwise", "windows-1252", TextEncoding::Utf8, references);
    row("UTF-8 with mark", "", TextEncoding::Utf8WithMark, whole);
}

void tst_todayinsert::textsAreWrittenAsThePageIsRead()
{
    QFETCH(const QString, declared);
    QFETCH(const std::optional<TextEncoding>, chosen);
    QFETCH(const QString, written);
    SetPage(QString(QString::fromLatin1(page))
                .replace(
                    QStringLiteral("<title>"), declared.isEmpty()
                                                   ? QStringLiteral("<title>")
                                                   : u"<meta charset=\"" + declared + u"\">\r\n<title>"));
    test_->document.chosenEncoding = chosen;
    test_->Find<QLineEdit>("txtAltDescript")->setText(QStringLiteral("\u00e4 \u65e5"));
    DrawAndInsert(1);
    QVERIFY2(Page().contains(written), qPrintable(Page()));
}

void tst_todayinsert::panelNamesMissingTextsAndAClickLeadsThere()
{
    DrawAndInsert(1);
    const int line = int(Page().left(Page().indexOf(QStringLiteral("<p><span"))).count(u'\n')) + 1;
    QCOMPARE(
        Hint(), QStringLiteral("Image map inserted in line %1 of the page. No text for screen readers: "
                               "picture, area 1")
                    .arg(line));
    test_->Find<QTabWidget>("SSTab1")->setCurrentIndex(0);
    Click(test_->Find<QWidget>("StatusBar1_Panel3"));
    QCOMPARE(test_->Find<QTabWidget>("SSTab1")->currentIndex(), 1);
    QCOMPARE(test_->editor->focusWidget(), test_->Find<QWidget>("txtAltDescript"));
}

void tst_todayinsert::clickOnThePanelLeadsToTheFirstAreaWithoutAText()
{
    test_->Find<QLineEdit>("txtAltDescript")->setText(QStringLiteral("A harbour"));
    test_->DrawRectangle({ 20, 20 }, { 60, 60 });
    MapAreas areas = test_->map.Areas();
    areas[0].Text = QStringLiteral("The pier");
    test_->map.ChangeAreas(areas, QStringLiteral("Text"));
    DrawAndInsert(1);
    QVERIFY2(Hint().endsWith(QStringLiteral("No text for screen readers: area 2")), qPrintable(Hint()));
    test_->SelectRow(0);
    Click(test_->Find<QWidget>("StatusBar1_Panel3"));
    QCOMPARE(test_->List()->currentIndex().row(), 1);
    QCOMPARE(test_->editor->focusWidget(), test_->Find<QWidget>("txtAreaText"));
}

void tst_todayinsert::panelTellsWhatIsLeftOut()
{
    test_->Find<QLineEdit>("txtBorder")->setText(QStringLiteral("2"));
    test_->Find<QLineEdit>("txtImgWidth")->setText(QStringLiteral("50%"));
    DrawAndInsert(2);
    QVERIFY(Hint().endsWith(QStringLiteral("Size is the picture's own. Border and spacing are left out")));
    QVERIFY(Page().contains(QStringLiteral("width=\"300\"")));
}

void tst_todayinsert::panelTellsWhatAPageWithoutAHeadGetsInFront_data()
{
    QTest::addColumn<int>("form");
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("told");
    const QString fragment = QStringLiteral("<p>Before</p>\r\n");
    const QString style = QStringLiteral(". Style is in line 1, for want of a head");
    const QString both = QStringLiteral(". Style and script are in line 1, for want of a head");
    const QString script = QStringLiteral(". Script is in line 1, for want of a head");
    const QString current = fragment + QStringLiteral("<style data-imap=\"1\"></style>\r\n");
    QTest::newRow("links") << 1 << int(JSDisabled) << fragment << style;
    QTest::newRow("messages") << 1 << int(JSTextArea) << fragment << both;
    QTest::newRow("map element") << 2 << int(JSDisabled) << fragment << QString();
    QTest::newRow("style is there") << 1 << int(JSDisabled) << current << QString();
    QTest::newRow("style is there, no script") << 1 << int(JSTextArea) << current << script;
    QTest::newRow("page with a head") << 1 << int(JSTextArea) << QString::fromLatin1(page) << QString();
}

void tst_todayinsert::panelTellsWhatAPageWithoutAHeadGetsInFront()
{
    QFETCH(const int, form);
    QFETCH(const int, mode);
    QFETCH(const QString, page);
    QFETCH(const QString, told);
    test_->Find<QLineEdit>("txtAltDescript")->setText(QStringLiteral("A harbour"));
    test_->DrawRectangle({ 20, 20 }, { 120, 90 });
    MapAreas areas = test_->map.Areas();
    areas[0].Text = QStringLiteral("The pier");
    areas[0].Message = QStringLiteral("Ships land here");
    test_->map.ChangeAreas(areas, QStringLiteral("Text"));
    test_->map.Script().SetMode(JSMode(mode));
    SetPage(page);
    if (!page.contains(QStringLiteral("</body>"))) {
        test_->document.selection = { page.size(), 0 };
    }
    Choose(form);
    test_->ClickButton(16);
    const qsizetype dot = Hint().indexOf(u'.');
    QCOMPARE(dot < 0 ? QString() : Hint().mid(dot), told);
}

void tst_todayinsert::oldFormTellsWhereItsMessagesAreSeenNoMore_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<bool>("isTold");
    QTest::newRow("links") << int(JSDisabled) << false;
    QTest::newRow("status bar") << int(JSStatusBar) << true;
    QTest::newRow("switching images") << int(JSSwitchImages) << false;
    QTest::newRow("text area") << int(JSTextArea) << false;
    QTest::newRow("tool tips") << int(JSToolTips) << true;
}

void tst_todayinsert::oldFormTellsWhereItsMessagesAreSeenNoMore()
{
    QFETCH(const int, mode);
    QFETCH(const bool, isTold);
    test_->DrawRectangle({ 20, 20 }, { 120, 90 });
    test_->map.Script().SetMode(JSMode(mode));
    test_->ClickButton(16);
    QVERIFY(Hint().startsWith(QStringLiteral("Image map inserted in line 1 of the page")));
    QCOMPARE(Hint().contains(QStringLiteral("Today's browsers")), isTold);
}

QTEST_MAIN(tst_todayinsert)

#include "tst_todayinsert.moc"
