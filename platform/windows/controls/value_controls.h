#pragma once
// The controls whose value the user edits: text box and slider.

#include "platform/dialogs.h"
#include "platform/windows/controls/native_control.h"

namespace pelk {

class Win32TextBox : public Win32Control<TextBox> {
 public:
    /// `dialogs` shows the handlers' exceptions.
    Win32TextBox(const ControlPlace& place, Dialogs& dialogs);
    void setText(const std::string& text) override;
    std::string text() const override;
    void setPlaceholder(const std::string& hint) override;
    void commanded(WORD notification) override;

 private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
    LRESULT handleMessage(UINT message, WPARAM wparam, LPARAM lparam) const;
    std::function<void()> handlerOf(WPARAM key) const;

    Dialogs& dialogs_;
    WNDPROC native_ = nullptr;
    /// Set while code sets the text.
    bool silent_ = false;
};

class Win32Slider : public Win32Control<Slider> {
 public:
    /// `dialogs` shows the handler's exceptions.
    Win32Slider(const ControlPlace& place, Dialogs& dialogs);
    void setRange(int minimum, int maximum) override;
    void setValue(int value) override;
    int value() const override;
    void scrolled() override;

 private:
    Dialogs& dialogs_;
    /// The value last set by code or passed to `onChange`.
    int known_ = 0;
};

}  // namespace pelk
