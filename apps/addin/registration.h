#pragma once
// The add-in's entries in the registry, for this user alone.

#include <string>

namespace pelk {

/// Enters the classes of the DLL at `path`, and the add-in with the mail client. Returns an error
/// code of Windows, 0 for success.
long registerServer(const std::wstring& path);

/// Takes out what `registerServer` enters. What is not there is no error.
long unregisterServer();

}  // namespace pelk
