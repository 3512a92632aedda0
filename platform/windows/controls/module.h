#pragma once
// The module that this code is in, and the state in which a host's thread makes our windows.

#include <windows.h>

#include <string>

namespace pelk {

/// The DLL or program that this code is linked into.
HINSTANCE ownModule();
/// The file that it was loaded from.
std::wstring ownModulePath();

/// While it lives, the thread makes windows of the current common controls, if the module has the
/// manifest for them as its resource 2, and in the system's density of pixels, so that one scale
/// holds for all of them. Lives on the stack: scopes end in the reverse order of their beginning.
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
