// Prints how the program's costs compare with their baselines, measured in the same run. Not a test: the
// machine's mood must not fail a build. The name of a group of rows prints these alone. With "count" it
// prints what callgrind's counts belong to instead; see tools/checks/instructions.

#include "tests/bench/Bench.h"

#include <QApplication>
#include <QFile>
#include <QTest>
#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <malloc.h>
#include <vector>

#ifdef CARTOLEN_COUNTING
#include <valgrind/callgrind.h>
#else
#define CALLGRIND_ZERO_STATS
#define CALLGRIND_DUMP_STATS
#endif

namespace {

constexpr int rounds = 9;
/** Of growth: what does not depend on the input's size makes it less, chance a little more. */
constexpr double mostGrowth = 1.05;

bool isCounting = false;
int counts = 0;

double Median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

/** What the offscreen platform cannot do is said at every window, and nothing here depends on it. */
void PassOn(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    if (!message.startsWith(QLatin1String("This plugin does not support"))) {
        std::fprintf(stderr, "%s\n", qPrintable(message));
    }
    if (type == QtFatalMsg) {
        std::abort();
    }
}

struct Group
{
    QLatin1String Name;
    void (*Print)();
};

constexpr std::array groups = {
    Group{ QLatin1String("startup"), BenchStartUp },     Group{ QLatin1String("documents"), BenchDocuments },
    Group{ QLatin1String("views"), BenchViews },         Group{ QLatin1String("finding"), BenchFinding },
    Group{ QLatin1String("checking"), BenchChecking },   Group{ QLatin1String("maps"), BenchMaps },
    Group{ QLatin1String("longlines"), BenchLongLines }, Group{ QLatin1String("pictures"), BenchPictures },
    Group{ QLatin1String("areas"), BenchAreas },         Group{ QLatin1String("outlines"), BenchOutlines }
};

void PrintCounts(const QString& what, const Cost& cost, const Cost& baseline, double target)
{
    std::printf(
        "%s\t%d\t%g\t%d\t%g\t%g\n", qPrintable(what), cost.count, cost.steps, baseline.count, baseline.steps,
        target);
    std::fflush(stdout);
}

} // namespace

bool IsCounting()
{
    return isCounting;
}

void Measured(const std::function<void()>& work)
{
    CALLGRIND_ZERO_STATS;
    work();
    CALLGRIND_DUMP_STATS;
    ++counts;
}

double CpuSeconds()
{
    return double(std::clock()) / CLOCKS_PER_SEC;
}

double SecondsOnce(const std::function<void()>& work)
{
    const double start = CpuSeconds();
    Measured(work);
    return CpuSeconds() - start;
}

Cost CostOfTimed(const std::function<double()>& work)
{
    (void)work();
    if (isCounting) {
        (void)work();
        return { .count = counts };
    }
    ForgetPeak();
    std::vector<double> seconds;
    for (int i = 0; i < rounds; ++i) {
        seconds.push_back(work());
    }
    return { .seconds = Median(seconds), .peak = PeakMegabytes() };
}

Cost CostOf(const std::function<void()>& work, int count)
{
    Cost cost = CostOfTimed([&work, count] { return SecondsOnce(work) / count; });
    cost.steps = count;
    return cost;
}

Cost CostOfTyping(QWidget& editor, int keys)
{
    return CostOf(
        [&editor, keys] {
            for (int i = 0; i < keys; ++i) {
                QTest::keyClick(&editor, Qt::Key_X);
                QCoreApplication::processEvents();
            }
        },
        keys);
}

double PeakMegabytes()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly)) {
        return 0;
    }
    const QByteArray text = status.readAll();
    const qsizetype start = text.indexOf("VmHWM:") + 6;
    return text.mid(start, text.indexOf("kB", start) - start).trimmed().toDouble() / 1024.0;
}

void ForgetPeak()
{
    malloc_trim(0);
    QFile file(QStringLiteral("/proc/self/clear_refs"));
    if (file.open(QIODevice::WriteOnly)) {
        file.write("5");
    }
}

void PrintRow(const QString& what, const Cost& cost, const Cost& baseline, double target)
{
    if (isCounting) {
        PrintCounts(what, cost, baseline, target);
        return;
    }
    std::printf(
        "%-68s %10.3f %10.3f %7.2f  at most %-4g %6.0f\n", qPrintable(what), cost.seconds * 1e3,
        baseline.seconds * 1e3, cost.seconds / baseline.seconds, target, cost.peak);
    std::fflush(stdout);
}

void PrintMemoryRow(const QString& what, double megabytes, double baseline)
{
    if (!isCounting) {
        std::printf(
            "%-68s %10s %10.0f %7.2f  at most %-4g %6.0f\n", qPrintable(what), "", baseline,
            megabytes / baseline, 1.0, megabytes);
        std::fflush(stdout);
    }
}

void PrintGrowth(const QString& what, const Cost& cost, const Cost& ofLess, double times)
{
    if (isCounting) {
        Cost grown = ofLess;
        grown.steps /= times;
        PrintCounts(what, cost, grown, mostGrowth);
    }
}

int main(int argc, char* argv[])
{
    qInstallMessageHandler(PassOn);
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    QStringList tasks = QApplication::arguments().sliced(1);
    isCounting = tasks.removeOne(QLatin1String("count"));
    const QString task = tasks.value(0);
    if (task == QLatin1String("main") || task == QLatin1String("empty")) {
        RunStartUp(task);
        return 0;
    }
    if (!isCounting) {
        std::printf(
            "%-68s %10s %10s %7s  %-12s %6s\n", "what; baseline", "CPU ms", "baseline", "ratio", "target",
            "MB");
    }
    for (const Group& group : groups) {
        if (task.isEmpty() || task == group.Name) {
            group.Print();
        }
    }
    return 0;
}
