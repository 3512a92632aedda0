#pragma once
// Converts an answer that libetpan has parsed into values. Include it in source files only.

#include <libetpan/libetpan.h>

#include <cstdint>
#include <vector>

#include "mailstore/imap/imap_connection.h"

namespace pelk {

std::vector<ListedMailbox> mailboxesIn(const mailimap_response_info& answer);
std::vector<std::uint32_t> numbersIn(const mailimap_response_info& answer);

}  // namespace pelk
