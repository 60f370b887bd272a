#include "tests/support/WidgetDriving.h"

#include "tests/app/MainWindowFixture.h"

#include <QListWidget>
#include <QTabBar>
#include <QTabWidget>
#include <memory>

namespace {

constexpr qsizetype recordSize = 276;
constexpr qsizetype urlSize = 260;

const QString fullText = QStringLiteral("Sorry, you entered maximum number of the links ! ");
const QString noUrlText = QStringLiteral("To Add a new URL, enter the URL in the Links field! ");
const QString noLinksText = QStringLiteral("There is no saved URLs in the URLs List Box! ");
const QString notSelectedText = QStringLiteral("To Delete the URL, highlight the URL first ! ");
const QString damagedText = QStringLiteral("File Links.dra is either damaged or missing !");

QByteArray UsedRecord(const QByteArray& url)
{
    const QByteArray record = url.leftJustified(urlSize, ' ') + QByteArray::fromHex("02000100");
    return record.leftJustified(recordSize, '\0');
}

} // namespace

/** The saved links beside the editor, worked with as a user does. */
class tst_linkslist : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

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

    void onlySaveWritesTheFile();
    void savedLinksComeBack();
    void linksBehindTheFifteenthAreGoneAfterTheNextSave();
    void longUrlComesBackCut();
    void deletedLinkComesBackUnlessSaved();
    void urlOutsideTheCodePageComesBackWithQuestionMarks();

    void saveIntoAMissingFolderIsSilent();
    void saveOverAFolderIsSilent();
    void damagedFileIsToldOnceAndKeepsWhatIsGood_data();
    void damagedFileIsToldOnceAndKeepsWhatIsGood();
    void saveMendsADamagedFile();

private:
    void Open();
    /** Closes the window and opens a fresh one on the same folder, as if the program were started again. */
    void Restart();
    void Add(const QString& url);
    void AddMany(int count);
    void ClickButton(const char* name) { Click(test_->Find<QPushButton>(name)); }
    void SelectRow(int row);
    void ExpectBox(QMessageBox::Icon icon, const QString& text);
    QStringList Urls() const;
    /** The table in memory, which always equals the list but for blanks. */
    QStringList Table() const;
    QString LinksPath() const { return folder_->Path(QStringLiteral("Data/Links.dra")); }

    /** The main window on a folder that outlives it. */
    struct Session
    {
        explicit Session(ProgramFolder& folder)
            : window(folder.imgMap, folder.map, desktop)
        {
        }
        template<class Widget> Widget* Find(const char* name) { return ::Find<Widget>(&window, name); }
        DialogRobot robot;
        RecordingDesktop desktop;
        frmIMmain window;
    };

    std::unique_ptr<ProgramFolder> folder_;
    std::unique_ptr<Session> test_;
};

void tst_linkslist::init()
{
    folder_ = std::make_unique<ProgramFolder>();
    test_ = std::make_unique<Session>(*folder_);
}

void tst_linkslist::cleanup()
{
    QCOMPARE(test_->robot.Problems(), QString());
    test_.reset();
    folder_.reset();
}

void tst_linkslist::Open()
{
    test_->window.Form_Load();
    test_->window.show();
    QVERIFY(QTest::qWaitForWindowActive(&test_->window));
    const auto* const tabs = test_->Find<QTabWidget>("SSTab1");
    QTest::mouseClick(tabs->tabBar(), Qt::LeftButton, {}, tabs->tabBar()->tabRect(1).center());
    QCOMPARE(tabs->currentIndex(), 1);
}

void tst_linkslist::Restart()
{
    QCOMPARE(test_->robot.Problems(), QString());
    test_.reset();
    const QString programFolder = folder_->imgMap.ProgramFolder;
    folder_->imgMap = ImgMap();
    folder_->imgMap.ProgramFolder = programFolder;
    test_ = std::make_unique<Session>(*folder_);
    Open();
}

void tst_linkslist::Add(const QString& url)
{
    test_->Find<QLineEdit>("txtCTags")->setText(url);
    ClickButton("btnAdd");
}

void tst_linkslist::AddMany(int count)
{
    for (int i = 1; i <= count; ++i) {
        Add(QStringLiteral("link%1").arg(i));
    }
}

void tst_linkslist::SelectRow(int row)
{
    auto* const list = test_->Find<QListWidget>("ListView1");
    list->scrollToItem(list->item(row));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(row)).center());
    QCOMPARE(list->currentRow(), row);
}

void tst_linkslist::ExpectBox(QMessageBox::Icon icon, const QString& text)
{
    QCOMPARE(test_->robot.Boxes().size(), 1);
    const DialogRobot::SeenBox& box = test_->robot.Boxes().constFirst();
    QCOMPARE(box.text, text);
    QCOMPARE(box.icon, icon);
    QCOMPARE(box.title, QStringLiteral("Cartolen"));
    QCOMPARE(box.buttons, QMessageBox::Ok);
}

QStringList tst_linkslist::Urls() const
{
    const auto* const list = test_->Find<QListWidget>("ListView1");
    QStringList urls;
    for (int i = 0; i < list->count(); ++i) {
        urls << list->item(i)->text();
    }
    return urls;
}

QStringList tst_linkslist::Table() const
{
    QStringList urls;
    for (std::size_t slot = 1; folder_->imgMap.SavedLinkMark[slot]; ++slot) {
        urls << folder_->imgMap.SavedLinkURL[slot];
    }
    return urls;
}

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

void tst_linkslist::onlySaveWritesTheFile()
{
    Open();
    AddMany(3);
    SelectRow(0);
    ClickButton("btnDelete");
    QCOMPARE(BytesOf(LinksPath()), QByteArray());
    ClickButton("btnSave");
    const QByteArray bytes = BytesOf(LinksPath());
    QCOMPARE(bytes.size(), 50 * recordSize);
    QCOMPARE(bytes.first(urlSize).trimmed(), QByteArray("link2"));
    // A link keeps the number it was given.
    QCOMPARE(bytes.mid(urlSize, 4), QByteArray::fromHex("02000200"));
    QCOMPARE(bytes.mid(2 * recordSize + urlSize, 2), QByteArray::fromHex("0000"));
    QCOMPARE(test_->robot.Boxes().size(), 0);
}

void tst_linkslist::savedLinksComeBack()
{
    Open();
    Add(QStringLiteral("http://a.example/?x=1&y=2"));
    Add(QStringLiteral("caf\u00E9_\u20AC.htm"));
    const QStringList urls = Urls();
    ClickButton("btnSave");
    Restart();
    QCOMPARE(Urls(), urls);
    QCOMPARE(Table(), urls);
    QVERIFY(test_->Find<QListWidget>("ListView1")->selectedItems().isEmpty());
}

void tst_linkslist::linksBehindTheFifteenthAreGoneAfterTheNextSave()
{
    Open();
    AddMany(20);
    ClickButton("btnSave");
    Restart();
    QCOMPARE(Urls().size(), 15);
    QCOMPARE(Urls().constLast(), QStringLiteral("link15"));
    const QByteArray sixteenth = BytesOf(LinksPath()).mid(15 * recordSize, urlSize);
    QCOMPARE(sixteenth.trimmed(), QByteArray("link16"));
    ClickButton("btnSave");
    const QByteArray rest = BytesOf(LinksPath()).mid(15 * recordSize);
    for (qsizetype record = 0; record < rest.size(); record += recordSize) {
        QCOMPARE(rest.mid(record, urlSize), QByteArray(urlSize, ' '));
        QCOMPARE(rest.mid(record + urlSize, 2), QByteArray::fromHex("0000"));
    }
}

void tst_linkslist::longUrlComesBackCut()
{
    const QString url = QStringLiteral("http://") + QString(400, u'u');
    Open();
    Add(url);
    Add(QStringLiteral("next"));
    QCOMPARE(Urls().constFirst(), url);
    QCOMPARE(Table().constFirst(), url);
    ClickButton("btnSave");
    Restart();
    QCOMPARE(Urls(), QStringList({ url.left(urlSize), QStringLiteral("next") }));
}

void tst_linkslist::deletedLinkComesBackUnlessSaved()
{
    Open();
    AddMany(2);
    ClickButton("btnSave");
    SelectRow(0);
    ClickButton("btnDelete");
    Restart();
    QCOMPARE(Urls().size(), 2);
    SelectRow(0);
    ClickButton("btnDelete");
    ClickButton("btnSave");
    Restart();
    QCOMPARE(Urls(), QStringList(QStringLiteral("link2")));
}

void tst_linkslist::urlOutsideTheCodePageComesBackWithQuestionMarks()
{
    Open();
    Add(QStringLiteral("\u0416.htm"));
    QCOMPARE(Urls(), QStringList(QStringLiteral("\u0416.htm")));
    ClickButton("btnSave");
    Restart();
    QCOMPARE(Urls(), QStringList(QStringLiteral("?.htm")));
}

void tst_linkslist::saveIntoAMissingFolderIsSilent()
{
    Open();
    AddMany(2);
    QVERIFY(QDir(folder_->Path(QStringLiteral("Data"))).removeRecursively());
    ClickButton("btnSave");
    QTest::qWait(200);
    QCOMPARE(test_->robot.Boxes().size(), 0);
    QVERIFY(!QFile::exists(folder_->Path(QStringLiteral("Data"))));
    QCOMPARE(Urls().size(), 2);
    // Once the folder is there again, so are the links.
    QVERIFY(QDir(folder_->imgMap.ProgramFolder).mkdir(QStringLiteral("Data")));
    ClickButton("btnSave");
    Restart();
    QCOMPARE(Urls().size(), 2);
}

void tst_linkslist::saveOverAFolderIsSilent()
{
    Open();
    AddMany(1);
    QVERIFY(QFile::remove(LinksPath()));
    QVERIFY(QDir().mkpath(LinksPath()));
    ClickButton("btnSave");
    QTest::qWait(200);
    QCOMPARE(test_->robot.Boxes().size(), 0);
    QVERIFY(QFileInfo(LinksPath()).isDir());
}

void tst_linkslist::damagedFileIsToldOnceAndKeepsWhatIsGood_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("urls");
    const QByteArray good = UsedRecord("good");
    QByteArray unknown = UsedRecord("bad");
    unknown[urlSize] = 9;
    QTest::newRow("cut in the second record") << QByteArray(good + good.first(100)) << "good";
    QTest::newRow("a mark of an unknown kind") << QByteArray(good + unknown) << "good";
    QTest::newRow("several of them") << QByteArray(unknown + good + unknown) << "good";
    QTest::newRow("text") << QByteArray("http://a.example/\r\n") << "";
}

void tst_linkslist::damagedFileIsToldOnceAndKeepsWhatIsGood()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const QString, urls);
    QVERIFY(WriteBytes(LinksPath(), bytes));
    test_->robot.AnswerBox(QMessageBox::Ok);
    Open();
    ExpectBox(QMessageBox::Warning, damagedText);
    QCOMPARE(Urls().join(u'|'), urls);
    QCOMPARE(Table(), Urls());
    QCOMPARE(BytesOf(LinksPath()), bytes);
}

void tst_linkslist::saveMendsADamagedFile()
{
    QVERIFY(WriteBytes(LinksPath(), UsedRecord("good") + UsedRecord("cut").first(100)));
    test_->robot.AnswerBox(QMessageBox::Ok);
    Open();
    Add(QStringLiteral("new"));
    ClickButton("btnSave");
    Restart();
    QCOMPARE(Urls(), QStringList({ QStringLiteral("good"), QStringLiteral("new") }));
}

QTEST_MAIN(tst_linkslist)
#include "tst_linkslist.moc"
