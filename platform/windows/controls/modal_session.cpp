#include "platform/windows/controls/modal_session.h"

#include <algorithm>

namespace pelk {

namespace {

/// The sessions of the one thread that has windows, innermost last.
std::vector<ModalSession*>& sessions() {
    static std::vector<ModalSession*> all;
    return all;
}

BOOL CALLBACK addVisible(HWND window, LPARAM windows) {
    if (IsWindowVisible(window))
        reinterpret_cast<std::vector<HWND>*>(windows)->push_back(window);
    return TRUE;
}

}  // namespace

ModalSession::ModalSession(HWND window) : window_(window) {
    std::vector<HWND> windows;
    EnumThreadWindows(GetCurrentThreadId(), addVisible, reinterpret_cast<LPARAM>(&windows));
    for (const HWND other : windows)
        disable(other);
    EnableWindow(window, TRUE);
    sessions().push_back(this);
}

void ModalSession::disable(HWND window) {
    if (window == window_ || !IsWindowEnabled(window))
        return;
    EnableWindow(window, FALSE);
    disabled_.push_back(window);
}

void ModalSession::end() {
    auto& all = sessions();
    const auto self = std::find(all.begin(), all.end(), this);
    if (self == all.end())
        return;
    const auto inner = all.erase(self);
    if (inner != all.end()) {
        auto& later = (*inner)->disabled_;
        later.insert(later.end(), disabled_.begin(), disabled_.end());
    } else {
        for (const HWND window : disabled_)
            EnableWindow(window, TRUE);
    }
    disabled_.clear();
}

void ModalSession::windowShown(HWND window) {
    if (!sessions().empty())
        sessions().back()->disable(window);
}

}  // namespace pelk
