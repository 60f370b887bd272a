#pragma once

#include <QString>
#include <functional>

// What the rows of the table are made of. Times are CPU times of the whole process: they hardly depend on
// what else the machine does.

inline constexpr double megabyte = 1024.0 * 1024.0;

/** What some work costs. */
struct Cost
{
    double seconds = 0; ///< of CPU, of one step
    double peak = 0;    ///< most memory that the process had meanwhile, in megabytes
};

/** CPU seconds that this process has used. */
[[nodiscard]] double CpuSeconds();

/** The median cost of one call of `work`, which does `count` steps a call; the first call does not count. */
[[nodiscard]] Cost CostOf(const std::function<void()>& work, int count = 1);

/** The same for work that times itself: `work` returns its CPU seconds. */
[[nodiscard]] Cost CostOfTimed(const std::function<double()>& work);

/** CPU seconds of one call of `work`. */
[[nodiscard]] double SecondsOnce(const std::function<void()>& work);

void ForgetPeak();
[[nodiscard]] double PeakMegabytes();

/** One line of the table; `target` is the ratio that may be reached at most, 0 where there is none. */
void PrintRow(const QString& what, const Cost& cost, const Cost& baseline, double target);

void BenchStartUp();
void BenchDocuments();
void BenchPictures();

/** What a process of its own does for BenchStartUp(): shows the main window, or the "empty" one. */
void RunStartUp(const QString& window);
