#pragma once
// Tells the preloaded library which call of a run must fail, and how.

namespace pelk {

/// Effects beside error numbers: the call does half of its work; the process is killed.
enum FaultEffect : int { kHalf = 1000, kKill = 1001 };

/// The variable contains the kind of call ("file" for any call on a file), the number of the call
/// that fails, counted from 1, the error number, and the folder of the database. Calls on files
/// elsewhere are not counted.
inline constexpr const char* kFaultVariable = "PELK_FAULT";

/// The library creates this file in that folder when it makes the call fail.
inline constexpr const char* kStruckName = "struck";

}  // namespace pelk
