// The desktop of Windows: its shell. Texts go over in the system's ANSI code page.

#include "app/Desktop.h"

#include <windows.h>

#include <shellapi.h>

namespace {

class WindowsDesktop : public Desktop
{
public:
    void Execute(const ShellRequest& request, const Report& report) override
    {
        const HINSTANCE result = ShellExecuteA(
            reinterpret_cast<HWND>(request.Window), request.Verb.toLocal8Bit().constData(),
            request.Target.toLocal8Bit().constData(), request.Parameters.toLocal8Bit().constData(),
            request.Folder.toLocal8Bit().constData(), request.ShowMode);
        // The shell tells its code as a handle for the sake of programs much older than this one.
        report(static_cast<int>(reinterpret_cast<INT_PTR>(result)));
    }

    bool ShowAboutBox(quintptr window, const QString& application, const QString& details) override
    {
        // The icon of packaging/windows/cartolen.rc.in; without one, as in the tests, the box shows the
        // system's.
        const HICON icon = LoadIconA(GetModuleHandleA(nullptr), "IDI_ICON1");
        return ShellAboutA(
                   reinterpret_cast<HWND>(window), application.toLocal8Bit().constData(),
                   details.toLocal8Bit().constData(), icon) != 0;
    }
};

} // namespace

// The program comes as a folder that users put where they may write.
ProgramFolders PrepareProgramFolders(const QString& executableFolder)
{
    return { executableFolder, executableFolder };
}

std::unique_ptr<Desktop> MakeDesktop()
{
    return std::make_unique<WindowsDesktop>();
}
