#pragma once
// Text at the border to Windows: UTF-8 inside, UTF-16 outside.

#include <string>
#include <string_view>

namespace pelk {

/// What is not UTF-8 becomes U+FFFD.
std::wstring toWide(std::string_view utf8);

/// A lone surrogate becomes U+FFFD.
std::string toUtf8(std::wstring_view wide);

}  // namespace pelk
