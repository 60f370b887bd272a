#include "shared/LinksFile.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QtEndian>
#include <memory>
#include <random>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

namespace {

constexpr qsizetype recordSize = 276;
constexpr qsizetype urlSize = 260;
constexpr int recordsRead = 15;

QByteArray Word(int value)
{
    QByteArray bytes(2, '\0');
    qToLittleEndian(static_cast<quint16>(value), bytes.data());
    return bytes;
}

/** A record with `mark` as it lies in the file; what follows the mark means nothing. */
QByteArray RecordWithMark(const QByteArray& url, const QByteArray& mark)
{
    const QByteArray record = url.leftJustified(urlSize, ' ', true) + mark;
    return record.leftJustified(recordSize, '\xEE');
}

QByteArray UsedRecord(const QByteArray& url, int slot)
{
    return RecordWithMark(url, Word(2) + Word(slot));
}

QByteArray FreeRecord(const QByteArray& url = {})
{
    return RecordWithMark(url, Word(0));
}

QByteArray UsedRecords(int count)
{
    QByteArray bytes;
    for (int slot = 1; slot <= count; ++slot) {
        bytes += UsedRecord("link" + QByteArray::number(slot), slot);
    }
    return bytes;
}

QStringList UrlsOf(const SavedLinks& saved)
{
    QStringList urls;
    for (const SavedLink& link : saved.links) {
        urls << link.Url;
    }
    return urls;
}

} // namespace

class tst_linksfile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void missingFileIsCreatedEmpty();
    void missingFileBehindALinkIsCreatedEmpty();
    void missingFolderIsDamage();
    void folderOrPipeInsteadOfTheFileIsDamage();
    void unreadableFileIsDamage();
    void emptyFileHoldsNoLinks();
    void readingChangesNothing();

    void linksAreReadInTheirOrder();
    void fifteenRecordsAreReadAtMost_data();
    void fifteenRecordsAreReadAtMost();
    void damageBehindTheRecordsReadIsNotSeen();
    void readingStopsAtTheFirstFreeRecord_data();
    void readingStopsAtTheFirstFreeRecord();
    void markWithTextMakesTheRecordUsed();
    void markIsTheSlotNumberOfItsTime_data();
    void markIsTheSlotNumberOfItsTime();
    void recordOfUnknownKindIsPassedOverAsDamage_data();
    void recordOfUnknownKindIsPassedOverAsDamage();

    void fileCutInARecordGivesWhatIsWhole_data();
    void fileCutInARecordGivesWhatIsWhole();
    void blanksAroundALinkAreTakenOff_data();
    void blanksAroundALinkAreTakenOff();
    void linkMayFillItsField();
    void linkIsReadInTheCodePage();
    void randomBytesNeverCrash();
    void damagedFilesNeverCrash();

private:
    [[nodiscard]] QString Path() const { return folder_->filePath("Data/Links.dra"); }
    void Write(const QByteArray& bytes) const;
    [[nodiscard]] SavedLinks Read(const QByteArray& bytes) const;

    std::unique_ptr<QTemporaryDir> folder_;
};

void tst_linksfile::init()
{
    folder_ = std::make_unique<QTemporaryDir>();
    QVERIFY(QDir(folder_->path()).mkdir("Data"));
}

void tst_linksfile::Write(const QByteArray& bytes) const
{
    QFile file(Path());
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
}

SavedLinks tst_linksfile::Read(const QByteArray& bytes) const
{
    Write(bytes);
    return ReadSavedLinks(Path());
}

void tst_linksfile::missingFileIsCreatedEmpty()
{
    const SavedLinks saved = ReadSavedLinks(Path());
    QVERIFY(saved.links.isEmpty());
    QVERIFY(!saved.isDamaged);
    QVERIFY(QFile::exists(Path()));
    QCOMPARE(QFile(Path()).size(), 0);
}

void tst_linksfile::missingFileBehindALinkIsCreatedEmpty()
{
#ifdef Q_OS_WIN
    QSKIP("What Qt makes here for a link is a file that only the desktop follows.");
#endif
    const QString target = folder_->filePath("elsewhere");
    QVERIFY(QFile::link(target, Path()));
    QVERIFY(!ReadSavedLinks(Path()).isDamaged);
    QVERIFY(QFile::exists(target));
}

void tst_linksfile::missingFolderIsDamage()
{
    QVERIFY(QDir(folder_->path()).rmdir("Data"));
    const SavedLinks saved = ReadSavedLinks(Path());
    QVERIFY(saved.links.isEmpty());
    QVERIFY(saved.isDamaged);
    QVERIFY(!QFile::exists(folder_->filePath("Data")));

    QFile data(folder_->filePath("Data"));
    QVERIFY(data.open(QIODevice::WriteOnly));
    QVERIFY(ReadSavedLinks(Path()).isDamaged);
}

void tst_linksfile::folderOrPipeInsteadOfTheFileIsDamage()
{
    QVERIFY(QDir(folder_->path()).mkpath("Data/Links.dra"));
    QVERIFY(ReadSavedLinks(Path()).isDamaged);
#ifdef Q_OS_UNIX
    // Opening a pipe that nobody writes to would wait for ever.
    QVERIFY(QDir().rmdir(Path()));
    QCOMPARE(mkfifo(QFile::encodeName(Path()).constData(), 0600), 0);
    QVERIFY(ReadSavedLinks(Path()).isDamaged);
#endif
}

void tst_linksfile::unreadableFileIsDamage()
{
    const QString memory = "/proc/self/mem";
#ifdef Q_OS_UNIX
    const bool isAtHand = QFile::exists(memory);
#else
    const bool isAtHand = false; // Wine shows it, but Qt makes no links that a program follows.
#endif
    if (!isAtHand) {
        QSKIP("This system has no file at hand that opens but cannot be read.");
    }
    QVERIFY(QFile::link(memory, Path()));
    const SavedLinks saved = ReadSavedLinks(Path());
    QVERIFY(saved.isDamaged);
    QVERIFY(saved.links.isEmpty());
}

void tst_linksfile::emptyFileHoldsNoLinks()
{
    const SavedLinks saved = Read({});
    QVERIFY(saved.links.isEmpty());
    QVERIFY(!saved.isDamaged);
}

void tst_linksfile::readingChangesNothing()
{
    const QByteArray bytes = UsedRecords(3) + FreeRecord() + "rest";
    (void)Read(bytes);
    QFile file(Path());
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), bytes);
}

void tst_linksfile::linksAreReadInTheirOrder()
{
    const SavedLinks saved = Read(UsedRecord("b.htm", 1) + UsedRecord("a.htm", 2) + UsedRecord("b.htm", 3));
    QVERIFY(!saved.isDamaged);
    QCOMPARE(UrlsOf(saved), QStringList({ "b.htm", "a.htm", "b.htm" }));
}

void tst_linksfile::fifteenRecordsAreReadAtMost_data()
{
    QTest::addColumn<int>("count");
    for (const int count : { 1, 14, 15, 16, 20, 50 }) {
        QTest::newRow(qPrintable(QString::number(count))) << count;
    }
}

void tst_linksfile::fifteenRecordsAreReadAtMost()
{
    QFETCH(const int, count);
    const SavedLinks saved = Read(UsedRecords(count));
    QVERIFY(!saved.isDamaged);
    QCOMPARE(saved.links.size(), std::min(count, recordsRead));
    QCOMPARE(saved.links.constLast().Url, QString("link%1").arg(std::min(count, recordsRead)));
}

void tst_linksfile::damageBehindTheRecordsReadIsNotSeen()
{
    QVERIFY(!Read(UsedRecords(recordsRead) + RecordWithMark("x", Word(99))).isDamaged);
    QVERIFY(!Read(UsedRecords(recordsRead) + "cut").isDamaged);
    QVERIFY(!Read(UsedRecords(2) + FreeRecord() + RecordWithMark("x", Word(99))).isDamaged);
}

void tst_linksfile::readingStopsAtTheFirstFreeRecord_data()
{
    QTest::addColumn<QByteArray>("record");
    QTest::newRow("no mark") << FreeRecord();
    QTest::newRow("no mark but a link") << FreeRecord("old.htm");
    QTest::newRow("empty text for a mark") << RecordWithMark("old.htm", Word(8) + Word(0));
    QTest::newRow("nothing but zeros") << QByteArray(recordSize, '\0');
}

void tst_linksfile::readingStopsAtTheFirstFreeRecord()
{
    QFETCH(const QByteArray, record);
    const SavedLinks saved = Read(UsedRecords(2) + record + UsedRecords(4));
    QVERIFY(!saved.isDamaged);
    QCOMPARE(UrlsOf(saved), QStringList({ "link1", "link2" }));
    QVERIFY(Read(record + UsedRecords(4)).links.isEmpty());
}

void tst_linksfile::markWithTextMakesTheRecordUsed()
{
    const SavedLinks saved =
        Read(RecordWithMark("a.htm", Word(8) + Word(12) + "twelve bytes") + UsedRecords(1));
    QVERIFY(!saved.isDamaged);
    QCOMPARE(UrlsOf(saved), QStringList({ "a.htm", "link1" }));
}

void tst_linksfile::markIsTheSlotNumberOfItsTime_data()
{
    QTest::addColumn<int>("mark");
    for (const int mark : { 1, 0, 50, 258, 32767, -1, -32768 }) {
        QTest::newRow(qPrintable(QString::number(mark))) << mark;
    }
}

void tst_linksfile::markIsTheSlotNumberOfItsTime()
{
    QFETCH(const int, mark);
    const SavedLinks saved = Read(UsedRecord("a.htm", mark));
    QCOMPARE(saved.links.size(), 1);
    QCOMPARE(int(saved.links.constFirst().Mark), mark);
}

void tst_linksfile::recordOfUnknownKindIsPassedOverAsDamage_data()
{
    QTest::addColumn<QByteArray>("record");
    QTest::newRow("unknown kind of mark") << RecordWithMark("x", Word(3) + Word(0) + Word(0));
    QTest::newRow("kind in the other byte order") << RecordWithMark("x", Word(0x0200) + Word(1));
    QTest::newRow("text of one byte too many") << RecordWithMark("x", Word(8) + Word(13));
    QTest::newRow("text as long as can be") << RecordWithMark("x", Word(8) + Word(0xFFFF));
}

void tst_linksfile::recordOfUnknownKindIsPassedOverAsDamage()
{
    QFETCH(const QByteArray, record);
    const SavedLinks saved = Read(UsedRecord("a.htm", 1) + record + UsedRecord("b.htm", 3));
    QVERIFY(saved.isDamaged);
    QCOMPARE(UrlsOf(saved), QStringList({ "a.htm", "b.htm" }));
}

void tst_linksfile::fileCutInARecordGivesWhatIsWhole_data()
{
    QTest::addColumn<QByteArray>("rest");
    QTest::addColumn<bool>("isDamaged");
    QTest::addColumn<int>("count");
    const QByteArray used = UsedRecord("last.htm", 2);
    QTest::newRow("in the link") << used.first(100) << true << 1;
    QTest::newRow("behind the first byte") << used.first(1) << true << 1;
    QTest::newRow("before the mark") << used.first(urlSize) << true << 1;
    QTest::newRow("in the kind of mark") << used.first(urlSize + 1) << true << 1;
    QTest::newRow("before the slot number") << used.first(urlSize + 2) << true << 1;
    QTest::newRow("in the slot number") << used.first(urlSize + 3) << true << 1;
    QTest::newRow("behind the slot number") << used.first(urlSize + 4) << false << 2;
    QTest::newRow("one byte short") << used.chopped(1) << false << 2;
    QTest::newRow("behind the kind of a free record") << FreeRecord().first(urlSize + 2) << false << 1;
    const QByteArray text = RecordWithMark("x", Word(8) + Word(5) + "hello");
    QTest::newRow("in a text's length") << text.first(urlSize + 3) << true << 1;
    QTest::newRow("in a text") << text.first(urlSize + 8) << true << 1;
}

void tst_linksfile::fileCutInARecordGivesWhatIsWhole()
{
    QFETCH(const QByteArray, rest);
    QFETCH(const bool, isDamaged);
    QFETCH(const int, count);
    const SavedLinks saved = Read(UsedRecord("first.htm", 1) + rest);
    QCOMPARE(saved.isDamaged, isDamaged);
    QCOMPARE(saved.links.size(), count);
    QCOMPARE(saved.links.constFirst().Url, QString("first.htm"));
}

void tst_linksfile::blanksAroundALinkAreTakenOff_data()
{
    QTest::addColumn<QByteArray>("url");
    QTest::addColumn<QString>("read");
    QTest::newRow("blanks in front") << QByteArray("   a.htm") << "a.htm";
    QTest::newRow("blanks within stay") << QByteArray(" a  b.htm ") << "a  b.htm";
    QTest::newRow("other white space stays") << QByteArray("\ta.htm\t") << "\ta.htm\t";
    QTest::newRow("fixed blanks stay") << QByteArray("\xA0"
                                                     "a.htm\xA0")
                                       << QString("\u00A0a.htm\u00A0");
    QTest::newRow("nothing but blanks") << QByteArray("") << "";
}

void tst_linksfile::blanksAroundALinkAreTakenOff()
{
    QFETCH(const QByteArray, url);
    QFETCH(const QString, read);
    const SavedLinks saved = Read(UsedRecord(url, 1));
    QCOMPARE(UrlsOf(saved), QStringList(read));
}

void tst_linksfile::linkMayFillItsField()
{
    const QByteArray url(urlSize, 'u');
    QCOMPARE(UrlsOf(Read(UsedRecord(url, 1))), QStringList(QString::fromLatin1(url)));
}

void tst_linksfile::linkIsReadInTheCodePage()
{
    QCOMPARE(UrlsOf(Read(UsedRecord("caf\xE9_\x80.htm", 1))), QStringList(QString("caf\u00E9_\u20AC.htm")));
}

void tst_linksfile::randomBytesNeverCrash()
{
    std::mt19937 random(20010911);
    for (int round = 0; round < 2000; ++round) {
        QByteArray bytes(qsizetype(random() % 5000), '\0');
        for (char& byte : bytes) {
            byte = static_cast<char>(random() & 0xFF);
        }
        const SavedLinks saved = Read(bytes);
        QVERIFY(saved.links.size() <= recordsRead);
    }
}

void tst_linksfile::damagedFilesNeverCrash()
{
    std::mt19937 random(19991231);
    for (int round = 0; round < 2000; ++round) {
        QByteArray bytes = UsedRecords(recordsRead + 2);
        for (int i = 0; i < 20; ++i) {
            const qsizetype record = qsizetype(random() % recordsRead) * recordSize;
            bytes[record + urlSize + qsizetype(random() % 4)] = static_cast<char>(random() % 12);
        }
        bytes.truncate(qsizetype(random() % quint32(bytes.size())));
        QVERIFY(Read(bytes).links.size() <= recordsRead);
    }
}

QTEST_GUILESS_MAIN(tst_linksfile)

#include "tst_linksfile.moc"
