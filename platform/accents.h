#pragma once
// Removes accents from letters, as people do who type a name to search for it.

#include <string>
#include <string_view>

namespace pelk {

/// Removes the accents of Latin, Greek and Cyrillic letters (the characters U+0300 to U+036F) from
/// a decomposed text in lower case. Letters that Unicode does not decompose, such as ø and ß,
/// become the letters that people type for them. Marks of other scripts stay, because they are
/// letters there. Takes and returns UTF-8; other bytes stay.
std::string withoutAccents(std::string_view decomposed);

}  // namespace pelk
