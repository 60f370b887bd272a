#include "tests/soak/Usage.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QWidget>

#ifdef Q_OS_LINUX
#include <malloc.h>
#include <unistd.h>
#endif

namespace {

qint64 HeapBytes()
{
#ifdef Q_OS_LINUX
    const struct mallinfo2 info = mallinfo2();
    return static_cast<qint64>(info.uordblks + info.hblkhd);
#else
    return 0;
#endif
}

qint64 ResidentBytes()
{
#ifdef Q_OS_LINUX
    QFile file(QStringLiteral("/proc/self/statm"));
    if (file.open(QIODevice::ReadOnly)) {
        return file.readAll().split(' ').value(1).toLongLong() * sysconf(_SC_PAGESIZE);
    }
#endif
    return 0;
}

qint64 OpenFiles()
{
    // The listing itself holds one more, always.
    return QDir(QStringLiteral("/proc/self/fd")).entryList(QDir::AllEntries | QDir::System).size();
}

} // namespace

QString Usage::ToText() const
{
    return QStringLiteral("heap %1 KB, resident %2 KB, %3 windows, %4 widgets, %5 files")
        .arg(heapBytes / 1024)
        .arg(residentBytes / 1024)
        .arg(windows)
        .arg(widgets)
        .arg(files);
}

Usage MeasureUsage()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
    return { .heapBytes = HeapBytes(),
             .residentBytes = ResidentBytes(),
             .windows = QApplication::topLevelWidgets().size(),
             .widgets = QApplication::allWidgets().size(),
             .files = OpenFiles() };
}
