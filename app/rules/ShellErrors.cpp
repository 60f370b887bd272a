#include "app/rules/ShellErrors.h"

#include <algorithm>
#include <array>

namespace {

struct ErrorText
{
    int code;
    const char* text;
};

constexpr auto shellErrors = std::to_array<ErrorText>({
    { 0, "Memory Error" },
    { shellFileNotFound, "File not found" },
    { shellPathNotFound, "Path not found" },
    { shellAccessDenied, "Access Denied" },
    { shellOutOfMemory, "Out of Memory" },
    { shellBadFormat, "Bad Executeable Format" },
    { 26, "Sharing violation" },
    { 27, "Association incomplete" },
    { 28, "DEE time out" },
    { 29, "DDE failed" },
    { 30, "DDE Busy error" },
    { shellNoAssociation, "No association for this file" },
});
static_assert(shellErrors.size() == 12 && std::ranges::is_sorted(shellErrors, {}, &ErrorText::code));

constexpr const char* otherwise = "Unknown Error!, Please try again...";

} // namespace

QString ShellErrorText(int code)
{
    const auto* const row = std::ranges::find(shellErrors, code, &ErrorText::code);
    return QString::fromLatin1(row != shellErrors.end() ? row->text : otherwise);
}
