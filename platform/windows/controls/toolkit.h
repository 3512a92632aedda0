#pragma once
// The toolkit on Windows common controls.

#include "platform/controls.h"
#include "platform/dialogs.h"
#include "platform/windows/controls/look.h"

namespace pelk {

/// Lives on the thread that runs the message loop and must outlive its windows.
class Win32Toolkit : public Toolkit {
 public:
    /// `dialogs` shows the handlers' exceptions; `language` sorts tree nodes.
    Win32Toolkit(Dialogs& dialogs, const Language& language)
        : dialogs_(dialogs), language_(language) {}

    std::unique_ptr<Window> createWindow() override;

    const Look& look() const { return look_; }

 private:
    Dialogs& dialogs_;
    const Language& language_;
    Look look_;
};

}  // namespace pelk
