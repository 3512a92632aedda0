#include "platform/windows/controls/access_key_marks.h"

#include <string>
#include <vector>

#include "platform/access_keys.h"
#include "platform/windows/controls/window_text.h"
#include "platform/windows/wide_text.h"

namespace pelk {

namespace {

std::vector<HWND> buttonsOf(HWND window) {
    std::vector<HWND> buttons;
    for (HWND child = GetWindow(window, GW_CHILD); child != nullptr;
         child = GetWindow(child, GW_HWNDNEXT))
        if ((SendMessageW(child, WM_GETDLGCODE, 0, 0) &
             (DLGC_BUTTON | DLGC_RADIOBUTTON | DLGC_UNDEFPUSHBUTTON | DLGC_DEFPUSHBUTTON)) != 0)
            buttons.push_back(child);
    return buttons;
}

}  // namespace

void markAccessKeys(HWND window) {
    const std::vector<HWND> buttons = buttonsOf(window);
    std::vector<std::string> captions;
    for (const HWND button : buttons)
        captions.push_back(toUtf8(textOfWindow(button)));
    captions = withAccessKeys(std::move(captions));
    for (std::size_t at = 0; at < buttons.size(); ++at)
        SetWindowTextW(buttons[at], toWide(captions[at]).c_str());
}

}  // namespace pelk
