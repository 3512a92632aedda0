#include "platform/windows/controls/file_dialog.h"

#include <windows.h>
// Requires the include above.
#include <commdlg.h>

#include <algorithm>

#include "platform/windows/controls/modal_session.h"
#include "platform/windows/controls/module.h"

namespace pelk {
namespace {

/// The longest path that Windows supports.
constexpr std::size_t kLongestPath = 32768;

/// Returns the extension of the first pattern: "txt" for "Texts|*.txt".
std::wstring defaultExtension(const std::wstring& filter) {
    const std::size_t pattern = filter.find(L"|*.");
    if (pattern == std::wstring::npos)
        return {};
    const std::size_t start = pattern + 3;
    return filter.substr(start, filter.find(L'|', start) - start);
}

}  // namespace

std::wstring chooseFile(FilePurpose purpose, const std::wstring& title, std::wstring filter) {
    const WindowScope scope;
    const HWND owner = GetActiveWindow();
    const ModalSession modal(owner);
    const std::wstring extension = defaultExtension(filter);
    std::replace(filter.begin(), filter.end(), L'|', L'\0');
    filter += L'\0';
    std::wstring path(kLongestPath, L'\0');
    OPENFILENAMEW box = {};
    box.lStructSize = sizeof box;
    box.hwndOwner = owner;
    box.lpstrFilter = filter.c_str();
    box.lpstrFile = path.data();
    box.nMaxFile = static_cast<DWORD>(path.size());
    box.lpstrTitle = title.c_str();
    box.lpstrDefExt = extension.c_str();
    box.Flags = OFN_EXPLORER | OFN_HIDEREADONLY | OFN_NOCHANGEDIR | OFN_PATHMUSTEXIST;
    const bool chosen = purpose == FilePurpose::Open
                            ? (box.Flags |= OFN_FILEMUSTEXIST, GetOpenFileNameW(&box)) != FALSE
                            : (box.Flags |= OFN_OVERWRITEPROMPT, GetSaveFileNameW(&box)) != FALSE;
    return chosen ? std::wstring(path.c_str()) : std::wstring();
}

}  // namespace pelk
