#pragma once
// The names that Maildir folders have on disk.

#include <string>
#include <string_view>
#include <vector>

namespace pelk {

/// The folder names that ".Lists.Kernel" leads through. At least one; a name that does not follow
/// that form is one name as a whole.
std::vector<std::string> splitMaildirName(std::string_view fileName);

/// The text that a name in the encoding of IMAP stands for: "Entw&APw-rfe" is "Entwürfe". A name
/// that is not in that encoding stays as it is.
std::string decodeModifiedUtf7(std::string_view name);

}  // namespace pelk
