#include "app/Desktop.h"
#include "app/rules/ShellErrors.h"
#include "tests/support/ProgramFolder.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTest>
#include <cerrno>
#include <memory>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr const char* reportsArguments = "for argument; do printf '%s\\n' \"$argument\"; done > said.part\n"
                                         "mv said.part said\n";

ShellRequest Request(const char* verb, const QString& target)
{
    ShellRequest request;
    request.Verb = QString::fromLatin1(verb);
    request.Target = target;
    request.Folder = target;
    return request;
}

} // namespace

/** The desktop with stand-ins for its tools, which are all that PATH has. */
class tst_desktoplinux : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void fileNameArrivesWhole_data();
    void fileNameArrivesWhole();
    void addressArrivesAsItIs();
    void printingIsLeftToLp();
    void printedCharactersComeOutRightInEveryLocale_data();
    void printedCharactersComeOutRightInEveryLocale();
    void missingThingsAreToldBeforeAnythingIsStarted_data();
    void missingThingsAreToldBeforeAnythingIsStarted();
    void unreadableFileIsDenied();
    void missingToolMeansNoAssociation_data();
    void missingToolMeansNoAssociation();
    void exitCodeBecomesTheError_data();
    void exitCodeBecomesTheError();
    void toolThatDiesIsAnUnknownError();
    void toolOfAnotherKindIsABadFormat();
    void launchingDoesNotWait();
    void launchedProgramIsIndependent();
    void noZombieIsLeft();
    void thereIsNoAboutBoxOfTheSystems();

private:
    void MakeTool(const char* name, const QByteArray& script);
    int CodeOf(const char* verb, const QString& target);

    std::unique_ptr<ProgramFolder> folder_;
    std::unique_ptr<Desktop> desktop_;
    QByteArray oldPath_;
};

void tst_desktoplinux::init()
{
    folder_ = std::make_unique<ProgramFolder>();
    desktop_ = MakeDesktop();
    QVERIFY(QDir().mkdir(QStringLiteral("bin")));
    oldPath_ = qgetenv("PATH");
    qputenv("PATH", QFile::encodeName(folder_->Path(QStringLiteral("bin"))));
}

void tst_desktoplinux::cleanup()
{
    qputenv("PATH", oldPath_);
    desktop_.reset();
    folder_.reset();
}

void tst_desktoplinux::MakeTool(const char* name, const QByteArray& script)
{
    QFile file(folder_->Path(QStringLiteral("bin/") + QString::fromLatin1(name)));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("#!/bin/sh\nPATH=" + oldPath_ + "\n" + script);
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

/** Asks the desktop and waits for its report; a number that is no code when there is none. */
int tst_desktoplinux::CodeOf(const char* verb, const QString& target)
{
    constexpr int silence = -1000;
    int code = silence;
    desktop_->Execute(Request(verb, target), [&code](int reported) { code = reported; });
    (void)QTest::qWaitFor([&code] { return code != silence; }, 15'000);
    return code;
}

void tst_desktoplinux::fileNameArrivesWhole_data()
{
    QTest::addColumn<QString>("name");
    const auto row = [](const char* title, const QString& name) { QTest::newRow(title) << name; };
    row("plain", QStringLiteral("page.html"));
    row("blanks", QStringLiteral(" my  page .html"));
    row("quotes", QStringLiteral("a\"b'c`d.html"));
    row("leading dash", QStringLiteral("--help"));
    row("dollar and more", QStringLiteral("$HOME;*&|<>(){}[]!.html"));
    row("per cent and number sign", QStringLiteral("100%20#a?b.html"));
    row("backslash", QStringLiteral("a\\b.html"));
    row("accents", QStringLiteral("Größe é.html"));
    row("like an address", QStringLiteral("http:site.html"));
}

void tst_desktoplinux::fileNameArrivesWhole()
{
    QFETCH(const QString, name);
    MakeTool("xdg-open", reportsArguments);
    QVERIFY(QFile(folder_->Path(name)).open(QIODevice::WriteOnly));
    QCOMPARE(CodeOf("Open", name), leastShellSuccess);
    QFile said(folder_->Path(QStringLiteral("said")));
    QVERIFY(said.open(QIODevice::ReadOnly));
    QCOMPARE(QFile::decodeName(said.readAll()), QString(QDir::currentPath() + u'/' + name + u'\n'));
}

void tst_desktoplinux::addressArrivesAsItIs()
{
    MakeTool("xdg-open", reportsArguments);
    QCOMPARE(CodeOf("Open", QStringLiteral("https://cartolen.example/?a=b&c#d")), leastShellSuccess);
    QFile said(folder_->Path(QStringLiteral("said")));
    QVERIFY(said.open(QIODevice::ReadOnly));
    QCOMPARE(said.readAll(), QByteArray("https://cartolen.example/?a=b&c#d\n"));
}

void tst_desktoplinux::printingIsLeftToLp()
{
    MakeTool("xdg-open", "exit 9\n");
    MakeTool("lp", reportsArguments);
    QVERIFY(QFile(folder_->Path(QStringLiteral("-t.txt"))).open(QIODevice::WriteOnly));
    QCOMPARE(CodeOf("Print", QStringLiteral("-t.txt")), leastShellSuccess);
    QFile said(folder_->Path(QStringLiteral("said")));
    QVERIFY(said.open(QIODevice::ReadOnly));
    QCOMPARE(said.readAll(), QFile::encodeName(QDir::currentPath()) + "/-t.txt\n");
}

void tst_desktoplinux::printedCharactersComeOutRightInEveryLocale_data()
{
    QTest::addColumn<QByteArray>("locale");
    QTest::newRow("UTF-8") << QByteArray("C.UTF-8");
    QTest::newRow("ASCII") << QByteArray("C");
    QTest::newRow("one that is not installed") << QByteArray("de_DE.ISO-8859-15");
}

void tst_desktoplinux::printedCharactersComeOutRightInEveryLocale()
{
    QFETCH(const QByteArray, locale);
    // It tells the server the encoding of its locale, and sends the file as it is.
    MakeTool(
        "lp", "printf '%s\n' \"$(locale charmap)\" > said.part\n"
              "printf '%s\n' \"${1##*/}\" >> said.part\n"
              "cat \"$1\" >> said.part\n"
              "mv said.part said\n");
    QFile copy(folder_->Path(QStringLiteral("page_Temp.txt")));
    QVERIFY(copy.open(QIODevice::WriteOnly));
    const QByteArray bytes = "caf\xE9 \x80 \x93x\x94\r\n";
    copy.write(bytes);
    copy.close();
    const QByteArray oldLocale = qgetenv("LC_ALL");
    qputenv("LC_ALL", locale);
    const int code = CodeOf("Print", QStringLiteral("page_Temp.txt"));
    qputenv("LC_ALL", oldLocale);
    QCOMPARE(code, leastShellSuccess);
    QFile said(folder_->Path(QStringLiteral("said")));
    QVERIFY(said.open(QIODevice::ReadOnly));
    QCOMPARE(
        QString::fromUtf8(said.readAll()),
        QStringLiteral("UTF-8\npage_Temp.txt\ncaf\u00E9 \u20AC \u201Cx\u201D\r\n"));
    // The copy stays as it was, and nothing else stays.
    QVERIFY(copy.open(QIODevice::ReadOnly));
    QCOMPARE(copy.readAll(), bytes);
    QTRY_VERIFY(QDir(QDir::tempPath()).entryList({ QStringLiteral("cartolen-print-*") }).isEmpty());
}

void tst_desktoplinux::missingThingsAreToldBeforeAnythingIsStarted_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<int>("code");
    QTest::newRow("file") << "missing.html" << int(shellFileNotFound);
    QTest::newRow("folder") << "missing/page.html" << int(shellPathNotFound);
    QTest::newRow("folder of a folder") << "missing/too/page.html" << int(shellPathNotFound);
}

void tst_desktoplinux::missingThingsAreToldBeforeAnythingIsStarted()
{
    QFETCH(const QString, target);
    MakeTool("xdg-open", reportsArguments);
    QTEST(CodeOf("Open", target), "code");
    QVERIFY(!QFile::exists(QStringLiteral("said")));
}

void tst_desktoplinux::unreadableFileIsDenied()
{
    if (::geteuid() == 0) {
        QSKIP("the superuser may read everything");
    }
    MakeTool("xdg-open", reportsArguments);
    QFile file(QStringLiteral("page.html"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.setPermissions({});
    QCOMPARE(CodeOf("Open", QStringLiteral("page.html")), int(shellAccessDenied));
}

void tst_desktoplinux::missingToolMeansNoAssociation_data()
{
    QTest::addColumn<QByteArray>("verb");
    QTest::newRow("open") << QByteArray("Open");
    QTest::newRow("print") << QByteArray("Print");
    QTest::newRow("a verb that nobody knows") << QByteArray("Fold");
}

void tst_desktoplinux::missingToolMeansNoAssociation()
{
    QFETCH(const QByteArray, verb);
    QVERIFY(QFile(QStringLiteral("page.html")).open(QIODevice::WriteOnly));
    QCOMPARE(CodeOf(verb.constData(), QStringLiteral("page.html")), int(shellNoAssociation));
}

void tst_desktoplinux::exitCodeBecomesTheError_data()
{
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<int>("code");
    QTest::newRow("none") << 0 << leastShellSuccess;
    QTest::newRow("syntax") << 1 << 1;
    QTest::newRow("file missing") << 2 << int(shellFileNotFound);
    QTest::newRow("no program for it") << 3 << int(shellNoAssociation);
    QTest::newRow("action failed") << 4 << 4;
    QTest::newRow("out of memory") << 8 << int(shellOutOfMemory);
    QTest::newRow("largest error") << 32 << 32;
    QTest::newRow("would be a success") << 33 << int(shellUnknown);
    QTest::newRow("largest") << 255 << int(shellUnknown);
}

void tst_desktoplinux::exitCodeBecomesTheError()
{
    QFETCH(const int, exitCode);
    MakeTool("xdg-open", "exit " + QByteArray::number(exitCode) + "\n");
    QTEST(CodeOf("Open", QStringLiteral("https://cartolen.example/")), "code");
}

void tst_desktoplinux::toolThatDiesIsAnUnknownError()
{
    MakeTool("xdg-open", "kill -9 $$\n");
    QCOMPARE(CodeOf("Open", QStringLiteral("https://cartolen.example/")), int(shellUnknown));
}

void tst_desktoplinux::toolOfAnotherKindIsABadFormat()
{
    QFile file(folder_->Path(QStringLiteral("bin/xdg-open")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(QByteArray::fromHex("7f454c46") + QByteArray(60, 'x'));
    file.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
    file.close();
    QCOMPARE(CodeOf("Open", QStringLiteral("https://cartolen.example/")), int(shellBadFormat));
}

void tst_desktoplinux::launchingDoesNotWait()
{
    MakeTool("xdg-open", "touch started; while [ ! -e go ]; do sleep 0.05; done\n");
    int reports = 0;
    desktop_->Execute(
        Request("Open", QStringLiteral("https://cartolen.example/")), [&reports](int) { ++reports; });
    QTRY_VERIFY(QFile::exists(QStringLiteral("started")));
    QCOMPARE(reports, 0);
    QVERIFY(QFile(QStringLiteral("go")).open(QIODevice::WriteOnly));
    QTRY_COMPARE(reports, 1);
}

void tst_desktoplinux::launchedProgramIsIndependent()
{
    // In a session of its own neither a closing terminal nor its interrupt key ends it.
    MakeTool("xdg-open", "cut -d' ' -f1,6 /proc/$$/stat > said\n");
    QCOMPARE(CodeOf("Open", QStringLiteral("https://cartolen.example/")), leastShellSuccess);
    QFile said(QStringLiteral("said"));
    QVERIFY(said.open(QIODevice::ReadOnly));
    const QList<QByteArray> processAndSession = said.readAll().trimmed().split(' ');
    QCOMPARE(processAndSession.size(), 2);
    QCOMPARE(processAndSession[0], processAndSession[1]);
}

void tst_desktoplinux::noZombieIsLeft()
{
    MakeTool("xdg-open", "exit 0\n");
    QCOMPARE(CodeOf("Open", QStringLiteral("https://cartolen.example/")), leastShellSuccess);
    QCOMPARE(::waitpid(-1, nullptr, WNOHANG), -1);
    QCOMPARE(errno, ECHILD);
}

void tst_desktoplinux::thereIsNoAboutBoxOfTheSystems()
{
    QVERIFY(!desktop_->ShowAboutBox(0, QStringLiteral("Cartolen"), QString()));
}

QTEST_GUILESS_MAIN(tst_desktoplinux)
#include "tst_desktoplinux.moc"
