#pragma once
// Label, picture, buttons and progress bar.

#include "platform/dialogs.h"
#include "platform/windows/controls/native_control.h"

namespace pelk {

/// A single line is centred vertically.
class Win32Label : public Win32Control<Label> {
 public:
    explicit Win32Label(const ControlPlace& place);
    void setBounds(const Rect& bounds) override;
    void setText(const std::string& text) override;
    void repaint() override;

 private:
    void align();
};

/// The image is as large as the bounds allow.
class Win32Picture : public Win32Control<Picture> {
 public:
    Win32Picture(const ControlPlace& place, TreeImage image);
    ~Win32Picture() override;
    void setBounds(const Rect& bounds) override;

 private:
    TreeImage image_;
    HICON icon_ = nullptr;
};

class Win32Button : public Win32Control<Button> {
 public:
    /// `dialogs` shows the handler's exceptions.
    Win32Button(const ControlPlace& place, const std::string& text, Dialogs& dialogs);
    void commanded(WORD notification) override;

 private:
    Dialogs& dialogs_;
};

class Win32OptionButton : public Win32Control<OptionButton> {
 public:
    /// `dialogs` shows the handler's exceptions.
    Win32OptionButton(const ControlPlace& place, const std::string& text, Dialogs& dialogs);
    void setChecked(bool checked) override;
    void commanded(WORD notification) override;

    /// Must be called for a control that was just added: the arrow keys then stay within the option
    /// buttons before it.
    static void endGroupBefore(HWND control);

 private:
    void joinGroup() const;
    void clearOthers() const;
    bool isChecked() const;

    Dialogs& dialogs_;
};

class Win32ProgressBar : public Win32Control<ProgressBar> {
 public:
    explicit Win32ProgressBar(const ControlPlace& place);
    void setRange(int minimum, int maximum) override;
    void setValue(int value) override;
};

}  // namespace pelk
