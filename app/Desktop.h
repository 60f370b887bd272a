#pragma once

#include "shared/TextEncoding.h"

#include <QString>
#include <functional>
#include <memory>
#include <optional>

/** What the desktop is asked to do with a file or an address, in the terms of ShellExecute() of the Windows
 * API. */
struct ShellRequest
{
    quintptr Window = 0; ///< the native handle of the window that asks
    QString Verb;        ///< "Open" or "Print"
    QString Target;      ///< a file or an address
    QString Parameters;
    QString Folder; ///< the folder to work in
    int ShowMode = 0;
    TextEncoding Encoding = TextEncoding::Windows1252; ///< of a file of text
};

/** Codes below this one are errors. */
inline constexpr int leastShellSuccess = 33;

/** What the program asks of the desktop that it runs on. There is one file for each system. */
class Desktop
{
public:
    using Report = std::function<void(int code)>;

    virtual ~Desktop() = default;

    /**
     * Hands `request` over and returns at once. `report` hears how it went, at once or later: a code from
     * `leastShellSuccess` on, or an error for ShellErrorText().
     */
    virtual void Execute(const ShellRequest& request, const Report& report) = 0;

    /** Shows the system's own About box; false where there is none. */
    [[nodiscard]] virtual bool
    ShowAboutBox(quintptr window, const QString& application, const QString& details) = 0;

    /** Whether the keyboard's Caps Lock is on; nothing where the system does not tell. */
    [[nodiscard]] virtual std::optional<bool> IsCapsLockOn() const = 0;
};

/** Where the program finds and keeps its files; without trailing separators. */
struct ProgramFolders
{
    QString Own;  ///< holds Data and Temp
    QString Help; ///< holds the help file
};

/**
 * The folders of the program whose executable lies in `executableFolder`: that one, which is then left as it
 * is, or, where the program is installed for all users, a folder of the user's own. That one is made as far
 * as it is missing; what goes wrong with it is left to show where the program writes to it.
 */
[[nodiscard]] ProgramFolders PrepareProgramFolders(const QString& executableFolder);

/** The desktop of this system. */
[[nodiscard]] std::unique_ptr<Desktop> MakeDesktop();
