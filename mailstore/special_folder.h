#pragma once
// The folders that mail programs have for purposes of their own, by the names they give them.

#include <optional>
#include <string_view>

#include "platform/mail_client.h"

namespace pelk {

/// What a folder of that name, in any letter case, is for when it stands at the top of a store.
/// Nothing for any other name.
std::optional<DefaultFolder> folderCalled(std::string_view name);

/// The folder that a value of `X-Gmail-Labels` puts its message in, as it stands in the header.
/// Nothing when it is none of these folders.
std::optional<DefaultFolder> folderOfLabels(std::string_view labels);

/// Whether a folder of that name at the top of a store is one in which mail services keep the
/// others: "INBOX", "[Gmail]".
bool isContainerName(std::string_view name);

}  // namespace pelk
