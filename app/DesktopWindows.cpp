// The desktop of Windows: its shell. Texts go over in UTF-16: the system's code page lacks characters that
// names may have.

#include "app/Desktop.h"

#include <windows.h>

#include <shellapi.h>

namespace {

const wchar_t* Wide(const QString& text)
{
    return reinterpret_cast<const wchar_t*>(text.utf16());
}

class WindowsDesktop : public Desktop
{
public:
    void Execute(const ShellRequest& request, const Report& report) override
    {
        const HINSTANCE result = ShellExecuteW(
            reinterpret_cast<HWND>(request.Window), Wide(request.Verb), Wide(request.Target),
            Wide(request.Parameters), Wide(request.Folder), request.ShowMode);
        // The shell tells its code as a handle for the sake of programs much older than this one.
        report(static_cast<int>(reinterpret_cast<INT_PTR>(result)));
    }

    bool ShowAboutBox(quintptr window, const QString& application, const QString& details) override
    {
        // The icon of packaging/windows/cartolen.rc.in; without one, as in the tests, the box shows the
        // system's.
        const HICON icon = LoadIconW(GetModuleHandleW(nullptr), L"IDI_ICON1");
        return ShellAboutW(reinterpret_cast<HWND>(window), Wide(application), Wide(details), icon) != 0;
    }

    [[nodiscard]] std::optional<bool> IsCapsLockOn() const override
    {
        constexpr int toggled = 1;
        return (GetKeyState(VK_CAPITAL) & toggled) != 0;
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
