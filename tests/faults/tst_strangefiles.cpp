#include "tests/faults/Rights.h"
#include "tests/faults/StrangeFilesFixture.h"

#include <QFileInfo>
#include <cerrno>
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

QByteArray Native(const QString& path)
{
    return QFile::encodeName(path);
}

bool MakeSocket(const QString& path)
{
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    const QByteArray name = Native(path);
    if (name.size() >= qsizetype(sizeof address.sun_path)) {
        return false;
    }
    std::memcpy(address.sun_path, name.constData(), std::size_t(name.size()));
    const int socketHandle = socket(AF_UNIX, SOCK_STREAM, 0);
    const bool isBound = bind(socketHandle, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    close(socketHandle);
    return isBound;
}

/** Lets the program have no more than `bytes` of memory for as long as it lives. */
class LimitedMemory
{
public:
    explicit LimitedMemory(rlim_t bytes)
    {
        getrlimit(RLIMIT_AS, &old_);
        const rlimit limit = { .rlim_cur = bytes, .rlim_max = old_.rlim_max };
        setrlimit(RLIMIT_AS, &limit);
    }
    ~LimitedMemory() { setrlimit(RLIMIT_AS, &old_); }
    Q_DISABLE_COPY_MOVE(LimitedMemory)

private:
    rlimit old_ = {};
};

/** What makes something strange of the name `path` in the folder `folder`. */
using Make = std::function<bool(const QString& path)>;

bool MakePipe(const QString& path)
{
    return mkfifo(Native(path).constData(), 0600) == 0;
}

bool MakeLink(const QByteArray& target, const QString& path)
{
    return symlink(target.constData(), Native(path).constData()) == 0;
}

} // namespace

class tst_strangefiles : public StrangeFilesFixture
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { StartAll(); }
    void init() { Start(); }
    void cleanup() { Finish(); }

    void openingItTellsAndKeepsTheText_data();
    void openingItTellsAndKeepsTheText();
    void savingToItTellsAndKeepsTheText_data();
    void savingToItTellsAndKeepsTheText();
    void documentTooLargeForItsKindOrForMemoryIsTold_data();
    void documentTooLargeForItsKindOrForMemoryIsTold();
    void pipeWithoutAReaderTakesNoPreview();
    void pipeThatNobodyEmptiesDoesNotHangTheWindow();
    void pipeThatIsReadGetsTheText();
    void linksFileThatIsAPipeIsNotWaitedFor();
    void linkToAFileStaysALinkAndOtherNamesSeeTheText();
    void danglingLinkOpensNothingAndIsSavedThrough();
};

/** Everything that a name can stand for without being a file. */
static void AddStrangeRows()
{
    QTest::addColumn<Make>("make");
    const auto row = [](const char* name, const Make& make) { QTest::newRow(name) << make; };
    row("pipe without the other side", MakePipe);
    row("link to such a pipe", [](const QString& path) {
        return MakePipe(path + QStringLiteral(".pipe")) && MakeLink(Native(path) + ".pipe", path);
    });
    row("socket", MakeSocket);
    row("folder", [](const QString& path) { return QDir().mkdir(path); });
    row("folder that is not empty",
        [](const QString& path) { return QDir().mkpath(path + QStringLiteral("/x")); });
    row("link to a folder", [](const QString& path) { return MakeLink(".", path); });
    row("link to itself", [](const QString& path) { return MakeLink("page.htm", path); });
    row("link into a missing folder", [](const QString& path) { return MakeLink("missing/page.htm", path); });
    row("full device", [](const QString& path) { return MakeLink("/dev/full", path); });
}

void tst_strangefiles::openingItTellsAndKeepsTheText_data()
{
    AddStrangeRows();
    const auto row = [](const char* name, const Make& make) { QTest::newRow(name) << make; };
    row("endless device", [](const QString& path) { return MakeLink("/dev/zero", path); });
    row("terminal", [](const QString& path) { return MakeLink("/dev/ptmx", path); });
}

void tst_strangefiles::openingItTellsAndKeepsTheText()
{
    QFETCH(const Make, make);
    QVERIFY(WriteBytes(Path("other.htm"), "xold"));
    test_->Open(Path("other.htm"));
    QVERIFY(make(InPages("page.htm")));
    QElapsedTimer clock;
    clock.start();
    if (QFileInfo(InPages("page.htm")).isDir()) {
        // The dialog enters a folder; that it holds no file of this name is told.
        test_->robot.Cancel();
        test_->Press(Qt::Key_O, Qt::ControlModifier);
    } else {
        test_->robot.ChooseFile(InPages("page.htm"));
        test_->robot.AnswerBox(QMessageBox::Ok);
        test_->Press(Qt::Key_O, Qt::ControlModifier);
        QCOMPARE(test_->robot.Boxes().size(), 1);
        QCOMPARE(test_->robot.Boxes().constFirst().text, QString(u"Can't open file: " + InPages("page.htm")));
    }
    QVERIFY(clock.elapsed() < hanging);
    QCOMPARE(test_->Editor()->Text(), QStringLiteral("xold"));
    QCOMPARE(test_->DocumentName(), Path("other.htm"));
}

void tst_strangefiles::savingToItTellsAndKeepsTheText_data()
{
    AddStrangeRows();
}

void tst_strangefiles::savingToItTellsAndKeepsTheText()
{
    QFETCH(const Make, make);
    OpenPage();
    QVERIFY(QFile::remove(InPages("page.htm")));
    QVERIFY(make(InPages("page.htm")));
    struct stat before = {};
    QCOMPARE(lstat(Native(InPages("page.htm")).constData(), &before), 0);
    const QStringList names = QDir(Path("pages")).entryList(QDir::AllEntries | QDir::Hidden | QDir::System);
    SaveFails();
    struct stat after = {};
    QCOMPARE(lstat(Native(InPages("page.htm")).constData(), &after), 0);
    QCOMPARE(after.st_ino, before.st_ino);
    QCOMPARE(QDir(Path("pages")).entryList(QDir::AllEntries | QDir::Hidden | QDir::System), names);
}

void tst_strangefiles::documentTooLargeForItsKindOrForMemoryIsTold_data()
{
    QTest::addColumn<qint64>("size");
    QTest::addColumn<qint64>("memory");
    constexpr qint64 mebibyte = 1024 * 1024;
    QTest::newRow("nearly 1 GiB") << 1024 * mebibyte - 1 << 6144 * mebibyte;
    QTest::newRow("less than that, but more than memory takes") << 256 * mebibyte << 1792 * mebibyte;
}

void tst_strangefiles::documentTooLargeForItsKindOrForMemoryIsTold()
{
#ifdef __SANITIZE_ADDRESS__
    QSKIP("the sanitizer needs all of the address space for itself");
#endif
    QFETCH(const qint64, size);
    QFETCH(const qint64, memory);
    test_->Type("x");
    QVERIFY(WriteBytes(InPages("page.htm"), "old"));
    QVERIFY(QFile::resize(InPages("page.htm"), size));
    test_->robot.AnswerBox(QMessageBox::No);
    test_->robot.ChooseFile(InPages("page.htm"));
    test_->robot.AnswerBox(QMessageBox::Ok);
    {
        const LimitedMemory limited(static_cast<rlim_t>(memory));
        test_->Press(Qt::Key_O, Qt::ControlModifier);
    }
    QCOMPARE(test_->robot.Boxes().size(), 2);
    QCOMPARE(test_->robot.Boxes().constLast().text, QString(u"Can't open file: " + InPages("page.htm")));
    QCOMPARE(test_->DocumentName(), QString::fromLatin1(newDocument));
    test_->Type("y");
    QCOMPARE(test_->Editor()->Text(), QStringLiteral("y"));
}

void tst_strangefiles::pipeWithoutAReaderTakesNoPreview()
{
    QVERIFY(MakePipe(Path("Temp/Temp001.html")));
    test_->Type("x");
    test_->robot.AnswerBox(QMessageBox::Ok);
    QElapsedTimer clock;
    clock.start();
    test_->Press(Qt::Key_D, Qt::ControlModifier);
    QVERIFY(clock.elapsed() < hanging);
    QCOMPARE(test_->robot.Boxes().constFirst().text, SystemText(ENXIO));
    QCOMPARE(test_->Editor()->Text(), QStringLiteral("x"));
}

void tst_strangefiles::pipeThatNobodyEmptiesDoesNotHangTheWindow()
{
    OpenPage(QByteArray("a line of it\r\n").repeated(50'000));
    QVERIFY(QFile::remove(InPages("page.htm")));
    QVERIFY(MakePipe(InPages("page.htm")));
    const int reader = open(Native(InPages("page.htm")).constData(), O_RDONLY | O_NONBLOCK);
    QVERIFY(reader >= 0);
    test_->robot.AnswerBox(QMessageBox::Ok);
    Save();
    close(reader);
    QCOMPARE(test_->robot.Boxes().size(), 1);
    QCOMPARE(test_->Editor()->TextLength(), qsizetype(700'001));
    QVERIFY(test_->window.File().IsChanged());
}

void tst_strangefiles::pipeThatIsReadGetsTheText()
{
    OpenPage();
    QVERIFY(QFile::remove(InPages("page.htm")));
    QVERIFY(MakePipe(InPages("page.htm")));
    const int reader = open(Native(InPages("page.htm")).constData(), O_RDONLY | O_NONBLOCK);
    Save();
    QByteArray received(100, '\0');
    received.truncate(std::max<ssize_t>(read(reader, received.data(), std::size_t(received.size())), 0));
    close(reader);
    QCOMPARE(received, QByteArray("xold\r\n"));
    QVERIFY(!test_->window.File().IsChanged());
}

void tst_strangefiles::linksFileThatIsAPipeIsNotWaitedFor()
{
    QVERIFY(QFile::remove(Path("Data/Links.dra")));
    QVERIFY(MakePipe(Path("Data/Links.dra")));
    QElapsedTimer clock;
    clock.start();
    QTest::mouseClick(test_->Find<QWidget>("btnSave"), Qt::LeftButton);
    RecordingDesktop desktop;
    frmIMmain other(test_->folder.imgMap, test_->folder.map, desktop);
    test_->robot.AnswerBox(QMessageBox::Ok);
    other.Form_Load();
    QVERIFY(clock.elapsed() < hanging);
    QCOMPARE(
        test_->robot.Boxes().constFirst().text,
        QStringLiteral("File Links.dra is either damaged or missing !"));
}

void tst_strangefiles::linkToAFileStaysALinkAndOtherNamesSeeTheText()
{
    QVERIFY(WriteBytes(Path("target.htm"), "old"));
    QCOMPARE(link(Native(Path("target.htm")).constData(), Native(Path("other.htm")).constData()), 0);
    QVERIFY(MakeLink("../target.htm", InPages("page.htm")));
    test_->Open(InPages("page.htm"));
    test_->Type("x");
    Save();
    QVERIFY(QFileInfo(InPages("page.htm")).isSymLink());
    QCOMPARE(BytesOf(Path("target.htm")), QByteArray("xold\r\n"));
    QCOMPARE(BytesOf(Path("other.htm")), QByteArray("xold\r\n"));
    QCOMPARE(test_->DocumentName(), InPages("page.htm"));
}

void tst_strangefiles::danglingLinkOpensNothingAndIsSavedThrough()
{
    OpenPage();
    QVERIFY(QFile::rename(InPages("page.htm"), Path("target.htm")));
    QVERIFY(MakeLink("../target.htm", InPages("page.htm")));
    QVERIFY(QFile::remove(Path("target.htm")));
    Save();
    QVERIFY(QFileInfo(InPages("page.htm")).isSymLink());
    QCOMPARE(BytesOf(Path("target.htm")), QByteArray("xold\r\n"));
    QVERIFY(QFile::remove(Path("target.htm")));
    test_->robot.ChooseFile(InPages("page.htm"));
    test_->robot.AnswerBox(QMessageBox::Ok);
    test_->Press(Qt::Key_O, Qt::ControlModifier);
    QCOMPARE(test_->robot.Boxes().size(), 1);
    QVERIFY(!QFile::exists(Path("target.htm")));
}

QTEST_MAIN(tst_strangefiles)
#include "tst_strangefiles.moc"
