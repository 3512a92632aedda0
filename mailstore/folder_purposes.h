#pragma once
// The default folders that the settings of mail programs name.

#include <map>
#include <string>

#include "platform/mail_client.h"

namespace pelk {

/// By `purposeKey` of the folder's place.
using FolderPurposes = std::map<std::string, DefaultFolder>;

/// Returns the place with all names decoded. Settings may name a folder as it is shown, or encoded
/// (RFC 3501, 5.1.3) as on disk.
std::string purposeKey(const std::string& place);

}  // namespace pelk
