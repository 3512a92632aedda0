#pragma once
// The options of a scan.

#include <string>

namespace pelk {

struct ScanOptions {
    /// Counts an e-mail in every folder of a store that has it, not only in the first.
    bool copies = false;
    /// A stamp, or the beginning of one: the scan counts e-mails created after it. If empty, it
    /// counts e-mails created after the last scan.
    std::string since;
};

}  // namespace pelk
