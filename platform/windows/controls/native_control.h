#pragma once
// What all controls of the toolkit share: a window of Windows, placed in twips.

#include <windows.h>
// The line above comes first.
#include <commctrl.h>

#include <utility>

#include "platform/controls.h"
#include "platform/error.h"
#include "platform/windows/controls/look.h"
#include "platform/windows/controls/module.h"

namespace pelk {

/// The way from a control or a window of the interface to the native one.
class NativeHandle {
 public:
    virtual ~NativeHandle() = default;
    virtual HWND handle() const = 0;
};

/// What a window passes on to the control that a message came from.
class NativeControl : public NativeHandle {
 public:
    virtual void commanded(WORD /*notification*/) {}
    virtual LRESULT notified(NMHDR&) { return 0; }
    virtual void scrolled() {}
    /// Whether the pointer is the arrow over this control, whatever its window shows.
    virtual bool keepsArrowPointer() const = 0;
};

/// What a control is made from.
struct ControlKind {
    const wchar_t* windowClass;
    DWORD style;
    DWORD extendedStyle = 0;
};

/// Makes the native control, without text and in the user's font; throws `Error` when Windows
/// refuses.
inline HWND createControl(HWND parent, const ControlKind& kind, const Look& look, int id) {
    const WindowScope scope;
    const HWND control = CreateWindowExW(
        kind.extendedStyle, kind.windowClass, L"", kind.style | WS_CHILD | WS_VISIBLE, 0, 0, 0, 0,
        parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), ownModule(), nullptr);
    if (control == nullptr)
        throw Error("Windows has no room for another control.");
    SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(look.font()), TRUE);
    // Tab goes through the controls in the order of their creation.
    SetWindowPos(control, HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    return control;
}

/// Where a control is made: in which window, under which number.
struct ControlPlace {
    HWND parent;
    int id;
    const Look& look;
};

/// A control of the kind `Interface`.
template <class Interface>
class Win32Control : public Interface, public NativeControl {
 public:
    /// Further arguments are the interface's own. The parent destroys the native control.
    template <class... Arguments>
    Win32Control(const ControlPlace& place, const ControlKind& kind, Arguments&&... arguments)
        : Interface(std::forward<Arguments>(arguments)...),
          look_(place.look),
          handle_(createControl(place.parent, kind, place.look, place.id)) {}

    Rect bounds() const override {
        RECT place = {};
        GetWindowRect(handle_, &place);
        MapWindowPoints(nullptr, GetParent(handle_), reinterpret_cast<POINT*>(&place), 2);
        return look_.scale().twips(place);
    }
    void setBounds(const Rect& bounds) override {
        const RECT place = look_.scale().pixels(bounds);
        SetWindowPos(handle_, nullptr, place.left, place.top, place.right - place.left,
                     place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE);
    }
    /// The keyboard does not stay with a control that takes no input.
    void setEnabled(bool enabled) override {
        const HWND window = GetParent(handle_);
        if (!enabled && GetFocus() == handle_) {
            EnableWindow(handle_, FALSE);
            SendMessageW(window, WM_NEXTDLGCTL, 0, FALSE);
            if (GetFocus() == handle_ || GetFocus() == nullptr)
                SetFocus(window);
        }
        EnableWindow(handle_, enabled);
    }
    void keepArrowPointer() override { keepsArrow_ = true; }
    bool keepsArrowPointer() const override { return keepsArrow_; }
    HWND handle() const override { return handle_; }

 protected:
    const Look& look_;

 private:
    HWND handle_;
    bool keepsArrow_ = false;
};

}  // namespace pelk
