#pragma once
// The toolkit over the common controls of Windows.

#include "platform/controls.h"
#include "platform/dialogs.h"
#include "platform/windows/controls/look.h"

namespace pelk {

/// Lives on the thread that runs the message loop, as do its windows, none of which outlives it.
class Win32Toolkit : public Toolkit {
 public:
    /// `dialogs` shows what handlers throw; `language` orders the nodes of trees.
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
