#pragma once
// Takes an e-mail address apart.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/language.h"

namespace pelk {

/// The local part as it stands, then the labels of the domain from left to right in lower case;
/// empty labels are kept. Nothing for an address without "@".
std::optional<std::vector<std::string>> splitAddress(std::string_view address,
                                                     const Language& language);

}  // namespace pelk
