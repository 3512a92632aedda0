#pragma once
// Converts text: the program uses UTF-8, Windows UTF-16.

#include <string>
#include <string_view>

namespace pelk {

/// Invalid UTF-8 becomes U+FFFD.
std::wstring toWide(std::string_view utf8);

/// A lone surrogate becomes U+FFFD.
std::string toUtf8(std::wstring_view wide);

}  // namespace pelk
