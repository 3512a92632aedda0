#include "platform/windows/controls/display.h"

#include "platform/windows/controls/clipboard.h"
#include "platform/windows/controls/pointer.h"
#include "platform/windows/wide_text.h"

namespace pelk {

void Win32Display::copyToClipboard(const std::string& text) {
    putOnClipboard(toWide(text));
}

void Win32Display::setBusyPointer(bool busy) {
    if (busy != isPointerBusy())
        setPointerBusy(busy);
}

/// A request to quit is the host's; it is left for the host's own loop.
void Win32Display::processPendingEvents() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

}  // namespace pelk
