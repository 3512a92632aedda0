#pragma once
// The toolkit on Qt Widgets.

#include "platform/controls.h"
#include "platform/desktop/qt/twip_scale.h"
#include "platform/dialogs.h"

namespace pelk {

/// Requires a QApplication that outlives the toolkit. The toolkit must outlive its windows.
class QtToolkit : public Toolkit {
 public:
    /// `dialogs` shows the handlers' exceptions; `language` sorts tree nodes.
    QtToolkit(Dialogs& dialogs, const Language& language)
        : dialogs_(dialogs), language_(language), scale_(TwipScale::ofApplication()) {}

    std::unique_ptr<Window> createWindow() override;

 private:
    Dialogs& dialogs_;
    const Language& language_;
    TwipScale scale_;
};

}  // namespace pelk
