#pragma once
// The places of mail (`MailFolder::place`) as a document holds them.

#include <string>
#include <string_view>

namespace pelk {

/// Percent-encoded (RFC 3986, 2.1), as a path may hold bytes that no document can carry.
std::string encodePlace(const std::string& place);
std::string decodePlace(std::string_view encoded);

}  // namespace pelk
