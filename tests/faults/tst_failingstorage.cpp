// Every call to the system that a save makes fails once: the old file or the new one is there, whole, and the
// user is told when it is the old one.

#include "tests/app/MainWindowFixture.h"
#include "tests/faults/FailingSystem.h"

#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <memory>
#include <sys/mount.h>
#include <sys/resource.h>
#include <unistd.h>

namespace {

constexpr std::array systemErrors = { ENOSPC, EIO, EACCES, EDQUOT };

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

QByteArray Lines(qsizetype bytes, char letter)
{
    const QByteArray line = QByteArray(62, letter) + "\r\n";
    return line.repeated(bytes / line.size() + 1).first(bytes);
}

} // namespace

class tst_failingstorage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void everyCallOfASaveMayFail_data();
    void everyCallOfASaveMayFail();
    void diskThatTellsLateThatItIsFullKeepsTheOldFile_data();
    void diskThatTellsLateThatItIsFullKeepsTheOldFile();
    void diskThatCannotBeWaitedForIsNoError();
    void everyCallOfSavingTheLinksMayFail();
    void everyCallOfAPreviewMayFail();
    void everyCallOfOpeningMayFail();
    void diskFullAtAnyPlaceLeavesTheOldFile_data();
    void diskFullAtAnyPlaceLeavesTheOldFile();
    void fullDiskKeepsTheOldLinks();
    void fullDiskKeepsTheOldCopyForThePreview();
    void smallDiskTakesWhatFitsAndTellsOfTheRest_data();
    void smallDiskTakesWhatFitsAndTellsOfTheRest();
    void slowStorageIsWaitedFor();

private:
    [[nodiscard]] QString Path(const char* name) const
    {
        return test_->folder.Path(QString::fromLatin1(name));
    }
    [[nodiscard]] QStringList Names() const
    {
        return QDir(Path("pages")).entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Name);
    }
    void OpenPage(const QByteArray& bytes);

    std::unique_ptr<MainWindowFixture> test_;
};

void tst_failingstorage::init()
{
    test_ = std::make_unique<MainWindowFixture>();
    test_->robot.Hurry();
    QVERIFY(QDir(test_->folder.imgMap.ProgramFolder).mkdir(QStringLiteral("pages")));
    QVERIFY(test_->Start());
}

void tst_failingstorage::cleanup()
{
    FailingSystem::Stop();
    QCOMPARE(test_->robot.Problems(), QString());
    QVERIFY(QApplication::overrideCursor() == nullptr);
    test_.reset();
}

void tst_failingstorage::OpenPage(const QByteArray& bytes)
{
    QVERIFY(WriteBytes(Path("pages/page.htm"), bytes));
    test_->Open(Path("pages/page.htm"));
    test_->Type("x");
    QVERIFY(test_->window.File().IsChanged());
}

void tst_failingstorage::everyCallOfASaveMayFail_data()
{
    QTest::addColumn<bool>("isInPlace");
    QTest::addColumn<bool>("isLasting");
    QTest::addColumn<int>("error");
    for (const int error : systemErrors) {
        QTest::addRow("beside, %s, once", std::strerror(error)) << false << false << error;
        QTest::addRow("beside, %s, from then on", std::strerror(error)) << false << true << error;
    }
    // What cannot be replaced is overwritten, and the old text put back: that takes a disk that works again.
    QTest::addRow("in place, once") << true << false << ENOSPC;
}

void tst_failingstorage::everyCallOfASaveMayFail()
{
    QFETCH(const bool, isInPlace);
    QFETCH(const bool, isLasting);
    QFETCH(const int, error);
    const QByteArray old = Lines(20'000, 'o');
    OpenPage(old);
    bool isFailing = true;
    for (int call = 0; isFailing; ++call) {
        QVERIFY(WriteBytes(Path("pages/page.htm"), old));
        if (isInPlace && call == 0) {
            QVERIFY(
                link(
                    QFile::encodeName(Path("pages/page.htm")).constData(),
                    QFile::encodeName(Path("pages/other.htm")).constData()) == 0);
        }
        const QStringList names = Names();
        // Always changed: a key more, and the same one away.
        test_->Type("y");
        test_->Press(Qt::Key_Backspace);
        QVERIFY(test_->window.File().IsChanged());
        bool isTold = false;
        test_->robot.Act([&isTold](QDialog& dialog) {
            isTold = true;
            FailingSystem::Stop();
            dialog.accept();
        });
        FailingSystem::Watch(Path("pages"));
        FailingSystem::Fail(call, error, isLasting);
        test_->window.Documents().SaveDocument();
        isFailing = isTold || FailingSystem::Stop() > call;
        if (!isTold) {
            test_->robot.TakeBack();
        }
        const QByteArray now = BytesOf(Path("pages/page.htm"));
        const QByteArray wanted = isTold ? old : "x" + old + "\r\n";
        QVERIFY2(now == wanted, qPrintable(QStringLiteral("call %1, told %2").arg(call).arg(isTold)));
        QCOMPARE(test_->window.File().IsChanged(), isTold);
        QCOMPARE(test_->Editor()->TextLength(), old.size() + 1);
        QCOMPARE(Names(), names);
        QVERIFY2(call < 100, "a save takes no hundred calls");
    }
}

void tst_failingstorage::diskThatTellsLateThatItIsFullKeepsTheOldFile_data()
{
    QTest::addColumn<int>("error");
    for (const int error : { ENOSPC, EDQUOT, EIO }) {
        QTest::newRow(std::strerror(error)) << error;
    }
}

void tst_failingstorage::diskThatTellsLateThatItIsFullKeepsTheOldFile()
{
    QFETCH(const int, error);
    OpenPage("old");
    test_->robot.AnswerBox(QMessageBox::Ok);
    FailingSystem::Watch(Path("pages"));
    FailingSystem::FailSync(error);
    test_->Press(Qt::Key_S, Qt::ControlModifier);
    FailingSystem::Stop();
    QCOMPARE(test_->robot.Boxes().size(), 1);
    QCOMPARE(test_->robot.Boxes().constFirst().text, QString::fromLocal8Bit(std::strerror(error)));
    QCOMPARE(BytesOf(Path("pages/page.htm")), QByteArray("old"));
    QCOMPARE(Names(), QStringList(QStringLiteral("page.htm")));
    QVERIFY(test_->window.File().IsChanged());
}

void tst_failingstorage::diskThatCannotBeWaitedForIsNoError()
{
    OpenPage("old");
    FailingSystem::Watch(Path("pages"));
    FailingSystem::FailSync(EINVAL);
    test_->Press(Qt::Key_S, Qt::ControlModifier);
    FailingSystem::Stop();
    QCOMPARE(test_->robot.Boxes().size(), 0);
    QCOMPARE(BytesOf(Path("pages/page.htm")), QByteArray("xold\r\n"));
}

void tst_failingstorage::everyCallOfSavingTheLinksMayFail()
{
    const QByteArray old = [this] {
        test_->Find<QLineEdit>("txtCTags")->setText(QStringLiteral("old.htm"));
        test_->Find<QPushButton>("btnAdd")->click();
        test_->Find<QPushButton>("btnSave")->click();
        return BytesOf(Path("Data/Links.dra"));
    }();
    QVERIFY(old.startsWith("old.htm"));
    test_->Find<QLineEdit>("txtCTags")->setText(QStringLiteral("new.htm"));
    test_->Find<QPushButton>("btnAdd")->click();
    bool isFailing = true;
    for (int call = 0; isFailing; ++call) {
        QVERIFY(WriteBytes(Path("Data/Links.dra"), old));
        FailingSystem::Watch(Path("Data"));
        FailingSystem::Fail(call, ENOSPC, true);
        test_->Find<QPushButton>("btnSave")->click();
        isFailing = FailingSystem::Stop() > call;
        const QByteArray now = BytesOf(Path("Data/Links.dra"));
        QVERIFY2(
            now == old || (now.size() == old.size() && now.mid(276).startsWith("new.htm")),
            qPrintable(QString::number(call)));
        QCOMPARE(QDir(Path("Data")).entryList(QDir::Files | QDir::Hidden).size(), 1);
        QCOMPARE(test_->Find<QListWidget>("ListView1")->count(), 2);
    }
    QVERIFY(BytesOf(Path("Data/Links.dra")).mid(276).startsWith("new.htm"));
}

void tst_failingstorage::everyCallOfAPreviewMayFail()
{
    test_->Editor()->ReplaceSelection(QStringLiteral("new"));
    bool isFailing = true;
    for (int call = 0; isFailing; ++call) {
        QVERIFY(WriteBytes(Path("Temp/Temp001.html"), "old"));
        bool isTold = false;
        test_->robot.Act([&isTold](QDialog& dialog) {
            isTold = true;
            FailingSystem::Stop();
            dialog.accept();
        });
        FailingSystem::Watch(Path("Temp"));
        FailingSystem::Fail(call, ENOSPC, true);
        test_->window.Outside().PreviewDocument();
        isFailing = isTold || FailingSystem::Stop() > call;
        if (!isTold) {
            test_->robot.TakeBack();
        }
        QCOMPARE(BytesOf(Path("Temp/Temp001.html")), isTold ? QByteArray("old") : QByteArray("new\r\n"));
        QCOMPARE(QDir(Path("Temp")).entryList(QDir::Files | QDir::Hidden).size(), 1);
        QCOMPARE(test_->desktop.Requests.size(), call + 1);
    }
}

void tst_failingstorage::everyCallOfOpeningMayFail()
{
    const QByteArray bytes = Lines(200'000, 'n');
    QVERIFY(WriteBytes(Path("pages/page.htm"), bytes));
    bool isFailing = true;
    for (int call = 0; isFailing; ++call) {
        test_->Press(Qt::Key_N, Qt::ControlModifier);
        bool isTold = false;
        test_->robot.ChooseFile(Path("pages/page.htm"));
        test_->robot.Act([&isTold](QDialog& dialog) {
            isTold = true;
            FailingSystem::Stop();
            dialog.accept();
        });
        FailingSystem::Watch(Path("pages"));
        FailingSystem::Fail(call, EIO, true);
        test_->window.Documents().OpenDocument();
        isFailing = isTold || FailingSystem::Stop() > call;
        if (!isTold) {
            test_->robot.TakeBack();
        }
        // Closing may fail after everything has been read.
        QVERIFY(test_->Editor()->TextLength() == (isTold ? 0 : bytes.size()));
        QCOMPARE(test_->DocumentName(), isTold ? QString::fromLatin1(newDocument) : Path("pages/page.htm"));
    }
}

void tst_failingstorage::diskFullAtAnyPlaceLeavesTheOldFile_data()
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

void tst_failingstorage::diskFullAtAnyPlaceLeavesTheOldFile()
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

void tst_failingstorage::fullDiskKeepsTheOldLinks()
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

void tst_failingstorage::fullDiskKeepsTheOldCopyForThePreview()
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

void tst_failingstorage::smallDiskTakesWhatFitsAndTellsOfTheRest_data()
{
    QTest::addColumn<bool>("isInPlace");
    QTest::newRow("beside") << false;
    QTest::newRow("in place") << true;
}

void tst_failingstorage::smallDiskTakesWhatFitsAndTellsOfTheRest()
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

void tst_failingstorage::slowStorageIsWaitedFor()
{
    constexpr int milliseconds = 5;
    constexpr qint64 atOnce = 4096;
    const QByteArray old = Lines(100'000, 'o');
    QVERIFY(WriteBytes(Path("pages/page.htm"), old));
    FailingSystem::Watch(Path("pages"));
    FailingSystem::SlowDown(milliseconds, atOnce);
    test_->Open(Path("pages/page.htm"));
    QCOMPARE(test_->Editor()->TextLength(), old.size());
    test_->Type("x");
    test_->Press(Qt::Key_S, Qt::ControlModifier);
    const int calls = FailingSystem::Stop();
    QVERIFY2(calls > 2 * old.size() / atOnce, qPrintable(QString::number(calls)));
    QVERIFY(BytesOf(Path("pages/page.htm")) == "x" + old + "\r\n");
    QCOMPARE(test_->robot.Boxes().size(), 0);
}

QTEST_MAIN(tst_failingstorage)
#include "tst_failingstorage.moc"
