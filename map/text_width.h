#pragma once
// How wide a text is.

#include <functional>
#include <string>
#include <string_view>

namespace pelk {

/// Returns the width of a text in multiples of the font's size. A drawing target passes the measure
/// of its own font.
using TextWidth = std::function<double(std::string_view text)>;

/// A measure without a font, for files whose reader chooses it: the widths of a wide sans-serif
/// font, so that most others take less room.
double estimatedWidth(std::string_view text);

/// Returns the text if it is at most that wide, and else its start with an ellipsis.
std::string shortenedTo(double width, std::string_view text, const TextWidth& widthOf);

}  // namespace pelk
