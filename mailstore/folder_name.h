#pragma once
// The names that mail programs give folders and messages on disk.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pelk {

/// If `name` is the directory with the subfolders of a folder beside it, returns the name of that
/// folder: "X" for "X.sbd" of Thunderbird and for ".X.directory" of KMail.
std::optional<std::string> companionOwner(std::string_view name);

/// Returns the names that the companion of the folder `owner` may have.
std::vector<std::string> companionNames(const std::string& owner);

/// The directory in a folder of Evolution's IMAP cache that holds its subfolders.
inline constexpr std::string_view kCacheSubfolders = "subfolders";

/// The ending of the directory of a mailbox of Apple Mail.
inline constexpr std::string_view kAppleMailboxEnding = ".mbox";

/// Splits the name of a Maildir++ folder: ".Lists.Kernel" is Lists, Kernel. A name with an empty
/// part is not split, except for "..Work", with which Evolution names Work in the inbox. Returns at
/// least one name.
std::vector<std::string> splitMaildirName(std::string_view fileName);

/// The file that Evolution puts beside Maildir++ folders whose names it escapes.
inline constexpr std::string_view kEscapedNamesMark = "..maildir++";

/// Decodes a part of such a name: "a_2Eb" is "a.b".
std::string decodeEscapedName(std::string_view name);

/// Returns the flags after ":2," in the name of a message, or nothing without that part. Programs
/// write a semicolon or an exclamation mark where file names may not hold a colon.
std::optional<std::string_view> maildirFlags(std::string_view fileName);

/// Decodes modified UTF-7 (RFC 3501, 5.1.3): "Entw&APw-rfe" is "Entwürfe". Returns a name that is
/// not valid in that encoding unchanged.
std::string decodeModifiedUtf7(std::string_view name);

}  // namespace pelk
