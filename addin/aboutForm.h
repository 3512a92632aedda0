#pragma once
// The about box.

#include <memory>

#include "platform/controls.h"

namespace pelk {

class aboutForm {
 public:
    explicit aboutForm(Toolkit& toolkit);
    void show() { window->show(); }

    const std::unique_ptr<Window> window;
    Label& productLabel;
    Button& okButton;
};

}  // namespace pelk
