#pragma once
// Turns HTML into plain text. Nothing is loaded or run.

#include <string>
#include <string_view>

namespace pelk {

/// Returns the text of an HTML document in UTF-8: without tags, scripts and styles, with a line for
/// each block. The time that it takes is linear in the length, whatever the document holds.
std::string textOfHtml(std::string_view html);

}  // namespace pelk
