#pragma once
// A form that opens the help. The menu opens the help without this form, which exists for callers
// that show forms themselves.

#include <memory>

#include "platform/controls.h"
#include "platform/shell.h"

namespace pelk {

class HelpForm {
 public:
    HelpForm(Toolkit& toolkit, Shell& shell);

    /// Opens the help at its table of contents. Throws `Error` when it cannot be opened.
    void doHelp();

    const std::unique_ptr<Window> window;
    Label& helpLabel;
    Button& OK;

 private:
    Shell& shell_;
};

}  // namespace pelk
