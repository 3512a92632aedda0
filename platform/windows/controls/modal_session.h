#pragma once
// A modal window keeps the user from all other windows of its thread, the host's among them.

#include <windows.h>

#include <vector>

namespace pelk {

/// From its construction to `end` or its destruction, the thread's visible windows other than
/// `window` take no input. Sessions nest; when one ends before another that began later, its
/// windows stay disabled until that one ends too.
class ModalSession {
 public:
    explicit ModalSession(HWND window);
    ModalSession(const ModalSession&) = delete;
    ModalSession& operator=(const ModalSession&) = delete;
    ~ModalSession() { end(); }

    void end();

    /// To be called for a window that is about to be shown: while another one is modal, it takes
    /// no input either.
    static void windowShown(HWND window);

 private:
    void disable(HWND window);

    HWND window_;
    std::vector<HWND> disabled_;
};

}  // namespace pelk
