#pragma once
// Keeps the DLL in memory: while a lock exists, its code may still be called.

#include <atomic>

namespace pelk {

/// Held by every object to which code outside the DLL may have a reference.
class ModuleLock {
 public:
    ModuleLock() { acquire(); }
    ModuleLock(const ModuleLock&) : ModuleLock() {}
    ModuleLock& operator=(const ModuleLock&) = default;
    ~ModuleLock() { release(); }

    /// For locks that no object holds.
    static void acquire() { ++count_; }
    static void release() { --count_; }

    static bool isHeld() { return count_ != 0; }

 private:
    static inline std::atomic<long> count_ = 0;
};

}  // namespace pelk
