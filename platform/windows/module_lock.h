#pragma once
// What keeps the DLL in memory: as long as a lock exists, its code may still be called.

#include <atomic>

namespace pelk {

/// Held by every object that somebody outside the DLL may have a reference to.
class ModuleLock {
 public:
    ModuleLock() { acquire(); }
    ModuleLock(const ModuleLock&) : ModuleLock() {}
    ModuleLock& operator=(const ModuleLock&) = default;
    ~ModuleLock() { release(); }

    /// For those whose locks are no objects.
    static void acquire() { ++count_; }
    static void release() { --count_; }

    static bool isHeld() { return count_ != 0; }

 private:
    static inline std::atomic<long> count_ = 0;
};

}  // namespace pelk
