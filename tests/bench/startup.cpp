// The cost of starting: processes of their own, from main() to the shown window.

#include "app/frmIMmain.h"
#include "tests/bench/Bench.h"
#include "tests/support/Icons.h"
#include "tests/support/ProgramFolder.h"
#include "tests/support/RecordingDesktop.h"

#include <QApplication>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QProcess>
#include <QPushButton>
#include <QStatusBar>
#include <QTabWidget>
#include <QTest>
#include <QToolBar>
#include <QTreeWidget>
#include <cstdio>
#include <sys/resource.h>

namespace {

constexpr int tagEntries = 169;

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
    frmIMmain window(folder.imgMap, folder.map, desktop);
    window.Form_Load();
    Await(window);
}

/** A window with as many controls of each kind as the main window, with nothing in them. */
void ShowEmptyWindow()
{
    constexpr int labels = 11;
    constexpr int buttons = 3;
    constexpr int menus = 6;
    constexpr int entries = 26;
    constexpr int tools = 13;
    const ProgramFolder folder;
    QMainWindow window;
    auto* const centre = new QWidget(&window);
    auto* const layout = new QHBoxLayout(centre);
    auto* const tabs = new QTabWidget(centre);
    tabs->addTab(new QTreeWidget, QStringLiteral("a"));
    tabs->addTab(new QListWidget, QStringLiteral("b"));
    for (QWidget* const control : std::initializer_list<QWidget*>{ tabs, new QPlainTextEdit, new QLineEdit,
                                                                   new QGroupBox(QStringLiteral("c")) }) {
        layout->addWidget(control);
    }
    for (int i = 0; i < labels; ++i) {
        layout->addWidget(new QLabel(QString::number(i)));
    }
    for (int i = 0; i < buttons; ++i) {
        layout->addWidget(new QPushButton(QString::number(i)));
    }
    for (int i = 0; i < menus; ++i) {
        QMenu* const menu = window.menuBar()->addMenu(QString::number(i));
        for (int j = 0; j < entries / menus; ++j) {
            menu->addAction(QString::number(j));
        }
    }
    QToolBar* const toolbar = window.addToolBar(QString());
    for (int i = 0; i < tools; ++i) {
        toolbar->addAction(QString::number(i));
    }
    window.statusBar()->showMessage(QStringLiteral("d"));
    window.setCentralWidget(centre);
    Await(window);
}

double ChildrensCpuSeconds()
{
    rusage usage{};
    getrusage(RUSAGE_CHILDREN, &usage);
    const auto seconds = [](const timeval& time) { return double(time.tv_sec) + double(time.tv_usec) / 1e6; };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

Cost CostOfProcess(const char* window)
{
    return CostOfTimed([window] {
        const double start = ChildrensCpuSeconds();
        if (QProcess::execute(QCoreApplication::applicationFilePath(), { QString::fromLatin1(window) }) !=
            0) {
            qFatal("the process does not start");
        }
        return ChildrensCpuSeconds() - start;
    });
}

void BenchTagTree()
{
    ProgramFolder folder;
    RecordingDesktop desktop;
    const Cost loaded = CostOfTimed([&folder, &desktop] {
        frmIMmain window(folder.imgMap, folder.map, desktop);
        return SecondsOnce([&window] { window.Form_Load(); });
    });
    const Cost filled = CostOfTimed([] {
        QTreeWidget tree;
        return SecondsOnce([&tree] {
            for (int i = 0; i < tagEntries; ++i) {
                tree.addTopLevelItem(new QTreeWidgetItem({ QString::number(i) }));
            }
        });
    });
    PrintRow(
        QStringLiteral("load the tag tree and the rest; a bare tree of as many entries"), loaded, filled, 10);
}

} // namespace

void RunStartUp(const QString& window)
{
    if (window == QLatin1String("empty")) {
        ShowEmptyWindow();
    } else {
        ShowMainWindow();
    }
}

void BenchStartUp()
{
    LoadIcons();
    if (!IsCounting()) {
        const Cost empty = CostOfProcess("empty");
        PrintRow(
            QStringLiteral("start; an empty window with the same controls"), CostOfProcess("main"), empty,
            1.5);
    }
    BenchTagTree();
}
