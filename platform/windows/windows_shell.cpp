#include "platform/windows/windows_shell.h"

#include <windows.h>
// The line above comes first.
#include <shlobj.h>

#include "platform/error.h"
#include "platform/windows/controls/module.h"
#include "platform/windows/wide_text.h"

namespace pelk {
namespace {

std::wstring folderOfModule() {
    const std::wstring path = ownModulePath();
    return path.substr(0, path.rfind(L'\\'));
}

/// The help viewer of Windows itself: a program of that name in the current folder or on the path
/// may be anybody's.
std::wstring helpViewer() {
    wchar_t folder[MAX_PATH];
    const UINT length = GetWindowsDirectoryW(folder, MAX_PATH);
    if (length == 0 || length >= MAX_PATH)
        throw Error("The help cannot be opened: the folder of Windows is not known.");
    return std::wstring(folder) + L"\\hh.exe";
}

}  // namespace

std::optional<std::string> WindowsShell::applicationDataFolder() {
    wchar_t path[MAX_PATH];
    // A folder that has a name but is not there gives S_FALSE.
    if (SHGetFolderPathW(nullptr, CSIDL_APPDATA, nullptr, SHGFP_TYPE_CURRENT, path) != S_OK)
        return std::nullopt;
    return toUtf8(path);
}

std::optional<std::string> WindowsShell::ownFolder() {
    return toUtf8(folderOfModule());
}

/// The viewer itself tells the user when the file is not there.
void WindowsShell::openHelp() {
    const std::wstring viewer = helpViewer();
    std::wstring command = L"\"" + viewer + L"\" \"" + folderOfModule() + L"\\pelk.chm\"";
    STARTUPINFOW startup = {};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESHOWWINDOW;
    startup.wShowWindow = SW_SHOWNORMAL;
    PROCESS_INFORMATION process = {};
    if (!CreateProcessW(viewer.c_str(), command.data(), nullptr, nullptr, FALSE, 0, nullptr,
                        nullptr, &startup, &process))
        throw Error("The help cannot be opened: Windows does not start hh.exe.");
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
}

LocalTime WindowsClock::now() {
    SYSTEMTIME time{};
    GetLocalTime(&time);
    return {time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond};
}

}  // namespace pelk
