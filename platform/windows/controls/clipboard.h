#pragma once
// Copies text for other programs.

#include <string>

namespace pelk {

/// Replaces the content of the clipboard by the text, with Windows line ends. Throws `Error` when
/// another program keeps the clipboard open for a fifth of a second.
void putOnClipboard(const std::wstring& text);

}  // namespace pelk
