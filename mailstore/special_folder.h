#pragma once
// Recognises default folders by the names that mail programs give them. Thread-safe.

#include <optional>
#include <string_view>

#include "platform/mail_client.h"

namespace pelk {

/// Returns the purpose of a folder of that name, in any letter case, at the top of a store. Returns
/// nothing for any other name.
std::optional<DefaultFolder> folderCalled(std::string_view name);

/// Returns whether mail programs keep the e-mails that the user has sent in a folder of that name.
bool isSentMailName(std::string_view name);

/// Returns whether mail services put their default folders into a folder of that name at the top of
/// a store: "INBOX", "[Gmail]".
bool isContainerName(std::string_view name);

}  // namespace pelk
