#pragma once
// The letters that press a button or choose a menu item together with Alt.

#include <string>
#include <vector>

namespace pelk {

/// Returns the captions with "&" before the letter that is the access key of each, all different. A
/// caption that has a mark keeps it, even if two have the same. The others get the first letter of
/// a word if that is free, else any free letter; without one they stay as they are. "&&" is a
/// literal "&".
std::vector<std::string> withAccessKeys(std::vector<std::string> captions);

/// Returns the caption with each "&" as a literal one.
std::string withoutAccessKey(const std::string& caption);

}  // namespace pelk
