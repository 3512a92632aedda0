#include "platform/windows/windows_shell.h"

#include <windows.h>
// The line above comes first.
#include <shlobj.h>

#include "platform/windows/wide_text.h"

namespace pelk {

std::optional<std::string> WindowsShell::applicationDataFolder() {
    wchar_t path[MAX_PATH];
    // A folder that has a name but is not there gives S_FALSE.
    if (SHGetFolderPathW(nullptr, CSIDL_APPDATA, nullptr, SHGFP_TYPE_CURRENT, path) != S_OK)
        return std::nullopt;
    return toUtf8(path);
}

LocalTime WindowsClock::now() {
    SYSTEMTIME time{};
    GetLocalTime(&time);
    return {time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond};
}

}  // namespace pelk
