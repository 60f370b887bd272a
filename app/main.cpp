#include "app/Desktop.h"
#include "app/RunningProgram.h"
#include "app/Startup.h"
#include "app/rules/NamedFiles.h"
#include "imagemap/model/MapDocument.h"

#include <QApplication>
#include <QDir>
#include <csignal>

int main(int argc, char* argv[])
{
#ifdef SIGXFSZ
    // A file that may not grow any more is an error that a save reports, no reason to end the program.
    std::signal(SIGXFSZ, SIG_IGN);
#endif
#ifdef SIGPIPE
    std::signal(SIGPIPE, SIG_IGN);
#endif
    QApplication application(argc, argv);
    QApplication::setApplicationName(applicationTitle.toString());
    // By this name desktops find the program's entry in their menus, and with it the icon of its windows.
    QApplication::setDesktopFileName(QStringLiteral("example.cartolen.cartolen"));
    // The main window ends the program itself; between the splash panel and it no window is shown.
    QApplication::setQuitOnLastWindowClosed(false);

    ImgMap imgMap;
    MapDocument map;
    const ProgramFolders folders = PrepareProgramFolders(QApplication::applicationDirPath());
    imgMap.ProgramFolder = folders.Own;
    imgMap.HelpFolder = folders.Help;
    imgMap.Remembered.Open(folders.Own);
    const QStringList files = FilesNamedBy(QApplication::arguments().sliced(1), QDir::currentPath());
    RunningProgram running(folders.Own);
    if (!files.isEmpty() && running.HandOver(files)) {
        return 0;
    }
    const std::unique_ptr<Desktop> desktop = MakeDesktop();
    Startup startup(imgMap, map, *desktop);
    QObject::connect(&running, &RunningProgram::FilesCame, &startup, &Startup::OpenFiles);
    running.Listen();
    startup.Begin();
    startup.OpenFiles(files);
    return QApplication::exec();
}
