#pragma once
// A modal box: a text, perhaps a line to edit, and buttons. The system's own message box cannot be
// closed when it asks yes or no, and has no line to edit.

#include <string>
#include <vector>

#include "platform/windows/controls/look.h"

namespace pelk {

struct BoxButton {
    /// The number of the button, such as IDOK.
    int id;
    const wchar_t* text;
};

class Box {
 public:
    /// The first button is the one that Enter presses; `closing` is what closing the box answers.
    Box(std::wstring title, std::wstring text, std::vector<BoxButton> buttons, int closing)
        : title_(std::move(title)),
          text_(std::move(text)),
          buttons_(std::move(buttons)),
          closing_(closing) {}

    /// Adds a line to edit.
    void addLine(std::wstring initial);
    /// What the line held when the box was closed.
    const std::wstring& line() const { return line_; }

    /// Shows the box and returns the number of the button.
    int show();

 private:
    static INT_PTR CALLBACK procedure(HWND box, UINT message, WPARAM wparam, LPARAM lparam);
    void build(HWND box);
    void end(HWND box, int button);

    std::wstring title_;
    std::wstring text_;
    std::vector<BoxButton> buttons_;
    int closing_;
    bool hasLine_ = false;
    std::wstring line_;
    Look look_;
};

}  // namespace pelk
