#include "shared/LinksFile.h"
#include "shared/SavedLinks.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QtEndian>
#include <algorithm>
#include <memory>
#include <random>

#ifdef Q_OS_UNIX
#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace {

constexpr qsizetype recordSize = 276;
constexpr qsizetype urlSize = 260;
constexpr int recordsWritten = 50;
constexpr qsizetype writtenSize = recordSize * recordsWritten;
#ifdef Q_OS_UNIX
constexpr uid_t ordinaryUser = 65534;
#endif

QByteArray Content(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<cannot be read>");
}

bool WriteBytes(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

quint16 WordAt(const QByteArray& bytes, qsizetype offset)
{
    return qFromLittleEndian<quint16>(bytes.constData() + offset);
}

/** The URL of a record, from 1, with the blanks that fill its field. */
QByteArray UrlField(const QByteArray& bytes, int record)
{
    return bytes.mid((record - 1) * recordSize, urlSize);
}

QByteArray MarkField(const QByteArray& bytes, int record)
{
    return bytes.mid((record - 1) * recordSize + urlSize, 4);
}

QByteArray RandomBytes(std::mt19937& random, qsizetype size)
{
    QByteArray bytes(size, '\0');
    for (char& byte : bytes) {
        byte = static_cast<char>(random() & 0xFF);
    }
    return bytes;
}

} // namespace

class TestLinksWriting : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

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

    void whatLiesBehindTheRecordsStays_data();
    void whatLiesBehindTheRecordsStays();
    void randomFilesKeepWhatIsBehindTheRecords();
    void largeFileKeepsWhatIsBehindTheRecords();
    void fileFarTooLargeIsLeftAlone();

    void missingFolderIsAnError();
    void folderInPlaceOfTheFileIsAnError();
#ifdef Q_OS_UNIX
    void linkToTheFileStaysALink();
    void pipeInPlaceOfTheFileIsAnError();
    void fullDiskLeavesTheOldFile();
    void lockedFolderIsAnError();
#endif

private:
    [[nodiscard]] QString Path() const
    {
        return folder_->filePath("Data/Links.dra");
    }
    /** The bytes of the file after writing; the writing must succeed. */
    [[nodiscard]] QByteArray Written() const;
    void Add(const QString& url)
    {
        AddSavedLink(*imgMap_, url);
    }

    std::unique_ptr<QTemporaryDir> folder_;
    std::unique_ptr<ImgMap> imgMap_;
};

void TestLinksWriting::init()
{
    folder_ = std::make_unique<QTemporaryDir>();
    imgMap_ = std::make_unique<ImgMap>();
    QVERIFY(QDir(folder_->path()).mkdir("Data"));
}

void TestLinksWriting::cleanup()
{
    QFile::setPermissions(folder_->filePath("Data"), QFile::Permissions::fromInt(0x7777));
}

QByteArray TestLinksWriting::Written() const
{
    return WriteSavedLinks(Path(), *imgMap_) ? Content(Path()) : QByteArray("<failed>");
}

void TestLinksWriting::everyRecordIsWritten()
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

void TestLinksWriting::recordHoldsItsLink()
{
    Add("http://a.example/");
    const QByteArray bytes = Written();
    QCOMPARE(UrlField(bytes, 1), QByteArray("http://a.example/").leftJustified(urlSize, ' '));
    QCOMPARE(MarkField(bytes, 1), QByteArray::fromHex("02000100"));
}

void TestLinksWriting::freeRecordIsBlankAndUnmarked()
{
    Add("a.htm");
    const QByteArray bytes = Written();
    for (int record = 2; record <= recordsWritten; ++record) {
        QCOMPARE(UrlField(bytes, record), QByteArray(urlSize, ' '));
        QCOMPARE(int(WordAt(MarkField(bytes, record), 0)), 0);
    }
}

void TestLinksWriting::marksAreWrittenAsTheyAre_data()
{
    QTest::addColumn<int>("mark");
    QTest::addColumn<QByteArray>("field");
    QTest::newRow("0") << 0 << QByteArray::fromHex("02000000");
    QTest::newRow("50") << 50 << QByteArray::fromHex("02003200");
    QTest::newRow("258") << 258 << QByteArray::fromHex("02000201");
    QTest::newRow("-1") << -1 << QByteArray::fromHex("0200ffff");
    QTest::newRow("-32768") << -32768 << QByteArray::fromHex("02000080");
}

void TestLinksWriting::marksAreWrittenAsTheyAre()
{
    QFETCH(const int, mark);
    QFETCH(const QByteArray, field);
    imgMap_->SavedLinkURL[1] = "a.htm";
    imgMap_->SavedLinkMark[1] = qint16(mark);
    QCOMPARE(MarkField(Written(), 1), field);
    QCOMPARE(int(ReadSavedLinks(Path()).links.constFirst().Mark), mark);
}

void TestLinksWriting::urlIsWrittenInTheCodePage_data()
{
    QTest::addColumn<QString>("url");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("accented") << QString("caf\u00E9.htm") << QByteArray("caf\xE9.htm");
    QTest::newRow("euro") << QString("\u20AC.htm") << QByteArray("\x80.htm");
    QTest::newRow("outside") << QString("\u0416.htm") << QByteArray("?.htm");
    QTest::newRow("blanks within") << QString("a  b") << QByteArray("a  b");
}

void TestLinksWriting::urlIsWrittenInTheCodePage()
{
    QFETCH(const QString, url);
    QFETCH(const QByteArray, bytes);
    Add(url);
    QCOMPARE(UrlField(Written(), 1), bytes.leftJustified(urlSize, ' '));
}

void TestLinksWriting::urlIsCutToItsField_data()
{
    QTest::addColumn<int>("length");
    for (const int length : { 259, 260, 261, 520, 100000 }) {
        QTest::addRow("%d", length) << length;
    }
}

void TestLinksWriting::urlIsCutToItsField()
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

void TestLinksWriting::writtenLinksAreReadAgain()
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

void TestLinksWriting::shorterListFreesTheRecordsBehind()
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

void TestLinksWriting::sameLinksMakeTheSameBytes()
{
    Add("a.htm");
    Add("b.htm");
    const QByteArray fresh = Written();
    QVERIFY(WriteBytes(Path(), QByteArray(writtenSize, '\xEE')));
    QCOMPARE(Written(), fresh);
}

void TestLinksWriting::whatLiesBehindTheRecordsStays_data()
{
    QTest::addColumn<qsizetype>("oldSize");
    for (const qsizetype size :
         { qsizetype(0), qsizetype(1), qsizetype(275), qsizetype(276), writtenSize - 1, writtenSize,
           writtenSize + 1, writtenSize + recordSize, writtenSize * 3 + 5 }) {
        QTest::addRow("%d bytes", int(size)) << size;
    }
}

void TestLinksWriting::whatLiesBehindTheRecordsStays()
{
    QFETCH(const qsizetype, oldSize);
    std::mt19937 random(quint32(oldSize) + 1);
    const QByteArray old = RandomBytes(random, oldSize);
    QVERIFY(WriteBytes(Path(), old));
    Add("a.htm");
    const QByteArray bytes = Written();
    QCOMPARE(bytes.size(), std::max(oldSize, writtenSize));
    QCOMPARE(bytes.mid(writtenSize), old.mid(writtenSize));
    QCOMPARE(UrlField(bytes, 1).trimmed(), QByteArray("a.htm"));
    QCOMPARE(int(WordAt(MarkField(bytes, 2), 0)), 0);
}

void TestLinksWriting::randomFilesKeepWhatIsBehindTheRecords()
{
    std::mt19937 random(20030517);
    for (int round = 0; round < 200; ++round) {
        const QByteArray old = RandomBytes(random, qsizetype(random() % (writtenSize * 2)));
        QVERIFY(WriteBytes(Path(), old));
        imgMap_ = std::make_unique<ImgMap>();
        const auto count = int(random() % 51);
        for (int i = 0; i < count; ++i) {
            Add(QString::fromLatin1(RandomBytes(random, qsizetype(random() % 400))));
        }
        const QByteArray bytes = Written();
        QCOMPARE(bytes.mid(writtenSize), old.mid(writtenSize));
        QCOMPARE(bytes.size(), std::max(old.size(), writtenSize));
        const SavedLinks saved = ReadSavedLinks(Path());
        QVERIFY(!saved.isDamaged);
        QCOMPARE(saved.links.size(), std::min(count, 15));
    }
}

void TestLinksWriting::largeFileKeepsWhatIsBehindTheRecords()
{
    std::mt19937 random(7);
    const QByteArray old = RandomBytes(random, 8 * 1024 * 1024 + 3);
    QVERIFY(WriteBytes(Path(), old));
    Add("a.htm");
    QVERIFY(Written().mid(writtenSize) == old.mid(writtenSize));
}

void TestLinksWriting::fileFarTooLargeIsLeftAlone()
{
    constexpr qint64 size = qint64(5) << 30;
    QFile file(Path());
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("old") == 3);
    if (!file.resize(size)) {
        QSKIP("This file system has no files with holes.");
    }
    file.close();
    Add("a.htm");
    QVERIFY(!WriteSavedLinks(Path(), *imgMap_));
    QCOMPARE(QFile(Path()).size(), size);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.read(3), QByteArray("old"));
}

void TestLinksWriting::missingFolderIsAnError()
{
    QVERIFY(QDir(folder_->path()).rmdir("Data"));
    Add("a.htm");
    QVERIFY(!WriteSavedLinks(Path(), *imgMap_));
    QVERIFY(!QFile::exists(folder_->filePath("Data")));
}

void TestLinksWriting::folderInPlaceOfTheFileIsAnError()
{
    QVERIFY(QDir().mkpath(Path() + "/within"));
    QVERIFY(!WriteSavedLinks(Path(), *imgMap_));
    QVERIFY(QFileInfo(Path() + "/within").isDir());
    QCOMPARE(
        QDir(folder_->filePath("Data")).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
        QStringList("Links.dra"));
}

#ifdef Q_OS_UNIX

void TestLinksWriting::linkToTheFileStaysALink()
{
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

void TestLinksWriting::pipeInPlaceOfTheFileIsAnError()
{
    // Opening a pipe that nobody reads would wait for ever.
    QCOMPARE(mkfifo(QFile::encodeName(Path()).constData(), 0600), 0);
    QVERIFY(!WriteSavedLinks(Path(), *imgMap_));
}

void TestLinksWriting::fullDiskLeavesTheOldFile()
{
    Add("old.htm");
    const QByteArray old = Written();
    Add("new.htm");
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit before = {};
    getrlimit(RLIMIT_FSIZE, &before);
    const rlimit small = { 5000, before.rlim_max };
    setrlimit(RLIMIT_FSIZE, &small);
    const bool isWritten = WriteSavedLinks(Path(), *imgMap_);
    setrlimit(RLIMIT_FSIZE, &before);
    QVERIFY(!isWritten);
    QCOMPARE(Content(Path()), old);
    QCOMPARE(QDir(folder_->filePath("Data")).entryList(QDir::Files | QDir::Hidden), QStringList("Links.dra"));
}

void TestLinksWriting::lockedFolderIsAnError()
{
    Add("a.htm");
    const QString data = folder_->filePath("Data");
    QVERIFY(QFile::setPermissions(folder_->path(), QFile::Permissions::fromInt(0x7777)));
    QVERIFY(QFile::setPermissions(data, QFile::Permissions::fromInt(0x5555)));
    // Nothing is locked for the superuser.
    const pid_t child = fork();
    if (child == 0) {
        const bool isOrdinary = geteuid() != 0 || (setgid(ordinaryUser) == 0 && setuid(ordinaryUser) == 0);
        _exit(isOrdinary && !WriteSavedLinks(Path(), *imgMap_) ? 0 : 1);
    }
    int status = 1;
    QCOMPARE(waitpid(child, &status, 0), child);
    QVERIFY(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    QVERIFY(!QFile::exists(Path()));
    QCOMPARE(QDir(data).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot), QStringList());
}

#endif

QTEST_GUILESS_MAIN(TestLinksWriting)

#include "tst_linkswriting.moc"
