#include "tests/app/LinksListFixture.h"

namespace {

const QString fullText = QStringLiteral("Sorry, you entered maximum number of the links ! ");

const QString noUrlText = QStringLiteral("To Add a new URL, enter the URL in the Links field! ");

const QString noLinksText = QStringLiteral("There is no saved URLs in the URLs List Box! ");

const QString notSelectedText = QStringLiteral("To Delete the URL, highlight the URL first ! ");

} // namespace

class tst_linkslist : public LinksListFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Start(); }
    void cleanup() { Finish(); }

    void addPutsTheUrlBehindTheOthers();
    void addKeepsTheTypedBlanksInTheListOnly_data();
    void addKeepsTheTypedBlanksInTheListOnly();
    void addTellsWhenTheFieldIsEmpty();
    void addTellsWhenThereIsNoRoom_data();
    void addTellsWhenThereIsNoRoom();
    void fiftyLinksFit();

    void deleteTellsWhenThereAreNoLinks();
    void deleteTellsWhenNoneIsSelected();
    void deleteTakesTheSelectedLink_data();
    void deleteTakesTheSelectedLink();
    void deletingHighlightsNoOtherLink();
    void equalLinksAreDeletedOneByOne();
};

void tst_linkslist::addPutsTheUrlBehindTheOthers()
{
    Open();
    auto* const field = test_->Find<QLineEdit>("txtCTags");
    for (const char* const url : { "b.htm", "a.htm", "b.htm" }) {
        QTest::mouseClick(field, Qt::LeftButton);
        QTest::keyClicks(field, QString::fromLatin1(url));
        ClickButton("btnAdd");
        QCOMPARE(field->text(), QString());
    }
    QCOMPARE(
        Urls(), QStringList({ QStringLiteral("b.htm"), QStringLiteral("a.htm"), QStringLiteral("b.htm") }));
    QCOMPARE(Table(), Urls());
}

void tst_linkslist::addKeepsTheTypedBlanksInTheListOnly_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("kept");
    QTest::newRow("around") << "  a b.htm "
                            << "a b.htm";
    QTest::newRow("nothing but blanks") << "   "
                                        << "";
}

void tst_linkslist::addKeepsTheTypedBlanksInTheListOnly()
{
    QFETCH(const QString, typed);
    QFETCH(const QString, kept);
    Open();
    Add(typed);
    QCOMPARE(Urls(), QStringList(typed));
    QCOMPARE(Table(), QStringList(kept));
    ClickButton("btnSave");
    Restart();
    QCOMPARE(Urls(), QStringList(kept));
}

void tst_linkslist::addTellsWhenTheFieldIsEmpty()
{
    Open();
    test_->robot.AnswerBox(QMessageBox::Ok);
    ClickButton("btnAdd");
    ExpectBox(QMessageBox::Information, noUrlText);
    QVERIFY(Urls().isEmpty());
    QVERIFY(Table().isEmpty());
}

void tst_linkslist::addTellsWhenThereIsNoRoom_data()
{
    QTest::addColumn<QString>("url");
    QTest::newRow("with a URL") << "more";
    QTest::newRow("even when the field is empty") << "";
}

void tst_linkslist::addTellsWhenThereIsNoRoom()
{
    QFETCH(const QString, url);
    Open();
    AddMany(50);
    test_->robot.AnswerBox(QMessageBox::Ok);
    Add(url);
    ExpectBox(QMessageBox::Warning, fullText);
    QCOMPARE(Urls().size(), 50);
    QCOMPARE(Table().size(), 50);
    QCOMPARE(test_->Find<QLineEdit>("txtCTags")->text(), url);
}

void tst_linkslist::fiftyLinksFit()
{
    Open();
    AddMany(50);
    QCOMPARE(Urls().size(), 50);
    QCOMPARE(Urls().constLast(), QStringLiteral("link50"));
    QCOMPARE(Table(), Urls());
    SelectRow(20);
    ClickButton("btnDelete");
    Add(QStringLiteral("again"));
    QCOMPARE(Urls().size(), 50);
    QCOMPARE(Urls().constLast(), QStringLiteral("again"));
    QCOMPARE(Table(), Urls());
}

void tst_linkslist::deleteTellsWhenThereAreNoLinks()
{
    Open();
    test_->robot.AnswerBox(QMessageBox::Ok);
    ClickButton("btnDelete");
    ExpectBox(QMessageBox::Information, noLinksText);
}

void tst_linkslist::deleteTellsWhenNoneIsSelected()
{
    Open();
    AddMany(2);
    test_->robot.AnswerBox(QMessageBox::Ok);
    ClickButton("btnDelete");
    ExpectBox(QMessageBox::Information, notSelectedText);
    QCOMPARE(Urls().size(), 2);
    QCOMPARE(Table(), Urls());
}

void tst_linkslist::deleteTakesTheSelectedLink_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("row");
    QTest::newRow("the only one") << 1 << 0;
    QTest::newRow("the first") << 5 << 0;
    QTest::newRow("one in the middle") << 5 << 2;
    QTest::newRow("the last") << 5 << 4;
    QTest::newRow("the last of fifty") << 50 << 49;
    QTest::newRow("the first of fifty") << 50 << 0;
}

void tst_linkslist::deleteTakesTheSelectedLink()
{
    QFETCH(const int, count);
    QFETCH(const int, row);
    Open();
    AddMany(count);
    QStringList expected = Urls();
    expected.removeAt(row);
    SelectRow(row);
    ClickButton("btnDelete");
    QCOMPARE(Urls(), expected);
    QCOMPARE(Table(), expected);
}

void tst_linkslist::deletingHighlightsNoOtherLink()
{
    Open();
    AddMany(3);
    SelectRow(0);
    ClickButton("btnDelete");
    test_->robot.AnswerBox(QMessageBox::Ok);
    ClickButton("btnDelete");
    ExpectBox(QMessageBox::Information, notSelectedText);
    QCOMPARE(Urls().size(), 2);
}

void tst_linkslist::equalLinksAreDeletedOneByOne()
{
    Open();
    Add(QStringLiteral("same"));
    Add(QStringLiteral("other"));
    Add(QStringLiteral("same"));
    SelectRow(2);
    ClickButton("btnDelete");
    QCOMPARE(Urls(), QStringList({ QStringLiteral("same"), QStringLiteral("other") }));
    QCOMPARE(Table(), Urls());
}

QTEST_MAIN(tst_linkslist)
#include "tst_linkslist.moc"
