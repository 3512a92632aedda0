#include "platform/windows/controls/toolkit.h"

#include "platform/windows/controls/window.h"

namespace pelk {

std::unique_ptr<Window> Win32Toolkit::createWindow() {
    return std::make_unique<Win32Window>(look_, dialogs_, language_);
}

}  // namespace pelk
