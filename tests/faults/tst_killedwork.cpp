// The program is killed while it is typed and drawn in: at the next start all but the last moments is
// offered, whole. CARTOLEN_KILLS and CARTOLEN_KEPT_MS make a longer series of it, with another interval.

#include "tests/faults/DialogSituations.h"

#include "app/recovery/RecoveryStore.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QRandomGenerator>
#include <array>
#include <cstdio>

namespace {

constexpr int startPatience = 60'000;
constexpr int endPatience = 60'000;
/** What a busy machine may take for keeping a copy besides the interval, in milliseconds. */
constexpr int keepingPatience = 3000;

int FromEnvironment(const char* name, int otherwise)
{
    bool isNumber = false;
    const int value = qEnvironmentVariableIntValue(name, &isNumber);
    return isNumber ? value : otherwise;
}

QString Base()
{
    return QStringLiteral("<p>%1</p>\r\n").arg(QString(70, u'o')).repeated(4000);
}

/** The program, in the role of the one that is killed: it types and draws in `folder`, and tells it. */
int WorkForEver(const QString& folder, int interval)
{
    ImgMap imgMap;
    imgMap.ProgramFolder = folder;
    imgMap.HelpFolder = folder;
    imgMap.KeepingInterval = std::chrono::milliseconds(interval);
    MapDocument map;
    RecordingDesktop desktop;
    DialogRobot robot;
    robot.Hurry();
    frmIMmain window(imgMap, map, desktop);
    window.Form_Load();
    window.show();
    SourceEditor& source = window.Source();
    source.ReplaceSelection(Base());
    window.OpenImageMapEditor();
    robot.ChooseFile(QStringLiteral(CARTOLEN_PICTURE));
    ClickEditorButton(3);
    int keys = 0;
    for (int areas = 0;; ++areas) {
        std::printf("a%d ", areas);
        for (int i = 0; i < 5; ++i) {
            source.Select(0, 0);
            QTest::keyClick(&source, Qt::Key_X, {}, 10);
            std::printf("k%d ", ++keys);
            std::fflush(stdout);
        }
        robot.Act([](QDialog& dialog) {
            TypeIn(&dialog, "cmbLink", "area.htm");
            ClickIn(&dialog, "SSCmdOK");
        });
        DrawRectangle();
        robot.WaitUntilDone();
    }
}

/** What a program has said that it did, and when. */
class Worker
{
public:
    [[nodiscard]] bool Start(const QString& folder, int interval)
    {
        process_.setStandardErrorFile(QProcess::nullDevice());
        process_.start(
            QCoreApplication::applicationFilePath(),
            { QStringLiteral("--work"), folder, QString::number(interval) });
        clock_.start();
        while (said_.isEmpty() && clock_.elapsed() < startPatience &&
               process_.state() != QProcess::NotRunning) {
            process_.waitForReadyRead(100);
            Listen();
        }
        return !said_.isEmpty();
    }

    void Listen()
    {
        process_.waitForReadyRead(1);
        for (const QByteArray& word : process_.readAllStandardOutput().split(' ')) {
            if (word.size() > 1) {
                said_ << Word{ word.front(), word.sliced(1).toInt(), clock_.elapsed() };
            }
        }
    }

    [[nodiscard]] bool Kill()
    {
        Listen();
        killed_ = clock_.elapsed();
        process_.kill();
        return process_.waitForFinished(endPatience);
    }

    /** The last `what` that it has told `before` it was killed, in milliseconds; 0 when it has not. */
    [[nodiscard]] int Told(char what, int before) const
    {
        int number = 0;
        for (const Word& word : said_) {
            number = word.what == what && word.time <= killed_ - before ? word.number : number;
        }
        return number;
    }

private:
    struct Word
    {
        char what;
        int number;
        qint64 time;
    };

    QProcess process_;
    QElapsedTimer clock_;
    QList<Word> said_;
    qint64 killed_ = 0;
};

/** How many keys came before the base in `text`; nothing when it is torn. */
std::optional<int> KeysIn(const QString& text)
{
    const qsizetype keys = text.size() - Base().size();
    const bool isWhole = keys >= 0 && text.endsWith(Base()) && text.first(keys) == QString(keys, u'x');
    return isWhole ? std::optional(int(keys)) : std::nullopt;
}

} // namespace

class tst_killedwork : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void killedProgramsLeaveTheirWork();

private:
    static void CheckLeft(const QString& folder, const Worker& worker, int interval);
};

/** What `worker`, the last that was killed, has left behind, and nothing else, is offered; takes it away. */
void tst_killedwork::CheckLeft(const QString& folder, const Worker& worker, int interval)
{
    RecoveryStore store(folder);
    const QList<LeftBehind> all = store.TakeLeftBehind();
    const int late = interval + keepingPatience;
    const int keys = worker.Told('k', late);
    const int areas = worker.Told('a', late);
    QVERIFY(all.size() <= 1);
    if (all.isEmpty()) {
        QCOMPARE(keys, 0);
        return;
    }
    const LeftBehind& left = all.constFirst();
    QVERIFY(left.Page || keys == 0);
    if (left.Page) {
        const std::optional<int> kept = KeysIn(left.Page->Pieces.join(QString()));
        QVERIFY(kept);
        QVERIFY2(*kept >= keys, qPrintable(QStringLiteral("%1 of %2 keys").arg(*kept).arg(keys)));
    }
    const int keptAreas = left.Map ? int(left.Map->State.Areas.size()) : 0;
    QVERIFY2(keptAreas >= areas, qPrintable(QStringLiteral("%1 of %2 areas").arg(keptAreas).arg(areas)));
    qInfo(
        "%lld of %d keys, %d of %d areas",
        left.Page ? left.Page->Pieces.join(QString()).size() - Base().size() : 0, worker.Told('k', 0),
        keptAreas, worker.Told('a', 0));
    store.Remove(left);
}

void tst_killedwork::killedProgramsLeaveTheirWork()
{
    const int rounds = FromEnvironment("CARTOLEN_KILLS", 10) / 2;
    const int interval = FromEnvironment("CARTOLEN_KEPT_MS", 400);
    QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("Data")));
    for (int round = 0; round < rounds; ++round) {
        // Two at a time, which must not disturb each other.
        std::array<Worker, 2> workers;
        for (Worker& worker : workers) {
            QVERIFY(worker.Start(folder.path(), interval));
        }
        for (Worker& worker : workers) {
            const qint64 life = QRandomGenerator::global()->bounded(2 * interval + keepingPatience);
            QElapsedTimer clock;
            clock.start();
            while (clock.elapsed() < life) {
                workers.front().Listen();
                workers.back().Listen();
            }
            QVERIFY(worker.Kill());
            CheckLeft(folder.path(), worker, interval);
            if (QTest::currentTestFailed()) {
                return;
            }
        }
    }
    QVERIFY(!QFile::exists(folder.filePath(QStringLiteral("Data/Recovery"))));
}

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.value(1) == u"--work") {
        return WorkForEver(arguments.value(2), arguments.value(3).toInt());
    }
    tst_killedwork test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_killedwork.moc"
