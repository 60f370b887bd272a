// What of the links is there after a restart.

#include "tests/app/LinksListFixture.h"

namespace {

constexpr qsizetype recordSize = 276;

constexpr qsizetype urlSize = 260;

const QString damagedText = QStringLiteral("File Links.dra is either damaged or missing !");

QByteArray UsedRecord(const QByteArray& url)
{
    const QByteArray record = url.leftJustified(urlSize, ' ') + QByteArray::fromHex("02000100");
    return record.leftJustified(recordSize, '\0');
}

} // namespace

/** The saved links beside the editor, worked with as a user does. */
class tst_linkssaving : public LinksListFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Start(); }
    void cleanup() { Finish(); }

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
};

void tst_linkssaving::onlySaveWritesTheFile()
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

void tst_linkssaving::savedLinksComeBack()
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

void tst_linkssaving::linksBehindTheFifteenthAreGoneAfterTheNextSave()
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

void tst_linkssaving::longUrlComesBackCut()
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

void tst_linkssaving::deletedLinkComesBackUnlessSaved()
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

void tst_linkssaving::urlOutsideTheCodePageComesBackWithQuestionMarks()
{
    Open();
    Add(QStringLiteral("\u0416.htm"));
    QCOMPARE(Urls(), QStringList(QStringLiteral("\u0416.htm")));
    ClickButton("btnSave");
    Restart();
    QCOMPARE(Urls(), QStringList(QStringLiteral("?.htm")));
}

void tst_linkssaving::saveIntoAMissingFolderIsSilent()
{
    Open();
    AddMany(2);
    QVERIFY(QDir(folder_->Path(QStringLiteral("Data"))).removeRecursively());
    ClickButton("btnSave");
    QCoreApplication::processEvents();
    QCOMPARE(test_->robot.Boxes().size(), 0);
    QVERIFY(!QFile::exists(folder_->Path(QStringLiteral("Data"))));
    QCOMPARE(Urls().size(), 2);
    // Once the folder is there again, so are the links.
    QVERIFY(QDir(folder_->imgMap.ProgramFolder).mkdir(QStringLiteral("Data")));
    ClickButton("btnSave");
    Restart();
    QCOMPARE(Urls().size(), 2);
}

void tst_linkssaving::saveOverAFolderIsSilent()
{
    Open();
    AddMany(1);
    QVERIFY(QFile::remove(LinksPath()));
    QVERIFY(QDir().mkpath(LinksPath()));
    ClickButton("btnSave");
    QCoreApplication::processEvents();
    QCOMPARE(test_->robot.Boxes().size(), 0);
    QVERIFY(QFileInfo(LinksPath()).isDir());
}

void tst_linkssaving::damagedFileIsToldOnceAndKeepsWhatIsGood_data()
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

void tst_linkssaving::damagedFileIsToldOnceAndKeepsWhatIsGood()
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

void tst_linkssaving::saveMendsADamagedFile()
{
    QVERIFY(WriteBytes(LinksPath(), UsedRecord("good") + UsedRecord("cut").first(100)));
    test_->robot.AnswerBox(QMessageBox::Ok);
    Open();
    Add(QStringLiteral("new"));
    ClickButton("btnSave");
    Restart();
    QCOMPARE(Urls(), QStringList({ QStringLiteral("good"), QStringLiteral("new") }));
}

QTEST_MAIN(tst_linkssaving)
#include "tst_linkssaving.moc"
