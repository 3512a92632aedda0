#pragma once
// The add-in's registry entries for the current user.

#include <string>

namespace pelk {

/// Registers the classes of the DLL at `path`, and the add-in with the mail client. Returns a
/// Windows error code, 0 for success.
long registerServer(const std::wstring& path);

/// Removes the entries of `registerServer`. A missing entry is no error.
long unregisterServer();

}  // namespace pelk
