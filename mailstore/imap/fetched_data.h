#pragma once
// What libetpan read in the answer to a command, as values. For source files only.

#include <libetpan/libetpan.h>

#include <cstdint>
#include <vector>

#include "mailstore/imap/imap_connection.h"

namespace pelk {

std::vector<ListedMailbox> mailboxesIn(const mailimap_response_info& answer);
std::vector<std::uint32_t> numbersIn(const mailimap_response_info& answer);
/// What has no UID is left out.
std::vector<FetchedHeader> headersIn(const mailimap_response_info& answer);

}  // namespace pelk
