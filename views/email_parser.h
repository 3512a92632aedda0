#pragma once
// Splits e-mail addresses into local part and domain labels.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/language.h"

namespace pelk {

/// Returns the labels of a mail domain from left to right, empty ones included.
std::vector<std::string> labelsOf(const std::string& domain);

/// Returns the local part unchanged, then the domain's labels from left to right in lower case,
/// empty ones included. Returns nothing for an address without "@".
std::optional<std::vector<std::string>> splitAddress(std::string_view address,
                                                     const Language& language);

}  // namespace pelk
