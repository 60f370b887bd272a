#pragma once

#include <QString>

/** Why the desktop did not do what it was asked; the numbers are those of ShellExecute() of the Windows API.
 */
enum ShellError : int {
    shellFileNotFound = 2,
    shellPathNotFound = 3,
    shellUnknown = 4,
    shellAccessDenied = 5,
    shellOutOfMemory = 8,
    shellBadFormat = 11,
    shellNoAssociation = 31
};

/** What the user is told of an error code. */
[[nodiscard]] QString ShellErrorText(int code);
