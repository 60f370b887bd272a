// Writing through links, to devices and to pipes.

#include "tests/shared/FileWritingFixture.h"

#include <QFileInfo>
#include <algorithm>
#include <array>

#ifdef Q_OS_UNIX
#include <cerrno>
#include <poll.h>
#include <thread>
#endif

namespace {

#ifdef Q_OS_UNIX

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

#endif

} // namespace

class tst_writingthrough : public FileWritingFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Start(); }
    void cleanup() { Finish(); }

    void newFileGetsTheUsersPermissions();
    void permissionsSurvive_data();
    void permissionsSurvive();

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
};

void tst_writingthrough::newFileGetsTheUsersPermissions()
{
    const mode_t before = umask(027);
    const QString error = Write(Path(), newText);
    umask(before);
    QCOMPARE(error, QString());
    QCOMPARE(ModeOf(Path()), 0640);
}

void tst_writingthrough::permissionsSurvive_data()
{
    QTest::addColumn<int>("mode");
    for (const int mode : { 0600, 0640, 0644, 0660, 0666, 0755, 0777 }) {
        QTest::newRow(qPrintable(QString::number(mode, 8))) << mode;
    }
}

void tst_writingthrough::permissionsSurvive()
{
    QFETCH(const int, mode);
    QVERIFY(Create(Path()));
    QCOMPARE(chmod(Native(Path()).constData(), static_cast<mode_t>(mode)), 0);
    QCOMPARE(Write(Path(), newText), QString());
    QCOMPARE(ModeOf(Path()), mode);
    QCOMPARE(Content(Path()), newText);
}

void tst_writingthrough::linkStaysALink_data()
{
    QTest::addColumn<bool>("isRelative");
    QTest::newRow("by its name") << true;
    QTest::newRow("by its whole path") << false;
}

void tst_writingthrough::linkStaysALink()
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

void tst_writingthrough::linkThroughALinkedFolderIsFollowed()
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

void tst_writingthrough::chainOfLinksIsFollowed()
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

void tst_writingthrough::danglingLinkGetsItsTarget()
{
    QVERIFY(MakeLink("target.htm", Path()));
    QCOMPARE(Write(Path(), newText), QString());
    QVERIFY(IsLinkTo(Path(), "target.htm"));
    QCOMPARE(Content(Path("target.htm")), newText);

    QVERIFY(MakeLink("missing/target.htm", Path("other.htm")));
    QVERIFY(!Write(Path("other.htm"), newText).isEmpty());
    QVERIFY(IsLinkTo(Path("other.htm"), "missing/target.htm"));
}

void tst_writingthrough::linkInACircleIsAnError()
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

void tst_writingthrough::linkToAFolderIsAnError()
{
    QVERIFY(QDir(folder_->path()).mkdir("folder"));
    QVERIFY(MakeLink("folder", Path()));
    QVERIFY(!Write(Path(), newText).isEmpty());
    QVERIFY(IsLinkTo(Path(), "folder"));
    QVERIFY(QDir(Path("folder")).isEmpty());
}

void tst_writingthrough::otherNamesOfTheFileSeeTheNewText()
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

void tst_writingthrough::fullDeviceIsAnErrorAndStaysADevice()
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

void tst_writingthrough::pipeWithoutANameIsWrittenTo()
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

void tst_writingthrough::pipeIsWrittenTo_data()
{
    QTest::addColumn<bool>("isLinked");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("directly") << false << newText;
    QTest::newRow("through a link") << true << newText;
    QTest::newRow("more than the pipe holds") << false << newText.repeated(20'000);
}

void tst_writingthrough::pipeIsWrittenTo()
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

void tst_writingthrough::pipeWithoutAReaderIsAnError()
{
    QCOMPARE(mkfifo(Native(Path()).constData(), 0600), 0);
    QCOMPARE(Write(Path(), newText), ErrorText(ENXIO));
    QVERIFY(S_ISFIFO(StatusOf(Path()).st_mode));
}

void tst_writingthrough::pipeThatIsNotEmptiedIsAnError()
{
    QCOMPARE(mkfifo(Native(Path()).constData(), 0600), 0);
    const int reader = open(Native(Path()).constData(), O_RDONLY | O_NONBLOCK);
    const QString error = Write(Path(), newText.repeated(100'000));
    close(reader);
    QCOMPARE(error, ErrorText(EAGAIN));
}

QTEST_GUILESS_MAIN(tst_writingthrough)
#include "tst_writingthrough.moc"
