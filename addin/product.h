#pragma once
// The program's own name and version.

namespace pelk {

inline constexpr const char* kProductName = "Pelk";
/// Set by the build from the version of the project.
inline constexpr const char* kProductVersion = PELK_VERSION;

}  // namespace pelk
