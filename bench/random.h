#pragma once
// Random numbers that are the same on every run and with every standard library.

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <random>

namespace pelk {

/// The standard library's distributions differ from one library to the next, so none is used.
class Random {
 public:
    explicit Random(std::uint64_t seed = 2026) : generator_(seed) {}

    std::size_t below(std::size_t limit) { return generator_() % limit; }
    /// Above 0, 1 at most.
    double fraction() { return (static_cast<double>(generator_() >> 11) + 1) / 0x1p53; }
    bool chance(double probability) { return fraction() <= probability; }
    /// Below `limit`, by a power law: the first is drawn most often, the tenth a tenth as often.
    std::size_t rank(std::size_t limit) {
        return static_cast<std::size_t>(std::pow(static_cast<double>(limit), 1 - fraction())) - 1;
    }

 private:
    std::mt19937_64 generator_;
};

}  // namespace pelk
