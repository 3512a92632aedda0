#pragma once
// The window classes of controls that the program paints itself.

#include <windows.h>

#include <memory>

#include "platform/error.h"
#include "platform/windows/controls/module.h"

namespace pelk {

/// Registers the window class of the controls of the type `Control`, which has `kClassName` and
/// `procedure`. Windows keeps classes of an unloaded DLL, whose code is gone.
template <class Control>
class WindowClass {
 public:
    WindowClass() {
        WNDCLASSEXW description = {};
        description.cbSize = sizeof description;
        description.style = CS_HREDRAW | CS_VREDRAW | CS_DBLCLKS;
        description.lpfnWndProc = Control::procedure;
        description.hInstance = ownModule();
        description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
        description.lpszClassName = Control::kClassName;
        if (RegisterClassExW(&description) == 0)
            throw Error("Windows has no room for another kind of control.");
    }
    WindowClass(const WindowClass&) = delete;
    WindowClass& operator=(const WindowClass&) = delete;
    ~WindowClass() { UnregisterClassW(Control::kClassName, ownModule()); }

    /// Returns the class that all controls of the type share while there is one.
    static std::shared_ptr<WindowClass> shared() {
        static std::weak_ptr<WindowClass> current;
        std::shared_ptr<WindowClass> found = current.lock();
        if (found == nullptr)
            current = found = std::make_shared<WindowClass>();
        return found;
    }
};

/// Keeps the class until the window of the control is gone: a window destroys its controls'
/// windows before it releases them.
template <class Control>
struct WindowClassUse {
    std::shared_ptr<WindowClass<Control>> windowClass = WindowClass<Control>::shared();
};

}  // namespace pelk
