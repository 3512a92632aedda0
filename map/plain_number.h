#pragma once
// Numbers in files: a decimal point in every locale, and the shortest form.

#include <string>

namespace pelk {

/// Returns the number with at most two digits after the point: "3", "0.5", "-12.25". Requires: its
/// magnitude is below 1e15.
std::string plainNumber(double number);

}  // namespace pelk
