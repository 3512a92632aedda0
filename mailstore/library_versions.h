#pragma once
// The libraries that read mail.

#include <string>
#include <vector>

namespace pelk {

/// Returns the name and version of each library that is loaded.
std::vector<std::string> mailLibraries();

}  // namespace pelk
