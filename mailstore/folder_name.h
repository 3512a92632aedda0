#pragma once
// The names of folders and messages on disk: Maildir++ and the `.sbd` directories of Thunderbird.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pelk {

/// The ending of the directory with the subfolders of the mbox beside it.
inline constexpr std::string_view kCompanionEnding = ".sbd";

/// Returns `name` without that ending, if it has it.
std::string withoutCompanionEnding(std::string_view name);

/// Splits the name of a Maildir++ folder: ".Lists.Kernel" is Lists, Kernel. A name with an empty
/// part is not split. Returns at least one name.
std::vector<std::string> splitMaildirName(std::string_view fileName);

/// Returns the flags after ":2," in the name of a message, or nothing without that part. Programs
/// write a semicolon or an exclamation mark where file names may not hold a colon.
std::optional<std::string_view> maildirFlags(std::string_view fileName);

/// Decodes modified UTF-7 (RFC 3501, 5.1.3): "Entw&APw-rfe" is "Entwürfe". Returns a name that is
/// not valid in that encoding unchanged.
std::string decodeModifiedUtf7(std::string_view name);

}  // namespace pelk
