#pragma once
// The labels that Gmail's export (Google Takeout) writes to the header field `X-Gmail-Labels`.
// Thread-safe. `labels` is the undecoded value of that field.

#include <optional>
#include <string>
#include <string_view>

#include "platform/mail_client.h"

namespace pelk {

/// Returns the default folder that the labels of a message name. Returns nothing if no label names
/// one.
std::optional<DefaultFolder> folderOfLabels(std::string_view labels);

/// Returns the default folder that one label names, which is decoded.
std::optional<DefaultFolder> folderOfLabel(std::string_view label);

/// Returns the one label that a message is shown under: that of a default folder, as above, else
/// the first that is more than a state such as "Unread", else the first. Returns empty text if
/// there is none.
std::string mainLabel(std::string_view labels);

}  // namespace pelk
