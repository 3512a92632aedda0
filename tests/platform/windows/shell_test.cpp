// The full path of the help viewer, although another program of that name is found first.

#include "platform/windows/windows_shell.h"

#include <gtest/gtest.h>
#include <windows.h>
// Requires the include above.
#include <tlhelp32.h>

#include <string>

#include "platform/windows/wide_text.h"
#include "tests/support/temporary_folder.h"

namespace pelk {
namespace {

/// Returns a child of this process, or null.
HANDLE openChild() {
    const HANDLE all = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    PROCESSENTRY32W entry = {};
    entry.dwSize = sizeof entry;
    HANDLE child = nullptr;
    for (BOOL more = Process32FirstW(all, &entry); more && child == nullptr;
         more = Process32NextW(all, &entry))
        if (entry.th32ParentProcessID == GetCurrentProcessId())
            child = OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION | PROCESS_TERMINATE, FALSE,
                                entry.th32ProcessID);
    CloseHandle(all);
    return child;
}

TEST(WindowsShell, startsTheHelpViewerOfWindowsAndNoOther) {
    const TemporaryFolder folder;
    wchar_t before[MAX_PATH];
    GetCurrentDirectoryW(MAX_PATH, before);
    const std::wstring here = toWide(folder.path());
    ASSERT_TRUE(SetCurrentDirectoryW(here.c_str()));
    ASSERT_TRUE(SetEnvironmentVariableW(L"PATH", here.c_str()));
    ASSERT_TRUE(CopyFileW(L"C:\\windows\\notepad.exe", L"hh.exe", FALSE));
    WindowsShell().openHelp();
    SetCurrentDirectoryW(before);

    const HANDLE viewer = openChild();
    ASSERT_NE(viewer, nullptr);
    wchar_t path[MAX_PATH] = {};
    DWORD length = MAX_PATH;
    EXPECT_TRUE(QueryFullProcessImageNameW(viewer, 0, path, &length));
    TerminateProcess(viewer, 0);
    WaitForSingleObject(viewer, 5000);
    CloseHandle(viewer);
    EXPECT_EQ(CompareStringOrdinal(path, -1, L"C:\\windows\\hh.exe", -1, TRUE), CSTR_EQUAL);
}

}  // namespace
}  // namespace pelk
