// The cost of starting: processes of their own, from main() to the shown window.

#include "app/frmIMmain.h"
#include "tests/bench/Bench.h"
#include "tests/support/Icons.h"
#include "tests/support/ProgramFolder.h"
#include "tests/support/RecordingDesktop.h"

#include <QApplication>
#include <QProcess>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>
#include <cstdio>
#include <sys/resource.h>

namespace {

void Await(QWidget& window)
{
    window.show();
    if (!QTest::qWaitForWindowExposed(&window)) {
        qFatal("the window does not show");
    }
    QCoreApplication::processEvents();
}

void ShowMainWindow()
{
    LoadIcons();
    ProgramFolder folder;
    RecordingDesktop desktop;
    frmIMmain window(folder.imgMap, desktop);
    window.Form_Load();
    Await(window);
}

void ShowEmptyWindow(int controls)
{
    ProgramFolder folder;
    QWidget window;
    QVBoxLayout layout(&window);
    for (int i = 0; i < controls; ++i) {
        layout.addWidget(new QPushButton(QString::number(i), &window));
    }
    Await(window);
}

int ControlsOfMainWindow()
{
    ProgramFolder folder;
    RecordingDesktop desktop;
    const frmIMmain window(folder.imgMap, desktop);
    return static_cast<int>(window.findChildren<QWidget*>().size());
}

double ChildrensCpuSeconds()
{
    rusage usage{};
    getrusage(RUSAGE_CHILDREN, &usage);
    const auto seconds = [](const timeval& time) { return double(time.tv_sec) + double(time.tv_usec) / 1e6; };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

Cost CostOfProcess(int controls)
{
    return CostOfTimed([controls] {
        const double start = ChildrensCpuSeconds();
        if (QProcess::execute(QCoreApplication::applicationFilePath(), { QString::number(controls) }) != 0) {
            qFatal("the process does not start");
        }
        return ChildrensCpuSeconds() - start;
    });
}

void BenchTagTree()
{
    ProgramFolder folder;
    RecordingDesktop desktop;
    const auto load = [&folder, &desktop] {
        frmIMmain window(folder.imgMap, desktop);
        window.Form_Load();
    };
    const auto make = [&folder, &desktop] { const frmIMmain window(folder.imgMap, desktop); };
    Cost tree = CostOf(load);
    tree.seconds -= CostOf(make).seconds;
    constexpr double most = 0.01;
    PrintRow(QStringLiteral("build the tag tree and load what else there is; 10 ms"), tree, { most, 0 }, 1);
}

} // namespace

void RunStartUp(int controls)
{
    if (controls > 0) {
        ShowEmptyWindow(controls);
    } else {
        ShowMainWindow();
    }
}

void BenchStartUp()
{
    LoadIcons();
    const Cost empty = CostOfProcess(ControlsOfMainWindow());
    PrintRow(QStringLiteral("start; an empty window with as many controls"), CostOfProcess(0), empty, 1.5);
    BenchTagTree();
}
