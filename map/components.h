#pragma once
// The parts of a network that no link connects.

#include <cstdint>
#include <vector>

#include "map/rows.h"

namespace pelk {

/// Returns the numbers of the people of each part, ascending; the largest part first, of equally
/// large ones the one with the smallest number.
std::vector<std::vector<std::uint32_t>> componentsOf(const Rows& rows);

}  // namespace pelk
