#pragma once
// The name and version of the program.

namespace pelk {

inline constexpr const char* kProductName = "Pelk";
/// Set by CMake from the project's version.
inline constexpr const char* kProductVersion = PELK_VERSION;

}  // namespace pelk
