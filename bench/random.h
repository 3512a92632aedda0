#pragma once
// Pseudo-random numbers, the same on every run and with every standard library.

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <random>

namespace pelk {

/// Uses no standard distributions, as their results differ between libraries.
class Random {
 public:
    explicit Random(std::uint64_t seed = 2026) : generator_(seed) {}

    std::size_t below(std::size_t limit) { return generator_() % limit; }
    /// Returns a number above 0 and at most 1.
    double fraction() { return (static_cast<double>(generator_() >> 11) + 1) / 0x1p53; }
    bool chance(double probability) { return fraction() <= probability; }
    /// Returns a number below `limit` by Zipf's law: number 0 is the most frequent, number 9 a
    /// tenth as frequent.
    std::size_t rank(std::size_t limit) {
        return static_cast<std::size_t>(std::pow(static_cast<double>(limit), 1 - fraction())) - 1;
    }

 private:
    std::mt19937_64 generator_;
};

}  // namespace pelk
