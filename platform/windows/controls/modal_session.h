#pragma once
// Blocks input to all other windows of the thread, the host's included, while a window is modal.

#include <windows.h>

#include <vector>

namespace pelk {

/// Until `end` or destruction, the thread's visible windows other than `window` take no input.
/// Sessions nest; if an outer one ends first, its windows stay disabled until the inner one ends.
class ModalSession {
 public:
    explicit ModalSession(HWND window);
    ModalSession(const ModalSession&) = delete;
    ModalSession& operator=(const ModalSession&) = delete;
    ~ModalSession() { end(); }

    void end();

    /// Must be called before a window is shown: while another one is modal, it takes no input
    /// either.
    static void windowShown(HWND window);

 private:
    void disable(HWND window);

    HWND window_;
    std::vector<HWND> disabled_;
};

}  // namespace pelk
