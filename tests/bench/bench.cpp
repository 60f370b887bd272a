// Prints how the program's costs compare with their baselines, measured in the same run. Not a test: the
// machine's mood must not fail a build.

#include "tests/bench/Bench.h"

#include <QApplication>
#include <QFile>
#include <algorithm>
#include <cstdio>
#include <ctime>
#include <malloc.h>
#include <vector>

namespace {

constexpr int rounds = 9;

double Median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

} // namespace

double CpuSeconds()
{
    return double(std::clock()) / CLOCKS_PER_SEC;
}

double SecondsOnce(const std::function<void()>& work)
{
    const double start = CpuSeconds();
    work();
    return CpuSeconds() - start;
}

Cost CostOfTimed(const std::function<double()>& work)
{
    (void)work();
    ForgetPeak();
    std::vector<double> seconds;
    for (int i = 0; i < rounds; ++i) {
        seconds.push_back(work());
    }
    return { Median(seconds), PeakMegabytes() };
}

Cost CostOf(const std::function<void()>& work, int count)
{
    return CostOfTimed([&work, count] { return SecondsOnce(work) / count; });
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
    const QByteArray most = target > 0 ? "at most " + QByteArray::number(target) : QByteArray();
    std::printf(
        "%-68s %10.3f %10.3f %7.2f  %-12s %6.0f\n", qPrintable(what), cost.seconds * 1e3,
        baseline.seconds * 1e3, cost.seconds / baseline.seconds, most.constData(), cost.peak);
    std::fflush(stdout);
}

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    if (argc > 1) {
        RunStartUp(QString::fromLocal8Bit(argv[1]));
        return 0;
    }
    std::printf(
        "%-68s %10s %10s %7s  %-12s %6s\n", "what; baseline", "CPU ms", "baseline", "ratio", "target", "MB");
    BenchStartUp();
    BenchDocuments();
    BenchPictures();
    return 0;
}
