#pragma once
// What the campaign tells the preloaded library: which call of a run is to fail, and how.

namespace pelk {

/// In the place of an error number: half of what was asked for is done; the process is killed.
enum FaultEffect : int { kHalf = 1000, kKill = 1001 };

/// The variable holds the kind of call ("file" for any on a file), which of these is struck,
/// counted from 1, the error number, and the folder that the program works in: calls on files
/// elsewhere are not counted.
inline constexpr const char* kFaultVariable = "PELK_FAULT";

/// The file that then stands in that folder.
inline constexpr const char* kStruckName = "struck";

}  // namespace pelk
