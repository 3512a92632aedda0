#pragma once
// Text in XML files that other programs read.

#include <string>
#include <string_view>

namespace pelk {

/// Returns the text for the content or an attribute of an element: one line of characters that XML
/// allows, with references for markup.
std::string markupText(std::string_view text);

}  // namespace pelk
