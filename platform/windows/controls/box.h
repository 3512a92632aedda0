#pragma once
// A modal box with a text, optional text box and buttons. The system's message box cannot be closed
// when it asks yes or no, and has no text box.

#include <cstddef>
#include <string>
#include <vector>

#include "platform/windows/controls/look.h"

namespace pelk {

struct BoxButton {
    /// The id of the button, such as IDOK.
    int id;
    const wchar_t* text;
};

class Box {
 public:
    /// Enter presses the first button unless another is the default. `closing` is the answer when
    /// the user closes the box.
    Box(std::wstring title, std::wstring text, std::vector<BoxButton> buttons, int closing)
        : title_(std::move(title)),
          text_(std::move(text)),
          buttons_(std::move(buttons)),
          closing_(closing),
          default_(buttons_.front().id) {}

    /// Makes the button with this id the one that Enter presses.
    void setDefault(int button) { default_ = button; }
    /// Adds a text box in which the first `selected` characters are selected.
    void addLine(std::wstring initial, std::size_t selected);
    /// Returns the text when the box was closed.
    const std::wstring& line() const { return line_; }

    /// Shows the box and returns the id of the button.
    int show();

 private:
    static INT_PTR CALLBACK procedure(HWND box, UINT message, WPARAM wparam, LPARAM lparam);
    void build(HWND box);
    void end(HWND box, int button);

    std::wstring title_;
    std::wstring text_;
    std::vector<BoxButton> buttons_;
    int closing_;
    int default_;
    bool hasLine_ = false;
    std::wstring line_;
    std::size_t selected_ = 0;
    Look look_;
};

}  // namespace pelk
