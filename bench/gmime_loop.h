#pragma once
// The least that anybody must do who counts mail: find the messages, decode the fields that name
// people and dates, and do nothing with them.

#include <cstddef>
#include <string>

namespace pelk {

/// Splits an mbox and decodes the needed fields of each message with GMime. Returns the number of
/// people named.
std::size_t decodeMbox(const std::string& path);

/// Reads each file of a directory to its end. Returns the number of bytes.
std::size_t readFiles(const std::string& directory);

/// Reads them and decodes as `decodeMbox` does.
std::size_t decodeFiles(const std::string& directory);

}  // namespace pelk
