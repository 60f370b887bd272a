// Every call to the system that a save makes fails once: the old file or the new one is there, whole, and the
// user is told when it is the old one.

#include "tests/faults/FailingStorageFixture.h"

#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <sys/mount.h>
#include <sys/resource.h>
#include <unistd.h>

namespace {

/** While it lives, no file can grow beyond `bytes`, as on a disk that is full at that place. */
class FileSizeLimit
{
public:
    explicit FileSizeLimit(qint64 bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit limit = { static_cast<rlim_t>(bytes), before_.rlim_max };
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() { setrlimit(RLIMIT_FSIZE, &before_); }
    Q_DISABLE_COPY_MOVE(FileSizeLimit)

private:
    rlimit before_ = {};
};

/** A disk of its own with `bytes` of room, as long as it lives. Only root can make one. */
class SmallDisk
{
public:
    SmallDisk(const QString& path, qint64 bytes)
        : path_(QFile::encodeName(path))
    {
        const QByteArray size = "size=" + QByteArray::number(bytes);
        QDir().mkdir(path);
        isThere_ = mount("tmpfs", path_.constData(), "tmpfs", 0, size.constData()) == 0;
    }
    ~SmallDisk()
    {
        if (isThere_) {
            umount2(path_.constData(), MNT_DETACH);
        }
    }
    Q_DISABLE_COPY_MOVE(SmallDisk)

    [[nodiscard]] bool IsThere() const { return isThere_; }

private:
    QByteArray path_;
    bool isThere_ = false;
};

} // namespace

class tst_fulldisk : public FailingStorageFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Start(); }
    void cleanup() { Finish(); }

    void diskFullAtAnyPlaceLeavesTheOldFile_data();
    void diskFullAtAnyPlaceLeavesTheOldFile();
    void fullDiskKeepsTheOldLinks();
    void fullDiskKeepsTheOldCopyForThePreview();
    void smallDiskTakesWhatFitsAndTellsOfTheRest_data();
    void smallDiskTakesWhatFitsAndTellsOfTheRest();
};

void tst_fulldisk::diskFullAtAnyPlaceLeavesTheOldFile_data()
{
    QTest::addColumn<bool>("isInPlace");
    QTest::addColumn<qint64>("limit");
    constexpr qint64 size = 100'000;
    for (const bool isInPlace : { false, true }) {
        for (const qint64 limit : { qint64(0), qint64(1), qint64(4095), qint64(4096), qint64(4097),
                                    qint64(65536), size - 1, size, size + 1, size + 2 }) {
            QTest::addRow(
                "%s, room for %lld", isInPlace ? "in place" : "beside", static_cast<long long>(limit))
                << isInPlace << limit;
        }
    }
}

void tst_fulldisk::diskFullAtAnyPlaceLeavesTheOldFile()
{
    QFETCH(const bool, isInPlace);
    QFETCH(const qint64, limit);
    // With the key typed and the line end that a save appends, three bytes more are written.
    const QByteArray old = Lines(100'000, 'o');
    OpenPage(old);
    if (isInPlace) {
        QVERIFY(QFile::exists(Path("pages/page.htm")));
        QCOMPARE(
            link(
                QFile::encodeName(Path("pages/page.htm")).constData(),
                QFile::encodeName(Path("pages/other.htm")).constData()),
            0);
    }
    const QStringList names = Names();
    test_->robot.AnswerBox(QMessageBox::Ok);
    {
        const FileSizeLimit full(limit);
        test_->Press(Qt::Key_S, Qt::ControlModifier);
    }
    QCOMPARE(test_->robot.Boxes().size(), 1);
    QCOMPARE(test_->robot.Boxes().constFirst().text, QString::fromLocal8Bit(std::strerror(EFBIG)));
    QVERIFY(BytesOf(Path("pages/page.htm")) == old);
    QCOMPARE(Names(), names);
    QVERIFY(test_->window.File().IsChanged());
    test_->Press(Qt::Key_S, Qt::ControlModifier);
    QVERIFY(BytesOf(Path("pages/page.htm")) == "x" + old + "\r\n");
}

void tst_fulldisk::fullDiskKeepsTheOldLinks()
{
    test_->Find<QLineEdit>("txtCTags")->setText(QStringLiteral("old.htm"));
    test_->Find<QPushButton>("btnAdd")->click();
    test_->Find<QPushButton>("btnSave")->click();
    const QByteArray old = BytesOf(Path("Data/Links.dra"));
    test_->Find<QListWidget>("ListView1")->setCurrentRow(0);
    test_->Find<QPushButton>("btnDelete")->click();
    for (const qint64 limit : { 0, 1, 275, 276, 277, 13799 }) {
        const FileSizeLimit full(limit);
        test_->Find<QPushButton>("btnSave")->click();
        QVERIFY(BytesOf(Path("Data/Links.dra")) == old);
    }
    QCOMPARE(test_->robot.Boxes().size(), 0);
}

void tst_fulldisk::fullDiskKeepsTheOldCopyForThePreview()
{
    QVERIFY(WriteBytes(Path("Temp/Temp001.html"), "old"));
    test_->Editor()->ReplaceSelection(QString(1000, u'n'));
    test_->robot.AnswerBox(QMessageBox::Ok);
    {
        const FileSizeLimit full(500);
        test_->Press(Qt::Key_D, Qt::ControlModifier);
    }
    QCOMPARE(test_->robot.Boxes().size(), 1);
    QCOMPARE(BytesOf(Path("Temp/Temp001.html")), QByteArray("old"));
    QCOMPARE(test_->desktop.Requests.size(), 1);
    QCOMPARE(test_->Editor()->TextLength(), qsizetype(1000));
}

void tst_fulldisk::smallDiskTakesWhatFitsAndTellsOfTheRest_data()
{
    QTest::addColumn<bool>("isInPlace");
    QTest::newRow("beside") << false;
    QTest::newRow("in place") << true;
}

void tst_fulldisk::smallDiskTakesWhatFitsAndTellsOfTheRest()
{
    QFETCH(const bool, isInPlace);
    const SmallDisk disk(Path("disk"), 1 << 20);
    if (!disk.IsThere()) {
        QSKIP("only root can make a small disk, and not everywhere");
    }
    const QString path = Path("disk/page.htm");
    const QByteArray old = Lines(600'000, 'o');
    QVERIFY(WriteBytes(path, old));
    if (isInPlace) {
        QCOMPARE(
            link(QFile::encodeName(path).constData(), QFile::encodeName(Path("disk/other.htm")).constData()),
            0);
        QVERIFY(WriteBytes(Path("disk/filler"), QByteArray(440'000, 'f')));
    }
    test_->Open(path);
    test_->Type("x");
    if (isInPlace) {
        test_->Editor()->ReplaceSelection(QString::fromLatin1(Lines(100'000, 'n')));
    }
    // There is no room for both files at once.
    test_->robot.AnswerBox(QMessageBox::Ok);
    test_->Press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(test_->robot.Boxes().size(), 1);
    QCOMPARE(test_->robot.Boxes().constFirst().text, QString::fromLocal8Bit(std::strerror(ENOSPC)));
    QVERIFY(BytesOf(path) == old);
    QVERIFY(test_->window.File().IsChanged());
    QCOMPARE(QDir(Path("disk")).entryList(QDir::Files | QDir::Hidden).size(), isInPlace ? 3 : 1);
}

QTEST_MAIN(tst_fulldisk)
#include "tst_fulldisk.moc"
