// Writing that fails, or that must not go the usual way.

#include "tests/shared/FileWritingFixture.h"

#ifdef Q_OS_UNIX
#include <cerrno>
#include <csignal>
#include <functional>
#include <sys/resource.h>
#include <sys/wait.h>
#endif

namespace {

#ifdef Q_OS_UNIX

/** While it lives, no file can grow beyond `bytes`. */
class FileSizeLimit
{
public:
    explicit FileSizeLimit(rlim_t bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit limit = { bytes, before_.rlim_max };
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() { setrlimit(RLIMIT_FSIZE, &before_); }
    Q_DISABLE_COPY_MOVE(FileSizeLimit)

private:
    rlimit before_ = {};
};

constexpr uid_t ordinaryUser = 65534;

bool IsRoot()
{
    return geteuid() == 0;
}

/** What `act` returns when a user does it who is not root, as a process of its own. */
bool AsOrdinaryUser(const std::function<bool()>& act)
{
    const pid_t child = fork();
    if (child == 0) {
        const bool isOrdinary = !IsRoot() || (setgid(ordinaryUser) == 0 && setuid(ordinaryUser) == 0);
        _exit(isOrdinary && act() ? 0 : 1);
    }
    int status = 1;
    return child > 0 && waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

#endif

} // namespace

class tst_writingfails : public FileWritingFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Start(); }
    void cleanup() { Finish(); }

    void failedWriteLeavesTheOldText_data();
    void failedWriteLeavesTheOldText();
    void failedWriteOfANewFileLeavesNothing_data();
    void failedWriteOfANewFileLeavesNothing();

    void fileInALockedFolderIsWrittenInPlace();
    void failedWriteInALockedFolderLeavesTheOldText();
    void newFileInALockedFolderIsAnError();
    void lockedFileIsAnError();
    void fileOfSomebodyElseStaysTheirs_data();
    void fileOfSomebodyElseStaysTheirs();
};

void tst_writingfails::failedWriteLeavesTheOldText_data()
{
    QTest::addColumn<int>("oldSize");
    QTest::addColumn<int>("newSize");
    QTest::addColumn<int>("limit");
    QTest::addColumn<bool>("hasOtherName");
    for (const bool hasOtherName : { false, true }) {
        const char* const way = hasOtherName ? "in place" : "beside";
        QTest::addRow("longer text, %s", way) << 100 << 10'000 << 5000 << hasOtherName;
        QTest::addRow("shorter text, %s", way) << 10'000 << 9000 << 5000 << hasOtherName;
        QTest::addRow("text of the same length, %s", way) << 10'000 << 10'000 << 5000 << hasOtherName;
        QTest::addRow("no room at all, %s", way) << 100 << 10 << 0 << hasOtherName;
        QTest::addRow("one byte too many, %s", way) << 100 << 101 << 100 << hasOtherName;
        QTest::addRow("old file empty, %s", way) << 0 << 10'000 << 5000 << hasOtherName;
        QTest::addRow("text of megabytes, %s", way) << 3'000'000 << 4'000'000 << 2'000'001 << hasOtherName;
    }
}

void tst_writingfails::failedWriteLeavesTheOldText()
{
    QFETCH(const int, oldSize);
    QFETCH(const int, newSize);
    QFETCH(const int, limit);
    QFETCH(const bool, hasOtherName);
    const QByteArray old(oldSize, 'o');
    QVERIFY(Create(Path(), old));
    if (hasOtherName) {
        QCOMPARE(link(Native(Path()).constData(), Native(Path("other.htm")).constData()), 0);
    }
    const QStringList names = Names();
    QString error;
    {
        const FileSizeLimit guard(static_cast<rlim_t>(limit));
        error = Write(Path(), QByteArray(newSize, 'n'));
    }
    QVERIFY(Content(Path()) == old);
    QCOMPARE(Names(), names);
    QCOMPARE(error, ErrorText(EFBIG));
}

void tst_writingfails::failedWriteOfANewFileLeavesNothing_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("beside") << "page.htm";
    QTest::newRow("in place, the name being too long") << QString(255, 'n');
}

void tst_writingfails::failedWriteOfANewFileLeavesNothing()
{
    QFETCH(const QString, name);
    QString error;
    {
        const FileSizeLimit guard(5000);
        error = Write(Path(name), QByteArray(100'000, 'n'));
    }
    QCOMPARE(Names(), QStringList());
    QCOMPARE(error, ErrorText(EFBIG));
}

void tst_writingfails::fileInALockedFolderIsWrittenInPlace()
{
    QVERIFY(Create(Path()));
    QCOMPARE(chmod(Native(Path()).constData(), 0666), 0);
    QCOMPARE(chmod(Native(folder_->path()).constData(), 0555), 0);
    QVERIFY(AsOrdinaryUser([this] { return Write(Path(), newText).isEmpty(); }));
    QCOMPARE(Content(Path()), newText);
    QVERIFY(AsOrdinaryUser([this] { return Write(Path(), "short").isEmpty(); }));
    QCOMPARE(Content(Path()), QByteArray("short"));
    QCOMPARE(ModeOf(Path()), 0666);
}

void tst_writingfails::failedWriteInALockedFolderLeavesTheOldText()
{
    QVERIFY(Create(Path()));
    QCOMPARE(chmod(Native(Path()).constData(), 0666), 0);
    QCOMPARE(chmod(Native(folder_->path()).constData(), 0555), 0);
    QVERIFY(AsOrdinaryUser([this] {
        const FileSizeLimit guard(20);
        return !Write(Path(), newText).isEmpty();
    }));
    QCOMPARE(Content(Path()), oldText);
}

void tst_writingfails::newFileInALockedFolderIsAnError()
{
    QCOMPARE(chmod(Native(folder_->path()).constData(), 0555), 0);
    QVERIFY(AsOrdinaryUser([this] { return !Write(Path(), newText).isEmpty(); }));
    QCOMPARE(Names(), QStringList());
}

void tst_writingfails::lockedFileIsAnError()
{
    QVERIFY(Create(Path()));
    QCOMPARE(chmod(Native(Path()).constData(), 0444), 0);
    QVERIFY(AsOrdinaryUser([this] { return !Write(Path(), newText).isEmpty(); }));
    QCOMPARE(Content(Path()), oldText);
    QCOMPARE(ModeOf(Path()), 0444);
    QCOMPARE(Names(), QStringList("page.htm"));
}

void tst_writingfails::fileOfSomebodyElseStaysTheirs_data()
{
    QTest::addColumn<bool>("isWriterRoot");
    QTest::newRow("root writes") << true;
    QTest::newRow("an ordinary user writes") << false;
}

void tst_writingfails::fileOfSomebodyElseStaysTheirs()
{
    QFETCH(const bool, isWriterRoot);
    if (!IsRoot()) {
        QSKIP("Only root can give a file away.");
    }
    QVERIFY(Create(Path()));
    QCOMPARE(chmod(Native(Path()).constData(), 0666), 0);
    const uid_t owner = isWriterRoot ? ordinaryUser : 1;
    QCOMPARE(chown(Native(Path()).constData(), owner, gid_t(owner)), 0);
    const auto write = [this] { return Write(Path(), newText).isEmpty(); };
    QVERIFY(isWriterRoot ? write() : AsOrdinaryUser(write));
    QCOMPARE(Content(Path()), newText);
    QCOMPARE(StatusOf(Path()).st_uid, owner);
    QCOMPARE(StatusOf(Path()).st_gid, gid_t(owner));
    QCOMPARE(Names(), QStringList("page.htm"));
}

QTEST_GUILESS_MAIN(tst_writingfails)
#include "tst_writingfails.moc"
