#include "tests/shared/LinksWritingFixture.h"

class tst_linkswriting : public LinksWritingFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Start(); }
    void cleanup() { Finish(); }

    void everyRecordIsWritten();
    void recordHoldsItsLink();
    void freeRecordIsBlankAndUnmarked();
    void marksAreWrittenAsTheyAre_data();
    void marksAreWrittenAsTheyAre();
    void urlIsWrittenInTheCodePage_data();
    void urlIsWrittenInTheCodePage();
    void urlIsCutToItsField_data();
    void urlIsCutToItsField();
    void writtenLinksAreReadAgain();
    void shorterListFreesTheRecordsBehind();
    void sameLinksMakeTheSameBytes();

    void missingFolderIsAnError();
    void folderInPlaceOfTheFileIsAnError();
    void linkToTheFileStaysALink();
};

void tst_linkswriting::everyRecordIsWritten()
{
    QCOMPARE(Written().size(), writtenSize);
    Add("a.htm");
    QCOMPARE(Written().size(), writtenSize);
    for (int i = 2; i <= recordsWritten; ++i) {
        Add(QString("link%1").arg(i));
    }
    const QByteArray bytes = Written();
    QCOMPARE(bytes.size(), writtenSize);
    for (int record = 2; record <= recordsWritten; ++record) {
        QCOMPARE(UrlField(bytes, record).trimmed(), "link" + QByteArray::number(record));
        QCOMPARE(int(WordAt(MarkField(bytes, record), 2)), record);
    }
}

void tst_linkswriting::recordHoldsItsLink()
{
    Add("http://a.example/");
    const QByteArray bytes = Written();
    QCOMPARE(UrlField(bytes, 1), QByteArray("http://a.example/").leftJustified(urlSize, ' '));
    QCOMPARE(MarkField(bytes, 1), QByteArray::fromHex("02000100"));
}

void tst_linkswriting::freeRecordIsBlankAndUnmarked()
{
    Add("a.htm");
    const QByteArray bytes = Written();
    for (int record = 2; record <= recordsWritten; ++record) {
        QCOMPARE(UrlField(bytes, record), QByteArray(urlSize, ' '));
        QCOMPARE(int(WordAt(MarkField(bytes, record), 0)), 0);
    }
}

void tst_linkswriting::marksAreWrittenAsTheyAre_data()
{
    QTest::addColumn<int>("mark");
    QTest::addColumn<QByteArray>("field");
    QTest::newRow("0") << 0 << QByteArray::fromHex("02000000");
    QTest::newRow("50") << 50 << QByteArray::fromHex("02003200");
    QTest::newRow("258") << 258 << QByteArray::fromHex("02000201");
    QTest::newRow("-1") << -1 << QByteArray::fromHex("0200ffff");
    QTest::newRow("-32768") << -32768 << QByteArray::fromHex("02000080");
}

void tst_linkswriting::marksAreWrittenAsTheyAre()
{
    QFETCH(const int, mark);
    QFETCH(const QByteArray, field);
    imgMap_->SavedLinkURL[1] = "a.htm";
    imgMap_->SavedLinkMark[1] = qint16(mark);
    QCOMPARE(MarkField(Written(), 1), field);
    QCOMPARE(int(ReadSavedLinks(Path()).links.constFirst().Mark), mark);
}

void tst_linkswriting::urlIsWrittenInTheCodePage_data()
{
    QTest::addColumn<QString>("url");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("accented") << QString("caf\u00E9.htm") << QByteArray("caf\xE9.htm");
    QTest::newRow("euro") << QString("\u20AC.htm") << QByteArray("\x80.htm");
    QTest::newRow("outside") << QString("\u0416.htm") << QByteArray("?.htm");
    QTest::newRow("blanks within") << QString("a  b") << QByteArray("a  b");
}

void tst_linkswriting::urlIsWrittenInTheCodePage()
{
    QFETCH(const QString, url);
    QFETCH(const QByteArray, bytes);
    Add(url);
    QCOMPARE(UrlField(Written(), 1), bytes.leftJustified(urlSize, ' '));
}

void tst_linkswriting::urlIsCutToItsField_data()
{
    QTest::addColumn<int>("length");
    for (const int length : { 259, 260, 261, 520, 100000 }) {
        QTest::addRow("%d", length) << length;
    }
}

void tst_linkswriting::urlIsCutToItsField()
{
    QFETCH(const int, length);
    const QString url = "http://" + QString(length - 7, u'u');
    Add(url);
    Add("next");
    const QByteArray bytes = Written();
    QCOMPARE(bytes.size(), writtenSize);
    QCOMPARE(UrlField(bytes, 1), url.left(urlSize).toLatin1().leftJustified(urlSize, ' '));
    QCOMPARE(MarkField(bytes, 1), QByteArray::fromHex("02000100"));
    QCOMPARE(UrlField(bytes, 2).trimmed(), QByteArray("next"));
    QCOMPARE(imgMap_->SavedLinkURL[1], url); // in memory it stays whole
    QCOMPARE(ReadSavedLinks(Path()).links.constFirst().Url, url.left(urlSize));
}

void tst_linkswriting::writtenLinksAreReadAgain()
{
    for (int i = 1; i <= 20; ++i) {
        Add(QString(" link %1 ").arg(i));
    }
    QVERIFY(WriteSavedLinks(Path(), *imgMap_));
    const SavedLinks saved = ReadSavedLinks(Path());
    QVERIFY(!saved.isDamaged);
    QCOMPARE(saved.links.size(), 15);
    for (int i = 1; i <= 15; ++i) {
        QCOMPARE(saved.links.at(i - 1).Url, QString("link %1").arg(i));
        QCOMPARE(int(saved.links.at(i - 1).Mark), i);
    }
}

void tst_linkswriting::shorterListFreesTheRecordsBehind()
{
    for (int i = 1; i <= 20; ++i) {
        Add(QString("link%1").arg(i));
    }
    QVERIFY(WriteSavedLinks(Path(), *imgMap_));
    imgMap_ = std::make_unique<ImgMap>();
    for (const SavedLink& link : ReadSavedLinks(Path()).links) {
        Add(link.Url);
    }
    const QByteArray bytes = Written();
    QCOMPARE(int(WordAt(MarkField(bytes, 15), 0)), 2);
    for (int record = 16; record <= 20; ++record) {
        QCOMPARE(UrlField(bytes, record), QByteArray(urlSize, ' '));
        QCOMPARE(int(WordAt(MarkField(bytes, record), 0)), 0);
    }
}

void tst_linkswriting::sameLinksMakeTheSameBytes()
{
    Add("a.htm");
    Add("b.htm");
    const QByteArray fresh = Written();
    QVERIFY(WriteBytes(Path(), QByteArray(writtenSize, '\xEE')));
    QCOMPARE(Written(), fresh);
}

void tst_linkswriting::missingFolderIsAnError()
{
    QVERIFY(QDir(folder_->path()).rmdir("Data"));
    Add("a.htm");
    QVERIFY(!WriteSavedLinks(Path(), *imgMap_));
    QVERIFY(!QFile::exists(folder_->filePath("Data")));
}

void tst_linkswriting::folderInPlaceOfTheFileIsAnError()
{
    QVERIFY(QDir().mkpath(Path() + "/within"));
    QVERIFY(!WriteSavedLinks(Path(), *imgMap_));
    QVERIFY(QFileInfo(Path() + "/within").isDir());
    QCOMPARE(
        QDir(folder_->filePath("Data")).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
        QStringList("Links.dra"));
}

void tst_linkswriting::linkToTheFileStaysALink()
{
#ifdef Q_OS_WIN
    QSKIP("What Windows calls a link is a file of its own");
#endif
    const QString target = folder_->filePath("elsewhere.dra");
    QVERIFY(WriteBytes(target, QByteArray(writtenSize, 'o') + "behind"));
    QVERIFY(QFile::link(target, Path()));
    Add("a.htm");
    QVERIFY(WriteSavedLinks(Path(), *imgMap_));
    QVERIFY(QFileInfo(Path()).isSymLink());
    QCOMPARE(Content(target).mid(writtenSize), QByteArray("behind"));
    QCOMPARE(UrlField(Content(target), 1).trimmed(), QByteArray("a.htm"));

    // A link to a file that is not there makes it.
    QVERIFY(QFile::remove(target));
    QVERIFY(WriteSavedLinks(Path(), *imgMap_));
    QCOMPARE(Content(target).size(), writtenSize);
}

QTEST_GUILESS_MAIN(tst_linkswriting)
#include "tst_linkswriting.moc"
