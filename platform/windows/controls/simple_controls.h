#pragma once
// Label, picture, buttons and progress bar.

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

/// The image is drawn as large as the bounds allow.
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
    /// Faults of the click's handler go to `dialogs`.
    Win32Button(const ControlPlace& place, const std::string& text, Dialogs& dialogs);
    void commanded(WORD notification) override;

 private:
    Dialogs& dialogs_;
};

class Win32OptionButton : public Win32Control<OptionButton> {
 public:
    /// Faults of the click's handler go to `dialogs`.
    Win32OptionButton(const ControlPlace& place, const std::string& text, Dialogs& dialogs);
    void setChecked(bool checked) override;
    void commanded(WORD notification) override;

    /// To be called for a control that was just added: the arrow keys do not go on to it from the
    /// option buttons before it.
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
