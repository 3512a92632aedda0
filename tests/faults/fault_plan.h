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
    kThread = 512,
    kMemory = 1024,
    kAnyFileCall = 511,
};

/// In the place of an error number: the call does half of what it was asked for; the process is
/// killed before the call.
inline constexpr int kHalf = 1000;
inline constexpr int kKill = 1001;

/// The variable holds the calls, which of them is struck, counted from 1, the error, a descriptor
/// that is written to then, and the folder: calls on files elsewhere are not counted.
inline constexpr const char* kFaultVariable = "PELK_FAULT";

}  // namespace pelk
