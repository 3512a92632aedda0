#pragma once
// The minimal work of any program that counts mail: finds the messages, decodes the fields with
// people and dates, and discards the results.

#include <cstddef>
#include <string>

namespace pelk {

/// Splits an mbox and decodes the needed fields of each message with GMime. Returns the number of
/// people named.
std::size_t decodeMbox(const std::string& path);

/// Reads each file of a directory to its end. Returns the number of bytes.
std::size_t readFiles(const std::string& directory);

/// Reads the files and decodes each message as `decodeMbox` does.
std::size_t decodeFiles(const std::string& directory);

}  // namespace pelk
