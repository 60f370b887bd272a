// The program is killed while it saves: the old file or the new one is there, whole. CARTOLEN_KILLS and
// CARTOLEN_KILLED_BYTES make a longer series of it, with larger files.

#include "tests/app/MainWindowFixture.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QRandomGenerator>
#include <csignal>
#include <cstdio>

namespace {

constexpr int startPatience = 600'000;
constexpr int endPatience = 120'000;

int FromEnvironment(const char* name, int otherwise)
{
    bool isNumber = false;
    const int value = qEnvironmentVariableIntValue(name, &isNumber);
    return isNumber ? value : otherwise;
}

QByteArray Lines(int bytes)
{
    const QByteArray line = QByteArray(98, 'o') + "\r\n";
    return line.repeated(bytes / line.size() + 1).first(bytes);
}

/** Whether `bytes` are what the program has saved after some keys, or `base` itself. */
bool IsWhole(const QByteArray& bytes, const QByteArray& base)
{
    const qsizetype keys = bytes.size() - base.size() - 2;
    return bytes == base || (keys > 0 && bytes.first(keys) == QByteArray(keys, 'x') &&
                             bytes.sliced(keys, base.size()) == base && bytes.endsWith("\r\n"));
}

/** The program, in the role of the one that is killed: it saves `path` with one more key each time, for ever.
 */
int SaveForEver(const QString& path)
{
    MainWindowFixture test;
    test.robot.Hurry();
    if (!test.Start()) {
        return 1;
    }
    test.Open(path);
    if (test.DocumentName() != path) {
        return 1;
    }
    for (;;) {
        test.Editor()->Select(0, 0);
        test.Type("x");
        std::printf("s");
        std::fflush(stdout);
        test.Press(Qt::Key_S, Qt::ControlModifier);
        std::printf(test.window.File().IsChanged() ? "?" : ".");
        std::fflush(stdout);
    }
}

} // namespace

class tst_killedsave : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void killedSaveLeavesTheOldFileOrTheNewOne();
    void terminatedProgramEndsAtOnceAndLeavesTheFileAsSavedLast_data();
    void terminatedProgramEndsAtOnceAndLeavesTheFileAsSavedLast();

private:
    static bool StartSaving(QProcess& program, const QString& path);
};

/** Starts the program on the file `path` and waits until it has saved twice. */
bool tst_killedsave::StartSaving(QProcess& program, const QString& path)
{
    program.start(QCoreApplication::applicationFilePath(), { QStringLiteral("--save"), path });
    QElapsedTimer clock;
    clock.start();
    QByteArray said;
    while (said.count('.') < 2 && clock.elapsed() < startPatience &&
           program.state() != QProcess::NotRunning) {
        program.waitForReadyRead(100);
        said += program.readAllStandardOutput();
    }
    return said.count('.') >= 2 && !said.contains('?');
}

void tst_killedsave::killedSaveLeavesTheOldFileOrTheNewOne()
{
    const int kills = FromEnvironment("CARTOLEN_KILLS", 8);
    const QByteArray base = Lines(FromEnvironment("CARTOLEN_KILLED_BYTES", 2'000'000));
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("page.htm"));
    int inTheAct = 0;
    for (int kill = 0; kill < kills; ++kill) {
        QVERIFY(WriteBytes(path, base));
        QProcess program;
        QVERIFY(StartSaving(program, path));
        // Another save begins; how long one takes is seen from the one before.
        QElapsedTimer clock;
        QByteArray said = program.readAllStandardOutput();
        while (!said.endsWith('s')) {
            QVERIFY(program.waitForReadyRead(endPatience));
            said += program.readAllStandardOutput();
        }
        clock.start();
        while (said.endsWith('s')) {
            QVERIFY(program.waitForReadyRead(endPatience));
            said += program.readAllStandardOutput();
        }
        const qint64 duration = std::max(clock.nsecsElapsed(), qint64(1000));
        while (!said.endsWith('s')) {
            QVERIFY(program.waitForReadyRead(endPatience));
            said += program.readAllStandardOutput();
        }
        const double moment = QRandomGenerator::global()->generateDouble();
        QTest::qSleep(static_cast<int>(moment * static_cast<double>(duration) / 1'000'000));
        program.kill();
        QVERIFY(program.waitForFinished(endPatience));
        said = program.readAllStandardOutput();
        inTheAct += said.isEmpty() ? 1 : 0;
        QVERIFY2(IsWhole(BytesOf(path), base), qPrintable(QStringLiteral("kill %1").arg(kill)));
    }
    // Where the system has files without a name, nothing else is left; between naming and renaming one may
    // be.
    const QStringList names =
        QDir(folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    QVERIFY2(names.size() <= 2, qPrintable(names.join(u' ')));
    qInfo(
        "%d kills, %d of them in the midst of a save; left over: %d", kills, inTheAct, int(names.size()) - 1);
}

void tst_killedsave::terminatedProgramEndsAtOnceAndLeavesTheFileAsSavedLast_data()
{
    QTest::addColumn<int>("signal");
    QTest::newRow("SIGTERM") << SIGTERM;
    QTest::newRow("SIGHUP") << SIGHUP;
    QTest::newRow("SIGINT") << SIGINT;
}

void tst_killedsave::terminatedProgramEndsAtOnceAndLeavesTheFileAsSavedLast()
{
    QFETCH(const int, signal);
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("page.htm"));
    const QByteArray base = Lines(100'000);
    QVERIFY(WriteBytes(path, base));
    QProcess program;
    QVERIFY(StartSaving(program, path));
    QCOMPARE(kill(static_cast<pid_t>(program.processId()), signal), 0);
    QVERIFY(program.waitForFinished(endPatience));
    QCOMPARE(program.exitStatus(), QProcess::CrashExit);
    QCOMPARE(program.exitCode(), signal);
    QVERIFY(IsWhole(BytesOf(path), base));
    QVERIFY(BytesOf(path) != base);
}

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.value(1) == u"--save") {
        return SaveForEver(arguments.value(2));
    }
    tst_killedsave test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_killedsave.moc"
