#include "platform/windows/controls/clipboard.h"

#include <windows.h>

#include <algorithm>

#include "platform/error.h"
#include "platform/windows/controls/module.h"

namespace pelk {

namespace {

constexpr int kTries = 10;
constexpr DWORD kPauseInMilliseconds = 20;

/// Opens the clipboard and closes it. Only a window can put text on the clipboard.
class OpenClipboardScope {
 public:
    OpenClipboardScope()
        : owner_(CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                 ownModule(), nullptr)) {
        for (int tries = 0; !open_ && tries < kTries; ++tries) {
            if (tries > 0)
                Sleep(kPauseInMilliseconds);
            open_ = owner_ != nullptr && OpenClipboard(owner_);
        }
    }
    OpenClipboardScope(const OpenClipboardScope&) = delete;
    OpenClipboardScope& operator=(const OpenClipboardScope&) = delete;
    ~OpenClipboardScope() {
        if (open_)
            CloseClipboard();
        DestroyWindow(owner_);
    }

    bool isOpen() const { return open_; }

 private:
    HWND owner_;
    bool open_ = false;
};

std::wstring withWindowsLines(const std::wstring& text) {
    std::wstring lines;
    for (const wchar_t letter : text) {
        if (letter == L'\n' && !lines.ends_with(L'\r'))
            lines += L'\r';
        lines += letter;
    }
    return lines;
}

/// Returns the text in global memory; null when there is not enough memory.
HGLOBAL copyForClipboard(const std::wstring& text) {
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, (text.size() + 1) * sizeof(wchar_t));
    if (memory != nullptr) {
        auto* const copy = static_cast<wchar_t*>(GlobalLock(memory));
        std::copy_n(text.c_str(), text.size() + 1, copy);
        GlobalUnlock(memory);
    }
    return memory;
}

}  // namespace

void putOnClipboard(const std::wstring& text) {
    const OpenClipboardScope clipboard;
    if (!clipboard.isOpen())
        throw Error("The text was not copied: another program is using the clipboard.");
    const HGLOBAL copy = copyForClipboard(withWindowsLines(text));
    const bool placed =
        copy != nullptr && EmptyClipboard() && SetClipboardData(CF_UNICODETEXT, copy) != nullptr;
    if (!placed) {
        GlobalFree(copy);
        throw Error("The text was not copied: Windows could not put it on the clipboard.");
    }
}

}  // namespace pelk
