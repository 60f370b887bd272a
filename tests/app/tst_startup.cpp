#include "app/Startup.h"
#include "app/frmIMmain.h"
#include "app/frmSplash.h"
#include "tests/support/DialogRobot.h"
#include "tests/support/ProgramFolder.h"
#include "tests/support/RecordingDesktop.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QProcess>
#include <QScreen>
#include <QSignalSpy>
#include <QTest>
#include <csignal>

namespace {

/** The window of the program that has this name, or null. */
QWidget* Window(const char* name)
{
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        if (window->objectName() == QLatin1String(name)) {
            return window;
        }
    }
    return nullptr;
}

QString LabelText(const QWidget* window, const char* name)
{
    const auto* const label = window->findChild<QLabel*>(QString::fromLatin1(name));
    return label != nullptr ? label->text() : QStringLiteral("(no such label)");
}

void RestorePointer()
{
    while (QApplication::overrideCursor() != nullptr) {
        QApplication::restoreOverrideCursor();
    }
}

} // namespace

class tst_startup : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { RestorePointer(); }

    void splashPanelShowsNameVersionAndThatItLoads();
    void splashPanelIsCentredInTheProgramFolder();
    void splashPanelsTimerTicksOnce();
    void mainWindowTakesThePlaceOfTheSplashPanel();
    void damagedLinksAreToldBeforeTheMainWindowShows();
    void programRunsUntilItIsEnded();
    void programStartedElsewhereUsesItsOwnFolder();
    void installedProgramUsesTheUsersFolder();
};

void tst_startup::splashPanelShowsNameVersionAndThatItLoads()
{
    ProgramFolder folder;
    frmSplash splash(folder.imgMap);
    splash.Form_Load();
    splash.show();
    QVERIFY(QTest::qWaitForWindowExposed(&splash));
    QCOMPARE(LabelText(&splash, "lblProductName"), QStringLiteral("Cartolen"));
    QCOMPARE(LabelText(&splash, "lblVersion"), QStringLiteral("Version 4.0"));
    int loading = 0;
    for (const QLabel* const label : splash.findChildren<QLabel*>()) {
        QVERIFY(label->isVisible());
        loading += label->text() == u"Loading ..." ? 1 : 0;
    }
    QCOMPARE(loading, 1);
    QVERIFY(QApplication::overrideCursor() != nullptr);
    QCOMPARE(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
}

void tst_startup::splashPanelIsCentredInTheProgramFolder()
{
    ProgramFolder folder;
    QDir::setCurrent(QDir::rootPath());
    frmSplash splash(folder.imgMap);
    splash.Form_Load();
    QCOMPARE(QDir::currentPath(), QDir(folder.imgMap.ProgramFolder).canonicalPath());
    const QRect screen = splash.screen()->geometry();
    QCOMPARE(splash.x(), (screen.width() - splash.width()) / 2);
    QCOMPARE(splash.y(), (screen.height() - splash.height()) / 2);
}

void tst_startup::splashPanelsTimerTicksOnce()
{
    ProgramFolder folder;
    frmSplash splash(folder.imgMap);
    QSignalSpy tick(&splash, &frmSplash::Timer1_Timer);
    QElapsedTimer clock;
    clock.start();
    splash.Form_Load();
    splash.show();
    QVERIFY(tick.wait(10000));
    // A timer of this length may be early by a twentieth of it.
    QVERIFY2(clock.elapsed() >= 2850, qPrintable(QString::number(clock.elapsed())));
    QVERIFY(!tick.wait(3500));
    QCOMPARE(tick.count(), 1);
}

void tst_startup::mainWindowTakesThePlaceOfTheSplashPanel()
{
    ProgramFolder folder;
    DialogRobot robot;
    RecordingDesktop desktop;
    Startup startup(folder.imgMap, folder.map, desktop);
    startup.Begin();
    QVERIFY(Window("frmSplash") != nullptr);
    QVERIFY(Window("frmSplash")->isVisible());
    QVERIFY(Window("frmIMmain") == nullptr);
    QVERIFY(QApplication::overrideCursor() != nullptr);

    QTRY_VERIFY_WITH_TIMEOUT(Window("frmIMmain") != nullptr, 10000);
    QWidget* const window = Window("frmIMmain");
    QVERIFY(QTest::qWaitForWindowActive(window));
    QTRY_VERIFY(Window("frmSplash") == nullptr);
    QVERIFY(window->isVisible());
    QCOMPARE(window->windowTitle(), QStringLiteral("Cartolen"));
    QVERIFY(QApplication::overrideCursor() == nullptr);
    QCOMPARE(LabelText(window, "StatusBar1_Panel3"), QStringLiteral("New Document"));
    QVERIFY(QFile::exists(folder.Path(QStringLiteral("Data/Links.dra"))));
    QCOMPARE(robot.Problems(), QString());
}

void tst_startup::damagedLinksAreToldBeforeTheMainWindowShows()
{
    ProgramFolder folder;
    QVERIFY(QDir(folder.imgMap.ProgramFolder).rmdir(QStringLiteral("Data")));
    DialogRobot robot;
    bool isSplashVisible = false;
    bool isMainVisible = true;
    robot.Act([&](QDialog& dialog) {
        isSplashVisible = Window("frmSplash") != nullptr && Window("frmSplash")->isVisible();
        isMainVisible = Window("frmIMmain")->isVisible();
        dialog.accept();
    });
    RecordingDesktop desktop;
    Startup startup(folder.imgMap, folder.map, desktop);
    startup.Begin();
    QTRY_VERIFY_WITH_TIMEOUT(Window("frmIMmain") != nullptr && Window("frmIMmain")->isVisible(), 10000);
    QVERIFY(isSplashVisible);
    QVERIFY(!isMainVisible);
    QCOMPARE(robot.Boxes().size(), 1);
    QTRY_VERIFY(Window("frmSplash") == nullptr);
    QCOMPARE(robot.Problems(), QString());
}

#ifdef Q_OS_UNIX

/** Starts the program, waits until its main window must have loaded and ends it; what it said meanwhile. */
static QByteArray RunForAWhile(const QString& binary, const QString& currentFolder, const QString& linksFile)
{
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    program.setProcessEnvironment(environment);
    program.setWorkingDirectory(currentFolder);
    program.setProcessChannelMode(QProcess::MergedChannels);
    program.start(binary, {});
    if (!program.waitForStarted()) {
        return "not started";
    }
    if (!QTest::qWaitFor(
            [&] { return QFile::exists(linksFile) || program.state() == QProcess::NotRunning; }, 20000)) {
        program.kill();
        program.waitForFinished();
        return "the main window has not loaded";
    }
    if (program.waitForFinished(1000)) {
        return "ended by itself: " + program.readAll();
    }
    program.terminate();
    if (!program.waitForFinished(10000)) {
        program.kill();
        program.waitForFinished();
        return "did not end";
    }
    if (program.exitStatus() == QProcess::CrashExit && program.exitCode() != SIGTERM) {
        return "crashed with signal " + QByteArray::number(program.exitCode());
    }
    return {};
}

#endif

void tst_startup::programRunsUntilItIsEnded()
{
#ifdef Q_OS_UNIX
    ProgramFolder folder;
    const QString binary = folder.Path(QStringLiteral("cartolen"));
    QVERIFY(QFile::copy(QStringLiteral(CARTOLEN_BINARY), binary));
    QCOMPARE(
        RunForAWhile(binary, folder.imgMap.ProgramFolder, folder.Path(QStringLiteral("Data/Links.dra"))),
        QByteArray());
#else
    QSKIP("no signals here");
#endif
}

void tst_startup::programStartedElsewhereUsesItsOwnFolder()
{
#ifdef Q_OS_UNIX
    ProgramFolder folder;
    ProgramFolder elsewhere;
    const QString binary = folder.Path(QStringLiteral("cartolen"));
    QVERIFY(QFile::copy(QStringLiteral(CARTOLEN_BINARY), binary));
    QCOMPARE(
        RunForAWhile(binary, elsewhere.imgMap.ProgramFolder, folder.Path(QStringLiteral("Data/Links.dra"))),
        QByteArray());
    QVERIFY(!QFile::exists(elsewhere.Path(QStringLiteral("Data/Links.dra"))));
#else
    QSKIP("no signals here");
#endif
}

void tst_startup::installedProgramUsesTheUsersFolder()
{
#ifdef Q_OS_UNIX
    ProgramFolder folder;
    QVERIFY(QDir().mkpath(folder.Path(QStringLiteral("bin"))));
    QVERIFY(QDir().mkpath(folder.Path(QStringLiteral("share/cartolen"))));
    const QString binary = folder.Path(QStringLiteral("bin/cartolen"));
    QVERIFY(QFile::copy(QStringLiteral(CARTOLEN_BINARY), binary));
    const QByteArray oldDataHome = qgetenv("XDG_DATA_HOME");
    qputenv("XDG_DATA_HOME", QFile::encodeName(folder.Path(QStringLiteral("home"))));
    const QByteArray trouble =
        RunForAWhile(binary, QDir::rootPath(), folder.Path(QStringLiteral("home/cartolen/Data/Links.dra")));
    oldDataHome.isNull() ? qunsetenv("XDG_DATA_HOME") : qputenv("XDG_DATA_HOME", oldDataHome);
    QCOMPARE(trouble, QByteArray());
    QCOMPARE(
        QDir(folder.Path(QStringLiteral("bin"))).entryList(QDir::NoDotAndDotDot | QDir::AllEntries).size(),
        1);
    QVERIFY(QDir(folder.Path(QStringLiteral("Data"))).isEmpty());
#else
    QSKIP("only installed on Linux");
#endif
}

QTEST_MAIN(tst_startup)
#include "tst_startup.moc"
