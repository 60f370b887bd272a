#pragma once

#include <QString>
#include <functional>

// What the rows of the table are made of. Times are CPU times of the whole process: they hardly depend on
// what else the machine does. Counting instructions depends on nothing, but takes fifty times as long: all is
// done once then, under callgrind, which writes down what each Measured() call took and begins anew.

class QWidget;

inline constexpr double megabyte = 1024.0 * 1024.0;

/** What some work costs. */
struct Cost
{
    double seconds = 0; ///< of CPU, of one step
    double peak = 0;    ///< most memory that the process had meanwhile, in megabytes
    int count = 0;      ///< which of callgrind's counts it is, from 1
    double steps = 1;   ///< how many of these the count is of
};

/** Whether instructions are counted. */
[[nodiscard]] bool IsCounting();

/** Calls `work` and lets callgrind count it. */
void Measured(const std::function<void()>& work);

/** CPU seconds that this process has used. */
[[nodiscard]] double CpuSeconds();

/** The median cost of one call of `work`, which does `count` steps a call; the first call does not count. */
[[nodiscard]] Cost CostOf(const std::function<void()>& work, int count = 1);

/** The same for work that times itself: `work` returns its CPU seconds. */
[[nodiscard]] Cost CostOfTimed(const std::function<double()>& work);

/** The cost of a key, one of so many that are typed into `editor`, from the event to the painted window. */
[[nodiscard]] Cost CostOfTyping(QWidget& editor, int keys);

/** CPU seconds of one call of `work`. */
[[nodiscard]] double SecondsOnce(const std::function<void()>& work);

void ForgetPeak();
[[nodiscard]] double PeakMegabytes();

/** One line of the table; `target` is the ratio that may be reached at most. */
void PrintRow(const QString& what, const Cost& cost, const Cost& baseline, double target);

/** A line for memory, in megabytes: no more than the baseline. Where instructions are counted there is none.
 */
void PrintMemoryRow(const QString& what, double megabytes, double baseline);

/**
 * A line for the cost of input so many times as large, where instructions are counted: it may grow as the
 * input. Times tell less of that, since large input leaves the processor's caches.
 */
void PrintGrowth(const QString& what, const Cost& cost, const Cost& ofLess, double times);

void BenchStartUp();
void BenchDocuments();
void BenchViews();
void BenchFinding();
void BenchChecking();
void BenchMaps();
void BenchLongLines();
void BenchPictures();
void BenchAreas();
void BenchOutlines();

/** What a process of its own does for BenchStartUp(): shows the main window, or the "empty" one. */
void RunStartUp(const QString& window);
