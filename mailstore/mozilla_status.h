#pragma once
// The state that Thunderbird stores in the header of a message.

#include <string_view>

namespace pelk {

/// Returns whether the message that begins with `start` is deleted and remains only until its
/// folder is compacted: bit 3 of `X-Mozilla-Status`. The field is among the first of the header.
/// Returns false if `start` ends before the field does.
bool isExpunged(std::string_view start);

/// How many bytes of a message are enough for `isExpunged`.
inline constexpr std::size_t kMozillaStatusReach = 512;

}  // namespace pelk
