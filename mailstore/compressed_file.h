#pragma once
// Opens files that may be compressed: gzip, xz or Zstandard, told by their content.

#include <memory>
#include <string>

#include "mailstore/mail_file.h"

namespace pelk {

/// Opens the file at `path` for reading its content at any offset. Unpacks a compressed file into a
/// temporary file without a name, once, because the messages of a folder are read in any order and
/// a mailbox may be larger than the memory. Throws an `Error` that names the path if the file
/// cannot be read, is damaged or cut short, or if the disk is full.
std::shared_ptr<MailFile> openContent(const std::string& path);

/// Returns the first `size` bytes of the content of the file at `path`, or all if there are fewer.
/// Throws an `Error` that names the path if it cannot be read or is damaged so early.
std::string startOfContent(const std::string& path, std::size_t size);

}  // namespace pelk
