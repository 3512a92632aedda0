#pragma once
// What all controls of the toolkit share: a native window with bounds in twips.

#include <windows.h>
// Requires the include above.
#include <commctrl.h>

#include <utility>

#include "platform/controls.h"
#include "platform/error.h"
#include "platform/windows/controls/look.h"
#include "platform/windows/controls/module.h"
#include "platform/windows/controls/strips.h"

namespace pelk {

/// Gives adapters the native window of a control or window.
class NativeHandle {
 public:
    virtual ~NativeHandle() = default;
    virtual HWND handle() const = 0;
};

/// Receives the messages that a window forwards to its control.
class NativeControl : public NativeHandle {
 public:
    virtual void commanded(WORD /*notification*/) {}
    virtual LRESULT notified(NMHDR&) { return 0; }
    virtual void scrolled() {}
    /// Called before the window is destroyed: what the handlers need may be gone.
    virtual void forgetHandlers() {}
    /// Whether the pointer is the arrow over this control even while the window is busy.
    virtual bool keepsArrowPointer() const = 0;
};

/// The class and styles of a native control.
struct ControlKind {
    const wchar_t* windowClass;
    DWORD style;
    DWORD extendedStyle = 0;
};

/// Creates the native control without text, in the user's font. Throws `Error` when Windows
/// refuses.
inline HWND createControl(HWND parent, const ControlKind& kind, const Look& look, int id) {
    const WindowScope scope;
    const HWND control = CreateWindowExW(
        kind.extendedStyle, kind.windowClass, L"", kind.style | WS_CHILD | WS_VISIBLE, 0, 0, 0, 0,
        parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), ownModule(), nullptr);
    if (control == nullptr)
        throw Error("Windows has no room for another control.");
    SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(look.font()), TRUE);
    // Tab follows the order of creation.
    SetWindowPos(control, HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    return control;
}

/// The window and the id of a new control.
struct ControlPlace {
    HWND parent;
    int id;
    const Look& look;
};

/// Implements the control `Interface` with a native window.
template <class Interface>
class Win32Control : public Interface, public NativeControl {
 public:
    /// Further arguments are passed to `Interface`. The parent destroys the native control.
    template <class... Arguments>
    Win32Control(const ControlPlace& place, const ControlKind& kind, Arguments&&... arguments)
        : Interface(std::forward<Arguments>(arguments)...),
          look_(place.look),
          handle_(createControl(place.parent, kind, place.look, place.id)) {}

    Rect bounds() const override {
        RECT place = {};
        GetWindowRect(handle_, &place);
        MapWindowPoints(nullptr, GetParent(handle_), reinterpret_cast<POINT*>(&place), 2);
        OffsetRect(&place, 0, -innerTop());
        return look_.scale().twips(place);
    }
    void setBounds(const Rect& bounds) override {
        RECT place = look_.scale().pixels(bounds);
        OffsetRect(&place, 0, innerTop());
        SetWindowPos(handle_, nullptr, place.left, place.top, place.right - place.left,
                     place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE);
    }
    /// Moves the focus on from a control that is disabled.
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
    /// The message also tells the window which button is now the default one.
    void focus() override {
        SendMessageW(GetParent(handle_), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(handle_), TRUE);
    }
    void keepArrowPointer() override { keepsArrow_ = true; }
    bool keepsArrowPointer() const override { return keepsArrow_; }
    HWND handle() const override { return handle_; }

 protected:
    const Look& look_;

 private:
    int innerTop() const { return stripsOf(GetParent(handle_)).above; }

    HWND handle_;
    bool keepsArrow_ = false;
};

}  // namespace pelk
