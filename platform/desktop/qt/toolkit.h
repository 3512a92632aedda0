#pragma once
// The toolkit over Qt Widgets.

#include "platform/controls.h"
#include "platform/desktop/qt/twip_scale.h"
#include "platform/dialogs.h"

namespace pelk {

/// Requires: a QApplication that outlives the toolkit, and a toolkit that no window outlives.
class QtToolkit : public Toolkit {
 public:
    /// `dialogs` shows what handlers throw; `language` orders the nodes of trees.
    QtToolkit(Dialogs& dialogs, const Language& language)
        : dialogs_(dialogs), language_(language), scale_(TwipScale::ofApplication()) {}

    std::unique_ptr<Window> createWindow() override;

 private:
    Dialogs& dialogs_;
    const Language& language_;
    TwipScale scale_;
};

}  // namespace pelk
