#pragma once
// Text as mail carries it, turned into text that can be shown and stored.
//
// What these functions return is valid UTF-8 and free of characters that XML 1.0 forbids.

#include <string>
#include <string_view>

namespace pelk {

/// `raw` itself when it is valid UTF-8, else read as Windows-1252.
std::string toUtf8(std::string_view raw);

/// Readable text of a name, a subject or a file name: encoded words decoded, control characters
/// turned into blanks, runs of blanks into one, none at the ends. Overlong text is cut.
std::string decodeText(std::string_view raw);

/// `raw` without control characters; otherwise kept as it stands.
std::string cleanAddress(std::string_view raw);

/// Letters other than those of ASCII must be equal.
bool equalsIgnoringCase(std::string_view a, std::string_view b);

/// The same for texts that differ in nothing but letter case.
std::string foldCase(std::string_view text);

}  // namespace pelk
