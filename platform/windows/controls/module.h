#pragma once
// The module of this code, and the thread state in which it creates windows.

#include <windows.h>

#include <string>

namespace pelk {

/// Returns the DLL or program that contains this code.
HINSTANCE ownModule();
/// Returns the file that it was loaded from.
std::wstring ownModulePath();

/// While this object exists, the thread creates windows with the current common controls, if the
/// module has their manifest as resource 2, and with the system's DPI, so that one scale fits all
/// of them. Scopes must be destroyed in reverse order of construction.
class WindowScope {
 public:
    WindowScope();
    WindowScope(const WindowScope&) = delete;
    WindowScope& operator=(const WindowScope&) = delete;
    ~WindowScope();

 private:
    ULONG_PTR cookie_ = 0;
    bool activated_ = false;
    HANDLE densityBefore_ = nullptr;
};

}  // namespace pelk
