// Where the links cannot be written, as only some systems can show it.

#include "tests/shared/LinksWritingFixture.h"

#include <csignal>
#include <sys/resource.h>
#include <sys/wait.h>

namespace {

constexpr uid_t ordinaryUser = 65534;

} // namespace

class tst_linksnotwritten : public LinksWritingFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Start(); }
    void cleanup() { Finish(); }

    void pipeInPlaceOfTheFileIsAnError();
    void fullDiskLeavesTheOldFile();
    void lockedFolderIsAnError();
};

void tst_linksnotwritten::pipeInPlaceOfTheFileIsAnError()
{
    // Opening a pipe that nobody reads would wait for ever.
    QCOMPARE(mkfifo(QFile::encodeName(Path()).constData(), 0600), 0);
    QVERIFY(!WriteSavedLinks(Path(), *imgMap_));
}

void tst_linksnotwritten::fullDiskLeavesTheOldFile()
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

void tst_linksnotwritten::lockedFolderIsAnError()
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

QTEST_GUILESS_MAIN(tst_linksnotwritten)
#include "tst_linksnotwritten.moc"
