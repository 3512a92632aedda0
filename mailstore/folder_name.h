#pragma once
// The names that Maildir folders and their messages have on disk.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pelk {

/// The ending of the directory that holds the subfolders of the mbox beside it.
inline constexpr std::string_view kCompanionEnding = ".sbd";

/// `name` without that ending, if it has it.
std::string withoutCompanionEnding(std::string_view name);

/// The folder names that ".Lists.Kernel" leads through. At least one; a name that does not follow
/// that form is one name as a whole.
std::vector<std::string> splitMaildirName(std::string_view fileName);

/// The flags behind ":2," in the name of a message; nothing when it has no such part. Where a colon
/// is not allowed in a name, programs write a semicolon or a mark of exclamation.
std::optional<std::string_view> maildirFlags(std::string_view fileName);

/// The text that a name in the encoding of IMAP stands for: "Entw&APw-rfe" is "Entwürfe". A name
/// that is not in that encoding stays as it is.
std::string decodeModifiedUtf7(std::string_view name);

}  // namespace pelk
