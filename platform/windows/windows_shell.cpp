#include "platform/windows/windows_shell.h"

#include <windows.h>
// Requires the include above.
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

/// Uses the full path of the Windows help viewer: a program of that name in the current folder or
/// on the path may be malicious.
std::wstring helpViewer() {
    wchar_t folder[MAX_PATH];
    const UINT length = GetWindowsDirectoryW(folder, MAX_PATH);
    if (length == 0 || length >= MAX_PATH)
        throw Error("The help cannot be opened: the Windows folder is unknown.");
    return std::wstring(folder) + L"\\hh.exe";
}

}  // namespace

std::optional<std::string> WindowsShell::applicationDataFolder() {
    wchar_t path[MAX_PATH];
    // Windows returns S_FALSE for a folder that is named but does not exist.
    if (SHGetFolderPathW(nullptr, CSIDL_APPDATA, nullptr, SHGFP_TYPE_CURRENT, path) != S_OK)
        return std::nullopt;
    return toUtf8(path);
}

std::optional<std::string> WindowsShell::ownFolder() {
    return toUtf8(folderOfModule());
}

/// The viewer itself reports a missing file.
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
