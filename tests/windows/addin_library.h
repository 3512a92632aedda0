#pragma once
// pelk.dll from outside: loads and registers it, and creates its objects.

#include <string>

#include "platform/windows/com.h"

namespace pelk {

/// Returns the path of the DLL, which is beside the test program.
std::wstring libraryPath();

class AddinLibrary {
 public:
    explicit AddinLibrary(const std::wstring& path = libraryPath());
    AddinLibrary(const AddinLibrary&) = delete;
    AddinLibrary& operator=(const AddinLibrary&) = delete;
    ~AddinLibrary();

    /// Creates an object without using the registry. Null when the DLL refuses.
    template <typename Interface>
    ComPtr<Interface> create(const CLSID& classId) {
        const ComPtr<IUnknown> object = createUnknown(classId);
        return object.template query<Interface>(__uuidof(Interface));
    }
    bool canUnload() const;

 private:
    ComPtr<IUnknown> createUnknown(const CLSID& classId);
    /// Returns a function that the DLL exports.
    template <typename Function>
    Function* function(const char* name) const {
        return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(module_, name)));
    }

    HMODULE module_;
};

/// Runs regsvr32 on the DLL, with `/u` to unregister it.
bool runRegistrar(bool unregister);

/// Wine does not look up classes in the user's registry. Links from the machine's classes to the
/// user's make it do so.
void linkUserClasses();

/// Moves the user's own database aside while a test runs. Other tests wait.
class DatabaseAside {
 public:
    DatabaseAside();
    DatabaseAside(const DatabaseAside&) = delete;
    DatabaseAside& operator=(const DatabaseAside&) = delete;
    ~DatabaseAside();

 private:
    HANDLE turn_;
    std::wstring path_;
};

}  // namespace pelk
