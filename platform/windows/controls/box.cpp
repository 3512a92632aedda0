#include "platform/windows/controls/box.h"

#include <algorithm>

#include "platform/windows/controls/dialog_template.h"
#include "platform/windows/controls/modal_session.h"
#include "platform/windows/controls/module.h"
#include "platform/windows/controls/native_control.h"
#include "platform/windows/controls/screen_dc.h"
#include "platform/windows/controls/window_text.h"

namespace pelk {

namespace {

// In twips.
constexpr int kMargin = 165;
constexpr int kTextWidth = 5400;
constexpr Size kButtonSize{1200, 330};
constexpr int kLineHeight = 300;

constexpr int kTextId = 0xFFFF;
constexpr int kLineId = 100;

void place(HWND control, const RECT& bounds) {
    SetWindowPos(control, nullptr, bounds.left, bounds.top, bounds.right - bounds.left,
                 bounds.bottom - bounds.top, SWP_NOZORDER | SWP_NOACTIVATE);
}

/// Centres the box over its owner, as far as the screen allows.
void placeWindow(HWND box, SIZE size) {
    MONITORINFO monitor = {};
    monitor.cbSize = sizeof monitor;
    const HWND owner = GetWindow(box, GW_OWNER);
    GetMonitorInfoW(MonitorFromWindow(owner, MONITOR_DEFAULTTOPRIMARY), &monitor);
    RECT around = monitor.rcWork;
    if (owner != nullptr && !IsIconic(owner))
        GetWindowRect(owner, &around);
    const auto within = [](LONG wanted, LONG least, LONG most) {
        return std::max(least, std::min(wanted, most));
    };
    const RECT& space = monitor.rcWork;
    SetWindowPos(
        box, nullptr,
        within((around.left + around.right - size.cx) / 2, space.left, space.right - size.cx),
        within((around.top + around.bottom - size.cy) / 2, space.top, space.bottom - size.cy),
        size.cx, size.cy, SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace

void Box::addLine(std::wstring initial, std::size_t selected) {
    hasLine_ = true;
    line_ = std::move(initial);
    selected_ = selected;
}

int Box::show() {
    const EmptyTemplate empty(WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME);
    const HWND owner = GetActiveWindow();
    const WindowScope scope;
    // Windows re-enables the owner itself, at the right moment.
    ModalSession session(owner);
    if (owner == nullptr)
        MessageBeep(MB_OK);
    return static_cast<int>(DialogBoxIndirectParamW(ownModule(), &empty.header, owner, procedure,
                                                    reinterpret_cast<LPARAM>(this)));
}

INT_PTR CALLBACK Box::procedure(HWND box, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(box, DWLP_USER, lparam);
        auto& self = *reinterpret_cast<Box*>(lparam);
        try {
            self.build(box);
        } catch (...) {  // A box that cannot be shown counts as closed.
            EndDialog(box, self.closing_);
        }
        return FALSE;
    }
    auto* const self = reinterpret_cast<Box*>(GetWindowLongPtrW(box, DWLP_USER));
    if (self == nullptr || message != WM_COMMAND)
        return FALSE;
    const int id = LOWORD(wparam);
    const auto& buttons = self->buttons_;
    if (std::any_of(buttons.begin(), buttons.end(), [id](auto& button) { return button.id == id; }))
        self->end(box, id);
    else if (id == IDCANCEL)
        self->end(box, self->closing_);
    return TRUE;
}

void Box::end(HWND box, int button) {
    if (hasLine_)
        line_ = textOfWindow(GetDlgItem(box, kLineId));
    EndDialog(box, button);
}

/// The text is at the top, the line below it, the buttons at the lower right.
void Box::build(HWND box) {
    SetWindowTextW(box, title_.c_str());
    SendMessageW(box, WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(look_.smallIcon()));
    const TwipScale& scale = look_.scale();
    const int margin = scale.pixels(kMargin);
    const SIZE buttonSize = scale.pixels(kButtonSize);
    const int buttonCount = static_cast<int>(buttons_.size());
    const SIZE text = ScreenDc(look_.font()).sizeOf(text_, scale.pixels(kTextWidth));
    const int buttonsWidth = buttonCount * (static_cast<int>(buttonSize.cx) + margin) - margin;
    const int width = std::max(
        {static_cast<int>(text.cx), buttonsWidth, hasLine_ ? scale.pixels(kTextWidth) : 0});

    const HWND label = createControl(box, {L"STATIC", SS_LEFT | SS_NOPREFIX}, look_, kTextId);
    SetWindowTextW(label, text_.c_str());
    place(label, {margin, margin, margin + width, margin + text.cy});
    int bottom = margin + static_cast<int>(text.cy) + margin;
    HWND focus = nullptr;
    if (hasLine_) {
        focus = createControl(box, {L"EDIT", ES_AUTOHSCROLL | WS_TABSTOP, WS_EX_CLIENTEDGE}, look_,
                              kLineId);
        SetWindowTextW(focus, line_.c_str());
        place(focus, {margin, bottom, margin + width, bottom + scale.pixels(kLineHeight)});
        bottom += scale.pixels(kLineHeight) + margin;
    }
    int left = margin + width - buttonsWidth;
    for (const BoxButton& button : buttons_) {
        const bool isDefault = button.id == default_;
        const DWORD style = (isDefault ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON) | WS_TABSTOP;
        const HWND native = createControl(box, {L"BUTTON", style}, look_, button.id);
        SetWindowTextW(native, button.text);
        place(native, {left, bottom, left + buttonSize.cx, bottom + buttonSize.cy});
        left += static_cast<int>(buttonSize.cx) + margin;
        if (!isDefault)
            continue;
        SendMessageW(box, DM_SETDEFID, static_cast<WPARAM>(button.id), 0);
        if (focus == nullptr)
            focus = native;
    }
    RECT frame = {0, 0, width + 2 * margin, bottom + buttonSize.cy + margin};
    AdjustWindowRectEx(&frame, static_cast<DWORD>(GetWindowLongPtrW(box, GWL_STYLE)), FALSE,
                       static_cast<DWORD>(GetWindowLongPtrW(box, GWL_EXSTYLE)));
    placeWindow(box, {frame.right - frame.left, frame.bottom - frame.top});
    SendMessageW(box, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(focus), TRUE);
    // Moving the focus has selected all of the text.
    if (hasLine_)
        SendMessageW(focus, EM_SETSEL, 0, static_cast<LPARAM>(selected_));
}

}  // namespace pelk
