#pragma once
// What the campaign tells the preloaded library: which call of a run is to fail, and how.

namespace pelk {

/// Kinds of calls, which can be combined.
enum FaultCall : int {
    kStat = 1,
    kOpen = 2,
    kRead = 4,
    kWrite = 8,
    kSync = 16,
    kClose = 32,
    kRename = 64,
    kMakeFolder = 128,
    kLock = 256,
    kAnyFileCall = 511,
    kThread = 512,
    kMemory = 1024,
};

/// In the place of an error number: half of what was asked for is done; the process is killed.
enum FaultEffect : int { kHalf = 1000, kKill = 1001 };

/// The variable holds the kinds, which call of these is struck, counted from 1, the error number,
/// and the folder that the program works in: calls on files elsewhere are not counted.
inline constexpr const char* kFaultVariable = "PELK_FAULT";

/// The file that then stands in that folder.
inline constexpr const char* kStruckName = "struck";

}  // namespace pelk
