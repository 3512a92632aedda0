#pragma once
// The about box.

#include <memory>

#include "platform/controls.h"

namespace pelk {

class aboutForm {
 public:
    explicit aboutForm(Toolkit& toolkit);
    void show() { window_->show(); }

 private:
    std::unique_ptr<Window> window_;
    Label& productLabel;
    Button& okButton;
};

}  // namespace pelk
