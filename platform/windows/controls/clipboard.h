#pragma once
// Text for other programs.

#include <string>

namespace pelk {

/// Replaces what is on the clipboard by that text, its lines ended as Windows ends them. Throws
/// `Error` when another program does not let go of the clipboard within a fifth of a second.
void putOnClipboard(const std::wstring& text);

}  // namespace pelk
