#pragma once
// Recognises the format of a file by its first bytes.

#include <string>

namespace pelk {

enum class FileStart {
    /// The file is empty.
    Nothing,
    Mbox,
    /// The first line is a header field that messages begin with.
    Message,
    /// Mail in a format that this folder cannot read, such as a data file of Outlook.
    Foreign,
    Other
};

/// Returns what the first bytes of the content of the file `path` say about its format, see
/// `startOfContent`. Throws an `Error` if it cannot be read. Any thread may call it.
FileStart startOf(const std::string& path);

}  // namespace pelk
