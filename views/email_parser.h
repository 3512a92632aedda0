#pragma once
// Splits an e-mail address into local part and domain labels.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/language.h"

namespace pelk {

/// Returns the local part unchanged, then the domain's labels from left to right in lower case,
/// empty ones included. Returns nothing for an address without "@".
std::optional<std::vector<std::string>> splitAddress(std::string_view address,
                                                     const Language& language);

}  // namespace pelk
