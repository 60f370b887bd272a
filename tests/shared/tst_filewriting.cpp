#include "shared/FileWriting.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>
#include <algorithm>
#include <array>
#include <memory>

#ifdef Q_OS_UNIX
#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <functional>
#include <poll.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#endif

namespace {

const QByteArray oldText("the old text");
const QByteArray newText("another text, and a longer one");

QByteArray Content(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<cannot be read>");
}

/** Writes the file and returns the error's text, or an empty one when all went well. */
QString Write(const QString& path, const QByteArray& bytes)
{
    const std::optional<QString> error = WriteWholeFile(path, bytes);
    return error && error->isEmpty() ? QString("<error without a text>") : error.value_or(QString());
}

#ifdef Q_OS_UNIX

QByteArray Native(const QString& path)
{
    return QFile::encodeName(path);
}

struct stat StatusOf(const QString& path)
{
    struct stat status = {};
    (void)lstat(Native(path).constData(), &status);
    return status;
}

int ModeOf(const QString& path)
{
    return static_cast<int>(StatusOf(path).st_mode & 07777U);
}

bool IsLinkTo(const QString& path, const QByteArray& target)
{
    QByteArray buffer(4096, '\0');
    const ssize_t length = readlink(Native(path).constData(), buffer.data(), std::size_t(buffer.size()));
    return length >= 0 && buffer.first(length) == target;
}

bool MakeLink(const QByteArray& target, const QString& path)
{
    return symlink(target.constData(), Native(path).constData()) == 0;
}

/** The system's own words for an error, as the user is to read them. */
QString ErrorText(int number)
{
    return QString::fromLocal8Bit(std::strerror(number));
}

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

class TestFileWriting : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void newFileHoldsTheBytes_data();
    void newFileHoldsTheBytes();
    void oldFileIsReplacedWhole_data();
    void oldFileIsReplacedWhole();
    void relativePathIsWritten();
    void missingFolderIsAnErrorThatLeavesNothing();
    void folderIsNotWritten();

#ifdef Q_OS_UNIX
    void newFileGetsTheUsersPermissions();
    void permissionsSurvive_data();
    void permissionsSurvive();
    void namesUpToTheLongestAreWritten_data();
    void namesUpToTheLongestAreWritten();

    void linkStaysALink_data();
    void linkStaysALink();
    void linkThroughALinkedFolderIsFollowed();
    void chainOfLinksIsFollowed();
    void danglingLinkGetsItsTarget();
    void linkInACircleIsAnError();
    void linkToAFolderIsAnError();
    void otherNamesOfTheFileSeeTheNewText();

    void fullDeviceIsAnErrorAndStaysADevice();
    void pipeIsWrittenTo_data();
    void pipeIsWrittenTo();
    void pipeWithoutANameIsWrittenTo();
    void pipeWithoutAReaderIsAnError();
    void pipeThatIsNotEmptiedIsAnError();

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
#endif

private:
    [[nodiscard]] QString Path(const QString& name = "page.htm") const
    {
        return folder_->filePath(name);
    }
    [[nodiscard]] QStringList Names() const;
    static bool Create(const QString& path, const QByteArray& bytes = oldText);

    std::unique_ptr<QTemporaryDir> folder_;
};

void TestFileWriting::init()
{
    folder_ = std::make_unique<QTemporaryDir>();
    QVERIFY(folder_->isValid());
    QVERIFY(QFile::setPermissions(
        folder_->path(), QFile::Permissions::fromInt(0x7777))); // another user works here too
}

void TestFileWriting::cleanup()
{
    QFile::setPermissions(folder_->path(), QFile::Permissions::fromInt(0x7777));
}

/** Everything that lies in the folder, sorted. */
QStringList TestFileWriting::Names() const
{
    return QDir(folder_->path())
        .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
}

bool TestFileWriting::Create(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush();
}

void TestFileWriting::newFileHoldsTheBytes_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QByteArray all;
    for (int byte = 0; byte < 256; ++byte) {
        all += static_cast<char>(byte);
    }
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("every byte there is") << all;
    QTest::newRow("line ends") << QByteArray("a\r\nb\nc\rd\r\n");
    QTest::newRow("some megabytes") << all.repeated(20'000);
}

void TestFileWriting::newFileHoldsTheBytes()
{
    QFETCH(const QByteArray, bytes);
    QCOMPARE(Write(Path(), bytes), QString());
    QCOMPARE(Content(Path()), bytes);
    QCOMPARE(Names(), QStringList("page.htm"));
}

void TestFileWriting::oldFileIsReplacedWhole_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("by more") << newText;
    QTest::newRow("by less") << QByteArray("x");
    QTest::newRow("by nothing") << QByteArray();
}

void TestFileWriting::oldFileIsReplacedWhole()
{
    QFETCH(const QByteArray, bytes);
    QVERIFY(Create(Path()));
    QCOMPARE(Write(Path(), bytes), QString());
    QCOMPARE(Content(Path()), bytes);
    QCOMPARE(Names(), QStringList("page.htm"));
}

void TestFileWriting::relativePathIsWritten()
{
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(folder_->path()));
    const QString error = Write("page.htm", newText);
    QDir::setCurrent(before);
    QCOMPARE(error, QString());
    QCOMPARE(Content(Path()), newText);
}

void TestFileWriting::missingFolderIsAnErrorThatLeavesNothing()
{
    const QString error = Write(Path("missing/page.htm"), newText);
    QVERIFY(!error.isEmpty());
#ifdef Q_OS_UNIX
    QCOMPARE(error, ErrorText(ENOENT));
#endif
    QCOMPARE(Names(), QStringList());
}

void TestFileWriting::folderIsNotWritten()
{
    QVERIFY(QDir(folder_->path()).mkdir("page.htm"));
    const QString error = Write(Path(), newText);
    QVERIFY(!error.isEmpty());
    QVERIFY(QFileInfo(Path()).isDir());
    QCOMPARE(Names(), QStringList("page.htm"));
}

#ifdef Q_OS_UNIX

void TestFileWriting::newFileGetsTheUsersPermissions()
{
    const mode_t before = umask(027);
    const QString error = Write(Path(), newText);
    umask(before);
    QCOMPARE(error, QString());
    QCOMPARE(ModeOf(Path()), 0640);
}

void TestFileWriting::permissionsSurvive_data()
{
    QTest::addColumn<int>("mode");
    for (const int mode : { 0600, 0640, 0644, 0660, 0666, 0755, 0777 }) {
        QTest::newRow(qPrintable(QString::number(mode, 8))) << mode;
    }
}

void TestFileWriting::permissionsSurvive()
{
    QFETCH(const int, mode);
    QVERIFY(Create(Path()));
    QCOMPARE(chmod(Native(Path()).constData(), static_cast<mode_t>(mode)), 0);
    QCOMPARE(Write(Path(), newText), QString());
    QCOMPARE(ModeOf(Path()), mode);
    QCOMPARE(Content(Path()), newText);
}

void TestFileWriting::namesUpToTheLongestAreWritten_data()
{
    QTest::addColumn<QString>("name");
    for (const int length : { 240, 248, 249, 250, 255 }) {
        QTest::newRow(qPrintable(QString::number(length))) << QString(length - 4, 'n') + ".htm";
    }
    QTest::newRow("254 bytes of 127 letters") << QString(127, QChar(0xE4));
}

void TestFileWriting::namesUpToTheLongestAreWritten()
{
    QFETCH(const QString, name);
    QCOMPARE(Write(Path(name), oldText), QString());
    QCOMPARE(Content(Path(name)), oldText);
    QCOMPARE(Write(Path(name), newText), QString());
    QCOMPARE(Content(Path(name)), newText);
    QCOMPARE(Names(), QStringList(name));
}

void TestFileWriting::linkStaysALink_data()
{
    QTest::addColumn<bool>("isRelative");
    QTest::newRow("by its name") << true;
    QTest::newRow("by its whole path") << false;
}

void TestFileWriting::linkStaysALink()
{
    QFETCH(const bool, isRelative);
    QVERIFY(QDir(folder_->path()).mkdir("sub"));
    QVERIFY(Create(Path("sub/target.htm")));
    const QByteArray target = isRelative ? QByteArray("sub/target.htm") : Native(Path("sub/target.htm"));
    QVERIFY(MakeLink(target, Path()));
    QCOMPARE(Write(Path(), newText), QString());
    QVERIFY(IsLinkTo(Path(), target));
    QCOMPARE(Content(Path("sub/target.htm")), newText);
}

void TestFileWriting::linkThroughALinkedFolderIsFollowed()
{
    // The link's ".." is the real folder's parent, not that of the name it was reached by.
    QVERIFY(QDir(folder_->path()).mkpath("real/deep") && QDir(folder_->path()).mkpath("short"));
    QVERIFY(Create(Path("real/target.htm")));
    QVERIFY(MakeLink("../target.htm", Path("real/deep/page.htm")));
    QVERIFY(MakeLink("../real/deep", Path("short/way")));
    QCOMPARE(Content(Path("short/way/page.htm")), oldText);
    QCOMPARE(Write(Path("short/way/page.htm"), newText), QString());
    QCOMPARE(Content(Path("real/target.htm")), newText);
    QVERIFY(!QFile::exists(Path("short/target.htm")));
    QVERIFY(IsLinkTo(Path("real/deep/page.htm"), "../target.htm"));
}

void TestFileWriting::chainOfLinksIsFollowed()
{
    QVERIFY(Create(Path("target.htm")));
    QVERIFY(MakeLink("target.htm", Path("first")));
    QVERIFY(MakeLink("first", Path("second")));
    QVERIFY(MakeLink("second", Path()));
    QCOMPARE(Write(Path(), newText), QString());
    QVERIFY(IsLinkTo(Path(), "second") && IsLinkTo(Path("second"), "first"));
    QVERIFY(IsLinkTo(Path("first"), "target.htm"));
    QCOMPARE(Content(Path("target.htm")), newText);
}

void TestFileWriting::danglingLinkGetsItsTarget()
{
    QVERIFY(MakeLink("target.htm", Path()));
    QCOMPARE(Write(Path(), newText), QString());
    QVERIFY(IsLinkTo(Path(), "target.htm"));
    QCOMPARE(Content(Path("target.htm")), newText);

    QVERIFY(MakeLink("missing/target.htm", Path("other.htm")));
    QVERIFY(!Write(Path("other.htm"), newText).isEmpty());
    QVERIFY(IsLinkTo(Path("other.htm"), "missing/target.htm"));
}

void TestFileWriting::linkInACircleIsAnError()
{
    QVERIFY(MakeLink("second", Path("first")));
    QVERIFY(MakeLink("first", Path("second")));
    QVERIFY(MakeLink("self", Path("self")));
    for (const char* name : { "first", "second", "self" }) {
        const QString error = Write(Path(name), newText);
        QVERIFY2(!error.isEmpty(), name);
    }
    QVERIFY(IsLinkTo(Path("first"), "second") && IsLinkTo(Path("second"), "first"));
    QVERIFY(IsLinkTo(Path("self"), "self"));
    QCOMPARE(Names(), QStringList({ "first", "second", "self" }));
}

void TestFileWriting::linkToAFolderIsAnError()
{
    QVERIFY(QDir(folder_->path()).mkdir("folder"));
    QVERIFY(MakeLink("folder", Path()));
    QVERIFY(!Write(Path(), newText).isEmpty());
    QVERIFY(IsLinkTo(Path(), "folder"));
    QVERIFY(QDir(Path("folder")).isEmpty());
}

void TestFileWriting::otherNamesOfTheFileSeeTheNewText()
{
    QVERIFY(Create(Path("other.htm")));
    QCOMPARE(link(Native(Path("other.htm")).constData(), Native(Path()).constData()), 0);
    const ino_t file = StatusOf(Path()).st_ino;
    for (const QByteArray& text : { newText, QByteArray("short"), QByteArray() }) {
        QCOMPARE(Write(Path(), text), QString());
        QCOMPARE(Content(Path("other.htm")), text);
    }
    QCOMPARE(StatusOf(Path()).st_ino, file);
    QCOMPARE(StatusOf(Path("other.htm")).st_ino, file);
    QCOMPARE(Names(), QStringList({ "other.htm", "page.htm" }));
}

void TestFileWriting::fullDeviceIsAnErrorAndStaysADevice()
{
    const QString device = "/dev/full";
    if (!S_ISCHR(StatusOf(device).st_mode)) {
        QSKIP("This system has no device that is always full.");
    }
    QVERIFY(MakeLink("/dev/full", Path()));
    for (const QString& path : { device, Path() }) {
        QCOMPARE(Write(path, newText), ErrorText(ENOSPC));
    }
    QVERIFY(S_ISCHR(StatusOf(device).st_mode));
    QVERIFY(IsLinkTo(Path(), "/dev/full"));
    QCOMPARE(Names(), QStringList("page.htm"));
}

void TestFileWriting::pipeWithoutANameIsWrittenTo()
{
    // The system's link to it names no path.
    std::array<int, 2> ends{};
    QCOMPARE(::pipe(ends.data()), 0);
    const QString path = QString("/proc/self/fd/%1").arg(ends[1]);
    const bool hasLinks = QFileInfo(path).isSymLink();
    const QString error = hasLinks ? Write(path, newText) : QString();
    close(ends[1]);
    QByteArray received(newText.size() + 1, '\0');
    received.truncate(std::max<ssize_t>(read(ends[0], received.data(), std::size_t(received.size())), 0));
    close(ends[0]);
    if (!hasLinks) {
        QSKIP("This system has no links to open files.");
    }
    QCOMPARE(error, QString());
    QCOMPARE(received, newText);
}

void TestFileWriting::pipeIsWrittenTo_data()
{
    QTest::addColumn<bool>("isLinked");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("directly") << false << newText;
    QTest::newRow("through a link") << true << newText;
    QTest::newRow("more than the pipe holds") << false << newText.repeated(20'000);
}

void TestFileWriting::pipeIsWrittenTo()
{
    QFETCH(const bool, isLinked);
    QFETCH(const QByteArray, bytes);
    QCOMPARE(mkfifo(Native(Path("pipe")).constData(), 0600), 0);
    QVERIFY(!isLinked || MakeLink("pipe", Path()));
    QByteArray received;
    const int pipe = open(Native(Path("pipe")).constData(), O_RDONLY | O_NONBLOCK);
    QVERIFY(pipe >= 0 && fcntl(pipe, F_SETFL, 0) == 0);
    std::thread reader([pipe, &received] {
        pollfd written = { pipe, POLLIN, 0 };
        poll(&written, 1, -1);
        QByteArray part(4096, '\0');
        for (ssize_t length = 1; length > 0; received += part.first(std::max<ssize_t>(length, 0))) {
            length = read(pipe, part.data(), std::size_t(part.size()));
        }
        close(pipe);
    });
    const QString error = Write(Path(isLinked ? "page.htm" : "pipe"), bytes);
    reader.join();
    QCOMPARE(error, QString());
    QCOMPARE(received, bytes);
    QVERIFY(S_ISFIFO(StatusOf(Path("pipe")).st_mode));
}

void TestFileWriting::pipeWithoutAReaderIsAnError()
{
    QCOMPARE(mkfifo(Native(Path()).constData(), 0600), 0);
    QCOMPARE(Write(Path(), newText), ErrorText(ENXIO));
    QVERIFY(S_ISFIFO(StatusOf(Path()).st_mode));
}

void TestFileWriting::pipeThatIsNotEmptiedIsAnError()
{
    QCOMPARE(mkfifo(Native(Path()).constData(), 0600), 0);
    const int reader = open(Native(Path()).constData(), O_RDONLY | O_NONBLOCK);
    const QString error = Write(Path(), newText.repeated(100'000));
    close(reader);
    QCOMPARE(error, ErrorText(EAGAIN));
}

void TestFileWriting::failedWriteLeavesTheOldText_data()
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

void TestFileWriting::failedWriteLeavesTheOldText()
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

void TestFileWriting::failedWriteOfANewFileLeavesNothing_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("beside") << "page.htm";
    QTest::newRow("in place, the name being too long") << QString(255, 'n');
}

void TestFileWriting::failedWriteOfANewFileLeavesNothing()
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

void TestFileWriting::fileInALockedFolderIsWrittenInPlace()
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

void TestFileWriting::failedWriteInALockedFolderLeavesTheOldText()
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

void TestFileWriting::newFileInALockedFolderIsAnError()
{
    QCOMPARE(chmod(Native(folder_->path()).constData(), 0555), 0);
    QVERIFY(AsOrdinaryUser([this] { return !Write(Path(), newText).isEmpty(); }));
    QCOMPARE(Names(), QStringList());
}

void TestFileWriting::lockedFileIsAnError()
{
    QVERIFY(Create(Path()));
    QCOMPARE(chmod(Native(Path()).constData(), 0444), 0);
    QVERIFY(AsOrdinaryUser([this] { return !Write(Path(), newText).isEmpty(); }));
    QCOMPARE(Content(Path()), oldText);
    QCOMPARE(ModeOf(Path()), 0444);
    QCOMPARE(Names(), QStringList("page.htm"));
}

void TestFileWriting::fileOfSomebodyElseStaysTheirs_data()
{
    QTest::addColumn<bool>("isWriterRoot");
    QTest::newRow("root writes") << true;
    QTest::newRow("an ordinary user writes") << false;
}

void TestFileWriting::fileOfSomebodyElseStaysTheirs()
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

#endif

QTEST_GUILESS_MAIN(TestFileWriting)

#include "tst_filewriting.moc"
