#pragma once
// Pseudo-random numbers, the same on every system: Steele, Lea and Flood, "Fast splittable
// pseudorandom number generators", OOPSLA 2014 (SplitMix64).

#include <cstdint>

namespace pelk {

class SmallRandom {
 public:
    /// Returns a number from 0 up to but not including 1.
    double fraction() { return static_cast<double>(next() >> 11U) * 0x1p-53; }

 private:
    std::uint64_t next() {
        std::uint64_t bits = state_ += 0x9E3779B97F4A7C15U;
        bits = (bits ^ (bits >> 30U)) * 0xBF58476D1CE4E5B9U;
        bits = (bits ^ (bits >> 27U)) * 0x94D049BB133111EBU;
        return bits ^ (bits >> 31U);
    }

    std::uint64_t state_ = 2026;
};

}  // namespace pelk
