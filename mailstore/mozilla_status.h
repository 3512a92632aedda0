#pragma once
// What Thunderbird and its kin write into the header of a message about its state.

#include <string_view>

namespace pelk {

/// Whether the message that begins with `start` has been deleted and only waits for its folder to
/// be compacted: bit 3 of `X-Mozilla-Status`. The field stands among the first of the header; of
/// one that `start` cuts off nothing is known, and the answer is no.
bool isExpunged(std::string_view start);

/// As much of a message as `isExpunged` can use, in bytes.
inline constexpr std::size_t kMozillaStatusReach = 512;

}  // namespace pelk
