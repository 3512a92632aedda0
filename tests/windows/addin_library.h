#pragma once
// pelk.dll from outside: loaded, registered, its objects made.

#include <string>

#include "platform/windows/com.h"

namespace pelk {

/// The path of the DLL, which stands beside the test program.
std::wstring libraryPath();

class AddinLibrary {
 public:
    explicit AddinLibrary(const std::wstring& path = libraryPath());
    AddinLibrary(const AddinLibrary&) = delete;
    AddinLibrary& operator=(const AddinLibrary&) = delete;
    ~AddinLibrary();

    /// Makes an object past the registry. None when the DLL refuses.
    template <typename Interface>
    ComPtr<Interface> create(const CLSID& classId) {
        const ComPtr<IUnknown> object = createUnknown(classId);
        return object.template query<Interface>(__uuidof(Interface));
    }
    bool canUnload() const;

 private:
    ComPtr<IUnknown> createUnknown(const CLSID& classId);
    /// A function that the DLL exports.
    template <typename Function>
    Function* function(const char* name) const {
        return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(module_, name)));
    }

    HMODULE module_;
};

/// Runs regsvr32 on the DLL, with `/u` for one that takes the entries out.
bool runRegistrar(bool unregister);

/// Wine does not look for classes among the user's own. In its registry, links from the machine's
/// classes to the user's do the same.
void linkUserClasses();

/// The user's own database, put aside while a test runs. One test at a time can do so: others wait.
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
