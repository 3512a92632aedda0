#pragma once
// Label, button and progress bar.

#include "platform/dialogs.h"
#include "platform/windows/controls/native_control.h"

namespace pelk {

/// A single line stands in the middle of the height.
class Win32Label : public Win32Control<Label> {
 public:
    explicit Win32Label(const ControlPlace& place);
    void setBounds(const Rect& bounds) override;
    void setText(const std::string& text) override;
    void repaint() override;

 private:
    void align();
};

class Win32Button : public Win32Control<Button> {
 public:
    /// Faults of the click's handler go to `dialogs`.
    Win32Button(const ControlPlace& place, const std::string& text, Dialogs& dialogs);
    void commanded(WORD notification) override;

 private:
    Dialogs& dialogs_;
};

class Win32ProgressBar : public Win32Control<ProgressBar> {
 public:
    explicit Win32ProgressBar(const ControlPlace& place);
    void setRange(int minimum, int maximum) override;
    void setValue(int value) override;
};

}  // namespace pelk
