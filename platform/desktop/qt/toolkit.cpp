#include "platform/desktop/qt/toolkit.h"

#include "platform/desktop/qt/window.h"

namespace pelk {

std::unique_ptr<Window> QtToolkit::createWindow() {
    return std::make_unique<QtWindow>(scale_, dialogs_, language_);
}

}  // namespace pelk
